#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace lorelin {

// 0xRRGGBB.
struct LookColours {
  std::uint32_t text = 0;
  std::uint32_t ground = 0;

  bool operator==(const LookColours&) const = default;
};

// How the document is shown.
struct ReadingLook {
  std::string font{};                    // "" for the usual one, and those that the document has
  int points = 0;                        // 0 for the usual size
  int lineSpacing = 100;                 // percent
  int letterSpacing = 0;                 // hundredths of the font's size
  int columnWidth = 0;                   // characters of usual width; 0 for the whole width
  std::optional<LookColours> colours{};  // else those of the system

  bool operator==(const ReadingLook&) const = default;
};

// Port: the looks of the document's editor. They are no part of the document: neither saved nor copied nor
// undone. What a system cannot show without touching the document it does not show. User-interface thread
// only.
class ReadingLookView {
 public:
  virtual ~ReadingLookView() = default;
  virtual void ShowLook(const ReadingLook& look) = 0;
};

}  // namespace lorelin
