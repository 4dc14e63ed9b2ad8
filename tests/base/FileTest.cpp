#include "base/modFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/RuntimeError.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

std::int32_t ErrorOfReading(const std::string& path) {
  try {
    (void)ReadTextFile(path);
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

TEST(FileExists, IsTrueForAReadableFileOnly) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a.txt"), "");
  EXPECT_TRUE(FileExists(folder.File("a.txt")));
  EXPECT_FALSE(FileExists(folder.File("b.txt")));
  EXPECT_FALSE(FileExists(folder.Path()));
  EXPECT_FALSE(FileExists(""));
}

TEST(FileExists, AcceptsEitherSeparator) {
  const TemporaryFolder folder;
  WriteFile(folder.File("unter/a.txt"), "");
  std::string path = folder.File("unter/a.txt");
  std::replace(path.begin(), path.end(), '/', '\\');
  EXPECT_TRUE(FileExists(path));
}

TEST(FileExists, FindsANameThatHoldsABackslash) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a\\b.txt"), "");
  EXPECT_TRUE(FileExists(folder.File("a\\b.txt")));
}

TEST(ReadTextFile, DecodesAndUnifiesLineEnds) {
  const TemporaryFolder folder;
  WriteFile(folder.File("alt.txt"),
            "Gr\xFC\xDF"
            "e\r\nzweite");
  EXPECT_EQ(ReadTextFile(folder.File("alt.txt")), "Grüße\nzweite");
}

TEST(ReadTextFile, ReadsPastTheFirstBlock) {
  const TemporaryFolder folder;
  const std::string text(200000, 'x');
  WriteFile(folder.File("lang.txt"), text);
  EXPECT_EQ(ReadTextFile(folder.File("lang.txt")), text);
}

TEST(ReadTextFile, TellsWhyItCannot) {
  const TemporaryFolder folder;
  EXPECT_EQ(ErrorOfReading(folder.File("fehlt.txt")), 53);
  EXPECT_EQ(ErrorOfReading(folder.Path()), 75);
}

// A sparse file of this length has no bytes on the disk; nobody can read it all.
TEST(File, RefusesAFileThatIsTooLargeBeforeItReadsIt) {
  const TemporaryFolder folder;
  WriteFile(folder.File("riesig.txt"), "");
  std::filesystem::resize_file(folder.File("riesig.txt"), 20'000'000'000);
  try {
    (void)ReadFileBytes(folder.File("riesig.txt"));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 7);
    EXPECT_STREQ(error.what(), "Die Datei ist mit 20,0 GB zu groß. Lorelin liest Dateien bis 256 MB.");
  }
}

}  // namespace
}  // namespace lorelin
