#include "engine/ChildProgram.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <csignal>
#include <fstream>
#include <thread>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/commandVoices.h"

namespace lorelin::engine {
namespace {

using Outcome = ChildProgram::Outcome;
using Fate = ChildProgram::Fate;
using std::chrono::steady_clock;

ChildProgram::Time In(int seconds) {
  return steady_clock::now() + std::chrono::seconds(seconds);
}

bool Nothing() {
  return false;
}

bool Lives(pid_t process) {
  return kill(process, 0) == 0;
}

class Child : public testing::Test {
 protected:
  std::unique_ptr<ChildProgram> Start(const std::vector<std::string>& arguments) {
    return ChildProgram::Start(
        {.file = FindProgram(arguments.front(), "/"), .arguments = arguments, .folder = folder.Path()});
  }
  std::unique_ptr<ChildProgram> Misbehaving(const std::string& how, const std::string& more = {}) {
    return Start({TestProgram("misbehave"), how, more});
  }
  // The number that the program wrote into the file, once it did.
  static pid_t NumberIn(const std::string& file) {
    for (pid_t number = 0;; std::this_thread::yield()) {
      if (std::ifstream(file) >> number) return number;
    }
  }

  TemporaryFolder folder;
  Interruption interruption;
};

TEST_F(Child, ReadsItsInputAndWritesItsOutput) {
  const auto program = Start({"cat"});
  EXPECT_EQ(program->Exchange("Guten Tag", true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->Output(), "Guten Tag");
  const Fate fate = program->AwaitEnd(In(60));
  EXPECT_EQ(fate.kind, Fate::Kind::Exited);
  EXPECT_EQ(fate.number, 0);
}

TEST_F(Child, TakesMoreThanAPipeHolds) {
  const std::string text(1000000, 'x');
  const auto program = Start({"cat"});
  EXPECT_EQ(program->Exchange(text, true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->Output(), text);
}

TEST_F(Child, AnswersAgainAndAgain) {
  const auto program = Start({"cat"});
  for (int i = 0; i < 3; ++i) {
    const auto line = [&] { return program->Output().ends_with('\n'); };
    EXPECT_EQ(program->Exchange("ja\n", false, line, In(60), interruption), Outcome::Enough);
    EXPECT_EQ(std::exchange(program->Output(), {}), "ja\n");
    EXPECT_TRUE(program->IsThere());
  }
}

TEST_F(Child, MayWantNoInput) {
  const auto program = Misbehaving("taub", "/bin/true");
  EXPECT_EQ(program->Exchange(std::string(1000000, 'x'), true, Nothing, In(60), interruption),
            Outcome::Ended);
  EXPECT_EQ(program->AwaitEnd(In(60)).kind, Fate::Kind::Exited);
}

TEST_F(Child, TellsHowItEnded) {
  auto program = Misbehaving("fehler");
  EXPECT_EQ(program->Exchange("", true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->AwaitEnd(In(60)).number, 3);
  EXPECT_EQ(program->Complaint(), "Die Lizenz fehlt.");
  program = Misbehaving("stuerzt");
  EXPECT_EQ(program->Exchange("", true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->AwaitEnd(In(60)).kind, Fate::Kind::Crashed);
}

TEST_F(Child, TellsThatItCouldNotBeStarted) {
  WriteFile(folder.File("text"), "kein Programm");
  const auto program =
      ChildProgram::Start({.file = folder.File("text"), .arguments = {"text"}, .folder = folder.Path()});
  EXPECT_EQ(program->Exchange("", true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->AwaitEnd(In(60)).kind, Fate::Kind::NotStarted);
}

TEST_F(Child, HasNoDescriptorsButItsOwn) {
  const int socket = dup(0);  // not closed by exec
  const auto program = Misbehaving("deskriptoren", folder.File("zahlen"));
  EXPECT_EQ(program->Exchange("", true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->AwaitEnd(In(60)).number, 1);
  close(socket);
  EXPECT_EQ(ReadFile(folder.File("zahlen")), "0 1 2 3 ");  // 3 is the folder that is listed
}

TEST_F(Child, IsEndedWithItsOwnChildren) {
  auto program = Misbehaving("haengt", folder.File("nummer"));
  const pid_t grandchild = NumberIn(folder.File("nummer"));
  EXPECT_TRUE(Lives(grandchild));
  program.reset();
  EXPECT_FALSE(Lives(grandchild));
}

TEST_F(Child, LeavesNoChildrenWhenItEnds) {
  const auto program = Start({"sh", "-c", "sleep 1000 & echo $! >nummer"});
  EXPECT_EQ(program->Exchange("", true, Nothing, In(60), interruption), Outcome::Ended);
  EXPECT_EQ(program->AwaitEnd(In(60)).kind, Fate::Kind::Exited);
  EXPECT_FALSE(Lives(NumberIn(folder.File("nummer"))));
}

TEST_F(Child, IsEndedEvenIfItWantsToStay) {
  auto program = Misbehaving("unbeirrt");
  EXPECT_EQ(program->Exchange("", true, Nothing, steady_clock::now() + std::chrono::milliseconds(100),
                              interruption),
            Outcome::Late);
  program.reset();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(Child, IsGivenUpWhenItWritesWithoutEnd) {
  const auto program = Misbehaving("endlos");
  EXPECT_EQ(program->Exchange("", true, Nothing, In(60), interruption), Outcome::TooMuch);
}

TEST_F(Child, IsInterruptedAtOnce) {
  const auto program = Misbehaving("haengt");
  std::thread other([this] { interruption.Set(true); });
  EXPECT_EQ(program->Exchange("", true, Nothing, In(600), interruption), Outcome::Stopped);
  other.join();
  interruption.Set(false);
  EXPECT_EQ(program->Exchange("", true, Nothing, In(0), interruption), Outcome::Late);
}

// Takes in processes whose parents end, as long as it lives.
class Subreaper {
 public:
  Subreaper() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
  ~Subreaper() { prctl(PR_SET_CHILD_SUBREAPER, 0); }
  Subreaper(const Subreaper&) = delete;
  Subreaper& operator=(const Subreaper&) = delete;
};

TEST_F(Child, EndsWithTheProcessThatStartedIt) {
  const Subreaper taking;
  const pid_t engine = fork();
  if (engine == 0) {
    const auto program = Misbehaving("haengt", folder.File("nummer"));
    pause();
    _exit(0);
  }
  const pid_t grandchild = NumberIn(folder.File("nummer"));
  EXPECT_TRUE(Lives(grandchild));
  kill(engine, SIGKILL);
  while (waitpid(-1, nullptr, 0) > 0 || errno == EINTR) {
  }
  EXPECT_FALSE(Lives(grandchild));
}

TEST(ProgramOfACommand, IsFoundInPathOrBelowTheFolder) {
  const TemporaryFolder folder;
  WriteFile(folder.File("text"), "kein Programm");
  EXPECT_EQ(FindProgram("sh", folder.Path()).filename(), "sh");
  EXPECT_TRUE(FindProgram("sh", folder.Path()).is_absolute());
  EXPECT_EQ(FindProgram("gibt-es-nicht", folder.Path()), "");
  EXPECT_EQ(FindProgram("./text", folder.Path()), "");
  EXPECT_EQ(FindProgram("../..", folder.Path()), "");
  EXPECT_EQ(FindProgram("./programs/tones", TestCommandVoices().parent_path()),
            TestCommandVoices().parent_path() / "./programs/tones");
  EXPECT_EQ(FindProgram("/bin/sh", folder.Path()), "/bin/sh");
}

}  // namespace
}  // namespace lorelin::engine
