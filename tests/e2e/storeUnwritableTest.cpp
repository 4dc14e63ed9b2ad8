#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "settings/modSettings.h"
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
    // Nobody stands for the owner, who can read these.
    for (const auto* const suffix : {"", "-wal", "-shm"}) {
      fs::permissions(file + suffix, fs::perms::others_read, fs::perm_options::add, error);
    }
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

// What a store says that is there but cannot be seen: 0 when all is as it has to be.
int JudgeUnreadable(const std::string& file) {
  if (!BecomeNobody()) return 1;
  FakeLog log;
  const auto opened = SqliteRegistry::Open(file, log);
  if (!opened.lost || opened.notice.find("nicht gelesen") == std::string::npos) return 2;
  if (opened.registry->State() != RegistryState::Unreadable || opened.registry->IsLasting()) return 3;
  SettingsStore settings(*opened.registry);
  settings.Save(setting::VTSAllow, "1");
  return settings.Get(setting::VTSAllow) == "0" && settings.Get(setting::VTSAllowRead) == "0" ? 0 : 4;
}

TEST_F(UnwritableHome, ForbidsScriptsWhileTheStoreCannotBeRead) {
  {
    const auto opened = SqliteRegistry::Open(file, log);
    SettingsStore(*opened.registry).Save(setting::VTSAllow, "0");
  }
  fs::permissions(folder.Path(), fs::perms::all);
  fs::permissions(fs::path(file).parent_path(), fs::perms::all);
  fs::permissions(file, fs::perms::none);
  EXPECT_EQ(ResultOf(Start([&] { return JudgeUnreadable(file); })), 0);
  fs::permissions(file, fs::perms::all);
  fs::permissions(fs::path(file).parent_path(), fs::perms::none);
  EXPECT_EQ(ResultOf(Start([&] { return JudgeUnreadable(file); })), 0);
  fs::permissions(fs::path(file).parent_path(), fs::perms::owner_all);
  const auto opened = SqliteRegistry::Open(file, log);
  EXPECT_EQ(opened.registry->State(), RegistryState::Whole);
  EXPECT_EQ(SettingsStore(*opened.registry).Get(setting::VTSAllow), "0");
}

TEST_F(UnwritableHome, ForbidsScriptsWhenTheStoreWasEmptied) {
  { const auto opened = SqliteRegistry::Open(file, log); }
  WriteFile(file, "");
  fs::permissions(file, fs::perms::all);
  fs::permissions(file + ".lock", fs::perms::all);
  Protect(kReadOnly);
  EXPECT_EQ(ResultOf(Start([&] { return JudgeUnreadable(file); })), 0);
}

// No byte can be written any more, to whatever file.
void FillDisk() {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit nothing{0, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &nothing);
}

TEST_F(UnwritableHome, StillGivesTheStoredSettingsOnAFullDisk) {
  {
    const auto opened = SqliteRegistry::Open(file, log);
    SettingsStore(*opened.registry).Save(setting::VTSAllow, "0");
  }
  EXPECT_EQ(ResultOf(Start([&] {
              FillDisk();
              const auto opened = SqliteRegistry::Open(file, log);
              if (opened.registry->IsLasting() || opened.notice.empty()) return 1;
              return SettingsStore(*opened.registry).Get(setting::VTSAllow) == "0" ? 0 : 2;
            })),
            0);
}

TEST_F(UnwritableHome, StoresAllSettingsOrNoneWhenTheDiskGetsFull) {
  const auto opened = SqliteRegistry::Open(file, log);
  SettingsStore store(*opened.registry);
  ModSettings settings(store);
  ASSERT_TRUE(settings.ApplySettings({}));
  ASSERT_TRUE(store.SaveSetting("settings", "viel", std::string(100000, 'x')));
  EXPECT_EQ(ResultOf(Start([&] {
              FillDisk();
              SettingsValues values;
              values.prefix = "vor";
              values.allowVTS = false;
              if (settings.ApplySettings(values)) return 1;
              return store.Get(setting::Prefix).empty() && store.Get(setting::VTSAllow) == "1" ? 0 : 2;
            })),
            0);
}

TEST_F(UnwritableHome, MakesTheRegistryCommandRefuseChangesOnAFullDisk) {
  const std::string key = "HKCU\\Software\\Test";
  const auto command = [&](const std::string& verb, bool full) {
    return ResultOf(Start([&] {
      setenv("LORELIN_HOME", folder.Path().c_str(), 1);
      if (full) FillDisk();
      dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
      execl(LORELIN_BIN_DIR "/lorelin-cli", "lorelin-cli", "reg", verb.c_str(), key.c_str(), "n",
            verb == "add" ? "x" : nullptr, nullptr);
      return 127;
    }));
  };
  EXPECT_EQ(command("add", true), 8);
  EXPECT_EQ(command("query", true), 8);
  EXPECT_EQ(command("add", false), 0);
  EXPECT_EQ(command("query", true), 0);
  EXPECT_EQ(command("delete", true), 8);
  EXPECT_EQ(command("query", false), 0);
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
