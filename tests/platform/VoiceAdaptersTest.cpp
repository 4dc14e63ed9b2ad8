#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "base/modFile.h"
#include "platform/linux/CurlResumingDownloader.h"
#include "platform/linux/EngineVoices.h"
#include "platform/linux/GlibChecksums.h"
#include "platform/linux/LibarchiveVoices.h"
#include "tests/support/FakePorts.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/RealEngine.h"
#include "tests/support/naturalVoices.h"

namespace lorelin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Kind = DownloadEnd::Kind;

const std::string kBytes = "0123456789abcdefghij";

class ResumingDownloads : public testing::Test {
 protected:
  ResumingDownloads() { setenv("no_proxy", "*", 1); }

  // What the server makes of the request that it got last.
  std::string Answer(const std::string& path) {
    const std::string request = server.LastRequest();
    const auto at = request.find("Range: bytes=");
    ranges.push_back(at == std::string::npos ? -1 : std::atol(request.c_str() + at + 13));
    const auto from = static_cast<std::size_t>(std::max(ranges.back(), 0L));
    if (path == "/fehlt") return HttpAnswer("404 Not Found", "gibt es nicht");
    if (path == "/still") return "";
    if (path == "/umweg") return HttpAnswer("302 Found", "", "Location: /datei\r\n");
    if (path == "/ohne" || ranges.back() < 0) return HttpAnswer("200 OK", kBytes);
    if (from >= kBytes.size())
      return HttpAnswer("416 Range Not Satisfiable", "", "Content-Range: bytes */20\r\n");
    const std::string answer = HttpAnswer("206 Partial Content", kBytes.substr(from),
                                          "Content-Range: bytes " + std::to_string(from) + "-19/20\r\n");
    return path == "/reisst" ? answer.substr(0, answer.size() - 3) : answer;
  }
  DownloadEnd Resume(
      const std::string& path, std::uintmax_t most = 20,
      const std::function<bool(std::uintmax_t)>& keepGoing = [](auto) { return true; }) {
    return downloader.Resume(server.Url(path), part, most, keepGoing);
  }

  TemporaryFolder folder;
  FakeLog log;
  CurlResumingDownloader downloader{log};
  std::vector<long> ranges;
  LoopbackServer server{[this](const std::string& path) { return Answer(path); }};
  const std::string part = folder.File("stimme.onnx.part");
};

TEST_F(ResumingDownloads, FetchTheWhole) {
  EXPECT_EQ(Resume("/datei").kind, Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
  EXPECT_THAT(ranges, ElementsAre(-1));
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(ResumingDownloads, GoOnBehindWhatIsThere) {
  WriteFile(part, kBytes.substr(0, 7));
  std::uintmax_t least = 100;
  EXPECT_EQ(Resume("/datei", 20,
                   [&](std::uintmax_t there) {
                     least = std::min(least, there);
                     return true;
                   })
                .kind,
            Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
  EXPECT_EQ(least, 7U);
  EXPECT_THAT(ranges, ElementsAre(7));
}

TEST_F(ResumingDownloads, GoOnThroughADiversion) {
  WriteFile(part, kBytes.substr(0, 7));
  EXPECT_EQ(Resume("/umweg").kind, Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
}

TEST_F(ResumingDownloads, KeepWhatArrivedBeforeTheConnectionBroke) {
  WriteFile(part, kBytes.substr(0, 7));
  EXPECT_EQ(Resume("/reisst").kind, Kind::Cut);
  EXPECT_EQ(ReadFile(part), kBytes.substr(0, 17));
  EXPECT_EQ(Resume("/datei").kind, Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
}

TEST_F(ResumingDownloads, BeginAnewWhereTheServerCannotGoOn) {
  WriteFile(part, "falsch");
  EXPECT_EQ(Resume("/ohne").kind, Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
}

TEST_F(ResumingDownloads, BeginAnewWhereTheFileIsShorterThanWhatIsThere) {
  WriteFile(part, std::string(20, 'x'));
  EXPECT_EQ(Resume("/datei").kind, Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
}

TEST_F(ResumingDownloads, KeepNothingOfAFileThatIsLargerThanAnnounced) {
  EXPECT_EQ(Resume("/datei", 10).kind, Kind::TooLarge);
  EXPECT_EQ(ReadFile(part), "");
}

TEST_F(ResumingDownloads, TellWhatTheServerDoesNotHave) {
  const DownloadEnd end = Resume("/fehlt");
  EXPECT_EQ(end.kind, Kind::Refused);
  EXPECT_THAT(end.detail, HasSubstr("404"));
  EXPECT_EQ(ReadFile(part), "");
  EXPECT_THAT(log.lines, testing::SizeIs(1));
}

TEST_F(ResumingDownloads, EndWhenTheyAreNotToGoOn) {
  int turns = 0;
  EXPECT_EQ(Resume("/still", 20, [&](auto) { return ++turns < 5; }).kind, Kind::Cancelled);
}

TEST_F(ResumingDownloads, TellAConnectionThatThereIsNot) {
  EXPECT_EQ(downloader.Resume("http://127.0.0.1:1/x", part, 20, [](auto) { return true; }).kind, Kind::Cut);
  EXPECT_EQ(downloader.Resume("file:///etc/passwd", part, 5000, [](auto) { return true; }).kind, Kind::Cut);
  EXPECT_EQ(ReadFile(part), "");
}

TEST_F(ResumingDownloads, LeaveAPartAloneThatSomebodyElseIsWriting) {
  WriteFile(part, "vorn");
  FILE* const other = std::fopen(part.c_str(), "a");
  ASSERT_EQ(flock(fileno(other), LOCK_EX), 0);
  EXPECT_EQ(Resume("/datei").kind, Kind::Busy);
  std::fclose(other);
  EXPECT_EQ(ReadFile(part), "vorn");
}

TEST_F(ResumingDownloads, TellAFileThatMayNotGrow) {
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit small = before;
  small.rlim_cur = 8;
  setrlimit(RLIMIT_FSIZE, &small);
  const DownloadEnd end = Resume("/datei");
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(end.kind, Kind::DiskFull);
  EXPECT_EQ(Resume("/datei").kind, Kind::Complete);
  EXPECT_EQ(ReadFile(part), kBytes);
}

TEST_F(ResumingDownloads, TellAFolderThatThereIsNot) {
  EXPECT_EQ(
      downloader.Resume(server.Url("/datei"), folder.File("fehlt/x.part"), 20, [](auto) { return true; })
          .kind,
      Kind::NotWritable);
}

TEST(GlibChecksum, IsThatOfTheFile) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a"), "abc");
  GlibChecksums checksums;
  const auto on = [] { return true; };
  EXPECT_EQ(checksums.OfFile(folder.File("a"), ChecksumKind::Md5, on), "900150983cd24fb0d6963f7d28e17f72");
  EXPECT_EQ(checksums.OfFile(folder.File("a"), ChecksumKind::Sha256, on),
            "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  WriteFile(folder.File("a"), "");
  EXPECT_EQ(checksums.OfFile(folder.File("a"), ChecksumKind::Md5, on), "d41d8cd98f00b204e9800998ecf8427e");
  EXPECT_EQ(checksums.OfFile(folder.File("fehlt"), ChecksumKind::Md5, on), std::nullopt);
  WriteFile(folder.File("a"), std::string(5'000'000, 'x'));
  EXPECT_EQ(checksums.OfFile(folder.File("a"), ChecksumKind::Md5, [] { return false; }), std::nullopt);
}

class Archives : public testing::Test {
 protected:
  struct Entry {
    std::string name;
    std::string bytes;
    mode_t type = AE_IFREG;
  };
  std::string Make(const std::string& name, const std::vector<Entry>& entries) {
    const std::string path = folder.File(name);
    archive* const made = archive_write_new();
    if (name.ends_with(".zip")) {
      archive_write_set_format_zip(made);
    } else {
      archive_write_set_format_pax_restricted(made);
      archive_write_add_filter_gzip(made);
    }
    archive_write_open_filename(made, path.c_str());
    for (const Entry& one : entries) {
      archive_entry* const entry = archive_entry_new();
      archive_entry_set_pathname(entry, one.name.c_str());
      archive_entry_set_filetype(entry, one.type);
      archive_entry_set_perm(entry, 0644);
      if (one.type == AE_IFLNK) archive_entry_set_symlink(entry, one.bytes.c_str());
      archive_entry_set_size(entry, one.type == AE_IFREG ? static_cast<la_int64_t>(one.bytes.size()) : 0);
      archive_write_header(made, entry);
      if (one.type == AE_IFREG) archive_write_data(made, one.bytes.data(), one.bytes.size());
      archive_entry_free(entry);
    }
    archive_write_free(made);
    return path;
  }

  TemporaryFolder folder;
  LibarchiveVoices archives;
};

TEST_F(Archives, NameTheirFilesAndGiveThem) {
  for (const char* const name : {"a.zip", "a.tar.gz"}) {
    const std::string path = Make(name, {{"x", "", AE_IFDIR},
                                         {"x/y.onnx", std::string(3'000'000, 'm')},
                                         {"x/y.onnx.json", "{}"},
                                         {"x/z.onnx", "/etc/passwd", AE_IFLNK}});
    EXPECT_THAT(archives.Names(path), ElementsAre("x/y.onnx", "x/y.onnx.json")) << name;
    const std::string target = folder.File("ziel");
    const auto on = [](auto) { return true; };
    EXPECT_EQ(archives.Extract(path, "x/y.onnx.json", target, 100, on), "");
    EXPECT_EQ(ReadFile(target), "{}");
    EXPECT_EQ(archives.Extract(path, "x/y.onnx", target, 3'000'000, on), "");
    EXPECT_EQ(ReadFile(target).size(), 3'000'000U);
    EXPECT_EQ(archives.Extract(path, "x/y.onnx", target, 2'999'999, on), "zu groß");
    EXPECT_EQ(archives.Extract(path, "x/y.onnx", target, 3'000'000, [](auto) { return false; }),
              "abgebrochen");
    EXPECT_NE(archives.Extract(path, "x/z.onnx", target, 100, on), "");
  }
}

TEST_F(Archives, AreNotWhatIsNone) {
  WriteFile(folder.File("a.zip"), "kein Archiv");
  EXPECT_THAT(archives.Names(folder.File("a.zip")), IsEmpty());
  EXPECT_THAT(archives.Names(folder.File("fehlt.zip")), IsEmpty());
  const std::string whole = ReadFile(Make("b.zip", {{"y.onnx", std::string(3'000'000, 'm')}}));
  WriteFile(folder.File("b.zip"), whole.substr(0, whole.size() / 2));
  EXPECT_NE(archives.Extract(folder.File("b.zip"), "y.onnx", folder.File("ziel"), 3'000'000,
                             [](auto) { return true; }),
            "");
}

// A user's data in which voices come and go.
class NewVoices : public testing::Test {
 protected:
  NewVoices() {
    std::filesystem::create_directories(folder.File("lorelin/voices"));
    if (!runtime.empty())
      std::filesystem::create_directory_symlink(runtime.parent_path(), folder.File("lorelin/runtime"));
  }
  void Install(const std::string& name) {
    for (const char* const ending : {".onnx", ".onnx.json"}) {
      std::filesystem::copy(engine::TestVoices() / (name + ending), folder.File("lorelin/voices"));
    }
  }

  const std::filesystem::path runtime = engine::InstalledRuntime();
  TemporaryFolder folder;
  engine::ChangedVariable home{"LORELIN_HOME", ""};
  engine::ChangedVariable data{"XDG_DATA_HOME", folder.Path()};
};

TEST_F(NewVoices, AreToldBesideTheirFiles) {
  Install("de_DE-probe-medium");
  const EngineVoices voices;
  EXPECT_EQ(voices.OwnFolder(), folder.File("lorelin/voices"));
  const auto installed = voices.Installed();
  ASSERT_THAT(installed, testing::SizeIs(1));
  EXPECT_EQ(installed[0].name, "de_DE-probe-medium");
  EXPECT_THAT(installed[0].offered, ElementsAre("Deutsch – probe (mittel)"));
  EXPECT_TRUE(installed[0].own);
  EXPECT_EQ(voices.Obstacle().empty(), !runtime.empty());
  EXPECT_NE(voices.Problem("{}"), "");
  EXPECT_EQ(voices.Problem(ReadFile(folder.File("lorelin/voices/de_DE-probe-medium.onnx.json"))), "");
}

TEST_F(NewVoices, AreFoundByAnInstanceThatLooksAnew) {
  SKIP_WITHOUT_RUNTIME();
  RealEngine real;
  const std::int32_t before = real.engine.VoiceCount();
  Install("de_DE-probe-medium");
  EXPECT_EQ(real.engine.VoiceCount(), before);
  real.engine.SetSpeed(400);
  real.engine.RenewVoices();
  EXPECT_EQ(real.engine.VoiceCount(), before + 1);
  EXPECT_EQ(real.engine.VoiceName(before + 1), "Deutsch – probe (mittel)");
  EXPECT_EQ(real.engine.Speed(), 400) << "properties stay";
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.SetCurrentVoice(before + 1);
  real.engine.Speak("Hallo.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.front().complete) << real.ends.front().reason;
}

TEST_F(NewVoices, AreLookedForWhenTheTextHasEnded) {
  SKIP_WITHOUT_RUNTIME();
  RealEngine real;
  const std::int32_t before = real.engine.VoiceCount();
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.SpeakBeginning("Der erste Satz. ");
  const int process = real.engine.ProcessId();
  Install("de_DE-probe-medium");
  real.engine.RenewVoices();
  EXPECT_EQ(real.engine.ProcessId(), process) << "what is spoken is not cut short";
  EXPECT_EQ(real.engine.VoiceCount(), before);
  real.engine.ContinueText("Der zweite.", true);
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.front().complete) << real.ends.front().reason;
  EXPECT_TRUE(real.WaitUntil([&] { return real.engine.VoiceCount() == before + 1; }));
}

TEST_F(NewVoices, MayBeLookedForAgainAndAgain) {
  RealEngine real;
  const std::int32_t before = real.engine.VoiceCount();
  for (int i = 0; i < 10; ++i) {
    real.engine.RenewVoices();
    EXPECT_EQ(real.engine.VoiceCount(), before);
  }
  EXPECT_THAT(real.notices, IsEmpty());
}

}  // namespace
}  // namespace lorelin
