#include "platform/common/caseFold.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(CaseFold, MakesSmallLettersOfEveryAlphabetCapitals) {
  EXPECT_EQ(FoldCase("az09_\\"), "AZ09_\\");
  EXPECT_EQ(FoldCase("äöüéÿ"), "ÄÖÜÉŸ");
  EXPECT_EQ(FoldCase("αως привет"), "ΑΩΣ ПРИВЕТ");
}

TEST(CaseFold, LeavesLettersThatAreNotTheSmallOnesOfTheirCapitals) {
  EXPECT_EQ(FoldCase("ß ı µ ſ"), "ß ı µ ſ");
}

TEST(CaseFold, LeavesBytesThatAreNoUtf8) {
  EXPECT_EQ(FoldCase("a\xC3"), "A\xC3");
  EXPECT_EQ(FoldCase("\xE4z\xFF"), "\xE4Z\xFF");
  EXPECT_EQ(FoldCase(std::string_view("a\0b", 3)), std::string_view("A\0B", 3));
}

}  // namespace
}  // namespace lorelin
