#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ports/ReadingLookView.h"
#include "settings/SettingsStore.h"

namespace lorelin {

enum class ColourScheme { System, Cream, Dark, YellowOnBlack, Own };

// How the user wants to read, as it is stored.
struct LookSettings {
  std::string font{};
  int points = 0;
  int lineSpacing = 100;
  int letterSpacing = 0;
  int columnWidth = 0;
  ColourScheme scheme = ColourScheme::System;
  std::uint32_t ownText = 0x000000;
  std::uint32_t ownGround = 0xFFFFFF;

  bool operator==(const LookSettings&) const = default;
};

inline constexpr int kFewestPoints = 6;
inline constexpr int kMostPoints = 72;

// What is stored and cannot be shown reads as the usual, numbers as the nearest that can.
[[nodiscard]] LookSettings LoadLook(const SettingsStore& settings);
// Stores all of it or, as far as the system can do that, nothing; whether it was stored.
bool SaveLook(SettingsStore& settings, const LookSettings& look);

// Own colours that cannot be told apart are shown with black or white letters.
[[nodiscard]] ReadingLook LookOf(const LookSettings& look);
[[nodiscard]] bool CanBeRead(const LookColours& colours);

// In what order fonts are offered: those that are made for people who read with difficulty are the first.
[[nodiscard]] std::vector<std::string> FontsToOffer(std::vector<std::string> installed);
[[nodiscard]] bool IsEasyToRead(const std::string& font);

}  // namespace lorelin
