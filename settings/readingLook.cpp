#include "settings/readingLook.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "base/contrast.h"
#include "base/text.h"

namespace lorelin {
namespace {

constexpr std::array kSchemes{std::pair{ColourScheme::System, std::string_view("System")},
                              std::pair{ColourScheme::Cream, std::string_view("Cream")},
                              std::pair{ColourScheme::Dark, std::string_view("Dark")},
                              std::pair{ColourScheme::YellowOnBlack, std::string_view("YellowOnBlack")},
                              std::pair{ColourScheme::Own, std::string_view("Own")}};

int Number(const SettingsStore& settings, const SettingKey& key, int least, int most) {
  const std::string text = settings.Get(key);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) return text.front() == '-' ? least : most;
  return error == std::errc() ? std::clamp(number, least, most) : least;
}

std::uint32_t Colour(const SettingsStore& settings, const SettingKey& key, std::uint32_t otherwise) {
  const std::string text = settings.Get(key);
  std::uint32_t colour = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), colour, 16);
  const bool whole = error == std::errc() && end == text.data() + text.size() && text.size() == 6;
  return whole ? colour : otherwise;
}

std::string ColourText(std::uint32_t colour) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[colour >> static_cast<unsigned>(shift) & 0xFU];
  return text;
}

ColourScheme SchemeOf(const std::string& name) {
  for (const auto& [scheme, known] : kSchemes) {
    if (name == known) return scheme;
  }
  return ColourScheme::System;
}

std::string_view NameOf(ColourScheme scheme) {
  return std::find_if(kSchemes.begin(), kSchemes.end(),
                      [&](const auto& known) { return known.first == scheme; })
      ->second;
}

LookColours Readable(const LookColours& colours) {
  if (CanBeRead(colours)) return colours;
  const bool white = ContrastOf(colours.ground, 0xFFFFFF) > ContrastOf(colours.ground, 0x000000);
  return {.text = white ? 0xFFFFFFU : 0x000000U, .ground = colours.ground};
}

}  // namespace

LookSettings LoadLook(const SettingsStore& settings) {
  LookSettings look;
  look.font = settings.Get(setting::ReadingFont);
  look.points = Number(settings, setting::ReadingPoints, 0, kMostPoints);
  if (look.points != 0) look.points = std::max(look.points, kFewestPoints);
  look.lineSpacing = Number(settings, setting::ReadingLines, 100, 300);
  look.letterSpacing = Number(settings, setting::ReadingLetters, 0, 50);
  look.columnWidth = Number(settings, setting::ReadingColumn, 0, 200);
  if (look.columnWidth != 0) look.columnWidth = std::max(look.columnWidth, 20);
  look.scheme = SchemeOf(settings.Get(setting::ReadingColours));
  look.ownText = Colour(settings, setting::ReadingText, look.ownText);
  look.ownGround = Colour(settings, setting::ReadingGround, look.ownGround);
  return look;
}

bool SaveLook(SettingsStore& settings, const LookSettings& look) {
  return settings.Together([&] {
    const std::array<std::pair<const SettingKey*, std::string>, 8> values{
        std::pair{&setting::ReadingFont, look.font},
        std::pair{&setting::ReadingPoints, std::to_string(look.points)},
        std::pair{&setting::ReadingLines, std::to_string(look.lineSpacing)},
        std::pair{&setting::ReadingLetters, std::to_string(look.letterSpacing)},
        std::pair{&setting::ReadingColumn, std::to_string(look.columnWidth)},
        std::pair{&setting::ReadingColours, std::string(NameOf(look.scheme))},
        std::pair{&setting::ReadingText, ColourText(look.ownText)},
        std::pair{&setting::ReadingGround, ColourText(look.ownGround)}};
    return std::all_of(values.begin(), values.end(),
                       [&](const auto& value) { return settings.Save(*value.first, value.second); });
  });
}

bool CanBeRead(const LookColours& colours) {
  return ContrastOf(colours.text, colours.ground) >= kTextContrast;
}

ReadingLook LookOf(const LookSettings& look) {
  ReadingLook shown{.font = look.font,
                    .points = look.points,
                    .lineSpacing = look.lineSpacing,
                    .letterSpacing = look.letterSpacing,
                    .columnWidth = look.columnWidth,
                    .colours = {}};
  switch (look.scheme) {
    case ColourScheme::System:
      break;
    case ColourScheme::Cream:
      shown.colours = {.text = 0x1F1B16, .ground = 0xFDF6E3};
      break;
    case ColourScheme::Dark:
      shown.colours = {.text = 0xE6E6E6, .ground = 0x1E1E1E};
      break;
    case ColourScheme::YellowOnBlack:
      shown.colours = {.text = 0xFFFF00, .ground = 0x000000};
      break;
    case ColourScheme::Own:
      shown.colours = Readable({.text = look.ownText, .ground = look.ownGround});
      break;
  }
  return shown;
}

bool IsEasyToRead(const std::string& font) {
  const std::string lower = LowerAscii(font);
  for (const std::string_view part : {"dyslexi", "lexend", "hyperlegible", "andika", "sylexiad"}) {
    if (lower.find(part) != std::string::npos) return true;
  }
  return false;
}

// Names with "@" are the same fonts for lines from top to bottom.
std::vector<std::string> FontsToOffer(std::vector<std::string> installed) {
  std::erase_if(installed, [](const std::string& font) { return font.empty() || font.front() == '@'; });
  std::sort(installed.begin(), installed.end(), [](const std::string& a, const std::string& b) {
    return std::pair(LowerAscii(a), a) < std::pair(LowerAscii(b), b);
  });
  installed.erase(std::unique(installed.begin(), installed.end()), installed.end());
  std::stable_partition(installed.begin(), installed.end(), &IsEasyToRead);
  return installed;
}

}  // namespace lorelin
