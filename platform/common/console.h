#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lorelin {

// What a program without windows needs of the system around it: one implementation for each system. All of it
// from the main thread.

// The arguments of the process in UTF-8, its own name left out.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argc, char** argv);

// As long as it lives, what std::cout and std::cerr are given in UTF-8 arrives at a terminal as these
// characters. Make it first of all.
class ConsoleText {
 public:
  ConsoleText();
  ~ConsoleText();
  ConsoleText(const ConsoleText&) = delete;
  ConsoleText& operator=(const ConsoleText&) = delete;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// Whether a person types at standard input.
[[nodiscard]] bool InputIsTerminal();
// Whether standard error is a terminal that can delete a line, by "\r\033[K".
[[nodiscard]] bool ErrorIsTerminal();

// Bytes that come when they come: standard input, or a pipe or device that has a name.
class ByteStream {
 public:
  ByteStream();  // standard input
  explicit ByteStream(const std::filesystem::path& path);
  ~ByteStream();
  ByteStream(const ByteStream&) = delete;
  ByteStream& operator=(const ByteStream&) = delete;

  // Waits for the first bytes. How many came, 0 at the end, else a negative errno: -EINTR when an
  // interruption was noted.
  [[nodiscard]] std::ptrdiff_t Read(std::span<char> bytes);

 private:
  struct Source;
  std::unique_ptr<Source> source_;
};

// From now on the first Ctrl+C, or the system's wish that the program end, is only noted, so that what was
// begun can be cleaned up; a Read that waits comes back. The second one ends the program at once.
void NoteInterruptions();
// Whether one was noted.
[[nodiscard]] bool Interrupted();

// What the system hands to the thread itself and nobody would fetch otherwise: on Windows the messages by
// which engines tell how far they are.
void HandleSystemEvents();

// No other process has this number as long as this one lives.
[[nodiscard]] unsigned long ProcessNumber();
// Whether a process has this number. Any thread.
[[nodiscard]] bool ProcessIsThere(unsigned long number);

}  // namespace lorelin
