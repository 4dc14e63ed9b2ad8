#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "base/RuntimeError.h"
#include "platform/linux/SpawnLauncher.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

class Launcher : public testing::Test {
 protected:
  std::string Script(const std::string& name, std::string_view text) {
    const std::string path = folder.File(name);
    WriteFile(path, text);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path;
  }
  // What the started program leaves in the file; "" after ten seconds.
  std::string Result(const std::string& name) {
    for (int i = 0; i < 1000 && !std::filesystem::exists(folder.File(name)); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return std::filesystem::exists(folder.File(name)) ? ReadFile(folder.File(name)) : "";
  }
  std::int32_t Refusal(const std::vector<std::string>& arguments) {
    try {
      launcher.Start(arguments);
      return 0;
    } catch (const RuntimeError& error) {
      return error.Number();
    }
  }

  TemporaryFolder folder;
  SpawnLauncher launcher;
};

TEST_F(Launcher, PassesArgumentsAsTheyStand) {
  const std::string program =
      Script("mein programm", "#!/bin/sh\nprintf '[%s]' \"$@\" >\"$0.neu\"\nmv \"$0.neu\" \"$0.aus\"\n");
  launcher.Start({program, "zwei Worte", "$HOME", "`ls`", "a;b", "\"", "ä"});
  EXPECT_EQ(Result("mein programm.aus"), "[zwei Worte][$HOME][`ls`][a;b][\"][ä]");
}

TEST_F(Launcher, LooksInTheSearchPath) {
  launcher.Start({"touch", folder.File("da")});
  EXPECT_TRUE(Result("da").empty());
  EXPECT_TRUE(std::filesystem::exists(folder.File("da")));
}

TEST_F(Launcher, RefusesWhatIsNoProgram) {
  WriteFile(folder.File("text.txt"), "kein Programm");
  EXPECT_EQ(Refusal({}), 5);
  EXPECT_EQ(Refusal({""}), 5);
  EXPECT_EQ(Refusal({"gibt-es-nicht-lorelin"}), 53);
  EXPECT_EQ(Refusal({folder.File("fehlt")}), 53);
  EXPECT_EQ(Refusal({folder.File("text.txt")}), 70);
  EXPECT_EQ(Refusal({folder.Path()}), 70);
}

TEST_F(Launcher, LeavesNoChildToWaitFor) {
  launcher.Start({"true"});
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

}  // namespace
}  // namespace lorelin
