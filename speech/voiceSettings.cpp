#include "speech/voiceSettings.h"

#include <algorithm>
#include <array>
#include <limits>

#include "base/RuntimeError.h"
#include "base/conversion.h"

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

}  // namespace

const SliderDialog& SliderDialogFor(VoiceParameter parameter) {
  return kSliderDialogs.at(static_cast<std::size_t>(parameter));
}

std::int32_t ShownPercentage(const SliderDialog& dialog, const SettingsStore& settings) {
  return std::clamp(ToLong(settings.Get(dialog.shown)), 0, 100);
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
  return ToLong(settings_.Get(setting::Voice));
}

std::string VoiceChoice::LanguageLabel(std::int32_t position) const {
  return "Sprache: " + std::string(LanguageName(engine_.VoiceLanguage(VoiceNumber(position))));
}

std::string VoiceChoice::GenderLabel(std::int32_t position) const {
  return engine_.VoiceGender(VoiceNumber(position)) == 1 ? "Geschlecht: Männlich" : "Geschlecht: Weiblich";
}

void VoiceChoice::Save(std::int32_t position) {
  settings_.Save(setting::Voice, std::to_string(position));
}

}  // namespace lorelin
