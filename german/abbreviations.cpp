#include "german/abbreviations.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "german/abbreviationTable.h"
#include "german/cutWords.h"
#include "german/dates.h"
#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/units.h"

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

bool IsWeekdayOrMonth(std::string_view word) {
  return IsMonth(word) || HasSuffix(word, {"tag", "woch", "abend", "Abend", "morgen", "Morgen", "Sonnabend"});
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

std::size_t NumberBehind(const Tokens& tokens, std::size_t end) {
  std::size_t next = tokens.Skip(end);
  if (IsOneOf(tokens.View(next), {",", ":", "-", "–", "ca"})) next = tokens.Skip(next + 1);
  return next;
}

bool StandsBehindNumber(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone) return false;
  if (tokens.Is(before, "€")) return true;
  return tokens.IsNumber(before) || (tokens.IsWord(before) && tokens.View(before).size() == 1 && before > 0 &&
                                     tokens.IsNumber(before - 1));
}

// "S. 12 f.", "§ 5 f. BGB", but not "9,40 € f. Pkw" and "3 f. Kinder".
bool StandsBehindPage(const Tokens& tokens, std::size_t i, std::size_t end) {
  if (!StandsBehindNumber(tokens, i) || tokens.Is(tokens.Before(i), "€") ||
      IsOneOf(tokens.View(tokens.Skip(end)), {"„", "\"", "»"}))
    return false;
  const std::size_t before = tokens.Before(i);
  const std::size_t number = tokens.IsNumber(before) ? before : before - 1;
  // "auf den Seiten 34–37 und 40 f.": the label stands before the first of several.
  std::size_t first = number;
  for (int step = 0; step < 8; ++step) {
    const std::size_t back = tokens.Before(first);
    if (back == Tokens::kNone || !(tokens.IsNumber(back) || tokens.IsDashAt(back) ||
                                   IsOneOf(tokens.View(back), {",", "und", "u", "."})))
      break;
    first = back;
  }
  return LabelBefore(tokens, number) || LabelBefore(tokens, first) || !tokens.IsWord(tokens.Skip(end)) ||
         IsAllCaps(tokens.View(tokens.Skip(end))) || StartsSentences(tokens.View(tokens.Skip(end)));
}

// "mit 1 TL Kurkuma", "Eier u. Mehl": spoons, grams or what is cooked stand before.
bool MeasuresIngredient(const Tokens& tokens, std::size_t i) {
  for (std::size_t at = 0; at < i; ++at) {
    if (IsOneOf(tokens.View(at),
                {"TL", "EL", "Teelöffel", "Esslöffel", "Prise", "Msp", "Salz", "Zucker", "Mehl", "Butter",
                 "Öl", "Sahne", "Eier", "Teig", "Pfeffer", "Quark", "Milch"}) ||
        (tokens.IsNumber(at) && IsOneOf(tokens.View(tokens.Skip(at + 1)), {"g", "ml", "l"})))
      return true;
  }
  return false;
}

// "studierte Germanistik u. Gesch.", "Lehrer für Bio. und Gesch.".
bool SpeaksOfStudies(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (tokens.IsWord(at) &&
        (HasPrefix(WithLowerStart(tokens.View(at)), {"studi", "unterricht", "lehramt", "lehrte", "promov"}) ||
         HasSuffix(tokens.View(at), {"studium", "fach", "fächer", "lehrer", "lehrerin", "professor",
                                     "Professor", "Lehrer", "Lehrerin", "Fach", "Fächer", "Dozent"})))
      return true;
  }
  return false;
}

bool StandsBehindOrdinal(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone) return false;
  if (tokens.IsWord(before)) {
    const auto word = tokens.View(before);
    return HasSuffix(word, {"te", "ten", "ter", "tes"}) || IsAllCaps(word);
  }
  return tokens.Is(before, ".") && before > 0 &&
         (tokens.IsNumber(before - 1) || IsAllCaps(tokens.View(before - 1)) ||
          tokens.View(before - 1).size() == 1);
}

bool StandsInReference(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && tokens.Is(before, ",")) before = tokens.Before(before);  // "Abs. 1, S. 2"
  if (before == Tokens::kNone || !(tokens.IsNumber(before) || tokens.IsWord(before))) return false;
  std::size_t label = tokens.Before(before);
  if (tokens.IsWord(before) && tokens.View(before).size() == 1 && before > 0 && tokens.IsNumber(before - 1))
    label = tokens.Before(before - 1);
  if (label == Tokens::kNone) return false;
  if (tokens.Is(label, ".") && label > 0) --label;
  return IsOneOf(tokens.View(label),
                 {"§", "Abs", "Absatz", "Art", "Artikel", "Paragraf", "Paragraph", "Nr", "Nummer", "§§"});
}

// "Wind SW 4", "aus NW", "im SO des Landes".
bool IsAboutWind(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 16;  // tokens
  if (IsOneOf(tokens.WordBefore(i), {"aus", "nach", "Richtung"}) && tokens.View(i).size() > 1) return true;
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (HasPrefix(tokens.View(at), {"Wind", "Böen", "Sturm"}) ||
        HasSuffix(tokens.View(at), {"wind", "winde"}))
      return tokens.View(i).size() > 1 || at + 2 == i;
  }
  return false;
}

// "die max. Dosis", "bei evtl. Schäden", "Max. Höhe": what belongs to a noun and no adverb.
bool StandsAsAttribute(const Tokens& tokens, std::size_t i, std::size_t next) {
  if (!tokens.IsBlank(next - 1) || StartsSentences(tokens.View(next))) return false;
  const std::size_t noun = NounBehind(tokens, next);
  if (noun == Tokens::kNone || IsWeekdayOrMonth(tokens.View(noun))) return false;
  const Noun what = NounOf(tokens.View(noun));
  const std::size_t before = tokens.Before(i);
  const bool opens = tokens.OpensClause(i) && (before == Tokens::kNone || !tokens.Is(before, ","));
  // "max. Wassertemp."
  const bool cut = tokens.Is(noun + 1, ".") && (StreetAt(tokens, noun) || CutWordAt(tokens, noun));
  return (what.known || what.guessed || cut) &&
         (opens || HasDeterminer(tokens, i) || HasPreposition(tokens, i));
}

// "Lied: EG 321, Str. 1–3".
bool SpeaksOfSong(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 16;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (IsOneOf(tokens.View(at), {"Lied", "Lieder", "EG", "GL", "Gesangbuch", "Gotteslob", "Gesang"}))
      return true;
  }
  return false;
}

// "Als Synonym wird „…“ verw."
bool HasPassiveVerb(const Tokens& tokens, std::size_t i) {
  for (std::size_t at = 0; at < i; ++at) {
    if (IsOneOf(tokens.View(at), {"wird", "werden", "wurde", "wurden", "worden", "ist", "sind"})) return true;
  }
  return false;
}

// "nach EG 11 TV-L".
bool SpeaksOfPay(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 16;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (IsOneOf(tokens.View(at), {"TV", "TVöD", "vergütet", "bewertet", "Vergütung", "Bezahlung",
                                  "Eingruppierung", "Tarif", "eingruppiert", "Entgelt"}))
      return true;
  }
  return false;
}

// "Arthritis", "Beckenfraktur".
bool MeansDisease(std::string_view noun) {
  return HasSuffix(
      WithLowerStart(noun),
      {"itis",    "läsion",    "ruptur",   "fraktur",    "infarkt",  "embolie",   "thrombose", "zinom",
       "phom",    "matom",     "denom",    "lanom",      "ukom",     "myom",      "ödem",      "suffizienz",
       "stenose", "pneumonie", "infekt",   "infektion",  "syndrom",  "hernie",    "arthrose",  "allergie",
       "prolaps", "anämie",    "diabetes", "hypertonie", "anfall",   "epilepsie", "demenz",    "vorfall",
       "blutung", "bruch",     "grippe",   "sklerose",   "zirrhose", "fibrose",   "mykose",    "störung",
       "insult",  "ischämie",  "reizung",  "entzündung", "krankheit"});
}

// "Die Berufung der Kl. hat Erfolg".
bool SpeaksOfLawsuit(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (tokens.IsCapital(at) &&
        HasPrefix(tokens.View(at),
                  {"Bekl", "Klage", "Berufung", "Revision", "Gericht", "Urteil", "Streit", "Schadensersatz",
                   "Rechtsstreit", "Prozess", "Landgericht", "Amtsgericht"}))
      return true;
  }
  return false;
}

bool Fits(const Abbreviation& one, const Tokens& tokens, std::size_t i, std::size_t end) {
  const std::size_t next = tokens.Skip(end);
  switch (one.around) {
    case Around::Anything:
      return true;
    case Around::Number:
      return tokens.IsNumber(NumberBehind(tokens, end));
    case Around::NumberBefore:
      return StandsBehindNumber(tokens, i);
    case Around::NoNumberBefore:
      return !StandsBehindNumber(tokens, i) && !StandsBehindOrdinal(tokens, i);
    case Around::Capital:
      return next > end && tokens.IsCapital(next);
    case Around::Name:
      return next > end && tokens.IsCapital(next) && !StartsSentences(tokens.View(next));
    case Around::Digits:
      return tokens.IsNumber(next) || (tokens.IsCapital(next) && tokens.View(next).size() == 1);
    case Around::NameBefore: {
      const std::size_t before = tokens.WordIndexBefore(i);
      return before != Tokens::kNone && tokens.IsCapital(before);
    }
    case Around::SmallWord:
      return next > end && tokens.IsWord(next) && !tokens.IsCapital(next);
    case Around::Closing:
      return tokens.OpensClause(i) && (tokens.IsGap(end) || tokens.Is(end, ",")) &&
             tokens.Count() <= end + 5 && tokens.Count() <= i + 7;
    case Around::SmallBefore: {
      const auto before = tokens.WordBefore(i);
      return !before.empty() && !IsUpperWord(before);
    }
    case Around::Colon:
      return tokens.Is(end, ":");
    case Around::Date:
      return DateShapeAt(tokens, next).has_value() ||
             (tokens.IsNumber(next, 1, 2) && tokens.Is(next + 1, ".") && !tokens.IsNumber(next + 2, 3, 3));
    case Around::Age:
      return tokens.IsNumber(next) && IsOneOf(tokens.View(tokens.Skip(next + 1)), {"J", "Jahre", "Jahren"});
    case Around::Label:
      return StandsInReference(tokens, i) && tokens.IsNumber(next);
    case Around::RulerBefore: {
      const std::size_t name = tokens.WordIndexBefore(i);
      return name != Tokens::kNone && tokens.IsCapital(name) && !NounOf(tokens.View(name)).whole &&
             !MonthAt(tokens, name);
    }
    case Around::Described:
      // "männl., 67 J.": nothing to bend it for.
      if (one.bending == Bending::Adjective && !IsUpperWord(one.written) &&
          IsOneOf(tokens.View(end), {",", ")", ";"}))
        return true;
      return next > end && NounBehind(tokens, next) != Tokens::kNone && !StartsSentences(tokens.View(next)) &&
             tokens.View(NounBehind(tokens, next)).size() > 1;  // "Dt. S. 12"
    case Around::Spice:
      return HasSuffix(tokens.View(next),
                       {"feffer", "uskat", "imt", "ümmel", "üsse", "andeln", "ngwer", "elken", "oriander",
                        "ardamom", "aprika", "urkuma", "nuss", "affee", "ohn"});
    case Around::Determined:
      return IsDeterminer(tokens.WordBefore(i));
    case Around::Year:
      return tokens.IsNumber(next, 4, 4);
    case Around::Length: {
      std::size_t unit = next;
      while (tokens.IsNumber(unit) || tokens.Is(unit, ",")) ++unit;
      return unit > next &&
             IsOneOf(tokens.View(tokens.Skip(unit)), {"cm", "mm", "m", "dm", "Zentimeter", "Meter"});
    }
    case Around::Spoon:
      return HasSuffix(tokens.View(next), {"EL", "TL", "löffel", "Löffel", "Msp", "Messerspitze"});
    case Around::Lacking:
      return HasSuffix(
          WithLowerStart(tokens.View(next)),
          {"gewähr",     "abzug",    "anspruch",  "mwSt",          "frühstück",  "balkon",   "anmeldung",
           "termin",     "befund",   "zucker",    "salz",          "rezept",     "aufpreis", "gebühr",
           "gebühren",   "versand",  "haftung",   "vorkenntnisse", "deckel",     "garantie", "alkohol",
           "begründung", "möbel",    "provision", "datum",         "lift",       "aufzug",   "keller",
           "garage",     "tiere",    "haustiere", "pause",         "titel",      "milch",    "fett",
           "fenster",    "heizung",  "gepäck",    "kosten",        "mehrkosten", "kinder",   "kohlensäure",
           "grund",      "terrasse", "abitur",    "führerschein"});
    case Around::Finding:
      return tokens.IsCapital(next) && !StartsSentences(tokens.View(next)) &&
             ((tokens.Is(next + 1, ",") && NounOf(tokens.View(next)).singular) || tokens.IsLast(next) ||
              tokens.IsLast(next + 1));
    case Around::Attribute:
      return StandsAsAttribute(tokens, i, next);
    case Around::Letter:
      if (next > end && tokens.IsCapital(next) && tokens.View(next).size() == 1 && tokens.IsNumber(next + 1))
        return true;  // "Gr. W34"
      return next > end && (IsOneOf(tokens.View(next), {"A", "B", "C", "D", "E", "F", "G", "H", "S", "M", "L",
                                                        "BE", "CE", "C1E", "AM", "T", "XS", "XL", "XXL"}) ||
                            (tokens.IsWord(next) && RomanValue(tokens.View(next)) != 0));
    case Around::Inside:
      return !tokens.OpensClause(i);
    case Around::Term:
      return tokens.IsNumber(NumberBehind(tokens, end)) &&
             !IsOneOf(tokens.WordBefore(i), {"der", "die", "Der", "Die"});
    case Around::BodyPart:
      return HasSuffix(
          WithLowerStart(tokens.View(next)),
          {"knie", "arm", "bein", "fuß", "hand", "schulter", "auge", "ohr", "hüfte", "ellenbogen", "schenkel",
           "niere", "lunge", "brust", "seite", "knöchel", "daumen", "finger", "ferse"});
    case Around::Passive:
      return tokens.IsLast(end - 1) && HasPassiveVerb(tokens, i);
    case Around::Opening:
      return next > end && tokens.IsCapital(next) && !StartsSentences(tokens.View(next)) &&
             tokens.OpensClause(i);
    case Around::PayGroup:
      return tokens.IsNumber(next) && SpeaksOfPay(tokens, i);
    case Around::Hymn:
      return tokens.IsNumber(next) && SpeaksOfSong(tokens, i);
    case Around::NoHymn:
      return !SpeaksOfSong(tokens, i) && !(tokens.IsNumber(next) && SpeaksOfPay(tokens, i));
    case Around::Wanted:
      return IsOneOf(tokens.WordBefore(i), {"an", "für", "nur"}) ||
             (tokens.Before(i) != Tokens::kNone && tokens.Is(tokens.Before(i), ",") && tokens.Is(end, ","));
    case Around::Release:
      return tokens.IsNumber(next) && tokens.Is(next + 1, ".") && tokens.IsNumber(next + 2);
    case Around::Greeted:
      return next > end && IsOneOf(tokens.View(next), {"aus", "von", "an", "vom", "zurück", "auch", "und"});
    case Around::Section:
      return tokens.Is(next, "§");
    case Around::Ward:
      return HasSuffix(
          WithLowerStart(tokens.View(next)),
          {"behandlung",  "behandlungen",   "aufenthalt", "aufenthalte", "aufenthalts", "aufenthaltes",
           "aufnahme",    "wiederaufnahme", "therapie",   "pflege",      "reha",        "rehabilitation",
           "einrichtung", "patient",        "patienten",  "entlassung",  "operation",   "abklärung",
           "versorgung",  "einweisung",     "maßnahme",   "betreuung",   "verlauf",     "überwachung",
           "leistung",    "leistungen"});
    case Around::Listed:
      return tokens.Before(i) != Tokens::kNone && tokens.Is(tokens.Before(i), ",");
    case Around::Disease:
      return MeansDisease(tokens.View(NounBehind(tokens, next)));
    case Around::Degrees:
      return tokens.Before(i) != Tokens::kNone &&
             IsOneOf(tokens.View(tokens.Before(i)), {"°", "′", "″", "'", "\""}) && i >= 3 &&
             tokens.FreeBehind(i);
    case Around::Away:
      return IsOneOf(tokens.WordBefore(i), {"km", "m", "Kilometer", "Meter", "Minuten", "min"}) ||
             (tokens.Before(i) != Tokens::kNone && tokens.Is(tokens.Before(i), ".") &&
              IsOneOf(tokens.WordBefore(tokens.Before(i)), {"Min", "Std", "min"}));
    case Around::Price: {
      const auto number = NumberAt(tokens, next);
      return number && CurrencyAt(tokens, tokens.Skip(number->end)).has_value();
    }
    case Around::OfBook:
      return tokens.Is(end, ",") && tokens.Before(i) != Tokens::kNone && tokens.Is(tokens.Before(i), ",") &&
             tokens.IsNumber(tokens.Skip(end + 1));
    case Around::Closed:
      return tokens.IsLast(end - 1) || IsOneOf(tokens.View(end), {"!", ")", ","});
    case Around::PageBefore:
      return StandsBehindPage(tokens, i, end);
    case Around::Motorway:
      return tokens.IsCapital(next) && !NounOf(tokens.View(next)).whole &&
             IsOneOf(tokens.WordBefore(i), {"der", "zwischen", "an", "und", "ab", "bis"});
    case Around::Person:
      for (std::size_t at = end; at < end + 8; ++at) {
        if (HasPrefix(tokens.View(at), {"Person", "Pers"})) return true;
      }
      return false;
    case Around::Sex: {
      const std::size_t before = tokens.Before(i);
      const std::size_t age = NumberBehind(tokens, end);
      return before != Tokens::kNone && IsOneOf(tokens.View(before), {"(", ","}) && tokens.Is(end, ",") &&
             tokens.IsNumber(age, 1, 3) &&
             IsOneOf(tokens.View(tokens.Skip(age + 1)), {"J", "Jahre", "Mon", "Monate", "-", ",", ")"});
    }
    case Around::Court:
      return !tokens.IsNumber(next) && SpeaksOfLawsuit(tokens, i) &&
             (IsOneOf(WithLowerStart(tokens.WordBefore(i)), {"der", "die"}) ||
              (i > 2 && tokens.Is(i - 2, ".") && tokens.Is(i - 3, "d")));
    case Around::OfMan:
      return IsOneOf(tokens.WordBefore(i), {"Der", "Dem", "Des", "dem", "des", "vom", "zum", "beim"});
    case Around::Quoted:
      return IsOneOf(tokens.View(next), {"„", "\"", "»", "‚"});
    case Around::Clock:
      return tokens.WordBefore(i) == "Uhr";
    case Around::Region:
      return IsOneOf(tokens.WordBefore(i), {"im", "Im"}) && tokens.IsBlank(i + 1) && tokens.IsWord(i + 2) &&
             !tokens.IsCapital(i + 2);
    case Around::Wind:
      return IsAboutWind(tokens, i);
    case Around::Percent:
      return tokens.Before(i) != Tokens::kNone && tokens.Is(tokens.Before(i), "%");
    case Around::Feminine:
      return IsOneOf(WithLowerStart(tokens.WordBefore(i)), {"die", "eine", "diese", "keine", "letzte",
                                                            "nächste", "jede", "zur", "einer", "dieser"});
    case Around::Weekday:
      return IsOneOf(tokens.View(next), {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"}) ||
             HasSuffix(tokens.View(next), {"tag", "woch", "abend"});
    case Around::Prepared:
      return tokens.IsLast(end - 1) && MeasuresIngredient(tokens, i);
    case Around::Subject:
      return SpeaksOfStudies(tokens, i);
    case Around::DayBefore:
      return StandsBehindOrdinal(tokens, i);
  }
  return false;
}

std::optional<FoundAbbreviation> Search(const Tokens& tokens, std::size_t i, std::string_view first,
                                        bool capital) {
  const auto found = ByFirstToken().find(first);
  if (found == ByFirstToken().end()) return std::nullopt;
  for (const Abbreviation* const one : found->second) {
    std::size_t end = EndOf(tokens, i, one->written);
    if (end == 0) end = EndOfBare(tokens, i, one->written);
    if (end != 0 && Fits(*one, tokens, i, end)) return FoundAbbreviation{one, capital, end};
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
  // "Baker Street 221b.": the letter of a number, but "S. 12f."
  if (i > 0 && word.size() == 1 && word != "f" && tokens.IsNumber(i - 1) && tokens.Is(i + 1, ".") &&
      (tokens.IsCapital(tokens.Skip(i + 2)) || tokens.Skip(i + 2) == tokens.Count()))
    return std::nullopt;
  // The second letter of one that is none: "3 p.m."
  if (i >= 2 && word.size() == 1 && tokens.Is(i - 1, ".") && tokens.View(i - 2).size() == 1)
    return std::nullopt;
  if (auto found = Search(tokens, i, word, false)) return found;
  if (!tokens.IsCapital(i) || !(tokens.OpensClause(i) || tokens.OpensLine(i))) return std::nullopt;
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
  if (!goesOn || NounOf(word).whole || IsAllCaps(word) || IsOftenShortened(word)) return std::nullopt;
  const std::size_t latest = word.size() - 4;  // so much of the last part has to be there
  if (word.ends_with('g') && IsNounFrom(std::string(word.substr(0, word.size() - 1)) + "ierung", latest))
    return CutNoun{std::string(word.substr(0, word.size() - 1)) + "ierung", i + 2};  // "Reservg."
  if (word.ends_with('g') && IsNounFrom(std::string(word.substr(0, word.size() - 1)) + "ung", latest))
    return CutNoun{std::string(word.substr(0, word.size() - 1)) + "ung", i + 2};
  if (HasSuffix(word, {"bark", "igk", "lichk", "samk"})) return CutNoun{std::string(word) + "eit", i + 2};
  for (const std::string_view rest :
       {"ung", "keit", "eit", "heit", "schaft", "aft",    "ion", "tion", "ation", "ität", "nis",
        "and", "ent",  "ik",  "um",   "arf",    "ehlung", "er",  "e",    "en",    "el"}) {
    std::string whole = std::string(word) + std::string(rest);
    if (IsNounFrom(whole, latest)) return CutNoun{std::move(whole), i + 2};
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
                             {"zt", "zeit"},
                             {"Nr", "Nummer"},
                             {"gen", "genossenschaft"},
                             {"allg", "allgemein"},
                             {"bez", "bezirk"},
                             {"kr", "kreis"},
                             {"mstr", "meister"},
                             {"prüf", "prüfung"},
                             {"ltg", "leitung"},
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
  if (word.empty() || (!point && !HasSuffix(word, {"str", "Str", "bhf"}))) return std::nullopt;
  for (const Part& part : kParts) {
    if (word.back() != part.written.back() || word.size() < part.written.size() + 3 ||
        !word.ends_with(part.written))
      continue;
    const bool needed = part.written != "bhf";
    if (part.written == "pl" && !(point && tokens.IsCapital(i))) continue;
    // "hauptstr. 5", but "darüberstr."
    if (part.written == "str" && !tokens.IsCapital(i) && !tokens.IsNumber(tokens.Skip(i + 2))) continue;
    // Only where the sentence goes on it is certain that a word was cut.
    const bool common = IsOneOf(part.written, {"str", "Str", "nr", "Nr", "pl", "bhf", "whg"});
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
