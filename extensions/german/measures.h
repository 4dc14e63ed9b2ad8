#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace lorelin {

enum class Gender { Masculine, Feminine, Neuter };

// A unit behind a number, and where it ends.
struct Measure {
  std::string_view singular;
  std::string_view plural;
  Gender gender = Gender::Masculine;
  bool counts = false;  // a million of something, perhaps of money
  std::size_t end = 0;
};

struct Currency {
  std::string_view name;
  std::string_view part;  // the hundredth
  std::size_t end = 0;
};

// The unit that follows a number ending at `at`, a blank between or not.
[[nodiscard]] std::optional<Measure> MeasureAt(std::string_view text, std::size_t at);

[[nodiscard]] std::optional<Currency> CurrencyAt(std::string_view text, std::size_t at);

}  // namespace lorelin
