#include "german/abbreviations.h"
#include "german/grammar.h"

namespace lorelin {

namespace {

// "unfallfr.", "rezeptpfl.", "fristger.": what is missing at the end of a compound of which nothing else is
// cut.
std::string_view RestOfAdjective(std::string_view word) {
  struct Part {
    std::string_view written;
    std::string_view rest;
  };
  constexpr Part kParts[] = {{"fr", "ei"},         {"pfl", "ichtig"},          {"fähi", "g"},
                             {"formger", "echt"},  {"fristger", "echt"},       {"altersger", "echt"},
                             {"sachger", "echt"},  {"artger", "echt"},         {"fachger", "echt"},
                             {"kindger", "echt"},  {"behindertenger", "echt"}, {"ordnungsgem", "äß"},
                             {"fristgem", "äß"},   {"vertragsgem", "äß"},      {"sachgem", "äß"},
                             {"planm", "äßig"},    {"rechtm", "äßig"},         {"regelm", "äßig"},
                             {"gleichm", "äßig"},  {"verhältnism", "äßig"},    {"sbed", "ingt"},
                             {"reichh", "altig"},  {"barrierefr", "ei"},       {"vorschriftsm", "äßig"},
                             {"gewerbsm", "äßig"}, {"unabh", "ängig"},         {"abh", "ängig"},
                             {"zust", "ändig"},    {"selbstst", "ändig"}};
  for (const Part& part : kParts) {
    if (word.size() >= part.written.size() + 4 && word.ends_with(part.written)) return part.rest;
    if (part.written.size() > 4 && word == part.written) return part.rest;
  }
  return {};
}

}  // namespace

std::optional<FoundEnding> CutAdjectiveAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  if (tokens.IsWord(i) && !IsAllCaps(word) && tokens.Is(i + 1, ".") && tokens.FreeBefore(i) &&
      (!IsUpperWord(word) || tokens.OpensClause(i)) && !NounOf(word).known) {
    const std::size_t noun = NounBehind(tokens, tokens.Skip(i + 2));
    if (const auto rest = RestOfAdjective(word); !rest.empty())
      return FoundEnding{rest, noun != Tokens::kNone && tokens.IsBlank(i + 2), i + 2};
  }
  if (word.size() < 5 || !tokens.Is(i + 1, ".") || !tokens.IsBlank(i + 2) || !tokens.FreeBefore(i))
    return std::nullopt;
  const bool consonant =
      std::string_view("bcdfghjkmnpqrstvwxz").find(word[word.size() - 2]) != std::string_view::npos;
  if (!consonant || (IsUpperWord(word) && !tokens.OpensClause(i))) return std::nullopt;
  const std::size_t next = i + 3;
  const bool noun = tokens.IsCapital(next) && !StartsSentences(tokens.View(next));
  const bool goesOn = noun || (tokens.IsWord(next) && !tokens.IsCapital(next)) || tokens.IsNumber(next);
  if (!goesOn || NounOf(word).whole) return std::nullopt;
  if (word.ends_with("schl"))  // "abgeschl. Ausbildung", "beschl."
    return FoundEnding{"ossen", NounBehind(tokens, next) != Tokens::kNone, i + 2};
  const bool whole = word.ends_with("hl") && !word.ends_with("chl");  // "empfahl", "kühl"
  if (word.ends_with('l') && !whole)
    return FoundEnding{"ich", NounBehind(tokens, next) != Tokens::kNone, i + 2};
  if (word.ends_with('w') && !IsUpperWord(word)) return FoundEnding{"eise", false, i + 2};
  return std::nullopt;
}

}  // namespace lorelin
