#include "cli/options.h"

#include <gtest/gtest.h>

#include <vector>

namespace lorelin::cli {
namespace {

Options Parse(const std::vector<std::string>& arguments) {
  return ParseOptions(arguments);
}

std::string Refusal(const std::vector<std::string>& arguments) {
  try {
    (void)ParseOptions(arguments);
    return "(angenommen)";
  } catch (const UsageError& error) {
    return error.what();
  }
}

TEST(Options, NameAVoiceByNumberOrName) {
  EXPECT_EQ(Parse({"say", "--voice", "thorsten"}).voiceName, "thorsten");
  EXPECT_FALSE(Parse({"say", "--voice=thorsten"}).voice);
  EXPECT_EQ(Parse({"say", "--voice", "thorsten", "--voice", "3"}).voice, 3);
  EXPECT_EQ(Parse({"say", "--voice", "thorsten", "--voice", "3"}).voiceName, "");
}

TEST(Options, TakeAFileAndNumbers) {
  const Options options =
      Parse({"say", "--voice", "3", "--speed=0", "--pitch", "100", "--volume", "50", "a.txt"});
  EXPECT_EQ(options.action, Action::Say);
  EXPECT_EQ(options.voice, 3);
  EXPECT_EQ(options.speed, 0);
  EXPECT_EQ(options.pitch, 100);
  EXPECT_EQ(options.volume, 50);
  EXPECT_EQ(options.input, "a.txt");
  EXPECT_EQ(options.waveFile, "");
}

TEST(Options, LeaveWhatIsNotGivenToTheSettings) {
  const Options options = Parse({"say"});
  EXPECT_FALSE(options.voice);
  EXPECT_FALSE(options.speed);
  EXPECT_EQ(options.input, "-");
}

TEST(Options, MayStandBehindTheFile) {
  const Options options = Parse({"say", "a.txt", "--wav", "b.wav", "--verbose"});
  EXPECT_EQ(options.input, "a.txt");
  EXPECT_EQ(options.waveFile, "b.wav");
  EXPECT_TRUE(options.verbose);
}

TEST(Options, EndAtTwoDashes) {
  EXPECT_EQ(Parse({"say", "--", "--wav"}).input, "--wav");
}

TEST(Options, TakeADashForStandardInput) {
  EXPECT_EQ(Parse({"say", "-"}).input, "-");
}

TEST(Options, ShowHelpAndVersionWhateverElseStandsThere) {
  EXPECT_EQ(Parse({"--help"}).action, Action::Help);
  EXPECT_EQ(Parse({"say", "-h", "--unsinn"}).action, Action::Help);
  EXPECT_EQ(Parse({"--version"}).action, Action::Version);
}

TEST(Options, AreRefusedWithTheReason) {
  EXPECT_EQ(Refusal({}), "Es fehlt ein Befehl: „say“, „text“, „spell“, „voices“, „run“, „check“ oder „reg“.");
  EXPECT_EQ(Refusal({"sing"}), "Den Befehl „sing“ gibt es nicht.");
  EXPECT_EQ(Refusal({"say", "--laut"}), "Die Option „--laut“ gibt es nicht.");
  EXPECT_EQ(Refusal({"say", "a", "b"}), "Es kann nur eine Datei vorgelesen werden.");
  EXPECT_EQ(Refusal({"voices", "a"}), "„voices“ nimmt keine Datei.");
  EXPECT_EQ(Refusal({"say", "--wav"}), "Hinter „--wav“ fehlt der Wert.");
  EXPECT_EQ(Refusal({"say", "--wav="}), "Hinter „--wav“ fehlt der Dateiname.");
}

TEST(Options, TakeAScriptAndWhatItMayDo) {
  const Options options = Parse({"run", "--yes", "--deny", "read", "a.vts", "--wav", "a.wav"});
  EXPECT_EQ(options.action, Action::Run);
  EXPECT_EQ(options.scripts, std::vector<std::string>{"a.vts"});
  EXPECT_EQ(options.answer, MessageAnswer::Yes);
  EXPECT_TRUE(options.denyRead);
  EXPECT_FALSE(options.denyDownload);
  EXPECT_EQ(options.waveFile, "a.wav");
  EXPECT_EQ(Parse({"run", "a.vts", "--no"}).answer, MessageAnswer::No);
  EXPECT_FALSE(Parse({"run", "a.vts"}).answer);
  EXPECT_TRUE(Parse({"run", "a.vts", "--deny=download"}).denyDownload);
  EXPECT_FALSE(Parse({"run", "a.vts", "--deny=download"}).denyRead);
  EXPECT_TRUE(Parse({"run", "a.vts", "--deny=all"}).denyRead);
  EXPECT_TRUE(Parse({"run", "a.vts", "--deny=all"}).denyDownload);
}

TEST(Options, TakeManyScriptsToCheck) {
  EXPECT_EQ(Parse({"check", "a.vts", "b.vts"}).scripts, (std::vector<std::string>{"a.vts", "b.vts"}));
}

TEST(Options, AreRefusedWhenTheyDoNotFitTheCommand) {
  EXPECT_EQ(Refusal({"run"}), "„run“ führt genau ein Taskscript aus.");
  EXPECT_EQ(Refusal({"run", "a", "b"}), "„run“ führt genau ein Taskscript aus.");
  EXPECT_EQ(Refusal({"check"}), "„check“ braucht mindestens ein Taskscript.");
  EXPECT_EQ(Refusal({"say", "--yes"}),
            "„--yes“, „--no“ und „--deny“ gehören zu „run“, „--yes“ auch zu „voices --install“.");
  EXPECT_EQ(Refusal({"run", "a.vts", "--deny", "alles"}),
            "„--deny alles“ geht nicht: erwartet wird „read“, „download“ oder „all“.");
}

TEST(Options, SayWhatToDoWithVoices) {
  EXPECT_EQ(Parse({"voices"}).voiceOrder, VoiceOrder::List);
  EXPECT_EQ(Parse({"voices", "--available"}).voiceOrder, VoiceOrder::Available);
  EXPECT_EQ(Parse({"voices", "--available", "Deutsch"}).voiceWords, std::vector<std::string>{"Deutsch"});
  const Options install = Parse({"voices", "--install", "de_DE-thorsten-medium", "--yes"});
  EXPECT_EQ(install.voiceOrder, VoiceOrder::Install);
  EXPECT_EQ(install.voiceWords, std::vector<std::string>{"de_DE-thorsten-medium"});
  EXPECT_EQ(install.answer, MessageAnswer::Yes);
  EXPECT_EQ(Parse({"voices", "--install", "a.onnx", "a.onnx.json"}).voiceWords.size(), 2U);
  EXPECT_EQ(Parse({"voices", "--remove", "x"}).voiceOrder, VoiceOrder::Remove);
}

TEST(Options, RefuseWhatCannotBeDoneWithVoices) {
  EXPECT_EQ(Refusal({"voices", "x"}), "„voices“ nimmt keine Datei.");
  EXPECT_EQ(Refusal({"voices", "--install"}),
            "Hinter „--install“ fehlt der Name einer Stimme oder eine Datei mit einer Stimme.");
  EXPECT_EQ(Refusal({"voices", "--remove", "a", "b"}), "Hinter „--remove“ gehört der Name einer Stimme.");
  EXPECT_EQ(Refusal({"voices", "--available", "a", "b"}), "Hinter „--available“ gehört höchstens ein Wort.");
  EXPECT_EQ(Refusal({"voices", "--available", "--install", "a"}),
            "Nur eines von „--available“, „--install“ und „--remove“ geht.");
  EXPECT_EQ(Refusal({"say", "--install", "a"}),
            "„--available“, „--install“ und „--remove“ gehören zu „voices“.");
  EXPECT_NE(Refusal({"voices", "--yes"}), "(angenommen)");
  EXPECT_NE(Refusal({"voices", "--install", "a", "--no"}), "(angenommen)");
}

TEST(Options, RefuseNumbersThatAreNoneOrOutOfRange) {
  for (const auto* const text : {"101", "-1", "", "x", "5x", "1.5", "99999999999"}) {
    EXPECT_EQ(Refusal({"say", "--speed", text}),
              "„--speed " + std::string(text) + "“ geht nicht: erwartet wird eine ganze Zahl von 0 bis 100.");
  }
  EXPECT_NE(Refusal({"say", "--voice", "0"}), "(angenommen)");
  EXPECT_NE(Refusal({"say", "--voice", ""}), "(angenommen)");
}

TEST(Options, SayWhatADenialCovers) {
  const std::string help = HelpText();
  for (const auto* const command : {"Laden", "Löschen", "Ausführen", "Exportieren", "Download"}) {
    EXPECT_NE(help.find(command), std::string::npos) << command;
  }
}

}  // namespace
TEST(Options, MakeABookWhereItIsNamed) {
  EXPECT_TRUE(Parse({"say", "--format", "EPUB", "-o", "x", "a.txt"}).sound.book);
  EXPECT_TRUE(Parse({"say", "-o", "x.epub", "a.txt"}).sound.book);
  EXPECT_FALSE(Parse({"say", "--format", "mp3", "-o", "x.epub", "a.txt"}).sound.book);
  EXPECT_FALSE(Parse({"say", "--format", "epub", "--format", "flac", "-o", "x", "a.txt"}).sound.book);
  EXPECT_TRUE(Refusal({"say", "-o", "x.epub", "--chapters", "a.txt"}).starts_with("Ein EPUB enthält"));
  EXPECT_TRUE(Refusal({"say", "--format", "epub", "-o", "x", "--subtitles", "srt", "a.txt"})
                  .starts_with("Ein EPUB enthält"));
}

}  // namespace lorelin::cli
