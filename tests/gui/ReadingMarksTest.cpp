#include <wx/uiaction.h>

#include "tests/gui/FormFixture.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace lorelin {
namespace {

#ifdef __WXGTK__

// What is read is marked in the real editor.
class ReadingMarksTest : public FormFixture {
 protected:
  ReadingMarksTest() { window.Textmode(); }

  GtkTextBuffer* Buffer() {
    GtkWidget* const scrolled = static_cast<GtkWidget*>(form.Editor().GetHandle());
    return gtk_text_view_get_buffer(GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(scrolled))));
  }
  // The text that is marked, places apart by "|".
  std::string Marked(const char* name) {
    GtkTextTag* const tag = gtk_text_tag_table_lookup(gtk_text_buffer_get_tag_table(Buffer()), name);
    std::string marked;
    GtkTextIter at;
    gtk_text_buffer_get_start_iter(Buffer(), &at);
    while (gtk_text_iter_has_tag(&at, tag) != FALSE ||
           gtk_text_iter_forward_to_tag_toggle(&at, tag) != FALSE) {
      GtkTextIter end = at;
      if (gtk_text_iter_forward_to_tag_toggle(&end, tag) == FALSE) break;
      gchar* const text = gtk_text_iter_get_text(&at, &end);
      marked += (marked.empty() ? "" : "|") + std::string(text);
      g_free(text);
      at = end;
    }
    return marked;
  }
  std::string Word() { return Marked("lorelin-read-word"); }
  std::string Sentence() { return Marked("lorelin-read-sentence"); }
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
  GtkClipboard* const clipboardOfGtk = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
  form.Editor().SetSelection(6, 9);
  gtk_text_buffer_copy_clipboard(Buffer(), clipboardOfGtk);
  form.Editor().SetInsertionPointEnd();
  gtk_text_buffer_paste_clipboard(Buffer(), clipboardOfGtk, nullptr, TRUE);
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
  document.SetText("Guten Tag.");
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
  form.Show();
  ASSERT_TRUE(WaitUntil([this] { return form.IsActive(); }));
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

#endif

}  // namespace
}  // namespace lorelin
