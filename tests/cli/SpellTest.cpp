#include "cli/spell.h"

#include <gtest/gtest.h>

#include <sstream>

namespace lorelin::cli {
namespace {

std::string Spoken(std::string_view text, SpellingOptions options = {}) {
  std::ostringstream out;
  PrintSpoken(GermanSpeller(std::move(options)), text, out);
  return out.str();
}

std::string Table(std::string_view text) {
  std::ostringstream out;
  PrintTable(GermanSpeller(), text, out);
  return out.str();
}

TEST(SpellTest, PrintsALineForEachLine) {
  EXPECT_EQ(Spoken("wiegt 5 kg\n\nz. B. das\n"), "wiegt fünf Kilogramm\n\nzum Beispiel das\n");
  EXPECT_EQ(Spoken("wiegt 5 kg"), "wiegt fünf Kilogramm\n");
  EXPECT_EQ(Spoken(""), "");
}

TEST(SpellTest, AReplacementOverALineEndKeepsTheNumberOfLines) {
  EXPECT_EQ(
      Spoken("a\nb\n", {.ownWords = {{.written = "b", .spoken = "c\nd"}}, .speakEmoji = true, .rules = {}}),
      "a\nc d\n");
}

TEST(SpellTest, TheTableNamesLineWrittenAndSpoken) {
  EXPECT_EQ(Table("Hallo,\ner wiegt 5 kg und\nz. B. das\n"),
            "2\t5 kg\tfünf Kilogramm\n3\tz. B.\tzum Beispiel\n");
}

}  // namespace
}  // namespace lorelin::cli
