#include "german/plainNumbers.h"

#include <utility>

#include "german/clauses.h"
#include "german/grammar.h"
#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/ordinals.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {

namespace {

// "Söhn" to "Sohn", "Häus" to "Haus".
std::string WithoutUmlaut(std::string word) {
  constexpr std::pair<std::string_view, std::string_view> kVowels[] = {{"ä", "a"}, {"ö", "o"}, {"ü", "u"}};
  for (const auto& [changed, plain] : kVowels) {
    if (const std::size_t at = word.rfind(changed); at != std::string::npos)
      return word.replace(at, changed.size(), plain);
  }
  return word;
}

// "Personen" to "Person": a plural without its ending, as far as the lexicon knows what is left.
std::string SingularOf(std::string_view plural) {
  for (const std::string_view ending : {"innen", "nen", "en", "er", "n", "e", "s"}) {
    if (!plural.ends_with(ending) || plural.size() < ending.size() + 3) continue;
    std::string stem(plural.substr(0, plural.size() - ending.size()));
    if (ending == "innen") stem += "in";
    const std::string plain = WithoutUmlaut(stem);
    if (plain != stem && NounOf(plain).whole && NounOf(plain).singular) return plain;
    if (NounOf(stem).singular) return stem;
  }
  const std::string plain = WithoutUmlaut(std::string(plural));  // "Brüder"
  return NounOf(plain).singular ? plain : std::string(plural);
}

// "bei 1 von 100 Patienten": one of them.
Found OneOfMany(const Tokens& tokens, std::size_t i) {
  std::size_t noun = Tokens::kNone;
  for (std::size_t at = i + 2; at < i + 12 && noun == Tokens::kNone; ++at) {
    if (tokens.IsCapital(at)) noun = at;
  }
  if (noun == Tokens::kNone) {
    if (!IsOneOf(WithLowerStart(tokens.WordBefore(i)), {"als", "bei", "etwa", "circa", "nur", "rund", "ca"}))
      return std::nullopt;
    const std::string alone = OneBefore(tokens, i, i + 1, AgreementOf(Gender::Masculine));
    return Phrase{i + 1, alone == "ein" ? "einer" : alone};
  }
  const auto word = tokens.View(noun);
  Agreement agreement = AgreementOf(
      HasSuffix(word, {"innen", "ungen", "heiten", "keiten", "ionen", "Frauen", "Personen", "Familien"})
          ? Gender::Feminine
          : Gender::Masculine);
  if (HasSuffix(word, {"Kindern", "Kinder", "Häusern", "Ländern", "Jahren", "Jahre"}))
    agreement.gender = Gender::Neuter;
  std::string one = OneBefore(tokens, i, i + 1, agreement);
  if (one == "ein") one = agreement.gender == Gender::Neuter ? "eines" : "einer";
  return Phrase{i + 1, one};
}

// "bring 1 flasche wasser mit": nouns as they are written in chats.
Found OneSmallNounAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsWord(i + 2) || IsDegreeWord(tokens.View(i + 2))) return std::nullopt;
  if (IsOneOf(tokens.View(i + 2), {"plus", "minus", "mal"})) return std::nullopt;  // "die Note 1 plus"
  if (tokens.Before(i) != Tokens::kNone && tokens.IsCapital(tokens.Before(i))) return std::nullopt;
  const Noun noun = NounOf(WithUpperStart(tokens.View(i + 2)));
  if (!noun.whole || !noun.singular) return std::nullopt;
  return Phrase{i + 1, OneBefore(tokens, i, i + 3, AgreementOf(noun))};
}

// "3 Personen verletzt, 1 davon schwer", "5 Tage, davon 1 frei": one of what was counted before.
Found OneOfThemAt(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 30;  // tokens
  if (!tokens.Is(i, "1") || !tokens.FreeBefore(i) || !tokens.IsGap(i + 1)) return std::nullopt;
  const bool ofThese = tokens.WordBefore(i) == "denen" &&
                       IsOneOf(tokens.WordBefore(tokens.WordIndexBefore(i)), {"von", "unter"});
  const bool behind =
      (ofThese || IsOneOf(tokens.WordBefore(i), {"davon", "darunter"})) && !tokens.IsCapital(i + 2);
  // "von 14 Verletzten sind 5 im Krankenhaus, 1 starb"
  const std::size_t comma = tokens.Before(i);
  const auto verb = tokens.View(i + 2);
  const bool verbal = tokens.IsWord(i + 2) && !tokens.IsCapital(i + 2) && !UnitAt(tokens, i + 2) &&
                      (IsFiniteVerb(verb) || (verb.ends_with('t') && verb.size() > 4));
  const bool subject = verbal && comma != Tokens::kNone && IsOneOf(tokens.View(comma), {",", "und"}) &&
                       !IsPronoun(verb) && !verb.ends_with("en") && verb != "sind";
  const bool left = IsOneOf(tokens.WordBefore(i), {"nur", "noch", "lediglich", "bloß"}) &&
                    tokens.IsWord(i + 2) && !tokens.IsCapital(i + 2) && !UnitAt(tokens, i + 2) &&
                    HasPrefix(tokens.View(i + 2), {"erhalten", "übrig"});
  if (!behind && !subject && !left && !tokens.Is(i + 2, "davon")) return std::nullopt;
  for (std::size_t at = i; at-- > 0 && at + kNear > i;) {
    if (!tokens.IsCapital(at) || tokens.Before(at) == Tokens::kNone || !tokens.IsNumber(tokens.Before(at)))
      continue;
    const Noun noun = NounOf(tokens.View(at));
    if (HasSuffix(tokens.View(at),
                  {"letzte", "letzten", "wachsene", "wachsenen", "Tote", "Toten", "Kranke", "Kranken",
                   "Jugendliche", "Jugendlichen", "fragte", "fragten", "stellten"}))
      return Phrase{i + 1, "einer"};  // "5 Verletzte, 1 davon schwer"
    if (!noun.known && !noun.guessed) continue;
    const Gender gender = noun.singular && (noun.whole || !noun.plural)
                              ? noun.gender
                              : NounOf(SingularOf(tokens.View(at))).gender;
    if (gender == Gender::Feminine) return Phrase{i + 1, "eine"};
    // "fing 3 Pässe und warf 1 davon zurück", "mit 1 davon"
    const bool governed = !behind && !subject && tokens.WordIndexBefore(i) != Tokens::kNone;
    const Case asked = governed ? CaseAt(tokens, i, i + 1) : Case::Nominative;
    if (asked == Case::Dative) return Phrase{i + 1, "einem"};
    if (gender == Gender::Neuter) return Phrase{i + 1, subject ? "eins" : "eines"};
    return Phrase{i + 1, asked == Case::Accusative ? "einen" : "einer"};
  }
  return std::nullopt;
}

// "1 rote Chili", "dank 1 guten Idee": the ending of an adjective without an article tells more than the
// noun.
std::string AsItsAdjective(const Tokens& tokens, std::size_t i, std::size_t noun, const std::string& one) {
  const auto adjective = tokens.View(i + 2);
  if (noun == i + 2 || tokens.Is(i + 3, ".") || IsDegreeWord(adjective)) return one;
  if (adjective.ends_with('e')) return "eine";
  if (adjective.ends_with("er") && one == "einen") return "ein";
  if (adjective.ends_with("en") && one == "eine") return "einer";
  if (adjective.ends_with("es") && IsOneOf(one, {"eine", "einen"})) return "ein";
  return one;
}

// "1 Mann starb, 1 weiterer wurde verletzt": the noun has been before, the ending tells its gender.
Found AnotherAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i + 2);
  const std::size_t ending = HasSuffix(word, {"es", "er", "en"}) ? 2 : 1;
  if (word.size() <= ending || tokens.Is(i + 3, "-") ||
      !IsOneOf(
          word.substr(0, word.size() - ending),
          {"weiter", "ander",  "zusätzlich", "zweit",  "dritt",   "neu",  "alt",  "jung",  "jünger",  "älter",
           "klein",  "groß",   "kleiner",    "größer", "einzig",  "rot",  "blau", "grün",  "schwarz", "weiß",
           "gelb",   "kaputt", "gut",        "besser", "einzeln", "halb", "ganz", "eigen", "frei"}))
    return std::nullopt;
  if (HasSuffix(word, {"es", "er"})) return Phrase{i + 1, "ein"};
  if (word.ends_with('e')) return Phrase{i + 1, "eine"};
  if (!word.ends_with("en")) return std::nullopt;
  const std::string one = OneBefore(tokens, i, i + 3, AgreementOf(Gender::Masculine));
  return Phrase{i + 1, one == "ein" ? "einen" : one};
}

// "zwischen 1 und 3 Stunden", but not "zwischen 1 und 3 Uhr".
Found LeastOfAt(const Tokens& tokens, std::size_t i) {
  if (!IsOneOf(tokens.WordBefore(i), {"zwischen", "Zwischen"}) || !tokens.Is(i + 2, "und") ||
      !tokens.IsNumber(i + 4))
    return std::nullopt;
  const std::size_t what = tokens.Skip(i + 5);
  if (CurrencyAt(tokens, what)) return Phrase{i + 1, "einem"};
  if (const auto unit = UnitAt(tokens, what))
    return Phrase{i + 1, unit->gender == Gender::Feminine ? "einer" : "einem"};
  const Noun one = NounOf(SingularOf(tokens.View(what)));
  if (!one.known || !NounOf(tokens.View(what)).plural) return std::nullopt;
  return Phrase{i + 1, one.gender == Gender::Feminine ? "einer" : "einem"};
}

// "1 Schale", "1 Schmiede": what the lexicon has as the form of another noun, "Schals" or "Schmied", is in
// "-e" one of its own when there is but one of it.
bool LooksFeminine(std::string_view word, const Agreement& noun) {
  if (!word.ends_with('e') || IsWeakNominative(word)) return false;
  if (!noun.known || noun.plural) return true;
  const Noun stem = NounOf(word.substr(0, word.size() - 1));
  return noun.gender != Gender::Feminine && stem.whole && stem.singular;
}

// "1 Tasse", "mit 1 großen Zwiebel".
Found OneNounAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "1") || !tokens.IsBlank(i + 1) || !tokens.FreeBefore(i) || LabelBefore(tokens, i))
    return std::nullopt;
  if (i > 0 && !tokens.IsGap(i - 1) && !IsOneOf(tokens.View(i - 1), {"(", "„", "\"", "»", "–", "•"}))
    return std::nullopt;
  const std::size_t before = tokens.Before(i);
  const bool named = before != Tokens::kNone && tokens.IsCapital(before) && !tokens.OpensClause(before);
  if (tokens.Is(i + 2, "von") ||
      (!named && IsOneOf(tokens.View(i + 2), {"der", "dieser", "unserer", "ihrer"})))
    return OneOfMany(tokens, i);  // "nur 1 der 5 Kandidaten", but "Platz 1 der Charts"
  if (const auto least = LeastOfAt(tokens, i)) return least;
  // "1 oder 2 Tage", "1 od. 2 Tage".
  const std::size_t joint = tokens.Is(i + 2, "od") && tokens.Is(i + 3, ".") ? i + 3 : i + 2;
  if ((IsOneOf(tokens.View(i + 2), {"oder", "bis"}) || joint > i + 2) && tokens.IsNumber(joint + 2) &&
      tokens.IsCapital(joint + 4))
    return Phrase{i + 1, "ein"};
  const std::size_t noun = NounBehind(tokens, i + 2);
  if (noun == Tokens::kNone) {
    if (const auto another = AnotherAt(tokens, i)) return another;
    return OneSmallNounAt(tokens, i);
  }
  if (StartsSentences(tokens.View(noun))) return std::nullopt;
  if (IsOneOf(tokens.View(noun), {"Erw", "Jugendl"}) && tokens.Is(noun + 1, "."))  // "für 1 Erw."
    return Phrase{i + 1, OneBefore(tokens, i, noun + 1, AgreementOf(Gender::Masculine))};
  // "1 BvR 16/13": the register of a court.
  if (tokens.IsNumber(noun + 2) && tokens.Is(noun + 3, "/") && tokens.IsNumber(noun + 4)) return std::nullopt;
  Agreement agreement = AgreementAt(tokens, noun);
  // "für 1 Erwachsenen": with this ending it is no nominative.
  if (IsOneOf(tokens.View(noun), {"Erwachsenen", "Jugendlichen", "Angestellten", "Verletzten", "Toten",
                                  "Verdächtigen", "Reisenden", "Kranken", "Bekannten", "Verwandten"})) {
    const std::string one = OneBefore(tokens, i, noun + 1, AgreementOf(Gender::Masculine));
    return Phrase{i + 1, one == "ein" ? "einen" : one};
  }
  // "3 Autos und 1 Schuppen": one of them is no plural, whatever the lexicon knows of the form.
  const bool one = noun == i + 2 && tokens.View(noun).ends_with("en") && before != Tokens::kNone &&
                   tokens.IsWord(before) && !tokens.IsCapital(before);
  const bool behindName = before != Tokens::kNone && (tokens.IsCapital(before) || tokens.IsNumber(before)) &&
                          !StartsSentences(tokens.View(before));
  if (!behindName && !tokens.Is(noun + 1, "-") && LooksFeminine(tokens.View(noun), agreement))
    agreement = AgreementOf(Gender::Feminine);
  if (agreement.known && agreement.plural && !one) return std::nullopt;
  if (agreement.known && agreement.plural) agreement = AgreementOf(Gender::Masculine);
  // Most words that no lexicon knows are masculine; behind another noun the number is its name.
  if (!agreement.known && (tokens.Before(i) == Tokens::kNone ||
                           (tokens.IsCapital(tokens.Before(i)) && !tokens.OpensClause(tokens.Before(i)))))
    return std::nullopt;
  if (!agreement.known) agreement = AgreementOf(Gender::Masculine);
  return Phrase{i + 1, AsItsAdjective(tokens, i, noun, OneBefore(tokens, i, noun + 1, agreement))};
}

// "Wir waren zu 4."
Found TogetherAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 2);
  const std::size_t zu = tokens.WordIndexBefore(i);
  if (!number || *number < 2 || *number > 12 || zu == Tokens::kNone || !tokens.Is(zu, "zu"))
    return std::nullopt;
  const bool joined = IsOneOf(tokens.WordBefore(zu), {"oder", "und"}) && tokens.Is(i + 1, ".");
  if (joined && IsOneOf(tokens.View(i + 2), {"?", "!", ",", ""}))
    return Phrase{i + 2, OrdinalWords(*number, "")};
  const bool alone = IsOneOf(tokens.View(i + 1), {".", ",", "!", "?"}) || tokens.IsGap(i + 1);
  const std::size_t next = tokens.Skip(i + 1);
  if (!alone || tokens.IsCapital(next) || tokens.IsNumber(next) || tokens.IsNumber(i + 2))
    return std::nullopt;
  if (!IsOneOf(tokens.WordBefore(zu), {"waren",   "sind",     "wir",    "gingen", "gehen", "kamen",  "kommen",
                                       "spielen", "spielten", "fahren", "fuhren", "leben", "wohnen", "saßen",
                                       "sitzen",  "reisten",  "sie",    "ihr",    "uns",   "euch"}))
    return std::nullopt;
  const bool goesOn = tokens.Is(i + 1, ".") && (tokens.IsWord(tokens.Skip(i + 2)) ||
                                                IsOneOf(tokens.View(i + 2), {",", ";", ")", "?", "!"}));
  return Phrase{goesOn ? i + 2 : i + 1, OrdinalWords(*number, "")};
}

// "wurde 1954 Weltmeister", "war 1987 Trainer": one person, in a year.
bool NamesWhatSomebodyBecame(const Tokens& tokens, std::size_t i, std::size_t noun) {
  const auto word = tokens.View(noun);
  if (HasSuffix(word, {"meister", "sieger", "Erster", "Zweiter", "Dritter", "Vierter", "Fünfter", "Sechster",
                       "Letzter"}))
    return true;
  const Noun what = NounOf(word);
  return what.singular && word.ends_with("er") &&
         IsOneOf(tokens.WordBefore(i), {"wurde", "war", "wird", "ist", "blieb", "als", "ward"});
}

// "das 1898 eingeweihte Theater", "in der 1904 gegründeten Firma": one thing is not so many. Of many some
// words tell when they were made.
bool TellsWhenMade(const Tokens& tokens, std::size_t i, std::size_t next) {
  const auto word = tokens.View(next);
  if (!tokens.IsWord(next) || tokens.IsCapital(next)) return false;
  if (HasPrefix(word, {"eingeweiht", "erbaut", "errichtet", "eröffnet", "gegründet", "geboren", "entstanden",
                       "erschienen", "fertiggestellt", "verstorben", "gestorben", "uraufgeführt",
                       "veröffentlicht"}))
    return true;
  const std::string article = WithLowerStart(tokens.WordBefore(i));
  if (IsOneOf(article, {"und", "oder"}) && word.ends_with("te"))  // "1898 errichtete und 1945 zerstörte"
    return tokens.WordBefore(tokens.WordIndexBefore(i)).ends_with("te");
  return (HasSuffix(word, {"te", "ene"}) && IsOneOf(article, {"der", "die"})) ||
         (HasSuffix(word, {"te", "ten", "ter", "tes", "ene", "enen", "ener", "enes"}) &&
          IsOneOf(article, {"das", "dem", "des", "im", "am", "vom", "zum", "beim", "ein", "eine", "einen",
                            "einem", "einer", "eines"}));
}

bool CountsSomething(const Tokens& tokens, std::size_t i, const WrittenNumber& number) {
  const std::size_t next = tokens.Skip(number.end);
  if (next == number.end) return false;
  if (UnitAt(tokens, next) || CurrencyAt(tokens, next) || MultipleAt(tokens, next)) return true;
  // "Als 1125 der letzte Kaiser starb".
  if (number.IsYear() && IsDeterminer(tokens.View(next)) && !tokens.IsCapital(next) &&
      IsOneOf(WithLowerStart(tokens.WordBefore(i)),
              {"als", "dass", "nachdem", "weil", "wo", "wenn", "bevor", "da", "obwohl"}))
    return false;
  // "Von etwa 1550 bis um 1800".
  const std::size_t about = tokens.WordIndexBefore(i);
  if (number.IsYear() && about != Tokens::kNone && IsOneOf(tokens.View(about), {"etwa", "circa"}) &&
      IsOneOf(WithLowerStart(tokens.WordBefore(about)), {"von", "ab", "seit"}) && tokens.Is(next, "bis"))
    return false;
  if (IsDegreeWord(WithLowerStart(tokens.WordBefore(i))) &&
      !IsOneOf(tokens.WordBefore(i), {"erst", "schon", "noch", "bereits", "zu"}))
    return true;
  const std::size_t noun = NounBehind(tokens, next);
  if (noun == Tokens::kNone) return false;
  const Noun what = NounOf(tokens.View(noun));
  const bool many = (what.known || what.guessed) && what.plural && !StartsSentences(tokens.View(noun));
  if (number.IsYear() && TellsWhenMade(tokens, i, next)) return false;
  if (number.IsYear() && noun == next && NamesWhatSomebodyBecame(tokens, i, noun)) return false;
  return many && !GoesBeforeYears(tokens.WordBefore(i));
}

Found YearAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !number->IsYear() || number->value < 1100 || number->value > 1999) return std::nullopt;
  if (!tokens.FreeBefore(i) || !tokens.FreeBehind(i) || (tokens.IsDashAt(i + 1) && !tokens.Is(i + 2, ")")) ||
      LabelBefore(tokens, i))
    return std::nullopt;
  if (i > 0 && (tokens.IsDashAt(i - 1) || IsOneOf(tokens.View(i - 1), {".", ",", ":", "+", "#"})) &&
      !tokens.Is(i - 1, "–"))
    return std::nullopt;
  if (IsOneOf(tokens.View(i + 1), {".", ",", ":", "/"}) && tokens.IsNumber(i + 2)) return std::nullopt;
  if (i > 0 && tokens.Is(i - 1, "/") && number->value < 1900) return std::nullopt;
  // "M-XY 1234".
  const std::size_t plate = tokens.WordIndexBefore(i);
  if (plate != Tokens::kNone && plate > 0 && IsAllCaps(tokens.View(plate)) && tokens.IsDashAt(plate - 1))
    return std::nullopt;
  // Trains, flights and standards.
  if (IsOneOf(tokens.WordBefore(i), {"LH", "ICE", "IC", "EC", "RE", "RB", "RTX", "GTX", "ISO", "DIN",
                                     "EN", "IEC", "EW", "AF", "BA", "UA", "KL",  "FR",  "LX",  "OS"}))
    return std::nullopt;
  if (CountsSomething(tokens, i, *number)) return std::nullopt;
  return Phrase{i + 1, YearWords(number->value)};
}

// "3,14" and "1.250.000": what an engine would read as two numbers.
Found LongNumberAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || (number->IsWhole() && !number->grouped) || !tokens.FreeBefore(i)) return std::nullopt;
  if (IsOneOf(tokens.View(number->end), {".", ","}) && tokens.IsNumber(number->end + 1)) return std::nullopt;
  if (!number->IsWhole() && number->whole.size() > 1 && number->whole.front() == '0') return std::nullopt;
  if (!tokens.FreeBehind(number->end - 1)) return std::nullopt;
  if (const auto per = PerAt(tokens, number->end); per && !tokens.IsNumber(number->end + 1))
    return Phrase{tokens.WithoutLastPoint(per->end), NumberText(*number) + per->words};
  return Phrase{number->end, NumberText(*number)};
}

// "2x täglich", "3×".
Found TimesAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 4);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t at = tokens.Skip(i + 1);
  if (*number == 0 && at == i + 1 && tokens.Is(at, "x") && tokens.IsNumber(at + 1))
    return Phrase{at + 2, "null x " + DigitWords(tokens.View(at + 1))};  // "0x80070057"
  // "f(x) = 2x + 1".
  const std::size_t sign = tokens.Skip(at + 1);
  if (tokens.Is(at, "x") && at == i + 1 &&
      (IsOneOf(tokens.View(sign), {"=", "²", "³"}) ||
       (sign > at + 1 && IsOneOf(tokens.View(sign), {"+", "-", "−", "–"}) && tokens.IsBlank(sign + 1) &&
        tokens.IsNumber(sign + 2)) ||
       (tokens.Before(i) != Tokens::kNone && tokens.Is(tokens.Before(i), "="))))
    return std::nullopt;
  const bool times = tokens.Is(at, "x") || tokens.Is(at, "×") || (*number == 1 && tokens.Is(at, "mal"));
  // "4x100-m-Staffel".
  if (times && at == i + 1 && tokens.IsNumber(at + 1) && tokens.Is(at + 2, "-") && tokens.IsWord(at + 3))
    return Phrase{at + 1, CardinalWords(*number, "ein") + "mal "};
  const bool each = at == i + 1 && tokens.IsBlank(at + 1);  // "2x 3 Std.", but "2 x 3"
  if (!times || !tokens.FreeBehind(at) || (tokens.IsNumber(tokens.Skip(at + 1)) && !each))
    return std::nullopt;
  constexpr std::uint64_t kThousand = 1000;  // "tausendmal"
  const std::string words = (*number == kThousand ? "tausend" : CardinalWords(*number, "ein")) + "mal";
  if (const auto per = PerAt(tokens, at + 1))  // "4x/d"
    return Phrase{tokens.WithoutLastPoint(per->end), words + per->words};
  return Phrase{at + 1, words};
}

// "1-2x täglich", "2–3 mal".
Found TimesSpanAt(const Tokens& tokens, std::size_t i) {
  const auto first = DigitsAt(tokens, i, 2);
  if (!first || !tokens.FreeBefore(i) || !tokens.IsDashAt(tokens.Skip(i + 1))) return std::nullopt;
  auto second = TimesAt(tokens, tokens.Skip(tokens.Skip(i + 1) + 1));
  if (!second) return std::nullopt;
  second->words = CardinalWords(*first, "ein") + "- bis " + second->words;
  second->words =
      CardinalWords(*first, "ein") + " bis " + second->words.substr(second->words.find("bis ") + 4);
  return second;
}

// "Bewertung: 4,8/5", "Ergebnis: 17/20": so many of so many.
Found RatingAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i) || !tokens.Is(number->end, "/")) return std::nullopt;
  const auto of = NumberAt(tokens, number->end + 1);
  if (!of || !of->IsWhole() || !tokens.FreeBehind(of->end - 1)) return std::nullopt;
  const std::size_t label = tokens.Before(i);
  const bool colon = label != Tokens::kNone && tokens.Is(label, ":");
  const bool named = IsOneOf(colon ? tokens.WordBefore(label) : tokens.WordBefore(i),
                             {"Punkte", "Punktzahl", "Ergebnis", "Bewertung", "Wertung", "Note", "Rating"});
  const bool stars = !number->IsWhole() && (of->value == 5 || of->value == 10) && number->value <= of->value;
  if (!named && !stars) return std::nullopt;
  return Phrase{of->end, NumberText(*number) + " von " + NumberText(*of)};
}

}  // namespace

Found PlainNumberAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading :
       {&TogetherAt, &RatingAt, &TimesSpanAt, &TimesAt, &OneOfThemAt, &OneNounAt, &YearAt, &LongNumberAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

// "A380", "M8": the number behind letters is said for itself.
Found NumberBehindLettersAt(const Tokens& tokens, std::size_t i) {
  // "A123456789": the number of somebody insured.
  if (i > 0 && tokens.IsCapital(i - 1) && tokens.IsNumber(i, 6, 20) && tokens.FreeBehind(i) &&
      tokens.View(i - 1).size() <= 3 && !(tokens.Is(i + 1, ",") && tokens.IsNumber(i + 2))) {
    std::string words;
    const auto digits = tokens.View(i);
    for (std::size_t at = 0; at < digits.size(); at += 3)
      words += (at == 0 ? "" : ", ") + DigitWords(digits.substr(at, 3));
    return Phrase{i + 1, words};
  }
  const auto value = DigitsAt(tokens, i, 4);
  if (i == 0 || !value || !tokens.IsWord(i - 1)) return std::nullopt;
  if (tokens.View(i - 1).size() == 1 && tokens.Is(i + 1, ".") && tokens.IsNumber(i + 2, 1, 3))  // "v1.2"
  {
    std::string words = CardinalWords(*value);
    std::size_t end = i + 1;
    while (tokens.Is(end, ".") && tokens.IsNumber(end + 1, 1, 4)) {
      words += " Punkt " + CardinalWords(*DigitsAt(tokens, end + 1, 4));
      end += 2;
    }
    return Phrase{end, words};
  }
  if (const auto number = NumberAt(tokens, i); number && !number->IsWhole())
    return Phrase{number->end, NumberText(*number)};
  const bool code = tokens.View(i - 1).size() > 4 && IsAllCaps(tokens.View(i - 1));  // "BYLADEM1001"
  return Phrase{i + 1,
                code || tokens.View(i).front() == '0' ? DigitWords(tokens.View(i)) : CardinalWords(*value)};
}

namespace {

// "96/min", "50+".
Found NumberWithTailAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t label = tokens.Before(i);
  const bool colon = label != Tokens::kNone && tokens.Is(label, ":");
  const auto named = colon ? tokens.WordBefore(label) : tokens.WordBefore(i);
  // "Note: 2-".
  if (IsOneOf(named, {"Note", "Zensur", "Gesamtnote"}) && tokens.IsDashAt(number->end) &&
      (tokens.IsGap(number->end + 1) || IsOneOf(tokens.View(number->end + 1), {",", ".", ")"})))
    return Phrase{number->end + 1, NumberText(*number) + " minus"};
  if (tokens.Is(number->end, "+") && tokens.IsGap(number->end + 1))
    return Phrase{number->end + 1, NumberText(*number) + " plus"};
  if (!tokens.Is(number->end, "/")) return std::nullopt;
  if (number->IsWhole() && tokens.IsNumber(i, 1, 2) && number->end == i + 1 &&
      tokens.Is(i + 2, tokens.View(i)) && tokens.FreeBehind(i + 2) && !LabelBefore(tokens, i) &&
      !(IsOneOf(tokens.View(i + 3), {".", ","}) && tokens.IsNumber(i + 4)))
    return Phrase{i + 3, NumberText(*number) + " von " + NumberText(*number)};  // "10/10"
  // "1/10.000": so many of so many.
  const auto many = NumberAt(tokens, number->end + 1);
  // "1/1000 s" of a camera or a flash.
  const auto time = many ? UnitAt(tokens, tokens.Skip(many->end)) : std::nullopt;
  if (number->IsOne() && many && many->IsWhole() && many->value >= 20 && time && time->singular == "Sekunde")
    return Phrase{tokens.WithoutLastPoint(time->end),
                  OneBefore(tokens, i, time->end, AgreementOf(Gender::Feminine)) + " " +
                      OrdinalWords(many->value, "el") + " Sekunde"};
  if (number->IsOne() && many && many->IsWhole() && many->value >= 100 &&
      !(many->IsYear() && many->value > 1900 && many->value < 2100))
    return Phrase{many->end, "eins zu " + NumberText(*many)};
  // "125/10.000" of a house, "58/1.240" of the costs.
  const bool ofThousands = many && many->IsWhole() && many->value > number->value &&
                           (many->grouped || many->value == 1000 || many->value == 10000);
  if (number->IsWhole() && ofThousands && !LabelBefore(tokens, i) && tokens.FreeBehind(many->end - 1) &&
      !tokens.Is(many->end, "/")) {
    if (many->value % 1000 != 0) return Phrase{many->end, NumberText(*number) + " von " + NumberText(*many)};
    return Phrase{many->end, NumberText(*number) + " " + WithUpperStart(OrdinalWords(many->value, "el"))};
  }
  const auto per = PerAt(tokens, number->end);
  if (!per || tokens.IsNumber(number->end + 1)) return std::nullopt;
  return Phrase{tokens.WithoutLastPoint(per->end), NumberText(*number) + per->words};
}

}  // namespace

Found IntegerAt(const Tokens& tokens, std::size_t i) {
  if (auto found = NumberWithTailAt(tokens, i)) return found;
  const auto value = DigitsAt(tokens, i, 12);
  const auto digits = tokens.View(i);
  const bool letter = tokens.IsWord(i + 1) && tokens.View(i + 1).size() == 1 && tokens.FreeBehind(i + 1);
  if (!value || !tokens.FreeBefore(i) || (tokens.IsWord(i + 1) && !letter)) return std::nullopt;
  if (IsOneOf(tokens.View(i + 1), {".", ",", ":", "/"}) && tokens.IsNumber(i + 2) && digits.front() == '0')
    return std::nullopt;
  return Phrase{i + 1,
                digits.size() > 1 && digits.front() == '0' ? DigitWords(digits) : CardinalWords(*value)};
}

}  // namespace lorelin
