#include "export/subtitles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

#include "base/text.h"
#include "base/textEncoding.h"
#include "speech/SentencePlaces.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kLine = 42;  // characters, as subtitles have them
constexpr std::size_t kMost = 2 * kLine;

// The text by its characters.
class Characters {
 public:
  Characters(std::string_view text, std::size_t first) : first_(first) {
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t length = std::max<std::size_t>(Utf8Length(text.substr(at)), 1);
      characters_.push_back(text.substr(at, length));
      at += length;
    }
  }

  [[nodiscard]] bool IsBlank(std::size_t place) const {
    const std::string_view c = At(place);
    return c == " " || c == "\t" || c == "\n" || c == "\u00A0";
  }
  [[nodiscard]] bool EndsClause(std::size_t place) const {
    constexpr std::array<std::string_view, 6> kSigns{",", ";", ":", "–", "—", ")"};
    return std::find(kSigns.begin(), kSigns.end(), At(place)) != kSigns.end();
  }
  [[nodiscard]] bool HasLineEnd(CharacterRange range) const {
    for (std::size_t i = range.begin; i < range.end; ++i) {
      if (At(i) == "\n") return true;
    }
    return false;
  }
  // On one line, blanks as one.
  [[nodiscard]] std::string Text(CharacterRange range) const {
    std::string text;
    for (std::size_t i = range.begin; i < range.end; ++i) {
      if (!IsBlank(i)) {
        text += At(i);
      } else if (!text.empty() && text.back() != ' ') {
        text += ' ';
      }
    }
    return std::string(WithoutBlanks(text));
  }

 private:
  [[nodiscard]] std::string_view At(std::size_t place) const { return characters_.at(place - first_); }

  std::size_t first_;
  std::vector<std::string_view> characters_;
};

// Where a sentence that is too long is cut: behind the last comma that leaves enough on both sides, else
// behind the last blank.
std::size_t CutOf(const Characters& characters, CharacterRange sentence) {
  std::size_t blank = 0;
  for (std::size_t i = sentence.begin + kMost; i > sentence.begin + kMost / 3; --i) {
    if (!characters.IsBlank(i)) continue;
    if (characters.EndsClause(i - 1)) return i + 1;
    if (blank == 0) blank = i + 1;
  }
  return blank != 0 ? blank : sentence.begin + kMost;
}

// The pieces of a text that become cues.
class Pieces {
 public:
  explicit Pieces(const Characters& characters) : characters_(characters) {}

  // `joins`: it may share a cue with the one before.
  void Add(CharacterRange sentence, bool joins) {
    while (sentence.end - sentence.begin > kMost) {
      const std::size_t cut = CutOf(characters_, sentence);
      pieces_.push_back({sentence.begin, cut});
      sentence.begin = cut;
      joins = false;
    }
    if (joins && !pieces_.empty() && sentence.end - pieces_.back().begin <= kLine) {
      pieces_.back().end = sentence.end;
    } else {
      pieces_.push_back(sentence);
    }
  }
  [[nodiscard]] const std::vector<CharacterRange>& All() const { return pieces_; }

 private:
  const Characters& characters_;
  std::vector<CharacterRange> pieces_;
};

std::string_view PartOf(std::string_view text, CharacterRange part) {
  const std::string_view from = FromCharacter(text, part.begin);
  const std::string_view behind = FromCharacter(from, part.end - part.begin);
  return from.substr(0, from.size() - behind.size());
}

Pieces FindPieces(std::string_view part, std::size_t first, const Characters& characters) {
  SentencePlaces sentences{std::string(part)};
  Pieces pieces(characters);
  std::size_t end = first;
  for (std::size_t number = 0; sentences.Exists(number); ++number) {
    const CharacterRange found = sentences.Range(number);
    const CharacterRange range{first + found.begin, first + found.end};
    if (range.begin >= range.end) continue;
    pieces.Add(range, !characters.HasLineEnd({end, range.begin}));
    end = range.end;
  }
  return pieces;
}

std::string Formatted(const char* format, milliseconds time, long long fraction) {
  std::array<char, 48> text{};
  const long long all = time.count() / 1000;
  std::snprintf(text.data(), text.size(), format, all / 3600, all / 60 % 60, all % 60, fraction);
  return text.data();
}

// In two lines of about the same length.
std::string Broken(std::string text) {
  if (CharacterCount(text) <= kLine) return text;
  const auto middle = static_cast<std::ptrdiff_t>(text.size() / 2);
  std::ptrdiff_t best = -1;
  for (std::size_t at = text.find(' '); at != std::string::npos; at = text.find(' ', at + 1)) {
    const auto place = static_cast<std::ptrdiff_t>(at);
    if (best < 0 || std::abs(place - middle) < std::abs(best - middle)) best = place;
  }
  if (best >= 0) text[static_cast<std::size_t>(best)] = '\n';
  return text;
}

std::string Srt(std::span<const Cue> cues) {
  std::string file;
  std::size_t number = 0;
  const auto time = [](milliseconds t) {
    return Formatted("%02lld:%02lld:%02lld,%03lld", t, t.count() % 1000);
  };
  for (const Cue& cue : cues) {
    file += std::to_string(++number) + "\n" + time(cue.begin) + " --> " + time(cue.end) + "\n" +
            Broken(cue.text) + "\n\n";
  }
  return file;
}

std::string Vtt(std::span<const Cue> cues) {
  std::string file = "WEBVTT\n\n";
  const auto time = [](milliseconds t) {
    return Formatted("%02lld:%02lld:%02lld.%03lld", t, t.count() % 1000);
  };
  for (const Cue& cue : cues) {
    std::string text = Broken(cue.text);
    ReplaceAll(text, "&", "&amp;");
    ReplaceAll(text, "<", "&lt;");
    ReplaceAll(text, ">", "&gt;");
    file += time(cue.begin) + " --> " + time(cue.end) + "\n" + text + "\n\n";
  }
  return file;
}

std::string LrcTime(milliseconds time) {
  std::array<char, 40> text{};
  const long long all = time.count() / 10;
  std::snprintf(text.data(), text.size(), "[%02lld:%02lld.%02lld]", all / 6000, all / 100 % 60, all % 100);
  return text.data();
}

std::string Lrc(std::span<const Cue> cues, const SoundTags& tags) {
  std::string file;
  const auto head = [&](const char* name, const std::string& value) {
    if (!value.empty()) file += std::string("[") + name + ":" + value + "]\n";
  };
  head("ti", tags.title);
  head("ar", tags.author);
  head("al", tags.album);
  for (const Cue& cue : cues) file += LrcTime(cue.begin) + cue.text + "\n";
  return file;
}

}  // namespace

std::string_view EndingOf(SubtitleFormat format) {
  constexpr std::array<std::string_view, 3> kEndings{".srt", ".lrc", ".vtt"};
  return kEndings.at(static_cast<std::size_t>(format));
}

std::optional<SubtitleFormat> SubtitleFormatNamed(std::string_view word) {
  const std::string lower = "." + LowerAscii(word);
  for (const SubtitleFormat format : {SubtitleFormat::Srt, SubtitleFormat::Lrc, SubtitleFormat::Vtt}) {
    if (lower == EndingOf(format)) return format;
  }
  return std::nullopt;
}

std::vector<Cue> MakeCues(std::string_view text, CharacterRange part, std::span<const TimedWord> words,
                          milliseconds end) {
  const std::string_view wanted = PartOf(text, part);
  const Characters characters(wanted, part.begin);
  const Pieces pieces = FindPieces(wanted, part.begin, characters);
  std::vector<Cue> cues;
  std::size_t next = 0;
  for (const CharacterRange& piece : pieces.All()) {
    while (next < words.size() && words[next].written.begin < piece.begin) ++next;
    if (next == words.size()) break;
    if (words[next].written.begin >= piece.end) continue;
    const milliseconds begin = words[next].time;
    if (!cues.empty()) cues.back().end = begin;
    cues.push_back({begin, end, characters.Text(piece)});
  }
  return cues;
}

std::string WriteSubtitles(std::span<const Cue> cues, SubtitleFormat format, const SoundTags& tags) {
  switch (format) {
    case SubtitleFormat::Srt:
      return Srt(cues);
    case SubtitleFormat::Lrc:
      return Lrc(cues, tags);
    case SubtitleFormat::Vtt:
      break;
  }
  return Vtt(cues);
}

}  // namespace lorelin
