#include "platform/linux/SqliteRegistry.h"

#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

#include "app/paths.h"
#include "app/text.h"
#include "platform/linux/caseFold.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr int kBusyMilliseconds = 10000;
constexpr int kSchemaVersion = 1;

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS keys (path TEXT PRIMARY KEY, parent TEXT NOT NULL, name TEXT NOT NULL) "
    "WITHOUT ROWID;"
    "CREATE INDEX IF NOT EXISTS subkeys ON keys (parent, path);"
    "CREATE TABLE IF NOT EXISTS vals (path TEXT, folded TEXT, name TEXT NOT NULL, type INTEGER NOT NULL, "
    "data BLOB NOT "
    "NULL, PRIMARY KEY (path, folded)) WITHOUT ROWID;"
    "PRAGMA user_version = 1;";

constexpr std::string_view HiveName(RegistryHive hive) {
  switch (hive) {
    case RegistryHive::ClassesRoot:
      return "HKEY_CLASSES_ROOT";
    case RegistryHive::CurrentUser:
      return "HKEY_CURRENT_USER";
    case RegistryHive::LocalMachine:
      return "HKEY_LOCAL_MACHINE";
    case RegistryHive::Users:
      return "HKEY_USERS";
    case RegistryHive::PerformanceData:
      return "HKEY_PERFORMANCE_DATA";
    case RegistryHive::CurrentConfig:
      return "HKEY_CURRENT_CONFIG";
    case RegistryHive::DynData:
      return "HKEY_DYN_DATA";
  }
  return "HKEY_CURRENT_USER";
}

std::string FullPath(RegistryHive hive, std::string_view path) {
  while (path.starts_with('\\')) path.remove_prefix(1);
  while (path.ends_with('\\')) path.remove_suffix(1);
  std::string full(HiveName(hive));
  if (!path.empty()) full.append("\\").append(path);
  return full;
}

std::string TimeStamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local);
  return text.data();
}

// A name beside `file` that nothing has yet.
std::string FreeName(const std::string& file) {
  const std::string base = file + ".beschaedigt-" + TimeStamp();
  std::string name = base;
  std::error_code error;
  for (int i = 2; fs::exists(name, error); ++i) name = base + "-" + std::to_string(i);
  return name;
}

bool SetAside(const std::string& file, const std::string& name, Log& log) {
  std::error_code error;
  fs::rename(file, name, error);
  if (error) {
    log.Write("Einstellungen: " + file + " lässt sich nicht umbenennen: " + error.message());
    return false;
  }
  for (const auto* const suffix : {"-wal", "-shm"}) fs::rename(file + suffix, name + suffix, error);
  return true;
}

// The change to the write-ahead log does not wait for other processes by itself.
int ExecutePatiently(sqlite3* database, const char* sql) {
  int code = SQLITE_BUSY;
  for (int waited = 0; code == SQLITE_BUSY && waited <= kBusyMilliseconds; waited += 10) {
    code = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
    if (code == SQLITE_BUSY) sqlite3_sleep(10);
  }
  return code;
}

int CreateSchema(sqlite3* database, int version) {
  int code = ExecutePatiently(database, "PRAGMA journal_mode = WAL");
  if (code == SQLITE_OK) code = ExecutePatiently(database, "PRAGMA synchronous = NORMAL");
  if (code != SQLITE_OK || version == kSchemaVersion) return code;
  code = ExecutePatiently(database, "BEGIN IMMEDIATE");
  if (code == SQLITE_OK) code = ExecutePatiently(database, kSchema);
  if (code == SQLITE_OK) code = ExecutePatiently(database, "COMMIT");
  return code;
}

// The path in the form that opens a store which nothing can change (https://www.sqlite.org/uri.html).
std::string ImmutableUri(std::string path) {
  ReplaceAll(path, "%", "%25");
  ReplaceAll(path, "?", "%3f");
  ReplaceAll(path, "#", "%23");
  return "file:" + path + "?immutable=1";
}

bool CanWriteBeside(const std::string& file) {
  const fs::path path = NativePath(file);
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  return access(path.parent_path().c_str(), W_OK | X_OK) == 0 &&
         (!fs::exists(path, error) || access(path.c_str(), R_OK | W_OK) == 0);
}

}  // namespace

// One use of a prepared statement: bound in order, reset at the end.
class SqliteRegistry::Statement {
 public:
  explicit Statement(sqlite3_stmt* statement) : statement_(statement) {}
  ~Statement() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
  }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // The text has to live as long as the use.
  Statement& Text(std::string_view text) {
    sqlite3_bind_text64(statement_, ++bound_, text.data() != nullptr ? text.data() : "", text.size(),
                        SQLITE_STATIC, SQLITE_UTF8);
    return *this;
  }
  Statement& Blob(std::string_view bytes) {
    sqlite3_bind_blob64(statement_, ++bound_, bytes.data() != nullptr ? bytes.data() : "", bytes.size(),
                        SQLITE_STATIC);
    return *this;
  }
  Statement& Number(std::int64_t number) {
    sqlite3_bind_int64(statement_, ++bound_, number);
    return *this;
  }
  int Step() { return sqlite3_step(statement_); }
  [[nodiscard]] std::string Column(int column) const {
    const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    return bytes != nullptr
               ? std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)))
               : std::string();
  }
  [[nodiscard]] std::int64_t NumberColumn(int column) const {
    return sqlite3_column_int64(statement_, column);
  }

 private:
  sqlite3_stmt* statement_;
  int bound_ = 0;
};

void SqliteRegistry::StatementCloser::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}
void SqliteRegistry::DatabaseCloser::operator()(sqlite3* database) const {
  sqlite3_close(database);
}
SqliteRegistry::~SqliteRegistry() = default;

void SqliteRegistry::LogProblem(std::string_view what) {
  log_.Write("Einstellungen, " + std::string(what) + ": " + sqlite3_errmsg(database_.get()));
}

bool SqliteRegistry::Execute(const char* sql) {
  if (sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK) return true;
  LogProblem(sql);
  return false;
}

SqliteRegistry::OpenResult SqliteRegistry::Judge(int code) {
  if (code == SQLITE_OK) return OpenResult::Ok;
  LogProblem("Öffnen");
  return code == SQLITE_NOTADB || code == SQLITE_CORRUPT || code == SQLITE_ERROR ? OpenResult::Damaged
                                                                                 : OpenResult::Inaccessible;
}

SqliteRegistry::OpenResult SqliteRegistry::Connect(const std::string& file, OpenMode mode) {
  const int flags =
      SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX |
      (mode == OpenMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  std::string name = file;
  if (mode == OpenMode::Memory) name = ":memory:";
  sqlite3* database = nullptr;
  int code = sqlite3_open_v2(name.c_str(), &database, flags, nullptr);
  database_.reset(database);
  if (code != SQLITE_OK) return Judge(code);
  sqlite3_busy_timeout(database, kBusyMilliseconds);
  return PrepareStore(mode);
}

SqliteRegistry::OpenResult SqliteRegistry::PrepareStore(OpenMode mode) {
  sqlite3* const database = database_.get();
  int version = 0;
  const auto readVersion = [](void* target, int, char** columns, char**) {
    *static_cast<int*>(target) = std::atoi(columns[0]);
    return 0;
  };
  if (const int code = sqlite3_exec(database, "PRAGMA user_version", readVersion, &version, nullptr);
      code != SQLITE_OK) {
    return Judge(code);
  }
  if (version > kSchemaVersion) {
    log_.Write("Einstellungen: die Datei stammt von einer neueren Version");
    return OpenResult::Damaged;
  }
  if (mode != OpenMode::ReadOnly) {
    const int code = CreateSchema(database, version);
    if (code != SQLITE_OK) return Judge(code);
  }
  std::string verdict;
  const auto readText = [](void* target, int, char** columns, char**) {
    *static_cast<std::string*>(target) = columns[0] != nullptr ? columns[0] : "";
    return 0;
  };
  const int code = sqlite3_exec(database, "PRAGMA quick_check(1)", readText, &verdict, nullptr);
  if (code != SQLITE_OK) return Judge(code);
  if (verdict != "ok") {
    log_.Write("Einstellungen: " + verdict);
    return OpenResult::Damaged;
  }
  return PrepareStatements() ? OpenResult::Ok : OpenResult::Damaged;
}

bool SqliteRegistry::PrepareStatements() {
  const auto prepare = [&](Prepared& prepared, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v3(database_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) LogProblem(sql);
    prepared.reset(statement);
    return code == SQLITE_OK;
  };
  return prepare(readValue_, "SELECT type, data FROM vals WHERE path = ? AND folded = ?") &&
         prepare(writeValue_,
                 "INSERT INTO vals (path, folded, name, type, data) VALUES (?, ?, ?, ?, ?) ON CONFLICT "
                 "(path, folded) "
                 "DO UPDATE SET type = excluded.type, data = excluded.data") &&
         prepare(deleteValue_, "DELETE FROM vals WHERE path = ? AND folded = ?") &&
         prepare(deleteValues_, "DELETE FROM vals WHERE path = ?") &&
         prepare(findKey_, "SELECT 1 FROM keys WHERE path = ?") &&
         prepare(insertKey_, "INSERT OR IGNORE INTO keys (path, parent, name) VALUES (?, ?, ?)") &&
         prepare(deleteKey_, "DELETE FROM keys WHERE path = ?") &&
         prepare(subkeys_, "SELECT name FROM keys WHERE parent = ? ORDER BY path") &&
         prepare(values_, "SELECT name FROM vals WHERE path = ? ORDER BY folded");
}

OpenedRegistry SqliteRegistry::Open(const std::string& file, Log& log) {
  const auto make = [&] { return std::unique_ptr<SqliteRegistry>(new SqliteRegistry(log)); };
  OpenedRegistry opened;
  opened.registry = make();
  const bool writable = CanWriteBeside(file);
  OpenResult result = OpenResult::Inaccessible;
  if (writable) result = opened.registry->Connect(file, OpenMode::Writable);
  if (result == OpenResult::Damaged) {
    opened.registry = make();
    const std::string aside = FreeName(file);
    if (SetAside(file, aside, log)) {
      opened.lost = true;
      opened.notice =
          "Die Einstellungen von Lorelin waren beschädigt. Die beschädigte Datei wurde aufgehoben als:\n\n" +
          aside +
          "\n\nAlle Einstellungen stehen wieder auf ihren Anfangswerten. Auch Taskscripts sind damit wieder "
          "erlaubt; "
          "bitte prüfen Sie die Sicherheitseinstellungen.";
      result = opened.registry->Connect(file, OpenMode::Writable);
    }
  }
  if (result == OpenResult::Ok) return opened;
  std::error_code error;
  if (fs::is_regular_file(file, error)) {
    opened.registry = make();
    result = opened.registry->Connect(ImmutableUri(file), OpenMode::ReadOnly);
  }
  if (result != OpenResult::Ok) {
    opened.registry = make();
    opened.registry->Connect("", OpenMode::Memory);
  }
  opened.notice += opened.notice.empty() ? "" : "\n\n";
  opened.notice +=
      "Die Einstellungen können nicht gespeichert werden; Änderungen gelten nur bis zum Programmende.";
  return opened;
}

template <typename Changes>
bool SqliteRegistry::Transact(const Changes& changes) {
  if (!Execute("BEGIN IMMEDIATE")) return false;
  const bool changed = changes();
  if (changed && Execute("COMMIT")) return true;
  sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  return false;
}

bool SqliteRegistry::Exists(const std::string& folded) {
  if (folded.find('\\') == std::string::npos) return true;  // a hive
  return Statement(findKey_.get()).Text(folded).Step() == SQLITE_ROW;
}

// The key and its missing parents.
bool SqliteRegistry::InsertKeys(const std::string& folded, std::string_view spelled) {
  const auto end = folded.rfind('\\');
  if (end == std::string::npos || Exists(folded)) return true;
  const auto spelledEnd = spelled.rfind('\\');
  const std::string parent = folded.substr(0, end);
  if (!InsertKeys(parent, spelled.substr(0, spelledEnd))) return false;
  Statement insert(insertKey_.get());
  if (insert.Text(folded).Text(parent).Text(spelled.substr(spelledEnd + 1)).Step() == SQLITE_DONE)
    return true;
  LogProblem("Schlüssel anlegen");
  return false;
}

bool SqliteRegistry::CreateKey(RegistryHive hive, std::string_view path) {
  const std::string spelled = FullPath(hive, path);
  const std::string folded = FoldCase(spelled);
  return Exists(folded) || Transact([&] { return InsertKeys(folded, spelled); });
}

bool SqliteRegistry::KeyExists(RegistryHive hive, std::string_view path) {
  return Exists(FoldCase(FullPath(hive, path)));
}

bool SqliteRegistry::DeleteKey(RegistryHive hive, std::string_view path) {
  const std::string folded = FoldCase(FullPath(hive, path));
  if (folded.find('\\') == std::string::npos) return false;
  return Transact([&] {
    if (!Exists(folded) || !Names(subkeys_.get(), folded).empty()) return false;
    return Statement(deleteValues_.get()).Text(folded).Step() == SQLITE_DONE &&
           Statement(deleteKey_.get()).Text(folded).Step() == SQLITE_DONE;
  });
}

std::vector<std::string> SqliteRegistry::Names(sqlite3_stmt* statement, const std::string& folded) {
  std::vector<std::string> names;
  Statement use(statement);
  use.Text(folded);
  int code = use.Step();
  for (; code == SQLITE_ROW; code = use.Step()) names.push_back(use.Column(0));
  if (code != SQLITE_DONE) LogProblem("Namen lesen");
  return names;
}

std::optional<std::vector<std::string>> SqliteRegistry::SubkeyNames(RegistryHive hive,
                                                                    std::string_view path) {
  const std::string folded = FoldCase(FullPath(hive, path));
  if (!Exists(folded)) return std::nullopt;
  return Names(subkeys_.get(), folded);
}

std::optional<std::vector<std::string>> SqliteRegistry::ValueNames(RegistryHive hive, std::string_view path) {
  const std::string folded = FoldCase(FullPath(hive, path));
  if (!Exists(folded)) return std::nullopt;
  return Names(values_.get(), folded);
}

std::optional<RegistryValue> SqliteRegistry::ReadValue(RegistryHive hive, std::string_view path,
                                                       std::string_view name) {
  const std::string key = FoldCase(FullPath(hive, path));
  const std::string folded = FoldCase(name);
  Statement use(readValue_.get());
  const int code = use.Text(key).Text(folded).Step();
  if (code == SQLITE_ROW) return RegistryValue{static_cast<RegistryType>(use.NumberColumn(0)), use.Column(1)};
  if (code != SQLITE_DONE) LogProblem("Wert lesen");
  return std::nullopt;
}

bool SqliteRegistry::WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                                const RegistryValue& value) {
  const std::string spelled = FullPath(hive, path);
  const std::string key = FoldCase(spelled);
  const std::string folded = FoldCase(name);
  return Transact([&] {
    if (!InsertKeys(key, spelled)) return false;
    Statement use(writeValue_.get());
    use.Text(key).Text(folded).Text(name).Number(static_cast<std::int64_t>(value.type)).Blob(value.data);
    if (use.Step() == SQLITE_DONE) return true;
    LogProblem("Wert schreiben");
    return false;
  });
}

bool SqliteRegistry::DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) {
  const std::string key = FoldCase(FullPath(hive, path));
  const std::string folded = FoldCase(name);
  return Transact([&] {
    return Statement(deleteValue_.get()).Text(key).Text(folded).Step() == SQLITE_DONE &&
           sqlite3_changes(database_.get()) > 0;
  });
}

}  // namespace lorelin
