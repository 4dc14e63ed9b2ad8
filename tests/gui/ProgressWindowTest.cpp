#include "desktop/toolkit/WxProgressWindow.h"

#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

class ProgressWindowTest : public FormFixture {};

TEST_F(ProgressWindowTest, GivesTheFocusBackToTheDocument) {
  window.Load();
  window.Textmode();
  ASSERT_TRUE(WaitUntil([this] { return form.Editor().HasFocus(); }));
  WxProgressWindow progress;
  EXPECT_TRUE(progress.Show("Die Sprachausgabe wird gespeichert …", 0.5));
  ASSERT_TRUE(WaitUntil([this] { return !form.Editor().HasFocus(); }));
  progress.Close();
  EXPECT_TRUE(WaitUntil([this] { return form.Editor().HasFocus(); }));
}

}  // namespace
}  // namespace lorelin
