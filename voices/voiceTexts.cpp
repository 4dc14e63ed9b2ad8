#include "voices/voiceTexts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/text.h"

namespace lorelin {
namespace {

struct Language {
  std::string_view code;
  std::string_view name;
};

// The main variant of a language bears the bare name.
constexpr std::array kLanguages{Language{"ar_JO", "Arabisch (Jordanien)"},
                                Language{"bg_BG", "Bulgarisch"},
                                Language{"ca_ES", "Katalanisch"},
                                Language{"cs_CZ", "Tschechisch"},
                                Language{"cy_GB", "Walisisch"},
                                Language{"da_DK", "Dänisch"},
                                Language{"de_AT", "Deutsch (Österreich)"},
                                Language{"de_CH", "Deutsch (Schweiz)"},
                                Language{"de_DE", "Deutsch"},
                                Language{"el_GR", "Griechisch"},
                                Language{"en_GB", "Englisch (Großbritannien)"},
                                Language{"en_US", "Englisch (USA)"},
                                Language{"es_AR", "Spanisch (Argentinien)"},
                                Language{"es_ES", "Spanisch"},
                                Language{"es_MX", "Spanisch (Mexiko)"},
                                Language{"et_EE", "Estnisch"},
                                Language{"eu_ES", "Baskisch"},
                                Language{"fa_IR", "Persisch"},
                                Language{"fi_FI", "Finnisch"},
                                Language{"fr_FR", "Französisch"},
                                Language{"he_IL", "Hebräisch"},
                                Language{"hi_IN", "Hindi"},
                                Language{"hr_HR", "Kroatisch"},
                                Language{"hu_HU", "Ungarisch"},
                                Language{"id_ID", "Indonesisch"},
                                Language{"is_IS", "Isländisch"},
                                Language{"it_IT", "Italienisch"},
                                Language{"ja_JP", "Japanisch"},
                                Language{"ka_GE", "Georgisch"},
                                Language{"kk_KZ", "Kasachisch"},
                                Language{"ko_KR", "Koreanisch"},
                                Language{"ku_TR", "Kurdisch (Türkei)"},
                                Language{"lb_LU", "Luxemburgisch"},
                                Language{"lt_LT", "Litauisch"},
                                Language{"lv_LV", "Lettisch"},
                                Language{"ml_IN", "Malayalam"},
                                Language{"ne_NP", "Nepalesisch"},
                                Language{"nl_BE", "Niederländisch (Belgien)"},
                                Language{"nl_NL", "Niederländisch"},
                                Language{"no_NO", "Norwegisch"},
                                Language{"pl_PL", "Polnisch"},
                                Language{"pt_BR", "Portugiesisch (Brasilien)"},
                                Language{"pt_PT", "Portugiesisch"},
                                Language{"ro_RO", "Rumänisch"},
                                Language{"ru_RU", "Russisch"},
                                Language{"sk_SK", "Slowakisch"},
                                Language{"sl_SI", "Slowenisch"},
                                Language{"sq_AL", "Albanisch"},
                                Language{"sr_RS", "Serbisch"},
                                Language{"sv_SE", "Schwedisch"},
                                Language{"sw_CD", "Suaheli (Kongo)"},
                                Language{"te_IN", "Telugu"},
                                Language{"tr_TR", "Türkisch"},
                                Language{"uk_UA", "Ukrainisch"},
                                Language{"ur_PK", "Urdu"},
                                Language{"vi_VN", "Vietnamesisch"},
                                Language{"zh_CN", "Chinesisch (Mandarin)"}};

std::string_view Trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t\r*#-");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

}  // namespace

std::string LanguageText(std::string_view code) {
  const auto* const found =
      std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& l) { return l.code == code; });
  return std::string(found != kLanguages.end() ? found->name : code);
}

std::string_view QualityText(VoiceQuality quality) {
  static constexpr std::array<std::string_view, 4> kTexts{"sehr einfach", "einfach", "mittel", "hoch"};
  return kTexts.at(static_cast<std::size_t>(quality));
}

std::string_view QualityAdvice(VoiceQuality quality) {
  if (quality == VoiceQuality::Medium) return "Empfohlen: klingt gut und rechnet schnell.";
  if (quality == VoiceQuality::High) return "Rechnet um ein Vielfaches länger als „mittel“.";
  return {};
}

std::string SpeakerText(const CatalogueVoice& voice) {
  if (voice.speakers == 1) return voice.speaker;
  return voice.speaker + " (" + std::to_string(voice.speakers) + " Sprecher)";
}

std::string VoiceText(const CatalogueVoice& voice) {
  return LanguageText(voice.language) + " – " + voice.speaker + " (" +
         std::string(QualityText(voice.quality)) + ")";
}

std::string OneDecimal(double number) {
  const auto tenths = static_cast<long long>(std::llround(std::max(number, 0.0) * 10));
  return std::to_string(tenths / 10) + "," + std::to_string(tenths % 10);
}

std::string LicenceOf(std::string_view card) {
  constexpr std::string_view kLabel = "license:";
  while (!card.empty()) {
    const auto end = std::min(card.find('\n'), card.size());
    const std::string_view line = Trimmed(card.substr(0, end));
    if (LowerAscii(line).starts_with(kLabel)) return std::string(Trimmed(line.substr(kLabel.size())));
    card.remove_prefix(std::min(end + 1, card.size()));
  }
  return {};
}

}  // namespace lorelin
