#include "speech/ReadingAlong.h"

#include <gtest/gtest.h>

#include <cstdlib>

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
