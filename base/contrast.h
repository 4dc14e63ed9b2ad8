#pragma once

#include <cstdint>

namespace lorelin {

// Of two colours 0xRRGGBB, from 1 to 21, after WCAG 2.1.
[[nodiscard]] double ContrastOf(std::uint32_t a, std::uint32_t b);

// What text needs to be read by everybody, after the same.
inline constexpr double kTextContrast = 4.5;

}  // namespace lorelin
