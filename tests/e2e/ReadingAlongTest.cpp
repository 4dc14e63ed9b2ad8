#include "speech/ReadingAlong.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "base/text.h"
#include "base/textEncoding.h"
#include "speech/SpeechModules.h"
#include "tests/support/FakeReadingMarks.h"
#include "tests/support/FakeSystem.h"
#include "tests/support/RealEngine.h"

namespace lorelin {
namespace {

// Marks that remember what was marked.
class RememberedMarks final : public ReadingMarks {
 public:
  [[nodiscard]] bool CanShow() const override { return true; }
  void Show(std::optional<MarkedRange> word, std::optional<MarkedRange>) override {
    if (word && (words.empty() || !(words.back() == *word))) words.push_back(*word);
  }
  void Hide() override { ++hidden; }
  void Return() override {}
  void PlaceCaret(std::size_t) override {}
  void OnEdited(std::function<void(std::size_t, std::size_t, std::size_t)>) override {}

  std::vector<MarkedRange> words;
  int hidden = 0;
};

// The real engine, played for nobody, and everything between it and the marks.
class RealReadingAlong : public testing::Test, protected FakeSystem {
 protected:
  RealReadingAlong() {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    spoken.settings.Save(setting::Speed, "100");
  }
  [[nodiscard]] std::string At(const MarkedRange& range) const {
    const std::string_view begin = FromCharacter(document.text, range.begin);
    return std::string(begin.substr(0, begin.size() - FromCharacter(document.text, range.end).size()));
  }
  // The text at the marks, one behind the other.
  [[nodiscard]] std::string Marked() const {
    std::string all;
    for (const MarkedRange& range : marks.words) all += (all.empty() ? "" : "|") + At(range);
    return all;
  }
  // Each mark begins where the one before has ended, or behind.
  [[nodiscard]] bool InOrder() const {
    for (std::size_t i = 1; i < marks.words.size(); ++i) {
      if (marks.words[i].begin < marks.words[i - 1].end) return false;
    }
    return true;
  }
  // What lies between the marks.
  [[nodiscard]] std::string Unmarked() const {
    std::string rest;
    std::size_t done = 0;
    for (const MarkedRange& range : marks.words) {
      rest += At({done, range.begin});
      done = range.end;
    }
    return rest + At({done, CharacterCount(document.text)});
  }

  RealEngine heard{true};
  RealEngine rendered;
  FakeDocumentEditor document{calls};
  FakeStatusBar statusBar;
  SpeechModules spoken{{.system = system,
                        .voice = heard.engine,
                        .voice2 = rendered.engine,
                        .document = document,
                        .statusBar = statusBar,
                        .messageBoxes = messageBoxes,
                        .pump = heard.pump,
                        .programFolder = folder.Path(),
                        .settingsFolder = folder.File("settings")}};
  RememberedMarks marks;
  ReadingAlong along{spoken.speech, marks, spoken.settings};
};

TEST_F(RealReadingAlong, EveryWordIsMarkedInItsOrder) {
  document.text =
      "Der „Öko-Anbau“ wuchs am 3. Mai 2024 um 3,5 % auf 1.234.567 Hektar, z. B. in Köln.\n\n"
      "Herr Dr. Müller (58) sagt: »So geht’s!« – und zahlt 19,99 €.";
  spoken.speech.SpeakToolbar();
  ASSERT_TRUE(heard.WaitUntil([this] { return !along.IsReading(); }));
  EXPECT_TRUE(InOrder()) << Marked();
  EXPECT_EQ(Unmarked().find_first_of("0123456789abcdefghijklmnopqrstuvwxyz%"), std::string::npos)
      << Unmarked();
  // A piece that is spelled out is one.
  EXPECT_NE(Marked().find("|z. B.|"), std::string::npos) << Marked();
  EXPECT_NE(Marked().find("|Müller|58|sagt|So|geht’s|und|zahlt|"), std::string::npos) << Marked();
  EXPECT_GE(marks.hidden, 1);
}

// What an extension puts in another's place leads to the word that stood there.
TEST_F(RealReadingAlong, TwoHundredWordsAreMarkedWhateverTheyPassThrough) {
  RegisterFilter("Tausch", [](const std::string&, std::optional<std::string> text) {
    if (text) ReplaceAll(*text, "Kaffee", "sehr heißen Espresso");
    return text;
  });
  for (const auto* const sentence :
       {"Sehr geehrte Frau Dr. Müller-Lüdenscheidt, vielen Dank für Ihr Schreiben vom 3. Mai 2024. ",
        "Die Miete beträgt z. B. 1.234,50 € im Monat, das sind ca. 5 % mehr als im Jahr davor. ",
        "Bitte kommen Sie am Mo., 12.8., um 14:30 Uhr in die St.-Georg-Str. 5, 2. Stock links.\n\n",
        "»Geht’s noch?«, fragte Öznur, „das ist ja \u00fcbel“ – und trank den Kaffee aus 😀. ",
        "Der Aufzug steht vom 1.-3. September; nach 1 Tag geht er wieder, sagt Herr Prof. Weiß. ",
        "Ein Pfund sind 500 g, 3/4 Liter Milch kosten 1,29 €, und der Ofen hat 180 °C. ",
        "Ludwig XIV. regierte bis 1715, im 18. Jh. begann die Aufklärung, s. S. 12 ff. im Buch.\n",
        "Rufen Sie an unter Tel. 030 123456 oder schreiben Sie an info@beispiel.de, ggf. auch per Fax. ",
        "Wir (d. h. meine Frau und ich) bringen Äpfel, Öl, Brötchen u. v. m. mit; Kaffee gibt es dort. ",
        "Der ICE 1025 fährt um 8:05 Uhr von Gl. 7 und ist gegen 11.40 Uhr in Köln Hbf. ",
        "Auf der Öko-Anbau-Fläche wuchsen 1.234.567 Pflanzen, rund 3,5-mal so viele wie vor 20 Jahren. ",
        "Übrigens: Das Spiel endete 3:1, obwohl 2/3 der Zuschauer etwas anderes erwartet hatten! ",
        "Mit freundlichen Grüßen, i. A. Müller, und bis bald in unserem schönen alten Haus am See."}) {
    document.text += sentence;
  }
  spoken.speech.SpeakToolbar();
  ASSERT_TRUE(heard.WaitUntil([this] { return marks.words.size() > 100 || !along.IsReading(); }));
  ASSERT_TRUE(heard.WaitUntil([this] { return !along.IsReading(); }));
  EXPECT_TRUE(InOrder()) << Marked();
  EXPECT_EQ(Unmarked().find_first_of("0123456789abcdefghijklmnopqrstuvwxyz%&"), std::string::npos)
      << Unmarked();
  EXPECT_NE(Marked().find("|den|Kaffee|aus|"), std::string::npos) << Marked();
  EXPECT_GE(marks.words.size(), 150U);
}

TEST_F(RealReadingAlong, ASkipIsHeardWhereItGoes) {
  document.text = "Erster Satz mit vielen Wörtern darin. Zweiter Satz. Dritter Satz.";
  spoken.speech.SpeakToolbar();
  ASSERT_TRUE(heard.WaitUntil([this] { return !marks.words.empty(); }));
  along.SentenceOn();
  along.SentenceOn();
  marks.words.clear();
  ASSERT_TRUE(heard.WaitUntil([this] { return !along.IsReading(); }));
  EXPECT_EQ(Marked(), "Dritter|Satz");
}

}  // namespace
}  // namespace lorelin
