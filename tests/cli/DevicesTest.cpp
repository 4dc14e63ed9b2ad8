#include <sys/stat.h>

#include <thread>

#include "tests/cli/CliFilesFixture.h"

namespace lorelin::cli {
namespace {

// Pipes, devices and links, as Linux has them.
class CliDevices : public CliFiles {};

TEST_F(CliDevices, ReadAPipeThatHasAName) {
  const std::string pipe = Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] { WriteFile(pipe, "Gr\374\337e\r\nEnde"); });
  EXPECT_EQ(LoadSpeakable(pipe, importer_).text, "Grüße\nEnde");
  writer.join();
}

TEST_F(CliDevices, GiveUpADeviceWithoutEndAndAFileAsLong) {
  EXPECT_EQ(Reading("/dev/zero"), "3: „/dev/zero“ kann nicht gelesen werden: Der Text ist zu lang.");
  WriteFile(Path("lang.txt"), "");
  std::filesystem::resize_file(Path("lang.txt"), std::uintmax_t{1} << 40);
  EXPECT_EQ(Reading(Path("lang.txt")),
            "3: „" + Path("lang.txt") + "“ kann nicht gelesen werden: Der Text ist zu lang.");
}

TEST_F(CliDevices, RefuseAPipeAsTarget) {
  ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(Writing(Path("pipe")),
            "4: „" + Path("pipe") + "“ kann nicht geschrieben werden: Das ist keine gewöhnliche Datei.");
}

TEST_F(CliDevices, RefuseADeviceAsTarget) {
  EXPECT_EQ(Writing("/dev/full"),
            "4: „/dev/full“ kann nicht geschrieben werden: Das ist keine gewöhnliche Datei.");
}

TEST_F(CliDevices, LeaveALinkToAFileThatIsNotThere) {
  std::filesystem::create_symlink("neu.wav", Path("link.wav"));
  EXPECT_EQ(Writing(Path("link.wav")), "(gelungen)");
  EXPECT_TRUE(std::filesystem::is_symlink(Path("link.wav")));
  EXPECT_FALSE(Exists(Path("neu.wav")));
}

TEST_F(CliDevices, RefuseToReplaceTheTextUnderWhateverName) {
  WriteFile(Path("a.txt"), "Text");
  std::filesystem::create_symlink("a.txt", Path("b.wav"));
  EXPECT_EQ(Writing(Path("b.wav"), Path("a.txt")),
            "2: Die Tondatei würde den Text „" + Path("a.txt") + "“ ersetzen.");
  EXPECT_EQ(ReadFile(Path("a.txt")), "Text");
}

}  // namespace
}  // namespace lorelin::cli
