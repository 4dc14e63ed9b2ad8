#include "import/pdf.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "import/textRecognition.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// A page with what `content` draws; /I is a picture.
std::string PageWith(const std::string& content) {
  return "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Kids[3 0 R]/Count "
         "1>>endobj\n"
         "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/Resources<</XObject<</I 5 0 R>>/Font<</F 6 "
         "0 R>>>>"
         "/Contents 4 0 R>>endobj\n4 0 obj<</Length " +
         std::to_string(content.size()) + ">>stream\n" + content +
         "\nendstream endobj\n5 0 obj<</Type/XObject/Subtype/Image/Width 1/Height 1/ColorSpace/DeviceGray"
         "/BitsPerComponent 8/Length 1>>stream\nA\nendstream endobj\n6 0 "
         "obj<</Type/Font/Subtype/Type1/BaseFont"
         "/Helvetica>>endobj\ntrailer<</Root 1 0 R>>\n";
}

ImportedDocument Read(const TemporaryFolder& folder, const std::string& bytes) {
  WriteFile(folder.File("a.pdf"), bytes);
  return ReadPdf({folder.File("a.pdf"), false, false, {}}, [](int) {});
}

TEST(Pdf, SaysThatItHoldsPicturesOfPages) {
  TemporaryFolder folder;
  const auto document = Read(folder, PageWith("q 100 0 0 100 0 0 cm /I Do Q"));
  EXPECT_TRUE(document.hasPages);
  EXPECT_EQ(document.notice, "Das PDF-Dokument enthält nur Bilder von Seiten, keinen Text.");
  EXPECT_EQ(document.text.text, "");
}

TEST(Pdf, WithTextBesideAPictureIsRead) {
  TemporaryFolder folder;
  const auto document =
      Read(folder, PageWith("q 100 0 0 100 0 0 cm /I Do Q BT /F 12 Tf 20 150 Td (Guten Tag) Tj ET"));
  EXPECT_FALSE(document.hasPages);
  EXPECT_EQ(document.notice, "");
  EXPECT_EQ(document.text.text, "Guten Tag");
}

TEST(Pdf, WithNeitherIsRefused) {
  TemporaryFolder folder;
  EXPECT_THROW((void)Read(folder, PageWith(" ")), RuntimeError);
}

TEST(TextRecognition, GivesWordsWithTheirPlacesInPoints) {
  const auto words = ReadRecognised(
      "level\tpage_num\tblock_num\tpar_num\tline_num\tword_num\tleft\ttop\twidth\theight\tconf\ttext\n"
      "1\t1\t0\t0\t0\t0\t0\t0\t1700\t2200\t-1\t\n"
      "4\t1\t1\t1\t1\t0\t200\t100\t400\t20\t-1\t\n"
      "5\t1\t1\t1\t1\t1\t200\t100\t100\t20\t96.5\tGuten\n"
      "5\t1\t1\t1\t1\t2\t320\t104\t80\t16\t96.5\tTag\n"
      "5\t1\t1\t1\t1\t3\t420\t104\t80\t16\t96.5\t \n"
      "broken\tline\n",
      144);
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[0].text, "Guten");
  EXPECT_EQ(words[0].left, 100);
  EXPECT_EQ(words[0].right, 150);
  EXPECT_EQ(words[1].top, 50);
  EXPECT_EQ(words[1].bottom, 60);
}

}  // namespace
}  // namespace lorelin
