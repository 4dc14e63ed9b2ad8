#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ports/SoundFile.h"
#include "speech/writtenRange.h"

namespace lorelin {

enum class SubtitleFormat : std::uint8_t { Srt, Lrc, Vtt };

// ".srt" and so on.
[[nodiscard]] std::string_view EndingOf(SubtitleFormat format);
[[nodiscard]] std::optional<SubtitleFormat> SubtitleFormatNamed(std::string_view word);

// When what is written in these characters of a text begins to be heard.
struct TimedWord {
  CharacterRange written;
  std::chrono::milliseconds time{};

  bool operator==(const TimedWord&) const = default;
};

// A line that is shown while it is heard.
struct Cue {
  std::chrono::milliseconds begin{};
  std::chrono::milliseconds end{};
  std::string text;  // as it is written, on one line

  bool operator==(const Cue&) const = default;
};

// The text between these characters as cues: a sentence, a part of a long one that ends at a comma where
// there is one, or several short ones of a paragraph. Each begins with its first word and is shown until the
// next begins, the last until `end`; what no word was heard of is left out.
[[nodiscard]] std::vector<Cue> MakeCues(std::string_view text, CharacterRange part,
                                        std::span<const TimedWord> words, std::chrono::milliseconds end);

// The file's bytes: UTF-8. LRC has the tags in its head.
[[nodiscard]] std::string WriteSubtitles(std::span<const Cue> cues, SubtitleFormat format,
                                         const SoundTags& tags);

}  // namespace lorelin
