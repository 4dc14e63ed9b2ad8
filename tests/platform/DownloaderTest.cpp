#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "platform/linux/CurlDownloader.h"
#include "tests/support/FakePorts.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// 20000 letters, as gzip packs them.
const std::string kPacked(
    "\x1F\x8B\x08\x00\x00\x00\x00\x00\x02\x03\xED\xC1\x31\x01\x00\x00\x00\xC2\xA0\xDA\x8B\x6F\x0D"
    "\x0F\xA0\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x78\x30"
    "\x03\x47\x65\x41\x20\x4E\x00\x00",
    54);

class DownloaderTest : public testing::Test {
 protected:
  // A proxy of the environment would stand between the test and its server.
  DownloaderTest() { setenv("no_proxy", "*", 1); }

  std::string Answer(const std::string& path) {
    if (path == "/gross") return HttpAnswer("200 OK", std::string(5 << 20, 'x'));
    if (path == "/umweg") return HttpAnswer("302 Found", "", "Location: /text\r\n");
    if (path == "/kreis") return HttpAnswer("302 Found", "", "Location: /kreis\r\n");
    if (path == "/datei") return HttpAnswer("302 Found", "", "Location: file:///etc/passwd\r\n");
    if (path == "/fehlt") return HttpAnswer("404 Not Found", "gibt es nicht");
    if (path == "/kurz") return "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nabgerissen";
    if (path == "/still") return "";
    if (path == "/seite") return HttpAnswer("200 OK", "\xC1", "Content-Type: text/html; charset=KOI8-R\r\n");
    if (path == "/gepackt") return HttpAnswer("200 OK", kPacked, "Content-Encoding: gzip\r\n");
    return HttpAnswer("200 OK", "Guten Tag");
  }
  void Download(const std::string& url) {
    failure = downloader.Download(url, target, [this] { return ++turns != endAt; });
  }
  bool NothingIsLeft() { return fs::is_empty(folder.Path()); }

  TemporaryFolder folder;
  FakeLog log;
  CurlDownloader downloader{log};
  LoopbackServer server{[this](const std::string& path) { return Answer(path); }};
  std::string target = folder.File("ziel.txt");
  std::string failure;
  int turns = 0;
  int endAt = -1;
};

TEST_F(DownloaderTest, PutsTheAnswerIntoTheFile) {
  Download(server.Url("/text"));
  EXPECT_EQ(ReadFile(target), "Guten Tag");
  EXPECT_EQ(failure, "");
  EXPECT_EQ(log.lines, std::vector<std::string>{});
  EXPECT_NE(server.LastRequest().find("Cache-Control: no-cache"), std::string::npos);
  EXPECT_GT(turns, 0);
}

TEST_F(DownloaderTest, FollowsADiversion) {
  Download(server.Url("/umweg"));
  EXPECT_EQ(ReadFile(target), "Guten Tag");
}

TEST_F(DownloaderTest, KeepsEveryByteOfALongAnswer) {
  Download(server.Url("/gross"));
  EXPECT_EQ(fs::file_size(target), std::uintmax_t{5} << 20);
}

TEST_F(DownloaderTest, LeavesNothingWhenItFails) {
  for (const auto* const path : {"/fehlt", "/kurz", "/kreis", "/datei"}) {
    log.lines.clear();
    Download(server.Url(path));
    EXPECT_TRUE(NothingIsLeft()) << path;
    EXPECT_EQ(log.lines.size(), 1U) << path;
    EXPECT_NE(failure, "") << path;
  }
}

TEST_F(DownloaderTest, TakesNoOtherProtocols) {
  for (const auto* const url : {"file:///etc/passwd", "ftp://127.0.0.1/a", "unsinn", ""}) {
    Download(url);
    EXPECT_TRUE(NothingIsLeft()) << url;
  }
  EXPECT_EQ(log.lines.size(), 4U);
}

TEST_F(DownloaderTest, KeepsTheOldFileUntilTheNewOneIsThere) {
  WriteFile(target, "alt");
  Download(server.Url("/fehlt"));
  EXPECT_EQ(ReadFile(target), "alt");
  Download(server.Url("/text"));
  EXPECT_EQ(ReadFile(target), "Guten Tag");
}

TEST_F(DownloaderTest, AsksAgainAndAgainWhileTheServerIsSilentAndEndsOnDemand) {
  endAt = 20;
  Download(server.Url("/still"));
  EXPECT_EQ(turns, 20);
  EXPECT_TRUE(NothingIsLeft());
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_NE(log.lines[0].find("abgebrochen"), std::string::npos);
}

TEST_F(DownloaderTest, LetsThroughWhatTheQuestionThrows) {
  struct Interruption {};
  EXPECT_THROW(downloader.Download(server.Url("/still"), target, []() -> bool { throw Interruption(); }),
               Interruption);
  EXPECT_TRUE(NothingIsLeft());
}

TEST_F(DownloaderTest, RefusesATargetThatIsNoFile) {
  target = folder.Path();
  Download(server.Url("/text"));
  target = folder.File("fehlt/ziel.txt");
  Download(server.Url("/text"));
  EXPECT_TRUE(NothingIsLeft());
  EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(DownloaderTest, KeepsPasswordsOutOfTheLog) {
  std::string url = server.Url("/fehlt");
  url.insert(7, "anna:geheim@");
  Download(url);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_EQ(log.lines[0].find("geheim"), std::string::npos);
  EXPECT_NE(log.lines[0].find("/fehlt"), std::string::npos);
}

TEST_F(DownloaderTest, TellsTheEncodingOfAPage) {
  const auto page = downloader.FetchPage(server.Url("/seite"), target, 1000, [] { return true; });
  EXPECT_EQ(page.problem, "");
  EXPECT_EQ(page.charset, "koi8-r");
  EXPECT_EQ(ReadFile(target), "\xC1");
}

TEST_F(DownloaderTest, FetchesNoMoreOfAPageThanIsWanted) {
  WriteFile(target, "alt");
  const auto page = downloader.FetchPage(server.Url("/gross"), target, (5U << 20U) - 1, [] { return true; });
  EXPECT_TRUE(page.tooLarge);
  EXPECT_NE(page.problem, "");
  EXPECT_EQ(ReadFile(target), "alt");
  EXPECT_FALSE(downloader.FetchPage(server.Url("/gross"), target, 5U << 20U, [] { return true; }).tooLarge);
  EXPECT_EQ(fs::file_size(target), std::uintmax_t{5} << 20);
}

TEST_F(DownloaderTest, CountsWhatAPackedPageBecomes) {
  const auto page = downloader.FetchPage(server.Url("/gepackt"), target, 10000, [] { return true; });
  EXPECT_TRUE(page.tooLarge);
  EXPECT_TRUE(NothingIsLeft());
}

TEST_F(DownloaderTest, NotesTheAddressAtTheFile) {
  Download(server.Url("/text"));
  std::array<char, 200> value{};
  const ssize_t size = getxattr(target.c_str(), "user.xdg.origin.url", value.data(), value.size());
  if (size < 0) GTEST_SKIP() << "this file system has no attributes";
  EXPECT_EQ(std::string(value.data(), static_cast<std::size_t>(size)), server.Url("/text"));
}

}  // namespace
}  // namespace lorelin
