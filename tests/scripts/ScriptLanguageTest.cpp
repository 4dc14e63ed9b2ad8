#include "scripts/scriptLanguage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lorelin {
namespace {

ScriptLine Cut(std::string_view line) {
  return CutLine(line).value_or(ScriptLine{"(übersprungen)", "", ""});
}

TEST(CutLine, TakesACommandWithoutParameters) {
  EXPECT_EQ(Cut("Stopp();"), (ScriptLine{"Stopp", "", ""}));
}

TEST(CutLine, TakesOneAndTwoParameters) {
  EXPECT_EQ(Cut("Warten(10);"), (ScriptLine{"Warten", "10", ""}));
  EXPECT_EQ(Cut("Ersetzen(alt,neu);"), (ScriptLine{"Ersetzen", "alt", "neu"}));
}

TEST(CutLine, SkipsLinesWithoutParenthesisAndShortLines) {
  EXPECT_FALSE(CutLine(""));
  EXPECT_FALSE(CutLine("Sprechen"));
  EXPECT_FALSE(CutLine("X();"));
  EXPECT_FALSE(CutLine("XY();"));
  EXPECT_TRUE(CutLine("XYZ();"));
}

TEST(CutLine, CountsCharactersNotBytes) {
  EXPECT_FALSE(CutLine("ÄÖ();"));
  EXPECT_TRUE(CutLine("ÄÖÜ();"));
}

TEST(CutLine, SkipsComments) {
  EXPECT_FALSE(CutLine("# Sprechen();"));
  EXPECT_FALSE(CutLine("//Sprechen();"));
}

TEST(CutLine, TakesAMarkerBehindABlankForAnUnknownCommand) {
  EXPECT_EQ(Cut(" # Sprechen();"), (ScriptLine{"# Sprechen", "", ""}));
}

TEST(CutLine, KeepsAnEscapedComma) {
  ScriptLine cut = Cut("Sprechen2(a\\,b);");
  EXPECT_EQ(cut.parameter2, "");
  RestoreCommas(cut.parameter1);
  EXPECT_EQ(cut.parameter1, "a,b");
}

TEST(CutLine, TakesAnUnescapedCommaForTheEndOfTheParameter) {
  EXPECT_EQ(Cut("Sprechen2(a,b);"), (ScriptLine{"Sprechen2", "a", "b"}));
}

TEST(CutLine, CutsAtTheSecondOpeningParenthesis) {
  EXPECT_EQ(Cut("Sprechen2(Hallo (Welt));"), (ScriptLine{"Sprechen2", "Hallo ", ""}));
}

TEST(CutLine, KeepsTheClosingParenthesisWithoutSemicolon) {
  EXPECT_EQ(Cut("Sprechen2(Hallo)"), (ScriptLine{"Sprechen2", "Hallo)", ""}));
}

TEST(CutLine, RemovesEveryLineEndFromTheLastParameter) {
  EXPECT_EQ(Cut("Sprechen2(a);b);"), (ScriptLine{"Sprechen2", "ab", ""}));
  EXPECT_EQ(Cut("Ersetzen(a);,b);"), (ScriptLine{"Ersetzen", "a);", "b"}));
}

TEST(CutLine, IgnoresFurtherParameters) {
  EXPECT_EQ(Cut("Ersetzen(a,b,c);"), (ScriptLine{"Ersetzen", "a", "b"}));
  EXPECT_EQ(Cut("Ersetzen(a,b);,c);"), (ScriptLine{"Ersetzen", "a", "b);"}));
}

TEST(CutLine, StripsTheCommandButNotTheParameters) {
  EXPECT_EQ(Cut("  Wenn ($Zeit, 12:00);"), (ScriptLine{"Wenn", "$Zeit", " 12:00"}));
}

TEST(CutLine, KeepsTheCaseOfTheCommand) {
  EXPECT_EQ(Cut("sprechen();").command, "sprechen");
}

TEST(RestoreCommas, AcceptsTheWrittenOutForm) {
  std::string parameter = "a%KOMMA%b";
  RestoreCommas(parameter);
  EXPECT_EQ(parameter, "a,b");
}

TEST(SplitScript, EndsLinesAtPairsOnly) {
  EXPECT_EQ(SplitScript("a\r\nb\nc\rd\r\n"), (std::vector<std::string_view>{"a", "b\nc\rd", ""}));
}

TEST(SplitScript, TakesAFileWithLoneLineFeedsForOneLine) {
  const auto lines = SplitScript("Sprechen();\nStopp();\n");
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(Cut(lines[0]).command, "Sprechen");
}

TEST(ScriptCommands, HoldsTheTableInItsOrder) {
  const auto commands = ScriptCommands();
  ASSERT_EQ(commands.size(), 23U);
  EXPECT_EQ(commands[0].name, "Sprechen");
  EXPECT_EQ(commands[0].kind, "Nichts");
  EXPECT_EQ(commands[16].name, "Ersetzen");
  EXPECT_EQ(commands[16].count, "2");
  EXPECT_EQ(commands[22].name, "Download");
  EXPECT_EQ(commands[22].kind, "Text");
  EXPECT_EQ(commands[22].count, "2");
  EXPECT_TRUE(commands[22].description.starts_with("Lädt die Datei 'Text'"));
}

TEST(ScriptCommands, AnnouncesAParameterForPauseThatItsKindDenies) {
  EXPECT_EQ(ScriptCommands()[3].name, "Pause");
  EXPECT_EQ(ScriptCommands()[3].kind, "Nichts");
  EXPECT_EQ(ScriptCommands()[3].count, "1");
}

TEST(ScriptCommands, KeepsTheSwappedDescriptionsOfTheConditions) {
  EXPECT_NE(ScriptCommands()[18].description.find("Wenn nicht wird die Ausführung"), std::string_view::npos);
  EXPECT_NE(ScriptCommands()[19].description.find("Wenn dies zutrifft wird"), std::string_view::npos);
}

class FixedVariables final : public ScriptVariables {
 public:
  std::string Clipboard() override { return ++clipboardReads, clipboard; }
  std::string TimeOfDay() override { return "21:05"; }
  std::string Date() override { return "16.11.2005"; }
  std::string WindowsFolder() override { return "C:\\Windows"; }
  std::string Selection() override { return "markiert"; }
  std::string DocumentText() override { return document; }

  std::string clipboard = "kopiert";
  std::string document = "Dokument";
  int clipboardReads = 0;
};

std::string Expanded(std::string text, FixedVariables values = {}) {
  ExpandVariables(text, values);
  return text;
}

TEST(ExpandVariables, ReplacesEveryOccurrenceOfEveryVariable) {
  EXPECT_EQ(Expanded("$Zwischenablage|$Zeit|$Datum|$Windows|$Markiert|$Text|$Zeit"),
            "kopiert|21:05|16.11.2005|C:\\Windows|markiert|Dokument|21:05");
}

TEST(ExpandVariables, IsCaseSensitive) {
  EXPECT_EQ(Expanded("$zeit $TEXT"), "$zeit $TEXT");
}

TEST(ExpandVariables, ExpandsWhatAnEarlierVariablePutIn) {
  FixedVariables values;
  values.clipboard = "am $Datum";
  EXPECT_EQ(Expanded("$Zwischenablage", values), "am 16.11.2005");
}

TEST(ExpandVariables, DoesNotExpandWhatTheDocumentPutsIn) {
  FixedVariables values;
  values.document = "$Zeit $Text";
  EXPECT_EQ(Expanded("$Text", values), "$Zeit $Text");
}

TEST(ExpandVariables, ReadsTheClipboardEvenWhenItDoesNotOccur) {
  FixedVariables values;
  std::string text = "ohne";
  ExpandVariables(text, values);
  EXPECT_EQ(values.clipboardReads, 1);
}

TEST(FormatTimeOfDay, WritesTwoDigits) {
  EXPECT_EQ(FormatTimeOfDay(LocalTime{.hour = 9, .minute = 5}), "09:05");
}

TEST(FormatDate, WritesTwoDigitsAndTheWholeYear) {
  EXPECT_EQ(FormatDate(LocalTime{.year = 2005, .month = 1, .day = 6}), "06.01.2005");
}

}  // namespace
}  // namespace lorelin
