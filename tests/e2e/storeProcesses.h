#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>

#include "platform/linux/SqliteRegistry.h"
#include "tests/support/FakePorts.h"

namespace lorelin {

// A process of its own that runs `work` and ends with its result; nothing of the test's process is used on.
inline pid_t Start(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  return child;
}

// What the process ended with; -1 when it was killed.
inline int ResultOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

inline bool WriteText(Registry& registry, const std::string& name, const std::string& text) {
  return registry.WriteValue(RegistryHive::CurrentUser, "Software\\Lorelin", name,
                             {RegistryType::String, text});
}

inline std::string ReadText(Registry& registry, const std::string& name) {
  const auto value = registry.ReadValue(RegistryHive::CurrentUser, "Software\\Lorelin", name);
  return value ? value->data : "(fehlt)";
}

// SQLite's own complete check of the file.
inline void ExpectIntact(const std::string& file) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
  sqlite3_stmt* check = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(database, "PRAGMA integrity_check", -1, &check, nullptr), SQLITE_OK);
  ASSERT_EQ(sqlite3_step(check), SQLITE_ROW);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(check, 0)), "ok");
  sqlite3_finalize(check);
  sqlite3_close(database);
}

}  // namespace lorelin
