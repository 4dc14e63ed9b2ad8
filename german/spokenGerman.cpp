#include "german/spokenGerman.h"

#include <algorithm>

#include "german/characters.h"
#include "german/pictures.h"
#include "german/readings.h"
#include "german/sentences.h"

namespace lorelin {
namespace {

constexpr int kMostPasses = 4;

// Puts the spoken text together and counts along.
class Builder {
 public:
  explicit Builder(std::string_view written, std::size_t begin) : written_(written), copied_(begin) {}

  // From one byte of the written text to another something else is said.
  void Replace(std::size_t begin, std::size_t end, std::string_view words) {
    CopyTo(begin);
    if (written_.substr(begin, end - begin) == words) return;
    // Bytes that are no character, before and behind what is left out, could be one together.
    const bool stray = end < written_.size() && CharacterAt(written_, end).code == kNoCharacter;
    if (words.empty() && stray) words = " ";
    SpokenRun run{spokenAt_, 0, writtenAt_, 0};
    result_.text += words;
    spokenAt_ += CountCharacters(words);
    writtenAt_ += CountCharacters(written_.substr(begin, end - begin));
    run.spokenEnd = spokenAt_;
    run.writtenEnd = writtenAt_;
    result_.runs.push_back(run);
    copied_ = end;
  }

  SpokenText Finish(std::size_t end) {
    CopyTo(end);
    return std::move(result_);
  }

 private:
  void CopyTo(std::size_t end) {
    const auto part = written_.substr(copied_, end - copied_);
    const std::size_t characters = CountCharacters(part);
    result_.text += part;
    spokenAt_ += characters;
    writtenAt_ += characters;
    copied_ = end;
  }

  std::string_view written_;
  std::size_t copied_;
  std::size_t spokenAt_ = 0;
  std::size_t writtenAt_ = 0;
  SpokenText result_;
};

char32_t Small(char32_t c) {
  if (c >= U'A' && c <= U'Z') return c + 32;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  return c;
}

// The bytes of the text that are the word; 0 when it does not stand there.
std::size_t LengthOfMatch(std::string_view text, const OwnWord& word) {
  if (word.matchCase) return text.starts_with(word.written) ? word.written.size() : 0;
  std::size_t at = 0;
  for (std::size_t i = 0; i < word.written.size();) {
    if (at >= text.size()) return 0;
    const Character wanted = CharacterAt(word.written, i);
    const Character found = CharacterAt(text, at);
    if (Small(wanted.code) != Small(found.code)) return 0;
    i += wanted.length;
    at += found.length;
  }
  return at;
}

bool IsWordCharacterAt(std::string_view text, std::size_t at) {
  if (at >= text.size()) return false;
  const char32_t code = CharacterAt(text, at).code;
  return IsLetter(code) || (code >= U'0' && code <= U'9');
}

bool EndsInWord(std::string_view text) {
  if (text.empty()) return false;
  const auto last = static_cast<unsigned char>(text.back());
  return last >= 0x80 || IsLetter(last) || (last >= '0' && last <= '9');
}

// Words never grow together with what they touch.
std::string WithGaps(const Tokens& tokens, std::size_t i, std::size_t end, std::string words) {
  if (words.empty()) return words;
  if (i > 0 && !tokens.FreeBefore(i) && IsWordCharacterAt(words, 0)) words.insert(0, " ");
  const bool touches = tokens.IsWord(end) || tokens.IsNumber(end);
  if (touches && EndsInWord(words)) words += ' ';
  return words;
}

bool OpensSentence(const Tokens& tokens, std::size_t i) {
  while (i > 0) {
    --i;
    if (!tokens.IsGap(i) && !IsOneOf(tokens.View(i), {"„", "\"", "(", "»", "‚"})) return false;
  }
  return true;
}

std::string PictureWords(const Tokens& tokens, std::size_t i, const Picture& picture) {
  if (picture.name.empty()) return {};
  const bool before = i > 0 && !tokens.IsGap(i - 1) && !IsOneOf(tokens.View(i - 1), {"(", "„", "\"", "["});
  const bool behind =
      picture.end < tokens.Count() && (tokens.IsWord(picture.end) || tokens.IsNumber(picture.end));
  return (before ? " " : "") + std::string(picture.name) + (behind ? " " : "");
}

}  // namespace

GermanSpeller::GermanSpeller(SpellingOptions options) : options_(std::move(options)) {
  std::stable_sort(options_.ownWords.begin(), options_.ownWords.end(),
                   [](const OwnWord& a, const OwnWord& b) { return a.written.size() > b.written.size(); });
  for (std::size_t i = 0; i < options_.ownWords.size(); ++i) {
    const std::string& written = options_.ownWords[i].written;
    if (!written.empty()) ownWords_[Small(CharacterAt(written, 0).code)].push_back(i);
  }
}

GermanSpeller::OwnMatch GermanSpeller::OwnWordAt(const Tokens& tokens, std::size_t i) const {
  if (ownWords_.empty() || tokens.IsBlank(i) || !tokens.FreeBefore(i)) return {};
  const std::size_t begin = tokens.At(i).begin;
  const std::size_t last = tokens.At(tokens.Count() - 1).end;
  const auto text = tokens.Text().substr(begin, last - begin);
  const auto list = ownWords_.find(Small(CharacterAt(text, 0).code));
  if (list == ownWords_.end()) return {};
  for (const std::size_t index : list->second) {
    const OwnWord& word = options_.ownWords[index];
    const std::size_t length = LengthOfMatch(text, word);
    if (length == 0) continue;
    const bool goesOn = EndsInWord(word.written) && IsWordCharacterAt(text, length);
    if (!word.wholeWord || !goesOn) return {&word, begin + length};
  }
  return {};
}

SpokenText GermanSpeller::SpellSentence(const Tokens& tokens, bool withOwnWords) const {
  if (tokens.Count() == 0) return {};
  Builder builder(tokens.Text(), tokens.At(0).begin);
  for (std::size_t i = 0; i < tokens.Count();) {
    if (const OwnMatch own = withOwnWords ? OwnWordAt(tokens, i) : OwnMatch{}; own.word != nullptr) {
      builder.Replace(tokens.At(i).begin, own.end, own.word->spoken);
      while (i < tokens.Count() && tokens.At(i).begin < own.end) ++i;
      continue;
    }
    if (const Picture picture = PictureAt(tokens, i); picture.end != 0) {
      builder.Replace(tokens.At(i).begin, tokens.At(picture.end - 1).end,
                      options_.speakEmoji ? PictureWords(tokens, i, picture) : std::string());
      i = picture.end;
      continue;
    }
    const Found found = ReadingAt(tokens, i);
    if (!found) {
      ++i;
      continue;
    }
    std::string words = WithGaps(tokens, i, found->end, found->words);
    // A small letter behind a full stop would take the sentence's end away.
    if (OpensSentence(tokens, i) && !tokens.IsWord(i)) words = WithUpperStart(words);
    builder.Replace(tokens.At(i).begin, tokens.At(found->end - 1).end, words);
    i = found->end;
  }
  return builder.Finish(tokens.At(tokens.Count() - 1).end);
}

SpokenText GermanSpeller::SpellUntilItStays(const Tokens& tokens, bool withOwnWords) const {
  SpokenText spoken = SpellSentence(tokens, withOwnWords);
  if (spoken.runs.empty()) return spoken;
  for (int pass = 0; pass < kMostPasses; ++pass) {
    SpokenText again = SpellSentences(spoken.text, false);
    if (again.runs.empty()) return spoken;
    spoken.runs = JoinRuns(spoken.runs, again.runs);
    spoken.text = std::move(again.text);
  }
  // Something that never comes to rest is left alone.
  const std::size_t begin = tokens.At(0).begin;
  return {std::string(tokens.Text().substr(begin, tokens.At(tokens.Count() - 1).end - begin)), {}};
}

namespace {

void Append(SpokenText& whole, std::size_t& writtenAt, std::size_t& spokenAt, const SpokenText& part,
            std::size_t characters) {
  for (SpokenRun run : part.runs) {
    run.spokenBegin += spokenAt;
    run.spokenEnd += spokenAt;
    run.writtenBegin += writtenAt;
    run.writtenEnd += writtenAt;
    whole.runs.push_back(run);
  }
  whole.text += part.text;
  writtenAt += characters;
  spokenAt += part.runs.empty() ? characters : CountCharacters(part.text);
}

}  // namespace

// One pass over every sentence.
SpokenText GermanSpeller::SpellSentences(std::string_view text, bool withOwnWords) const {
  SpokenText whole;
  std::size_t writtenAt = 0;
  std::size_t spokenAt = 0;
  for (std::size_t begin = 0; begin < text.size();) {
    const Tokens tokens = SentenceAt(text, begin);
    const std::size_t end = tokens.At(tokens.Count() - 1).end;
    Append(whole, writtenAt, spokenAt, SpellSentence(tokens, withOwnWords),
           CountCharacters(text.substr(begin, end - begin)));
    begin = end;
  }
  return whole;
}

SpokenText GermanSpeller::SpellOut(std::string_view text) const {
  if (!options_.rules.IsEmpty()) {
    const SpokenText ruled = options_.rules.Apply(text);
    GermanSpeller plain({options_.ownWords, options_.speakEmoji, {}});
    SpokenText spoken = plain.SpellOut(ruled.text);
    spoken.runs = JoinRuns(ruled.runs, spoken.runs);
    return spoken;
  }
  SpokenText whole;
  whole.text.reserve(text.size() + text.size() / 4);
  std::size_t writtenAt = 0;
  std::size_t spokenAt = 0;
  for (std::size_t begin = 0; begin < text.size();) {
    const Tokens tokens = SentenceAt(text, begin);
    const std::size_t end = tokens.At(tokens.Count() - 1).end;
    Append(whole, writtenAt, spokenAt, SpellUntilItStays(tokens, true),
           CountCharacters(text.substr(begin, end - begin)));
    begin = end;
  }
  return whole;
}

std::size_t GermanSpeller::PieceEnd(std::string_view text, std::size_t begin) const {
  if (options_.rules.IsEmpty()) return SentenceEnd(text, begin);
  const auto line = text.find('\n', begin);
  return line == std::string_view::npos ? text.size() : line + 1;
}

SpokenText SpellOut(std::string_view text) {
  static const GermanSpeller speller;
  return speller.SpellOut(text);
}

}  // namespace lorelin
