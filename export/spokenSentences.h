#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/emphasis.h"
#include "export/subtitles.h"
#include "ports/DocumentInfo.h"

namespace lorelin {

// What of a sound belongs to a sentence.
struct SoundClip {
  std::chrono::milliseconds begin{};
  std::chrono::milliseconds end{};

  bool operator==(const SoundClip&) const = default;
};

// A sentence as it is written, with the ends of its lines.
struct SpokenSentence {
  std::string text;
  std::optional<SoundClip> clip;     // nothing for what is not spoken
  std::vector<Emphasis> emphasis{};  // in the order of their places

  bool operator==(const SpokenSentence&) const = default;
};

enum class ListKind { None, Bullets, Numbers };

struct ListItem {
  ListKind kind = ListKind::None;
  int number = 0;

  bool operator==(const ListItem&) const = default;
};

// A paragraph of a chapter.
struct SpokenParagraph {
  std::vector<SpokenSentence> sentences;
  int level = 0;                      // of a heading, from 1; 0 for none
  std::vector<std::size_t> chapters;  // that begin here, by their numbers
  ListItem item{};                    // whose mark is not part of the sentences

  bool operator==(const SpokenParagraph&) const = default;
};

// The text between these characters, whole. A sentence is heard from its first word to the first word of the
// next one: the first from the sound's beginning, the last up to `end`. A heading is a paragraph of its own.
// `formats` are those of the whole text.
[[nodiscard]] std::vector<SpokenParagraph> MakeSpokenParagraphs(std::string_view text, CharacterRange part,
                                                                std::span<const TimedWord> words,
                                                                std::chrono::milliseconds end,
                                                                std::span<const Chapter> chapters,
                                                                std::span<const TextRun> formats = {});

}  // namespace lorelin
