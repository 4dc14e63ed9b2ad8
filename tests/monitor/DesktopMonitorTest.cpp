#include "monitor/DesktopMonitor.h"

#include "base/text.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class Monitor : public ScriptFixture {
 protected:
  // What is spoken of this clipboard text; "-" for nothing.
  std::string Copy(const std::string& text) {
    clipboard.text = text;
    return Heard([this] { monitor.LookAtClipboard(); });
  }
  std::string Bring(const std::string& title) {
    foreground.title = title;
    return Heard([this] { monitor.LookAtForeground(); });
  }
  std::string Heard(const std::function<void()>& look) {
    calls.Clear();
    look();
    return calls.Entries().empty() ? "-" : std::string(WithoutBlanks(voice.SpokenText()));
  }
};

TEST_F(Monitor, SpeaksTheSameClipboardTextOnce) {
  EXPECT_EQ(Copy("a"), "a");
  EXPECT_EQ(Copy("a"), "-");
  EXPECT_EQ(Copy("b"), "b");
  EXPECT_EQ(Copy("a"), "a");
}

TEST_F(Monitor, TellsTextsApartByCase) {
  EXPECT_EQ(Copy("Wort"), "Wort");
  EXPECT_EQ(Copy("wort"), "wort");
}

TEST_F(Monitor, SaysNothingOfAClipboardThatIsEmptyFromTheStart) {
  document.text = "Dokument";
  EXPECT_EQ(Copy(""), "-");
}

TEST_F(Monitor, ReadsTheDocumentWhenTheClipboardIsEmptied) {
  document.text = "Dokument";
  EXPECT_EQ(Copy("a"), "a");
  EXPECT_EQ(Copy(""), "Dokument");
}

TEST_F(Monitor, SaysNothingOfTheMarkOfAChangeInTheProgramsOwnTitle) {
  Set(setting::SpellOut, "0");
  EXPECT_EQ(Bring("brief.txt – Lorelin"), "brief.txt – Lorelin");
  EXPECT_EQ(Bring("• brief.txt – Lorelin"), "-");
  EXPECT_EQ(Bring("• Lorelin"), "Lorelin");
  EXPECT_EQ(Bring("Lorelin"), "-");
  EXPECT_EQ(Bring("• Notizen"), "• Notizen");
}

TEST_F(Monitor, FiltersTheClipboardButNoTitle) {
  RegisterFilter("F", [](const std::string& method, std::optional<std::string> text) {
    return method == "FilterText" ? "[" + text.value_or("") + "]" : "";
  });
  EXPECT_EQ(Copy("a"), "[a]");
  EXPECT_EQ(Bring("b"), "b");
}

TEST_F(Monitor, KeepsTheWaveFileForTheClipboardAndTakesANewOneForATitle) {
  speech.SetWaveFile("");
  const std::string before = speech.TempWavPath();
  (void)Copy("a");
  EXPECT_EQ(speech.TempWavPath(), before);
  clock.now.second += 1;
  (void)Bring("b");
  EXPECT_NE(speech.TempWavPath(), before);
}

TEST_F(Monitor, SpeaksEveryChangeOfTheTitle) {
  EXPECT_EQ(Bring("A"), "A");
  EXPECT_EQ(Bring("A"), "-");
  EXPECT_EQ(Bring("B"), "B");
  EXPECT_EQ(Bring("A"), "A");
}

TEST_F(Monitor, WritesSdWithEveryLookAtTheTitle) {
  (void)Bring("A");
  statusBar.SetMessage("etwas anderes");
  (void)Bring("A");
  EXPECT_EQ(statusBar.message, "sd");
}

TEST_F(Monitor, ReadsTheDocumentForAWindowWithoutATitle) {
  document.text = "Dokument";
  EXPECT_EQ(Bring("A"), "A");
  EXPECT_EQ(Bring(""), "Dokument");
}

TEST_F(Monitor, CutsATitleAt255Characters) {
  std::string title;
  for (int i = 0; i < 300; ++i) title += "ä";
  EXPECT_EQ(CharacterCount(Bring(title)), 255U);
  EXPECT_EQ(Bring(std::string("vor\0nach", 8)), "vor");
}

TEST_F(Monitor, IsSilentWhileTheProgramLoads) {
  startup.loadingInProgress = true;
  EXPECT_EQ(Copy("a"), "-");
}

}  // namespace
}  // namespace lorelin
