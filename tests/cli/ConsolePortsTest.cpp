#include "cli/consolePorts.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// What `work` writes to standard error.
template <typename Work>
std::string ErrorOutput(const Work& work) {
  testing::internal::CaptureStderr();
  work();
  return testing::internal::GetCapturedStderr();
}

TEST(ConsoleMessageBoxes, PrintAndAnswerByThemselves) {
  ConsoleMessageBoxes boxes(MessageAnswer::Yes);
  MessageAnswer answer{};
  EXPECT_EQ(ErrorOutput([&] {
              answer = boxes.Show("Weiter?", "Frage", MessageIcon::Question, MessageButtons::YesNo);
            }),
            "Frage: Weiter?\n");
  EXPECT_EQ(answer, MessageAnswer::Yes);
  ErrorOutput([&] { answer = boxes.Show("So.", "Hinweis", MessageIcon::Information, MessageButtons::Ok); });
  EXPECT_EQ(answer, MessageAnswer::Ok);
}

TEST(ConsoleMessageBoxes, AnswerNoWhenTheyAreTold) {
  ConsoleMessageBoxes boxes(MessageAnswer::No);
  MessageAnswer answer{};
  ErrorOutput(
      [&] { answer = boxes.Show("Weiter?", "Fehler", MessageIcon::Critical, MessageButtons::YesNo); });
  EXPECT_EQ(answer, MessageAnswer::No);
  ErrorOutput([&] { answer = boxes.Show("So.", "Lorelin", MessageIcon::None, MessageButtons::Ok); });
  EXPECT_EQ(answer, MessageAnswer::Ok);
}

TEST(ConsoleStatusBar, PrintsOnlyWhenWantedAndKeepsTheLastMessage) {
  ConsoleStatusBar quiet(false);
  EXPECT_EQ(ErrorOutput([&] { quiet.SetMessage("Bereit"); }), "");
  EXPECT_EQ(quiet.Message(), "Bereit");
  ConsoleStatusBar loud(true);
  EXPECT_EQ(ErrorOutput([&] { loud.SetMessage("Bereit"); }), "Bereit\n");
}

TEST(ConsoleDocument, HoldsTheTextOfAFileAndKeepsItWhenAnotherCannotBeRead) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a.txt"), "Text\r\n");
  ConsoleDocument document;
  document.LoadFile(folder.File("a.txt"));
  EXPECT_EQ(document.Text(), "Text\n");
  EXPECT_THROW(document.LoadFile(folder.File("fehlt")), RuntimeError);
  EXPECT_EQ(document.Text(), "Text\n");
}

}  // namespace
}  // namespace lorelin
