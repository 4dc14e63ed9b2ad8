#pragma once

#include <tuple>

#include "richtext/RichText.h"

namespace lorelin {

inline auto KeyOf(const CharacterFormat& f) {
  return std::tuple(f.font, f.halfPoints, f.foreground, f.background, f.bold, f.italic, f.underline,
                    f.strikeThrough, f.position);
}
inline auto KeyOf(const ParagraphFormat& f) {
  return std::tuple(f.alignment, f.leftIndent, f.rightIndent, f.firstLineIndent, f.outlineLevel);
}

// An order of formats, for maps.
struct ByKey {
  template <typename Format>
  bool operator()(const Format& a, const Format& b) const {
    return KeyOf(a) < KeyOf(b);
  }
};

}  // namespace lorelin
