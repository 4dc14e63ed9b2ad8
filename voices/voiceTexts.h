#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "voices/catalogue.h"

namespace lorelin {

// How facts about voices are said to the user, in German.

// "Deutsch" for "de_DE", "Niederländisch (Belgien)" for "nl_BE"; the code itself when it is unknown.
[[nodiscard]] std::string LanguageText(std::string_view code);

// "sehr einfach", "einfach", "mittel", "hoch"
[[nodiscard]] std::string_view QualityText(VoiceQuality quality);

// What there is to say about choosing this quality; "" for nothing.
[[nodiscard]] std::string_view QualityAdvice(VoiceQuality quality);

// "thorsten", "mls (236 Sprecher)"
[[nodiscard]] std::string SpeakerText(const CatalogueVoice& voice);

// "Deutsch – thorsten (mittel)"
[[nodiscard]] std::string VoiceText(const CatalogueVoice& voice);

// A number with one digit behind the comma.
[[nodiscard]] std::string OneDecimal(double number);

// The licence that a voice's card names in its line "License:"; "" when it names none.
[[nodiscard]] std::string LicenceOf(std::string_view card);

}  // namespace lorelin
