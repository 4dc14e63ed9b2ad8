#include "settings/modSettings.h"

#include "base/RuntimeError.h"
#include "base/conversion.h"

namespace lorelin {
namespace {

constexpr std::string_view kSection = "settings";

const char* CheckText(bool checked) {
  return checked ? "1" : "0";
}

}  // namespace

std::string ModSettings::GetPref(std::string_view key, std::string_view defaultText) const {
  return store_.GetSetting(kSection, key, defaultText);
}

bool ModSettings::SavePref(std::string_view key, std::string_view value) {
  return store_.SaveSetting(kSection, key, value);
}

bool ModSettings::Checked(std::string_view key, std::string_view defaultText) const {
  try {
    return ToLong(GetPref(key, defaultText)) != 0;
  } catch (const RuntimeError&) {
    return ToLong(defaultText) != 0;
  }
}

SettingsValues ModSettings::GetSettings() {
  SettingsValues values;
  values.prefix = GetPref("Prefix", "");
  values.suffix = GetPref("Suffix", "");
  values.allowRead = Checked("VTSAllowRead", "1");
  values.allowVTS = Checked("VTSAllow", "1");
  values.allowDownload = Checked("VTSAllowDownload", "1");
  values.readTitle = Checked("ReadTitleOnAppChange", "0");
  values.readClipboard = Checked("ReadClipboardOnChange", "0");
  values.launchMailProgram = store_.Get(setting::LaunchMailProgram) == "true";
  if (GetPref("ShowWB", "1") == "1") {
    values.start = StartOption::Interactive;
  } else if (GetPref("ShowWB", "1") == "0") {
    SavePref("ShowWB", "0");  // harmless, and as it always was
    values.start = StartOption::Text;
  }
  if (GetPref("ShowLastDoc", "0") == "1") values.start = StartOption::LastDocument;
  return values;
}

bool ModSettings::ApplySettings(const SettingsValues& values) {
  return store_.Together([&] {
    return SavePref("Prefix", values.prefix) && SavePref("Suffix", values.suffix) &&
           SavePref("VTSAllowRead", CheckText(values.allowRead)) &&
           SavePref("VTSAllow", CheckText(values.allowVTS)) &&
           SavePref("VTSAllowDownload", CheckText(values.allowDownload)) &&
           store_.Save(setting::LaunchMailProgram, values.launchMailProgram ? "true" : "false") &&
           SavePref("ReadTitleOnAppChange", CheckText(values.readTitle)) &&
           SavePref("ReadClipboardOnChange", CheckText(values.readClipboard)) &&
           (!values.start || SaveStart(*values.start));
  });
}

bool ModSettings::SaveStart(StartOption start) {
  return SavePref("ShowWB", CheckText(start == StartOption::Interactive)) &&
         SavePref("ShowLastDoc", CheckText(start == StartOption::LastDocument));
}

bool ModSettings::WantsRestart(const SettingsValues& values) const {
  return Checked("ReadTitleOnAppChange", "0") != values.readTitle;
}

}  // namespace lorelin
