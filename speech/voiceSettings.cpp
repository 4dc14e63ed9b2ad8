#include "speech/voiceSettings.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/RuntimeError.h"
#include "base/conversion.h"
#include "base/textEncoding.h"
#include "voices/keptVoice.h"

namespace lorelin {
namespace {

const std::array kSliderDialogs{
    SliderDialog{VoiceParameter::Volume, "Sprachlautstärke",
                 "Sprach-/Stimmenlautstärke (0-100%):", setting::Volume, setting::Volume},
    SliderDialog{VoiceParameter::Speed, "Geschwindigkeit",
                 "Sprach-/Stimmengeschwindigkeit (0-100%):", setting::SpeedInDialog, setting::Speed},
    SliderDialog{VoiceParameter::Pitch, "Stimmenhelligkeit",
                 "Sprach-/Stimmenhelligkeit (0-100%):", setting::PitchInDialog, setting::Pitch}};

struct Language {
  std::int32_t id;
  std::string_view name;
};

constexpr std::array kLanguages{Language{1031, "Deutsch"},        Language{1033, "Englisch"},
                                Language{1034, "Spanisch"},       Language{1040, "Italienisch"},
                                Language{1043, "Niederländisch"}, Language{2070, "Portugiesisch"}};

// The engine counts voices in 16 bits.
std::int32_t VoiceNumber(std::int32_t position) {
  if (position < std::numeric_limits<std::int16_t>::min() ||
      position >= std::numeric_limits<std::int16_t>::max()) {
    throw RuntimeError(ErrorNumber::Overflow);
  }
  return position + 1;
}

struct VoiceValue {
  const SettingKey& key;
  std::string_view name;
  std::string_view command;
};

const std::array kVoiceValues{VoiceValue{setting::Voice, "Stimme", "Stimme wählen"},
                              VoiceValue{setting::Speed, "Geschwindigkeit", "Geschwindigkeit ändern"},
                              VoiceValue{setting::Pitch, "Helligkeit", "Helligkeit ändern"},
                              VoiceValue{setting::Volume, "Lautstärke", "Lautstärke ändern"}};

// A script may have stored a whole document.
std::string Shown(const std::string& stored) {
  constexpr std::size_t kMostShown = 30;
  if (CharacterCount(stored) <= kMostShown) return stored;
  return stored.substr(0, stored.size() - FromCharacter(stored, kMostShown).size()) + "…";
}

std::string Repair(const SettingKey& key, const std::string& stored) {
  const auto* const found = std::find_if(kVoiceValues.begin(), kVoiceValues.end(),
                                         [&](const VoiceValue& value) { return &value.key == &key; });
  if (found == kVoiceValues.end()) return {};
  return ": Für " + std::string(found->name) + " ist „" + Shown(stored) +
         "“ gespeichert, das ist keine brauchbare Zahl. Stellen Sie sie mit „" + std::string(found->command) +
         "“ neu ein.";
}

std::int32_t NumberOrDefault(const SettingsStore& settings, const SettingKey& key) {
  try {
    return ToLong(settings.Get(key));
  } catch (const RuntimeError&) {
    return ToLong(key.defaultText);
  }
}

}  // namespace

std::int32_t StoredNumber(const SettingsStore& settings, const SettingKey& key) {
  const std::string stored = settings.Get(key);
  try {
    return ToLong(stored);
  } catch (const RuntimeError& error) {
    throw RuntimeError(static_cast<ErrorNumber>(error.Number()), error.what() + Repair(key, stored));
  }
}

const SliderDialog& SliderDialogFor(VoiceParameter parameter) {
  return kSliderDialogs.at(static_cast<std::size_t>(parameter));
}

std::int32_t ShownPercentage(const SliderDialog& dialog, const SettingsStore& settings) {
  return std::clamp(NumberOrDefault(settings, dialog.shown), 0, 100);
}

std::string_view LanguageName(std::int32_t languageId) {
  const auto* const found = std::find_if(kLanguages.begin(), kLanguages.end(),
                                         [&](const Language& l) { return l.id == languageId; });
  return found != kLanguages.end() ? found->name : "Unbekannt";
}

std::vector<std::string> VoiceChoice::Names() const {
  std::vector<std::string> names;
  for (std::int32_t number = 1; number <= engine_.VoiceCount(); ++number)
    names.push_back(engine_.VoiceName(number));
  return names;
}

std::int32_t VoiceChoice::StoredPosition() const {
  return NumberOrDefault(settings_, setting::Voice);
}

std::string VoiceChoice::LanguageLabel(std::int32_t position) const {
  return "Sprache: " + std::string(LanguageName(engine_.VoiceLanguage(VoiceNumber(position))));
}

std::string VoiceChoice::GenderLabel(std::int32_t position) const {
  return engine_.VoiceGender(VoiceNumber(position)) == 1 ? "Geschlecht: Männlich" : "Geschlecht: Weiblich";
}

void VoiceChoice::Save(std::int32_t position) {
  StoreVoice(settings_, position, engine_.VoiceName(VoiceNumber(position)));
}

}  // namespace lorelin
