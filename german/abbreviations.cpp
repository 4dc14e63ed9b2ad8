#include "german/abbreviations.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "german/abbreviationContext.h"
#include "german/abbreviationTable.h"
#include "german/cutWords.h"

namespace lorelin {
namespace {

using Index = std::unordered_map<std::string_view, std::vector<const Abbreviation*>>;

// By their first token; the longer ones are tried first, then those that ask for more around them, then those
// that stand first.
const Index& ByFirstToken() {
  static const Index index = [] {
    Index made;
    for (const auto table : {AbbreviationTable(), AdjectiveTable(), NoticeTable()}) {
      for (const Abbreviation& one : table) {
        const Token first = TokenAt(one.written, 0);
        made[one.written.substr(0, first.end)].push_back(&one);
      }
    }
    for (auto& [first, list] : made) {
      std::stable_sort(list.begin(), list.end(), [](auto* a, auto* b) {
        if (a->written.size() != b->written.size()) return a->written.size() > b->written.size();
        return a->around != Around::Anything && b->around == Around::Anything;
      });
    }
    return made;
  }();
  return index;
}

// The token behind the abbreviation, its blanks there or not; 0 when it is not the one. The first token fits
// already.
std::size_t EndOf(const Tokens& tokens, std::size_t i, std::string_view written) {
  std::size_t at = TokenAt(written, 0).end;
  for (++i; at < written.size();) {
    const Token token = TokenAt(written, at);
    at = token.end;
    if (token.kind == TokenKind::Blank) {
      i = tokens.Skip(i);
      continue;
    }
    const bool lastPoint =
        at == written.size() && written.ends_with('.') && written.find('.') + 1 < written.size();
    if (!tokens.Is(i, written.substr(token.begin, token.end - token.begin))) {
      // "i.d.R": the last point is often forgotten.
      return lastPoint && tokens.IsBlank(i) && written.find('-') == std::string_view::npos ? i : 0;
    }
    ++i;
  }
  const bool letterAtEnd = TokenAt(written, written.size() - 1).kind == TokenKind::Word;
  return letterAtEnd && (!tokens.FreeBehind(i - 1) || (tokens.Is(i, ".") && !tokens.IsGap(i + 1)) ||
                         tokens.IsDashAt(i))
             ? 0
             : i;
}

// A bare abbreviation may end the sentence: "inkl. MwSt." has its own entry, "MwSt" before a full stop does
// not.
std::size_t EndOfBare(const Tokens& tokens, std::size_t i, std::string_view written) {
  if (written.ends_with('.') || written.find(' ') != std::string_view::npos) return 0;
  const bool point = tokens.Is(i + 1, ".") && TokenAt(written, 0).end == written.size();
  return point && tokens.IsLast(i + 1) ? i + 1 : 0;
}

// "Das ist gesch...": a word that is not said to its end.
bool IsBrokenOff(const Tokens& tokens, std::size_t end) {
  return end > 0 && tokens.Is(end - 1, ".") && tokens.Is(end, ".");
}

std::optional<FoundAbbreviation> Search(const Tokens& tokens, std::size_t i, std::string_view first,
                                        bool capital) {
  const auto found = ByFirstToken().find(first);
  if (found == ByFirstToken().end()) return std::nullopt;
  for (const Abbreviation* const one : found->second) {
    std::size_t end = EndOf(tokens, i, one->written);
    if (end == 0) end = EndOfBare(tokens, i, one->written);
    if (end == 0 || (one->ending != Ending::Often && IsBrokenOff(tokens, end))) continue;
    if (FitsAround(*one, tokens, i, end)) return FoundAbbreviation{one, capital, end};
  }
  return std::nullopt;
}

}  // namespace

std::optional<FoundAbbreviation> AbbreviationAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  if (word.empty() || word.size() > 16 || tokens.IsNumber(i)) return std::nullopt;
  // A dash or a point that touches belongs to another word: "Bezugs-Nr.", "www.inkl.de".
  if (i > 0 && tokens.IsWord(i) && (tokens.IsWord(i - 1) || tokens.Is(i - 1, "@") || tokens.Is(i - 1, "&")))
    return std::nullopt;
  // "gibt's.", "McDonald's.": the rest of a word.
  if (i >= 2 && IsOneOf(tokens.View(i - 1), {"'", "’"}) && tokens.IsWord(i - 2)) return std::nullopt;
  // "Baker Street 221b.": the letter of a number, but "S. 12f."
  if (i > 0 && word.size() == 1 && word != "f" && tokens.IsNumber(i - 1) && tokens.Is(i + 1, ".") &&
      (tokens.IsCapital(tokens.Skip(i + 2)) || tokens.Skip(i + 2) == tokens.Count()))
    return std::nullopt;
  // The second letter of one that is none: "3 p.m."
  if (i >= 2 && word.size() == 1 && tokens.Is(i - 1, ".") && tokens.View(i - 2).size() == 1)
    return std::nullopt;
  if (auto found = Search(tokens, i, word, false)) return found;
  if (!tokens.IsCapital(i) || !(tokens.OpensClause(i) || tokens.OpensLine(i))) return std::nullopt;
  if (IsNameLikeCut(word) && tokens.IsLast(i + 1)) return std::nullopt;  // "„Max.“"
  // "Z. B." at the beginning of a sentence.
  const std::string small = WithLowerStart(word);
  auto found = Search(tokens, i, small, true);
  const bool single =
      found && !found->abbreviation->written.empty() && found->abbreviation->around != Around::Anything &&
      found->abbreviation->around != Around::Described && found->abbreviation->around != Around::Attribute &&
      !(found->abbreviation->around == Around::Capital && found->abbreviation->bending == Bending::Adjective);
  return single ? std::nullopt : found;
}

bool IsOftenShortened(std::string_view word) {
  const auto found = ByFirstToken().find(word);
  if (found == ByFirstToken().end()) return false;
  return std::any_of(found->second.begin(), found->second.end(), [&](const Abbreviation* one) {
    return one->written.size() == word.size() + 1 && one->written.ends_with('.');
  });
}

namespace {

// "Störg" of "Störung", but not "Berg".
bool EndsInShortUng(std::string_view word) {
  return word.size() > 4 && HasSuffix(word, {"rg", "lg", "tg", "dg", "hg", "fg", "sg", "zg"}) &&
         !NounOf(word).known &&
         IsNounFrom(std::string(word.substr(0, word.size() - 1)) + "ung", word.size() - 4);
}

}  // namespace

std::optional<CutNoun> CutNounAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  if (!tokens.IsCapital(i) || word.size() < 4 || word.size() > 40 || !tokens.Is(i + 1, ".") ||
      !tokens.FreeBefore(i))
    return std::nullopt;
  const std::size_t next = tokens.Skip(i + 2);
  const bool shortened = EndsInShortUng(word) && tokens.IsCapital(next);  // "Bei Störg. Stecker ziehen"
  const bool goesOn =
      shortened ||
      (next > i + 2 && (tokens.IsNumber(next) || (tokens.IsWord(next) && !tokens.IsCapital(next)))) ||
      (next == i + 2 && IsOneOf(tokens.View(next), {",", ";", ":", "-", ")"}) && !tokens.IsLast(i + 1));
  if (!goesOn || NounOf(word).whole || EndsInWholeNoun(word, 0) || IsNameLikeCut(word) || IsAllCaps(word) ||
      IsOftenShortened(word))
    return std::nullopt;
  // "Fertig. 3 Minuten später": a word that is said alone.
  if (tokens.OpensClause(i) && tokens.IsNumber(next) && !EndsLikeNoWord(word) && !shortened)
    return std::nullopt;
  const std::size_t latest = word.size() - 4;  // so much of the last part has to be there
  if (word.ends_with('g') &&
      IsNounOrCompound(std::string(word.substr(0, word.size() - 1)) + "ierung", latest))
    return CutNoun{std::string(word.substr(0, word.size() - 1)) + "ierung", i + 2};  // "Reservg."
  if (word.ends_with('g') && IsNounOrCompound(std::string(word.substr(0, word.size() - 1)) + "ung", latest))
    return CutNoun{std::string(word.substr(0, word.size() - 1)) + "ung", i + 2};
  if (HasSuffix(word, {"bark", "igk", "lichk", "samk"})) return CutNoun{std::string(word) + "eit", i + 2};
  for (const std::string_view rest : {"ung", "eit", "aft", "ion", "tion", "ation", "ität", "nis", "and",
                                      "ent", "ik", "um", "arf", "ehlung"}) {
    std::string whole = std::string(word) + std::string(rest);
    if (IsNounOrCompound(whole, latest)) return CutNoun{std::move(whole), i + 2};
  }
  return std::nullopt;
}

namespace {

// "Bereichsltg. Vertr.": what follows is cut as well.
bool ShortWordAt(const Tokens& tokens, std::size_t i) {
  return tokens.IsCapital(i) && tokens.Is(i + 1, ".") && IsOftenShortened(tokens.View(i));
}

}  // namespace

std::optional<FoundStreet> StreetAt(const Tokens& tokens, std::size_t i) {
  struct Part {
    std::string_view written;
    std::string_view spoken;
  };
  constexpr Part kParts[] = {{"str", "straße"},
                             {"pl", "platz"},
                             {"nr", "nummer"},
                             {"Str", "Straße"},
                             {"bhf", "bahnhof"},
                             {"bf", "bahnhof"},
                             {"whg", "wohnung"},
                             {"abt", "abteilung"},
                             {"haltest", "haltestelle"},
                             {"betr", "betrag"},
                             {"kto", "konto"},
                             {"std", "stunde"},
                             {"hauptvers", "hauptversammlung"},
                             {"vers", "versicherung"},
                             {"beitr", "beitrag"},
                             {"ausw", "ausweis"},
                             {"inst", "institut"},
                             {"vertr", "vertrag"},
                             {"präs", "präsident"},
                             {"mitgl", "mitglied"},
                             {"verw", "verwaltung"},
                             {"verz", "verzeichnis"},
                             {"temp", "temperatur"},
                             {"prov", "provision"},
                             {"ges", "gesellschaft"},
                             {"gem", "gemäß"},
                             {"geb", "gebühr"},
                             {"ausg", "ausgabe"},
                             {"kap", "kapitel"},
                             {"szt", "szeit"},
                             {"ezt", "ezeit"},
                             {"hrzt", "hrzeit"},
                             {"ferzt", "ferzeit"},
                             {"Nr", "Nummer"},
                             {"sgen", "sgenossenschaft"},
                             {"allg", "allgemein"},
                             {"bez", "bezirk"},
                             {"kr", "kreis"},
                             {"mstr", "meister"},
                             {"prüf", "prüfung"},
                             {"ltg", "leitung"},
                             {"slg", "sammlung"},
                             {"hs", "haus"},
                             {"pfl", "pflicht"},
                             {"schr", "schrift"},
                             {"gew", "gewicht"},
                             {"pkt", "punkt"},
                             {"abl", "ablauf"},
                             {"eing", "eingang"},
                             {"dat", "datum"},
                             {"spielz", "spielzeit"},
                             {"arbeitsz", "arbeitszeit"},
                             {"hzg", "heizung"},
                             {"kenntn", "kenntnisse"},
                             {"umf", "umfang"},
                             {"sverm", "svermögen"},
                             {"wartez", "wartezeit"},
                             {"fahrz", "fahrzeit"},
                             {"laufz", "laufzeit"},
                             {"öffnungsz", "öffnungszeiten"},
                             {"fl", "fläche"},
                             {"stell", "stelle"},
                             {"verbr", "verbrauch"},
                             {"grdst", "grundstück"},
                             {"gesch", "geschoss"},
                             {"sreg", "sregister"},
                             {"sj", "sjahr"},
                             {"rj", "rjahr"},
                             {"ulj", "uljahr"},
                             {"bj", "bjahr"}};
  const auto word = tokens.View(i);
  const bool point = tokens.Is(i + 1, ".");
  if (word.empty() || (!point && !HasSuffix(word, {"str", "Str", "bhf"})) || IsNameLikeCut(word))
    return std::nullopt;
  for (const Part& part : kParts) {
    if (word.back() != part.written.back() || word.size() < part.written.size() + 3 ||
        !word.ends_with(part.written))
      continue;
    const auto front = word.substr(0, word.size() - part.written.size());
    // "Goethestr.", "Karlspl.": before these stand names as well.
    const bool named =
        IsOneOf(part.written, {"str", "Str", "pl", "bhf", "bf", "nr", "Nr"}) || part.written.back() == 'j';
    if (EndsInWholeNoun(word, part.written.size()) || !(named || BeginsCompounds(front))) continue;
    const bool needed = part.written != "bhf";
    if (part.written == "pl" && !(point && tokens.IsCapital(i))) continue;
    // "hauptstr. 5", but "darüberstr."
    if (part.written == "str" && !tokens.IsCapital(i) && !tokens.IsNumber(tokens.Skip(i + 2))) continue;
    // Only where the sentence goes on it is certain that a word was cut.
    const bool common = IsOneOf(part.written, {"str", "Str", "nr", "Nr", "pl", "bhf", "bf", "whg", "pkt"});
    const std::size_t behind = tokens.Skip(i + 2);
    // "Betriebstemp. -10", "ab Kaufdat.": no word ends like that.
    const bool parted = point && tokens.IsCapital(i) &&
                        (!NounOf(tokens.View(i)).known || part.written == "abt") &&
                        part.written.size() + (EndsLikeNoWord(word) ? 3 : 4) <= word.size() &&
                        (IsOneOf(tokens.View(behind), {":", ",", ")", ";", "!", "-", "–", "("}) ||
                         ((part.written.size() > 2 || part.written.back() == 'j') && tokens.IsLast(i + 1)) ||
                         ShortWordAt(tokens, behind));
    if (!common && !parted &&
        (!tokens.IsCapital(i) || !point || NounOf(tokens.View(i)).whole || behind == i + 2 ||
         !(tokens.IsNumber(behind) || (tokens.IsWord(behind) && !tokens.IsCapital(behind)))))
      continue;
    if (!point && (needed && !(part.written == "str" && tokens.IsNumber(tokens.Skip(i + 1))))) continue;
    return FoundStreet{word.size() - part.written.size(), part.spoken, point ? i + 2 : i + 1};
  }
  return std::nullopt;
}

}  // namespace lorelin
