#include "german/cutWords.h"

#include <algorithm>
#include <unordered_map>

#include "german/cutWordTable.h"
#include "german/grammar.h"
#include "german/nouns.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

constexpr std::size_t kShortest = 3;      // bytes that are left of a word
constexpr std::size_t kShortestPart = 4;  // ... of the last part of a compound

bool IsVowel(std::string_view rest) {
  return HasPrefix(rest, {"a", "e", "i", "o", "u", "y", "ä", "ö", "ü"});
}

bool EndsInConsonant(std::string_view word) {
  return std::string_view("bcdfghjklmnpqrstvwxz").find(word.back()) != std::string_view::npos ||
         word.ends_with("ß");
}

struct Entry {
  CutKind kind;
  std::string_view whole;
  std::string_view plural;
};

// What is left of some words is a word of its own.
bool IsWordOfItsOwn(std::string_view word) {
  return IsNameLikeCut(word) ||
         IsOneOf(word, {"eins",    "einmal", "all",     "bar",      "dam",          "ehr",      "gegen",
                        "haupt",   "her",    "höchst",  "feiert",   "land",         "lang",     "lauf",
                        "leit",    "mal",    "mit",     "mitt",     "not",          "normal",   "rein",
                        "selbst",  "sonn",   "sonst",   "span",     "stat",         "vor",      "vorher",
                        "über",    "übers",  "unt",     "ver",      "hist",         "ung",      "gegeben",
                        "optim",   "städt",  "pol",     "ruh",      "int",          "org",      "tel",
                        "viert",   "halb",   "Ver",     "Mit",      "Vor",          "Van",      "Not",
                        "Ben",     "zur",    "lief",    "erschien", "unterschrieb", "verschob", "überwies",
                        "versteh", "begrab", "sicht",   "erreich",  "erfahr",       "belast",   "ausreich",
                        "auftrag", "zug",    "bericht", "verkauf",  "Tom",          "Pat",      "Max",
                        "Kat",     "Mat",    "Dan",     "Tages",    "eng",          "Bush",     "Eros"});
}

// What is left of some words is another word as often, and is one where its sentence ends: "Das bleibt
// intern.", but "intern. Handel".
bool IsRatherWhole(std::string_view word) {
  return IsOneOf(word, {"intern",  "bisher", "derzeit", "ehren", "einst", "mittel",  "genehm",
                        "Beil",    "Mont",   "Krim",    "Term",  "Part",  "Literat", "Kirch",
                        "Kommiss", "Zuber",  "Mob",     "Vers",  "Span",  "Port",    "Pos"}) ||
         HasSuffix(word,
                   {"term", "gespann", "gespinst", "gestell", "disk", "konvent", "deck", "schwank", "quant"});
}

using Index = std::unordered_map<std::string, Entry>;

// People stop before a vowel, and of "-ung" they may keep the last letter: "Rechn", "Rechng".
void AddCutsOf(Index& index, const Entry& entry) {
  const auto whole = entry.whole;
  for (std::size_t at = kShortest; at + 1 < whole.size(); ++at) {
    if (!IsVowel(whole.substr(at)) || !EndsInConsonant(whole.substr(0, at))) continue;
    if (IsWordOfItsOwn(whole.substr(0, at))) continue;
    index.try_emplace(std::string(whole.substr(0, at)), entry);
    if (whole.substr(at) == "ung") index.try_emplace(std::string(whole.substr(0, at)) + "g", entry);
  }
}

void AddList(Index& index, std::string_view list, CutKind kind) {
  ForEachWord(list, [&](std::string_view word) {
    const std::size_t stroke = word.find('/');
    const auto whole = word.substr(0, stroke);
    AddCutsOf(index, {kind, whole, stroke == std::string_view::npos ? whole : word.substr(stroke + 1)});
  });
}

const Index& Cuts() {
  static const Index index = [] {
    Index made;
    AddList(made, CutNouns(), CutKind::Noun);
    AddList(made, CutAdjectives(), CutKind::Adjective);
    AddList(made, CutFixedWords(), CutKind::Fixed);
    return made;
  }();
  return index;
}

CutWord FromEntry(const Entry& entry, std::string_view before) {
  CutWord word;
  word.kind = entry.kind;
  word.words = std::string(before);
  word.plural = std::string(before);
  word.words += before.empty() ? std::string(entry.whole) : WithLowerStart(entry.whole);
  word.plural += before.empty() ? std::string(entry.plural) : WithLowerStart(entry.plural);
  return word;
}

// "Mietbesch" by its last part "Besch".
std::optional<CutWord> WholeOfLastPart(std::string_view word) {
  for (std::size_t at = kShortest; at + kShortestPart <= word.size(); ++at) {
    const auto found = Cuts().find(WithUpperStart(word.substr(at)));
    if (NounOf(WithUpperStart(word.substr(at))).whole) continue;  // "Öldruck"
    if (found != Cuts().end() && found->second.kind == CutKind::Noun && BeginsCompounds(word.substr(0, at)) &&
        !EndsInWholeNoun(word, word.size() - at))
      return FromEntry(found->second, word.substr(0, at));
  }
  return std::nullopt;
}

bool IsKnownShort(std::string_view word) {
  return IsOneOf(
      word, {"Kl", "Nr", "Art", "Abs", "Str", "Abt", "Tel", "Az", "Bd", "Kap", "Dr", "Prof", "Std", "Min"});
}

// The sentence goes on behind the point.
bool GoesOn(const Tokens& tokens, std::size_t point) {
  const std::size_t next = tokens.Skip(point + 1);
  // "Führg. So. 15 Uhr".
  if (tokens.View(next).size() == 2 && tokens.Is(next + 1, ".") &&
      IsOneOf(tokens.View(next), {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"}))
    return true;
  if (next == point + 1)
    return IsOneOf(tokens.View(next), {",", ";", ":", "-", ")", "/"}) && !tokens.IsLast(point);
  if (IsOneOf(tokens.View(next), {"(", "–", "&", "+", "/", "§", "€"})) return true;
  // "Führersch. Kl. B", "Kennz. HH-XY 99": with so many letters it is no name.
  const bool manyLetters = point > 0 && tokens.View(point - 1).size() > kShortest + 2;
  if (manyLetters &&
      (IsAllCaps(tokens.View(next)) || (tokens.Is(next + 1, ".") && IsKnownShort(tokens.View(next)))))
    return true;
  return tokens.IsNumber(next) || (tokens.IsWord(next) && !tokens.IsCapital(next));
}

// A noun follows that an adjective may belong to.
bool NounFollows(const Tokens& tokens, std::size_t point) {
  const std::size_t next = tokens.Skip(point + 1);
  return next > point + 1 && tokens.IsCapital(next) && !StartsSentences(tokens.View(next));
}

}  // namespace

bool IsNameLikeCut(std::string_view word) {
  return IsOneOf(
      word,
      {"Max",         "Franz",     "Klaus",      "Kurt",         "Peters",     "Groß",       "Walther",
       "Garmisch",    "Feldkirch", "Serbien",    "Leer",         "Neuwied",    "Bayreuth",   "Eisenach",
       "Breisach",    "Mombasa",   "Kambodscha", "Bayreuther",   "Sachsens",   "Eisenachs",  "Breisachs",
       "Haskell",     "Heilbutt",  "Steinbutt",  "Paperback",    "Mastermind", "Lichtmess",  "Kontokorrent",
       "Ehrengeleit", "Einzahl",   "Eigennutz",  "Gemeinnutz",   "Poppers",    "Stoppers",   "Lahn",
       "Regress",     "Progress",  "Rezess",     "Hirngespinst", "Steiges",    "Besenreiser"});
}

bool EndsLikeNoWord(std::string_view word) {
  return HasSuffix(word, {"bl",   "cl",   "dl",  "fl", "gl", "kl", "pl",  "tl", "zl", "sl",   "nl",   "ml",
                          "br",   "dr",   "fr",  "gr", "kr", "pr", "tr",  "zr", "sr", "schr", "schl", "schm",
                          "schn", "schw", "kn",  "gn", "bh", "dh", "fh",  "gh", "kh", "lh",   "nh",   "mh",
                          "rh",   "sh",   "chz", "gz", "kv", "nv", "sv",  "tv", "bw", "dw",   "fw",   "gw",
                          "hw",   "kw",   "lw",  "nw", "rw", "sw", "tw",  "zw", "gb", "nb",   "chl",  "chr",
                          "bg",   "dg",   "fg",  "sg", "tg", "zg", "chn", "tn", "dn", "bn",   "pfl",  "spr"});
}

std::string_view PluralOf(std::string_view noun) {
  static const std::unordered_map<std::string_view, std::string_view> plurals = [] {
    std::unordered_map<std::string_view, std::string_view> made;
    ForEachWord(CutNouns(), [&](std::string_view word) {
      const std::size_t stroke = word.find('/');
      made.try_emplace(word.substr(0, stroke),
                       stroke == std::string_view::npos ? word : word.substr(stroke + 1));
    });
    return made;
  }();
  const auto found = plurals.find(noun);
  return found == plurals.end() ? std::string_view() : found->second;
}

std::optional<CutWord> WholeOfCut(std::string_view word) {
  // "Feierst", "Einfachem": the ending of a verb or adjective.
  if (word.size() < kShortest || word.size() > 40 || IsAllCaps(word) ||
      (word.size() > 5 && HasSuffix(word, {"erst", "chem"})))
    return std::nullopt;
  const bool capital = IsUpperWord(word);
  if (capital && (NounOf(word).whole || IsNameLikeCut(word))) return std::nullopt;
  std::optional<CutWord> found;
  if (const auto entry = Cuts().find(std::string(word)); entry != Cuts().end()) {
    found = FromEntry(entry->second, {});
  } else if (capital && !NounOf(word).known) {
    found = WholeOfLastPart(word);
    if (found) found->compound = true;
  }
  if (found) found->certain = EndsLikeNoWord(word);
  return found;
}

std::optional<CutWord> CutWordAt(const Tokens& tokens, std::size_t i) {
  const auto written = tokens.View(i);
  if (!tokens.Is(i + 1, ".") || tokens.Is(i + 2, ".") || !tokens.FreeBefore(i)) return std::nullopt;
  if (i >= 2 && IsOneOf(tokens.View(i - 1), {"'", "’"}) && tokens.IsWord(i - 2)) return std::nullopt;
  auto cut = WholeOfCut(written);
  const bool opens = tokens.IsCapital(i) && tokens.OpensClause(i);
  if (!cut && opens && !NounOf(written).whole) {
    cut = WholeOfCut(WithLowerStart(written));
    if (cut) cut->words = WithUpperStart(cut->words);
  }
  if (!cut) return std::nullopt;
  // "Das mag Ben. 2 Tage später …".
  if (written.size() == kShortest && tokens.IsNumber(tokens.Skip(i + 2)) && !cut->certain)
    return std::nullopt;
  if (GoesOn(tokens, i + 1)) return cut;
  const bool over =
      tokens.IsLast(i + 1) || (cut->kind != CutKind::Adjective && tokens.IsCapital(tokens.Skip(i + 2)));
  if (IsRatherWhole(written) && over) return std::nullopt;
  const bool determined = tokens.IsCapital(i) && IsDeterminer(tokens.WordBefore(i));
  const bool name = NounFollows(tokens, i + 1);  // "Der Komp. J. S. Bach"
  if (determined && (tokens.IsLast(i + 1) || name) && written.size() > kShortest) return cut;
  // "Bundespräs. Steinmeier".
  if (name && HasSuffix(cut->words, {"präsident", "minister", "kanzler", "direktor"})) return cut;
  if (cut->kind == CutKind::Adjective && NounFollows(tokens, i + 1)) return cut;
  // At the end of the sentence so many letters are no other word.
  const bool manyLetters = !cut->compound && written.size() > kShortest + 1 && tokens.IsLast(i + 1);
  return cut->certain || manyLetters ? cut : std::nullopt;
}

}  // namespace lorelin
