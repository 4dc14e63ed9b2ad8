#include "base/wildcards.h"

#include <algorithm>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

std::size_t CharacterLength(std::string_view text) {
  return std::max<std::size_t>(Utf8Length(text), 1);
}

}  // namespace

// Whatever the language of the process: fnmatch would refuse some names there.
bool MatchesWildcards(std::string_view pattern, std::string_view name) {
  std::string_view afterStar;
  std::string_view retry;
  bool starred = false;
  while (!name.empty()) {
    if (pattern.starts_with('*')) {
      starred = true;
      afterStar = pattern = pattern.substr(1);
      retry = name;
    } else if (pattern.starts_with('?')) {
      pattern.remove_prefix(1);
      name.remove_prefix(CharacterLength(name));
    } else if (!pattern.empty() && pattern[0] == name[0]) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (starred) {
      retry.remove_prefix(CharacterLength(retry));
      name = retry;
      pattern = afterStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace lorelin
