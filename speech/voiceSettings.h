#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ports/DirectSS.h"
#include "ports/VoiceDialogs.h"
#include "settings/SettingsStore.h"
#include "speech/voiceGroups.h"

namespace lorelin {

// What the dialogs that set the voice show and store. They change settings only; the next text is spoken with
// them.

// One of the dialogs with a slider.
struct SliderDialog {
  VoiceParameter parameter;
  std::string_view caption;
  std::string_view label;
  const SettingKey& shown;   // read when it opens; its default is the dialog's own
  const SettingKey& stored;  // what speaking reads
};

[[nodiscard]] const SliderDialog& SliderDialogFor(VoiceParameter parameter);

// A stored value as the number that speaking takes. Throws RuntimeError 13 or 6 when it is none; the text
// tells which value it is and where to set it anew.
[[nodiscard]] std::int32_t StoredNumber(const SettingsStore& settings, const SettingKey& key);

// The percentage that the dialog shows when it opens, 0 to 100; a stored value beyond that is shown as the
// nearest. One that is no number (scripts store what they are given) is shown as the default: confirming the
// dialog repairs it.
[[nodiscard]] std::int32_t ShownPercentage(const SliderDialog& dialog, const SettingsStore& settings);

// "Deutsch" for 1031 and so on, "Unbekannt" for an identifier that the program does not know.
[[nodiscard]] std::string_view LanguageName(std::int32_t languageId);

// The list of voices; positions count from 0. `engine` and `settings` must outlive it.
class VoiceChoice {
 public:
  VoiceChoice(DirectSS& engine, SettingsStore& settings) : engine_(engine), settings_(settings) {}

  [[nodiscard]] std::vector<std::string> Names() const;
  // The stored position, the default for a text that is no number; it may lie beyond the list.
  [[nodiscard]] std::int32_t StoredPosition() const;
  // What the dialog says about the voice. Throw RuntimeError 6 for a position that no list can have.
  [[nodiscard]] std::string LanguageLabel(std::int32_t position) const;
  [[nodiscard]] std::string GenderLabel(std::int32_t position) const;
  // The same voices in groups, and the position of a natural one to propose; see voiceGroups.h.
  [[nodiscard]] std::vector<VoiceGroup> Groups(const std::vector<InstalledVoice>& natural) const {
    return GroupVoices(engine_, natural);
  }
  [[nodiscard]] std::int32_t Proposed(const std::vector<InstalledVoice>& natural,
                                      std::int32_t position) const {
    return ProposedVoice(engine_, natural, position);
  }
  void Save(std::int32_t position);

 private:
  DirectSS& engine_;
  SettingsStore& settings_;
};

}  // namespace lorelin
