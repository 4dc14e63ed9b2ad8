#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "german/nouns.h"
#include "german/spokenGerman.h"

namespace lorelin {
namespace {

struct Frame {
  std::string_view written;
  std::string_view masculine;  // empty where the written article has another gender
  std::string_view feminine;
  std::string_view neuter;
};

// What a noun asks of the number before it, in every case; "@" is the noun.
constexpr Frame kFrames[] = {
    {"Hier ist nur 1 @ dabei.", "Hier ist nur ein @ dabei.", "Hier ist nur eine @ dabei.",
     "Hier ist nur ein @ dabei."},
    {"Es gibt 1 @ hier.", "Es gibt einen @ hier.", "Es gibt eine @ hier.", "Es gibt ein @ hier."},
    {"Wir kommen mit 1 @ an.", "Wir kommen mit einem @ an.", "Wir kommen mit einer @ an.",
     "Wir kommen mit einem @ an."},
    {"1 @ fehlt.", "Ein @ fehlt.", "Eine @ fehlt.", "Ein @ fehlt."},
    {"Er lobte die 3. @ sehr.", "", "Er lobte die dritte @ sehr.", ""},
    {"Er sah den 12. @ nicht.", "Er sah den zwölften @ nicht.", "", ""},
    {"Das 3. @ ist gut.", "", "", "Das dritte @ ist gut."},
    {"Er kam in der 3. @ an.", "", "Er kam in der dritten @ an.", ""},
    {"Zum 2. @ kam er.", "Zum zweiten @ kam er.", "", "Zum zweiten @ kam er."},
    {"Mein 1. @ war gut.", "Mein erster @ war gut.", "", "Mein erstes @ war gut."},
    {"Eine 2. @ kam.", "", "Eine zweite @ kam.", ""},
    {"Max. @: 5 cm.", "Maximaler @: fünf Zentimeter.", "Maximale @: fünf Zentimeter.",
     "Maximales @: fünf Zentimeter."}};

std::string With(std::string_view frame, std::string_view noun) {
  const std::size_t place = frame.find('@');
  return std::string(frame.substr(0, place)) + std::string(noun) + std::string(frame.substr(place + 1));
}

void ExpectGender(std::string_view nouns, std::string_view Frame::*gender) {
  std::size_t at = 0;
  while (at < nouns.size()) {
    const std::size_t end = std::min(nouns.find(' ', at), nouns.size());
    const auto noun = nouns.substr(at, end - at);
    for (const Frame& frame : kFrames) {
      if ((frame.*gender).empty()) continue;
      EXPECT_EQ(SpellOut(With(frame.written, noun)).text, With(frame.*gender, noun));
    }
    at = end + 1;
  }
}

TEST(NounCasesTest, OfWomenAndHalls) {
  ExpectGender(
      "Halle Sporthalle Platte Tischplatte Breite Reichweite Tiefe Ebene Spitze Bergspitze Kohle Montage "
      "Akte "
      "Lebensweise Schranke Weste Herde Sekte Marke Rinde Falle Schale Matte Taverne Tunika Fensterecke "
      "Stunde "
      "Art Person Wohnung Rechnung Tablette Schicht Gabel Nacht Bank Firma Nummer Tuberkulose",
      &Frame::feminine);
}

TEST(NounCasesTest, OfMenAndDays) {
  ExpectGender(
      "Tag Tisch Koffer Schlüssel Antrag Termin Löffel Apfel Film Punkt Zug Brief Käse See Baum Lehrer",
      &Frame::masculine);
}

TEST(NounCasesTest, OfChildrenAndHouses) {
  ExpectGender(
      "Kind Haus Gebäude Auge Ende Interesse Bügeleisen Mädchen Brötchen Büchlein Fenster Foto Update Zimmer",
      &Frame::neuter);
}

}  // namespace
}  // namespace lorelin
