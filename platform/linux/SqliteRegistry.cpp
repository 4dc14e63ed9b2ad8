#include "platform/linux/SqliteRegistry.h"

#include <sqlite3.h>
#include <sys/file.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/text.h"
#include "platform/common/caseFold.h"
#include "platform/linux/storeFile.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr int kBusyMilliseconds = 10000;
constexpr int kSchemaVersion = 1;
constexpr const char* kMemory = ":memory:";

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS keys (path TEXT PRIMARY KEY, parent TEXT NOT NULL, name TEXT NOT NULL) "
    "WITHOUT ROWID;"
    "CREATE INDEX IF NOT EXISTS subkeys ON keys (parent, path);"
    "CREATE TABLE IF NOT EXISTS vals (path TEXT, folded TEXT, name TEXT NOT NULL, type INTEGER NOT NULL, "
    "data BLOB NOT NULL, PRIMARY KEY (path, folded)) WITHOUT ROWID;"
    "PRAGMA user_version = 1;";

// What a store remembers of the one that it replaces lies under no hive, where no key is.
constexpr std::string_view kReplaces = "replaces";
constexpr std::string_view kUnreadNotice = "unread notice";

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

// Separators at the ends and doubled ones count as none.
std::string FullPath(RegistryHive hive, std::string_view path) {
  std::string full(HiveName(hive));
  full.reserve(full.size() + path.size() + 1);
  while (!path.empty()) {
    const auto end = std::min(path.find('\\'), path.size());
    if (end > 0) full.append("\\").append(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return full;
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

int RememberLoss(sqlite3* database, const std::string& notice) {
  if (notice.empty()) return SQLITE_OK;
  char* const sql = sqlite3_mprintf(
      "INSERT INTO vals (path, folded, name, type, data) VALUES ('', '%s', '', 1, ''), ('', '%s', '', 1, %Q)",
      kReplaces.data(), kUnreadNotice.data(), notice.c_str());
  const int code = ExecutePatiently(database, sql);
  sqlite3_free(sql);
  return code;
}

int CreateSchema(sqlite3* database, int version, const std::string& lossNotice) {
  int code = ExecutePatiently(database, "PRAGMA journal_mode = WAL");
  if (code == SQLITE_OK) code = ExecutePatiently(database, "PRAGMA synchronous = NORMAL");
  // What is removed is not to be found in the file any more.
  if (code == SQLITE_OK) code = ExecutePatiently(database, "PRAGMA secure_delete = ON");
  if (code != SQLITE_OK || version == kSchemaVersion) return code;
  code = ExecutePatiently(database, "BEGIN IMMEDIATE");
  if (code == SQLITE_OK) code = ExecutePatiently(database, kSchema);
  if (code == SQLITE_OK) code = RememberLoss(database, lossNotice);
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

std::string SetAsideNotice(bool newer, const std::string& name) {
  return (newer
              ? std::string("Die Einstellungen stammen von einer neueren Version von Lorelin und lassen sich "
                            "nicht lesen. Ihre Datei wurde aufgehoben als:\n\n")
              : std::string("Die Einstellungen von Lorelin waren beschädigt. Die beschädigte Datei wurde "
                            "aufgehoben als:\n\n")) +
         name +
         "\n\nAlle Einstellungen stehen wieder auf ihren Anfangswerten. Nur Taskscripts sind nicht erlaubt, "
         "bis "
         "Sie sie in den Einstellungen wieder zulassen.";
}

std::string UnreadableNotice(const std::string& file) {
  return "Die Einstellungen von Lorelin können nicht gelesen werden:\n\n" + file +
         "\n\nSo lange stehen sie auf ihren Anfangswerten, und Taskscripts sind nicht erlaubt. Bitte sorgen "
         "Sie "
         "dafür, dass die Datei gelesen werden kann, und starten Sie dann neu.";
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

SqliteRegistry::OpenResult SqliteRegistry::Judge(int code) {
  if (code == SQLITE_OK) return OpenResult::Ok;
  LogProblem("Öffnen");
  return code == SQLITE_NOTADB || code == SQLITE_CORRUPT || code == SQLITE_ERROR ? OpenResult::Damaged
                                                                                 : OpenResult::Inaccessible;
}

SqliteRegistry::OpenResult SqliteRegistry::OpenDatabase(const std::string& name, int flags) {
  sqlite3* database = nullptr;
  const int code =
      sqlite3_open_v2(name.c_str(), &database, flags | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  database_.reset(database);
  sqlite3_busy_timeout(database, kBusyMilliseconds);
  return Judge(code);
}

SqliteRegistry::OpenResult SqliteRegistry::Connect(const std::string& name) {
  const OpenResult result = OpenDatabase(name, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  return result == OpenResult::Ok ? PrepareStore() : result;
}

SqliteRegistry::OpenResult SqliteRegistry::ConnectToCopy(const std::string& name) {
  SqliteRegistry source(log_);
  OpenResult result = source.OpenDatabase(name, SQLITE_OPEN_READONLY);
  if (result == OpenResult::Ok) result = OpenDatabase(kMemory, SQLITE_OPEN_READWRITE);
  if (result != OpenResult::Ok) return result;
  sqlite3_backup* const copy = sqlite3_backup_init(database_.get(), "main", source.database_.get(), "main");
  if (copy == nullptr) return Judge(sqlite3_errcode(database_.get()));
  sqlite3_backup_step(copy, -1);
  result = Judge(sqlite3_backup_finish(copy));
  return result == OpenResult::Ok ? PrepareStore() : result;
}

SqliteRegistry::OpenResult SqliteRegistry::PrepareStore() {
  sqlite3* const database = database_.get();
  int version = 0;
  const auto readVersion = [](void* target, int, char** columns, char**) {
    *static_cast<int*>(target) = std::atoi(columns[0]);
    return 0;
  };
  int code = sqlite3_exec(database, "PRAGMA user_version", readVersion, &version, nullptr);
  if (code != SQLITE_OK) return Judge(code);
  if (version > kSchemaVersion) {
    log_.Write("Einstellungen: die Datei stammt von einer neueren Version");
    return OpenResult::Newer;
  }
  if (version == 0 && past_.written) {
    log_.Write("Einstellungen: die Datei enthält nichts mehr");
    return OpenResult::Damaged;
  }
  code = CreateSchema(database, version, past_.lossNotice);
  if (code == SQLITE_OK) code = PrepareStatements();
  return code == SQLITE_OK ? Check() : Judge(code);
}

SqliteRegistry::OpenResult SqliteRegistry::Check() {
  std::string verdict;
  const auto readText = [](void* target, int, char** columns, char**) {
    *static_cast<std::string*>(target) = columns[0] != nullptr ? columns[0] : "";
    return 0;
  };
  const int code = sqlite3_exec(database_.get(), "PRAGMA quick_check(1)", readText, &verdict, nullptr);
  if (code != SQLITE_OK) return Judge(code);
  if (verdict == "ok") return OpenResult::Ok;
  log_.Write("Einstellungen: " + verdict);
  return OpenResult::Damaged;
}

int SqliteRegistry::PrepareStatements() {
  const std::array<std::pair<Prepared*, const char*>, 11> statements{{
      {&begin_, "BEGIN IMMEDIATE"},
      {&commit_, "COMMIT"},
      {&readValue_, "SELECT type, data FROM vals WHERE path = ? AND folded = ?"},
      {&writeValue_,
       "INSERT INTO vals (path, folded, name, type, data) VALUES (?, ?, ?, ?, ?) "
       "ON CONFLICT (path, folded) DO UPDATE SET type = excluded.type, data = excluded.data"},
      {&deleteValue_, "DELETE FROM vals WHERE path = ? AND folded = ?"},
      {&deleteValues_, "DELETE FROM vals WHERE path = ?"},
      {&findKey_, "SELECT 1 FROM keys WHERE path = ?"},
      {&insertKey_, "INSERT OR IGNORE INTO keys (path, parent, name) VALUES (?, ?, ?)"},
      {&deleteKey_, "DELETE FROM keys WHERE path = ?"},
      {&subkeys_, "SELECT name FROM keys WHERE parent = ? ORDER BY path"},
      {&values_, "SELECT name FROM vals WHERE path = ? ORDER BY folded"},
  }};
  for (const auto& [prepared, sql] : statements) {
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v3(database_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (code != SQLITE_OK) return code;
    prepared->reset(statement);
  }
  return SQLITE_OK;
}

SqliteRegistry::Attempt SqliteRegistry::Try(Log& log, const std::string& name, Connection connection,
                                            Past past) {
  Attempt attempt{std::unique_ptr<SqliteRegistry>(new SqliteRegistry(log)), OpenResult::Inaccessible};
  attempt.registry->past_ = std::move(past);
  attempt.result = (*attempt.registry.*connection)(name);
  if (attempt.result == OpenResult::Ok) {
    attempt.registry->replacesLost_ = attempt.registry->Remembered(kReplaces).has_value();
  }
  return attempt;
}

SqliteRegistry::Attempt SqliteRegistry::TryFile(const std::string& file, Log& log, const OpeningLock& lock) {
  if (WasEmptied(file)) {
    log.Write("Einstellungen: " + file + " wurde geleert");
    return {nullptr, OpenResult::Damaged};
  }
  CloseStore(file);
  Attempt attempt = Try(log, file, &SqliteRegistry::Connect, {.written = WasWritten(file), .lossNotice = {}});
  if (attempt.result == OpenResult::Ok) lock.RememberStore();
  return attempt;
}

std::unique_ptr<SqliteRegistry> SqliteRegistry::Repair(const std::string& file, Log& log) {
  const OpeningLock lock(file, LOCK_EX);
  // Another program may have been faster.
  Attempt attempt = TryFile(file, log, lock);
  if (attempt.result == OpenResult::Damaged || attempt.result == OpenResult::Newer) {
    attempt.registry.reset();
    const bool newer = attempt.result == OpenResult::Newer;
    const std::string aside = FreeName(file, newer ? "neuere-version" : "beschaedigt");
    if (!SetAside(file, aside, log)) return nullptr;
    CloseStore(file);
    attempt = Try(log, file, &SqliteRegistry::Connect,
                  {.written = false, .lossNotice = SetAsideNotice(newer, aside)});
  }
  return attempt.result == OpenResult::Ok ? std::move(attempt.registry) : nullptr;
}

std::unique_ptr<SqliteRegistry> SqliteRegistry::OpenFile(const std::string& file, Log& log) {
  if (!CanWriteBeside(file)) return nullptr;
  {
    const OpeningLock lock(file, LOCK_SH);
    Attempt attempt = TryFile(file, log, lock);
    if (attempt.result == OpenResult::Ok) return std::move(attempt.registry);
    if (attempt.result == OpenResult::Inaccessible) return nullptr;
  }
  return Repair(file, log);
}

std::unique_ptr<SqliteRegistry> SqliteRegistry::CopyOf(const std::string& file, Log& log) {
  std::error_code error;
  if (!fs::is_regular_file(file, error) || WasEmptied(file)) return nullptr;
  const Past past{.written = WasWritten(file), .lossNotice = {}};
  Attempt attempt = Try(log, file, &SqliteRegistry::ConnectToCopy, past);
  if (attempt.result == OpenResult::Ok) return std::move(attempt.registry);
  // The second form reads a store whose folder allows no lock file beside it, without the latest changes.
  if (HasLog(file)) return nullptr;
  attempt = Try(log, ImmutableUri(file), &SqliteRegistry::ConnectToCopy, past);
  return attempt.result == OpenResult::Ok ? std::move(attempt.registry) : nullptr;
}

std::unique_ptr<SqliteRegistry> SqliteRegistry::OpenInMemory(const std::string& file, Log& log) {
  std::unique_ptr<SqliteRegistry> registry = CopyOf(file, log);
  const bool unreadable = registry == nullptr && MayExist(file);
  if (registry == nullptr) registry = std::move(Try(log, kMemory, &SqliteRegistry::Connect, {}).registry);
  registry->unreadable_ = unreadable;
  registry->lasting_ = false;
  return registry;
}

OpenedRegistry SqliteRegistry::Open(const std::string& file, Log& log) {
  OpenedRegistry opened;
  opened.registry = OpenFile(file, log);
  if (opened.registry == nullptr) opened.registry = OpenInMemory(file, log);
  const SqliteRegistry& registry = *opened.registry;
  opened.notice =
      registry.unreadable_ ? UnreadableNotice(file) : opened.registry->Remembered(kUnreadNotice).value_or("");
  opened.lost = !opened.notice.empty();
  if (registry.lasting_) return opened;
  opened.notice += opened.notice.empty() ? "" : "\n\n";
  opened.notice +=
      "Die Einstellungen können nicht gespeichert werden; Änderungen gelten nur bis zum Programmende.";
  return opened;
}

std::optional<std::string> SqliteRegistry::Remembered(std::string_view what) {
  Statement use(readValue_.get());
  if (use.Text("").Text(what).Step() != SQLITE_ROW) return std::nullopt;
  return use.Column(1);
}

void SqliteRegistry::ConfirmLoss() {
  (void)Transact(
      [&] { return Statement(deleteValue_.get()).Text("").Text(kUnreadNotice).Step() == SQLITE_DONE; });
}

RegistryState SqliteRegistry::State() const {
  if (unreadable_ || readFailed_) return RegistryState::Unreadable;
  return replacesLost_ ? RegistryState::Replaced : RegistryState::Whole;
}

bool SqliteRegistry::Run(sqlite3_stmt* statement, std::string_view what) {
  if (Statement(statement).Step() == SQLITE_DONE) return true;
  LogProblem(what);
  return false;
}

template <typename Changes>
bool SqliteRegistry::Transact(const Changes& changes) {
  if (together_) return changes();
  if (!Run(begin_.get(), "Schreiben beginnen")) return false;
  if (changes() && Run(commit_.get(), "Schreiben abschließen")) return true;
  sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  return false;
}

bool SqliteRegistry::Together(const std::function<bool()>& changes) {
  return Transact([&] {
    const bool outer = std::exchange(together_, true);
    const bool done = changes();
    together_ = outer;
    return done;
  });
}

bool SqliteRegistry::Exists(const std::string& folded) {
  if (folded.find('\\') == std::string::npos) return true;  // a hive
  const int code = Statement(findKey_.get()).Text(folded).Step();
  readFailed_ = code != SQLITE_ROW && code != SQLITE_DONE;
  if (readFailed_) LogProblem("Schlüssel suchen");
  return code == SQLITE_ROW;
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
  readFailed_ = code != SQLITE_DONE;
  if (readFailed_) LogProblem("Namen lesen");
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
  readFailed_ = code != SQLITE_ROW && code != SQLITE_DONE;
  if (code == SQLITE_ROW) return RegistryValue{static_cast<RegistryType>(use.NumberColumn(0)), use.Column(1)};
  if (readFailed_) LogProblem("Wert lesen");
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
