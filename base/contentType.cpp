#include "base/contentType.h"

#include <algorithm>

#include "base/text.h"

namespace lorelin {
namespace {

constexpr std::size_t kLongest = 40;

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n\""), text.size());
  return text.substr(begin, text.find_last_not_of(" \t\r\n\"") + 1 - begin);
}

bool IsName(std::string_view text) {
  constexpr std::string_view kSigns = "abcdefghijklmnopqrstuvwxyz0123456789-_:.";
  return text.size() <= kLongest && text.find_first_not_of(kSigns) == std::string_view::npos;
}

}  // namespace

std::string CharsetOfContentType(std::string_view contentType) {
  const std::string lower = LowerAscii(contentType);
  std::string_view rest = lower;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    const std::string_view parameter = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    const std::size_t equals = parameter.find('=');
    if (equals == std::string_view::npos || Trimmed(parameter.substr(0, equals)) != "charset") continue;
    const std::string_view name = Trimmed(parameter.substr(equals + 1));
    return IsName(name) ? std::string(name) : std::string();
  }
  return {};
}

}  // namespace lorelin
