#include "german/alternatives.h"

#include "german/grammar.h"
#include "german/nouns.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

// "eine/n", "ein/e", "einer/m".
Found CutArticleAt(const Tokens& tokens, std::size_t i) {
  const auto first = tokens.View(i);
  const auto rest = tokens.View(i + 2);
  if (!IsDeterminer(first) || !IsOneOf(rest, {"n", "e", "m", "r", "s"}) || !tokens.FreeBehind(i + 2))
    return std::nullopt;
  std::string second(first);
  if (rest == "e") {
    second += 'e';
  } else {
    if (!HasSuffix(second, {"e", "er", "es"})) return std::nullopt;
    if (!second.ends_with('e')) second.pop_back();
    second += rest;
  }
  return Phrase{i + 3, std::string(first) + " oder " + second};
}

// "der/die", "er/sie", "ihm/ihr".
Found TwoPronounsAt(const Tokens& tokens, std::size_t i) {
  const auto isPronoun = [](std::string_view word) {
    const std::string small = WithLowerStart(word);
    return IsDeterminer(small) || IsOneOf(small, {"er", "sie", "ihm", "ihr", "ihn", "es", "dessen", "deren"});
  };
  if (!isPronoun(tokens.View(i)) || !isPronoun(tokens.View(i + 2)) || tokens.View(i + 2).size() < 2 ||
      !tokens.FreeBehind(i + 2))
    return std::nullopt;
  return Phrase{i + 3, std::string(tokens.View(i)) + " oder " + std::string(tokens.View(i + 2))};
}

// "Mitarbeiter/in", "Lehrer/-innen", "Kolleg/innen".
Found WomanBehindManAt(const Tokens& tokens, std::size_t i) {
  const std::size_t ending = tokens.Is(i + 2, "-") ? i + 3 : i + 2;
  const bool many = tokens.Is(ending, "innen");
  if (!tokens.IsCapital(i) || tokens.View(i).size() < 4 || (!many && !tokens.Is(ending, "in")) ||
      !tokens.FreeBehind(ending))
    return std::nullopt;
  const std::string stem(tokens.View(i));
  std::string woman = stem;
  if (woman.ends_with('e')) woman.pop_back();
  woman += many ? "innen" : "in";
  std::string man = stem;
  if (many && !NounOf(stem).plural) man += stem.ends_with('e') ? "n" : "en";  // "Kolleg", "Student"
  return Phrase{ending + 1, man + (many ? " und " : " oder ") + woman};
}

// "Koch/Köchin", "Ärztin/Arzt".
Found ManAndWomanAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsCapital(i) || !tokens.IsCapital(i + 2) || !tokens.FreeBehind(i + 2)) return std::nullopt;
  const auto first = tokens.View(i);
  const auto second = tokens.View(i + 2);
  const bool women =
      first.ends_with("in") != second.ends_with("in") &&
      (first.front() == second.front() || (first.starts_with("Ä") && second.starts_with('A')) ||
       (first.starts_with('A') && second.starts_with("Ä")));
  if (!women || first.size() < 4 || second.size() < 4) return std::nullopt;
  return Phrase{i + 3, std::string(first) + " oder " + std::string(second)};
}

bool IsSize(std::string_view word) {
  return IsOneOf(word, {"XXS", "XS", "S", "M", "L", "XL", "XXL", "XXXL"});
}

// "Größen S–XXL", "XS-L".
Found SizeSpanAt(const Tokens& tokens, std::size_t i) {
  const bool span = IsSize(tokens.View(i)) && tokens.IsDashAt(i + 1) && IsSize(tokens.View(i + 2)) &&
                    tokens.FreeBehind(i + 2) && !tokens.IsDashAt(i + 3);
  const bool certain = tokens.View(i).size() > 1 || tokens.View(i + 2).size() > 1 ||
                       HasPrefix(tokens.WordBefore(i), {"Gr", "Größe"});
  if (!span || !certain) return std::nullopt;
  return Phrase{i + 3, std::string(tokens.View(i)) + " bis " + std::string(tokens.View(i + 2))};
}

// "Q2–Q4", "B1-B2".
Found NumberedSpanAt(const Tokens& tokens, std::size_t i) {
  const auto first = DigitsAt(tokens, i + 1, 2);
  const auto second = DigitsAt(tokens, i + 4, 2);
  if (!first || !second || *first >= *second || tokens.View(i).size() != 1 || !tokens.IsCapital(i) ||
      !tokens.IsDashAt(i + 2) || !tokens.Is(i + 3, tokens.View(i)) || !tokens.FreeBehind(i + 4) ||
      tokens.IsDashAt(i + 5))
    return std::nullopt;
  const std::string letter(tokens.View(i));
  return Phrase{i + 5,
                letter + " " + CardinalWords(*first) + " bis " + letter + " " + CardinalWords(*second)};
}

}  // namespace

Found AlternativesAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsWord(i) || !tokens.FreeBefore(i)) return std::nullopt;
  if (auto found = SizeSpanAt(tokens, i)) return found;
  if (auto found = NumberedSpanAt(tokens, i)) return found;
  if (!tokens.Is(i + 1, "/") || tokens.Is(i + 3, "/")) return std::nullopt;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {"/", "-", ".", "@", "_"})) return std::nullopt;
  for (const auto reading : {&CutArticleAt, &TwoPronounsAt, &WomanBehindManAt, &ManAndWomanAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

}  // namespace lorelin
