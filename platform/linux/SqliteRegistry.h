#pragma once

#include <memory>
#include <string>

#include "ports/Log.h"
#include "ports/Registry.h"

struct sqlite3;
struct sqlite3_stmt;

namespace lorelin {

class SqliteRegistry;

class OpeningLock;

// The registry as it could be opened. `notice` is a German text for the user when it is not the one that was
// asked for; `lost` says that settings were lost or cannot be read, which a person has to be told of before
// anything else happens.
struct OpenedRegistry {
  std::unique_ptr<SqliteRegistry> registry;
  std::string notice;
  bool lost = false;
};

// A registry in an SQLite 3 database (https://www.sqlite.org/fileformat2.html) with a write-ahead log:
// several processes at once, and what was written survives a kill of the process at any moment.
class SqliteRegistry final : public Registry {
 public:
  // Opens or creates the store. A damaged file, or one of a newer version, is set aside under a new name
  // beside the old one; the notice of it comes with every opening until the loss is confirmed. Where nothing
  // can be written the settings live in memory, beginning with those of a store that can be read.
  [[nodiscard]] static OpenedRegistry Open(const std::string& file, Log& log);

  ~SqliteRegistry() override;
  SqliteRegistry(const SqliteRegistry&) = delete;
  SqliteRegistry& operator=(const SqliteRegistry&) = delete;

  bool CreateKey(RegistryHive hive, std::string_view path) override;
  bool KeyExists(RegistryHive hive, std::string_view path) override;
  bool DeleteKey(RegistryHive hive, std::string_view path) override;
  std::optional<std::vector<std::string>> SubkeyNames(RegistryHive hive, std::string_view path) override;
  std::optional<std::vector<std::string>> ValueNames(RegistryHive hive, std::string_view path) override;
  std::optional<RegistryValue> ReadValue(RegistryHive hive, std::string_view path,
                                         std::string_view name) override;
  bool WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                  const RegistryValue& value) override;
  bool DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) override;
  [[nodiscard]] RegistryState State() const override;
  [[nodiscard]] bool IsLasting() const override { return lasting_; }
  bool Together(const std::function<bool()>& changes) override;
  void ConfirmLoss() override;

 private:
  class Statement;
  struct StatementCloser {
    void operator()(sqlite3_stmt* statement) const;
  };
  struct DatabaseCloser {
    void operator()(sqlite3* database) const;
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, StatementCloser>;

  enum class OpenResult { Ok, Damaged, Newer, Inaccessible };
  struct Attempt {
    std::unique_ptr<SqliteRegistry> registry;
    OpenResult result;
  };
  using Connection = OpenResult (SqliteRegistry::*)(const std::string& name);

  // What is known of the store before it is opened.
  struct Past {
    bool written = false;    // there has been one in its place
    std::string lossNotice;  // of the one that a new one replaces
  };

  explicit SqliteRegistry(Log& log) : log_(log) {}

  static Attempt Try(Log& log, const std::string& name, Connection connection, Past past);
  static Attempt TryFile(const std::string& file, Log& log, const OpeningLock& lock);
  static std::unique_ptr<SqliteRegistry> OpenFile(const std::string& file, Log& log);
  static std::unique_ptr<SqliteRegistry> Repair(const std::string& file, Log& log);
  static std::unique_ptr<SqliteRegistry> CopyOf(const std::string& file, Log& log);
  static std::unique_ptr<SqliteRegistry> OpenInMemory(const std::string& file, Log& log);
  OpenResult OpenDatabase(const std::string& name, int flags);
  OpenResult Connect(const std::string& name);
  OpenResult ConnectToCopy(const std::string& name);
  OpenResult PrepareStore();
  OpenResult Check();
  OpenResult Judge(int code);
  int PrepareStatements();
  bool Run(sqlite3_stmt* statement, std::string_view what);
  bool InsertKeys(const std::string& folded, std::string_view spelled);
  // Runs the changes as one transaction.
  template <typename Changes>
  bool Transact(const Changes& changes);
  [[nodiscard]] bool Exists(const std::string& folded);
  std::vector<std::string> Names(sqlite3_stmt* statement, const std::string& folded);
  void LogProblem(std::string_view what);
  // What this store knows of the one that it replaces.
  [[nodiscard]] std::optional<std::string> Remembered(std::string_view what);

  Log& log_;
  Past past_;
  bool replacesLost_ = false;
  bool unreadable_ = false;  // there is a store, but this one is empty
  bool readFailed_ = false;
  bool lasting_ = true;
  bool together_ = false;
  // The statements go before the database.
  std::unique_ptr<sqlite3, DatabaseCloser> database_;
  Prepared begin_, commit_, readValue_, writeValue_, deleteValue_, deleteValues_, findKey_, insertKey_,
      deleteKey_, subkeys_, values_;
};

}  // namespace lorelin
