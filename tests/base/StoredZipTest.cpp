#include "base/StoredZip.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

TEST(Checksums, OfZipFilesAreThoseOfTheStandard) {
  EXPECT_EQ(Crc32(0, "123456789"), 0xCBF43926U);
  EXPECT_EQ(Crc32(Crc32(0, "1234"), "56789"), 0xCBF43926U);
  EXPECT_EQ(Crc32(0, ""), 0U);
}

TEST(StoredZips, BeginWithTheFirstFileAsItIs) {
  StoredZip zip;
  zip.Add("mimetype", "application/epub+zip");
  const std::vector<FilePiece> pieces = zip.Finish();
  std::string whole;
  for (const FilePiece& piece : pieces) whole += piece.bytes;
  EXPECT_EQ(whole.substr(0, 4), "PK\x03\x04");
  // The places that a program without a reader of archives looks at.
  EXPECT_EQ(whole.substr(30, 28), "mimetypeapplication/epub+zip");
  EXPECT_EQ(whole.substr(58, 4), "PK\x01\x02");
}

TEST(StoredZips, LeaveFilesWhereTheyAre) {
  const TemporaryFolder folder;
  WriteFile(folder.File("ton"), "la la");
  StoredZip zip;
  zip.AddFile("ton.mp3", folder.File("ton"));
  EXPECT_THROW(zip.AddFile("x", folder.File("fehlt")), RuntimeError);
  const std::vector<FilePiece> pieces = zip.Finish();
  ASSERT_EQ(pieces.size(), 3U);
  EXPECT_EQ(pieces[1].file, folder.File("ton"));
  EXPECT_EQ(pieces[1].bytes, "");
}

TEST(StoredZips, SayWhenTheyHoldTooMuch) {
  StoredZip zip;
  for (int i = 0; i < 70000; ++i) zip.Add("a", "");
  EXPECT_THROW((void)zip.Finish(), RuntimeError);
}

}  // namespace
}  // namespace lorelin
