#include "german/gluedWords.h"

#include <algorithm>

#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/ordinals.h"
#include "german/units.h"

namespace lorelin {

// Words that are glued to a number.

namespace {

// What makes an adjective or adverb of a number: "jährig", "fach".
bool IsAdjectivePart(std::string_view word, bool dash) {
  if (IsUpperWord(word))
    return HasSuffix(word, {"ige", "igen", "iger", "iges", "fache", "fachen", "Fache", "Fachen", "Fachem"});
  if (dash && word.size() >= 3 && !IsOneOf(word, {"bis", "und", "oder", "mal"})) return true;
  return word.starts_with("fach") || word.starts_with("mal") ||
         HasSuffix(word, {"ig", "ige", "igen", "iger", "iges", "igem", "lich", "liche", "lichen", "licher",
                          "tonner"});
}

// "einfach", "zweimal"; hundreds lose their "ein" inside a word.
std::string PartWords(std::uint64_t value) {
  if (value == 100) return "hundert";
  if (value == 1000) return "tausend";
  return CardinalWords(value, "ein");
}

// "80er", "1980er-Jahre", "2er-Team".
Found DecadeAt(const Tokens& tokens, std::size_t i) {
  const auto whole = NumberAt(tokens, i);
  if (!whole || !whole->IsWhole()) return std::nullopt;
  const auto number = whole->grouped ? std::optional(whole->value) : DigitsAt(tokens, i, 4);
  std::size_t er = whole->end;
  if (tokens.Is(er, "-") || tokens.Is(er, "'") || tokens.Is(er, "’")) ++er;
  const auto word = tokens.View(er);
  // "der Sound der 1990s".
  if (number && word == "s" && er == i + 1 && tokens.IsNumber(i, 4, 4) && *number % 10 == 0 &&
      *number >= 1800 && *number < 2100 && tokens.FreeBefore(i))
    return Phrase{er + 1, YearWords(*number) + "er"};
  if (!number || !IsOneOf(word, {"er", "ern", "ers"}) || !tokens.FreeBefore(i)) return std::nullopt;
  std::string stem = tokens.IsNumber(i, 4, 4) ? YearWords(*number) : CardinalWords(*number, "eins");
  if (*number == 100 || *number == 1000) stem = PartWords(*number);
  const bool decade = *number % 10 == 0 && *number >= 20;
  if (!decade) stem = WithUpperStart(stem);
  return Phrase{er + 1, stem + std::string(word)};
}

// "20%ige", "5%-Hürde", "100%ig".
Found PercentPartAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t sign = tokens.Skip(number->end);
  if (!tokens.Is(sign, "%")) return std::nullopt;
  std::size_t next = sign + 1;
  if (tokens.Is(next, "-") && tokens.IsWord(next + 1) && !IsUpperWord(tokens.View(next + 1))) ++next;
  // "5 %-Punkten".
  if (sign > number->end && tokens.Is(sign + 1, "-") && HasPrefix(tokens.View(sign + 2), {"Punkt", "Pkt"})) {
    const bool cut = tokens.Is(sign + 2, "Pkt") && tokens.Is(sign + 3, ".");
    const std::string point(cut ? (number->IsOne() ? "punkt" : "punkte")
                                : WithLowerStart(tokens.View(sign + 2)));
    return Phrase{cut ? tokens.WithoutLastPoint(sign + 4) : sign + 3,
                  NumberText(*number, "ein") + " Prozent" + point};
  }
  const auto word = tokens.View(next);
  if (tokens.IsWord(next) && (word.starts_with("ig")))
    return Phrase{next + 1,
                  (number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein") + " ") +
                      "prozent" + std::string(word)};
  if (tokens.Is(sign + 1, "-") && tokens.IsCapital(sign + 2))
    return Phrase{sign + 1, WithUpperStart(NumberText(*number, "ein")) + "-Prozent"};
  return std::nullopt;
}

// "3-fach", "3fach", "18-Jährige", "10-tägig"; with a range before it: "2- bis 3-mal".
Found AdjectivePartAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i) || (number->grouped && tokens.IsBlank(i + 1))) return std::nullopt;
  std::size_t part = number->end;
  const bool dash = tokens.Is(part, "-") || tokens.Is(part, "‑");
  if (dash) ++part;
  const auto word = tokens.View(part);
  if (!tokens.IsWord(part) || !IsAdjectivePart(word, dash || word == "mal") || tokens.Is(part + 1, "-"))
    return std::nullopt;
  std::string words = number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein");
  if (!number->IsWhole()) return Phrase{part + 1, words + "-" + std::string(word)};
  if (IsUpperWord(word)) words = WithUpperStart(words);
  words += WithLowerStart(word);
  if (word == "mal") {
    if (const auto per = PerAt(tokens, part + 1))  // "3-mal/Sek."
      return Phrase{tokens.WithoutLastPoint(per->end), words + per->words};
  }
  return Phrase{part + 1, words};
}

// What a number makes an adjective with, from what is left of it.
std::string_view WholePart(std::string_view word) {
  struct Part {
    std::string_view written;
    std::string_view whole;
  };
  constexpr Part kParts[] = {
      {"jähr", "jährig"},      {"j", "jährig"},          {"f", "fach"},        {"trg", "türig"},
      {"tür", "türig"},        {"sitz", "sitzig"},       {"stöck", "stöckig"}, {"gesch", "geschossig"},
      {"köpf", "köpfig"},      {"std", "stündig"},       {"stünd", "stündig"}, {"tlg", "teilig"},
      {"teil", "teilig"},      {"wöch", "wöchig"},       {"monat", "monatig"}, {"tät", "tätig"},
      {"täg", "tägig"},        {"seit", "seitig"},       {"reih", "reihig"},   {"zeil", "zeilig"},
      {"spur", "spurig"},      {"zyl", "zylindrig"},     {"bänd", "bändig"},   {"sprach", "sprachig"},
      {"gesch", "geschossig"}, {"prozent", "prozentig"}, {"tgl", "täglich"},   {"tägl", "täglich"},
      {"jährl", "jährlich"}};
  for (const Part& part : kParts) {
    if (part.written == word) return part.whole;
  }
  return {};
}

// "1-jähr. Kind", "5-trg.".
Found CutAgeAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 3);
  const std::size_t part = tokens.Is(i + 1, "-") ? i + 2 : i + 1;
  const auto whole = WholePart(tokens.View(part));
  if (!number || !tokens.FreeBefore(i) || whole.empty() || !tokens.Is(part + 1, ".")) return std::nullopt;
  if (whole == "fach" && part == i + 1) return std::nullopt;  // "S. 5f."
  const std::size_t noun = NounBehind(tokens, tokens.Skip(part + 2));
  std::string words = PartWords(*number) + std::string(whole);
  if (noun == Tokens::kNone) return Phrase{tokens.WithoutLastPoint(part + 2), words};
  return Phrase{part + 2, words + std::string(EndingAt(tokens, i, AgreementAt(tokens, noun)))};
}

// "6–12-Jährige", "50-60-mal".
Found PartSpanAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 4);
  if (!number || !tokens.FreeBefore(i) || !tokens.IsDashAt(i + 1)) return std::nullopt;
  auto part = AdjectivePartAt(tokens, i + 2);
  if (!part) return std::nullopt;
  part->words = CardinalWords(*number) + " bis " + part->words;
  return part;
}

// "3-4-Zimmer-Wohnung".
Found CompoundSpanAt(const Tokens& tokens, std::size_t i) {
  const auto first = DigitsAt(tokens, i, 3);
  const auto second = DigitsAt(tokens, i + 2, 3);
  if (!first || !second || *first >= *second || !tokens.FreeBefore(i) || !tokens.IsDashAt(i + 1))
    return std::nullopt;
  if (!tokens.Is(i + 3, "-") || !tokens.IsCapital(i + 4) || (i > 0 && tokens.IsDashAt(i - 1)))
    return std::nullopt;
  return Phrase{i + 2, CardinalWords(*first) + " bis "};
}

// "2- bis 3-mal", "3-, 4- und 5-fach": a number with a dash that waits for its word.
Found WaitingPartAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 3);
  if (!number || !tokens.FreeBefore(i) || !tokens.Is(i + 1, "-") || !tokens.IsBlank(i + 2))
    return std::nullopt;
  if (!IsOneOf(tokens.View(i + 3), {"bis", "und", "oder"})) return std::nullopt;
  if (!tokens.IsNumber(i + 5)) return std::nullopt;
  return Phrase{i + 2, PartWords(*number) + "-"};
}

// "9/8-Takt".
Found FractionCompoundAt(const Tokens& tokens, std::size_t i) {
  const auto over = DigitsAt(tokens, i, 2);
  const auto under = DigitsAt(tokens, i + 2, 2);
  if (!over || !under || *under < 2 || !tokens.Is(i + 1, "/") || !tokens.Is(i + 3, "-") ||
      !tokens.IsCapital(i + 4))
    return std::nullopt;
  if (*over == 24 && *under == 7) return Phrase{i + 3, "Vierundzwanzig-sieben"};  // "24/7-Support"
  // "1/4-Finale".
  if (*over == 1 && HasPrefix(tokens.View(i + 4), {"Final"}))
    return Phrase{i + 5, WithUpperStart(*under == 2 ? "halb" : OrdinalWords(*under, "el")) +
                             WithLowerStart(tokens.View(i + 4))};
  const std::string words = WithUpperStart(PartWords(*over)) + OrdinalWords(*under, "el");
  if (tokens.Is(i + 4, "Takt") && !tokens.Is(i + 5, "-")) return Phrase{i + 5, words + "takt"};
  return Phrase{i + 3, words};
}

// "4-Zimmer-Wohnung", "24-Stunden-Dienst", "100-m-Lauf", "0,5-l-Flasche".
Found CompoundAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i) || !tokens.Is(number->end, "-") || !tokens.IsWord(number->end + 1))
    return std::nullopt;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {"-", "/", "."})) return std::nullopt;
  const std::size_t part = number->end + 1;
  std::string words =
      WithUpperStart(number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein"));
  std::replace(words.begin(), words.end(), ' ', '-');
  const bool goesOn =
      tokens.Is(part + 1, "-") || tokens.Is(part + 1, "/") || IsOneOf(tokens.View(part + 1), {"²", "³", "."});
  if (const auto unit = UnitAt(tokens, part); unit && !unit->isWord && goesOn && tokens.Is(unit->end, "-")) {
    std::string name = unit->plural;
    std::replace(name.begin(), name.end(), ' ', '-');
    return Phrase{unit->end, words + "-" + name};
  }
  if (const auto currency = CurrencyAt(tokens, part); currency && tokens.Is(currency->end, "-"))
    return Phrase{currency->end, words + "-" + std::string(currency->name)};
  if (!IsUpperWord(tokens.View(part)) || tokens.View(part).size() < 3 || IsAllCaps(tokens.View(part)))
    return std::nullopt;
  return Phrase{number->end, words};
}

// "20-€-Schein", "90°-Winkel".
Found SignCompoundAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  std::size_t sign = number->end;
  if (tokens.Is(sign, "-")) ++sign;
  std::string words =
      WithUpperStart(number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein"));
  if (const auto currency = CurrencyAt(tokens, sign);
      currency && tokens.Is(currency->end, "-") && tokens.IsWord(currency->end + 1))
    return Phrase{currency->end, words + "-" + std::string(currency->name)};
  if (IsOneOf(tokens.View(sign), {"\"", "″"}) && tokens.Is(sign + 1, "-") && tokens.IsCapital(sign + 2))
    return Phrase{sign + 1, words + "-Zoll"};  // 15,6"-Display
  if (tokens.Is(sign, "%") && tokens.Is(sign + 1, "-") && tokens.IsCapital(sign + 2))
    return Phrase{sign + 1, words + "-Prozent"};  // "5-%-Hürde"
  if (tokens.Is(sign, "°") && tokens.Is(sign + 1, "-") && tokens.IsWord(sign + 2))
    return Phrase{sign + 1, words + "-Grad"};
  return std::nullopt;
}

// "4*-Hotel", "5***** Haus".
Found StarsAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 1);
  if (!number || *number < 1 || !tokens.FreeBefore(i) || !IsOneOf(tokens.View(i + 1), {"*", "★"}))
    return std::nullopt;
  std::size_t end = i + 1;
  while (tokens.Is(end, tokens.View(i + 1)) && end < i + 6) ++end;
  const bool dash = tokens.Is(end, "-") && tokens.IsCapital(end + 1);
  if (IsOneOf(tokens.View(end), {",", ")", ";"}))  // "(4*, 120 Zimmer)"
    return Phrase{end, CardinalWords(*number, "ein") + (*number == 1 ? " Stern" : " Sterne")};
  if (!dash && !(tokens.IsBlank(end) && tokens.IsCapital(end + 1))) return std::nullopt;
  const std::string words =
      WithUpperStart(CardinalWords(*number, "ein")) + "-" + (*number == 1 ? "Stern" : "Sterne");
  return Phrase{dash ? end : end + 1, dash ? words : words + "-"};
}

// "3in1".
Found ManyInOneAt(const Tokens& tokens, std::size_t i) {
  const auto many = DigitsAt(tokens, i, 2);
  const std::size_t in = tokens.Is(i + 1, "-") ? i + 2 : i + 1;
  const std::size_t one = tokens.Is(in + 1, "-") ? in + 2 : in + 1;
  if (!many || !tokens.FreeBefore(i) || !tokens.Is(in, "in") || !tokens.Is(one, "1") ||
      !tokens.FreeBehind(one))
    return std::nullopt;
  const bool goesOn = tokens.IsDashAt(one + 1);  // "2-in-1-Tablet"
  return Phrase{one + 1, CardinalWords(*many) + (goesOn ? "-in-eins" : " in eins")};
}

}  // namespace

Found GluedAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading :
       {&DecadeAt, &StarsAt, &ManyInOneAt, &PercentPartAt, &PartSpanAt, &CompoundSpanAt, &CutAgeAt,
        &AdjectivePartAt, &WaitingPartAt, &FractionCompoundAt, &SignCompoundAt, &CompoundAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

}  // namespace lorelin
