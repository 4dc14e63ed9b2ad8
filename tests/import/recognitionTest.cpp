#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "import/importAnswer.h"
#include "platform/linux/ImportProcessRunner.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr const char* kScan = LORELIN_IMPORT_SOURCES "/scan.pdf";  // two pages

// The process with the system's text recognition, or with one that stands in for it.
class Recognition : public testing::Test {
 protected:
  ~Recognition() override { setenv("PATH", path_.c_str(), 1); }

  // A program of that name which the process finds first.
  void StandIn(const std::string& lines) {
    WriteFile(folder.File("tesseract"), "#!/bin/sh\n" + lines + "\n");
    fs::permissions(folder.File("tesseract"), fs::perms::owner_all);
    setenv("PATH", (folder.Path() + ":" + path_).c_str(), 1);
  }
  ImportProcess::Answer Run(bool recognise, const std::function<bool(int)>& progress = {}) {
    return runner_.Run({.path = kScan, .recognisePages = recognise}, progress);
  }
  std::string Text() {
    try {
      const auto answer = Run(true);
      return answer.problem.empty() ? ReadImportAnswer(answer.bytes).text.text : answer.problem;
    } catch (const RuntimeError& error) {
      return error.what();
    }
  }

  TemporaryFolder folder;

 private:
  const std::string path_ = getenv("PATH");
  ImportProcessRunner runner_{LORELIN_BIN_DIR "/lorelin-import"};
};

// One word on each page, at another height: what is the same on every page is no text.
constexpr const char* kRows = R"(
echo >>"$0.pages"; top=$(($(wc -l <"$0.pages") * 200))
printf '4\t1\t1\t1\t1\t0\t100\t%s\t400\t30\t-1\t\n5\t1\t1\t1\t1\t1\t100\t100\t400\t30\t96\t%s\n' $top "$text")";

TEST_F(Recognition, IsOfferedForPagesThatArePictures) {
  const auto answer = Run(false);
  const ImportedDocument document = ReadImportAnswer(answer.bytes);
  EXPECT_TRUE(document.hasPages);
  EXPECT_EQ(document.text.text, "");
  EXPECT_EQ(document.notice, "Das PDF-Dokument enthält nur Bilder von Seiten, keinen Text.");
}

TEST_F(Recognition, GivesThePictureToTheProgramAndItsArguments) {
  StandIn(std::string("kind=$(head -c 2); cat >/dev/null\ntext=\"$#:$*:$kind\"\n") + kRows);
  EXPECT_EQ(Text(), "5:stdin stdout -l deu tsv:P5\n\n5:stdin stdout -l deu tsv:P5");
}

TEST_F(Recognition, TellsHowFarItIs) {
  StandIn(std::string("cat >/dev/null\ntext=Wort\n") + kRows);
  std::vector<int> percents;
  const auto answer = Run(true, [&](int percent) {
    if (percents.empty() || percents.back() != percent) percents.push_back(percent);
    return true;
  });
  EXPECT_EQ(answer.problem, "");
  EXPECT_TRUE(std::ranges::is_sorted(percents)) << testing::PrintToString(percents);
}

TEST_F(Recognition, EndsWithItsProgramWhenItIsCancelled) {
  // It waits for a line that nobody writes.
  ASSERT_EQ(mkfifo(folder.File("fifo").c_str(), 0600), 0);
  StandIn("cd '" + folder.Path() + "'\necho $$ >number.part; mv number.part number\nexec cat fifo");
  const auto answer = Run(true, [&](int) { return !fs::exists(folder.File("number")); });
  EXPECT_EQ(answer.bytes, "");
  EXPECT_EQ(answer.problem, "");
  const auto process = static_cast<pid_t>(std::stol(ReadFile(folder.File("number"))));
  // It is gone when nobody is left to receive a signal, or waits to be collected.
  const std::string state = "/proc/" + std::to_string(process) + "/stat";
  const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  const auto gone = [&] {
    return kill(process, 0) != 0 || ReadFile(state).find(") Z ") != std::string::npos;
  };
  while (!gone() && std::chrono::steady_clock::now() < until) usleep(1000);
  EXPECT_TRUE(gone());
}

TEST_F(Recognition, SaysWhatToInstallWhereItIsMissing) {
  StandIn("exit 1");
  EXPECT_NE(Text().find("tesseract-ocr-deu"), std::string::npos) << Text();
}

TEST_F(Recognition, SurvivesAProgramThatWritesNonsense) {
  StandIn("cat >/dev/null; head -c 100000 /dev/urandom");
  EXPECT_NE(Run(true).bytes + Run(true).problem, "");
}

TEST_F(Recognition, ReadsThePagesWhereTheRealProgramIsInstalled) {
  if (system("tesseract --list-langs 2>/dev/null | grep -qx deu") != 0) GTEST_SKIP() << "no German Tesseract";
  const std::string text = Text();
  EXPECT_NE(text.find("Sie hat zwei Zeilen."), std::string::npos) << text;
  EXPECT_NE(text.find("demselben Dokument."), std::string::npos) << text;
}

}  // namespace
}  // namespace lorelin
