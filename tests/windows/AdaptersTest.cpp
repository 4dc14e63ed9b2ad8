#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "platform/common/AtomicFileWriter.h"
#include "platform/common/DirectorySearch.h"
#include "platform/common/caseFold.h"
#include "platform/windows/AdvapiRegistry.h"
#include "platform/windows/CreateProcessLauncher.h"
#include "platform/windows/ExplorerShell.h"
#include "platform/windows/MutexSingleInstance.h"
#include "platform/windows/User32ForegroundWindow.h"
#include "platform/windows/executable.h"
#include "platform/windows/wideText.h"
#include "ports/ProgramPaths.h"
#include "tests/support/FakePorts.h"
#include "tests/support/RegistryContract.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// A key of its own in the real registry, which goes with the object.
class ScratchRegistry final : public Registry {
 public:
  ~ScratchRegistry() override {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
      RegDeleteTreeW(root, L"Software\\LorelinTest");
  }
  bool CreateKey(RegistryHive hive, std::string_view path) override {
    return registry_.CreateKey(hive, Below(path));
  }
  bool KeyExists(RegistryHive hive, std::string_view path) override {
    return registry_.KeyExists(hive, Below(path));
  }
  bool DeleteKey(RegistryHive hive, std::string_view path) override {
    return registry_.DeleteKey(hive, Below(path));
  }
  std::optional<std::vector<std::string>> SubkeyNames(RegistryHive hive, std::string_view path) override {
    return registry_.SubkeyNames(hive, Below(path));
  }
  std::optional<std::vector<std::string>> ValueNames(RegistryHive hive, std::string_view path) override {
    return registry_.ValueNames(hive, Below(path));
  }
  std::optional<RegistryValue> ReadValue(RegistryHive hive, std::string_view path,
                                         std::string_view name) override {
    return registry_.ReadValue(hive, Below(path), name);
  }
  bool WriteValue(RegistryHive hive, std::string_view path, std::string_view name,
                  const RegistryValue& value) override {
    return registry_.WriteValue(hive, Below(path), name, value);
  }
  bool DeleteValue(RegistryHive hive, std::string_view path, std::string_view name) override {
    return registry_.DeleteValue(hive, Below(path), name);
  }

 private:
  static std::string Below(std::string_view path) { return "Software\\LorelinTest\\" + std::string(path); }

  FakeLog log_;
  AdvapiRegistry registry_{log_};
};

std::unique_ptr<Registry> MakeScratch() {
  return std::make_unique<ScratchRegistry>();
}

INSTANTIATE_TEST_SUITE_P(Windows, RegistryContract, testing::Values(&MakeScratch));

TEST(AdvapiRegistry, TellsWhetherAClassHasChanged) {
  FakeLog log;
  const RegistryValue value{RegistryType::String, "vtsfile"};
  {
    AdvapiRegistry registry(log);
    EXPECT_TRUE(registry.WriteValue(RegistryHive::ClassesRoot, ".lorelintest", "", value));
    EXPECT_TRUE(registry.ClassesChanged());
  }
  AdvapiRegistry registry(log);
  EXPECT_TRUE(registry.WriteValue(RegistryHive::ClassesRoot, ".lorelintest", "", value));
  EXPECT_FALSE(registry.ClassesChanged());
  EXPECT_TRUE(registry.DeleteKey(RegistryHive::ClassesRoot, ".lorelintest"));
}

TEST(AdvapiRegistry, NotesARefusalInTheLog) {
  FakeLog log;
  AdvapiRegistry registry(log);
  EXPECT_FALSE(registry.WriteValue(RegistryHive::CurrentUser, std::string(300, 'x'), "", MakeDoubleWord(1)));
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST(WideText, GoesThereAndBack) {
  const std::string text = "Grüße – 10 € ♥ 😀";
  EXPECT_EQ(Utf8(Wide(text)), text);
  EXPECT_EQ(Utf8(Wide("a\xFFz")), "a\xEF\xBF\xBDz");
  EXPECT_EQ(Wide(std::string_view("a\0b", 3)).size(), 3U);
  EXPECT_EQ(FromSystemCodePage(SystemCodePage("Grüße")), "Grüße");
}

TEST(CaseFold, ComparesAsTheRegistryDoes) {
  EXPECT_EQ(FoldCase("Übung"), FoldCase("üBUNG"));
  EXPECT_EQ(FoldCase("привет"), FoldCase("ПРИВЕТ"));
  EXPECT_NE(FoldCase("Straße"), FoldCase("STRASSE"));
}

class FileWriterTest : public testing::Test {
 protected:
  std::int32_t Refusal(const std::string& path) {
    try {
      writer.Replace(path, "neu");
      return 0;
    } catch (const RuntimeError& error) {
      return error.Number();
    }
  }
  std::size_t FilesInFolder() {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()));
  }

  TemporaryFolder folder;
  AtomicFileWriter writer;
};

TEST_F(FileWriterTest, CreatesAndReplacesUnderAnyName) {
  const std::string file = folder.File("Grüße ♥.txt");
  const std::string bytes("a\0b\r\n\xFF", 6);
  writer.Replace(file, "alt");
  writer.Replace(file, bytes);
  EXPECT_EQ(ReadFileBytes(file), bytes);
  EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(FileWriterTest, LeavesWhatItMayNotWriteAsItWas) {
  const std::string file = folder.File("a.txt");
  WriteFile(file, "alt");
  SetFileAttributesW(Wide(file).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Refusal(file), 70);
  SetFileAttributesW(Wide(file).c_str(), FILE_ATTRIBUTE_NORMAL);
  const HANDLE held = CreateFileW(Wide(file).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(Refusal(file), 70);
  CloseHandle(held);
  EXPECT_EQ(Refusal(folder.File("fehlt/a.txt")), 76);
  EXPECT_EQ(Refusal(folder.Path()), 75);
  EXPECT_EQ(ReadFileBytes(file), "alt");
  EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(FileWriterTest, CopiesAndMayBeStopped) {
  WriteFile(folder.File("von"), std::string(9 << 20, 'x'));
  EXPECT_TRUE(writer.Copy(folder.File("von"), folder.File("nach"), [](double) { return true; }));
  EXPECT_EQ(fs::file_size(folder.File("nach")), 9U << 20);
  EXPECT_FALSE(writer.Copy(folder.File("von"), folder.File("nie"), [](double) { return false; }));
  EXPECT_EQ(FilesInFolder(), 2U);
}

TEST(DirectorySearch, ComparesNamesWithoutCase) {
  const TemporaryFolder folder;
  AtomicFileWriter writer;
  writer.Replace(folder.File("ÜBUNG.VTS"), "");
  writer.Replace(folder.File("b.txt"), "");
  DirectorySearch search(&FoldCase);
  std::string pattern = folder.File("ü*.vts");
  std::replace(pattern.begin(), pattern.end(), '/', '\\');
  EXPECT_EQ(search.FilesMatching(pattern), std::vector<std::string>{"ÜBUNG.VTS"});
  EXPECT_EQ(search.FilesMatching(folder.File("*.*")).size(), 2U);
}

// This program under its other names.
class OtherProgram : public testing::Test {
 protected:
  // A file that is there may not be readable yet: who renames it still holds it.
  std::string Result(const std::string& name) {
    for (int i = 0; i < 2000; ++i) {
      const std::string text = fs::exists(folder.File(name)) ? ReadFile(folder.File(name)) : std::string();
      if (!text.empty()) return text;
      Sleep(10);
    }
    return "(nichts)";
  }
  HANDLE StartRaw(const std::string& line) {
    std::wstring wide = Wide('"' + program + "\" " + line);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, wide.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process) == FALSE) {
      return nullptr;
    }
    CloseHandle(process.hThread);
    return process.hProcess;
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
  std::string program = PathText(ExecutableFile());
  CreateProcessLauncher launcher;
};

TEST_F(OtherProgram, GetsArgumentsAsTheyStand) {
  launcher.Start({program, "--arguments", folder.File("aus"), "zwei Worte", "%PATH%", "a&b|c", "\"", "ä♥", "",
                  "ende\\", "a\\\"b c\\"});
  EXPECT_EQ(Result("aus"), "[zwei Worte][%PATH%][a&b|c][\"][ä♥][][ende\\][a\\\"b c\\]");
}

TEST_F(OtherProgram, IsFoundInTheSearchPath) {
  EXPECT_EQ(Refusal({"cmd", "/c", "exit"}), 0);
}

TEST_F(OtherProgram, IsRefusedWhenItIsNone) {
  WriteFile(folder.File("text.txt"), "kein Programm");
  WriteFile(folder.File("stapel.bat"), "@echo off\r\n");
  EXPECT_EQ(Refusal({}), 5);
  EXPECT_EQ(Refusal({""}), 5);
  EXPECT_EQ(Refusal({"gibt-es-nicht-lorelin"}), 53);
  EXPECT_EQ(Refusal({folder.File("fehlt.exe")}), 53);
  EXPECT_EQ(Refusal({folder.Path()}), 70);
  EXPECT_EQ(Refusal({folder.File("text.txt")}), 70);
  EXPECT_EQ(Refusal({folder.File("stapel.bat"), "&calc"}), 70);
}

TEST_F(OtherProgram, ReadsItsCommandLineAsTheSystemPassesIt) {
  CloseHandle(StartRaw("--command-line \"" + folder.File("aus") + "\" \"C:\\mein brief.txt\" /s"));
  EXPECT_EQ(Result("aus"), "--command-line \"" + folder.File("aus") + "\" \"C:\\mein brief.txt\" /s");
}

TEST_F(OtherProgram, HoldsTheSingleInstanceUntilItIsKilled) {
  const std::string name = "Lorelin-Test " + folder.Path();
  const HANDLE other = StartRaw("--hold \"" + name + "\" \"" + folder.File("da") + '"');
  EXPECT_EQ(Result("da"), "ja");
  EXPECT_TRUE(MutexSingleInstance(name).IsAlreadyRunning());
  TerminateProcess(other, 1);
  WaitForSingleObject(other, 10000);
  CloseHandle(other);
  EXPECT_FALSE(MutexSingleInstance(name).IsAlreadyRunning());
}

TEST(MutexSingleInstance, IsClaimedByTheFirst) {
  MutexSingleInstance first("Lorelin-Test");
  EXPECT_FALSE(first.IsAlreadyRunning());
  EXPECT_FALSE(first.IsAlreadyRunning());
  EXPECT_TRUE(MutexSingleInstance("Lorelin-Test").IsAlreadyRunning());
  EXPECT_FALSE(MutexSingleInstance("Lorelin-Test2").IsAlreadyRunning());
}

TEST(ExplorerShell, SaysWhenSomethingCannotBeStarted) {
  FakeLog log;
  ExplorerShell shell("C:\\gibt-es-nicht", log);
  EXPECT_FALSE(shell.Open("XMGR.exe", "", ShowCommand::Normal));
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST(ForegroundWindow, TellsTheTitleInTheSystemsCodePage) {
  const std::string title = "Grüße " + std::string(400, 'x');
  const HWND window = CreateWindowW(L"STATIC", Wide(title).c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                    300, 100, nullptr, nullptr, nullptr, nullptr);
  SetForegroundWindow(window);
  ASSERT_EQ(GetForegroundWindow(), window);
  User32ForegroundWindow foreground;
  const std::string told = foreground.Title();
  EXPECT_TRUE(told.starts_with("Grüße xx"));
  EXPECT_EQ(SystemCodePage(told).size(), 254U);
  SetWindowTextW(window, L"kurz");
  EXPECT_EQ(foreground.Title(), "kurz");
  DestroyWindow(window);
}

TEST(ProgramPaths, LieInTheFolderThatTheEnvironmentNames) {
  const TemporaryFolder folder;
  WriteFile(PathText(ExecutableFile().parent_path() / "hypertext" / "probe.htm"), "Seite");
  _wputenv_s(L"LORELIN_HOME", Wide(folder.File("home")).c_str());
  const ProgramPaths paths = FindProgramPaths();
  _wputenv_s(L"LORELIN_HOME", L"");
  EXPECT_EQ(NativePath(paths.programFolder), fs::path(folder.File("home")).lexically_normal());
  EXPECT_TRUE(fs::exists(folder.File("home/hypertext/probe.htm")));
  EXPECT_EQ(NativePath(paths.programFile), ExecutableFile());
  const ProgramPaths beside = FindProgramPaths();
  EXPECT_EQ(NativePath(beside.programFolder), ExecutableFile().parent_path());
  EXPECT_EQ(beside.registryFile, "");
}

}  // namespace
}  // namespace lorelin
