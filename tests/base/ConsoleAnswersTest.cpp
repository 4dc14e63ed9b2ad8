#include "base/consoleAnswers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/version.h"

namespace lorelin {
namespace {

// What a program answers that was started with these arguments, without it when it starts as usual.
std::string AnswerTo(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "lorelin");
  testing::internal::CaptureStdout();
  const bool answered =
      AnswerOnConsole(static_cast<int>(arguments.size()), arguments.data(), "so wird es benutzt\n");
  const std::string output = testing::internal::GetCapturedStdout();
  EXPECT_EQ(answered, !output.empty());
  return output;
}

TEST(ConsoleAnswers, TellHowTheProgramIsUsed) {
  EXPECT_EQ(AnswerTo({"--help"}), "so wird es benutzt\n");
}

TEST(ConsoleAnswers, TellTheVersion) {
  EXPECT_EQ(AnswerTo({"--version"}), std::string("Lorelin ") + kVersionText + "\n");
}

TEST(ConsoleAnswers, LeaveEverythingElseToTheProgram) {
  EXPECT_EQ(AnswerTo({}), "");
  EXPECT_EQ(AnswerTo({"--auswahl"}), "");
  EXPECT_EQ(AnswerTo({"brief.txt", "--version"}), "");
}

}  // namespace
}  // namespace lorelin
