#include "engine/naturalVoices.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/naturalVoices.h"

namespace lorelin::engine {
namespace {

using Json = nlohmann::json;

Json Description(const std::string& name) {
  return Json::parse(ReadFile((TestVoices() / (name + ".onnx.json")).string()));
}

std::string VoiceRefusal(const Json& json) {
  std::string problem;
  return ReadNaturalVoice(json.dump(), problem) ? "(angenommen)" : problem;
}

std::string VoiceRefusal(const std::string& json) {
  std::string problem;
  return ReadNaturalVoice(json, problem) ? "(angenommen)" : problem;
}

TEST(NaturalVoice, IsWhatItsDescriptionSays) {
  std::string problem;
  const auto voice = ReadNaturalVoice(Description("de_DE-paar-low").dump(), problem);
  ASSERT_TRUE(voice) << problem;
  EXPECT_EQ(voice->language, "de-de");
  EXPECT_EQ(voice->quality, "low");
  EXPECT_EQ(voice->sampleRate, 16000);
  EXPECT_EQ(voice->espeakVoice, "de");
  EXPECT_FLOAT_EQ(voice->noiseScale, 0.667F);
  EXPECT_EQ(voice->symbols.at(U'ç'), (std::vector<std::int64_t>{41}));
  ASSERT_EQ(voice->speakers.size(), 2U);
  EXPECT_EQ(voice->speakers[1].name, "tief");
  EXPECT_EQ(voice->speakers[1].id, 1);
}

TEST(NaturalVoice, IsOfferedOnceForEachSpeaker) {
  std::string problem;
  const auto pair = OfferedVoices(*ReadNaturalVoice(Description("de_DE-paar-low").dump(), problem));
  ASSERT_EQ(pair.size(), 2U);
  EXPECT_EQ(pair[0].name, "Deutsch – paar (einfach) – hoch");
  EXPECT_EQ(pair[1].name, "Deutsch – paar (einfach) – tief");
  EXPECT_EQ(pair[0].languageId, 1031);
  const auto one = OfferedVoices(*ReadNaturalVoice(Description("de_DE-probe-medium").dump(), problem));
  ASSERT_EQ(one.size(), 1U);
  EXPECT_EQ(one[0].name, "Deutsch – probe (mittel)");
}

TEST(NaturalVoice, IsRefusedWithAReason) {
  const Json good = Description("de_DE-paar-low");
  EXPECT_EQ(VoiceRefusal(good), "(angenommen)");
  EXPECT_EQ(VoiceRefusal(std::string()), "sie ist kein JSON");
  EXPECT_EQ(VoiceRefusal(good.dump().substr(0, 300)), "sie ist kein JSON");
  EXPECT_EQ(VoiceRefusal(std::string(100000, '[')), "sie ist kein JSON");
  EXPECT_EQ(VoiceRefusal(std::string("[1]")), "sie ist kein JSON-Objekt");
  const auto changed = [&](const char* pointer, const Json& value) {
    Json json = good;
    json[Json::json_pointer(pointer)] = value;
    return VoiceRefusal(json);
  };
  EXPECT_EQ(changed("/audio/sample_rate", 4294967296), "die Abtastrate ist falsch");
  EXPECT_EQ(changed("/audio/sample_rate", -1), "die Abtastrate ist falsch");
  EXPECT_EQ(changed("/audio/sample_rate", "22050"), "die Abtastrate ist falsch");
  EXPECT_EQ(changed("/audio", 3), "die Abtastrate ist falsch");
  EXPECT_EQ(changed("/espeak/voice", "../../../etc/passwd"), "sie nennt keine Stimme von eSpeak NG");
  EXPECT_EQ(changed("/espeak/voice", ""), "sie nennt keine Stimme von eSpeak NG");
  EXPECT_EQ(changed("/phoneme_type", "pinyin"), "sie verlangt eine Lautschrift, die es hier nicht gibt");
  EXPECT_EQ(changed("/inference/length_scale", 0), "ein Maß der Stimme ist zu groß oder zu klein");
  EXPECT_EQ(changed("/inference/noise_scale", "laut"), "ein Maß der Stimme ist keine Zahl");
  EXPECT_EQ(changed("/num_symbols", 0), "die Zahl der Laute ist falsch");
  EXPECT_EQ(changed("/num_symbols", 20), "die Tabelle der Laute ist falsch");
  EXPECT_EQ(changed("/phoneme_id_map/a", Json::array({256})), "die Tabelle der Laute ist falsch");
  EXPECT_EQ(changed("/phoneme_id_map/a", Json::array({-1})), "die Tabelle der Laute ist falsch");
  EXPECT_EQ(changed("/phoneme_id_map/a", Json::array()), "die Tabelle der Laute ist falsch");
  EXPECT_EQ(changed("/phoneme_id_map", 1), "die Tabelle der Laute fehlt");
  EXPECT_EQ(changed("/phoneme_id_map", Json::object()), "in der Tabelle der Laute fehlen Anfang und Ende");
  EXPECT_EQ(changed("/num_speakers", 1000000000), "die Zahl der Sprecher ist falsch");
  EXPECT_EQ(changed("/speaker_id_map/tief", 2), "die Tabelle der Sprecher ist falsch");
}

TEST(NaturalVoices, AreThoseInTheFoldersAndBelow) {
  const TemporaryFolder folder;
  const auto copy = [&](const std::string& from, const std::string& to) {
    WriteFile(folder.File(to), "Modell");
    WriteFile(folder.File(to) + ".json", ReadFile((TestVoices() / (from + ".onnx.json")).string()));
  };
  copy("de_DE-probe-medium", "eigene/b.onnx");
  copy("de_DE-rausch-medium", "alle/de/de_DE/rausch/a.onnx");
  copy("de_DE-paar-low", "alle/b.onnx");
  WriteFile(folder.File("alle/ohne.onnx"), "Modell");
  WriteFile(folder.File("alle/kaputt.onnx"), "Modell");
  WriteFile(folder.File("alle/kaputt.onnx.json"), "{");
  const FoundVoices found =
      FindNaturalVoices({folder.File("eigene"), folder.File("alle"), folder.File("fehlt")});
  ASSERT_EQ(found.voices.size(), 2U);
  EXPECT_EQ(found.voices[0].dataset, "probe");
  EXPECT_EQ(found.voices[1].dataset, "rausch");
  EXPECT_EQ(found.problems,
            (std::vector<std::string>{"Die Stimme „kaputt“ fehlt in der Auswahl: Ihre Beschreibung "
                                      "„kaputt.onnx.json“ ist unbrauchbar, sie ist kein JSON.",
                                      "Die Stimme „ohne“ fehlt in der Auswahl: Ihre Beschreibung "
                                      "„ohne.onnx.json“ ist unbrauchbar, sie fehlt oder ist zu groß."}));
}

TEST(NaturalVoices, LieWhereTheUsersDataLies) {
  const ChangedVariable moved("LORELIN_HOME", "");
  const ChangedVariable data("XDG_DATA_HOME", "/daten");
  EXPECT_EQ(VoiceFolders().front(), "/daten/lorelin/voices");
  EXPECT_EQ(RuntimeFolders().front(), "/daten/lorelin/runtime");
  const ChangedVariable home("HOME", "/heim");
  const ChangedVariable relative("XDG_DATA_HOME", "daten");
  EXPECT_EQ(VoiceFolders().front(), "/heim/.local/share/lorelin/voices");
  const ChangedVariable portable("LORELIN_HOME", "/stick");
  EXPECT_EQ(VoiceFolders().front(), "/stick/voices");
}

TEST(BoundedFile, IsReadOnlyWhenItIsSmallEnough) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a"), "12345");
  EXPECT_EQ(ReadBounded(folder.File("a"), 5), "12345");
  EXPECT_EQ(ReadBounded(folder.File("a"), 4), std::nullopt);
  EXPECT_EQ(ReadBounded(folder.File("b"), 4), std::nullopt);
  EXPECT_EQ(ReadBounded("/dev/zero", 4), std::nullopt);
  EXPECT_EQ(ReadBounded(folder.Path(), 4), std::nullopt);
}

}  // namespace
}  // namespace lorelin::engine
