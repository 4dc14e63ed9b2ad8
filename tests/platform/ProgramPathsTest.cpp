#include "ports/ProgramPaths.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <map>

#include "platform/linux/SystemFacts.h"
#include "speech/Pronunciations.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// A system-wide installation below "usr" and a user's home beside it.
class ProgramFolders : public testing::Test {
 protected:
  ProgramFolders() {
    WriteFile(folder.File("usr/share/lorelin/hypertext/home.htm"), "Start");
    WriteFile(folder.File("usr/share/lorelin/hypertext/bilder/a.svg"), "Bild");
    fs::create_directories(folder.File("home"));
  }

  ProgramPaths Choose() {
    return ChooseProgramPaths({.executable = executable,
                               .home = folder.File("home"),
                               .temporaryFolder = folder.File("tmp"),
                               .environment = [&](const char* name) { return variables[name]; }});
  }
  // A place where no folder can be made, for the superuser neither.
  std::string Blocked() {
    WriteFile(folder.File("versperrt"), "");
    return folder.File("versperrt/x");
  }

  TemporaryFolder folder;
  std::string executable = folder.File("usr/bin/lorelin");
  std::map<std::string, fs::path> variables;
};

TEST_F(ProgramFolders, OfAnInstallationLieBelowTheUsersHome) {
  const ProgramPaths paths = Choose();
  EXPECT_EQ(paths.programFolder, folder.File("home/.local/share/lorelin"));
  EXPECT_EQ(paths.programFile, executable);
  EXPECT_EQ(paths.engineFile, folder.File("usr/bin/lorelin-engine"));
  EXPECT_EQ(paths.registryFile, folder.File("home/.config/lorelin/registry.sqlite"));
  EXPECT_EQ(paths.settingsFolder, folder.File("home/.config/lorelin"));
  EXPECT_EQ(paths.lockFile, folder.File("home/.config/lorelin/lorelin.lock"));
  EXPECT_EQ(paths.logFile, folder.File("home/.local/state/lorelin/lorelin.log"));
  EXPECT_EQ(paths.cacheFolder, folder.File("home/.cache/lorelin"));
}

TEST_F(ProgramFolders, AreThoseThatThePageOnPrivateThingsTells) {
  const ProgramPaths paths = Choose();
  const std::string page = ReadFile(LORELIN_BIN_DIR "/hypertext/privates.htm");
  for (const std::string& path :
       {paths.registryFile, paths.settingsFolder + "/reading-places",
        paths.settingsFolder + "/" + std::string(Pronunciations::kWordsFile),
        paths.settingsFolder + "/" + std::string(Pronunciations::kRulesFile),
        paths.programFolder + "/recovery", paths.programFolder + "/temp", paths.programFolder + "/scripts",
        paths.programFolder + "/voices", paths.scriptLogFile, paths.logFile, paths.cacheFolder}) {
    const std::string told = "<code>~" + path.substr(folder.File("home").size()) + "</code>";
    EXPECT_NE(page.find(told), std::string::npos) << told;
  }
}

TEST_F(ProgramFolders, FollowTheEnvironment) {
  variables = {{"XDG_DATA_HOME", folder.File("d")}, {"XDG_CONFIG_HOME", folder.File("c")}};
  const ProgramPaths paths = Choose();
  EXPECT_EQ(paths.programFolder, folder.File("d/lorelin"));
  EXPECT_EQ(paths.registryFile, folder.File("c/lorelin/registry.sqlite"));
}

TEST_F(ProgramFolders, DoNotFollowARelativeVariable) {
  variables = {{"XDG_DATA_HOME", "daten"}};
  EXPECT_EQ(Choose().programFolder, folder.File("home/.local/share/lorelin"));
}

TEST_F(ProgramFolders, AreSeededWithEveryPage) {
  const std::string program = Choose().programFolder;
  EXPECT_EQ(ReadFile(program + "/hypertext/home.htm"), "Start");
  EXPECT_EQ(ReadFile(program + "/hypertext/bilder/a.svg"), "Bild");
}

TEST_F(ProgramFolders, GetMissingPagesBackAndKeepChangedOnes) {
  const std::string program = Choose().programFolder;
  WriteFile(program + "/hypertext/home.htm", "meine");
  fs::remove(program + "/hypertext/bilder/a.svg");
  (void)Choose();
  EXPECT_EQ(ReadFile(program + "/hypertext/home.htm"), "meine");
  EXPECT_EQ(ReadFile(program + "/hypertext/bilder/a.svg"), "Bild");
}

TEST_F(ProgramFolders, OfAnUnpackedArchiveAreItsOwn) {
  WriteFile(folder.File("archiv/hypertext/home.htm"), "Start");
  executable = folder.File("archiv/lorelin");
  const ProgramPaths paths = Choose();
  EXPECT_EQ(paths.programFolder, folder.File("archiv"));
  EXPECT_FALSE(fs::exists(folder.File("home/.local/share/lorelin")));
}

TEST_F(ProgramFolders, LieTogetherWhereAPersonWantsThem) {
  WriteFile(folder.File("archiv/hypertext/home.htm"), "Start");
  executable = folder.File("archiv/lorelin");
  variables = {{"LORELIN_HOME", folder.File("stick/x/../lorelin/")}, {"XDG_CONFIG_HOME", folder.File("c")}};
  const ProgramPaths paths = Choose();
  EXPECT_EQ(paths.programFolder, folder.File("stick/lorelin"));
  EXPECT_EQ(paths.registryFile, folder.File("stick/lorelin/registry.sqlite"));
  EXPECT_EQ(paths.logFile, folder.File("stick/lorelin/lorelin.log"));
  EXPECT_EQ(ReadFile(folder.File("stick/lorelin/hypertext/home.htm")), "Start");
}

TEST_F(ProgramFolders, AreClosedToOthersWhenTheyAreTheProgramsOwn) {
  const auto permissionsOf = [&](const std::string& name) {
    variables = {{"LORELIN_HOME", folder.File(name)}};
    (void)Choose();
    return fs::status(folder.File(name)).permissions();
  };
  const auto open = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec;
  const auto make = [&](const std::string& name, fs::perms permissions) {
    fs::create_directories(folder.File(name));
    fs::permissions(folder.File(name), permissions);
  };
  make("leer", open);
  EXPECT_EQ(permissionsOf("leer"), fs::perms::owner_all);
  make("benutzt", open);
  WriteFile(folder.File("benutzt/registry.sqlite"), "");
  EXPECT_EQ(permissionsOf("benutzt"), fs::perms::owner_all);
  make("fremd", open);
  WriteFile(folder.File("fremd/brief.txt"), "");
  EXPECT_EQ(permissionsOf("fremd"), open);
  make("alle", fs::perms::all | fs::perms::sticky_bit);
  EXPECT_EQ(permissionsOf("alle"), fs::perms::all | fs::perms::sticky_bit);
}

TEST_F(ProgramFolders, GiveWayToOneOfTheSessionWhereNothingCanBeWritten) {
  fs::create_directories(folder.File("run"));
  variables = {{"XDG_DATA_HOME", Blocked()}, {"XDG_RUNTIME_DIR", folder.File("run")}};
  const std::string program = Choose().programFolder;
  EXPECT_EQ(program, folder.File("run/lorelin-" + std::to_string(geteuid())));
  EXPECT_EQ(ReadFile(program + "/hypertext/home.htm"), "Start");
}

TEST_F(ProgramFolders, GiveWayToAPrivateTemporaryOneWithoutASession) {
  variables = {{"XDG_DATA_HOME", Blocked()}};
  const std::string program = Choose().programFolder;
  EXPECT_EQ(program, folder.File("tmp/lorelin-" + std::to_string(geteuid())));
  EXPECT_EQ(fs::status(program).permissions(), fs::perms::owner_all);
}

TEST_F(ProgramFolders, NeverTrustATemporaryFolderThatOthersCanWrite) {
  const std::string planted = folder.File("tmp/lorelin-" + std::to_string(geteuid()));
  fs::create_directories(planted);
  fs::permissions(planted, fs::perms::all);
  variables = {{"XDG_DATA_HOME", Blocked()}};
  EXPECT_EQ(Choose().programFolder, Blocked() + "/lorelin");
  fs::remove(planted);
  fs::create_directory_symlink(folder.File("home"), planted);
  EXPECT_EQ(Choose().programFolder, Blocked() + "/lorelin");
}

}  // namespace
}  // namespace lorelin
