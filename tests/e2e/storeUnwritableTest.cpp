#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>

#include "tests/e2e/storeProcesses.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// Gives up the superuser's rights, before which everything can be written.
bool BecomeNobody() {
  constexpr uid_t kNobody = 65534;
  if (geteuid() != 0) return true;
  return setresgid(kNobody, kNobody, kNobody) == 0 && setresuid(kNobody, kNobody, kNobody) == 0;
}

class UnwritableHome : public testing::Test {
 protected:
  ~UnwritableHome() override { Protect(fs::perms::owner_all); }

  void Protect(fs::perms permissions) {
    std::error_code error;
    fs::permissions(folder.Path(), permissions, error);
    fs::permissions(fs::path(file).parent_path(), permissions, error);
  }
  static constexpr auto kReadOnly =
      fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;

  TemporaryFolder folder;
  std::string file = folder.File("lorelin/registry.sqlite");
  FakeLog log;
};

TEST_F(UnwritableHome, StillGivesTheStoredSettingsAndKeepsNewOnesForTheRun) {
  {
    const auto opened = SqliteRegistry::Open(file, log);
    WriteText(*opened.registry, "Stimme", "3");
  }
  const std::string before = ReadFile(file);
  Protect(kReadOnly);
  const int result = ResultOf(Start([&] {
    if (!BecomeNobody()) return 1;
    const auto opened = SqliteRegistry::Open(file, log);
    if (opened.notice.empty() || opened.lost) return 2;
    if (ReadText(*opened.registry, "Stimme") != "3") return 3;
    if (!WriteText(*opened.registry, "Stimme", "5")) return 4;
    return ReadText(*opened.registry, "Stimme") == "5" ? 0 : 5;
  }));
  EXPECT_EQ(result, 0);
  EXPECT_EQ(ReadFile(file), before);
}

TEST_F(UnwritableHome, StillGivesWhatAKilledProgramLeftInTheLog) {
  ResultOf(Start([&] {
    const auto opened = SqliteRegistry::Open(file, log);
    WriteText(*opened.registry, "Stimme", "3");
    return kill(getpid(), SIGKILL);
  }));
  ASSERT_TRUE(fs::exists(file + "-wal"));
  Protect(kReadOnly);
  EXPECT_EQ(ResultOf(Start([&] {
              if (!BecomeNobody()) return 1;
              const auto opened = SqliteRegistry::Open(file, log);
              return ReadText(*opened.registry, "Stimme") == "3" ? 0 : 2;
            })),
            0);
}

TEST_F(UnwritableHome, WithoutAStoreBeginsWithTheDefaults) {
  Protect(kReadOnly);
  EXPECT_EQ(ResultOf(Start([&] {
              if (!BecomeNobody()) return 1;
              const auto opened = SqliteRegistry::Open(file, log);
              if (opened.notice.empty() || opened.lost) return 2;
              if (ReadText(*opened.registry, "Stimme") != "(fehlt)") return 3;
              return WriteText(*opened.registry, "Stimme", "5") ? 0 : 4;
            })),
            0);
}

// The whole program: the text is still read into the file that the user may write.
TEST_F(UnwritableHome, DoesNotKeepAnybodyFromReadingATextAloud) {
  fs::create_directories(folder.File("ziel"));
  fs::permissions(folder.File("ziel"), fs::perms::all);
  const std::string wave = folder.File("ziel/a.wav");
  Protect(kReadOnly);
  const pid_t child = Start([&] {
    if (!BecomeNobody()) return 1;
    for (const char* name : {"LORELIN_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                             "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
      unsetenv(name);
    }
    setenv("HOME", folder.Path().c_str(), 1);
    setenv("TMPDIR", folder.File("ziel").c_str(), 1);
    const std::string errors = folder.File("ziel/meldungen");
    dup2(open(errors.c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
    const std::string text = std::string(LORELIN_BIN_DIR) + "/hypertext/willkommen.txt";
    execl(LORELIN_BIN_DIR "/lorelin-cli", "lorelin-cli", "say", "--wav", wave.c_str(), text.c_str(),
          static_cast<char*>(nullptr));
    return 127;
  });
  EXPECT_EQ(ResultOf(child), 0) << ReadFile(folder.File("ziel/meldungen"));
  EXPECT_NE(ReadFile(folder.File("ziel/meldungen")).find("können nicht gespeichert werden"),
            std::string::npos);
  EXPECT_TRUE(ReadFile(wave).starts_with("RIFF"));
  EXPECT_GT(ReadFile(wave).size(), 44000U);
}

}  // namespace
}  // namespace lorelin
