#include "app/browserLinks.h"

#include "app/MainWindow.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class BrowserLinksTest : public ScriptFixture {
 protected:
  // What the address is afterwards, "!" before it when the navigation is cancelled.
  std::string Follow(std::string address) {
    const bool cancelled = links.BeforeNavigate(address);
    return (cancelled ? "!" : "") + address;
  }
  int textmodes = 0;
  int opened = 0;
  int homes = 0;
  int spoken = 0;
  BrowserLinks links{{.view = view,
                      .editor = document,
                      .messageBoxes = messageBoxes,
                      .shell = shell,
                      .log = log,
                      .textmode = [this] { ++textmodes; },
                      .openDoc = [this] { ++opened; },
                      .showHomePage = [this] { ++homes; },
                      .speak = [this] { ++spoken; }}};
};

TEST_F(BrowserLinksTest, GoToTextMode) {
  EXPECT_EQ(Follow("lo:Go()"), "!lo:Go()");
  EXPECT_EQ(Follow("lo:Go(egal"), "!lo:Go(egal");
  EXPECT_EQ(textmodes, 2);
}

TEST_F(BrowserLinksTest, DoNothingWithoutAParenthesisOrWithAnotherCommand) {
  for (const auto* const link : {"lo:Go", "lo:", "lo:go()", "lo:Goo()", "lo:Stop()", "lo: Go()"}) {
    EXPECT_EQ(Follow(link), std::string("!") + link);
  }
  EXPECT_EQ(textmodes + opened + homes + spoken, 0);
}

TEST_F(BrowserLinksTest, OpenADocumentAndShowTheEditor) {
  EXPECT_EQ(Follow("lo:Open(x)"), "!lo:Open(x)");
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(view.editorVisible);
  EXPECT_FALSE(view.browserVisible);
  EXPECT_TRUE(calls.Has("view.focus"));
}

TEST_F(BrowserLinksTest, ShowAnEmptyBoxAndTheHomePage) {
  EXPECT_EQ(Follow("lo:Speak(x)"), "!lo:Speak(x)");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "");
  EXPECT_EQ(messageBoxes.boxes[0].buttons, MessageButtons::Ok);
  EXPECT_EQ(homes, 1);
}

TEST_F(BrowserLinksTest, SpeakATextWithBlanksDecodedAndNothingElse) {
  EXPECT_EQ(Follow("speak:Guten%20Morgen"), "!speak:Guten Morgen");
  EXPECT_EQ(document.text, "Guten Morgen");
  EXPECT_EQ(spoken, 1);
  EXPECT_TRUE(view.editorVisible);
  EXPECT_FALSE(view.checks.contains("mnuTextmode"));  // the check marks stay
  EXPECT_EQ(Follow("speak:Gr%C3%BC%C3%9Fe"), "!speak:Gr%C3%BC%C3%9Fe");
  EXPECT_EQ(document.text, "Gr%C3%BC%C3%9Fe");
}

TEST_F(BrowserLinksTest, LeaveOtherCapitalsAlone) {
  for (const auto* const link : {"LO:Go()", "Speak:Hallo", "Lo:Go()", "file:///home.htm", "about:blank"}) {
    EXPECT_EQ(Follow(link), link);
  }
  EXPECT_EQ(textmodes + spoken, 0);
}

TEST_F(BrowserLinksTest, SkipAStepThatFails) {
  view.focusFails = true;
  EXPECT_EQ(Follow("speak:Hallo"), "!speak:Hallo");
  EXPECT_EQ(document.text, "Hallo");
  EXPECT_EQ(spoken, 1);
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(BrowserLinksTest, OfferTheWebToTheSystemsBrowser) {
  messageBoxes.answers = {MessageAnswer::No, MessageAnswer::Yes};
  EXPECT_EQ(Follow("https://example.org/x?y=1"), "!https://example.org/x?y=1");
  EXPECT_TRUE(shell.opened.empty());
  EXPECT_EQ(Follow("HTTP://example.org/"), "!HTTP://example.org/");
  EXPECT_EQ(shell.opened, std::vector<std::string>{"HTTP://example.org/ in  as 1"});
}

}  // namespace
}  // namespace lorelin
