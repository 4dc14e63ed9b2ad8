#include "platform/linux/ImportProcessRunner.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

// Programs in the place of lorelin-import that misbehave as the real one does not.
class ImportRunner : public testing::Test {
 protected:
  ImportProcess::Answer RunScript(const std::string& lines,
                                  ImportProcessRunner::Limits limits = {milliseconds(60000), 1000000}) {
    const std::string file = folder.File("program");
    WriteFile(file, "#!/bin/sh\n" + lines + "\n");
    chmod(file.c_str(), 0700);
    return ImportProcessRunner(file, limits).Run(job, [this](int percent) {
      if (percents.empty() || percents.back() != percent) percents.push_back(percent);
      return goOn(percent);
    });
  }
  // Whether the process whose number the script wrote there is gone; one that nobody waits for yet is.
  bool IsGone(const std::string& file) {
    const std::string status = "/proc/" + std::to_string(std::stoi(ReadFile(folder.File(file)))) + "/status";
    if (!std::filesystem::exists(status)) return true;
    return ReadFile(status).find("State:\tZ") != std::string::npos;
  }
  bool IsGoneSoon(const std::string& file) {
    for (int i = 0; i < 10000 && !IsGone(file); ++i) usleep(1000);
    return IsGone(file);
  }

  TemporaryFolder folder;
  ImportProcess::Job job{"/tmp/a b.epub", false, false, {}};
  std::vector<int> percents;
  std::function<bool(int)> goOn = [](int) { return true; };
};

TEST_F(ImportRunner, AnswersWhatTheProcessWroteAndTellsItsProgress) {
  goOn = [this](int percent) {
    WriteFile(folder.File(std::to_string(percent)), "");
    return true;
  };
  const std::string wait = "; while [ ! -e " + folder.Path();
  const auto answer = RunScript("echo progress 10" + wait + "/10 ]; do sleep 0.01; done; echo progress 200" +
                                wait + "/100 ]; do sleep 0.01; done; printf 'answer 6\\na\\nb\\nc\\n'");
  EXPECT_EQ(answer.bytes, "a\nb\nc\n");
  EXPECT_EQ(answer.problem, "");
  EXPECT_EQ(percents, (std::vector<int>{-1, 10, 100}));
}

TEST_F(ImportRunner, HandsOnTheJobAsArgumentsOfTheirOwn) {
  job = {.path = "/tmp/$(id) \"x\".html",
         .articleOnly = true,
         .recognisePages = true,
         .source = "https://a/?b c",
         .charset = "koi8-r"};
  const auto answer = RunScript(R"(text=$(printf '<%s>' "$@"); printf 'answer %s\n%s' ${#text} "$text")");
  EXPECT_EQ(
      answer.bytes,
      "<--article><--recognise><--source><https://a/?b c><--charset><koi8-r><--></tmp/$(id) \"x\".html>");
}

TEST_F(ImportRunner, SaysWhenTheProgramCannotBeStarted) {
  const auto answer = ImportProcessRunner(folder.File("none")).Run(job, {});
  EXPECT_NE(answer.problem.find("lässt sich nicht starten"), std::string::npos);
}

TEST_F(ImportRunner, SaysSoWhenTheProcessDiesOrWritesSomethingElse) {
  for (const char* lines : {"exit 1", "kill -9 $$", "printf 'answer 9\\nshort'", "printf 'answer 1\\nlong'",
                            "printf 'answer x\\n'", "echo Hallo", "head -c 1000 /dev/zero; sleep 60"}) {
    const auto answer = RunScript(lines);
    EXPECT_EQ(answer.bytes, "") << lines;
    EXPECT_TRUE(answer.problem.starts_with("Die Datei ließ sich nicht einlesen.")) << lines;
  }
}

TEST_F(ImportRunner, EndsAProcessThatIsSilentForTooLong) {
  const auto answer =
      RunScript("echo $$ >" + folder.File("pid") + "; exec sleep 600", {milliseconds(500), 1000});
  EXPECT_NE(answer.problem.find("zu lange"), std::string::npos);
  EXPECT_TRUE(IsGone("pid"));
}

TEST_F(ImportRunner, RefusesAnAnswerThatIsTooLong) {
  EXPECT_EQ(RunScript("printf 'answer 11\\n'; sleep 600", {milliseconds(60000), 10}).problem,
            "Das Dokument ist zu umfangreich, um geöffnet zu werden.");
}

TEST_F(ImportRunner, EndsTheProcessAndWhatItStartedWhenTold) {
  goOn = [](int percent) { return percent < 1; };
  const auto answer = RunScript("sleep 600 & echo $! >" + folder.File("child") + "; echo $$ >" +
                                folder.File("pid") + "; echo progress 1; sleep 600");
  EXPECT_EQ(answer.bytes, "");
  EXPECT_EQ(answer.problem, "");
  EXPECT_TRUE(IsGone("pid"));
  EXPECT_TRUE(IsGoneSoon("child"));
}

TEST_F(ImportRunner, EndsTheProcessWhenItsCallerThrows) {
  goOn = [](int percent) -> bool { return percent < 1 ? true : throw std::runtime_error("weg"); };
  EXPECT_THROW((void)RunScript("echo $$ >" + folder.File("pid") + "; echo progress 1; exec sleep 600"),
               std::runtime_error);
  EXPECT_TRUE(IsGone("pid"));
}

}  // namespace
}  // namespace lorelin
