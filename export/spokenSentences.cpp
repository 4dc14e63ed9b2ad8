#include "export/spokenSentences.h"

#include <algorithm>

#include "base/textEncoding.h"
#include "export/listItems.h"
#include "speech/SentencePlaces.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

std::string OnOneLine(std::string_view text) {
  std::string line = Tidied(text, 0).text;
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

// Where a sentence ends even when it seems to go on.
std::vector<std::size_t> Edges(std::string_view text, CharacterRange part,
                               std::span<const Chapter> chapters) {
  std::vector<std::size_t> edges = HeadingEdges(text, part, chapters);
  const std::vector<std::size_t> lines = LinesOfLists(text, part.begin);
  edges.insert(edges.end(), lines.begin(), lines.end());
  std::ranges::sort(edges);
  return edges;
}

class Paragraphs {
 public:
  Paragraphs(std::span<const TimedWord> words, std::span<const Chapter> chapters)
      : words_(words), chapters_(chapters) {}

  void Add(CharacterRange place, SpokenSentence sentence, bool begins) {
    if (begins || all_.empty()) {
      all_.emplace_back();
      ends_.push_back(place.end);
    }
    ends_.back() = place.end;
    sentence.clip = ClipOf(place);
    all_.back().sentences.push_back(std::move(sentence));
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
  // `whole` holds the text, and has the formats.
  Reader(std::string_view whole, std::string_view text, CharacterRange part, std::span<const TimedWord> words,
         std::span<const Chapter> chapters, std::span<const TextRun> formats)
      : whole_(whole),
        walk_(text, part.begin),
        edges_(Edges(text, part, chapters)),
        paragraphs_(words, chapters),
        emphases_(formats) {}

  void Read(CharacterRange sentence) {
    begins_ |= walk_.To(sentence.begin).find('\n') != std::string_view::npos;
    for (; next_ < edges_.size() && edges_[next_] < sentence.end; ++next_) {
      const std::size_t edge = edges_[next_];
      if (edge <= sentence.begin) continue;
      Add({sentence.begin, edge});
      sentence.begin = edge;
      begins_ = true;
    }
    Add(sentence);
  }
  [[nodiscard]] Paragraphs& Found() { return paragraphs_; }

 private:
  void Add(CharacterRange place) {
    const std::string_view raw = walk_.To(place.end);
    SourcedText text = Tidied(raw, static_cast<std::size_t>(raw.data() - whole_.data()));
    if (text.text.empty()) return;
    std::vector<Emphasis> emphasis = emphases_.Of(text);
    paragraphs_.Add(place, {std::move(text.text), std::nullopt, std::move(emphasis)}, begins_);
    begins_ = false;
  }

  const std::string_view whole_;
  Walk walk_;
  const std::vector<std::size_t> edges_;
  std::size_t next_ = 0;  // of the edges
  Paragraphs paragraphs_;
  Emphases emphases_;
  bool begins_ = true;
};

}  // namespace

std::vector<SpokenParagraph> MakeSpokenParagraphs(std::string_view text, CharacterRange part,
                                                  std::span<const TimedWord> words, milliseconds end,
                                                  std::span<const Chapter> chapters,
                                                  std::span<const TextRun> formats) {
  const std::string_view wanted = Between(text, part.begin, part.end);
  SentencePlaces sentences{std::string(wanted)};
  Reader reader(text, wanted, part, words, chapters, formats);
  for (std::size_t number = 0; sentences.Exists(number); ++number) {
    const CharacterRange found = sentences.Range(number);
    reader.Read({part.begin + found.begin, part.begin + found.end});
  }
  reader.Found().Mark(part.begin, part.end);
  std::vector<SpokenParagraph> paragraphs = reader.Found().Finish(end);
  FindListItems(paragraphs);
  return paragraphs;
}

}  // namespace lorelin
