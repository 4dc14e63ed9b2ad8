#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <vector>

#include "base/textEncoding.h"
#include "base/unfinishedName.h"
#include "engine/WaveFileWriter.h"
#include "engine/protocol.h"
#include "engine/speakableText.h"
#include "engine/voiceCatalog.h"
#include "engine/waveHeader.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin::engine {
namespace {

std::uint32_t NumberAt(const std::string& bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (unsigned i = 0; i < 4; ++i)
    number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
  return number;
}

TEST(WaveFile, HasTheHeaderOfItsSamples) {
  const TemporaryFolder folder;
  const std::array<std::int16_t, 3> samples{1, -2, 0x1234};
  {
    WaveFileWriter wave(folder.File("a.wav"), 22050);
    EXPECT_TRUE(wave.Write(samples));
    EXPECT_TRUE(wave.Finish());
  }
  const std::string bytes = ReadFile(folder.File("a.wav"));
  ASSERT_EQ(bytes.size(), 50U);
  EXPECT_EQ(bytes.substr(0, 4), "RIFF");
  EXPECT_EQ(NumberAt(bytes, 4), 42U);
  EXPECT_EQ(bytes.substr(8, 8), "WAVEfmt ");
  EXPECT_EQ(NumberAt(bytes, 24), 22050U);
  EXPECT_EQ(NumberAt(bytes, 28), 44100U);
  EXPECT_EQ(bytes.substr(36, 4), "data");
  EXPECT_EQ(NumberAt(bytes, 40), 6U);
  EXPECT_EQ(bytes.substr(44), std::string("\x01\x00\xFE\xFF\x34\x12", 6));
}

TEST(WaveHeader, TellsItsSampleRate) {
  EXPECT_EQ(SampleRateOf(WaveHeader(22050, 6)), 22050U);
  EXPECT_EQ(SampleRateOf(WaveHeader(16000, 0) + "samples"), 16000U);
}

TEST(WaveHeader, IsNothingElse) {
  const std::string header = WaveHeader(22050, 6);
  EXPECT_EQ(SampleRateOf(""), std::nullopt);
  EXPECT_EQ(SampleRateOf(header.substr(0, 43)), std::nullopt);
  EXPECT_EQ(SampleRateOf("Die Sprachausgabe schreibt hier etwas anderes hin"), std::nullopt);
  EXPECT_EQ(SampleRateOf(WaveHeader(0, 6)), std::nullopt);
  std::string stereo = header;
  stereo[22] = 2;
  EXPECT_EQ(SampleRateOf(stereo), std::nullopt);
}

TEST(WaveFile, IsNotThereBeforeItIsWhole) {
  const TemporaryFolder folder;
  WaveFileWriter wave(folder.File("a.wav"), 22050);
  EXPECT_TRUE(wave.Write(std::vector<std::int16_t>(1000000, 7)));
  EXPECT_FALSE(std::filesystem::exists(folder.File("a.wav")));
  EXPECT_TRUE(std::filesystem::exists(folder.File(".part-a.wav")));
  EXPECT_TRUE(wave.Finish());
  EXPECT_EQ(ReadFile(folder.File("a.wav")).size(), 2000044U);
  EXPECT_FALSE(std::filesystem::exists(folder.File(".part-a.wav")));
}

TEST(WaveFile, LeavesNothingWhenItIsNotFinished) {
  const TemporaryFolder folder;
  {
    WaveFileWriter wave(folder.File("a.wav"), 22050);
    EXPECT_TRUE(wave.Write(std::vector<std::int16_t>(1000000, 7)));
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(WaveFile, LeavesTheOldOneUntilTheNewOneIsWhole) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a.wav"), std::string(5000, 'x'));
  {
    WaveFileWriter wave(folder.File("a.wav"), 22050);
    EXPECT_TRUE(wave.Write(std::vector<std::int16_t>(1000000, 7)));
    EXPECT_EQ(ReadFile(folder.File("a.wav")), std::string(5000, 'x'));
  }
  EXPECT_EQ(ReadFile(folder.File("a.wav")), std::string(5000, 'x'));
}

TEST(WaveFile, ReplacesALongerOne) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a.wav"), std::string(5000, 'x'));
  WaveFileWriter wave(folder.File("a.wav"), 22050);
  EXPECT_TRUE(wave.Finish());
  EXPECT_EQ(ReadFile(folder.File("a.wav")).size(), 44U);
}

TEST(WaveFile, GoesWhereALinkPointsAndLeavesTheLink) {
  const TemporaryFolder folder;
  WriteFile(folder.File("ordner/echt.wav"), "alt");
  std::filesystem::create_symlink("ordner/echt.wav", folder.File("link.wav"));
  std::filesystem::create_symlink("ordner/neu.wav", folder.File("leer.wav"));
  for (const auto* const link : {"link.wav", "leer.wav"}) {
    WaveFileWriter wave(folder.File(link), 22050);
    EXPECT_TRUE(wave.Finish()) << wave.Problem();
    EXPECT_TRUE(std::filesystem::is_symlink(folder.File(link)));
  }
  EXPECT_EQ(ReadFile(folder.File("ordner/echt.wav")).size(), 44U);
  EXPECT_EQ(ReadFile(folder.File("ordner/neu.wav")).size(), 44U);
}

TEST(WaveFile, RefusesWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo(folder.File("pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder.File("pipe"), std::string("/dev/full"), std::string("/dev/null")}) {
    WaveFileWriter wave(path, 22050);
    EXPECT_FALSE(wave.Finish());
    EXPECT_EQ(wave.Problem(),
              "Die WAV-Datei konnte nicht geschrieben werden. Das ist keine gewöhnliche Datei.");
  }
}

TEST(WaveFile, IsNotWrittenTwiceAtATime) {
  const TemporaryFolder folder;
  WaveFileWriter first(folder.File("a.wav"), 22050);
  EXPECT_EQ(WaveFileWriter(folder.File("a.wav"), 22050).Problem(),
            "Die WAV-Datei konnte nicht geschrieben werden. Sie wird gerade schon geschrieben.");
  EXPECT_TRUE(first.Finish());
  EXPECT_EQ(ReadFile(folder.File("a.wav")).size(), 44U);
}

TEST(WaveFile, ClearsAwayWhatAKilledProcessLeft) {
  const TemporaryFolder folder;
  WriteFile(folder.File(".part-a.wav"), std::string(5000, 'x'));
  WaveFileWriter wave(folder.File("a.wav"), 22050);
  EXPECT_TRUE(wave.Finish());
  EXPECT_EQ(ReadFile(folder.File("a.wav")).size(), 44U);
}

TEST(WaveFile, CanHaveTheLongestName) {
  const TemporaryFolder folder;
  const std::string path = folder.File(std::string(251, 'n') + ".wav");
  WaveFileWriter wave(path, 22050);
  EXPECT_TRUE(wave.Finish()) << wave.Problem();
  EXPECT_TRUE(std::filesystem::exists(path));
}

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 0777;
}

TEST(WaveFile, IsAsPrivateAsItsFolderAndKeepsItsPermissions) {
  const TemporaryFolder folder;
  const mode_t mask = umask(022);
  for (const auto* const name : {"offen/a.wav", "privat/a.wav", "offen/b.wav"})
    WriteFile(folder.File(name), "x");
  std::filesystem::remove(folder.File("offen/a.wav"));
  std::filesystem::remove(folder.File("privat/a.wav"));
  chmod(folder.File("offen").c_str(), 0755);
  chmod(folder.File("privat").c_str(), 0700);
  chmod(folder.File("offen/b.wav").c_str(), 0640);
  for (const auto& [name, mode] :
       {std::pair{"offen/a.wav", 0644U}, {"privat/a.wav", 0600U}, {"offen/b.wav", 0640U}}) {
    WaveFileWriter wave(folder.File(name), 22050);
    EXPECT_EQ(ModeOf(UnfinishedName(folder.File(name)).string()), 0600U);
    EXPECT_TRUE(wave.Finish());
    EXPECT_EQ(ModeOf(folder.File(name)), mode) << name;
  }
  umask(mask);
}

TEST(WaveFile, RefusesMoreThanItsHeaderCanTell) {
  const TemporaryFolder folder;
  {
    WaveFileWriter wave(folder.File("a.wav"), 22050, 8);
    const std::array<std::int16_t, 4> samples{};
    EXPECT_TRUE(wave.Write(samples));
    EXPECT_FALSE(wave.Write(std::span(samples).first(1)));
    EXPECT_FALSE(wave.Finish());
    EXPECT_EQ(wave.Problem(),
              "Der Text ist zu lang für eine WAV-Datei (höchstens 4 GB). Es wurde keine Datei geschrieben.");
  }
  EXPECT_FALSE(std::filesystem::exists(folder.File("a.wav")));
}

TEST(WaveFile, EndsAtTheLimitOfRiff) {
  EXPECT_EQ(WaveFileWriter::kMaxDataBytes + 36, 0xFFFFFFFFU);
}

TEST(WaveFile, TellsWhyItCannotBeWritten) {
  const TemporaryFolder folder;
  EXPECT_EQ(WaveFileWriter(folder.File("fehlt/a.wav"), 22050).Problem(),
            "Die WAV-Datei konnte nicht geschrieben werden. Den Ordner gibt es nicht.");
  EXPECT_EQ(WaveFileWriter(folder.Path(), 22050).Problem(),
            "Die WAV-Datei konnte nicht geschrieben werden. Der Name gehört einem Ordner.");
}

TEST(WaveFile, ThatFindsNoRoomLeavesTheOldOne) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a.wav"), "alt");
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{.rlim_cur = 100000, .rlim_max = before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  {
    WaveFileWriter wave(folder.File("a.wav"), 22050);
    EXPECT_FALSE(wave.Write(std::vector<std::int16_t>(1000000, 7)));
    EXPECT_EQ(wave.Problem(),
              "Die WAV-Datei konnte nicht geschrieben werden. Das Dateisystem erlaubt keine so große Datei.");
    EXPECT_FALSE(wave.Finish());
  }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(ReadFile(folder.File("a.wav")), "alt");
  EXPECT_FALSE(std::filesystem::exists(folder.File(".part-a.wav")));
}

TEST(SpeakableText, DropsControlCharactersAndKeepsLines) {
  EXPECT_EQ(SpeakableText(std::string_view("a\x01"
                                           "b\0c\td\r\ne\x1b\x7f",
                                           12)),
            "abc\td\r\ne");
}

TEST(SpeakableText, ReplacesWhatIsNoUtf8) {
  EXPECT_EQ(SpeakableText("a\xFFz\xED\xA0\x80"), "a\uFFFDz\uFFFD\uFFFD\uFFFD");
}

std::vector<std::string> Pieces(std::string_view text) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    const std::size_t size = NextPiece(text);
    pieces.emplace_back(text.substr(0, size));
    text.remove_prefix(size);
  }
  return pieces;
}

std::string Repeated(std::string_view text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

TEST(NextPiece, LeavesAnOrdinaryParagraphWhole) {
  const std::string text = Repeated("Das ist ein Satz, z. B. dieser. ", 12);
  EXPECT_EQ(Pieces(text), std::vector<std::string>{text});
}

TEST(NextPiece, EndsBehindAParagraph) {
  EXPECT_EQ(Pieces("Eins.\n\nZwei.\nDrei."), (std::vector<std::string>{"Eins.\n\n", "Zwei.\nDrei."}));
}

TEST(NextPiece, NeverHoldsManyFullStops) {
  for (const auto* const text : {"z.B. ", "i.d.R. ", "a.", ". ", "...", "a.b.c ", "1.000.000,00 "}) {
    for (const std::string& piece : Pieces(Repeated(text, 2000))) {
      EXPECT_LT(std::count(piece.begin(), piece.end(), '.'), 80) << text;
    }
  }
}

TEST(NextPiece, PrefersASentenceEnd) {
  const std::string text = Repeated("Wie z.B. hier. Dann ", 200);
  for (const std::string& piece : Pieces(text)) {
    EXPECT_TRUE(piece.ends_with(". ") || piece.ends_with("Dann ")) << piece;
  }
}

TEST(NextPiece, CutsTextWithoutBlanksBetweenCharacters) {
  for (const std::string& piece : Pieces(Repeated("ä", 200000))) EXPECT_TRUE(IsValidUtf8(piece));
}

LibraryVoice Listed(const std::string& identifier, const std::string& language) {
  return {.name = language + "-name", .identifier = identifier, .language = language, .gender = 1};
}

TEST(VoiceCatalog, PutsGermanFirstThenEnglishThenTheOthersByTheirGermanNames) {
  const auto catalog =
      MakeCatalog({Listed("roa/fr", "fr-fr"), Listed("gmq/da", "da"), Listed("gmw/en-US", "en-us"),
                   Listed("gmw/de", "de"), Listed("roa/es", "es")});
  std::vector<std::string> names;
  for (const auto& entry : catalog) names.push_back(entry.voice.name);
  EXPECT_EQ(names, (std::vector<std::string>{"Deutsch", "Deutsch (weiblich)", "Englisch (USA)",
                                             "Englisch (USA) (weiblich)", "Dänisch", "Dänisch (weiblich)",
                                             "Französisch", "Französisch (weiblich)", "Spanisch",
                                             "Spanisch (weiblich)"}));
}

TEST(VoiceCatalog, KnowsLanguageAndGender) {
  const auto catalog = MakeCatalog({Listed("gmw/de", "de")});
  EXPECT_EQ(catalog[0].voice.languageId, 1031);
  EXPECT_EQ(catalog[0].voice.gender, 1);
  EXPECT_EQ(catalog[1].voice.gender, 2);
  EXPECT_EQ(catalog[1].selector, "gmw/de+f2");
}

TEST(VoiceCatalog, KeepsTheNameOfALanguageThatItDoesNotKnow) {
  const auto catalog = MakeCatalog({Listed("xx/new", "x-new")});
  EXPECT_EQ(catalog[0].voice.name, "x-new-name");
  EXPECT_EQ(catalog[0].voice.languageId, 0);
}

TEST(VoiceCatalog, OffersARecordedVoiceAsItIs) {
  auto recorded = Listed("mb/mb-de5", "de");
  recorded.gender = 2;
  const auto catalog = MakeCatalog({Listed("gmw/de", "de"), recorded});
  ASSERT_EQ(catalog.size(), 3U);
  EXPECT_EQ(catalog[1].voice.name, "Deutsch (mb-de5)");
  EXPECT_EQ(catalog[1].voice.gender, 2);
}

TEST(LanguageId, IsTheOneOfWindows) {
  EXPECT_EQ(LanguageId("de"), 1031);
  EXPECT_EQ(LanguageId("en-us"), 1033);
  EXPECT_EQ(LanguageId("es"), 1034);
  EXPECT_EQ(LanguageId("it"), 1040);
  EXPECT_EQ(LanguageId("nl"), 1043);
  EXPECT_EQ(LanguageId("pt"), 2070);
  EXPECT_EQ(LanguageId("EN-GB"), 2057);
}

TEST(Protocol, BringsEveryFieldAcross) {
  const Utterance sent{7, 2, 50, 172, 100, 90, "/tmp/ä.wav", std::string("Grüße\0x", 9), false};
  FrameReader reader;
  reader.Feed(FrameSpeak(sent));
  const auto message = reader.Next();
  ASSERT_TRUE(message);
  EXPECT_EQ(message->kind, Kind::Speak);
  const auto got = ReadSpeak(message->fields);
  ASSERT_TRUE(got);
  EXPECT_EQ(got->id, 7U);
  EXPECT_EQ(got->voice, 2);
  EXPECT_EQ(got->speed, 172);
  EXPECT_EQ(got->volumeRight, 90);
  EXPECT_EQ(got->waveFile, "/tmp/ä.wav");
  EXPECT_EQ(got->text, sent.text);
}

TEST(Protocol, BringsTheRestOfATextAcross) {
  Utterance sent;
  sent.goesOn = true;
  EXPECT_TRUE(ReadSpeak(FrameSpeak(sent).substr(5))->goesOn);
  FrameReader reader;
  reader.Feed(FrameMore({8, false, "Rest"}));
  const auto message = reader.Next();
  ASSERT_TRUE(message);
  EXPECT_EQ(message->kind, Kind::More);
  const auto part = ReadMore(message->fields);
  ASSERT_TRUE(part);
  EXPECT_EQ(part->id, 8U);
  EXPECT_FALSE(part->last);
  EXPECT_EQ(part->text, "Rest");
  EXPECT_FALSE(ReadMore("abc"));
}

TEST(Protocol, BringsAWordAcross) {
  FrameReader reader;
  reader.Feed(FrameWord({7, 70000, 70005}));
  const auto message = reader.Next();
  ASSERT_TRUE(message.has_value());
  EXPECT_EQ(message->kind, Kind::Word);
  const auto word = ReadWord(message->fields);
  ASSERT_TRUE(word.has_value());
  EXPECT_EQ(word->id, 7U);
  EXPECT_EQ(word->begin, 70000U);
  EXPECT_EQ(word->end, 70005U);
  EXPECT_FALSE(ReadWord("short").has_value());
}

TEST(Protocol, PutsFramesTogetherFromSingleBytes) {
  const std::string stream = FrameNumber(Kind::Ping, 5) + FrameEnded({6, "Grund"});
  FrameReader reader;
  std::vector<Kind> kinds;
  for (const char byte : stream) {
    reader.Feed({&byte, 1});
    while (const auto message = reader.Next()) kinds.push_back(message->kind);
  }
  EXPECT_EQ(kinds, (std::vector<Kind>{Kind::Ping, Kind::Ended}));
  EXPECT_FALSE(reader.Broken());
}

TEST(Protocol, RefusesFramesThatCannotBe) {
  for (const std::string& bytes : {std::string("\0\0\0\0\x14", 5), std::string("\xFF\xFF\xFF\xFF\x14", 5),
                                   std::string("\1\0\0\0\x63", 5)}) {
    FrameReader reader;
    reader.Feed(bytes);
    EXPECT_FALSE(reader.Next());
    EXPECT_TRUE(reader.Broken());
  }
}

TEST(Protocol, RefusesFieldsThatDoNotFit) {
  const std::string fields = FrameSpeak({}).substr(5);
  EXPECT_TRUE(ReadSpeak(fields));
  EXPECT_FALSE(ReadSpeak(fields.substr(0, fields.size() - 1)));
  EXPECT_FALSE(ReadSpeak(fields + "x"));
  EXPECT_FALSE(ReadNumber("abc"));
}

TEST(Protocol, RefusesAnotherVersion) {
  std::string fields = FrameHello({}).substr(5);
  EXPECT_TRUE(ReadHello(fields));
  fields[0] = 99;
  EXPECT_FALSE(ReadHello(fields));
}

}  // namespace
}  // namespace lorelin::engine
