#include "german/sentences.h"

#include <gtest/gtest.h>

#include <string>

namespace lorelin {
namespace {

std::vector<std::string> Parts(std::string_view text) {
  std::vector<std::string> parts;
  for (const TextRange& range : Sentences(text))
    parts.emplace_back(text.substr(range.begin, range.end - range.begin));
  return parts;
}

using Texts = std::vector<std::string>;

TEST(SentencesTest, EndAtFullStopsQuestionsAndExclamations) {
  EXPECT_EQ(Parts("Er kam. Sah er? Er ging! Ja"), (Texts{"Er kam. ", "Sah er? ", "Er ging! ", "Ja"}));
  EXPECT_EQ(Parts("„Er kam.“ Dann"), (Texts{"„Er kam.“ ", "Dann"}));
}

TEST(SentencesTest, DoNotEndAtAbbreviationsOrdinalsAndDates) {
  for (const std::string text :
       {"Dr. Meyer, z. B. im 3. Stock, kam am 3. Mai.", "Am 3.10. Termin bei Prof. Kern.",
        "Er las S. 5 und Nr. 7.", "J. S. Bach schrieb es.", "Im XX. Jahrhundert war es so.",
        "Es dauert 30 Min. Fahrzeit.", "Ludwig XIV. baute."})
    EXPECT_EQ(Parts(text), Texts{text});
}

TEST(SentencesTest, EndBehindAbbreviationsAndNumbersThatEndThem) {
  EXPECT_EQ(Parts("Äpfel usw. Dann"), (Texts{"Äpfel usw. ", "Dann"}));
  EXPECT_EQ(Parts("Es war 1990. Deutschland gewann."), (Texts{"Es war 1990. ", "Deutschland gewann."}));
  EXPECT_EQ(Parts("Lies Kapitel 3. Danach nicht."), (Texts{"Lies Kapitel 3. ", "Danach nicht."}));
}

TEST(SentencesTest, EndBehindTheNameOfAStation) {
  EXPECT_EQ(Parts("Er hält in Köln Hbf. Reisende warten."),
            (Texts{"Er hält in Köln Hbf. ", "Reisende warten."}));
  EXPECT_EQ(Parts("Er fährt ab Köln Hbf. Gleis 5 ab."), (Texts{"Er fährt ab Köln Hbf. Gleis 5 ab."}));
}

TEST(SentencesTest, EndBeforeASubjectAndItsVerb) {
  EXPECT_EQ(Parts("Wir wohnen am Marktpl. Parkplätze gibt es hier."),
            (Texts{"Wir wohnen am Marktpl. ", "Parkplätze gibt es hier."}));
  EXPECT_EQ(Parts("Es dauert 45 Min. Termine vergeben wir."),
            (Texts{"Es dauert 45 Min. ", "Termine vergeben wir."}));
}

TEST(SentencesTest, EndAtEmptyLines) {
  EXPECT_EQ(Parts("Titel\n\nText\nweiter"), (Texts{"Titel\n\n", "Text\nweiter"}));
}

TEST(SentencesTest, AreTheWholeText) {
  std::string text;
  for (int i = 0; i < 30'000; ++i) text += "wort ";
  std::size_t at = 0;
  for (const TextRange& range : Sentences(text)) {
    EXPECT_EQ(range.begin, at);
    at = range.end;
  }
  EXPECT_EQ(at, text.size());
  EXPECT_GT(Sentences(text).size(), 1U);
}

}  // namespace
}  // namespace lorelin
