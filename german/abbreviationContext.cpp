#include "german/abbreviationContext.h"

#include <string>

#include "german/cutWords.h"
#include "german/dates.h"
#include "german/grammar.h"
#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/units.h"

namespace lorelin {
namespace {

bool IsWeekdayOrMonth(std::string_view word) {
  return IsMonth(word) || HasSuffix(word, {"tag", "woch", "abend", "Abend", "morgen", "Morgen", "Sonnabend"});
}

std::size_t NumberBehind(const Tokens& tokens, std::size_t end) {
  std::size_t next = tokens.Skip(end);
  if (IsOneOf(tokens.View(next), {",", ":", "-", "–", "ca"})) next = tokens.Skip(next + 1);
  return next;
}

// "1, 2, 3, …, n. Wenn es mehr sind": the letter ends its sentence.
bool OpensNextSentence(const Tokens& tokens, std::size_t next) {
  return IsOneOf(tokens.View(next),
                 {"Die",  "Der",   "Das",   "Den",  "Dem",  "Es",   "Er",     "Wir",   "Dann",  "Danach",
                  "Und",  "Oder",  "Aber",  "Wenn", "Als",  "Ob",   "Dass",   "Weil",  "Da",    "Damit",
                  "Hier", "Heute", "Jetzt", "Nun",  "Auch", "Noch", "So",     "Wie",   "Was",   "Wer",
                  "Im",   "In",    "Am",    "Bei",  "Mit",  "Für",  "Dieser", "Diese", "Dieses"});
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

// "Urt. v. 12.5.2025, LG Köln": the court and no greeting.
bool NamesDecision(const Tokens& tokens, std::size_t i) {
  for (std::size_t at = 0; at < i; ++at) {
    if (IsOneOf(tokens.View(at), {"Urt", "Urteil", "Beschl", "Beschluss", "Az", "Aktenzeichen"})) return true;
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
  const bool opens =
      tokens.OpensClause(i) && (before == Tokens::kNone || !tokens.Is(before, ",") || tokens.IsCapital(i));
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
        HasPrefix(tokens.View(at), {"Bekl", "Klage", "Berufung", "Revision", "Gericht", "Urteil", "Streit",
                                    "Schadensersatz", "Rechtsstreit", "Prozess", "Landgericht", "Amtsgericht",
                                    "Mietverh", "Mietvertr", "Vermieter", "Kündigung"}))
      return true;
  }
  return false;
}

}  // namespace

bool FitsAround(const Abbreviation& one, const Tokens& tokens, std::size_t i, std::size_t end) {
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
      return next > end && tokens.IsCapital(next) &&
             !(one.written.size() == 2 && OpensNextSentence(tokens, next));
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
             tokens.Count() <= end + 5 && tokens.Count() <= i + 7 && !NamesDecision(tokens, i);
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
      if (name == Tokens::kNone || !tokens.IsCapital(name) || MonthAt(tokens, name)) return false;
      // "Alexandre Dumas d. J.": a name that is a noun as well, behind a first name.
      const std::size_t first = tokens.WordIndexBefore(name);
      return !NounOf(tokens.View(name)).whole ||
             (first != Tokens::kNone && tokens.IsCapital(first) && !NounOf(tokens.View(first)).known &&
              !StartsSentences(tokens.View(first)));
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
    case Around::Lawful:
      return HasSuffix(WithLowerStart(tokens.View(next)), {"feiertag",
                                                           "feiertage",
                                                           "feiertagen",
                                                           "vertreter",
                                                           "vertreterin",
                                                           "vertreters",
                                                           "krankenversicherung",
                                                           "krankenkasse",
                                                           "krankenkassen",
                                                           "rente",
                                                           "kündigungsfrist",
                                                           "frist",
                                                           "fristen",
                                                           "vorschrift",
                                                           "vorschriften",
                                                           "bestimmung",
                                                           "bestimmungen",
                                                           "regelung",
                                                           "regelungen",
                                                           "grundlage",
                                                           "anspruch",
                                                           "gewährleistung",
                                                           "betreuer",
                                                           "betreuerin",
                                                           "erbfolge",
                                                           "erbe",
                                                           "erben",
                                                           "zinsen",
                                                           "mindestlohn",
                                                           "unfallversicherung",
                                                           "rentenversicherung",
                                                           "widerrufsrecht",
                                                           "vorgaben",
                                                           "vorgabe",
                                                           "pflicht",
                                                           "pflichten"});
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
      // "eine bes. schöne Zeit".
      if (one.spoken == "besonder" && !tokens.IsCapital(next)) return false;
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
      // "Die EG wurde gegründet".
      return !SpeaksOfSong(tokens, i) && !IsOneOf(tokens.WordBefore(i), {"der", "die", "Der", "Die"}) &&
             !(tokens.IsNumber(next) && SpeaksOfPay(tokens, i));
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
             tokens.Before(tokens.Before(i)) != Tokens::kNone &&
             tokens.IsNumber(tokens.Before(tokens.Before(i))) && tokens.FreeBehind(i);
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
    case Around::OfThing:
      return IsOneOf(WithLowerStart(tokens.WordBefore(i)),
                     {"das", "dieses", "im", "am", "beim", "ins", "dem", "vom"});
    case Around::Scored: {
      const std::size_t bracket = tokens.Before(i);
      return bracket != Tokens::kNone && bracket > 3 && tokens.Is(bracket, ")") &&
             tokens.IsNumber(bracket - 1) && tokens.Is(bracket - 2, ":");
    }
    case Around::Weighed:
      return IsOneOf(tokens.WordBefore(i), {"kg", "g", "Kilogramm"});
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
    case Around::FirstOfClause:
      return tokens.OpensClause(i) && tokens.IsNumber(NumberBehind(tokens, end));
    case Around::OneOfTime: {
      std::size_t before = tokens.Before(i);
      if (before != Tokens::kNone && before > 0 && tokens.Is(before, ".")) --before;
      return before != Tokens::kNone &&
             IsOneOf(tokens.View(before), {"weitere", "weiteren", "angefangene", "angefangenen", "angef",
                                           "pro", "Pro", "je", "Je", "jede", "Jede", "einer", "eine"});
    }
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
    case Around::AsTitle: {
      const auto before = tokens.WordBefore(i);
      return next > end && tokens.IsCapital(next) && !StartsSentences(tokens.View(next)) &&
             (before.empty() || IsUpperWord(before) || IsDeterminer(before));
    }
    case Around::Continued:
      return !tokens.IsLast(end - 1) && !StartsSentences(tokens.View(next));
  }
  return false;
}

}  // namespace lorelin
