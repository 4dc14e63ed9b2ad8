#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lorelin {

// Where the window stands and how it is parted; all in pixels of the screen.
struct WindowPlacement {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool maximized = false;
  int sash = 0;

  bool operator==(const WindowPlacement&) const = default;
};

// No screen reaches further in any direction; sums of two such numbers fit an int.
inline constexpr int kFarthestPixel = 100'000;

// The settings keep it as six whole numbers with blanks between them.
[[nodiscard]] std::string PlacementText(const WindowPlacement& placement);

// Nothing when the text is no placement, or one beyond every screen.
[[nodiscard]] std::optional<WindowPlacement> ParsePlacement(std::string_view text);

}  // namespace lorelin
