#include "export/spokenSentences.h"

#include <algorithm>

#include "base/textEncoding.h"
#include "speech/SentencePlaces.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

// Without blanks at the ends of lines and signs that no page may hold; blanks as one.
std::string Tidied(std::string_view text) {
  std::string tidied;
  for (const char c : text) {
    const bool blank = c == '\t' || c == ' ';
    if (c != '\n' && !blank && static_cast<unsigned char>(c) < 0x20) continue;
    if (c == '\n' && !tidied.empty() && tidied.back() == ' ') tidied.pop_back();
    const bool begins = tidied.empty() || tidied.back() == ' ' || tidied.back() == '\n';
    if (begins && (blank || c == '\n')) continue;
    tidied += blank ? ' ' : c;
  }
  tidied.erase(tidied.find_last_not_of(" \n") + 1);
  return tidied;
}

std::string OnOneLine(std::string_view text) {
  std::string line = Tidied(text);
  std::ranges::replace(line, '\n', ' ');
  return line;
}

std::string_view Between(std::string_view text, std::size_t begin, std::size_t end) {
  const std::string_view from = FromCharacter(text, begin);
  return from.substr(0, from.size() - FromCharacter(from, end - begin).size());
}

// The text of a part as it is gone through from its beginning to its end.
class Walk {
 public:
  Walk(std::string_view text, std::size_t first) : rest_(text), place_(first) {}

  // What stands between the last place and this one.
  std::string_view To(std::size_t place) {
    const std::string_view passed = Between(rest_, 0, place - place_);
    rest_.remove_prefix(passed.size());
    place_ = place;
    return passed;
  }

  // What stands behind the last place.
  [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
  std::size_t place_;
};

// Where a line begins that is nothing but the title of a chapter, and where it ends: no sentence goes on
// there.
std::vector<std::size_t> HeadingEdges(std::string_view text, CharacterRange part,
                                      std::span<const Chapter> chapters) {
  std::vector<std::size_t> edges;
  Walk walk(text, part.begin);
  std::size_t last = part.begin;
  for (const Chapter& chapter : chapters) {
    if (chapter.position < last || chapter.position >= part.end) continue;
    last = chapter.position;
    walk.To(last);
    const std::string_view rest = walk.Rest();
    const std::string_view line = rest.substr(0, rest.find('\n'));
    if (OnOneLine(line) != OnOneLine(chapter.title)) continue;
    edges.insert(edges.end(), {last, last + CharacterCount(line)});
  }
  return edges;
}

class Paragraphs {
 public:
  Paragraphs(std::span<const TimedWord> words, std::span<const Chapter> chapters)
      : words_(words), chapters_(chapters) {}

  void Add(CharacterRange place, std::string text, bool begins) {
    if (begins || all_.empty()) {
      all_.emplace_back();
      ends_.push_back(place.end);
    }
    ends_.back() = place.end;
    all_.back().sentences.push_back({std::move(text), ClipOf(place)});
  }
  // The chapters that begin in a paragraph or in the gap in front of it.
  void Mark(std::size_t first, std::size_t behind) {
    std::size_t next = 0;
    for (std::size_t number = 0; number < chapters_.size(); ++number) {
      const Chapter& chapter = chapters_[number];
      if (all_.empty() || chapter.position < first || chapter.position >= behind) continue;
      while (next + 1 < all_.size() && ends_[next] <= chapter.position) ++next;
      Mark(all_[next], number, chapter);
    }
  }
  std::vector<SpokenParagraph> Finish(milliseconds end) {
    SoundClip* last = nullptr;
    for (SpokenParagraph& paragraph : all_) {
      for (SpokenSentence& sentence : paragraph.sentences) {
        if (!sentence.clip) continue;
        if (last != nullptr) last->end = sentence.clip->begin;
        if (last == nullptr) sentence.clip->begin = milliseconds(0);
        last = &*sentence.clip;
      }
    }
    if (last != nullptr) last->end = std::max(end, last->begin);
    return std::move(all_);
  }

 private:
  std::optional<SoundClip> ClipOf(CharacterRange place) {
    while (next_ < words_.size() && words_[next_].written.begin < place.begin) ++next_;
    if (next_ == words_.size() || words_[next_].written.begin >= place.end) return std::nullopt;
    return SoundClip{.begin = words_[next_].time, .end = words_[next_].time};
  }
  // Only what is the title itself is a heading.
  static void Mark(SpokenParagraph& paragraph, std::size_t number, const Chapter& chapter) {
    paragraph.chapters.push_back(number);
    std::string text;
    for (const SpokenSentence& sentence : paragraph.sentences)
      text += (text.empty() ? "" : " ") + OnOneLine(sentence.text);
    if (paragraph.level == 0 && text == OnOneLine(chapter.title)) paragraph.level = chapter.level;
  }

  std::span<const TimedWord> words_;
  std::span<const Chapter> chapters_;
  std::size_t next_ = 0;
  std::vector<SpokenParagraph> all_;
  std::vector<std::size_t> ends_;
};

// Goes through the sentences of a part.
class Reader {
 public:
  Reader(std::string_view text, CharacterRange part, std::span<const TimedWord> words,
         std::span<const Chapter> chapters)
      : walk_(text, part.begin), edges_(HeadingEdges(text, part, chapters)), paragraphs_(words, chapters) {}

  void Read(CharacterRange sentence) {
    begins_ |= walk_.To(sentence.begin).find('\n') != std::string_view::npos;
    for (const std::size_t edge : edges_) {
      if (edge <= sentence.begin || edge >= sentence.end) continue;
      Add({sentence.begin, edge});
      sentence.begin = edge;
      begins_ = true;
    }
    Add(sentence);
  }
  [[nodiscard]] Paragraphs& Found() { return paragraphs_; }

 private:
  void Add(CharacterRange place) {
    std::string text = Tidied(walk_.To(place.end));
    if (text.empty()) return;
    paragraphs_.Add(place, std::move(text), begins_);
    begins_ = false;
  }

  Walk walk_;
  const std::vector<std::size_t> edges_;
  Paragraphs paragraphs_;
  bool begins_ = true;
};

}  // namespace

std::vector<SpokenParagraph> MakeSpokenParagraphs(std::string_view text, CharacterRange part,
                                                  std::span<const TimedWord> words, milliseconds end,
                                                  std::span<const Chapter> chapters) {
  const std::string_view wanted = Between(text, part.begin, part.end);
  SentencePlaces sentences{std::string(wanted)};
  Reader reader(wanted, part, words, chapters);
  for (std::size_t number = 0; sentences.Exists(number); ++number) {
    const CharacterRange found = sentences.Range(number);
    reader.Read({part.begin + found.begin, part.begin + found.end});
  }
  reader.Found().Mark(part.begin, part.end);
  return reader.Found().Finish(end);
}

}  // namespace lorelin
