#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// What stands between the end of a line and the beginning of the next one of the same paragraph. Pure.
enum class LineJoint {
  Blank,         // "der" + "Hund"
  None,          // the hyphen stays: "E-" + "Mail"
  WithoutHyphen  // "Fens-" + "ter"
};

[[nodiscard]] LineJoint JointOf(std::string_view line, std::string_view next);

}  // namespace lorelin
