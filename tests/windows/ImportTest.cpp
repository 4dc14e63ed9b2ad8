#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "base/paths.h"
#include "import/importAnswer.h"
#include "platform/windows/ImportJobRunner.h"
#include "platform/windows/executable.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

constexpr DWORD kLongestEnding = 60000;

std::string Importer() {
  return PathText(ExecutableFile().replace_filename(L"lorelin-import.exe"));
}

ImportProcess::Answer ReadWithJob(const std::string& path) {
  ImportJobRunner runner(Importer());
  return runner.Run({.path = path}, [](int) { return true; });
}

std::string Corpus(const std::string& name) {
  return std::string(LORELIN_IMPORT_CORPUS) + "/" + name;
}

TEST(ImportJobRunner, ReadsABookWhoseNameTheCodePageDoesNotHave) {
  const TemporaryFolder folder;
  const std::string book = folder.File("Łódź ü.epub");
  std::filesystem::copy_file(NativePath(Corpus("ebenen.epub")), NativePath(book));
  const ImportProcess::Answer answer = ReadWithJob(book);
  EXPECT_EQ(answer.problem, "");
  const ImportedDocument document = ReadImportAnswer(answer.bytes);
  EXPECT_FALSE(document.text.text.empty());
  EXPECT_FALSE(document.info.chapters.empty());
}

TEST(ImportJobRunner, SaysThatItReadsNoPdf) {
  const ImportProcess::Answer answer = ReadWithJob(Corpus("ebenen.pdf"));
  EXPECT_EQ(answer.problem, "");
  try {
    (void)ReadImportAnswer(answer.bytes);
    FAIL() << "it was read";
  } catch (const std::exception& error) {
    EXPECT_NE(std::string(error.what()).find("PDF-Dokumente kann Lorelin unter Windows nicht öffnen"),
              std::string::npos);
  }
}

TEST(ImportJobRunner, SaysThatTheProgramIsNotThere) {
  const TemporaryFolder folder;
  ImportJobRunner runner(folder.File("nicht-da.exe"));
  const ImportProcess::Answer answer = runner.Run({.path = "a.epub"}, [](int) { return true; });
  EXPECT_NE(answer.problem.find("lässt sich nicht starten"), std::string::npos);
}

// This program hangs when it is started as an importer.
TEST(ImportJobRunner, EndsAProcessThatHangs) {
  const TemporaryFolder folder;
  const std::string file = folder.File("nummer");
  HANDLE process = nullptr;
  ImportJobRunner runner(PathText(ExecutableFile()));
  const ImportProcess::Answer answer = runner.Run({.path = file}, [&](int) {
    if (!std::filesystem::exists(NativePath(file))) return true;
    process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(std::stoul(ReadFile(file))));
    return false;
  });
  EXPECT_EQ(answer.problem, "");
  ASSERT_NE(process, nullptr);
  EXPECT_EQ(WaitForSingleObject(process, kLongestEnding), WAIT_OBJECT_0);
  CloseHandle(process);
}

TEST(ImportJobRunner, GivesUpAProcessThatSaysNothing) {
  const TemporaryFolder folder;
  ImportJobRunner runner(PathText(ExecutableFile()), {.silence = std::chrono::milliseconds(300)});
  const ImportProcess::Answer answer = runner.Run({.path = folder.File("nummer")}, [](int) { return true; });
  EXPECT_NE(answer.problem.find("zu lange dauerte"), std::string::npos);
}

}  // namespace
}  // namespace lorelin
