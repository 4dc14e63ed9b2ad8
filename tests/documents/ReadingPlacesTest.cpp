#include "documents/ReadingPlaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/modFile.h"
#include "platform/common/AtomicFileWriter.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

class ReadingPlacesTest : public testing::Test {
 protected:
  // As another run of the program finds them.
  std::optional<std::size_t> FindLater(const std::string& path, std::string_view text) {
    places.FinishWriting();
    return ReadingPlaces(files, log, folder.Path()).Find(path, text);
  }
  std::string File() { return folder.File("reading-places"); }

  TemporaryFolder folder;
  AtomicFileWriter files;
  FakeLog log;
  ReadingPlaces places{files, log, folder.Path()};
};

TEST_F(ReadingPlacesTest, AreKeptForTheNextRun) {
  places.Keep("/a/brief.txt", "Lieber Leser", 7);
  EXPECT_EQ(places.Find("/a/brief.txt", "Lieber Leser"), 7U);
  EXPECT_EQ(FindLater("/a/brief.txt", "Lieber Leser"), 7U);
  EXPECT_EQ(FindLater("/b/anderes.txt", "Anderes"), std::nullopt);
}

TEST_F(ReadingPlacesTest, AreFoundWhenTheFileWasMovedOrChanged) {
  places.Keep("/a/brief.txt", "Lieber Leser", 7);
  EXPECT_EQ(FindLater("/b/umbenannt.txt", "Lieber Leser"), 7U);
  EXPECT_EQ(FindLater("/a/brief.txt", "Liebe Leserin"), 7U);
}

#ifndef _WIN32
TEST_F(ReadingPlacesTest, KnowAPathByEitherSeparator) {
  WriteFile(folder.File("brief.txt"), "x");
  std::string other = folder.File("brief.txt");
  std::replace(other.begin(), other.end(), '/', '\\');
  places.Keep(other, "Lieber Leser", 7);
  EXPECT_EQ(FindLater(folder.File("brief.txt"), "Anderes"), 7U);
}
#endif

TEST_F(ReadingPlacesTest, PreferTheContentToThePath) {
  places.Keep("/a/brief.txt", "Lieber Leser", 7);
  places.Keep("/b/brief.txt", "Etwas anderes", 3);
  EXPECT_EQ(FindLater("/b/brief.txt", "Lieber Leser"), 7U);
  EXPECT_EQ(FindLater("/b/brief.txt", "Etwas anderes"), 3U);
}

TEST_F(ReadingPlacesTest, AreForgotten) {
  places.Keep("/a/brief.txt", "Lieber Leser", 7);
  places.Forget("/a/brief.txt");
  EXPECT_EQ(FindLater("/a/brief.txt", "Lieber Leser"), std::nullopt);
}

TEST_F(ReadingPlacesTest, HoldNothingOfTheText) {
  places.Keep("/a/brief.txt", "Lieber Leser", 7);
  places.FinishWriting();
  const std::string bytes = ReadFileBytes(File());
  EXPECT_EQ(bytes.find("Lieber"), std::string::npos);
  EXPECT_NE(bytes.find(" 7 /a/brief.txt\n"), std::string::npos);
}

TEST_F(ReadingPlacesTest, AreNobodyElsesBusiness) {
  places.Keep("/a/brief.txt", "Lieber Leser", 7);
  places.FinishWriting();
  places.Keep("/a/brief.txt", "Lieber Leser", 8);
  places.FinishWriting();
  using std::filesystem::perms;
  const perms rights = std::filesystem::status(File()).permissions();
#ifndef _WIN32
  EXPECT_EQ(rights, perms::owner_read | perms::owner_write);
#else
  EXPECT_NE(rights & perms::owner_write, perms::none);
#endif
}

TEST_F(ReadingPlacesTest, ForgetTheOldestOfVeryMany) {
  WriteFile(File(), "");
  std::string lines;
  for (int i = 0; i < 1000; ++i) lines += "ab" + std::to_string(i) + " 5 /alt/" + std::to_string(i) + "\n";
  WriteFile(File(), lines);
  places.Keep("/neu", "Neu", 9);
  EXPECT_EQ(FindLater("/neu", "Neu"), 9U);
  EXPECT_EQ(FindLater("/alt/0", "x"), std::nullopt);
  EXPECT_EQ(FindLater("/alt/1", "x"), 5U);
}

TEST_F(ReadingPlacesTest, TakeWhatCanBeReadOfADamagedFile) {
  WriteFile(
      File(),
      std::string("\0\xFF\xFE unsinn\n12\nzz 1 /x\n1f 99999999999999999999999 /y\n1f 4 /gut\n1f 5", 66));
  EXPECT_EQ(places.Find("/gut", "x"), 4U);
  EXPECT_EQ(places.Find("/y", "x"), std::nullopt);
}

TEST_F(ReadingPlacesTest, DoNotTroubleAnybodyWhenTheyCannotBeWritten) {
  WriteFile(folder.File("datei"), "x");
  ReadingPlaces hopeless(files, log, folder.File("datei"));
  hopeless.Keep("/a", "Text", 3);
  hopeless.FinishWriting();
  EXPECT_EQ(log.lines.size(), 1U);
  EXPECT_EQ(hopeless.Find("/a", "Text"), 3U);
}

}  // namespace
}  // namespace lorelin
