#include "base/textEncoding.h"

#include <gtest/gtest.h>

#include <string>

#include "base/utf16.h"

namespace lorelin {
namespace {

TEST(DecodeText, TakesValidUtf8AsItIs) {
  EXPECT_EQ(DecodeText("Grüße – 10 € ♥"), "Grüße – 10 € ♥");
}

TEST(DecodeText, DropsTheByteOrderMark) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBFHallo"), "Hallo");
}

TEST(DecodeText, TakesEverythingElseAsWindows1252) {
  EXPECT_EQ(DecodeText("Gr\xFC\xDF"
                       "e \x96 10 \x80 \x84so\x93"),
            "Grüße – 10 € „so“");
}

TEST(DecodeText, KeepsEveryByteOfWindows1252) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  EXPECT_EQ(CharacterCount(DecodeText(bytes)), 255U);
}

TEST(DecodeText, ReplacesBadBytesBehindAByteOrderMark) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBFä\xFFz"), "ä\xEF\xBF\xBDz");
}

constexpr std::string_view kLittle("\xFF\xFEG\0r\0\xFC\0=\xD8\0\xDE", 12);
constexpr std::string_view kBig("\xFE\xFF\0G\0r\0\xFC\xD8=\xDE\0", 12);

TEST(DecodeText, ReadsUtf16InBothOrders) {
  EXPECT_EQ(DecodeText(kLittle), "Grü😀");
  EXPECT_EQ(DecodeText(kBig), "Grü😀");
  EXPECT_EQ(DecodeText("\xFF\xFE"), "");
}

TEST(DecodeText, ReplacesHalvesOfUtf16) {
  EXPECT_EQ(DecodeText(kLittle.substr(0, 11)), "Grü\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(DecodeText(kLittle.substr(0, 10)), "Grü\xEF\xBF\xBD");
  EXPECT_EQ(DecodeText(std::string_view("\xFE\xFF\xDE\0\0a", 6)),
            "\xEF\xBF\xBD"
            "a");
}

TEST(ToUtf16, GivesTheBytesThatWereRead) {
  EXPECT_EQ(ToUtf16("Grü😀", ByteOrder::LittleEndian), kLittle);
  EXPECT_EQ(ToUtf16("Grü😀", ByteOrder::BigEndian), kBig);
}

TEST(ToUtf16, GivesBackEveryCharacter) {
  std::string all;
  for (char32_t code = 1; code <= 0x10FFFF; ++code) {
    if (code < 0xD800 || code > 0xDFFF) AppendUtf8(all, code);
  }
  for (const auto order : {ByteOrder::LittleEndian, ByteOrder::BigEndian}) {
    EXPECT_TRUE(DecodeText(ToUtf16(all, order)) == all);
  }
}

TEST(IsText, IsWhatHasNoNulOrAMark) {
  EXPECT_TRUE(IsText(""));
  EXPECT_TRUE(
      IsText("Gr\xFC\xDF"
             "e"));
  EXPECT_TRUE(IsText(kLittle));
  EXPECT_TRUE(IsText(kBig));
  EXPECT_TRUE(
      IsText(std::string_view("\xEF\xBB\xBF"
                              "a\0b",
                              6)));
  EXPECT_FALSE(IsText(std::string_view("PK\3\4\0\0", 6)));
  EXPECT_FALSE(IsText(kLittle.substr(2)));
  EXPECT_FALSE(IsText(std::string_view("\xFF\xFE\0\0a\0\0\0", 8)));  // UTF-32
}

TEST(EncodeText, WritesSingleBytesWhenEveryCharacterFits) {
  EXPECT_EQ(EncodeText("Grüße – 5 €"),
            "Gr\xFC\xDF"
            "e \x96 5 \x80");
  EXPECT_EQ(EncodeText("nur ASCII\r\n"), "nur ASCII\r\n");
}

TEST(EncodeText, WritesUtf8WhenACharacterDoesNotFit) {
  EXPECT_EQ(EncodeText("a♥"),
            "\xEF\xBB\xBF"
            "a♥");
  EXPECT_EQ(EncodeText("\xC2\x80"), "\xEF\xBB\xBF\xC2\x80");
}

// As single bytes this would be read back as "ä".
TEST(EncodeText, WritesUtf8WhenTheBytesCouldBeTakenForIt) {
  EXPECT_EQ(EncodeText("Ã¤"), "\xEF\xBB\xBFÃ¤");
}

TEST(EncodeText, GivesBackEveryCharacterOfTheBasicPlane) {
  for (unsigned code = 1; code <= 0xFFFF; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    std::string text;
    if (code >= 0x800) {
      text = {static_cast<char>(0xE0U | (code >> 12)), static_cast<char>(0x80U | ((code >> 6) & 0x3FU)),
              static_cast<char>(0x80U | (code & 0x3FU))};
    } else if (code >= 0x80) {
      text = {static_cast<char>(0xC0U | (code >> 6)), static_cast<char>(0x80U | (code & 0x3FU))};
    } else {
      text = {static_cast<char>(code)};
    }
    ASSERT_EQ(DecodeText(EncodeText(text)), text) << code;
  }
}

TEST(IsValidUtf8, RefusesOverlongFormsSurrogatesAndNumbersTooLarge) {
  EXPECT_FALSE(IsValidUtf8("\xC0\x80"));
  EXPECT_FALSE(IsValidUtf8("\xE0\x80\x80"));
  EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(IsValidUtf8("\xF5\x80\x80\x80"));
}

TEST(IsValidUtf8, RefusesATruncatedCharacter) {
  EXPECT_FALSE(IsValidUtf8("abc\xC3"));
  EXPECT_FALSE(IsValidUtf8("\xF0\x9F\x8E"));
}

TEST(IsValidUtf8, AcceptsTheBoundsOfEveryLength) {
  EXPECT_TRUE(IsValidUtf8("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
}

TEST(WithPlainLineEnds, TurnsEveryKindIntoLineFeeds) {
  EXPECT_EQ(WithPlainLineEnds("a\r\nb\rc\nd\r"), "a\nb\nc\nd\n");
}

TEST(FromCharacter, CountsCharactersNotBytes) {
  EXPECT_EQ(FromCharacter("äöü🎉x", 0), "äöü🎉x");
  EXPECT_EQ(FromCharacter("äöü🎉x", 2), "ü🎉x");
  EXPECT_EQ(FromCharacter("äöü🎉x", 4), "x");
  EXPECT_EQ(FromCharacter("äöü🎉x", 5), "");
  EXPECT_EQ(FromCharacter("äöü🎉x", 99), "");
}

TEST(CharacterCount, CountsACharacterBeyondTheBasicPlaneOnce) {
  EXPECT_EQ(CharacterCount("ä🎉b"), 3U);
}

}  // namespace
}  // namespace lorelin
