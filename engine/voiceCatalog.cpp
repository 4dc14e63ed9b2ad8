#include "engine/voiceCatalog.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/text.h"

namespace lorelin::engine {
namespace {

struct Language {
  std::string_view tag;
  std::int32_t id;
  std::string_view germanName;
};

// By the tags of eSpeak NG 1.51. The main variant of a language bears the bare name.
constexpr std::array kLanguages{
    Language{"af", 1078, "Afrikaans"},
    Language{"am", 1118, "Amharisch"},
    Language{"an", 0, "Aragonesisch"},
    Language{"ar", 1025, "Arabisch"},
    Language{"as", 1101, "Assamesisch"},
    Language{"az", 1068, "Aserbaidschanisch"},
    Language{"ba", 1133, "Baschkirisch"},
    Language{"be", 1059, "Belarussisch"},
    Language{"bg", 1026, "Bulgarisch"},
    Language{"bn", 1093, "Bengalisch"},
    Language{"bpy", 0, "Bishnupriya Manipuri"},
    Language{"bs", 5146, "Bosnisch"},
    Language{"ca", 1027, "Katalanisch"},
    Language{"chr-us-qaaa-x-west", 1116, "Cherokee"},
    Language{"cmn", 2052, "Chinesisch (Mandarin)"},
    Language{"cmn-latn-pinyin", 2052, "Chinesisch (Mandarin, Pinyin)"},
    Language{"cs", 1029, "Tschechisch"},
    Language{"cv", 0, "Tschuwaschisch"},
    Language{"cy", 1106, "Walisisch"},
    Language{"da", 1030, "Dänisch"},
    Language{"de", 1031, "Deutsch"},
    Language{"el", 1032, "Griechisch"},
    Language{"en", 1033, "Englisch"},
    Language{"en-029", 9225, "Englisch (Karibik)"},
    Language{"en-gb", 2057, "Englisch (Großbritannien)"},
    Language{"en-gb-scotland", 2057, "Englisch (Schottland)"},
    Language{"en-gb-x-gbclan", 2057, "Englisch (Lancaster)"},
    Language{"en-gb-x-gbcwmd", 2057, "Englisch (West Midlands)"},
    Language{"en-gb-x-rp", 2057, "Englisch (Hochsprache)"},
    Language{"en-us", 1033, "Englisch (USA)"},
    Language{"en-us-nyc", 1033, "Englisch (New York)"},
    Language{"eo", 0, "Esperanto"},
    Language{"es", 1034, "Spanisch"},
    Language{"es-419", 2058, "Spanisch (Lateinamerika)"},
    Language{"et", 1061, "Estnisch"},
    Language{"eu", 1069, "Baskisch"},
    Language{"fa", 1065, "Persisch"},
    Language{"fa-latn", 1065, "Persisch (lateinische Schrift)"},
    Language{"fi", 1035, "Finnisch"},
    Language{"fr", 1036, "Französisch"},
    Language{"fr-be", 2060, "Französisch (Belgien)"},
    Language{"fr-ch", 4108, "Französisch (Schweiz)"},
    Language{"fr-fr", 1036, "Französisch"},
    Language{"ga", 2108, "Irisch"},
    Language{"gd", 1169, "Schottisch-Gälisch"},
    Language{"gn", 1140, "Guaraní"},
    Language{"grc", 0, "Altgriechisch"},
    Language{"gu", 1095, "Gujarati"},
    Language{"hak", 0, "Hakka-Chinesisch"},
    Language{"haw", 1141, "Hawaiisch"},
    Language{"he", 1037, "Hebräisch"},
    Language{"hi", 1081, "Hindi"},
    Language{"hr", 1050, "Kroatisch"},
    Language{"ht", 0, "Haitianisch"},
    Language{"hu", 1038, "Ungarisch"},
    Language{"hy", 1067, "Armenisch"},
    Language{"hyw", 0, "Westarmenisch"},
    Language{"ia", 0, "Interlingua"},
    Language{"id", 1057, "Indonesisch"},
    Language{"io", 0, "Ido"},
    Language{"is", 1039, "Isländisch"},
    Language{"it", 1040, "Italienisch"},
    Language{"ja", 1041, "Japanisch"},
    Language{"jbo", 0, "Lojban"},
    Language{"ka", 1079, "Georgisch"},
    Language{"kk", 1087, "Kasachisch"},
    Language{"kl", 1135, "Grönländisch"},
    Language{"kn", 1099, "Kannada"},
    Language{"ko", 1042, "Koreanisch"},
    Language{"kok", 1111, "Konkani"},
    Language{"ku", 1170, "Kurdisch"},
    Language{"ky", 1088, "Kirgisisch"},
    Language{"la", 1142, "Latein"},
    Language{"lb", 1134, "Luxemburgisch"},
    Language{"lfn", 0, "Lingua Franca Nova"},
    Language{"lt", 1063, "Litauisch"},
    Language{"ltg", 0, "Lettgallisch"},
    Language{"lv", 1062, "Lettisch"},
    Language{"mi", 1153, "Maori"},
    Language{"mk", 1071, "Mazedonisch"},
    Language{"ml", 1100, "Malayalam"},
    Language{"mr", 1102, "Marathi"},
    Language{"ms", 1086, "Malaiisch"},
    Language{"mt", 1082, "Maltesisch"},
    Language{"my", 1109, "Birmanisch"},
    Language{"nb", 1044, "Norwegisch"},
    Language{"nci", 0, "Klassisches Nahuatl"},
    Language{"ne", 1121, "Nepalesisch"},
    Language{"nl", 1043, "Niederländisch"},
    Language{"nog", 0, "Nogaisch"},
    Language{"no", 1044, "Norwegisch"},
    Language{"om", 1138, "Oromo"},
    Language{"or", 1096, "Odia"},
    Language{"pa", 1094, "Pandschabi"},
    Language{"pap", 1145, "Papiamento"},
    Language{"piqd", 0, "Klingonisch (eigene Schrift)"},
    Language{"pl", 1045, "Polnisch"},
    Language{"pt", 2070, "Portugiesisch"},
    Language{"pt-br", 1046, "Portugiesisch (Brasilien)"},
    Language{"py", 0, "Pyash"},
    Language{"qdb", 0, "Lang Belta"},
    Language{"qu", 1131, "Quechua"},
    Language{"quc", 1158, "K’iche’"},
    Language{"qya", 0, "Quenya"},
    Language{"ro", 1048, "Rumänisch"},
    Language{"ru", 1049, "Russisch"},
    Language{"ru-lv", 1049, "Russisch (Lettland)"},
    Language{"sd", 1113, "Sindhi"},
    Language{"shn", 0, "Shan"},
    Language{"si", 1115, "Singhalesisch"},
    Language{"sjn", 0, "Sindarin"},
    Language{"sk", 1051, "Slowakisch"},
    Language{"sl", 1060, "Slowenisch"},
    Language{"smj", 5179, "Lulesamisch"},
    Language{"sq", 1052, "Albanisch"},
    Language{"sr", 9242, "Serbisch"},
    Language{"sv", 1053, "Schwedisch"},
    Language{"sw", 1089, "Suaheli"},
    Language{"ta", 1097, "Tamil"},
    Language{"te", 1098, "Telugu"},
    Language{"th", 1054, "Thailändisch"},
    Language{"tk", 1090, "Turkmenisch"},
    Language{"tn", 1074, "Setswana"},
    Language{"tr", 1055, "Türkisch"},
    Language{"tt", 1092, "Tatarisch"},
    Language{"ug", 1152, "Uigurisch"},
    Language{"uk", 1058, "Ukrainisch"},
    Language{"ur", 1056, "Urdu"},
    Language{"uz", 1091, "Usbekisch"},
    Language{"vi", 1066, "Vietnamesisch"},
    Language{"vi-vn-x-central", 1066, "Vietnamesisch (Zentralvietnam)"},
    Language{"vi-vn-x-south", 1066, "Vietnamesisch (Südvietnam)"},
    Language{"yue", 3076, "Kantonesisch"},
};

const Language* FindLanguage(std::string_view tag) {
  const std::string lower = LowerAscii(tag);
  const auto found =
      std::find_if(kLanguages.begin(), kLanguages.end(), [&](const auto& l) { return l.tag == lower; });
  return found != kLanguages.end() ? &*found : nullptr;
}

// The language of the tag, or of its part in front: "de" for "de-at".
const Language* FindMainLanguage(std::string_view tag) {
  const Language* const found = FindLanguage(tag);
  const std::size_t end = tag.rfind('-');
  if (found != nullptr || end == std::string_view::npos) return found;
  return FindMainLanguage(tag.substr(0, end));
}

// "Mbrola" voices are recordings of one person: they have no variants.
bool IsRecorded(const LibraryVoice& voice) {
  return voice.identifier.starts_with("mb/");
}

std::string DisplayName(const LibraryVoice& voice, const Language* language) {
  std::string name(language != nullptr ? language->germanName : std::string_view(voice.name));
  if (IsRecorded(voice)) name += " (" + voice.identifier.substr(3) + ")";
  return name;
}

// Names sorted as a German dictionary does: umlauts with their vowels.
std::string SortKey(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kLetters{
      {{"Ä", "A"}, {"Ö", "O"}, {"Ü", "U"}, {"ä", "a"}, {"ö", "o"}, {"ü", "u"}, {"ß", "ss"}}};
  std::string key(name);
  for (const auto& [letter, base] : kLetters) ReplaceAll(key, letter, base);
  return key;
}

int Rank(std::int32_t languageId) {
  constexpr std::int32_t kPrimaryLanguage = 0x3FF;
  constexpr std::int32_t kGerman = 7;
  constexpr std::int32_t kEnglish = 9;
  if ((languageId & kPrimaryLanguage) == kGerman) return 0;
  if ((languageId & kPrimaryLanguage) == kEnglish) return 1;
  return 2;
}

void AddVoices(std::vector<CatalogVoice>& catalog, const LibraryVoice& voice) {
  const Language* const language = FindLanguage(voice.language);
  const std::int32_t id = language != nullptr ? language->id : 0;
  const std::string name = DisplayName(voice, language);
  if (IsRecorded(voice)) {
    catalog.push_back({.voice = {name, id, voice.gender}, .selector = voice.identifier});
    return;
  }
  catalog.push_back({.voice = {name, id, 1}, .selector = voice.identifier});
  catalog.push_back({.voice = {name + " (weiblich)", id, 2}, .selector = voice.identifier + "+f2"});
}

}  // namespace

std::int32_t LanguageId(std::string_view language) {
  const Language* const found = FindMainLanguage(language);
  return found != nullptr ? found->id : 0;
}

std::string LanguageName(std::string_view language) {
  const Language* const found = FindMainLanguage(language);
  return std::string(found != nullptr ? found->germanName : language);
}

std::vector<CatalogVoice> MakeCatalog(const std::vector<LibraryVoice>& voices) {
  std::vector<CatalogVoice> catalog;
  for (const LibraryVoice& voice : voices) AddVoices(catalog, voice);
  std::stable_sort(catalog.begin(), catalog.end(), [](const CatalogVoice& a, const CatalogVoice& b) {
    const int left = Rank(a.voice.languageId);
    const int right = Rank(b.voice.languageId);
    return left != right ? left < right : SortKey(a.voice.name) < SortKey(b.voice.name);
  });
  return catalog;
}

}  // namespace lorelin::engine
