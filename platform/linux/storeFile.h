#pragma once

#include <string>

#include "ports/Log.h"

namespace lorelin {

// The file that holds the settings, and what lies beside it: the database's log ("-wal", "-shm") and a lock
// file (".lock"). Paths are UTF-8.

// Opening (shared) and setting aside (exclusive) keep apart: SQLite opens a store and its log by name one
// after the other, and would take the damaged store's file together with the new store's log. The lock file
// remembers as well that there has been a store, so that one that was emptied is no new one.
class OpeningLock {
 public:
  // `operation` is LOCK_SH or LOCK_EX of flock(2); waits for the others.
  OpeningLock(const std::string& file, int operation);
  ~OpeningLock();
  OpeningLock(const OpeningLock&) = delete;
  OpeningLock& operator=(const OpeningLock&) = delete;

  // From now on the store counts as one that was written.
  void RememberStore() const;

 private:
  int lock_;
};

// Whether a store has been written here at any time.
[[nodiscard]] bool WasWritten(const std::string& file);
// Whether there is a file of no bytes in the place of a store that was written.
[[nodiscard]] bool WasEmptied(const std::string& file);
// Whether there is a store, or something that keeps one from being seen: only "no such file" is a "no".
[[nodiscard]] bool MayExist(const std::string& file);
// Whether the log beside the store holds changes.
[[nodiscard]] bool HasLog(const std::string& file);
// Makes the folder, for the user alone, and answers whether a store there can be read and written.
[[nodiscard]] bool CanWriteBeside(const std::string& file);
// Makes the file, empty, when it is missing, and lets nobody but the owner read it or its log.
void CloseStore(const std::string& file);
// A name beside the file that nothing has yet.
[[nodiscard]] std::string FreeName(const std::string& file, const std::string& reason);
// Renames the store with its log.
bool SetAside(const std::string& file, const std::string& name, Log& log);

}  // namespace lorelin
