#include "german/spans.h"

#include "german/amounts.h"
#include "german/dates.h"
#include "german/grammar.h"
#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/wordLists.h"

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
  constexpr std::uint64_t kApart = 20;
  const auto other = tokens.IsNumber(second, 4, 4) ? *DigitsAt(tokens, second, 4) : 0;
  // "1517/1521 wurde es geteilt": historians leave both open.
  const bool open = other > first->value && other <= first->value + kApart && !tokens.Is(second + 1, ".") &&
                    first->value < 1900 && !CodeBefore(tokens, i) && !LabelBefore(tokens, i);
  if (open && other != first->value + 1)
    return Phrase{second + 1, YearWords(first->value) + " " + YearWords(other)};
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

namespace {

// Two digits that shorten the second year: "2019/20", "1914-18".
bool ShortensYear(const WrittenNumber& first, const Tokens& tokens, std::size_t second) {
  if (!first.IsYear() || !tokens.IsNumber(second, 2, 2) || first.value < 1100 || first.value > 2200)
    return false;
  return *DigitsAt(tokens, second, 2) == (first.value + 1) % 100 ||
         *DigitsAt(tokens, second, 2) > first.value % 100;
}

std::string SpanWords(const WrittenNumber& number) {
  return number.value >= 1100 ? NumberOrYearText(number) : NumberText(number);
}

}  // namespace

Found SpanAt(const Tokens& tokens, std::size_t i) {
  if (auto years = SeasonsAt(tokens, i)) return years;
  if (auto pages = ShortenedSpanAt(tokens, i)) return pages;
  const auto first = NumberAt(tokens, i);
  if (!first) return std::nullopt;
  const auto between = BetweenAt(tokens, first->end);
  if (!between) return std::nullopt;
  const std::size_t at = between->end;
  // "2020–heute".
  if (between->words == " bis " && IsOneOf(tokens.View(at), {"heute", "jetzt"}) && first->IsYear() &&
      tokens.IsDashAt(tokens.Skip(first->end)))
    return Phrase{at, NumberOrYearText(*first) + " bis "};
  const auto second = NumberAt(tokens, at);
  if (tokens.IsBlank(first->end) && DateShapeAt(tokens, at)) return std::nullopt;
  if (!second || !tokens.FreeBehind(second->end - 1) || tokens.IsDashAt(second->end)) return std::nullopt;
  if (i > 0 && (tokens.IsDashAt(i - 1) || IsOneOf(tokens.View(i - 1), {"/", ".", ":"}))) return std::nullopt;
  if (tokens.Is(second->end, "/") && tokens.IsNumber(second->end + 1)) return std::nullopt;
  // "3–4 x tgl.": so many times.
  const std::size_t times = tokens.Skip(second->end);
  if (IsOneOf(tokens.View(times), {"x", "×"}) && !tokens.IsNumber(tokens.Skip(times + 1)))
    return std::nullopt;
  if (between->words == " mal " && first->IsOne() && second->IsOne() && HasDeterminer(tokens, i))
    return Phrase{second->end, "Einmaleins"};  // "das kleine 1x1"
  if (between->words == " mal ")
    return Phrase{second->end, NumberText(*first) + " mal " + NumberText(*second)};
  const bool word = tokens.Is(tokens.Skip(first->end), "bis");
  const bool shortened = ShortensYear(*first, tokens, at);
  const std::size_t era = tokens.Skip(second->end);  // "218–201 v. Chr."
  const bool before =
      tokens.Is(era, "v") && tokens.Is(era + 1, ".") && tokens.Is(tokens.Skip(era + 2), "Chr");
  const bool rising = before || first->value < second->value || shortened ||
                      (first->value == second->value && !first->IsWhole());
  if (!word && (!rising || (first->whole.front() == '0' && first->whole.size() > 1) ||
                (tokens.Is(first->end, "-") && CodeBefore(tokens, i))))
    return std::nullopt;
  if (!word && first->whole.size() > 4 && !first->grouped) return std::nullopt;
  // "Art. 12-345": no range of articles is so wide.
  if (!word && tokens.Is(first->end, "-") && LabelBefore(tokens, i) && first->value > 1 &&
      second->value > 20 * first->value)
    return std::nullopt;
  const bool noun = NounBehind(tokens, tokens.Skip(second->end)) != Tokens::kNone;
  const bool countsNoun = noun && !tokens.IsLast(second->end - 1) && !LabelBefore(tokens, i);
  const bool year = first->IsYear() && (second->IsYear() || shortened) && !IsLabel(tokens.WordBefore(i));
  std::string left = year ? SpanWords(*first) : NumberText(*first, countsNoun ? "ein" : "eins");
  std::string right = year ? SpanWords(*second) : NumberText(*second);
  return Phrase{second->end, left + " bis " + right};
}

}  // namespace lorelin
