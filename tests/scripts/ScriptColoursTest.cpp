#include "scripts/scriptColours.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

// The parts as "C:Sprechen P:x", comments as #, variables as $.
std::string ColouredParts(std::string_view text) {
  std::string all;
  for (const ColouredSpan& span : ColourScript(text)) {
    const std::string_view from = FromCharacter(text, span.begin);
    const std::string_view part = from.substr(0, from.size() - FromCharacter(from, span.length).size());
    all += std::string(1, "#CP$"[static_cast<int>(span.part)]) + ":" + std::string(part) + "|";
  }
  return all;
}

TEST(ColourScript, TellsCommandsParametersVariablesAndCommentsApart) {
  EXPECT_EQ(ColouredParts("# Kommentar\nSprechen2(Es ist $Zeit Uhr);\n//auch(\n"),
            "#:# Kommentar|C:Sprechen2|P:Es ist |$:$Zeit|P: Uhr|#://auch(|");
}

TEST(ColourScript, CountsCharacters) {
  EXPECT_EQ(ColouredParts("# Grüße\nLöschen(Übung🎉.txt);"), "#:# Grüße|C:Löschen|P:Übung🎉.txt|");
}

TEST(ColourScript, LeavesWhatIsNoCommand) {
  EXPECT_EQ(ColouredParts("sprechen();\nText\n\n (x);\n # kein Kommentar"), "");
}

TEST(ColourScript, StopsAtASecondParenthesis) {
  EXPECT_EQ(ColouredParts("  Sprechen2 (a (b));"), "C:Sprechen2|P:a |");
}

TEST(ColourScript, TakesAnUnfinishedLine) {
  EXPECT_EQ(ColouredParts("Text("), "C:Text|");
  EXPECT_EQ(ColouredParts("Text($"), "C:Text|P:$|");
  EXPECT_EQ(ColouredParts("Text($Datum"), "C:Text|$:$Datum|");
}

}  // namespace
}  // namespace lorelin
