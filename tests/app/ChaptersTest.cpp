#include "app/Chapters.h"

#include <algorithm>

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class ChaptersTest : public ScriptFixture {
 protected:
  void Open(const std::string& name = "buch.rtf") {
    WriteFile(folder.File(name), "x");
    document.files[folder.File(name)] = text;
    document.chapters[folder.File(name)] = {
        {"Öl", 1, Place("Öl\n")}, {"Teil", 2, Place("Teil")}, {"Ende", 1, Place("Ende\n")}};
    modules.opening.Open(folder.File(name));
  }
  std::size_t Place(std::string_view words) const {
    return CharacterCount(std::string_view(document.text.empty() ? text : document.text)
                              .substr(0, (document.text.empty() ? text : document.text).find(words)));
  }
  void Hear(std::string_view word) {
    const std::string& spoken = voice.SpokenText();
    const std::size_t begin = CharacterCount(std::string_view(spoken).substr(0, spoken.find(word)));
    voice.Hear({begin, begin + CharacterCount(word)});
  }
  [[nodiscard]] auto Renderings() const {
    return std::ranges::count_if(calls.Entries(),
                                 [](const std::string& call) { return call.starts_with("Voice2.Speak"); });
  }
  void CaretAt(std::string_view words) {
    document.selectionStart = Place(words);
    modules.chapters.CaretMoved();
  }

  std::string text = "Vorweg.\nÖl\nDas war Öl.\nTeil\nHier ist ein Teil.\nEnde\nDas war es.";
};

TEST_F(ChaptersTest, AreShownWithTheDocumentAndGoWithIt) {
  Open();
  ASSERT_EQ(chapterList.shown.size(), 3U);
  EXPECT_EQ(chapterList.shown[1].title, "Teil");
  EXPECT_EQ(modules.commands.IsPossible("NextChapter"), true);
  document.SetText("etwas anderes");
  guarded.SetText("etwas anderes");
  EXPECT_TRUE(chapterList.shown.empty());
  EXPECT_EQ(modules.commands.IsPossible("NextChapter"), false);
}

TEST_F(ChaptersTest, AreShownOnceThoughTheTitleChanges) {
  Open();
  documents.Changed();
  documents.Changed();
  EXPECT_EQ(chapterList.changes, 1);
}

TEST_F(ChaptersTest, MarkTheOneWithTheCaret) {
  Open();
  EXPECT_FALSE(chapterList.marked);
  CaretAt("ein Teil");
  EXPECT_EQ(chapterList.marked, 1U);
  CaretAt("Vorweg");
  EXPECT_FALSE(chapterList.marked);
}

TEST_F(ChaptersTest, PutTheCaretWhereTheChosenOneBegins) {
  Open();
  chapterList.chosen(2);
  EXPECT_EQ(marks.caret, Place("Ende\n"));
  EXPECT_EQ(chapterList.marked, 2U);
  EXPECT_EQ(statusBar.message, "Kapitel 3 von 3: Ende");
  EXPECT_TRUE(view.editorVisible);
  chapterList.chosen(17);
  EXPECT_EQ(chapterList.marked, 2U);
}

TEST_F(ChaptersTest, GoOnAndBackFromTheCaret) {
  Open();
  CaretAt("Vorweg");
  window.RunCommand("NextChapter");
  EXPECT_EQ(marks.caret, Place("Öl\n"));
  CaretAt("war Öl");
  window.RunCommand("PreviousChapter");
  EXPECT_EQ(marks.caret, Place("Öl\n"));
  CaretAt("Öl\n");
  window.RunCommand("PreviousChapter");
  EXPECT_EQ(statusBar.message, "Davor ist kein Kapitel.");
  CaretAt("Das war es");
  window.RunCommand("NextChapter");
  EXPECT_EQ(statusBar.message, "Das ist das letzte Kapitel.");
}

TEST_F(ChaptersTest, FindTheirPlaceAfterTheTextWasEdited) {
  Open();
  document.text = "Ein Satz davor. " + text;
  document.selectionStart = 16;
  modules.chapters.Edited(CharacterCount(document.text));
  CaretAt("ein Teil");
  EXPECT_EQ(chapterList.marked, 1U);
  chapterList.chosen(0);
  EXPECT_EQ(marks.caret, Place("Öl\n"));
}

TEST_F(ChaptersTest, FollowTheVoice) {
  Open();
  window.RunCommand("SpeakDocument");
  Hear("Vorweg");
  EXPECT_FALSE(chapterList.marked);
  Hear("Hier");
  EXPECT_EQ(chapterList.marked, 1U);
  CaretAt("Vorweg");
  EXPECT_EQ(chapterList.marked, 1U);
}

TEST_F(ChaptersTest, MoveTheVoiceWithoutRenderingAnew) {
  Open();
  window.RunCommand("SpeakDocument");
  const auto rendered = Renderings();
  Hear("Vorweg");
  window.RunCommand("NextChapter");
  EXPECT_EQ(voice.SpokenText().substr(0, 4), "Öl\n");
  EXPECT_EQ(Renderings(), rendered);
  EXPECT_EQ(marks.caret, std::nullopt);
}

}  // namespace
}  // namespace lorelin
