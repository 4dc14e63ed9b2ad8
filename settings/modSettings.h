#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/SettingsStore.h"

namespace lorelin {

// What Lorelin begins with; the numbers are those of the dialog's options.
enum class StartOption { Interactive = 0, Text = 1, LastDocument = 2 };

// What the settings dialog shows and stores.
struct SettingsValues {
  std::string prefix;
  std::string suffix;
  bool allowRead = true;
  bool allowVTS = true;
  bool allowDownload = true;
  bool launchMailProgram = false;
  bool readTitle = false;
  bool readClipboard = false;
  std::optional<StartOption> start;  // absent when the stored values choose none

  bool operator==(const SettingsValues&) const = default;
};

// Reading and writing of the preferences by the settings dialog. User-interface thread only.
class ModSettings {
 public:
  // Does not own the store.
  explicit ModSettings(SettingsStore& store) : store_(store) {}

  [[nodiscard]] std::string GetPref(std::string_view key, std::string_view defaultText) const;
  bool SavePref(std::string_view key, std::string_view value);
  // A number text other than 0 is a checked box; a text that is no number counts as the default.
  [[nodiscard]] SettingsValues GetSettings();
  // Stores all of them or, as far as the system can do that, none; whether they were stored.
  bool ApplySettings(const SettingsValues& values);
  // Whether what is stored outlives the program.
  [[nodiscard]] bool IsLasting() const { return store_.IsLasting(); }
  // Whether the shown value of the one option that wants a restart is another one than the stored.
  [[nodiscard]] bool WantsRestart(const SettingsValues& values) const;

 private:
  bool SaveStart(StartOption start);
  [[nodiscard]] bool Checked(std::string_view key, std::string_view defaultText) const;

  SettingsStore& store_;
};

}  // namespace lorelin
