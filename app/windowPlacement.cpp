#include "app/windowPlacement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace lorelin {
namespace {

// Takes the number, with the blanks around it, from the beginning of the text.
std::optional<int> TakeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (!text.empty() && text.front() != ' ') return std::nullopt;
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return number;
}

bool IsOnSomeScreen(int number) {
  return number >= -kFarthestPixel && number <= kFarthestPixel;
}

}  // namespace

std::string PlacementText(const WindowPlacement& placement) {
  return std::to_string(placement.x) + " " + std::to_string(placement.y) + " " +
         std::to_string(placement.width) + " " + std::to_string(placement.height) + " " +
         (placement.maximized ? "1" : "0") + " " + std::to_string(placement.sash);
}

std::optional<WindowPlacement> ParsePlacement(std::string_view text) {
  std::array<int, 6> numbers{};
  for (int& number : numbers) {
    const std::optional<int> taken = TakeNumber(text);
    if (!taken || !IsOnSomeScreen(*taken)) return std::nullopt;
    number = *taken;
  }
  const auto [x, y, width, height, maximized, sash] = numbers;
  if (!text.empty() || width < 0 || height < 0 || maximized < 0 || maximized > 1) return std::nullopt;
  return WindowPlacement{
      .x = x, .y = y, .width = width, .height = height, .maximized = maximized == 1, .sash = sash};
}

}  // namespace lorelin
