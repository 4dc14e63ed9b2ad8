#include "engine/commandVoices.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/commandVoices.h"

namespace lorelin::engine {
namespace {

std::string ProblemOf(const std::string& text) {
  CommandVoiceProblem problem;
  EXPECT_FALSE(ReadCommandVoice(text, problem)) << text;
  return std::to_string(problem.line) + ": " + problem.text;
}

std::vector<std::string> CommandOf(const std::string& command) {
  Utterance utterance;
  utterance.pitch = 60;
  utterance.speed = 140;
  utterance.volumeLeft = 80;
  return FilledCommand(MakeCommandVoice(command), utterance);
}

using Words = std::vector<std::string>;

TEST(CommandVoiceFile, TellsEverythingOfAVoice) {
  CommandVoiceProblem problem;
  const auto voice = ReadCommandVoice(
      "\xEF\xBB\xBF# Meine Stimme\r\n\r\n  name = Großmutter \r\nlanguage=de_AT\ngender = female\n"
      "command = sprich --laut\noutput = raw\nrate = 16000\ntimeout = 60",
      problem);
  ASSERT_TRUE(voice) << problem.text;
  EXPECT_EQ(voice->name, "Großmutter");
  EXPECT_EQ(voice->language, "de-at");
  EXPECT_EQ(voice->gender, 2);
  EXPECT_EQ(voice->mode, CommandVoice::Mode::Once);
  EXPECT_EQ(voice->rawRate, 16000);
  EXPECT_EQ(voice->timeout, std::chrono::seconds(60));
  EXPECT_EQ(OfferedVoice(*voice).name, "Deutsch – Großmutter");
  EXPECT_EQ(OfferedVoice(*voice).languageId, 1031);
}

TEST(CommandVoiceFile, NeedsNoMoreThanLanguageAndCommand) {
  CommandVoiceProblem problem;
  const auto voice = ReadCommandVoice("command = sprich\nlanguage = en", problem);
  ASSERT_TRUE(voice) << problem.text;
  EXPECT_EQ(voice->name, "");
  EXPECT_EQ(voice->gender, 0);
  EXPECT_EQ(voice->rawRate, 0);
}

TEST(CommandVoiceFile, TellsTheVoiceOfAModule) {
  const CommandVoice voice = MakeCommandVoice("sd_x", "mode = module\nvoice = German+Klatt");
  EXPECT_EQ(voice.mode, CommandVoice::Mode::Module);
  EXPECT_EQ(voice.moduleVoice, "German+Klatt");
}

TEST(CommandOfAVoice, IsTakenApartAtItsBlanks) {
  EXPECT_EQ(CommandOf("sprich  -v\tde"), (Words{"sprich", "-v", "de"}));
}

TEST(CommandOfAVoice, KeepsTogetherWhatIsQuoted) {
  EXPECT_EQ(CommandOf(R"(sprich "a b" 'c "d" \' e" "f "")"),
            (Words{"sprich", "a b", "c \"d\" \\", "e f", ""}));
  EXPECT_EQ(CommandOf(R"(sprich a\ b \"c "d\"\\e")"), (Words{"sprich", "a b", "\"c", "d\"\\e"}));
}

TEST(CommandOfAVoice, GivesNoMeaningToTheSignsOfAShell) {
  EXPECT_EQ(CommandOf("sprich $HOME *.txt ~ a|b a;b \"|\" '>'"),
            (Words{"sprich", "$HOME", "*.txt", "~", "a|b", "a;b", "|", ">"}));
}

TEST(CommandOfAVoice, IsRefusedWhenItIsMeantForAShell) {
  for (const std::string sign : {"|", ">", "2>/dev/null", "<text", ";", "&&", "`ls`", "$(ls)"}) {
    EXPECT_EQ(ProblemOf("language = de\ncommand = sprich " + sign + " sox"),
              "2: „" + sign +
                  "“ hat hier keine Bedeutung, weil das Programm ohne Shell gestartet wird; dafür braucht es "
                  "ein eigenes Skript (oder Anführungszeichen, wenn es ein Argument ist)");
  }
}

TEST(CommandOfAVoice, GetsTheSettingsOfTheText) {
  EXPECT_EQ(CommandOf(R"(sprich -s {speed} -p{pitch} "v={volume}%" --laenge={stretch} \{speed})"),
            (Words{"sprich", "-s", "140", "-p60", "v=80%", "--laenge=1.250", "{speed}"}));
  const CommandVoice voice = MakeCommandVoice("sprich {pitch}");
  EXPECT_TRUE(voice.Takes(Placeholder::Pitch));
  EXPECT_FALSE(voice.Takes(Placeholder::Speed));
}

TEST(CommandVoiceFile, IsRefusedWithTheLineThatIsWrong) {
  const std::string good = "language = de\ncommand = sprich\n";
  EXPECT_EQ(ProblemOf(""), "0: es fehlt die Zeile „language = …“");
  EXPECT_EQ(ProblemOf("language = de"), "0: es fehlt die Zeile „command = …“");
  EXPECT_EQ(ProblemOf(good + "# ja\nsprache = de"), "4: den Schlüssel „sprache“ gibt es nicht");
  EXPECT_EQ(ProblemOf(good + "language = en"), "3: den Schlüssel „language“ gab es schon");
  EXPECT_EQ(ProblemOf(good + "Guten Tag"), "3: die Zeile hat nicht die Form „Schlüssel = Wert“");
  EXPECT_EQ(ProblemOf("language = Deutsch!\n"), "1: „Deutsch!“ ist keine Sprache wie „de“ oder „en-us“");
  EXPECT_EQ(ProblemOf(good + "gender = w"), "3: hinter „gender =“ steht „male“ oder „female“");
  EXPECT_EQ(ProblemOf(good + "mode = oft"), "3: hinter „mode =“ steht „once“, „stays“ oder „module“");
  EXPECT_EQ(ProblemOf(good + "output = mp3"), "3: hinter „output =“ steht „wav“ oder „raw“");
  for (const char* const rate : {"0", "3999", "96001", "-1", "22050 Hz", "99999999999999", ""}) {
    EXPECT_EQ(ProblemOf(good + "rate = " + rate),
              "3: hinter „rate =“ steht eine ganze Zahl von 4000 bis 96000");
  }
  EXPECT_EQ(ProblemOf(good + "timeout = 0"), "3: hinter „timeout =“ steht eine ganze Zahl von 1 bis 300");
  EXPECT_EQ(ProblemOf(good + "name ="), "3: der Name ist leer oder zu lang");
  EXPECT_EQ(ProblemOf(good + "name = " + std::string(101, 'x')), "3: der Name ist leer oder zu lang");
  EXPECT_EQ(ProblemOf(good + "name = \xE4"), "3: die Zeile ist nicht in UTF-8 geschrieben");
  EXPECT_EQ(ProblemOf(good + "name = a\x01"), "3: die Zeile enthält ein Steuerzeichen");
}

TEST(CommandVoiceFile, ShowsTheBeginningOfWhatIsLong) {
  std::string umlauts;
  std::string shown;
  for (int i = 0; i < 200; ++i) umlauts += "ü";
  for (int i = 0; i < 60; ++i) shown += "ü";
  EXPECT_EQ(ProblemOf(umlauts + " = x"), "1: den Schlüssel „" + shown + "…“ gibt es nicht");
  EXPECT_EQ(ProblemOf("language = " + umlauts),
            "1: „" + shown + "…“ ist keine Sprache wie „de“ oder „en-us“");
}

TEST(CommandVoiceFile, IsRefusedWhenItsLinesDoNotFitOneAnother) {
  const std::string good = "language = de\ncommand = sprich\n";
  EXPECT_EQ(ProblemOf(good + "output = raw"), "3: zu „output = raw“ gehört eine Zeile „rate = …“");
  EXPECT_EQ(ProblemOf("rate = 8000\n" + good),
            "1: „rate“ gehört zu „output = raw“; eine WAV-Datei nennt sie selbst");
  EXPECT_EQ(ProblemOf(good + "output = raw\nrate = 8000\nmode = stays"),
            "3: „raw“ geht nur mit „mode = once“, weil sonst niemand weiß, wo ein Satz endet");
  EXPECT_EQ(ProblemOf(good + "voice = x"), "3: „voice“ gehört zu „mode = module“");
  EXPECT_EQ(ProblemOf(good + "mode = module\noutput = wav"), "4: mit „mode = module“ gibt es kein „output“");
}

TEST(CommandVoiceFile, IsRefusedWhenItsCommandIsWrong) {
  const auto problem = [](const std::string& command) { return ProblemOf("command = " + command); };
  EXPECT_EQ(problem(""), "1: hinter „command =“ fehlt das Programm");
  EXPECT_EQ(problem("\"\""), "1: der Name des Programms muss ein fester Text sein");
  EXPECT_EQ(problem("{speed}"), "1: der Name des Programms muss ein fester Text sein");
  EXPECT_EQ(problem("a \"b"), "1: es fehlt ein schließendes \"");
  EXPECT_EQ(problem("a 'b"), "1: es fehlt ein schließendes '");
  EXPECT_EQ(problem("a \\"), "1: am Ende steht ein „\\“ ohne Zeichen dahinter");
  const std::string braces =
      "1: in geschweiften Klammern steht „speed“, „stretch“, „pitch“ oder „volume“; eine Klammer selbst ist "
      "„\\{“";
  EXPECT_EQ(problem("a {tempo}"), braces);
  EXPECT_EQ(problem("a {speed"), braces);
  std::string many = "a";
  for (int i = 0; i < 100; ++i) many += " a";
  EXPECT_EQ(problem(many), "1: das Programm hat zu viele Argumente");
}

TEST(CommandVoices, AreFoundInFoldersAndBelow) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a/b/oma.voice"), "language = en\ncommand = x");
  WriteFile(folder.File("a/opa.voice"), "language = de\ncommand = ./x");
  WriteFile(folder.File("b/opa.voice"), "language = fr\ncommand = ./x");
  WriteFile(folder.File("b/voice"), "x");
  const auto found = FindCommandVoices({folder.File("fehlt"), folder.File("a"), folder.File("b")});
  ASSERT_EQ(found.voices.size(), 2U);
  EXPECT_EQ(OfferedVoice(found.voices[0]).name, "Deutsch – opa");
  EXPECT_EQ(found.voices[0].folder, folder.File("a"));
  EXPECT_EQ(OfferedVoice(found.voices[1]).name, "Englisch – oma");
  EXPECT_TRUE(found.problems.empty());
}

TEST(CommandVoices, AreNamedWithFileAndLineWhenTheyAreWrong) {
  const TemporaryFolder folder;
  WriteFile(folder.File("oma.voice"), "language = de\nbefehl = x");
  WriteFile(folder.File("opa.voice"), std::string(20000, '#'));
  WriteFile(folder.File("tante.voice"), "");
  EXPECT_EQ(
      FindCommandVoices({folder.Path()}).problems,
      (Words{"Die Stimme „oma“ fehlt in der Auswahl: „oma.voice“, Zeile 2: den Schlüssel „befehl“ gibt es "
             "nicht.",
             "Die Stimme „opa“ fehlt in der Auswahl: „opa.voice“: die Datei lässt sich nicht lesen oder ist "
             "zu groß.",
             "Die Stimme „tante“ fehlt in der Auswahl: „tante.voice“: es fehlt die Zeile „language = …“."}));
}

}  // namespace
}  // namespace lorelin::engine
