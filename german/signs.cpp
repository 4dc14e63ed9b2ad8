#include "german/signs.h"

#include "german/dates.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

// "§ 5", "§§ 5 und 6", "§ 5a": the number and a letter that touches it.
Found ParagraphAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "§")) return std::nullopt;
  std::size_t end = i + 1;
  const bool many = tokens.Is(end, "§");
  if (many) ++end;
  const std::size_t before = tokens.Before(i);
  const bool cut =
      before != Tokens::kNone && tokens.Is(before, ".") && tokens.Is(before - 1, "d");  // "i. S. d. §"
  const bool bent = cut || IsOneOf(WithLowerStart(tokens.WordBefore(i)),
                                   {"des", "dem", "den", "vom", "zum", "im", "beim", "eines"});
  std::string words = many || bent ? "Paragrafen" : "Paragraf";
  if (!tokens.IsGap(end)) words += ' ';
  return Phrase{end, words};
}

// "5a" behind a paragraph: the letter is said for itself.
struct SignName {
  std::string_view sign;
  std::string_view name;
};

// Between two things, with blanks on both sides or none.
constexpr SignName kBetween[] = {{"≈", "ungefähr"},
                                 {"≙", "entspricht"},
                                 {"≠", "ungleich"},
                                 {"≤", "kleiner oder gleich"},
                                 {"≥", "größer oder gleich"},
                                 {"±", "plus minus"},
                                 {"<", "kleiner als"},
                                 {">", "größer als"},
                                 {"÷", "geteilt durch"},
                                 {"×", "mal"},
                                 {"·", "mal"},
                                 {"√", "Wurzel aus"},
                                 {"∞", "unendlich"},
                                 {"=", "gleich"},
                                 {"∅", "durchschnittlich"},
                                 {"~", "circa"}};

bool NumberFollows(const Tokens& tokens, std::size_t i) {
  std::size_t next = tokens.Skip(i);
  if (tokens.Is(next, ".") && tokens.IsNumber(next + 1)) return true;  // "p < .001"
  if (tokens.IsDashAt(next) || tokens.Is(next, "+") || tokens.Is(next, "$") || tokens.Is(next, "€")) ++next;
  return tokens.IsNumber(next);
}

std::string WithGaps(const Tokens& tokens, std::size_t i, std::string_view name) {
  const bool before = i > 0 && !tokens.IsGap(i - 1) && !IsOneOf(tokens.View(i - 1), {"(", "[", "„", "\""});
  const bool behind =
      i + 1 < tokens.Count() && !tokens.IsGap(i + 1) && !IsOneOf(tokens.View(i + 1), {")", "]", ",", "."});
  return (before ? " " : "") + std::string(name) + (behind ? " " : "");
}

// "Einstellungen > Allgemein > Info": the way through a menu.
bool LeadsThroughMenu(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  return before != Tokens::kNone && before > 0 &&
         (tokens.IsCapital(before) || (tokens.Is(before, ".") && tokens.IsCapital(before - 1))) &&
         tokens.IsCapital(i + 2) && tokens.View(i + 2).size() > 1;
}

bool HasEquation(const Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.Count() && i < 60; ++i) {
    if (tokens.Is(i, "=")) return true;
  }
  return false;
}

// "bei Kindern (<12 Jahren)": the dative shows that a preposition is read.
Found AgeLimitAt(const Tokens& tokens, std::size_t i) {
  const std::size_t number = tokens.Skip(i + 1);
  if (!IsOneOf(tokens.View(i), {"<", ">"}) || !tokens.IsNumber(number) ||
      !IsOneOf(tokens.View(tokens.Skip(number + 1)), {"Jahren", "Monaten", "Tagen"}))
    return std::nullopt;
  return Phrase{i + 1, WithGaps(tokens, i, tokens.Is(i, "<") ? "unter" : "über")};
}

// "> > Hallo": a quotation in another one.
bool QuotesAgain(const Tokens& tokens, std::size_t i) {
  while (i > 0 && (tokens.IsBlank(i - 1) || tokens.Is(i - 1, ">"))) --i;
  return tokens.OpensLine(i) && tokens.Is(i, ">");
}

Found MathSignAt(const Tokens& tokens, std::size_t i) {
  if (auto limit = AgeLimitAt(tokens, i)) return limit;
  for (const SignName& one : kBetween) {
    if (!tokens.Is(i, one.sign)) continue;
    const bool spaced = i > 0 && tokens.IsBlank(i - 1) && tokens.IsBlank(i + 1) && !tokens.OpensLine(i);
    const bool compares =
        spaced && IsOneOf(one.sign, {"<", ">", "="}) && (tokens.IsWord(i + 2) || tokens.IsNumber(i + 2));
    if (one.sign == "·" && spaced && (tokens.IsWord(i + 2) || tokens.Is(i + 2, "(")) && HasEquation(tokens))
      return Phrase{i + 1, "mal"};
    if (!compares && !NumberFollows(tokens, i + 1) && !IsOneOf(one.sign, {"≈", "≠", "≤", "≥", "÷", "∞"}))
      return std::nullopt;
    // "(= 1 Messlöffel)".
    if (one.sign == "=" && i > 0 && tokens.Is(i - 1, "(") && tokens.IsBlank(i + 1))
      return Phrase{i + 1, "gleich"};
    if (IsOneOf(one.sign, {"·", "="}) &&
        (tokens.Before(i) == Tokens::kNone || !(compares || tokens.IsNumber(tokens.Before(i)))))
      return std::nullopt;
    if (one.sign == "<" && tokens.Is(i + 1, "3") && tokens.IsGap(i + 2)) return Phrase{i + 2, "Herz"};
    if (IsOneOf(one.sign, {"<", ">"})) {
      if (i > 0 && IsOneOf(tokens.View(i - 1), {"-", "=", "<", ">"})) return std::nullopt;
      if (one.sign == ">" && i >= 2 && tokens.Is(i - 2, "<")) return std::nullopt;  // "<Anna> 46 Zeichen"
      if (one.sign == ">" && QuotesAgain(tokens, i)) return std::nullopt;
      // The sign of a quoted line.
      if (one.sign == ">" && spaced && LeadsThroughMenu(tokens, i)) return Phrase{i + 1, "–"};
      if (one.sign == ">" && tokens.OpensLine(i) && tokens.IsBlank(i + 1)) return std::nullopt;
    }
    return Phrase{i + 1, WithGaps(tokens, i, one.name)};
  }
  return std::nullopt;
}

bool SpeaksOfJourney(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (!tokens.IsWord(at)) continue;
    if (IsOneOf(tokens.View(at),
                {"ICE", "IC", "EC", "RE", "RB", "Gl", "Uhr", "Hbf", "Bhf", "Hauptbahnhof"}) ||
        HasSuffix(
            WithLowerStart(tokens.View(at)),
            {"bahn",    "zug",      "züge",   "bus",     "busse",  "flug",  "flüge",   "fähre",  "linie",
             "strecke", "fahrt",    "reise",  "umstieg", "fahren", "fährt", "fliegen", "reisen", "ticket",
             "gleis",   "richtung", "etappe", "route",   "radweg", "stau",  "bahnhof"}))
      return true;
  }
  return false;
}

// "Berlin → München", "Datei → Drucken", "(→ Abb. 3)", "Preis: 5 → 7 €".
Found ArrowAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "→")) return std::nullopt;
  const std::size_t next = tokens.Skip(i + 1);
  const std::size_t before = tokens.Before(i);
  if (tokens.IsGap(next) || next >= tokens.Count()) return std::nullopt;
  const bool refers = before != Tokens::kNone && IsOneOf(tokens.View(before), {"siehe", "Siehe"});
  if (tokens.OpensLine(i) || refers) return Phrase{next, ""};
  if (before != Tokens::kNone && IsOneOf(tokens.View(before), {"(", ",", ";"})) return Phrase{i + 1, "siehe"};
  const bool gap = i > 0 && tokens.IsBlank(i - 1);
  const bool changes = tokens.IsNumber(before) || tokens.IsNumber(next);
  const bool leads = tokens.IsCapital(next) && SpeaksOfJourney(tokens, i);
  const std::string word = changes || leads ? "nach " : "– ";
  return Phrase{next, (gap ? "" : " ") + word};
}

// "10 + 5 - 3 = 7", "650 € + Nebenkosten": between two things that do not touch it.
Found PlusMinusAt(const Tokens& tokens, std::size_t i) {
  if (i < 2 || !tokens.IsBlank(i - 1) || !tokens.IsBlank(i + 1) || tokens.OpensLine(i)) return std::nullopt;
  const bool number = tokens.IsNumber(i + 2);
  if (tokens.Is(i, "+") && (number || tokens.IsWord(i + 2))) return Phrase{i + 1, "plus"};
  // "3x² - 2x + 5".
  const bool term = tokens.IsNumber(i - 2) || IsOneOf(tokens.View(i - 2), {"²", "³", ")"}) ||
                    (tokens.IsWord(i - 2) && tokens.View(i - 2).size() == 1);
  if (!tokens.IsDashAt(i) || !number || !term || !HasEquation(tokens)) return std::nullopt;
  return Phrase{i + 1, "minus"};
}

// "230 V~": the wave of the current is not said.
Found WaveBehindUnitAt(const Tokens& tokens, std::size_t i) {
  const bool behindUnit = tokens.Is(i, "~") && i > 2 && IsOneOf(tokens.View(i - 1), {"V", "A"}) &&
                          tokens.IsNumber(tokens.IsBlank(i - 2) ? i - 3 : i - 2);
  const bool ends = tokens.IsGap(i + 1) || IsOneOf(tokens.View(i + 1), {",", ")", ";", "/", "."});
  return behindUnit && ends ? Found(Phrase{i + 1, ""}) : std::nullopt;
}

// "auf die Polung (+/-)", "+/− 5 %".
Found PlusOrMinusAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "+") || !tokens.Is(i + 1, "/") || !tokens.IsDashAt(i + 2)) return std::nullopt;
  const bool free = i == 0 || tokens.IsGap(i - 1) || tokens.Is(i - 1, "(");
  if (!free || !(tokens.IsGap(i + 3) || tokens.Is(i + 3, ")"))) return std::nullopt;
  return Phrase{i + 3, "plus minus"};
}

// "10¹²", "10⁻³": the power that is set above the number.
Found HighPowerAt(const Tokens& tokens, std::size_t i) {
  constexpr std::string_view kDigits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
  if (i == 0 || !tokens.IsNumber(i - 1)) return std::nullopt;
  const bool minus = tokens.Is(i, "⁻");
  std::size_t at = minus ? i + 1 : i;
  std::uint64_t power = 0;
  for (; at < i + 4; ++at) {
    std::uint64_t digit = 0;
    while (digit < 10 && !tokens.Is(at, kDigits[digit])) ++digit;
    if (digit == 10) break;
    power = 10 * power + digit;
  }
  if (at == (minus ? i + 1 : i) || (at == i + 1 && (tokens.Is(i, "²") || tokens.Is(i, "³"))))
    return std::nullopt;
  return Phrase{at, (minus ? " hoch minus " : " hoch ") + CardinalWords(power)};
}

// "CO₂", "H₂O".
Found SubscriptAt(const Tokens& tokens, std::size_t i) {
  constexpr std::string_view kDigits[] = {"₀", "₁", "₂", "₃", "₄", "₅", "₆", "₇", "₈", "₉"};
  if (i == 0 || !tokens.IsWord(i - 1)) return std::nullopt;
  for (std::uint64_t digit = 0; digit < 10; ++digit) {
    if (tokens.Is(i, kDigits[digit])) return Phrase{i + 1, " " + CardinalWords(digit)};
  }
  return std::nullopt;
}

// "Note: 2-", "eine 3+ in Mathe": a mark in school.
Found MarkAt(const Tokens& tokens, std::size_t i) {
  if (i < 2 || !tokens.IsDashAt(i) || !tokens.IsNumber(i - 1, 1, 1) || !tokens.FreeBefore(i - 1) ||
      !(tokens.IsGap(i + 1) || IsOneOf(tokens.View(i + 1), {",", ".", ")", ";"})))
    return std::nullopt;
  const std::size_t next = tokens.Skip(i + 1);
  if (tokens.IsNumber(next) || IsOneOf(tokens.View(next), {"und", "oder", "bis", "bzw", "€"}))
    return std::nullopt;
  constexpr std::size_t kNear = 20;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (HasPrefix(tokens.View(at),
                  {"Note", "Zeugnis", "Halbjahr", "Hj", "Klausur", "Arbeit", "Klassenarbeit"}) ||
        (at + 3 == i && IsOneOf(tokens.View(at), {"eine", "einer"})))
      return Phrase{i + 1, " minus"};
  }
  return std::nullopt;
}

// "DIN EN 1090-2", "ISO 9001:2015".
Found SignInNormAt(const Tokens& tokens, std::size_t i) {
  if (i < 3 || !tokens.IsNumber(i - 1) || !tokens.IsNumber(i + 1) || !tokens.IsBlank(i - 2) ||
      !IsOneOf(tokens.View(i - 3), {"DIN", "EN", "ISO", "VDE", "IEC", "VDI"}))
    return std::nullopt;
  if (tokens.Is(i, "-")) return Phrase{i + 1, " Strich "};
  return tokens.Is(i, ":") ? Found(Phrase{i + 1, " Doppelpunkt "}) : std::nullopt;
}

// "r = .43", "p < .001": the zero before the point is left out.
Found PointBeforeDigitsAt(const Tokens& tokens, std::size_t i) {
  const std::size_t sign = tokens.Before(i);
  if (!tokens.Is(i, ".") || !tokens.IsNumber(i + 1) || !tokens.FreeBehind(i + 1) || sign == Tokens::kNone ||
      !IsOneOf(tokens.View(sign), {"=", "<", ">", "≤", "≥", "≈", "-", "−", "–"}))
    return std::nullopt;
  return Phrase{i + 2, "Punkt " + DigitWords(tokens.View(i + 1))};
}

// "54,30 EUR-" of a statement of account.
Found DebitAt(const Tokens& tokens, std::size_t i) {
  const bool debit = i >= 3 && tokens.Is(i, "-") && IsOneOf(tokens.View(i - 1), {"EUR", "€"}) &&
                     tokens.IsGap(i + 1) && tokens.IsNumber(tokens.Before(i - 1)) &&
                     !tokens.IsWord(tokens.Skip(i + 1)) && !tokens.IsNumber(tokens.Skip(i + 1));
  return debit ? Found(Phrase{i + 1, " minus"}) : std::nullopt;
}

// "das rote Kabel (+)": the sign itself is meant.
Found SignAloneAt(const Tokens& tokens, std::size_t i) {
  if (i == 0 || !tokens.Is(i - 1, "(") || !tokens.Is(i + 1, ")")) return std::nullopt;
  if (tokens.Is(i, "+")) return Phrase{i + 1, "plus"};
  return tokens.IsDashAt(i) ? Found(Phrase{i + 1, "minus"}) : std::nullopt;
}

// "mc²", "2³", "2^3".
Found PowerAt(const Tokens& tokens, std::size_t i) {
  if (tokens.Is(i, "^") && i > 0 && (tokens.IsNumber(i - 1) || tokens.View(i - 1).size() == 1) &&
      (tokens.IsNumber(i + 1) || (tokens.IsWord(i + 1) && tokens.View(i + 1).size() == 1)))
    return Phrase{i + 1, " hoch "};
  const bool square = tokens.Is(i, "²");
  if ((!square && !tokens.Is(i, "³")) || i == 0 || !(tokens.IsWord(i - 1) || tokens.IsNumber(i - 1)))
    return std::nullopt;
  if (tokens.IsWord(i - 1) && tokens.View(i - 1).size() > 2) return std::nullopt;
  if (tokens.Is(i + 1, "²") || tokens.Is(i + 1, "³")) {  // "10²³"
    const std::uint64_t high = square ? 2 : 3;
    return Phrase{i + 2, " hoch " + CardinalWords(10 * high + (tokens.Is(i + 1, "²") ? 2 : 3))};
  }
  return Phrase{i + 1, square ? " hoch zwei" : " hoch drei"};
}

// "A++", "Disney+": behind a name.
Found PlusBehindNameAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "+") || i == 0 || !(tokens.IsWord(i - 1) || tokens.Is(i - 1, "+"))) return std::nullopt;
  // "Strg+C": keys that are pressed together.
  if (IsOneOf(tokens.View(i - 1),
              {"Strg", "Alt", "Umschalt", "Ctrl", "Shift", "Win", "Steuerung", "Windows", "Cmd"}))
    return Phrase{i + 1, " plus "};
  if (!tokens.Is(i + 1, "+") && !tokens.IsGap(i + 1) &&
      !IsOneOf(tokens.View(i + 1), {".", ",", ")", "-", "!", "?", ":", ";", "/", "“", "\"", "«"}))
    return std::nullopt;
  return Phrase{i + 1, " plus"};
}

// "Gleis 3a–c", "Seite A–D": from one letter to a later one.
Found LetterSpanAt(const Tokens& tokens, std::size_t i) {
  if (i == 0 || !tokens.IsDashAt(i)) return std::nullopt;
  const auto first = tokens.View(i - 1);
  const auto last = tokens.View(i + 1);
  if (first.size() != 1 || last.size() != 1 || !tokens.IsWord(i - 1) || !tokens.IsWord(i + 1))
    return std::nullopt;
  const bool parted =
      i >= 3 && tokens.IsBlank(i - 2) && tokens.IsNumber(i - 3) && !IsUpperWord(first);  // "3 a-c"
  const bool counted = (i >= 2 && tokens.IsNumber(i - 2)) || parted;
  const bool alone = i < 2 || tokens.IsGap(i - 2) || tokens.Is(i - 2, "(");
  const bool rising = first.front() < last.front() && IsUpperWord(first) == IsUpperWord(last);
  const bool span = counted || (alone && (tokens.Is(i, "–") || (first == "A" && last == "Z")));
  if (!rising || !span || !tokens.FreeBehind(i + 1) || tokens.Is(i + 2, "-")) return std::nullopt;
  return Phrase{i + 1, " bis "};
}

// "von Mai 1998 – Juni 2004": from one month to another.
Found MonthSpanAt(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  if (!tokens.IsDashAt(i) || before == Tokens::kNone || !tokens.IsNumber(before, 4, 4)) return std::nullopt;
  const auto next = MonthAt(tokens, tokens.Skip(i + 1));
  std::size_t month = tokens.Before(before);
  if (month != Tokens::kNone && month > 0 && tokens.Is(month, ".")) --month;
  if (!next || !tokens.IsNumber(tokens.Skip(next->end), 4, 4) || month == Tokens::kNone ||
      !MonthAt(tokens, month))
    return std::nullopt;
  return Phrase{tokens.Skip(i + 1), tokens.IsBlank(i - 1) ? "bis " : " bis "};
}

bool IsCodeLetters(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  if (!tokens.IsWord(i)) return false;
  return IsAllCaps(word) || (word.size() <= 2 && IsUpperWord(word));
}

// "Geschäftszeichen 32-14.1/2024", "Kundennummer ist die 40-118-7".
bool StandsInReference(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 12;  // tokens
  for (std::size_t at = i; at-- > 0 && at + kNear > i;) {
    if (tokens.Is(at, ",")) return false;
    if (tokens.IsWord(at) &&
        HasSuffix(tokens.View(at), {"eichen", "nummer", "Nummer", "nr", "Az", "Kennziffer", "Referenz"}))
      return true;
  }
  return false;
}

// "RE-10442", "E-04", "22-S-004518": a dash between letters and digits of a number joins nothing.
Found DashInCodeAt(const Tokens& tokens, std::size_t i) {
  if (i == 0 || !tokens.Is(i, "-")) return std::nullopt;
  if (tokens.IsNumber(i - 1) && tokens.IsNumber(i + 1) && StandsInReference(tokens, i))
    return Phrase{i + 1, " Strich "};
  const bool letters = IsCodeLetters(tokens, i - 1) && tokens.IsNumber(i + 1);
  const bool digits = tokens.IsNumber(i - 1) && IsCodeLetters(tokens, i + 1);
  if (!letters && !digits) return std::nullopt;
  // "3-D-Drucker", "UKW-4-Kanal".
  for (std::size_t at = i + 2; at < i + 12 && !tokens.IsGap(at); ++at) {
    if (tokens.IsDashAt(at) && tokens.IsWord(at + 1) && !IsCodeLetters(tokens, at + 1)) return std::nullopt;
  }
  return Phrase{i + 1, " "};
}

// "bericht_neu", "2_Protokolle".
Found UnderscoreAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "_") || i == 0) return std::nullopt;
  const bool before = tokens.IsWord(i - 1) || tokens.IsNumber(i - 1);
  const bool behind = tokens.IsWord(i + 1) || tokens.IsNumber(i + 1);
  return before && behind ? Found(Phrase{i + 1, " Unterstrich "}) : std::nullopt;
}

// "Müller & Sohn", "C&A" stays.
Found AmpersandAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "&") || i == 0 || !tokens.IsBlank(i - 1) || !tokens.IsBlank(i + 1)) return std::nullopt;
  return Phrase{i + 1, "und"};
}

// "* 1970", "†2020", "* 3. Mai 1970".
Found LifeSignAt(const Tokens& tokens, std::size_t i) {
  const bool born = tokens.Is(i, "*");
  const bool died = tokens.Is(i, "†") || tokens.Is(i, "✝");
  if (!born && !died) return std::nullopt;
  std::size_t next = tokens.Skip(i + 1);
  const bool about = tokens.Is(next, "um");
  if (!DateShapeAt(tokens, next) && !tokens.IsNumber(next, 4, 4) && !about) return std::nullopt;
  if (born && i > 0 && !IsOneOf(tokens.View(i - 1), {"("}) && !tokens.IsGap(i - 1)) return std::nullopt;
  if (born && tokens.OpensLine(i) && tokens.IsBlank(i + 1) && !DateShapeAt(tokens, next) &&
      !tokens.IsNumber(next, 4, 4))
    return std::nullopt;
  if (born && i > 0 && tokens.Before(i) != Tokens::kNone && tokens.IsNumber(tokens.Before(i)))
    return std::nullopt;
  std::string words = born ? "geboren" : "gestorben";
  if (const auto day = DayWithEnding(tokens, next, "en"))
    return Phrase{day->end, WithGaps(tokens, i, words) + (tokens.IsGap(i + 1) ? " am " : "am ") + day->words};
  return Phrase{i + 1, WithGaps(tokens, i, words)};
}

// "Müller ./. Stadt Köln", "./. 2 % Skonto".
Found AgainstAt(const Tokens& tokens, std::size_t i) {
  if (!IsAgainstSign(tokens, i) || !tokens.IsGap(i + 3)) return std::nullopt;
  return Phrase{i + 3, NumberFollows(tokens, i + 3) ? "minus" : "gegen"};
}

}  // namespace

bool IsAgainstSign(const Tokens& tokens, std::size_t i) {
  return tokens.Is(i, ".") && tokens.Is(i + 1, "/") && tokens.Is(i + 2, ".") &&
         (i == 0 || tokens.IsGap(i - 1));
}

Found PunctuationAt(const Tokens& tokens, std::size_t i) {
  if (auto against = AgainstAt(tokens, i)) return against;
  if (!tokens.IsNumber(i + 1) || !IsOneOf(tokens.View(i), {".", ":"})) return std::nullopt;
  if (auto point = PointBeforeDigitsAt(tokens, i)) return point;
  return SignInNormAt(tokens, i);
}

Found SignAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading :
       {&DashInCodeAt, &UnderscoreAt,     &ParagraphAt,      &LifeSignAt,  &ArrowAt,
        &MathSignAt,   &PlusOrMinusAt,    &WaveBehindUnitAt, &PlusMinusAt, &SignAloneAt,
        &HighPowerAt,  &DebitAt,          &SubscriptAt,      &MarkAt,      &SignInNormAt,
        &PowerAt,      &PlusBehindNameAt, &LetterSpanAt,     &MonthSpanAt, &AmpersandAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

}  // namespace lorelin
