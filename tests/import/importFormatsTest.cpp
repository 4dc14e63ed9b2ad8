#include "import/importFormats.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(ImportFormats, AreToldByTheEndingInEitherCase) {
  EXPECT_TRUE(IsImportable("/home/a/Buch.epub"));
  EXPECT_TRUE(IsImportable("C:\\Texte\\BRIEF.DOCX"));
  EXPECT_EQ(ImportFormatOf("a.htm")->kind, ImportKind::Html);
  EXPECT_EQ(ImportFormatOf("a.fb2.zip")->kind, ImportKind::FictionBook);
}

TEST(ImportFormats, AreNotThoseThatAreReadAsTextOrNotAtAll) {
  for (const char* path :
       {"", "epub", ".epub", "/home/.epub", "a.txt", "a.rtf", "a.zip", "a.epub/b", "a.exe"}) {
    EXPECT_FALSE(IsImportable(path)) << path;
  }
}

TEST(ImportFormats, HavePatternsForFileDialogs) {
  EXPECT_EQ(ImportPatterns(*ImportFormatOf("a.pdf")), "*.pdf");
  EXPECT_TRUE(AllImportPatterns().starts_with("*.epub;*.pdf;*.docx;"));
}

}  // namespace
}  // namespace lorelin
