#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "scripts/scriptChecker.h"
#include "scripts/scriptLanguage.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

std::string Page() {
  return ReadFile(std::string(LORELIN_PAGES) + "/taskscripts.htm");
}

// What stands between the two marks, at every place of the page.
std::set<std::string> Between(const std::string& page, const std::string& before, const std::string& after) {
  std::set<std::string> found;
  for (auto at = page.find(before); at != std::string::npos; at = page.find(before, at + 1)) {
    const auto begin = at + before.size();
    found.insert(page.substr(begin, page.find(after, begin) - begin));
  }
  return found;
}

std::set<std::string> CommandsThatAct() {
  std::set<std::string> names;
  for (const auto& commands : {ScriptCommands(), TypedCommands()}) {
    for (const ScriptCommand& command : commands) names.emplace(command.name);
  }
  for (const auto* const name : {"Speichern", "Stimme", "Beenden", "Springe"}) names.erase(name);
  return names;
}

TEST(ScriptHelp, NamesEveryCommandAndVariableAndNoOther) {
  std::set<std::string> commands;
  std::set<std::string> variables;
  for (std::string name : Between(Page(), "<tr><th scope=\"row\"><code>", "</code>")) {
    if (name.starts_with('$')) {
      variables.insert(name);
    } else {
      commands.insert(name.substr(0, name.find('(')));
    }
  }
  EXPECT_EQ(commands, CommandsThatAct());
  const auto names = ScriptVariableNames();
  EXPECT_EQ(variables, std::set<std::string>(names.begin(), names.end()));
}

TEST(ScriptHelp, NamesEveryExampleAndNoOther) {
  std::set<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(LORELIN_EXAMPLES)) {
    files.insert(entry.path().stem().string());
  }
  EXPECT_EQ(Between(Page(), "<tr><th scope=\"row\"><strong>", "</strong>"), files);
}

// What is shown as a whole line can be taken as it stands.
TEST(ScriptHelp, ShowsLinesThatAreSound) {
  const std::string page = Page();
  for (const std::string& line : Between(page, "<code>", "</code>")) {
    if (!line.ends_with(");") || line == "warten(10);") continue;
    for (const ScriptFinding& finding : CheckScript(line)) {
      EXPECT_EQ(finding.kind, FindingKind::Hint) << line << ": " << finding.message;
    }
  }
}

}  // namespace
}  // namespace lorelin
