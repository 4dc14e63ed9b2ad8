#include "german/spans.h"

#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

// "2019/20", "2023/2024", "1998/99".
Found SeasonAt(const Tokens& tokens, std::size_t i) {
  const auto first = NumberAt(tokens, i);
  if (!first || !first->IsYear() || first->value < 1100 || first->value > 2200 || !tokens.Is(first->end, "/"))
    return std::nullopt;
  const std::size_t second = first->end + 1;
  if (tokens.Is(second + 1, "/") || !tokens.FreeBehind(second)) return std::nullopt;
  if (LabelBefore(tokens, i) && CodeBefore(tokens, i)) return std::nullopt;
  if (tokens.IsNumber(second, 4, 4) && *DigitsAt(tokens, second, 4) == first->value + 1)
    return Phrase{second + 1, YearWords(first->value) + " " + YearWords(first->value + 1)};
  if (!tokens.IsNumber(second, 2, 2) ||
      *DigitsAt(tokens, second, 2) <= first->value % 100 - (first->value % 100 == 99 ? 99 : 0))
    return std::nullopt;
  const auto digits = tokens.View(second);
  return Phrase{second + 1, YearWords(first->value) + " " +
                                (digits.front() == '0' ? DigitWords(digits)
                                                       : CardinalWords(*DigitsAt(tokens, second, 2)))};
}

}  // namespace

Found SeasonsAt(const Tokens& tokens, std::size_t i) {
  auto first = SeasonAt(tokens, i);
  if (!first || !tokens.IsDashAt(tokens.Skip(first->end))) return first;
  const auto last = SeasonAt(tokens, tokens.Skip(tokens.Skip(first->end) + 1));
  if (!last) return first;
  return Phrase{last->end, first->words + " bis " + last->words};
}

Found ShortenedSpanAt(const Tokens& tokens, std::size_t i) {
  std::size_t label = tokens.Before(i);
  if (label != Tokens::kNone && label > 0 && tokens.Is(label, ".")) --label;
  const auto first = DigitsAt(tokens, i, 4);
  const std::size_t digits = tokens.View(i + 2).size();
  if (!first || label == Tokens::kNone || !IsOneOf(tokens.View(label), {"S", "Seite", "Seiten", "pp"}) ||
      !tokens.IsDashAt(i + 1) || !tokens.IsNumber(i + 2, 1, 2) || digits >= tokens.View(i).size())
    return std::nullopt;
  const std::uint64_t last = *DigitsAt(tokens, i + 2, 2);
  if (last <= *first % (digits == 1 ? 10U : 100U)) return std::nullopt;
  return Phrase{i + 3, CardinalWords(*first) + " bis " + CardinalWords(last)};
}

}  // namespace lorelin
