#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Descriptor.h"
#include "engine/Interruption.h"

namespace lorelin::engine {

// A program of the user's in a process group of its own, started without a shell and without any descriptor
// but its input, output and errors. A guard stands between it and this process: whichever way this process
// or the object ends, the guard kills the program's group and takes in what is left of it.
class ChildProgram {
 public:
  using Time = std::chrono::steady_clock::time_point;

  struct Command {
    std::filesystem::path file;
    std::vector<std::string> arguments;  // the program's name first
    std::filesystem::path folder;        // that it begins in
  };

  enum class Outcome {
    Enough,  // `enough` said so
    Ended,   // nothing more comes out
    Late,
    Stopped,  // by the interruption
    TooMuch,
  };

  struct Fate {
    enum class Kind { Unknown, Exited, Crashed, NotStarted };
    Kind kind = Kind::Unknown;
    int number = 0;  // exit code, signal or errno
  };

  // The program's ends of what leads to it.
  struct Ends {
    int input = -1;
    int output = -1;
    int errors = -1;
    int control = -1;
  };

  // Null when the system has no room for another process.
  [[nodiscard]] static std::unique_ptr<ChildProgram> Start(const Command& command);
  // One that `start` starts: it answers with the number of a guard that is a child of this process, 0 when
  // it is somebody else's, -1 when there is none.
  [[nodiscard]] static std::unique_ptr<ChildProgram> StartWith(
      const std::function<pid_t(const Ends&)>& start);
  // Starts the program between such ends; its guard's number.
  [[nodiscard]] static pid_t StartBehind(const Command& command, const Ends& ends);
  // Kills it, and waits until it is gone.
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  // Writes the input, whose end is told to the program when it is the last, and reads into Output() until
  // `enough` is content with that.
  [[nodiscard]] Outcome Exchange(std::string_view input, bool last, const std::function<bool()>& enough,
                                 Time until, const Interruption& interruption);
  // What was read; whoever uses it takes it out.
  [[nodiscard]] std::string& Output() { return output_; }
  // The last line of what it wrote among its errors; "" for none.
  [[nodiscard]] std::string Complaint() const;
  // How it ended, if it does until then.
  [[nodiscard]] Fate AwaitEnd(Time until);
  // Whether it is still there, as far as one knows.
  [[nodiscard]] bool IsThere() { return AwaitEnd({}).kind == Fate::Kind::Unknown; }

  static constexpr std::size_t kMostOutput = std::size_t{32} << 20U;

 private:
  ChildProgram(pid_t guard, Descriptor input, Descriptor output, Descriptor errors, Descriptor control);

  void Write(std::string_view& input, bool last);
  [[nodiscard]] bool ReadOutput();
  bool ReadErrors();

  pid_t guard_;
  Descriptor input_;
  Descriptor outputEnd_;
  Descriptor errors_;
  Descriptor control_;
  std::string output_;
  std::string complaints_;
  std::optional<Fate> fate_;
};

// The file that a command's first word means: below the folder when it has a separator in it, else among
// those of PATH; "" when there is none that can be run.
[[nodiscard]] std::filesystem::path FindProgram(const std::string& name, const std::filesystem::path& folder);

}  // namespace lorelin::engine
