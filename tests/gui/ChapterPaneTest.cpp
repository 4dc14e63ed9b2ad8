#include <wx/listbox.h>

#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

class ChapterPaneTest : public FormFixture {
 protected:
  ChapterPaneTest() {
    WriteFile(folder.File("buch.rtf"),
              "{\\rtf1 \\outlinelevel0 Eins\\par\\pard Es war einmal.\\par\\outlinelevel1 Zwei\\par\\pard "
              "Ende.\\par}");
    window.Load();
    modules.opening.Open(folder.File("buch.rtf"));
    Settle();
  }
  void Settle() {
    for (int i = 0; i < 10; ++i) pump.WaitForEvents();
  }
  wxListBox& List() { return *dynamic_cast<wxListBox*>(wxWindow::FindWindowByName("lstChapters", &form)); }
};

TEST_F(ChapterPaneTest, ListsTheHeadingsOfTheDocument) {
  ASSERT_EQ(List().GetCount(), 2U);
  EXPECT_EQ(List().GetString(0), "Eins");
  EXPECT_EQ(List().GetString(1), "   Zwei");
  EXPECT_TRUE(List().IsShownOnScreen());
}

TEST_F(ChapterPaneTest, GoesToTheChosenOne) {
  List().SetSelection(1);
  List().SetFocus();
  wxKeyEvent enter(wxEVT_KEY_DOWN);
  enter.m_keyCode = WXK_RETURN;
  List().GetEventHandler()->ProcessEvent(enter);
  Settle();
  EXPECT_EQ(form.Editor().SelectionStart(), 20U);
  EXPECT_EQ(form.Message(), "Kapitel 2 von 2: Zwei");
}

TEST_F(ChapterPaneTest, FoldsUpAndGoesWithTheDocument) {
  wxWindow* const heading = List().GetPrevSibling();
  wxCommandEvent click(wxEVT_BUTTON, heading->GetId());
  click.SetEventObject(heading);
  heading->GetEventHandler()->ProcessEvent(click);
  EXPECT_FALSE(List().IsShown());
  heading->GetEventHandler()->ProcessEvent(click);
  EXPECT_TRUE(List().IsShown());
  document.SetText("etwas anderes");
  Settle();
  EXPECT_FALSE(List().IsShownOnScreen());
}

TEST_F(ChapterPaneTest, KeepsTheHeadingsInWhatIsSaved) {
#ifdef __WXMSW__
  GTEST_SKIP() << "RichEdit knows no headings";
#endif
  const std::string rtf = form.Editor().RichText();
  EXPECT_NE(rtf.find("\\outlinelevel1"), std::string::npos);
}

}  // namespace
}  // namespace lorelin
