#include "export/soundFormats.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace lorelin {
namespace {

constexpr std::array<SoundFormatName, kSoundFormats> kFormats{
    {{SoundFormat::Wav, "wav", ".wav", "WAV, unkomprimiert", false},
     {SoundFormat::Mp3, "mp3", ".mp3", "MP3, für alle Geräte", true},
     {SoundFormat::Opus, "opus", ".opus", "Opus, am kleinsten", true},
     {SoundFormat::Vorbis, "ogg", ".ogg", "Ogg Vorbis", true},
     {SoundFormat::Flac, "flac", ".flac", "FLAC, verlustfrei", false}}};

constexpr std::array<std::string_view, kSoundQualities> kQualities{"klein", "mittel", "hoch"};

// Measured on German speech; by SoundFormat and SoundQuality.
constexpr std::array<std::array<double, kSoundQualities>, kSoundFormats> kKilobits{
    {{353, 353, 353}, {33, 48, 64}, {17, 23, 38}, {34, 45, 59}, {172, 172, 172}}};

}  // namespace

const std::array<SoundFormatName, kSoundFormats>& SoundFormatNames() {
  return kFormats;
}

const SoundFormatName& NameOf(SoundFormat format) {
  return kFormats.at(static_cast<std::size_t>(format));
}

std::optional<SoundFormat> SoundFormatNamed(std::string_view name) {
  const std::string lower = LowerAscii(name);
  const auto* const found = std::find_if(kFormats.begin(), kFormats.end(), [&](const SoundFormatName& known) {
    return lower == known.word || lower == known.ending;
  });
  if (found == kFormats.end()) return std::nullopt;
  return found->format;
}

std::string_view NameOf(SoundQuality quality) {
  return kQualities.at(static_cast<std::size_t>(quality));
}

std::optional<SoundQuality> SoundQualityNamed(std::string_view name) {
  const auto* const found = std::find(kQualities.begin(), kQualities.end(), LowerAscii(name));
  if (found == kQualities.end()) return std::nullopt;
  return static_cast<SoundQuality>(found - kQualities.begin());
}

// Words a minute grow with the per cent; a German word has some six characters and a blank.
std::chrono::seconds EstimatedLength(std::size_t characters, std::int32_t speed) {
  constexpr double kSlowest = 80;
  constexpr double kFastest = 450;
  constexpr double kCharacters = 5.6;
  const double words = kSlowest + (kFastest - kSlowest) * std::clamp(speed, 0, 100) / 100;
  const double seconds = static_cast<double>(characters) * 60 / (words * kCharacters);
  return std::chrono::seconds(std::llround(seconds));
}

std::uint64_t EstimatedBytes(std::chrono::seconds length, SoundFormat format, SoundQuality quality) {
  const double kilobits =
      kKilobits.at(static_cast<std::size_t>(format)).at(static_cast<std::size_t>(quality));
  return static_cast<std::uint64_t>(kilobits * 125 * static_cast<double>(length.count()));
}

}  // namespace lorelin
