#include "export/fileNames.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

TEST(SafeFileName, KeepsAnOrdinaryTitle) {
  EXPECT_EQ(SafeFileName("1. Kapitel – Über Grüße"), "1. Kapitel – Über Grüße");
}

TEST(SafeFileName, LeavesOutWhatAFileSystemForbids) {
  EXPECT_EQ(SafeFileName("Was? <Ja> \"so\": a/b\\c|*"), "Was Ja so a b c");
  EXPECT_EQ(SafeFileName("Zwei\nZeilen\t und \x01\x7F mehr"), "Zwei Zeilen und mehr");
  EXPECT_EQ(SafeFileName("ka\xFFputt"), "ka putt");
}

TEST(SafeFileName, NeitherBeginsNorEndsWithADotOrABlank) {
  EXPECT_EQ(SafeFileName(" ...ende. . "), "ende");
  EXPECT_EQ(SafeFileName("../../etc/passwd"), "etc passwd");
}

TEST(SafeFileName, IsNeverEmpty) {
  EXPECT_EQ(SafeFileName(""), "Ohne Titel");
  EXPECT_EQ(SafeFileName("..."), "Ohne Titel");
  EXPECT_EQ(SafeFileName("/"), "Ohne Titel");
}

TEST(SafeFileName, IsNoDevice) {
  EXPECT_EQ(SafeFileName("con"), "_con");
  EXPECT_EQ(SafeFileName("Lpt1.txt"), "_Lpt1.txt");
  EXPECT_EQ(SafeFileName("Contra"), "Contra");
}

TEST(SafeFileName, IsCutBetweenCharacters) {
  std::string title;
  for (int i = 0; i < 200; ++i) title += "ü";
  const std::string name = SafeFileName(title);
  EXPECT_EQ(name.size(), 100U);
  EXPECT_TRUE(IsValidUtf8(name));
}

TEST(NumberedName, HasAsManyDigitsAsTheLastOne) {
  EXPECT_EQ(NumberedName(3, 12, "Drei"), "03 Drei");
  EXPECT_EQ(NumberedName(3, 5, "Drei"), "03 Drei");
  EXPECT_EQ(NumberedName(30, 120, "Dreißig"), "030 Dreißig");
  EXPECT_EQ(NumberedName(1000, 1000, "Tausend"), "1000 Tausend");
}

}  // namespace
}  // namespace lorelin
