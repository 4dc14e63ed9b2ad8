#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "base/text.h"
#include "base/textEncoding.h"
#include "engine/naturalVoices.h"

namespace lorelin::engine {
namespace {

using Json = nlohmann::json;

constexpr std::int64_t kMostSymbols = 4096;
constexpr std::size_t kMostIdsOfASymbol = 8;
constexpr std::size_t kMostSpeakers = 4096;
constexpr std::size_t kLongestName = 100;

// What is wrong, as the end of a German sentence.
struct Wrong {
  std::string text;
};

const Json& Member(const Json& object, const char* name) {
  static const Json none;
  if (!object.is_object()) return none;
  const auto found = object.find(name);
  return found != object.end() ? *found : none;
}

std::string Text(const Json& value) {
  if (!value.is_string()) return {};
  const auto& text = value.get_ref<const std::string&>();
  const bool harmless = std::none_of(
      text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
  return text.size() <= kLongestName && harmless ? text : std::string();
}

std::int64_t Whole(const Json& value, std::int64_t lowest, std::int64_t highest, const char* wrong) {
  if (!value.is_number_integer()) throw Wrong{wrong};
  if (value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(highest))
    throw Wrong{wrong};
  const auto number = value.get<std::int64_t>();
  if (number < lowest || number > highest) throw Wrong{wrong};
  return number;
}

float Scale(const Json& value, float usual, float lowest) {
  if (value.is_null()) return usual;
  if (!value.is_number()) throw Wrong{"ein Maß der Stimme ist keine Zahl"};
  const auto number = value.get<double>();
  constexpr double kHighest = 10;
  if (!std::isfinite(number) || number < lowest || number > kHighest)
    throw Wrong{"ein Maß der Stimme ist zu groß oder zu klein"};
  return static_cast<float>(number);
}

// A name of eSpeak NG's and never a path.
std::string EspeakVoice(const Json& value) {
  std::string name = Text(value);
  const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
  });
  if (name.empty() || !plain) throw Wrong{"sie nennt keine Stimme von eSpeak NG"};
  return name;
}

std::vector<std::int64_t> Ids(const Json& value, std::int64_t count) {
  constexpr const char* kWrong = "die Tabelle der Laute ist falsch";
  if (!value.is_array() || value.empty() || value.size() > kMostIdsOfASymbol) throw Wrong{kWrong};
  std::vector<std::int64_t> ids;
  for (const Json& id : value) ids.push_back(Whole(id, 0, count - 1, kWrong));
  return ids;
}

void ReadSymbols(const Json& json, NaturalVoice& voice) {
  const Json& count = Member(json, "num_symbols");
  const std::int64_t most =
      count.is_null() ? kMostSymbols : Whole(count, 1, kMostSymbols, "die Zahl der Laute ist falsch");
  const Json& map = Member(json, "phoneme_id_map");
  if (!map.is_object() || map.size() > static_cast<std::size_t>(kMostSymbols))
    throw Wrong{"die Tabelle der Laute fehlt"};
  for (const auto& [symbol, ids] : map.items()) {
    // What is more than one character never comes out of a text.
    if (!symbol.empty() && Utf8Length(symbol) == symbol.size())
      voice.symbols.emplace(FirstCharacter(symbol), Ids(ids, most));
  }
  for (const char32_t needed : {U'^', U'_', U'$'}) {
    if (!voice.symbols.contains(needed)) throw Wrong{"in der Tabelle der Laute fehlen Anfang und Ende"};
  }
}

void ReadSpeakers(const Json& json, NaturalVoice& voice) {
  const Json& given = Member(json, "num_speakers");
  const std::int64_t count = given.is_null() ? 1
                                             : Whole(given, 1, static_cast<std::int64_t>(kMostSpeakers),
                                                     "die Zahl der Sprecher ist falsch");
  const Json& map = Member(json, "speaker_id_map");
  if (count > 1 && map.is_object()) {
    if (map.size() > kMostSpeakers) throw Wrong{"die Zahl der Sprecher ist falsch"};
    for (const auto& [name, id] : map.items())
      voice.speakers.push_back({Text(name), Whole(id, 0, count - 1, "die Tabelle der Sprecher ist falsch")});
    std::stable_sort(voice.speakers.begin(), voice.speakers.end(),
                     [](const auto& a, const auto& b) { return a.id < b.id; });
  }
  if (!voice.speakers.empty()) return;
  for (std::int64_t id = 0; id < count; ++id) voice.speakers.push_back({std::to_string(id + 1), id});
}

// "de_DE" as a tag: "de-de".
std::string LanguageTag(const Json& json, const std::string& espeakVoice) {
  std::string tag = LowerAscii(Text(Member(Member(json, "language"), "code")));
  std::replace(tag.begin(), tag.end(), '_', '-');
  return tag.empty() ? LowerAscii(espeakVoice) : tag;
}

NaturalVoice Read(const Json& json) {
  if (!json.is_object()) throw Wrong{"sie ist kein JSON-Objekt"};
  const std::string kind = Text(Member(json, "phoneme_type"));
  if (!kind.empty() && kind != "espeak") throw Wrong{"sie verlangt eine Lautschrift, die es hier nicht gibt"};
  NaturalVoice voice;
  voice.sampleRate = static_cast<int>(
      Whole(Member(Member(json, "audio"), "sample_rate"), 8000, 48000, "die Abtastrate ist falsch"));
  voice.quality = Text(Member(Member(json, "audio"), "quality"));
  voice.dataset = Text(Member(json, "dataset"));
  voice.espeakVoice = EspeakVoice(Member(Member(json, "espeak"), "voice"));
  voice.language = LanguageTag(json, voice.espeakVoice);
  const Json& inference = Member(json, "inference");
  voice.noiseScale = Scale(Member(inference, "noise_scale"), 0.667F, 0);
  voice.lengthScale = Scale(Member(inference, "length_scale"), 1, 0.1F);
  voice.noiseOfDurations = Scale(Member(inference, "noise_w"), 0.8F, 0);
  ReadSymbols(json, voice);
  ReadSpeakers(json, voice);
  return voice;
}

}  // namespace

std::optional<NaturalVoice> ReadNaturalVoice(std::string_view json, std::string& problem) {
  const Json parsed = Json::parse(json.begin(), json.end(), nullptr, false);
  if (parsed.is_discarded()) {
    problem = "sie ist kein JSON";
    return std::nullopt;
  }
  try {
    return Read(parsed);
  } catch (const Wrong& wrong) {
    problem = wrong.text;
    return std::nullopt;
  }
}

}  // namespace lorelin::engine
