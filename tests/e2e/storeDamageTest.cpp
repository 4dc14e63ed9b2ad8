#include <filesystem>
#include <random>
#include <vector>

#include "tests/e2e/storeProcesses.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr int kValues = 300;

class DamagedStore : public testing::Test {
 protected:
  DamagedStore() {
    {
      const auto opened = SqliteRegistry::Open(file, log);
      for (int i = 0; i < kValues; ++i) {
        WriteText(*opened.registry, "Wert" + std::to_string(i), std::string(150, 'a'));
      }
    }
    good = ReadFile(file);
  }

  // Opens the store with these bytes in it. Whatever they are, a store comes of it that works, and the bytes
  // of one that was set aside are still there.
  bool IsSetAside(const std::string& bytes) {
    fs::remove_all(fs::path(file).parent_path());
    WriteFile(file, bytes);
    const auto opened = SqliteRegistry::Open(file, log);
    for (int i = 0; i < kValues; ++i) (void)ReadText(*opened.registry, "Wert" + std::to_string(i));
    EXPECT_TRUE(WriteText(*opened.registry, "neu", "ja") || !opened.lost);
    EXPECT_EQ(SetAsideFiles().size(), opened.lost ? 1U : 0U);
    if (!opened.lost) return false;
    EXPECT_EQ(ReadFile(SetAsideFiles().at(0)), bytes);
    EXPECT_EQ(ReadText(*opened.registry, "Wert0"), "(fehlt)");
    EXPECT_EQ(ReadText(*opened.registry, "neu"), "ja");
    return true;
  }

  std::vector<std::string> SetAsideFiles() {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(fs::path(file).parent_path())) {
      const std::string path = entry.path().string();
      if (path.find(".beschaedigt-") != std::string::npos && !path.ends_with("-shm") &&
          !path.ends_with("-wal")) {
        found.push_back(path);
      }
    }
    return found;
  }

  TemporaryFolder folder;
  std::string file = folder.File("lorelin/registry.sqlite");
  FakeLog log;
  std::string good;
};

TEST_F(DamagedStore, IsLeftAloneWhenItIsWhole) {
  EXPECT_FALSE(IsSetAside(good));
}

TEST_F(DamagedStore, IsANewOneWhenItWasNeverWritten) {
  EXPECT_FALSE(IsSetAside(""));
  EXPECT_EQ(SqliteRegistry::Open(file, log).registry->State(), RegistryState::Whole);
}

TEST_F(DamagedStore, IsSetAsideWhenItWasEmptied) {
  WriteFile(file, "");
  const auto opened = SqliteRegistry::Open(file, log);
  EXPECT_TRUE(opened.lost);
  EXPECT_EQ(SetAsideFiles().size(), 1U);
  EXPECT_EQ(opened.registry->State(), RegistryState::Replaced);
}

TEST_F(DamagedStore, IsSetAsideWhenNothingIsLeftButItsHeader) {
  fs::remove(file);
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  sqlite3_exec(database, "PRAGMA journal_mode = WAL; CREATE TABLE x (y); DROP TABLE x", nullptr, nullptr,
               nullptr);
  sqlite3_close(database);
  ASSERT_GT(fs::file_size(file), 0U);
  EXPECT_TRUE(SqliteRegistry::Open(file, log).lost);
}

TEST_F(DamagedStore, IsToldOfAtEveryOpeningUntilSomebodyHasReadIt) {
  WriteFile(file, "Unsinn, und zwar mehr als ein Kopf lang ist. Unsinn, und zwar mehr als ein Kopf.");
  const std::string notice = SqliteRegistry::Open(file, log).notice;
  EXPECT_NE(notice.find(SetAsideFiles().at(0)), std::string::npos) << notice;
  EXPECT_NE(notice.find("Taskscripts sind nicht erlaubt"), std::string::npos) << notice;
  {
    const auto opened = SqliteRegistry::Open(file, log);
    EXPECT_TRUE(opened.lost);
    EXPECT_EQ(opened.notice, notice);
    opened.registry->ConfirmLoss();
  }
  const auto opened = SqliteRegistry::Open(file, log);
  EXPECT_FALSE(opened.lost);
  EXPECT_EQ(opened.notice, "");
  EXPECT_EQ(opened.registry->State(), RegistryState::Replaced);
  EXPECT_EQ(SetAsideFiles().size(), 1U);
}

TEST_F(DamagedStore, IsSetAsideWhereverItWasCutOff) {
  ASSERT_GT(good.size(), 40000U);
  for (std::size_t size = 100; size < good.size(); size += 1777) {
    EXPECT_TRUE(IsSetAside(good.substr(0, size))) << size;
  }
}

TEST_F(DamagedStore, IsSetAsideWhenItsBeginIsNoise) {
  std::mt19937 random(1);
  for (int i = 0; i < 20; ++i) {
    std::string bytes = good;
    for (std::size_t at = 0; at < 100; ++at) bytes[at] = static_cast<char>(random());
    EXPECT_TRUE(IsSetAside(bytes)) << i;
  }
}

TEST_F(DamagedStore, WorksOnWhereverNoiseFallsIntoIt) {
  std::mt19937 random(2);
  int setAside = 0;
  for (int i = 0; i < 100; ++i) {
    std::string bytes = good;
    const std::size_t begin = random() % bytes.size();
    const std::size_t end = std::min(bytes.size(), begin + 1 + random() % 3000);
    for (std::size_t at = begin; at < end; ++at) bytes[at] = static_cast<char>(random());
    setAside += IsSetAside(bytes);
  }
  EXPECT_GT(setAside, 30);
}

TEST_F(DamagedStore, IsSetAsideOnceByProgramsThatFindItTogether) {
  std::string bytes = good;
  bytes.replace(4096, 20000, std::string(20000, '\x55'));
  for (int round = 0; round < 30; ++round) {
    fs::remove_all(fs::path(file).parent_path());
    WriteFile(file, bytes);
    std::vector<pid_t> children;
    for (int process = 0; process < 4; ++process) {
      children.push_back(Start([&] {
        const auto opened = SqliteRegistry::Open(file, log);
        return WriteText(*opened.registry, "von" + std::to_string(process), "ja") ? 0 : 1;
      }));
    }
    for (const pid_t child : children) EXPECT_EQ(ResultOf(child), 0);
    EXPECT_EQ(SetAsideFiles().size(), 1U) << round;
    const auto opened = SqliteRegistry::Open(file, log);
    for (int process = 0; process < 4; ++process) {
      EXPECT_EQ(ReadText(*opened.registry, "von" + std::to_string(process)), "ja") << round;
    }
  }
}

}  // namespace
}  // namespace lorelin
