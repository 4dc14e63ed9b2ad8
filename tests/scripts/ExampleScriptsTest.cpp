#include <cctype>
#include <filesystem>

#include "base/textEncoding.h"
#include "scripts/scriptChecker.h"
#include "scripts/scriptLanguage.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

std::vector<std::string> Examples() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(LORELIN_EXAMPLES))
    names.push_back(entry.path().string());
  return names;
}

TEST(ExampleScripts, AreAtLeastEight) {
  EXPECT_GE(Examples().size(), 8U);
}

TEST(ExampleScripts, AreFreeOfErrors) {
  for (const std::string& name : Examples()) {
    for (const ScriptFinding& finding : CheckScript(DecodeText(ReadFile(name)))) {
      EXPECT_EQ(finding.kind, FindingKind::Hint) << name << ":" << finding.line << " " << finding.message;
    }
  }
}

TEST(ExampleScripts, AreStoredInSingleBytes) {
  for (const std::string& name : Examples()) {
    const std::string bytes = ReadFile(name);
    EXPECT_EQ(EncodeText(DecodeText(bytes)), bytes) << name;
  }
}

TEST(ExampleScripts, SayInTheirFirstLineWhatTheyAre) {
  for (const std::string& name : Examples()) EXPECT_TRUE(ReadFile(name).starts_with("# ")) << name;
}

class RunningExamples : public ScriptFixture, public testing::WithParamInterface<std::string> {};

// Each of them gets what it waits for, and is ended when it repeats itself.
TEST_P(RunningExamples, RunWithoutAnError) {
  document.text = "Ein Text, z. B. dieser.";
  document.selectionBytes = 3;
  clipboard.text = "kopiert";
  document.files["nachrichten.txt"] = "Nachrichten";
  fileSearch.names = {"nachrichten.txt"};
  clock.now = {.year = 2026, .month = 12, .day = 24, .hour = 11, .minute = 59, .second = 50};
  WriteFile(folder.File("nachrichten.txt"), "");
  int turns = 0;
  pump.onTurn = [&] {
    voice.Finish();
    if (++turns % 2 == 0 && ++clock.now.second == 60) {
      clock.now.second = 0;
      if (++clock.now.minute == 60) clock.now = {.hour = clock.now.hour + 1};
    }
    if (turns > 3000) interpreter.Cancel();
  };
  int boxes = 0;
  messageBoxes.onShow = [&] {
    EXPECT_EQ(messageBoxes.boxes.back().title, "Lorelin") << messageBoxes.boxes.back().text;
    if (++boxes > 3) interpreter.Cancel();
  };
  WriteScript("beispiel.vts", ReadFile(GetParam()));
  interpreter.SetCurrentScriptFile("beispiel.vts");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  interpreter.ExecuteSkript(1);
  std::filesystem::current_path(before);
  EXPECT_EQ(interpreter.LastErrors(), 0);
  EXPECT_TRUE(!voice.SpokenText().empty() || document.text != "Ein Text, z. B. dieser.");
}

INSTANTIATE_TEST_SUITE_P(Scripts, RunningExamples, testing::ValuesIn(Examples()), [](const auto& info) {
  std::string name = std::filesystem::path(info.param).stem().string();
  std::erase_if(name, [](unsigned char c) { return std::isalnum(c) == 0 || c >= 0x80; });
  return name;
});

}  // namespace
}  // namespace lorelin
