#include "platform/linux/SqliteRegistry.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>

#include "tests/support/FakePorts.h"
#include "tests/support/RegistryContract.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<Registry> MakeInMemory() {
  static FakeLog log;
  return std::move(SqliteRegistry::Open("/proc/nicht/da/registry.sqlite", log).registry);
}

std::unique_ptr<Registry> MakeInAFile() {
  static FakeLog log;
  static const TemporaryFolder folder;
  static int number = 0;
  return std::move(SqliteRegistry::Open(folder.File(std::to_string(++number) + ".sqlite"), log).registry);
}

INSTANTIATE_TEST_SUITE_P(Sqlite, RegistryContract, testing::Values(&MakeInMemory, &MakeInAFile));

class SqliteRegistryTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string file = folder.File("config/lorelin/registry.sqlite");
  FakeLog log;

  OpenedRegistry Open() { return SqliteRegistry::Open(file, log); }
  static void Write(Registry& registry, const std::string& text) {
    EXPECT_TRUE(registry.WriteValue(RegistryHive::CurrentUser, "K", "x", {RegistryType::String, text}));
  }
  static std::string Read(Registry& registry) {
    const auto value = registry.ReadValue(RegistryHive::CurrentUser, "K", "x");
    return value ? value->data : "(fehlt)";
  }
  std::vector<std::string> SetAside() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(file).parent_path())) {
      const std::string name = entry.path().filename().string();
      if (name.find(".beschaedigt-") != std::string::npos && !name.ends_with("-wal") &&
          !name.ends_with("-shm")) {
        names.push_back(entry.path().string());
      }
    }
    return names;
  }
};

TEST_F(SqliteRegistryTest, KeepsNothingOfWhatWasReplaced) {
  const std::string secret = "/home/anna/Kuendigung.txt";
  Write(*Open().registry, secret + std::string(3000, 'x'));
  Write(*Open().registry, "");
  for (const std::string& name : {file, file + "-wal"}) {
    std::ifstream stream(name, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(bytes.find(secret), std::string::npos) << name;
  }
}

TEST_F(SqliteRegistryTest, IsForItsOwnerAlone) {
  const auto expectClosed = [&] {
    for (const std::string& name : {file, file + "-wal", file + "-shm", file + ".lock"}) {
      EXPECT_EQ(fs::status(name).permissions(), fs::perms::owner_read | fs::perms::owner_write) << name;
    }
    EXPECT_EQ(fs::status(fs::path(file).parent_path()).permissions(), fs::perms::owner_all);
  };
  {
    const auto opened = Open();
    Write(*opened.registry, "eins");
    expectClosed();
  }
  for (const std::string& name : {file, fs::path(file).parent_path().string()}) {
    fs::permissions(name, fs::perms::all);
  }
  const auto opened = Open();
  Write(*opened.registry, "zwei");
  expectClosed();
}

TEST_F(SqliteRegistryTest, KeepsValuesFromOneStartToTheNext) {
  Write(*Open().registry, "eins");
  const auto opened = Open();
  EXPECT_EQ(Read(*opened.registry), "eins");
  EXPECT_EQ(opened.notice, "");
  EXPECT_FALSE(opened.lost);
}

TEST_F(SqliteRegistryTest, KeepsNamesOfAnyBytes) {
  const auto opened = Open();
  Registry& registry = *opened.registry;
  const auto hive = RegistryHive::CurrentUser;
  EXPECT_TRUE(registry.WriteValue(hive, "K\xFF", "\xC3", {RegistryType::String, "1"}));
  EXPECT_EQ(registry.ReadValue(hive, "k\xFF", "\xC3")->data, "1");
  EXPECT_EQ(registry.ValueNames(hive, "K\xFF"), Names{"\xC3"});
}

TEST_F(SqliteRegistryTest, EnumeratesInTheOrderOfNames) {
  const auto opened = Open();
  for (const auto* const name : {"b", "a"}) {
    EXPECT_TRUE(
        opened.registry->WriteValue(RegistryHive::CurrentUser, "K", name, {RegistryType::String, "1"}));
  }
  EXPECT_EQ(opened.registry->ValueNames(RegistryHive::CurrentUser, "K"), (Names{"a", "b"}));
}

TEST_F(SqliteRegistryTest, ShowsWhatAnotherConnectionWrote) {
  const auto one = Open();
  const auto two = Open();
  Write(*one.registry, "eins");
  EXPECT_EQ(Read(*two.registry), "eins");
  Write(*two.registry, "zwei");
  EXPECT_EQ(Read(*one.registry), "zwei");
}

TEST_F(SqliteRegistryTest, SetsAFileAsideThatIsNoDatabase) {
  const std::string noise(5000, 'z');
  WriteFile(file, noise);
  const auto opened = Open();
  EXPECT_TRUE(opened.lost);
  const auto aside = SetAside();
  ASSERT_EQ(aside.size(), 1U);
  EXPECT_NE(opened.notice.find(aside[0]), std::string::npos);
  EXPECT_EQ(ReadFile(aside[0]), noise);
  Write(*opened.registry, "neu");
  EXPECT_EQ(Read(*opened.registry), "neu");
}

TEST_F(SqliteRegistryTest, SetsADamagedDatabaseAside) {
  {
    const auto opened = Open();
    for (int i = 0; i < 500; ++i) {
      opened.registry->WriteValue(RegistryHive::CurrentUser, "K" + std::to_string(i), "x",
                                  {RegistryType::String, std::string(200, 'a')});
    }
  }
  std::string bytes = ReadFile(file);
  ASSERT_GT(bytes.size(), 20000U);
  bytes.replace(4096, 12000, std::string(12000, '\x55'));
  WriteFile(file, bytes);
  EXPECT_TRUE(Open().lost);
  EXPECT_EQ(SetAside().size(), 1U);
}

TEST_F(SqliteRegistryTest, NeverOverwritesWhatItSetAside) {
  for (int i = 0; i < 3; ++i) {
    fs::remove(file);
    WriteFile(file, "Unsinn " + std::string(200, static_cast<char>('a' + i)));
    EXPECT_TRUE(Open().lost);
  }
  EXPECT_EQ(SetAside().size(), 3U);
}

TEST_F(SqliteRegistryTest, SetsAFileOfANewerVersionAside) {
  Open();
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(database, "PRAGMA user_version = 99", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(database);
  const auto opened = Open();
  EXPECT_TRUE(opened.lost);
  EXPECT_NE(opened.notice.find("neueren Version"), std::string::npos);
}

TEST_F(SqliteRegistryTest, GivesDefaultsForWhatIsDamagedWhileItRuns) {
  const auto fill = Open();
  for (int i = 0; i < 20000; ++i) {
    fill.registry->WriteValue(RegistryHive::CurrentUser, "K", std::to_string(i),
                              {RegistryType::String, std::string(200, 'a')});
  }
  std::string bytes = ReadFile(file);
  ASSERT_GT(bytes.size(), 1000000U);
  std::fill(bytes.begin() + 8192, bytes.end(), '\xFF');
  WriteFile(file, bytes);
  int missing = 0;
  for (int i = 0; i < 20000; ++i) {
    const auto value = fill.registry->ReadValue(RegistryHive::CurrentUser, "K", std::to_string(i));
    missing += !value;
    EXPECT_EQ(value.value_or(RegistryValue{}).data, value ? std::string(200, 'a') : std::string());
  }
  EXPECT_GT(missing, 0);
  EXPECT_GE(log.lines.size(), static_cast<std::size_t>(missing));
}

TEST_F(SqliteRegistryTest, TakesAnEmptyFileForANewOne) {
  WriteFile(file, "");
  const auto opened = Open();
  EXPECT_FALSE(opened.lost);
  Write(*opened.registry, "neu");
}

TEST_F(SqliteRegistryTest, LivesInMemoryWhereNothingCanBeWritten) {
  file = "/proc/nicht/da/registry.sqlite";
  const auto opened = Open();
  EXPECT_NE(opened.notice, "");
  EXPECT_FALSE(opened.lost);
  Write(*opened.registry, "neu");
  EXPECT_EQ(Read(*opened.registry), "neu");
}

TEST_F(SqliteRegistryTest, KeepsItsFolderFromOthers) {
  Open();
  EXPECT_EQ(fs::status(fs::path(file).parent_path()).permissions(), fs::perms::owner_all);
}

}  // namespace
}  // namespace lorelin
