#include "platform/windows/UrlmonDownloader.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/FakePorts.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

class DownloaderTest : public testing::Test {
 protected:
  std::string Answer(const std::string& path) {
    if (path == "/gross") return HttpAnswer("200 OK", std::string(5 << 20, 'x'));
    if (path == "/umweg") return HttpAnswer("302 Found", "", "Location: /text\r\n");
    if (path == "/fehlt") return HttpAnswer("404 Not Found", "gibt es nicht");
    if (path == "/still") return "";
    return HttpAnswer("200 OK", "Guten Tag " + std::to_string(++answers));
  }
  void Download(const std::string& url) {
    failure = downloader.Download(url, target, [this] { return ++turns != endAt; });
  }
  bool NothingIsLeft() { return fs::is_empty(folder.Path()); }

  TemporaryFolder folder;
  FakeLog log;
  UrlmonDownloader downloader{log};
  LoopbackServer server{[this](const std::string& path) { return Answer(path); }};
  std::string target = folder.File("ziel.txt");
  int answers = 0;
  std::string failure;
  int turns = 0;
  int endAt = -1;
};

TEST_F(DownloaderTest, PutsTheAnswerIntoTheFileAndAsksTheServerEveryTime) {
  Download(server.Url("/text"));
  EXPECT_EQ(ReadFile(target), "Guten Tag 1");
  Download(server.Url("/text"));
  EXPECT_EQ(ReadFile(target), "Guten Tag 2");
  EXPECT_EQ(log.lines, std::vector<std::string>{});
  EXPECT_GT(turns, 0);
}

TEST_F(DownloaderTest, FollowsADiversion) {
  Download(server.Url("/umweg"));
  EXPECT_EQ(ReadFile(target), "Guten Tag 1");
}

TEST_F(DownloaderTest, KeepsEveryByteOfALongAnswer) {
  Download(server.Url("/gross"));
  EXPECT_EQ(fs::file_size(target), std::uintmax_t{5} << 20);
}

TEST_F(DownloaderTest, KeepsTheOldFileWhenItFails) {
  WriteFile(target, "alt");
  Download(server.Url("/fehlt"));
  EXPECT_EQ(ReadFile(target), "alt");
  EXPECT_NE(failure, "");
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(DownloaderTest, TakesNoOtherProtocols) {
  for (const auto* const url : {"file:///C:/windows/win.ini", "ftp://127.0.0.1/a", "unsinn", ""}) {
    Download(url);
    EXPECT_TRUE(NothingIsLeft()) << url;
  }
  EXPECT_EQ(log.lines.size(), 4U);
}

TEST_F(DownloaderTest, EndsOnDemandWhileTheServerIsSilent) {
  endAt = 5;
  Download(server.Url("/still"));
  EXPECT_EQ(turns, 5);
  EXPECT_TRUE(NothingIsLeft());
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_NE(log.lines[0].find("abgebrochen"), std::string::npos);
}

TEST_F(DownloaderTest, KeepsPasswordsOutOfTheLog) {
  std::string url = server.Url("/fehlt");
  url.insert(7, "anna:geheim@");
  Download(url);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_EQ(log.lines[0].find("geheim"), std::string::npos);
}

}  // namespace
}  // namespace lorelin
