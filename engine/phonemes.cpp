#include "engine/phonemes.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <tuple>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin::engine {
namespace {

struct Composed {
  char32_t letter;
  char32_t base;
  char32_t mark;
};

// Canonical decompositions (UnicodeData.txt) of what phonetic transcriptions contain.
constexpr std::array kComposed{
    Composed{U'à', U'a', 0x300}, Composed{U'á', U'a', 0x301}, Composed{U'â', U'a', 0x302},
    Composed{U'ã', U'a', 0x303}, Composed{U'ä', U'a', 0x308}, Composed{U'å', U'a', 0x30A},
    Composed{U'ç', U'c', 0x327}, Composed{U'è', U'e', 0x300}, Composed{U'é', U'e', 0x301},
    Composed{U'ê', U'e', 0x302}, Composed{U'ë', U'e', 0x308}, Composed{U'ì', U'i', 0x300},
    Composed{U'í', U'i', 0x301}, Composed{U'î', U'i', 0x302}, Composed{U'ï', U'i', 0x308},
    Composed{U'ñ', U'n', 0x303}, Composed{U'ò', U'o', 0x300}, Composed{U'ó', U'o', 0x301},
    Composed{U'ô', U'o', 0x302}, Composed{U'õ', U'o', 0x303}, Composed{U'ö', U'o', 0x308},
    Composed{U'ù', U'u', 0x300}, Composed{U'ú', U'u', 0x301}, Composed{U'û', U'u', 0x302},
    Composed{U'ü', U'u', 0x308}, Composed{U'ý', U'y', 0x301}, Composed{U'ÿ', U'y', 0x308},
    Composed{U'ā', U'a', 0x304}, Composed{U'ă', U'a', 0x306}, Composed{U'ē', U'e', 0x304},
    Composed{U'ĕ', U'e', 0x306}, Composed{U'ĩ', U'i', 0x303}, Composed{U'ī', U'i', 0x304},
    Composed{U'ĭ', U'i', 0x306}, Composed{U'ō', U'o', 0x304}, Composed{U'ŏ', U'o', 0x306},
    Composed{U'ũ', U'u', 0x303}, Composed{U'ū', U'u', 0x304}, Composed{U'ŭ', U'u', 0x306},
    Composed{U'ř', U'r', 0x30C}, Composed{U'š', U's', 0x30C}, Composed{U'ž', U'z', 0x30C},
    Composed{U'č', U'c', 0x30C}, Composed{U'ǎ', U'a', 0x30C}, Composed{U'ǐ', U'i', 0x30C},
    Composed{U'ǒ', U'o', 0x30C}, Composed{U'ǔ', U'u', 0x30C}, Composed{U'ẽ', U'e', 0x303},
    Composed{U'ỹ', U'y', 0x303}, Composed{U'ṽ', U'v', 0x303},
};

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::u32string Characters(std::string_view text) {
  std::u32string characters;
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length > 0) characters.push_back(FirstCharacter(text));
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return characters;
}

// Bytes of the mark "(en)" at the front; 0 when there is none.
std::size_t LanguageMark(std::string_view phonemes) {
  if (phonemes.empty() || phonemes[0] != '(') return 0;
  std::size_t at = 1;
  while (at < phonemes.size() && ((phonemes[at] >= 'a' && phonemes[at] <= 'z') || phonemes[at] == '-')) ++at;
  return at > 1 && at < phonemes.size() && phonemes[at] == ')' ? at + 1 : 0;
}

// The sounds of the text's first clause; how far it went, npos for the end.
std::u32string Sounds(const std::string& text, std::size_t from, std::size_t& stopped) {
  const void* place = text.c_str() + from;
  const char* const phonemes = espeak_TextToPhonemes(&place, espeakCHARS_UTF8, espeakPHONEMES_IPA);
  stopped = place == nullptr ? std::string::npos
                             : static_cast<std::size_t>(static_cast<const char*>(place) - text.c_str());
  return Symbols(phonemes != nullptr ? phonemes : "");
}

struct Token {
  std::string_view text;
  std::size_t character = 0;
};

std::vector<Token> Tokens(std::string_view part, std::size_t character) {
  std::vector<Token> tokens;
  while (!part.empty()) {
    std::size_t size = 0;
    while (size < part.size() && !IsBlank(part[size])) ++size;
    if (size > 0) tokens.push_back({part.substr(0, size), character});
    character += CharacterCount(part.substr(0, size));
    part.remove_prefix(size);
    for (; !part.empty() && IsBlank(part[0]); part.remove_prefix(1)) ++character;
  }
  return tokens;
}

std::vector<std::size_t> WordStarts(const std::u32string& symbols) {
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < symbols.size(); ++i) {
    if (symbols[i] != U' ' && (i == 0 || symbols[i - 1] == U' ')) starts.push_back(i);
  }
  return starts;
}

// How long each word is when it is spoken alone.
std::vector<std::size_t> SizesAlone(const std::vector<Token>& tokens) {
  std::vector<std::size_t> sizes;
  for (const Token& token : tokens) {
    std::size_t stopped = 0;
    sizes.push_back(Sounds(std::string(token.text), 0, stopped).size());
  }
  return sizes;
}

// The nearest start of a word, if there is one so near that it can be meant.
std::size_t Snapped(std::size_t place, const std::vector<std::size_t>& starts) {
  constexpr std::size_t kNear = 3;
  std::size_t best = place;
  std::size_t distance = kNear + 1;
  for (const std::size_t start : starts) {
    const std::size_t away = start > place ? start - place : place - start;
    if (away < distance) std::tie(best, distance) = std::pair(start, away);
  }
  return best;
}

struct Ending {
  char32_t sign = U',';
  bool endsSentence = false;
};

// By the last sign, behind which quotes and brackets may stand.
Ending EndingOf(std::string_view part, bool last) {
  constexpr std::string_view kSentenceSigns = ".!?:;";
  const std::size_t sign = part.find_last_of(".!?:;,");
  const bool close = sign != std::string_view::npos &&
                     std::none_of(part.begin() + static_cast<std::ptrdiff_t>(sign), part.end(),
                                  [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
  if (!close) return last ? Ending{U'.', true} : Ending{};
  return {static_cast<char32_t>(part[sign]), kSentenceSigns.find(part[sign]) != std::string_view::npos};
}

}  // namespace

std::u32string Decomposed(char32_t symbol) {
  const auto* const found = std::find_if(kComposed.begin(), kComposed.end(),
                                         [&](const Composed& composed) { return composed.letter == symbol; });
  if (found == kComposed.end()) return {symbol};
  return {found->base, found->mark};
}

std::u32string Symbols(std::string_view phonemes) {
  std::string plain;
  while (!phonemes.empty()) {
    const std::size_t mark = LanguageMark(phonemes);
    if (mark == 0) plain.push_back(phonemes[0]);
    phonemes.remove_prefix(std::max<std::size_t>(mark, 1));
  }
  std::u32string symbols;
  for (const char32_t character : Characters(plain)) symbols += Decomposed(character);
  while (!symbols.empty() && symbols.back() == U' ') symbols.pop_back();
  return symbols;
}

Phonemizer::Phonemizer(EspeakLibrary& library, const std::string& voice, std::string text)
    : text_(std::move(text)) {
  if (library.Select(voice)) ReadParts();
}

void Phonemizer::ReadParts() {
  std::size_t begin = 0;
  std::size_t stopped = 0;
  while (stopped < text_.size()) {
    const std::size_t from = stopped;
    Part part{.end = 0, .symbols = Sounds(text_, from, stopped)};
    if (stopped <= from) stopped = std::string::npos;  // it would go round in circles
    part.end = PartEnd(begin, stopped);
    begin = part.end;
    parts_.push_back(std::move(part));
  }
}

std::size_t Phonemizer::PartEnd(std::size_t begin, std::size_t stopped) const {
  if (stopped >= text_.size()) return text_.size();
  std::size_t ahead = stopped;
  while (ahead > begin && (static_cast<unsigned char>(text_[ahead - 1]) & 0xC0U) == 0x80U) --ahead;
  if (ahead > begin) --ahead;
  return ahead > begin && IsBlank(text_[ahead - 1]) ? ahead : stopped;
}

std::optional<Clause> Phonemizer::Next() {
  while (!parts_.empty()) {
    Clause clause{.symbols = std::move(parts_.front().symbols), .words = {}};
    const std::string_view part = std::string_view(text_).substr(next_, parts_.front().end - next_);
    parts_.pop_front();
    const Ending ending = EndingOf(part, parts_.empty() || part.find('\n') != std::string_view::npos);
    clause.sign = ending.sign;
    clause.endsSentence = ending.endsSentence;
    FindWords(part, clause);
    character_ += CharacterCount(part);
    next_ += part.size();
    if (!clause.symbols.empty()) return clause;
  }
  return std::nullopt;
}

void Phonemizer::FindWords(std::string_view part, Clause& clause) const {
  const std::vector<Token> tokens = Tokens(part, character_);
  const std::vector<std::size_t> starts = WordStarts(clause.symbols);
  if (tokens.size() == starts.size()) {
    for (std::size_t i = 0; i < tokens.size(); ++i) clause.words.push_back({tokens[i].character, starts[i]});
    return;
  }
  // A number is several words, and some words are spoken as one: by what each would be alone.
  const std::vector<std::size_t> sizes = SizesAlone(tokens);
  const std::size_t all = std::accumulate(sizes.begin(), sizes.end(), std::size_t{0});
  if (all == 0) return;
  std::size_t before = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (sizes[i] == 0) continue;
    const std::size_t near = clause.symbols.size() * before / all;
    before += sizes[i];
    clause.words.push_back({tokens[i].character, Snapped(near, starts)});
  }
}

}  // namespace lorelin::engine
