#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/common/LogFile.h"
#include "platform/common/SystemClock.h"
#include "platform/linux/SqliteRegistry.h"
#include "settings/SettingsStore.h"

// How fast settings are read and written, beside what SQLite itself needs for one indexed lookup.

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// A store of its own that goes with the object, with as many settings as a user with extensions has.
class Store {
 public:
  Store() {
    fs::create_directories(folder_);
    for (const SettingKey* key : setting::All) settings.Save(*key, "Ein Wert von üblicher Länge");
    for (int i = 0; i < 100; ++i) {
      settings.SaveSetting("Extensions\\Erweiterung" + std::to_string(i), "ObjectName", "org.example.Object");
    }
  }
  ~Store() {
    opened_.registry.reset();
    std::error_code error;
    fs::remove_all(folder_, error);
  }
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  [[nodiscard]] std::string File() const { return folder_ / "registry.sqlite"; }

 private:
  fs::path folder_ = fs::temp_directory_path() / ("lorelin-bench-" + std::to_string(getpid()));
  SystemClock clock_;
  LogFile log_{folder_ / "lorelin.log", clock_, true};
  OpenedRegistry opened_ = SqliteRegistry::Open(File(), log_);

 public:
  SettingsStore settings{*opened_.registry};
};

void ReadSetting(benchmark::State& state) {
  const Store store;
  for (auto _ : state) benchmark::DoNotOptimize(store.settings.Get(setting::Speed));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ReadSetting);

// The floor: one prepared SELECT by an integer key in a database that is written and opened the same way.
void PlainSelect(benchmark::State& state) {
  const Store store;
  sqlite3* database = nullptr;
  sqlite3_open(store.File().c_str(), &database);
  sqlite3_exec(database,
               "CREATE TABLE plain (id INTEGER PRIMARY KEY, data TEXT); INSERT INTO plain VALUES (1, '25')",
               nullptr, nullptr, nullptr);
  sqlite3_stmt* select = nullptr;
  sqlite3_prepare_v2(database, "SELECT data FROM plain WHERE id = ?", -1, &select, nullptr);
  for (auto _ : state) {
    sqlite3_bind_int(select, 1, 1);
    if (sqlite3_step(select) != SQLITE_ROW) state.SkipWithError("no row");
    benchmark::DoNotOptimize(sqlite3_column_text(select, 0));
    sqlite3_reset(select);
  }
  state.SetItemsProcessed(state.iterations());
  sqlite3_finalize(select);
  sqlite3_close(database);
}
BENCHMARK(PlainSelect);

void WriteSetting(benchmark::State& state) {
  Store store;
  int number = 0;
  for (auto _ : state) store.settings.Save(setting::Speed, std::to_string(++number % 100));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(WriteSetting)->UseRealTime();

void OpenStore(benchmark::State& state) {
  const Store store;
  SystemClock clock;
  LogFile log("/dev/null", clock, true);
  for (auto _ : state) benchmark::DoNotOptimize(SqliteRegistry::Open(store.File(), log).registry.get());
}
BENCHMARK(OpenStore);

}  // namespace
}  // namespace lorelin

BENCHMARK_MAIN();
