#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace lorelin {

// What a text can be rendered into besides the plain WAV file.
enum class SoundFormat : std::uint8_t { Wav, Mp3, Opus, Vorbis, Flac };
inline constexpr int kSoundFormats = 5;

// How much room the sound may take. What loses nothing has only one.
enum class SoundQuality : std::uint8_t { Small, Usual, High };
inline constexpr int kSoundQualities = 3;

struct SoundChapter {
  std::string title;
  std::chrono::milliseconds begin{};

  bool operator==(const SoundChapter&) const = default;
};

// What a sound file tells of itself. A text is "" where there is nothing to tell.
struct SoundTags {
  std::string title;
  std::string author;
  std::string album;                   // the book that a chapter with a file of its own belongs to
  std::string language;                // RFC 5646, "de-AT"
  int track = 0;                       // from 1; 0 for a file that stands alone
  int tracks = 0;                      // how many there are
  std::chrono::milliseconds length{};  // where the last chapter ends
  std::vector<SoundChapter> chapters;

  bool operator==(const SoundTags&) const = default;
};

}  // namespace lorelin
