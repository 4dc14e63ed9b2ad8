#include "voices/catalogue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>

#include "base/text.h"
#include "base/textEncoding.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

constexpr std::size_t kColumns = 10;
constexpr std::uintmax_t kMostModelBytes = 1'000'000'000;
constexpr std::uintmax_t kMostDescriptionBytes = 1U << 20;
constexpr std::uintmax_t kMostSpeakers = 4096;
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kMd5Digits = 32;
constexpr std::size_t kSha256Digits = 64;

std::vector<std::string_view> Split(std::string_view line, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = line.find(separator);
    parts.push_back(line.substr(0, end));
    if (end == std::string_view::npos) return parts;
    line.remove_prefix(end + 1);
  }
}

std::optional<std::uintmax_t> Number(std::string_view text, std::uintmax_t most) {
  std::uintmax_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || number < 1 || number > most)
    return std::nullopt;
  return number;
}

bool IsChecksum(std::string_view text) {
  return (text.size() == kMd5Digits || text.size() == kSha256Digits) &&
         text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

// "de_DE"
bool IsLanguage(std::string_view text) {
  const auto between = [&](std::size_t at, char first, char last) {
    return text[at] >= first && text[at] <= last;
  };
  return text.size() == 5 && between(0, 'a', 'z') && between(1, 'a', 'z') && text[2] == '_' &&
         between(3, 'A', 'Z') && between(4, 'A', 'Z');
}

// A path stays below the address that it is put behind.
bool IsModelPath(std::string_view path, std::string_view name) {
  if (!path.ends_with("/" + std::string(name) + ".onnx")) return false;
  const auto parts = Split(path, '/');
  return std::all_of(parts.begin(), parts.end(), [](std::string_view part) { return IsVoiceName(part); });
}

std::optional<CatalogueVoice> ReadLine(std::string_view line) {
  const auto columns = Split(line, '\t');
  if (columns.size() != kColumns) return std::nullopt;
  const auto quality = QualityNamed(columns[3]);
  const auto speakers = Number(columns[4], kMostSpeakers);
  const auto modelBytes = Number(columns[6], kMostModelBytes);
  const auto descriptionBytes = Number(columns[8], kMostDescriptionBytes);
  const bool good = IsVoiceName(columns[0]) && IsLanguage(columns[1]) && IsVoiceName(columns[2]) && quality &&
                    speakers && IsModelPath(columns[5], columns[0]) && modelBytes && IsChecksum(columns[7]) &&
                    descriptionBytes && IsChecksum(columns[9]);
  if (!good) return std::nullopt;
  const std::string path(columns[5]);
  return CatalogueVoice{.name = std::string(columns[0]),
                        .language = std::string(columns[1]),
                        .speaker = std::string(columns[2]),
                        .quality = *quality,
                        .speakers = static_cast<int>(*speakers),
                        .model = {path, *modelBytes, std::string(columns[7])},
                        .description = {path + ".json", *descriptionBytes, std::string(columns[9])}};
}

int Rank(std::string_view language) {
  if (language.starts_with("de")) return 0;
  return language.starts_with("en") ? 1 : 2;
}

bool Before(const CatalogueVoice& a, const CatalogueVoice& b) {
  if (Rank(a.language) != Rank(b.language)) return Rank(a.language) < Rank(b.language);
  const std::string left = LanguageText(a.language);
  const std::string right = LanguageText(b.language);
  if (left != right) return ListedBefore(left, right);
  if (a.speaker != b.speaker) return ListedBefore(a.speaker, b.speaker);
  return a.quality < b.quality;
}

}  // namespace

std::optional<VoiceQuality> QualityNamed(std::string_view text) {
  static constexpr std::array<std::string_view, 4> kNames{"x_low", "low", "medium", "high"};
  const auto* const found = std::find(kNames.begin(), kNames.end(), text);
  if (found == kNames.end()) return std::nullopt;
  return static_cast<VoiceQuality>(found - kNames.begin());
}

ChecksumKind CatalogueFile::Kind() const {
  return checksum.size() == kSha256Digits ? ChecksumKind::Sha256 : ChecksumKind::Md5;
}

std::string CatalogueVoice::CardPath() const {
  return model.path.substr(0, model.path.rfind('/') + 1) + "MODEL_CARD";
}

const CatalogueVoice* Catalogue::Find(std::string_view name) const {
  const std::string wanted = LowerAscii(name);
  const auto found =
      std::find_if(voices.begin(), voices.end(), [&](const auto& v) { return LowerAscii(v.name) == wanted; });
  return found != voices.end() ? &*found : nullptr;
}

bool IsVoiceName(std::string_view name) {
  const auto fits = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
  };
  return !name.empty() && name.size() <= kLongestName && name.front() != '.' && name.front() != '-' &&
         std::all_of(name.begin(), name.end(), fits) && IsValidUtf8(name);
}

Catalogue ReadCatalogue(std::string_view text) {
  Catalogue catalogue;
  std::set<std::string> names;
  std::size_t number = 0;
  for (std::string_view line : Split(text, '\n')) {
    ++number;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty() || line.front() == '#') continue;
    auto voice = ReadLine(line);
    if (voice && names.insert(LowerAscii(voice->name)).second) {
      catalogue.voices.push_back(std::move(*voice));
    } else {
      catalogue.problems.push_back("Zeile " + std::to_string(number) +
                                   " der Stimmenliste ist keine brauchbare Stimme.");
    }
  }
  std::stable_sort(catalogue.voices.begin(), catalogue.voices.end(), &Before);
  return catalogue;
}

}  // namespace lorelin
