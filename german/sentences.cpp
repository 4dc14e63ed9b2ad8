#include "german/sentences.h"

#include "german/abbreviations.h"
#include "german/clauses.h"
#include "german/cutWords.h"
#include "german/dates.h"
#include "german/grammar.h"
#include "german/nouns.h"
#include "german/ordinals.h"
#include "german/romans.h"
#include "german/signs.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

constexpr std::size_t kLookAhead = 16;      // tokens behind a point
constexpr std::size_t kLongInLines = 800;   // tokens, from which on the end of a line ends a sentence
constexpr std::size_t kLongInWords = 2000;  // ... a gap does
constexpr std::size_t kLongest = 6000;      // ... anything does

bool HasVowel(std::string_view word) {
  if (word.find_first_of("aeiouyAEIOUY") != std::string_view::npos) return true;
  for (const std::string_view umlaut : {"ä", "ö", "ü", "Ä", "Ö", "Ü"}) {
    if (word.find(umlaut) != std::string_view::npos) return true;
  }
  return false;
}

// Short, or without a vowel behind its first letters: "Tab", "Pkt", but not "kam" and "Uhr".
bool IsRatherShortened(std::string_view word) {
  if (word.size() == 1) return true;
  if (!HasVowel(word) && word.size() <= 5) return !IsAllCaps(word);
  if (HasSuffix(word, {"dr", "br", "kr", "gr", "pr", "tr", "fr", "chr", "bl", "kl", "pl", "gl", "fl", "tl",
                       "dl", "zl", "tg", "dg", "zg"}))
    return true;
  return IsOneOf(word,
                 {"mo",  "di",  "mi",   "fr",  "sa",   "App", "Op",  "op",  "Kat", "Ang",  "Auftr", "Best",
                  "Pos", "Rev", "Vers", "Fig", "Lekt", "Ref", "Reg", "Ser", "Bus", "Ausg", "ungef", "Los"});
}

// "1 Pck. Sahnesteif": what is in it follows, whatever it is.
bool IsPackage(const Unit& unit) {
  return IsOneOf(unit.singular, {"Päckchen", "Packung", "Esslöffel", "Teelöffel", "Messerspitze", "Prise",
                                 "Bund", "Flasche", "Dose", "Glas", "Tasse", "Beutel", "Scheibe"});
}

bool IsShortWeekday(std::string_view word) {
  return IsOneOf(word, {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"});
}

// "Mo.–Fr.", "am Fr.": no woman is meant.
bool IsDayOfWeek(const Tokens& tokens, std::size_t i) {
  if (!IsShortWeekday(tokens.View(i))) return false;
  std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone) return false;
  if (IsOneOf(tokens.View(before), {"am", "Am", "ab", "Ab", "vom", "jeden"})) return true;
  if (!IsOneOf(tokens.View(before), {"–", "-", "bis", "und", "u", "&", "/", "+"})) return false;
  before = tokens.Before(before);
  if (before != Tokens::kNone && before > 0 && tokens.Is(before, ".")) --before;
  return before != Tokens::kNone && IsShortWeekday(tokens.View(before));
}

// Reads the tokens of one sentence; keeps some more than it has looked at.
class SentenceReader {
 public:
  SentenceReader(std::string_view text, std::size_t begin) : tokens_(text), next_(begin) {}

  Tokens Read() {
    std::size_t i = 0;
    for (Fill(i); i < tokens_.Count(); Fill(i)) {
      const std::size_t behind = EndBehind(i);
      if (behind != 0) {
        tokens_.Shrink(behind);
        break;
      }
      i = covered_ > i ? covered_ : i + 1;
    }
    return std::move(tokens_);
  }

 private:
  void Fill(std::size_t i) {
    while (tokens_.Count() < i + kLookAhead && next_ < tokens_.Text().size()) {
      tokens_.Add(TokenAt(tokens_.Text(), next_));
      next_ = tokens_.At(tokens_.Count() - 1).end;
    }
  }

  // The token behind the sentence when it ends with the one at `i`, else 0.
  std::size_t EndBehind(std::size_t i) {
    if (i > kLongest) return i + 1;
    switch (tokens_.Kind(i)) {
      case TokenKind::Word:
        return EndBehindWord(i);
      case TokenKind::Number:
        return EndBehindNumber(i);
      case TokenKind::Line:
        return EndBehindLine(i);
      case TokenKind::Blank:
        return i > kLongInWords ? i + 1 : 0;
      case TokenKind::Sign:
        return EndBehindSign(i);
      case TokenKind::End:
        return 0;
    }
    return 0;
  }

  std::size_t EndBehindLine(std::size_t i) {
    std::size_t next = i + 1;
    if (tokens_.IsBlank(next)) ++next;
    if (tokens_.Kind(next) == TokenKind::Line || i > kLongInLines) return WithGaps(i + 1);
    return 0;
  }

  std::size_t EndBehindSign(std::size_t i) {
    const auto sign = tokens_.View(i);
    if (!IsOneOf(sign, {".", "!", "?", "…"})) return 0;
    const std::size_t behind = BehindClosing(i + 1);
    covered_ = behind;
    if (!tokens_.IsGap(behind) || (i >= 2 && IsAgainstSign(tokens_, i - 2))) return 0;
    if (sign == "." && i > 0 && tokens_.IsWord(i - 1)) return EndBehindWordAndPoint(i, behind);
    return SmallWordFollows(behind) ? 0 : WithGaps(behind);
  }

  // A word of one capital is a name's: "J. S. Bach", "Max I. Meyer".
  std::size_t EndBehindWordAndPoint(std::size_t i, std::size_t behind) {
    if (SmallWordFollows(behind)) return 0;
    const auto word = tokens_.View(i - 1);
    const bool initial = word.size() <= 2 && IsUpperWord(word) && tokens_.FreeBefore(i - 1);
    const std::size_t next = AfterGaps(behind);
    // "Ziff. 3.1 d. AGB".
    if (word == "d" && tokens_.IsCapital(next) && !StartsSentences(tokens_.View(next)) &&
        LinesBetween(behind, next) == 0)
      return 0;
    if (IsLoneSmallLetter(i - 1) && tokens_.IsCapital(next) && LinesBetween(behind, next) == 0) return 0;
    // "App. 214", "op. 27": a short word before a number is rather an abbreviation than the end.
    if (tokens_.IsNumber(next) && LinesBetween(behind, next) == 0 &&
        (IsRatherShortened(word) || IsOftenShortened(word)) && !NounOf(word).whole && !IsNameLikeCut(word))
      return 0;
    if (IsOneOf(tokens_.View(next), {"+", "&", "=", "/", "<", ">", "%", "*", "×"}) &&
        LinesBetween(behind, next) == 0)
      return 0;
    if (initial && tokens_.Is(next, "(")) return 0;  // "Müller, H. (2019)"
    if (initial && !tokens_.IsLast(i) && tokens_.Kind(behind) == TokenKind::Blank && tokens_.IsCapital(next))
      return StartsSentences(tokens_.View(next)) && tokens_.View(next).size() > 1 ? WithGaps(behind) : 0;
    return WithGaps(behind);
  }

  // "d. Vorrat", but not "Klasse 5 b."
  [[nodiscard]] bool IsLoneSmallLetter(std::size_t i) const {
    const auto word = tokens_.View(i);
    if (word == "j" && i > 1 && tokens_.Is(i - 1, "-") && tokens_.IsNumber(i - 2))
      return true;  // "72-j. Frau"
    if (word.size() != 1 || IsUpperWord(word) || !tokens_.FreeBefore(i)) return false;
    std::size_t before = tokens_.Before(i);
    const bool cut = before != Tokens::kNone && before > 0 && tokens_.Is(before, ".");  // "f. d. Fest"
    if (cut) --before;
    // "geb. 1921 i. Wien".
    if (tokens_.IsNumber(before, 4, 4) && tokens_.IsBlank(i - 1) && IsOneOf(word, {"i", "m", "v", "n"}))
      return true;
    return before != Tokens::kNone && tokens_.IsWord(before) && (cut || !IsLabel(tokens_.View(before)));
  }

  std::size_t EndBehindWord(std::size_t i) {
    std::size_t end = 0;
    Ending ending = Ending::Never;
    if (const auto found = AbbreviationAt(tokens_, i)) {
      end = found->end;
      ending = found->abbreviation->ending;
      const std::size_t comma = tokens_.Before(i);  // "12 Bücher, u. a. „Zeit“"
      if (found->abbreviation->written == "u. a." && comma != Tokens::kNone && tokens_.Is(comma, ","))
        ending = Ending::Never;
      if (ending == Ending::Never && found->abbreviation->spoken.ends_with("ummer")) ending = Ending::Starter;
      if (ending == Ending::Never && IsUpperWord(found->abbreviation->spoken) && StartsAnewAt(end))
        ending = Ending::Starter;
      if (ending == Ending::Noun && found->abbreviation->spoken.ends_with("bahnhof") && IsStationAt(i, end))
        ending = Ending::Often;
      if (ending == Ending::Never && IsDayOfWeek(tokens_, i)) ending = Ending::Starter;
      if (!tokens_.Is(end - 1, ".")) {
        covered_ = end;
        return 0;
      }
    } else if (const auto street = StreetAt(tokens_, i)) {
      end = street->end;
      ending = Ending::Starter;
    } else if (const auto cut = CutAdjectiveAt(tokens_, i)) {
      end = cut->end;
      ending = Ending::Starter;
    } else if (CutWordAt(tokens_, i)) {
      end = i + 2;
      ending = Ending::Starter;
    } else if (const auto noun = CutNounAt(tokens_, i)) {
      end = noun->end;
    }
    if (end == 0) return EndBehindRoman(i);
    if (ending != Ending::Never && (SubjectFollows(end) || ManyDoSomething(end)) && VerbStandsBefore(i))
      ending = Ending::Often;
    return EndBehindAbbreviation(end, ending);
  }

  // "Der Zug hält in Köln Hbf. Reisende nach …", but "ab Köln Hbf. Gleis 5": the name of a station is
  // complete.
  bool IsStationAt(std::size_t i, std::size_t end) {
    const std::size_t place = tokens_.WordIndexBefore(i);
    const auto next = tokens_.View(AfterGaps(end));
    return place != Tokens::kNone && tokens_.IsCapital(place) && HasPreposition(tokens_, place) &&
           !IsLabel(next) && !IsOneOf(next, {"Bahnsteig", "Steig", "Ausgang", "Nord", "Süd", "Ost", "West"});
  }

  // Behind a noun that is cut: "Bitte auf dieses Kto. Die Rechnung folgt." No name begins with these.
  bool StartsAnewAt(std::size_t end) {
    return IsOneOf(
        tokens_.View(AfterGaps(end)),
        {"Der",      "Die",      "Das",     "Den",      "Dem",   "Eine",  "Einen",  "Ich",    "Du",
         "Er",       "Es",       "Wir",     "Man",      "Diese", "Wenn",  "Dieser", "Dieses", "Dann",
         "Dort",     "Hier",     "Heute",   "Danach",   "Bitte", "Nein",  "Ja",     "Aber",   "Sonst",
         "Bei",      "Mit",      "Nach",    "Für",      "Davon", "Damit", "Daher",  "Dabei",  "Damals",
         "Darunter", "Außerdem", "Deshalb", "Trotzdem", "Sie",   "Sein",  "Seine",  "Ihre",   "Mein",
         "Meine",    "Unser",    "Unsere",  "Später",   "Jetzt", "Damals"});
  }

  // "Ludwig XIV. baute", "im XX. Jahrhundert".
  std::size_t EndBehindRoman(std::size_t i) {
    if (!tokens_.Is(i + 1, ".") || !IsRomanOrdinalAt(tokens_, i)) return 0;
    if (GoesOnWithName(tokens_, AfterGaps(i + 2))) return EndBehindAbbreviation(i + 2, Ending::Starter);
    return EndBehindAbbreviation(i + 2, Ending::Noun);
  }

  std::size_t EndBehindAbbreviation(std::size_t end, Ending ending) {
    if (end == 0 || !tokens_.Is(end - 1, ".")) return 0;
    covered_ = end;
    const std::size_t behind = BehindClosing(end);
    if (!tokens_.IsGap(behind)) return 0;
    const std::size_t next = AfterGaps(behind);
    if (tokens_.Kind(next) == TokenKind::End) return WithGaps(behind);
    // The next paragraph begins.
    if (next > behind + 1 && LinesBetween(behind, next) > 1) return WithGaps(behind);
    if (ending == Ending::Never) return 0;
    const bool newLine = LinesBetween(behind, next) > 0;
    return Follows(next, newLine ? Ending::Often : ending) ? WithGaps(behind) : 0;
  }

  bool Follows(std::size_t next, Ending ending) {
    if (IsOneOf(tokens_.View(next), {"„", "»", "“", "\""})) return true;
    if (!tokens_.IsCapital(next)) return false;
    const auto word = tokens_.View(next);
    const bool weekday = tokens_.Is(next + 1, ".") && IsShortWeekday(word);
    if (weekday && ending != Ending::Often) return false;  // "Führg. So. 15 Uhr"
    if (StartsSentenceAt(tokens_, next) || AsksInOneWord(next)) return true;
    // "Anl. N, Zeile 31".
    if (word.size() == 1 && ending != Ending::Often) return false;
    // "90 Min. Anschl. Diskussion."
    if (IsOneOf(word, {"Anschl", "Ggf", "Evtl", "Vgl", "Zzgl", "Mind", "Vorauss", "Zudem", "Lt", "Gem"}) &&
        tokens_.Is(next + 1, "."))
      return true;
    if (ending == Ending::Often && word == "Tel") return true;
    if (tokens_.Is(next + 1, ".") &&
        (AbbreviationAt(tokens_, next) || UnitAt(tokens_, next) || WholeOfCut(word)))
      return false;
    if (ending == Ending::Often) return true;
    if (ending == Ending::Starter) return false;
    return !NounOf(word).known && !NounOf(word).guessed && !IsAllCaps(word) && !tokens_.Is(next + 1, "-");
  }

  // "Wir suchen eine Aushilfe ab 1.9. Interesse?", but "Hast du am 1.9. Zeit?"
  [[nodiscard]] bool AsksInOneWord(std::size_t i) const {
    return tokens_.Is(i + 1, "?") &&
           IsOneOf(tokens_.View(i), {"Interesse", "Fragen", "Lust", "Zeit", "Probleme"}) &&
           !IsPronoun(tokens_.View(2)) && !tokens_.Is(2, "Sie") && tokens_.IsWord(2);
  }

  std::size_t EndBehindNumber(std::size_t i) {
    if (!tokens_.FreeBefore(i)) return 0;
    if (const auto date = DateShapeAt(tokens_, i)) {
      if (!tokens_.Is(date->end - 1, ".")) {
        covered_ = date->end;
        return 0;
      }
      return EndBehindAbbreviation(date->end, SubjectFollows(date->end) ? Ending::Often : Ending::Noun);
    }
    if (tokens_.Is(i + 1, ".") && !tokens_.IsNumber(i + 2)) return EndBehindNumberAndPoint(i);
    if (const std::size_t end = EndOfPriceWithPoint(i); end != 0)
      return EndBehindAbbreviation(end, OthersFollow(i, end) ? Ending::Often : Ending::Noun);
    const auto unit = UnitOrMultiple(tokens_.Skip(i + 1));
    if (!unit || !unit->endsWithPoint) return 0;
    if (OthersFollow(i, unit->end)) return EndBehindAbbreviation(unit->end, Ending::Often);
    if (IsPackage(*unit) || unit->multiplies) return EndBehindAbbreviation(unit->end, Ending::Starter);
    return EndBehindAbbreviation(unit->end, unit->doubtfulPoint ? Ending::Often : Ending::Noun);
  }

  // "… bei 4 Mio. Tendenz steigend.", "Eintritt frei!"
  [[nodiscard]] bool SaysWithoutVerb(std::size_t noun) const {
    const auto word = tokens_.View(noun + 2);
    return tokens_.IsWord(noun + 2) && !tokens_.IsCapital(noun + 2) &&
           IsOneOf(tokens_.View(noun + 3), {".", "!"}) && NounOf(tokens_.View(noun)).singular &&
           (word.ends_with("end") || IsOneOf(word, {"frei", "offen", "möglich", "erforderlich", "erwünscht",
                                                    "nötig", "notwendig", "erbeten", "inklusive"}));
  }

  // "… bis zum 31.12. Ausnahmen sind möglich."
  bool SubjectFollows(std::size_t end) {
    const std::size_t next = AfterGaps(end);
    if (!tokens_.IsCapital(next) || !tokens_.IsBlank(next + 1)) return false;
    // "… am 31.12. Abweichende Abreden sind nichtig."
    const auto word = tokens_.View(next);
    const bool described = HasSuffix(word, {"ende", "liche", "ige", "ische", "barte", "ierte"}) &&
                           tokens_.IsCapital(next + 2) && NounOf(tokens_.View(next + 2)).known;
    // "… am 30.9. Termine vergeben wir telefonisch."
    const bool turned = tokens_.IsWord(next + 2) && !tokens_.IsCapital(next + 2) &&
                        tokens_.IsBlank(next + 3) && IsPronoun(tokens_.View(next + 4));
    return described || turned || SaysWithoutVerb(next) || IsLinkingVerb(tokens_.View(next + 2)) ||
           IsModalVerb(tokens_.View(next + 2));
  }

  // "Der Bus fährt alle 20 Min. Nachtbusse verkehren stündlich."
  bool ManyDoSomething(std::size_t end) {
    const std::size_t next = AfterGaps(end);
    const auto verb = tokens_.View(next + 2);
    const Noun noun = NounOf(tokens_.View(next));
    constexpr std::size_t kShortestVerb = 5;
    return tokens_.IsCapital(next) && noun.plural && tokens_.IsBlank(next + 1) && tokens_.IsWord(next + 2) &&
           !tokens_.IsCapital(next + 2) && verb.size() >= kShortestVerb && verb.ends_with("en") &&
           !IsDeterminer(verb) && !tokens_.IsLast(next + 2) && !tokens_.IsCapital(tokens_.Skip(next + 3));
  }

  // "Die Parteien vereinbaren".
  [[nodiscard]] bool IsVerbOfMany(std::size_t i) const {
    if (!tokens_.View(i).ends_with("en") || tokens_.IsCapital(tokens_.Skip(i + 1))) return false;
    const Noun subject = NounOf(tokens_.WordBefore(i));
    return IsUpperWord(tokens_.WordBefore(i)) && subject.known && subject.plural;
  }

  // "12,50 €/Std. Tel. 0571 33": the token behind the point; 0 without one.
  std::size_t EndOfPriceWithPoint(std::size_t i) {
    const auto currency = CurrencyAt(tokens_, tokens_.Skip(i + 1));
    const auto per = currency ? PerAt(tokens_, currency->end) : std::nullopt;
    return per && tokens_.Is(per->end - 1, ".") ? per->end : 0;
  }

  // "Die Gruppe geht bis 18 J. Anmeldung im Büro."
  bool NoticeFollows(std::size_t end) {
    return IsOneOf(tokens_.View(AfterGaps(end)),
                   {"Anmeldung", "Anmeldungen", "Einlass", "Eintritt", "Karten", "Tickets", "Treffpunkt",
                    "Beginn", "Rückkehr", "Anfragen", "Bewerbungen", "Besichtigung", "Voraussetzung",
                    "Bezahlung", "Abholung", "Mitzubringen", "Teilnahme"});
  }

  // Behind the point of an amount another subject has its verb, or a telephone is named.
  bool OthersFollow(std::size_t number, std::size_t end) {
    if (IsOneOf(tokens_.View(AfterGaps(end)), {"Tel", "Telefon", "Infos", "Info", "Fax"})) return true;
    return (SubjectFollows(end) || ManyDoSomething(end) || NoticeFollows(end)) && VerbStandsBefore(number);
  }

  // "Der Saal fasst ca. 400 Pers. Einlass ist …", but "Nach ca. 30 Min. Backzeit ist …": the sentence has its
  // verb, so that another one is that of the next.
  bool VerbStandsBefore(std::size_t i) {
    for (std::size_t at = 2; at < i; ++at) {
      const auto word = tokens_.View(at);
      if (tokens_.IsWord(at) && !tokens_.IsCapital(at) && tokens_.IsBlank(at + 1) && !IsDegreeWord(word) &&
          !CaseOfPreposition(word) && !IsOrdinalWord(word) &&
          (IsVerb(word) || IsLinkingVerb(word) || HasSuffix(word, {"t", "te", "ten"}) || IsVerbOfMany(at) ||
           (word.ends_with("en") && IsPronoun(tokens_.View(at + 2)))))
        return true;
    }
    return false;
  }

  std::optional<Unit> UnitOrMultiple(std::size_t i) {
    if (auto unit = UnitAt(tokens_, i)) return unit;
    return MultipleAt(tokens_, i);
  }

  std::size_t EndBehindNumberAndPoint(std::size_t i) {
    const std::size_t behind = BehindClosing(i + 2);
    covered_ = i + 2;
    if (!tokens_.IsGap(behind)) return 0;
    const std::size_t next = AfterGaps(behind);
    if (tokens_.Kind(next) == TokenKind::End || LinesBetween(behind, next) > 1) return WithGaps(behind);
    switch (JudgePoint(tokens_, i)) {
      case PointMeaning::Ordinal:
      case PointMeaning::List:
        return 0;
      case PointMeaning::Sentence:
      case PointMeaning::OrdinalAtEnd:
        return SmallWordFollows(behind) ? 0 : WithGaps(behind);
    }
    return 0;
  }

  [[nodiscard]] std::size_t LinesBetween(std::size_t from, std::size_t to) const {
    std::size_t lines = 0;
    for (; from < to; ++from) lines += tokens_.Kind(from) == TokenKind::Line ? 1 : 0;
    return lines;
  }

  [[nodiscard]] bool SmallWordFollows(std::size_t behind) {
    const std::size_t next = AfterGaps(behind);
    return tokens_.IsWord(next) && !tokens_.IsCapital(next) && LinesBetween(behind, next) < 2;
  }

  std::size_t BehindClosing(std::size_t i) {
    while (IsOneOf(tokens_.View(i), {".", "!", "?", "…", "“", "”", "\"", "«", "’", "'", ")", "]", "‘"})) {
      ++i;
      Fill(i);
    }
    return i;
  }

  std::size_t AfterGaps(std::size_t i) {
    while (tokens_.Kind(i) == TokenKind::Blank || tokens_.Kind(i) == TokenKind::Line) {
      ++i;
      Fill(i);
    }
    return i;
  }

  std::size_t WithGaps(std::size_t behind) { return AfterGaps(behind); }

  Tokens tokens_;
  std::size_t next_;
  std::size_t covered_ = 0;
};

}  // namespace

Tokens SentenceAt(std::string_view text, std::size_t begin) {
  return SentenceReader(text, begin).Read();
}

std::size_t SentenceEnd(std::string_view text, std::size_t begin) {
  const Tokens tokens = SentenceAt(text, begin);
  return tokens.Count() == 0 ? text.size() : tokens.At(tokens.Count() - 1).end;
}

std::vector<TextRange> Sentences(std::string_view text) {
  std::vector<TextRange> ranges;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = SentenceEnd(text, begin);
    ranges.push_back({begin, end});
    begin = end;
  }
  return ranges;
}

}  // namespace lorelin
