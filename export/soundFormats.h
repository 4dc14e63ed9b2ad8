#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "ports/SoundFile.h"

namespace lorelin {

// A format as people know it.
struct SoundFormatName {
  SoundFormat format;
  std::string_view word;     // on the command line: "mp3"
  std::string_view ending;   // of its files: ".mp3"
  std::string_view caption;  // German
  bool hasQualities;
};

// A book with its sound, which is listed with them.
inline constexpr std::string_view kBookWord = "epub";
inline constexpr std::string_view kBookEnding = ".epub";
inline constexpr std::string_view kBookCaption = "EPUB mit Ton, zum Mitlesen";

[[nodiscard]] const std::array<SoundFormatName, kSoundFormats>& SoundFormatNames();
[[nodiscard]] const SoundFormatName& NameOf(SoundFormat format);
// By its word or, with its dot, by the ending of a file; in whatever case.
[[nodiscard]] std::optional<SoundFormat> SoundFormatNamed(std::string_view name);

// "klein", "mittel", "hoch".
[[nodiscard]] std::string_view NameOf(SoundQuality quality);
[[nodiscard]] std::optional<SoundQuality> SoundQualityNamed(std::string_view name);

// How long reading so many characters takes, roughly, at this speed (per cent).
[[nodiscard]] std::chrono::seconds EstimatedLength(std::size_t characters, std::int32_t speed);
// How large a file of speech becomes, roughly.
[[nodiscard]] std::uint64_t EstimatedBytes(std::chrono::seconds length, SoundFormat format,
                                           SoundQuality quality);

}  // namespace lorelin
