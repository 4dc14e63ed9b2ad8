#include "app/ContinuedReading.h"

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class ContinuedReadingTest : public ScriptFixture {
 protected:
  void Open(const std::string& name, const std::string& text) {
    WriteFile(folder.File(name), text);
    document.files[folder.File(name)] = text;
    modules.opening.Open(folder.File(name));
  }
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, text.find(word)));
    voice.Hear({begin, begin + CountCharacters(word)});
  }
  void ReadTo(std::string_view word) {
    window.RunCommand("SpeakDocument");
    Hear(word);
    window.RunCommand("Stop");
  }
  bool Offers(std::string_view words) {
    return calls.Has("pane.item Weiterlesen 1200 Weiterlesen bei „" + std::string(words) + "“");
  }

  const std::string text = "Es war einmal. Da kam Öl. Und wenn sie nicht gestorben sind.";
};

TEST_F(ContinuedReadingTest, OffersThePlaceWhereTheReadingStopped) {
  Open("buch.txt", text);
  EXPECT_FALSE(modules.continued.CanContinue());
  ReadTo("Öl");
  EXPECT_TRUE(Offers("Da kam Öl. Und wenn sie nicht gestorben …"));
  taskPane.Click(1200, TaskPaneRequest::Continue);
  EXPECT_EQ(voice.SpokenText(), " Da kam Öl. Und wenn sie nicht gestorben sind. ");
  EXPECT_TRUE(view.editorVisible);
  EXPECT_FALSE(modules.continued.CanContinue());
}

TEST_F(ContinuedReadingTest, OffersItWhenTheDocumentIsOpenedAgain) {
  Open("buch.txt", text);
  ReadTo("Öl");
  Open("anderes.txt", "Nichts davon.");
  EXPECT_FALSE(modules.continued.CanContinue());
  calls.Clear();
  Open("buch.txt", text);
  EXPECT_TRUE(Offers("Da kam Öl. Und wenn sie nicht gestorben …"));
  EXPECT_EQ(statusBar.message, "Umschalt+F7: weiterlesen bei „Da kam Öl. Und wenn sie nicht gestorben …“");
  window.RunCommand("ContinueReading");
  EXPECT_EQ(voice.SpokenText(), " Da kam Öl. Und wenn sie nicht gestorben sind. ");
}

TEST_F(ContinuedReadingTest, FindsThePlaceAgainWhenTheTextWasEdited) {
  Open("buch.txt", text);
  ReadTo("Öl");
  document.text = "Vorwort: lang und breit. " + text;
  window.RunCommand("ContinueReading");
  EXPECT_EQ(voice.SpokenText(), " Da kam Öl. Und wenn sie nicht gestorben sind. ");
}

TEST_F(ContinuedReadingTest, OffersNothingOfWhatWasReadToTheEnd) {
  Open("buch.txt", text);
  ReadTo("Öl");
  window.RunCommand("ContinueReading");
  Hear("gestorben");
  voice.Finish();
  EXPECT_FALSE(modules.continued.CanContinue());
  Open("anderes.txt", "Nichts.");
  Open("buch.txt", text);
  EXPECT_FALSE(modules.continued.CanContinue());
}

TEST_F(ContinuedReadingTest, OffersNothingInTheFirstSentence) {
  Open("buch.txt", text);
  ReadTo("einmal");
  EXPECT_FALSE(modules.continued.CanContinue());
}

TEST_F(ContinuedReadingTest, KeepsNothingOfASelectionAndOfATextWithoutFile) {
  document.text = text;
  ReadTo("Öl");
  EXPECT_FALSE(modules.continued.CanContinue());
  Open("buch.txt", text);
  document.selectionStart = 0;
  document.selectionBytes = 20;
  speech.ReadSelection();
  Hear("kam");
  window.RunCommand("Stop");
  EXPECT_FALSE(modules.continued.CanContinue());
}

TEST_F(ContinuedReadingTest, KeepsThePlaceAtAPauseAndWhenTheWindowCloses) {
  Open("buch.txt", text);
  window.RunCommand("SpeakDocument");
  Hear("Öl");
  window.RunCommand("Pause");
  modules.readingPlaces.FinishWriting();
  EXPECT_EQ(files.files.count(folder.File("settings/reading-places")), 1U);
  files.files.clear();
  window.RunCommand("Pause");
  window.CloseRequested(true);
  EXPECT_EQ(files.files.count(folder.File("settings/reading-places")), 1U);
}

TEST(FirstWords, AreShortAndOnOneLine) {
  EXPECT_EQ(FirstWords("  Guten\n Tag "), "Guten Tag");
  EXPECT_EQ(FirstWords("Und wenn sie nicht gestorben sind, dann leben sie noch"),
            "Und wenn sie nicht gestorben sind, dann …");
  EXPECT_EQ(FirstWords(std::string(60, 'a')), std::string(40, 'a') + "…");
  EXPECT_EQ(FirstWords(" \n"), "");
}

}  // namespace
}  // namespace lorelin
