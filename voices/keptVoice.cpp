#include "voices/keptVoice.h"

#include <optional>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/conversion.h"

namespace lorelin {
namespace {

constexpr char kBehindPosition = ':';

std::optional<std::int32_t> Position(const std::string& text) {
  try {
    return ToLong(text);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// The name that was stored for the position that is stored.
std::string NameOfStored(const SettingsStore& settings) {
  const std::string stored = settings.Get(setting::VoiceName);
  const auto end = stored.find(kBehindPosition);
  if (end == std::string::npos || stored.substr(0, end) != settings.Get(setting::Voice)) return {};
  return stored.substr(end + 1);
}

}  // namespace

void StoreVoice(SettingsStore& settings, std::int32_t position, const std::string& name) {
  const std::string place = std::to_string(position);
  settings.Save(setting::Voice, place);
  settings.Save(setting::VoiceName, place + kBehindPosition + name);
}

std::string StoredVoiceName(const SettingsStore& settings, DirectSS& engine) {
  const auto position = Position(settings.Get(setting::Voice));
  if (!position || *position < 0 || *position >= engine.VoiceCount()) return {};
  return engine.VoiceName(*position + 1);
}

KeptVoice KeepVoice(SettingsStore& settings, DirectSS& engine) {
  const std::string name = NameOfStored(settings);
  if (name.empty() || StoredVoiceName(settings, engine) == name) return KeptVoice::There;
  for (std::int32_t number = 1; number <= engine.VoiceCount(); ++number) {
    if (engine.VoiceName(number) != name) continue;
    StoreVoice(settings, number - 1, name);
    return KeptVoice::Moved;
  }
  StoreVoice(settings, ToLong(setting::Voice.defaultText), name);
  return KeptVoice::Gone;
}

}  // namespace lorelin
