#include <wx/app.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

namespace lorelin {
namespace {

// Real clicks on links of a real page in the real pane.
class Pane : public FormFixture {
 protected:
  static constexpr int kHeight = 40;

  void ShowLinks(const std::vector<std::string>& links) {
    std::string page =
        "<!DOCTYPE html><html lang=\"de\"><head><meta "
        "charset=\"utf-8\"><style>body{margin:0}a{display:block;height:" +
        std::to_string(kHeight) + "px}</style><title>Verweise</title></head><body>";
    for (const std::string& link : links) page += "<a href=\"" + link + "\">" + link + "</a>";
    WriteFile(folder.File("hypertext/home.htm"), page + "</body></html>");
    window.Load();
    form.Browser().OnNavigate([this](std::string& address) {
      followed.push_back(address);
      return modules.links.BeforeNavigate(address);
    });
    // The page comes from another process; it is there when a click on its first link arrives.
    ASSERT_TRUE(WaitUntil([this] {
      Click(0);
      return !followed.empty();
    }));
    for (int i = 0; i < 10; ++i) pump.WaitForEvents();
    followed.clear();
  }

  void Click(int link) {
    window.InteractiveMode();
    wxUIActionSimulator simulator;
    simulator.MouseMove(form.Browser().ClientToScreen(wxPoint(20, link * kHeight + kHeight / 2)));
    simulator.MouseClick();
    for (int i = 0; i < 8; ++i) pump.WaitForEvents();
  }
  // What a click on the link hands over.
  std::string Follow(int link) {
    followed.clear();
    Click(link);
    if (!WaitUntil([this] { return !followed.empty(); })) return "(nichts)";
    return followed.front();
  }

  std::vector<std::string> followed;
};

TEST_F(Pane, MakesNoViewForAPageThatIsNotSeen) {
  WriteFile(folder.File("brief.txt"), "Lieber Leser");
  spoken.startup.startupFilePath = folder.File("brief.txt");
  window.Load();
  EXPECT_EQ(form.Editor().Text(), "Lieber Leser");
  EXPECT_TRUE(form.Browser().GetChildren().empty());
  window.InteractiveMode();
  EXPECT_FALSE(form.Browser().GetChildren().empty());
}

TEST_F(Pane, MakesNoViewForAStartInTextMode) {
  window.Textmode();
  EXPECT_TRUE(form.Editor().IsShown());
  EXPECT_TRUE(form.Browser().GetChildren().empty());
  window.InteractiveMode();
  EXPECT_FALSE(form.Browser().GetChildren().empty());
}

// The page comes from a process that has to be started first.
TEST_F(Pane, DoesNotWaitForThePage) {
  bool waited = false;
  wxTheApp->CallAfter([&] { waited = true; });
  window.InteractiveMode();
  EXPECT_FALSE(form.Browser().GetChildren().empty());
  EXPECT_FALSE(waited);
  EXPECT_TRUE(WaitUntil([&] { return waited; }));
}

TEST_F(Pane, HandsOverLinksAsTheyStandInThePage) {
  messageBoxes.answers = {MessageAnswer::Ok};
  ShowLinks({"lo:Nichts", "lo:Go()", "lo:Go", "lo:Open(x)", "lo:Speak(x)", "speak:Guten%20Morgen",
             "speak:Gr%C3%BC%C3%9Fe", "speak:Grüße", "LO:Go()", "Speak:Hallo"});
  EXPECT_EQ(Follow(1), "lo:Go()");
  EXPECT_TRUE(form.Editor().IsShown());
  EXPECT_EQ(Follow(2), "lo:Go");
  EXPECT_TRUE(form.Browser().IsShown());
  EXPECT_EQ(Follow(3), "lo:Open(x)");
  EXPECT_EQ(fileDialogs.requests.size(), 1U);
  EXPECT_EQ(Follow(5), "speak:Guten%20Morgen");
  EXPECT_EQ(form.Editor().Text(), "Guten Morgen");
  EXPECT_EQ(Follow(6), "speak:Gr%C3%BC%C3%9Fe");
  EXPECT_EQ(form.Editor().Text(), "Gr%C3%BC%C3%9Fe");
  EXPECT_EQ(Follow(7), "speak:Grüße");
  EXPECT_EQ(form.Editor().Text(), "Grüße");
  EXPECT_EQ(Follow(8), "LO:Go()");
  EXPECT_TRUE(form.Browser().IsShown());
  EXPECT_EQ(Follow(9), "Speak:Hallo");
  EXPECT_EQ(form.Editor().Text(), "Grüße");
  EXPECT_EQ(Follow(4), "lo:Speak(x)");
  ASSERT_FALSE(messageBoxes.boxes.empty());
  EXPECT_EQ(messageBoxes.boxes.back().text, "");
}

TEST_F(Pane, IsSearchedAndCopiedInPlaceOfTheHiddenDocument) {
  form.Editor().SetText("Giraffe");
  ShowLinks({"lo:Nichts", "lo:Zweiter"});
  Choose("Bearbeiten", "Suchen …");
  wxWindow& dialog = *wxWindow::FindWindowByName("frmFind", &form);
  const auto find = [&](const char* text) {
    FindControl<wxTextCtrl>(dialog, "txtWanted").SetValue(text);
    PressButton(dialog, "Weitersuchen");
    return FromWx(FindControl<wxStaticText>(dialog, "lblResult").GetLabel());
  };
  EXPECT_EQ(find("lo:zweiter"), " ");
  EXPECT_EQ(find("Giraffe"), "Nicht gefunden.");
  dialog.Hide();
  clipboard.SetText("alt");
  Choose("Bearbeiten", "Alles markieren");
  Choose("Bearbeiten", "Kopieren");
  EXPECT_TRUE(WaitUntil([this] { return clipboard.Text().find("lo:Zweiter") != std::string::npos; }))
      << clipboard.Text();
  Choose("Bearbeiten", "Ausschneiden");
  Choose("Bearbeiten", "Löschen");
  EXPECT_EQ(form.Editor().Text(), "Giraffe");
}

TEST_F(Pane, TakesFilesThatAreDroppedOnIt) {
  ShowLinks({"lo:Nichts"});
  ASSERT_FALSE(form.Browser().GetChildren().empty());
  for (wxWindow* const window :
       std::initializer_list<wxWindow*>{&form, form.GetToolBar(), form.GetStatusBar(), &form.Browser(),
                                        form.Browser().GetChildren().front(), &form.Editor()}) {
    EXPECT_NE(window->GetDropTarget(), nullptr) << FromWx(window->GetName());
  }
}

TEST_F(Pane, OffersTheWebToTheSystemsBrowser) {
  ShowLinks({"lo:Nichts", "https://example.org/seite"});
  messageBoxes.answers = {MessageAnswer::Yes};
  EXPECT_EQ(Follow(1), "https://example.org/seite");
  EXPECT_EQ(shell.opened, std::vector<std::string>{"https://example.org/seite in  as 1"});
  EXPECT_TRUE(form.Browser().IsShown());
}

}  // namespace
}  // namespace lorelin
