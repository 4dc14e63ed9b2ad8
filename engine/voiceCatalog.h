#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/protocol.h"

namespace lorelin::engine {

// A voice of the library as its list tells it.
struct LibraryVoice {
  std::string name;         // "German"
  std::string identifier;   // what selects it: the file, "gmw/de" or "mb/mb-de1"
  std::string language;     // "de", "en-us"
  std::int32_t gender = 0;  // 1 male, 2 female, 0 not told
};

// A voice as the program offers it, and what selects it in the library.
struct CatalogVoice {
  Voice voice;
  std::string selector;
};

// The voices in the order of their numbers: German first, then English, then the others by their German
// names; for every voice of the list its own and a female variant.
[[nodiscard]] std::vector<CatalogVoice> MakeCatalog(const std::vector<LibraryVoice>& voices);

// Windows language identifier (winnls.h, [MS-LCID]) of a language tag, or of its main variant; 0 when
// unknown.
[[nodiscard]] std::int32_t LanguageId(std::string_view language);

// German name of the language of a tag, or of its main variant ("de-at" is "Deutsch"); the tag when unknown.
[[nodiscard]] std::string LanguageName(std::string_view language);

}  // namespace lorelin::engine
