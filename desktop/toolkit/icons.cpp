#include "desktop/toolkit/icons.h"

#include <wx/settings.h>

#include <string>

#include "base/text.h"

namespace lorelin {
namespace {

// The drawings are made for a light background with this colour for their lines.
constexpr std::string_view kLineColour = "#2e3440";
constexpr std::string_view kLineColourOnDark = "#eceff4";
constexpr std::string_view kAccentColour = "#1a5fb4";
constexpr std::string_view kAccentColourOnDark = "#78aeed";

}  // namespace

wxBitmapBundle Icon(std::string_view name, int size) {
  std::string source(IconSource(name));
  if (wxSystemSettings::GetAppearance().IsDark()) {
    ReplaceAll(source, kLineColour, kLineColourOnDark);
    ReplaceAll(source, kAccentColour, kAccentColourOnDark);
  }
  return wxBitmapBundle::FromSVG(source.c_str(), wxSize(size, size));
}

}  // namespace lorelin
