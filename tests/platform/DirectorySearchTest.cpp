#include "platform/common/DirectorySearch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

using Names = std::vector<std::string>;

class DirectoryPattern : public testing::Test {
 protected:
  // Which of the names in the folder match, sorted.
  Names Match(const std::string& pattern, const Names& names) {
    for (const auto& name : names) WriteFile(folder.File(name), "");
    Names found = DirectorySearch().FilesMatching(folder.File(pattern));
    std::sort(found.begin(), found.end());
    return found;
  }
  TemporaryFolder folder;
};

TEST_F(DirectoryPattern, TakesAStarForAnyCharacters) {
  EXPECT_EQ(Match("a*b*c", {"abc", "axbbxc", "abcd", "xabc", "aXbYcZc", "acb"}),
            (Names{"aXbYcZc", "abc", "axbbxc"}));
}

TEST_F(DirectoryPattern, TakesStarsForNothingToo) {
  EXPECT_EQ(Match("ab**", {"ab", "abc", "a"}), (Names{"ab", "abc"}));
}

TEST_F(DirectoryPattern, TakesAQuestionMarkForOneCharacterOfAnyAlphabet) {
  EXPECT_EQ(Match("?.txt", {"a.txt", "ü.txt", "я.txt", "ab.txt", ".txt"}),
            (Names{"a.txt", "ü.txt", "я.txt"}));
}

TEST_F(DirectoryPattern, MatchesNamesThatAreNoUtf8) {
  EXPECT_EQ(Match("*.wav", {"\xE4.wav"}), Names{"\xE4.wav"});
  EXPECT_EQ(Match("?.wav", {}), Names{"\xE4.wav"});
}

TEST_F(DirectoryPattern, TakesAPlainNameForItself) {
  EXPECT_EQ(Match("a.txt", {"a.txt", "a.txt2", "ba.txt"}), Names{"a.txt"});
}

TEST_F(DirectoryPattern, TakesEveryNameForStarDotStar) {
  EXPECT_EQ(Match("*.*", {"ohne", ".versteckt", "a.b"}), (Names{".versteckt", "a.b", "ohne"}));
}

TEST_F(DirectoryPattern, ListsTheNamesInTheOrderOfAList) {
  for (const auto* const name : {"b.vts", "Ü.vts", "a.vts", "C.vts", "Teil 10.vts", "Teil 9.vts"}) {
    WriteFile(folder.File(name), "");
  }
  EXPECT_EQ(DirectorySearch().FilesMatching(folder.File("*.vts")),
            (Names{"a.vts", "b.vts", "C.vts", "Teil 9.vts", "Teil 10.vts", "Ü.vts"}));
}

TEST_F(DirectoryPattern, FindsNothingForAFolderAlone) {
  EXPECT_EQ(Match("", {"a"}), Names{});
}

}  // namespace
}  // namespace lorelin
