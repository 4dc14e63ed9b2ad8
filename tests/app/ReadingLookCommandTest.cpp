#include "settings/readingLook.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class ReadingLookCommand : public ScriptFixture {};

TEST_F(ReadingLookCommand, IsChosenWhileTheTextIsSeen) {
  window.RunCommand("ReadingLook");
  EXPECT_EQ(looksChosen, 1);
  EXPECT_TRUE(view.editorVisible);
}

TEST_F(ReadingLookCommand, ShowsTheTextAsItWasWhenTheProgramEnded) {
  const LookSettings look{.points = 20, .scheme = ColourScheme::Dark};
  SaveLook(settings, look);
  window.Load();
  EXPECT_EQ(lookView.shown, std::vector<ReadingLook>{LookOf(look)});
}

TEST_F(ReadingLookCommand, LeavesTheUsualAlone) {
  window.Load();
  EXPECT_TRUE(lookView.shown.empty());
}

}  // namespace
}  // namespace lorelin
