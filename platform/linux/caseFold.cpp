#include "platform/linux/caseFold.h"

#include <glib.h>

#include <algorithm>
#include <array>

#include "app/textEncoding.h"

namespace lorelin {

std::string FoldCase(std::string_view name) {
  std::string folded;
  folded.reserve(name.size());
  while (!name.empty()) {
    const std::size_t length = Utf8Length(name);
    if (length == 0) {
      folded.push_back(name[0]);
    } else {
      std::array<char, 6> bytes{};
      const int size = g_unichar_to_utf8(g_unichar_toupper(g_utf8_get_char(name.data())), bytes.data());
      folded.append(bytes.data(), static_cast<std::size_t>(size));
    }
    name.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return folded;
}

}  // namespace lorelin
