#include "german/rowItems.h"

#include "german/cutNouns.h"
#include "german/dates.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

// An item of a row in the sentence: "1." at the beginning of a clause.
bool OpensItem(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  return DigitsAt(tokens, i, 2) == value && tokens.Is(i + 1, ".") && tokens.IsBlank(i + 2) &&
         (tokens.OpensClause(i) || IsOneOf(tokens.WordBefore(i), {"und", "sowie", "oder"})) &&
         tokens.IsWord(i + 3) && !IsHeadAt(tokens, i + 3) && !MonthAt(tokens, i + 3) &&
         !DateShapeAt(tokens, i);
}

bool HasItem(const Tokens& tokens, std::size_t from, std::size_t to, std::uint64_t value) {
  for (std::size_t at = from; at < to && at < tokens.Count(); ++at) {
    if (tokens.IsNumber(at, 1, 2) && OpensItem(tokens, at, value)) return true;
  }
  return false;
}

constexpr std::size_t kNearItem = 60;    // tokens
constexpr std::uint64_t kLastItem = 12;  // more are days or ages

// How far a sentence surely reaches while its end is still looked for.
std::size_t EndOfCertain(const Tokens& tokens, std::size_t from) {
  std::size_t at = from;
  for (; at < from + kNearItem && at < tokens.Count(); ++at) {
    const bool point = tokens.Is(at, ".") && !tokens.IsNumber(at - 1);
    if (point || IsOneOf(tokens.View(at), {"!", "?", "…"})) break;
  }
  return at;
}

// "Diagnosen: 1. Arterielle Hypertonie, 2. Diabetes": with the item before or behind it; the second is looked
// for up to a token.
bool IsRowItem(const Tokens& tokens, std::size_t i, std::size_t to) {
  const auto value = DigitsAt(tokens, i, 2);
  if (!value || *value == 0 || *value > kLastItem || !OpensItem(tokens, i, *value)) return false;
  if (*value == 1) return HasItem(tokens, i + 3, to, 2);
  return HasItem(tokens, i > kNearItem ? i - kNearItem : 0, i, *value - 1);
}

bool BeginsRow(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  return before != Tokens::kNone && tokens.Is(before, ":") && OpensItem(tokens, i, 1);
}

}  // namespace

bool IsItemOfRow(const Tokens& tokens, std::size_t i) {
  return BeginsRow(tokens, i) || IsRowItem(tokens, i, EndOfCertain(tokens, i + 2));
}

Found RowItemAt(const Tokens& tokens, std::size_t i) {
  if (!IsRowItem(tokens, i, i + kNearItem)) return std::nullopt;
  for (std::size_t at = i > 4 * kNearItem ? i - 4 * kNearItem : 0; at < i; ++at) {
    if (tokens.Kind(at) == TokenKind::Line) return std::nullopt;
  }
  return Phrase{i + 2, OrdinalWords(*DigitsAt(tokens, i, 2), "ens")};
}

}  // namespace lorelin
