#include "ports/Registry.h"

namespace lorelin {

RegistryValue MakeDoubleWord(std::uint32_t number) {
  RegistryValue value{RegistryType::DoubleWord, {}};
  for (unsigned shift = 0; shift < 32; shift += 8) value.data.push_back(static_cast<char>(number >> shift));
  return value;
}

std::optional<std::uint32_t> DoubleWordOf(const RegistryValue& value) {
  if (value.type != RegistryType::DoubleWord || value.data.size() != 4) return std::nullopt;
  std::uint32_t number = 0;
  for (unsigned i = 0; i < 4; ++i)
    number |= std::uint32_t{static_cast<unsigned char>(value.data[i])} << (8 * i);
  return number;
}

}  // namespace lorelin
