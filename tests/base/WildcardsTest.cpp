#include "base/wildcards.h"

#include <gtest/gtest.h>

#include <string>

namespace lorelin {
namespace {

TEST(Wildcards, MatchWholeNamesOnly) {
  EXPECT_TRUE(MatchesWildcards("a.txt", "a.txt"));
  EXPECT_FALSE(MatchesWildcards("a.txt", "a.txt2"));
  EXPECT_FALSE(MatchesWildcards("", "a"));
  EXPECT_TRUE(MatchesWildcards("", ""));
  EXPECT_TRUE(MatchesWildcards("**", ""));
  EXPECT_FALSE(MatchesWildcards("?", ""));
}

TEST(Wildcards, TakeAsManyCharactersAsTheyNeed) {
  EXPECT_TRUE(MatchesWildcards("a*b*c", "abxbxc"));
  EXPECT_TRUE(MatchesWildcards("*?.wav", "ä.wav"));
  EXPECT_TRUE(MatchesWildcards("?.wav", "\xE4.wav"));
  EXPECT_FALSE(MatchesWildcards("??.wav", "ä.wav"));
}

TEST(Wildcards, EndWithTheSameBytesWhateverTheyAre) {
  EXPECT_TRUE(MatchesWildcards("*\xA4", "x\xC3\xA4\xA4"));
}

}  // namespace
}  // namespace lorelin
