#include "platform/common/console.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/paths.h"
#include "platform/common/abandonedRuns.h"
#include "platform/windows/executable.h"
#include "platform/windows/wideText.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

constexpr DWORD kPatience = 60000;

// A console of this process, which another program writes into and is interrupted by.
class Console : public testing::Test {
 protected:
  void SetUp() override {
    FreeConsole();
    if (AllocConsole() == FALSE) GTEST_SKIP() << "here is no console";
    SECURITY_ATTRIBUTES inherited{
        .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    screen_ = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                          &inherited, OPEN_EXISTING, 0, nullptr);
    keyboard_ = CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            &inherited, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(screen_, INVALID_HANDLE_VALUE);
  }
  void TearDown() override {
    for (const HANDLE handle : {screen_, keyboard_, process_})
      if (handle != nullptr && handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    FreeConsole();
  }

  // lorelin-cli with these arguments in the console.
  void Start(const std::wstring& arguments, HANDLE input) {
    std::wstring line = L"lorelin-cli " + arguments;
    const auto program = ExecutableFile().replace_filename(L"lorelin-cli.exe");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input;
    startup.hStdOutput = startup.hStdError = screen_;
    PROCESS_INFORMATION process{};
    ASSERT_NE(CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                             &startup, &process),
              FALSE);
    CloseHandle(process.hThread);
    process_ = process.hProcess;
  }
  DWORD ExitCode() {
    EXPECT_EQ(WaitForSingleObject(process_, kPatience), WAIT_OBJECT_0);
    DWORD code = 0;
    GetExitCodeProcess(process_, &code);
    return code;
  }
  std::string Screen() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    GetConsoleScreenBufferInfo(screen_, &info);
    const auto rows = static_cast<DWORD>(info.dwCursorPosition.Y + 1);
    std::wstring text(rows * static_cast<DWORD>(info.dwSize.X), L' ');
    DWORD size = 0;
    ReadConsoleOutputCharacterW(screen_, text.data(), static_cast<DWORD>(text.size()), {0, 0}, &size);
    return Utf8(text);
  }

  HANDLE screen_ = nullptr;
  HANDLE keyboard_ = nullptr;
  HANDLE process_ = nullptr;
};

TEST_F(Console, ShowsEveryCharacter) {
  const TemporaryFolder folder;
  WriteFile(folder.File("Łódź.txt"), "Fünf Żaby „quaken“ – œuvre.");
  Start(L"spell \"" + Wide(folder.File("Łódź.txt")) + L"\"", keyboard_);
  EXPECT_EQ(ExitCode(), 0U);
  EXPECT_NE(Screen().find("Fünf Żaby „quaken“"), std::string::npos) << Screen();
}

TEST_F(Console, ShowsTheReasonOfAFailure) {
  Start(L"say nicht-da-ż.txt", keyboard_);
  EXPECT_EQ(ExitCode(), 3U);
  EXPECT_NE(Screen().find("„nicht-da-ż.txt“ kann nicht gelesen werden"), std::string::npos) << Screen();
}

TEST_F(Console, InterruptsWhoWaitsForAPipe) {
  SECURITY_ATTRIBUTES inherited{
      .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
  HANDLE input = nullptr;
  HANDLE held = nullptr;
  ASSERT_NE(CreatePipe(&input, &held, &inherited, 0), FALSE);
  Start(L"say --wav nie.wav", input);
  // Nobody reads the pipe before the program is there; Ctrl+C comes when it waits for more.
  DWORD written = 0;
  ::WriteFile(held, "Text", 4, &written, nullptr);
  DWORD waiting = 1;
  while (waiting > 0 && WaitForSingleObject(process_, 20) == WAIT_TIMEOUT)
    PeekNamedPipe(input, nullptr, 0, nullptr, &waiting, nullptr);
  SetConsoleCtrlHandler(nullptr, TRUE);
  GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
  const DWORD code = ExitCode();
  SetConsoleCtrlHandler(nullptr, FALSE);
  EXPECT_EQ(code, 130U);
  CloseHandle(input);
  CloseHandle(held);
}

TEST(AbandonedRuns, GoOnceNobodyUsesThem) {
  std::wstring line = L"lorelin-cli --version";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  const auto program = ExecutableFile().replace_filename(L"lorelin-cli.exe");
  ASSERT_NE(CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                           nullptr, &startup, &process),
            FALSE);
  WaitForSingleObject(process.hProcess, kPatience);
  const TemporaryFolder cache;
  const std::string dead = cache.File("run-" + std::to_string(process.dwProcessId));
  const std::string own = cache.File("run-" + std::to_string(ProcessNumber()));
  std::filesystem::create_directories(NativePath(dead) / "temp");
  std::filesystem::create_directories(NativePath(own) / "temp");
  RemoveAbandonedRuns(cache.Path());
  EXPECT_FALSE(std::filesystem::exists(NativePath(dead)));
  EXPECT_TRUE(std::filesystem::exists(NativePath(own)));
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace
}  // namespace lorelin
