#include "platform/linux/compoundText.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(CompoundText, BeginsWithWesternLetters) {
  EXPECT_EQ(FromCompoundText("Gr\xFC\xDF"
                             "e"),
            "Grüße");
}

TEST(CompoundText, ChangesItsSets) {
  EXPECT_EQ(FromCompoundText("a \x1B-L\xBF\xE0 \x1B-A\xE4"), "a Пр ä");
  EXPECT_EQ(FromCompoundText("\x1B-B\xB1\x1B(B b"), "ą b");
  EXPECT_EQ(FromCompoundText("\x1B$(BF|K\\\x1B(B!"), "日本!");
  EXPECT_EQ(FromCompoundText("\x1B$)A\xC4\xE3"), "你");
}

TEST(CompoundText, HoldsUnicodeAndNamedEncodings) {
  EXPECT_EQ(FromCompoundText("x\x1B%G♥ ä\x1B%@\xE4"), "x♥ ää");
  EXPECT_EQ(FromCompoundText(std::string_view("\x1B%/1\x80\x8Bkoi8-r\x02\xF0\xD2\xC9\xD7.", 18)), "Прив.");
}

TEST(CompoundText, EndsWhereItIsCutOff) {
  for (const std::string text : {"\x1B", "\x1B$", "\x1B%", "\x1B%/", "\x1B%G", "\x9B",
                                 "\x9B"
                                 "1",
                                 "\x1B-"}) {
    EXPECT_EQ(FromCompoundText("a" + text), "a") << text.size();
  }
}

}  // namespace
}  // namespace lorelin
