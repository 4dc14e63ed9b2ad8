#include "speech/decoration.h"

#include <array>
#include <string>
#include <string_view>

namespace lorelin {
namespace {

struct Placeholder {
  std::string_view name;
  int LocalTime::*field;
};
constexpr std::array kPlaceholders{
    Placeholder{"$Zeit[s]", &LocalTime::second}, Placeholder{"$Zeit[m]", &LocalTime::minute},
    Placeholder{"$Zeit[h]", &LocalTime::hour}, Placeholder{"$Zeit[w]", &LocalTime::weekday}};

}  // namespace

void Decorate(TracedText& text, const SettingsStore& settings, const LocalTime& now) {
  text.Surround(settings.Get(setting::Prefix) + " ", " " + settings.Get(setting::Suffix));
  for (const auto& [name, field] : kPlaceholders) text.Replace(name, std::to_string(now.*field));
}

}  // namespace lorelin
