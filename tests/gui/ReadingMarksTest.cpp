#include "tests/gui/FormFixture.h"
#include "tests/gui/markedText.h"

namespace lorelin {
namespace {

// What is read is marked in the real editor.
class ReadingMarksTest : public FormFixture {
 protected:
  ReadingMarksTest() {
    window.Textmode();
    form.Show();
    EXPECT_TRUE(WaitUntil([this] { return form.IsActive(); }));
  }

  std::string Word() { return MarkedText(form.Editor(), ReadingMark::Word); }
  std::string Sentence() { return MarkedText(form.Editor(), ReadingMark::Sentence); }
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t at = text.find(word);
    ASSERT_NE(at, std::string::npos);
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, at));
    voice.Hear({begin, begin + CountCharacters(word)});
  }
  void Read(const std::string& text) {
    document.SetText(text);
    speech.SpeakToolbar();
  }
};

TEST_F(ReadingMarksTest, StandAtTheWordAndItsSentence) {
  Read("Schöne Grüße. Das ist z. B. Öl.");
  Hear("Beispiel");
  EXPECT_EQ(Word(), "z. B.");
  EXPECT_EQ(Sentence(), "Das ist z. B. Öl.");
  Hear("Öl");
  EXPECT_EQ(Word(), "Öl");
}

TEST_F(ReadingMarksTest, AreNoPartOfTheDocument) {
  document.SetText("Guten Tag. Ende.");
  const std::string rtf = form.Editor().RichText();
  const bool couldUndo = form.Editor().CanUndo();
  Read("Guten Tag. Ende.");
  Hear("Tag");
  EXPECT_EQ(form.Editor().RichText(), rtf);
  EXPECT_EQ(form.Editor().CanUndo(), couldUndo);
  form.Editor().Undo();
  form.Editor().Redo();
  EXPECT_EQ(document.Text(), "Guten Tag. Ende.");
}

TEST_F(ReadingMarksTest, DoNotComeAlongWhenTextIsCopied) {
  Read("Guten Tag. Ende.");
  Hear("Tag");
  form.Editor().SetSelection(6, 9);
  form.Editor().Copy();
  form.Editor().SetInsertionPointEnd();
  form.Editor().Paste();
  EXPECT_TRUE(WaitUntil([this] { return document.Text() == "Guten Tag. Ende.Tag"; }));
  EXPECT_EQ(Word(), "Tag");
}

TEST_F(ReadingMarksTest, MoveAlongWithTheText) {
  Read("Guten Tag. Schöne Grüße.");
  Hear("Schöne");
  form.Editor().SetInsertionPoint(0);
  document.ReplaceSelection("Äh, ");
  EXPECT_EQ(Word(), "Schöne");
  Hear("Grüße");
  EXPECT_EQ(Word(), "Grüße");
  EXPECT_EQ(Sentence(), "Schöne Grüße.");
}

TEST_F(ReadingMarksTest, VanishWhereTheTextIsEdited) {
  Read("Guten Tag. Schöne Grüße.");
  Hear("Schöne");
  form.Editor().SetInsertionPoint(13);
  document.ReplaceSelection("x");
  EXPECT_EQ(Word() + Sentence(), "");
}

TEST_F(ReadingMarksTest, VanishWithStopEndAndAnotherDocument) {
  Read("Guten Tag.");
  Hear("Tag");
  window.RunCommand("Stop");
  EXPECT_EQ(Word() + Sentence(), "");
  EXPECT_EQ(form.Editor().GetInsertionPoint(), 6);
  Read("Guten Tag.");
  Hear("Tag");
  voice.Finish();
  EXPECT_EQ(Word() + Sentence(), "");
  Read("Guten Tag.");
  Hear("Guten");
  document.SetText("Etwas ganz anderes.");
  Hear("Tag");
  EXPECT_EQ(Word() + Sentence(), "");
}

TEST_F(ReadingMarksTest, AreChosenInTheMenu) {
  EXPECT_TRUE(Entry("Ansicht", "Wort und Satz").IsChecked());
  Read("Guten Tag.");
  Hear("Tag");
  modules.commands.Run("FollowWord");
  EXPECT_TRUE(Entry("Ansicht", "Wort").IsChecked());
  EXPECT_EQ(Word() + "/" + Sentence(), "Tag/");
  modules.commands.Run("FollowNothing");
  EXPECT_EQ(Word() + "/" + Sentence(), "/");
}

// Words that are spoken as they are written.
std::string NameOfLine(int line) {
  return {'Z', 'e', 'i', 'l', 'e', static_cast<char>('a' + line / 20), static_cast<char>('a' + line % 20)};
}

TEST_F(ReadingMarksTest, ScrollTheLineIntoTheMiddle) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += NameOfLine(i) + " steht hier.\n";
  Read(text);
  for (const int line : {10, 40, 41, 120}) {
    const std::string word = NameOfLine(line);
    const auto at = static_cast<long>(text.find(word));
    const auto inMiddle = [&] {
      voice.Hear({static_cast<std::size_t>(at) + 1, static_cast<std::size_t>(at) + 1 + word.size()});
      const int y = form.Editor().PositionToCoords(at).y;
      const int height = form.Editor().GetClientSize().y;
      return y >= height / 3 - 30 && y <= height * 2 / 3;
    };
    EXPECT_TRUE(WaitUntil(inMiddle)) << line;
  }
}

TEST_F(ReadingMarksTest, ShowAChapterFromItsBeginning) {
  std::string text;
  for (int i = 0; i < 200; ++i)
    text += (i == 120 ? "Kapitel" : NameOfLine(i)) + std::string(" steht hier.\n");
  document.SetText(text);
  const std::size_t place = text.find("Kapitel");
  const auto atTop = [&] {
    form.Editor().Marks().PlaceCaret(place);
    const int y = form.Editor().PositionToCoords(static_cast<long>(place)).y;
    return y >= 0 && y < form.Editor().GetClientSize().y / 4;
  };
  EXPECT_TRUE(WaitUntil(atTop));
  EXPECT_EQ(form.Editor().GetInsertionPoint(), static_cast<long>(place));
}

}  // namespace
}  // namespace lorelin
