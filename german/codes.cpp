#include "german/codes.h"

#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/units.h"

namespace lorelin {
namespace {

constexpr std::size_t kLeastPhoneDigits = 6;
constexpr std::size_t kMostPhoneDigits = 20;  // of a parcel

// Behind these long numbers are said digit by digit.
bool IsCodeWord(std::string_view word) {
  return HasSuffix(
      word, {"nummer",  "Nummer",       "ID",       "Nr",   "nr",    "Kunde",        "SN",       "Konto",
             "konto",   "PIN",          "TAN",      "Code", "code",  "Aktenzeichen", "zeichen",  "RE",
             "BLZ",     "Bankleitzahl", "Postfach", "IK",   "Depot", "KdNr",         "Kennung",  "Mitglied",
             "Vertrag", "Az",           "Kto",      "StNr", "PW",    "Passwort",     "Kennwort", "passwort"});
}

bool IsPhoneWord(std::string_view word) {
  return IsOneOf(word, {"Tel",         "Telefon",     "Telefonnummer",
                        "Fax",         "Telefax",     "Faxnummer",
                        "Mobil",       "Mob",         "Handy",
                        "Handynummer", "Rufnummer",   "Hotline",
                        "Durchwahl",   "Durchw",      "Service",
                        "Festnetz",    "WhatsApp",    "Servicenummer",
                        "Auskunft",    "Telefonisch", "telefonisch",
                        "T",           "F",           "M",
                        "Zentrale",    "Mobilnummer",

                        "erreichen",   "erreichbar",  "Bereitschaftsdienst"});
}

// A word for telephones stands right before, perhaps with a colon or "unter" between.
bool PhoneWordBefore(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  for (int step = 0; step < 4 && at != Tokens::kNone; ++step) {
    if (tokens.IsWord(at)) {
      // "F 89" of a file is no fax.
      const bool letter = tokens.View(at).size() == 1;
      const std::size_t before = tokens.Before(at);
      const bool file = letter && before != Tokens::kNone && tokens.IsNumber(before) &&
                        tokens.View(i).front() != '0' && !tokens.Is(i, "+") && !tokens.Is(i, "(");
      const bool partOfCut = letter && before != Tokens::kNone && tokens.Is(before, ".");  // "ü. d. M. 412"
      if (IsPhoneWord(tokens.View(at)) && !file && !partOfCut) return true;
      if (!IsOneOf(tokens.View(at), {"unter",   "der", "Nummer", "Nr",        "ist",      "lautet",   "die",
                                     "mit",     "Sie", "uns",    "erreichen", "mich",     "an",       "rufen",
                                     "täglich", "ihr", "du",     "man",       "erreicht", "erreichst"}))
        return false;
    } else if (!IsOneOf(tokens.View(at), {":", ".", "-"})) {
      return false;
    }
    at = tokens.Before(at);
  }
  return false;
}

// The groups of digits from the token on, and what parts them.
struct DigitGroups {
  std::string words;
  std::size_t digits = 0;
  std::size_t groups = 0;
  std::size_t end = 0;
};

bool PartsPhoneGroups(const Tokens& tokens, std::size_t i) {
  if (tokens.Is(i, "(")) return tokens.Is(i + 1, "0") && tokens.Is(i + 2, ")");
  return tokens.IsBlank(i) || tokens.IsDashAt(i) || IsOneOf(tokens.View(i), {"/", ")", "."});
}

DigitGroups ReadGroups(const Tokens& tokens, std::size_t i, std::size_t most) {
  DigitGroups groups;
  groups.end = i;
  while (tokens.IsNumber(i) && groups.digits < most) {
    if (groups.groups > 0) groups.words += ", ";
    groups.words += DigitWords(tokens.View(i));
    groups.digits += tokens.View(i).size();
    ++groups.groups;
    groups.end = ++i;
    for (int gap = 0; gap < 3 && PartsPhoneGroups(tokens, i); ++gap) ++i;
  }
  return groups;
}

bool FollowsAsPhone(const Tokens& tokens, std::size_t end) {
  if (!tokens.FreeBehind(end - 1)) return false;
  return !(IsOneOf(tokens.View(end), {",", ":", "%", "€"}) &&
           (tokens.IsNumber(end + 1) || !tokens.IsGap(end + 1)));
}

// "0711 12345", "+49 30 297-0", "(089) 123 45 67".
Found PhoneAt(const Tokens& tokens, std::size_t i) {
  std::size_t at = i;
  std::string words;
  if (tokens.Is(at, "(") && (tokens.IsNumber(at + 1) || tokens.Is(at + 1, "+"))) ++at;
  const bool plus = tokens.Is(at, "+");
  if (plus) {
    words = "plus ";
    ++at;
  }
  if (!tokens.IsNumber(at) || !tokens.FreeBefore(at)) return std::nullopt;
  const bool zero = tokens.View(at).front() == '0';
  const bool named = PhoneWordBefore(tokens, i);
  if (!plus && !zero && !named) return std::nullopt;
  if (!zero && !plus && tokens.Is(at + 1, ".") && tokens.IsNumber(at + 2)) return std::nullopt;
  const DigitGroups groups = ReadGroups(tokens, at, kMostPhoneDigits);
  if (!FollowsAsPhone(tokens, groups.end)) return std::nullopt;
  const std::size_t least = named ? 3 : (groups.groups == 1 ? kLeastPhoneDigits + 1 : kLeastPhoneDigits);
  if (groups.digits < least) return std::nullopt;
  // "01.02.2024" is a date, "0,5" and "007" are numbers.
  if (!named && zero && tokens.View(at).size() < 3 && tokens.Is(at + 1, ".")) return std::nullopt;
  // "(0 30) 4 49 17 62": the brackets tell that the parts belong together.
  const bool area = tokens.Is(i, "(") && tokens.IsNumber(at + 2) && tokens.Is(at + 3, ")");
  if (!named && !area && zero && groups.groups > 1 && tokens.View(at).size() < 3 && !tokens.Is(at, "00"))
    return std::nullopt;
  return Phrase{groups.end, words + groups.words};
}

// "Wählen Sie die 112", "rief die 110": the verb stands before or behind.
bool DialsSomewhere(const Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.Count() && i < 60; ++i) {
    if (HasPrefix(WithLowerStart(tokens.View(i)),
                  {"wähl", "ruf", "rief", "anruf", "anzurufen", "notruf", "notfall", "gerufen", "erreich",
                   "alarmier", "polizei", "feuerwehr", "rettungs", "telefon"}))
      return true;
  }
  return false;
}

// "Fax -68": what is dialled behind the number before.
Found ExtensionAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsDashAt(i) || !tokens.IsNumber(i + 1, 1, 4)) return std::nullopt;
  const bool dialled = tokens.WordBefore(i) == "unter" && DialsSomewhere(tokens) &&
                       !UnitAt(tokens, tokens.Skip(i + 2));  // "Frau Lutz erreichen Sie unter -312"
  if (!dialled && !PhoneWordBefore(tokens, i)) return std::nullopt;
  if (i == 0 || !tokens.IsBlank(i - 1) || !tokens.FreeBehind(i + 1)) return std::nullopt;
  return Phrase{i + 2, DigitWords(tokens.View(i + 1))};
}

// "Notruf 112", "die 110".
Found EmergencyAt(const Tokens& tokens, std::size_t i) {
  if (!IsOneOf(tokens.View(i), {"110", "112", "116117", "115", "19222", "116"}) || !tokens.FreeBefore(i) ||
      !tokens.FreeBehind(i))
    return std::nullopt;
  if (tokens.Is(i, "116") && tokens.IsBlank(i + 1) && tokens.IsNumber(i + 2, 3, 3))  // "116 117"
    return Phrase{i + 3, "eins eins sechs, " + DigitWords(tokens.View(i + 2))};
  if (tokens.Is(i, "116")) return std::nullopt;
  if (tokens.Is(i, "116117")) return Phrase{i + 1, "eins eins sechs, eins eins sieben"};
  const auto before = tokens.WordBefore(i);
  const bool colon =
      i >= 2 && tokens.Is(tokens.Before(i), ":") &&
      IsOneOf(tokens.WordBefore(tokens.Before(i)), {"Notruf", "Feuerwehr", "Polizei", "Rettungsdienst"});
  const std::size_t next = tokens.Skip(i + 1);
  const bool counts = tokens.IsCapital(next) && NounOf(tokens.View(next)).plural;
  const bool dialled =
      (IsOneOf(before, {"die", "der", "unter", "über"}) && !counts && DialsSomewhere(tokens)) ||
      (before == "Sie" && IsOneOf(tokens.WordBefore(tokens.WordIndexBefore(i)), {"wählen", "Wählen"}));
  if (!colon && !dialled &&
      !IsOneOf(before, {"Notruf", "Notrufnummer", "Rufnummer", "Nummer", "Feuerwehr", "Polizei", "Euronotruf",
                        "Behördennummer", "wählen", "Rettungsdienst"}))
    return std::nullopt;
  return Phrase{i + 1, DigitWords(tokens.View(i))};
}

// Behind "ISBN", with or without dashes.
Found IsbnAt(const Tokens& tokens, std::size_t i) {
  constexpr int kWordsBetween = 6;  // "Die ISBN des neuen Buches lautet:"
  const auto isName = [&](std::size_t at) {
    return IsOneOf(tokens.View(at), {"ISBN", "ISSN", "EAN", "GTIN"});
  };
  std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && tokens.Is(before, ":")) before = tokens.Before(before);
  if (before == Tokens::kNone || !tokens.FreeBefore(i)) return std::nullopt;
  const bool named = isName(before);
  const bool book = IsOneOf(tokens.View(i), {"978", "979"}) && tokens.IsDashAt(i + 1);
  for (int step = 0; step < kWordsBetween && !book && before != Tokens::kNone && !isName(before); ++step)
    before = tokens.IsWord(before) ? tokens.Before(before) : Tokens::kNone;
  if (before == Tokens::kNone) return std::nullopt;
  const DigitGroups groups = ReadGroups(tokens, i, 13);
  if (groups.digits < (named ? 8U : (book ? 13U : 10U))) return std::nullopt;
  const bool check = tokens.Is(groups.end, "-") && tokens.Is(groups.end + 1, "X");
  return Phrase{check ? groups.end + 2 : groups.end, groups.words + (check ? ", X" : "")};
}

// "10115 Berlin": five digits before a place.
// "Postleitzahlen: 33041 - 33106".
bool NamesPostcodes(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  for (int step = 0; step < 8 && at != Tokens::kNone; ++step) {
    if (IsOneOf(tokens.View(at), {"PLZ", "Postleitzahl", "Postleitzahlen"})) return true;
    if (!tokens.IsNumber(at, 5, 5) && !tokens.IsDashAt(at) &&
        !IsOneOf(tokens.View(at), {":", ",", "und", "bis"}))
      return false;
    at = tokens.Before(at);
  }
  return false;
}

Found PostcodeAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i, 5, 5) || !tokens.FreeBefore(i) || !tokens.FreeBehind(i)) return std::nullopt;
  const std::size_t place = tokens.Skip(i + 1);
  const std::size_t before = tokens.Before(i);
  const std::size_t verb = tokens.WordIndexBefore(i);  // "Meine PLZ ist 12345"
  const bool says = verb != Tokens::kNone && IsOneOf(tokens.View(verb), {"ist", "lautet", "war"});
  const bool label = IsOneOf(says ? tokens.WordBefore(verb) : tokens.WordBefore(i),
                             {"PLZ", "Postleitzahl", "Postleitzahlen"}) ||
                     NamesPostcodes(tokens, i) ||
                     (i >= 2 && tokens.Is(i - 1, "-") && IsOneOf(tokens.View(i - 2), {"D", "DE"}));
  if (label) return Phrase{i + 1, DigitWords(tokens.View(i))};
  if (place == i + 1 || !tokens.IsCapital(place) || StartsSentences(tokens.View(place))) return std::nullopt;
  if (UnitAt(tokens, place) || CurrencyAt(tokens, place)) return std::nullopt;
  const bool address =
      tokens.OpensLine(i) || (before != Tokens::kNone &&
                              (tokens.Is(before, ",") || tokens.Is(before, "·") || tokens.Is(before, "|")));
  const Noun noun = NounOf(tokens.View(place));
  if (tokens.View(i).front() == '0' || (address && !noun.plural))
    return Phrase{i + 1, DigitWords(tokens.View(i))};
  const bool prepositions = IsOneOf(tokens.WordBefore(i), {"in", "nach", "aus", "Nach", "In", "bei", "von"});
  if (noun.known && (noun.plural || (noun.whole && !prepositions))) return std::nullopt;
  return Phrase{i + 1, DigitWords(tokens.View(i))};
}

// "Kunde 90017", "SN 55203 17", "RE-10442".
Found SerialAt(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && IsOneOf(tokens.View(before), {":", ".", "-"}))
    before = before > 0 && !tokens.IsBlank(before - 1) ? before - 1 : tokens.Before(before);
  if (before != Tokens::kNone && IsOneOf(tokens.View(before), {"lautet", "ist", "ist:"})) {
    // "Die Steuernummer Ihres Kindes lautet …".
    constexpr std::size_t kWords = 5;
    const bool lautet = tokens.Is(before, "lautet");
    before = tokens.Before(before);
    std::size_t name = before;
    for (std::size_t step = 0; lautet && step < kWords && name != Tokens::kNone; ++step) {
      const std::size_t word = tokens.Is(name, ".") && name > 0 ? name - 1 : name;
      if (IsCodeWord(tokens.View(word))) {
        before = word;
        break;
      }
      name = tokens.Before(name);
    }
  }
  if (before != Tokens::kNone && before > 0 && tokens.Is(before, ".")) --before;
  // "Steuer-Nr. 143/207/50881".
  if (before != Tokens::kNone && before >= 2 && tokens.Is(before, "Nr") && tokens.Is(before - 1, "-")) {
    const std::size_t name = tokens.Is(before - 2, ".") && before >= 3 ? before - 3 : before - 2;
    if (IsOneOf(tokens.View(name), {"Steuer", "St"})) before = name;
  }
  if (before == Tokens::kNone || !tokens.IsWord(before) || !tokens.FreeBefore(i)) return std::nullopt;
  const bool named = IsCodeWord(tokens.View(before)) || IsOneOf(tokens.View(before), {"Steuer", "St"}) ||
                     (tokens.Is(i - 1, "-") && IsAllCaps(tokens.View(before)));
  if (!named) return std::nullopt;
  std::string words;
  std::size_t digits = 0;
  std::size_t end = i;
  for (std::size_t at = i; tokens.IsNumber(at) && digits < 30;) {
    words += (words.empty() ? "" : " ") + DigitWords(tokens.View(at));
    digits += tokens.View(at).size();
    end = ++at;
    const bool tax = tokens.Is(at, "/") && (HasPrefix(tokens.View(before), {"Steuern", "Steuer", "StNr"}) ||
                                            tokens.Is(before, "St"));
    if (tax && tokens.IsNumber(at + 1)) words += " Schrägstrich";
    const bool point = tokens.Is(at, ".") && digits < 16;  // "Versicherungsnummer 47-118.334"
    if ((tokens.IsBlank(at) || tokens.IsDashAt(at) || tax || point) && tokens.IsNumber(at + 1)) ++at;
  }
  // "Bestell-Nr. 10-4456-B".
  const bool letter = tokens.Is(end, "-") && tokens.IsCapital(end + 1) && tokens.View(end + 1).size() == 1 &&
                      tokens.FreeBehind(end + 1) && !tokens.IsDashAt(end + 2);
  if (letter) {
    words += " " + std::string(tokens.View(end + 1));
    end += 2;
  }
  const bool secret = IsOneOf(tokens.View(before), {"PIN", "TAN", "Code"});
  if (digits < (secret ? 3U : 5U) || !tokens.FreeBehind(end - 1) ||
      (IsOneOf(tokens.View(end), {"/", ",", "-"}) && !tokens.IsGap(end + 1)))
    return std::nullopt;
  return Phrase{end, words};
}

// "1-0-1" in the morning, at noon and in the evening; "4-4-2" of a team.
Found DosageAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.FreeBefore(i) || (i > 0 && !tokens.IsGap(i - 1) && !IsOneOf(tokens.View(i - 1), {"(", ":"})))
    return std::nullopt;
  std::string words;
  std::size_t parts = 0;
  std::size_t at = i;
  while (parts < 5 && tokens.IsNumber(at, 1, 2)) {
    if (tokens.View(at).size() > 1 && tokens.View(at).front() == '0') return std::nullopt;
    words += (words.empty() ? "" : " ") + CardinalWords(*DigitsAt(tokens, at, 2));
    ++parts;
    if (!tokens.Is(at + 1, "-") || !tokens.IsNumber(at + 2)) break;
    at += 2;
  }
  if (parts < 3 || parts > 4 || !tokens.FreeBehind(at) || tokens.IsDashAt(at + 1)) return std::nullopt;
  return Phrase{at + 1, words};
}

// "0x80070057": a number to the base of sixteen, sign by sign.
Found HexadecimalAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "0") || !tokens.FreeBefore(i) || !tokens.View(i + 1).starts_with('x'))
    return std::nullopt;
  std::size_t end = i + 2;
  while (tokens.IsNumber(end) || tokens.IsWord(end)) ++end;
  const auto digits = tokens.View(i + 1, end).substr(1);
  if (digits.size() < 2 || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos)
    return std::nullopt;
  std::string words = "null x";
  for (const char digit : digits) {
    const std::string_view one(&digit, 1);
    words += ' ' + (digit <= '9' ? DigitWords(one) : WithUpperStart(one));
  }
  return Phrase{end, words};
}

// "0815", "007": zeros at the beginning are said.
Found LeadingZeroAt(const Tokens& tokens, std::size_t i) {
  const auto digits = tokens.View(i);
  if (digits.size() < 3 || digits.front() != '0' || digits.size() > 20 || !tokens.FreeBefore(i) ||
      !tokens.FreeBehind(i))
    return std::nullopt;
  if (IsOneOf(tokens.View(i + 1), {",", ":"}) && tokens.IsNumber(i + 2)) return std::nullopt;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {",", ".", ":", "/", "-"}) && i > 1 && !tokens.IsGap(i - 2))
    return std::nullopt;
  return Phrase{i + 1, DigitWords(digits)};
}

}  // namespace

namespace {

// "DE 811 234 567": the nine digits of a tax number in groups of three.
bool AreThreeGroupsOfThree(const Tokens& tokens, std::size_t i) {
  return tokens.IsNumber(i, 3, 3) && tokens.IsBlank(i + 1) && tokens.IsNumber(i + 2, 3, 3) &&
         tokens.IsBlank(i + 3) && tokens.IsNumber(i + 4, 3, 3) && !tokens.IsNumber(i + 6);
}

}  // namespace

Found IbanAt(const Tokens& tokens, std::size_t i) {
  const auto country = tokens.View(i);
  constexpr std::size_t kTaxDigits = 9;
  // "USt-IdNr. DE 123456789".
  const bool grouped = tokens.IsBlank(i + 1) && AreThreeGroupsOfThree(tokens, i + 2);
  const bool apart = tokens.IsBlank(i + 1) && tokens.IsNumber(i + 2, kTaxDigits, kTaxDigits);
  const std::size_t first = grouped || apart ? i + 2 : i + 1;
  if (!tokens.IsWord(i) || country.size() != 2 || !IsAllCaps(country) || !tokens.IsNumber(first))
    return std::nullopt;
  if (!tokens.FreeBefore(i)) return std::nullopt;
  std::string digits;
  std::size_t end = first;
  for (std::size_t at = first; tokens.IsNumber(at) && digits.size() < 30;) {
    digits += tokens.View(at);
    end = ++at;
    if (tokens.IsBlank(at) && tokens.IsNumber(at + 1)) ++at;
  }
  const bool named = tokens.Before(i) != Tokens::kNone &&
                     (IsOneOf(tokens.WordBefore(i), {"IBAN"}) || tokens.Is(tokens.Before(i), ":"));
  const bool whole = grouped || tokens.View(first).size() >= kTaxDigits;  // "DE123456789" of a tax number
  if (digits.size() < 16 && !whole && !(named && digits.size() >= 10)) return std::nullopt;
  std::string words{country[0], ' ', country[1]};
  const std::size_t head = digits.size() == kTaxDigits ? 3 : 2;
  words += ' ' + DigitWords(std::string_view(digits).substr(0, head));
  const std::size_t group = digits.size() == kTaxDigits ? 3 : 4;
  for (std::size_t at = head; at < digits.size(); at += group)
    words += ", " + DigitWords(std::string_view(digits).substr(at, group));
  return Phrase{end, words};
}

// "Gläubiger-ID DE98ZZZ09999999999", its groups parted or not.
Found CreditorAt(const Tokens& tokens, std::size_t i) {
  const auto country = tokens.View(i);
  if (!tokens.IsWord(i) || country.size() != 2 || !IsAllCaps(country) || !tokens.FreeBefore(i) ||
      !tokens.IsNumber(i + 1, 2, 2))
    return std::nullopt;
  const std::size_t kind = tokens.Skip(i + 2);
  if (!tokens.IsWord(kind) || !IsAllCaps(tokens.View(kind)) || tokens.View(kind).size() != 3 ||
      !tokens.IsNumber(kind + 1))
    return std::nullopt;
  std::string words =
      std::string(country) + " " + DigitWords(tokens.View(i + 1)) + " " + std::string(tokens.View(kind));
  std::size_t end = kind + 1;
  for (std::size_t at = kind + 1; tokens.IsNumber(at) && end < kind + 14;) {
    words += " " + DigitWords(tokens.View(at));
    end = ++at;
    if (tokens.IsBlank(at) && tokens.IsNumber(at + 1)) ++at;
  }
  return Phrase{end, words};
}

Found CodeAt(const Tokens& tokens, std::size_t i) {
  // "GIMP-2.10.18".
  const bool version = i > 1 && tokens.Is(i - 1, "-") && tokens.IsWord(i - 2) && tokens.Is(i + 1, ".") &&
                       tokens.Is(i + 3, ".") && tokens.IsNumber(i, 1, 2);
  if (auto found = version ? VersionAt(tokens, i) : std::nullopt) return found;
  for (const auto reading : {&HexadecimalAt, &IsbnAt, &DosageAt, &ExtensionAt, &EmergencyAt, &PhoneAt,
                             &PostcodeAt, &SerialAt, &LeadingZeroAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

Found SectionAt(const Tokens& tokens, std::size_t i) {
  const auto letter = tokens.View(i);
  const bool page = IsOneOf(letter, {"S", "P"});  // "S.12"
  if (letter.size() != 1 || !tokens.IsCapital(i) || page || !tokens.Is(i + 1, ".") ||
      !tokens.IsNumber(i + 2, 1, 3) ||
      !(i == 0 || tokens.IsGap(i - 1) || IsOneOf(tokens.View(i - 1), {"(", "„", "\"", "[", "»"})))
    return std::nullopt;
  std::string words(letter);
  std::size_t end = i + 1;
  for (; tokens.Is(end, ".") && tokens.IsNumber(end + 1, 1, 3); end += 2)
    words += " Punkt " + CardinalWords(*DigitsAt(tokens, end + 1, 3));
  return tokens.FreeBehind(end - 1) ? Found(Phrase{end, words}) : std::nullopt;
}

Found VersionAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i, 1, 9) || !tokens.FreeBefore(i)) return std::nullopt;
  const bool other = i > 3 && tokens.Is(i - 1, "/") && tokens.IsNumber(i - 2) && tokens.Is(i - 3, ".");
  if (i > 0 && IsOneOf(tokens.View(i - 1), {".", ",", "/", ":"}) && !other) return std::nullopt;
  const bool zero = tokens.View(i).front() == '0' && tokens.View(i).size() > 1;  // "02.03.0010"
  std::string words = zero ? DigitWords(tokens.View(i)) : CardinalWords(*DigitsAt(tokens, i, 9));
  std::size_t end = i + 1;
  std::size_t points = 0;
  for (; tokens.Is(end, ".") && tokens.IsNumber(end + 1, 1, points == 0 ? 20 : 9) && points < 6;
       end += 2, ++points) {
    const auto part = tokens.View(end + 1);
    const bool digits = part.front() == '0' || (part.size() > 4 && points == 0);  // "0.33333"
    words += " Punkt " + (digits ? DigitWords(part) : CardinalWords(*DigitsAt(tokens, end + 1, 9)));
  }
  // "192.168.0.1:8080".
  if (points == 3 && tokens.Is(end, ":") && tokens.IsNumber(end + 1, 1, 5)) {
    words += " Doppelpunkt " + CardinalWords(*DigitsAt(tokens, end + 1, 5));
    end += 2;
  }
  const bool letters = tokens.IsWord(end) && tokens.View(end).size() <= 3;  // "802.11ac"
  if (points == 0 || (tokens.Is(end, ".") && tokens.IsNumber(end + 1)) ||
      (!tokens.FreeBehind(end - 1) && !letters))
    return std::nullopt;
  return Phrase{end, words};
}

}  // namespace lorelin
