#include "import/textRecognition.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "import/importErrors.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostOutput = std::size_t{16} << 20U;

struct Pipe {
  Pipe() {
    if (pipe(ends.data()) != 0) throw ImportError("Die Texterkennung ließ sich nicht starten.");
  }
  ~Pipe() {
    for (int& end : ends) Close(end);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  static void Close(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
  std::array<int, 2> ends{-1, -1};
};

// In the new process: nothing but what a signal handler may do.
[[noreturn]] void Become(int input, int output) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  // It keeps the picture that it reads from a pipe in a file that has no name.
  rlimit file{};
  if (getrlimit(RLIMIT_FSIZE, &file) == 0) {
    file.rlim_cur = file.rlim_max;
    setrlimit(RLIMIT_FSIZE, &file);
  }
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  for (int other = STDERR_FILENO + 1; other < 64; ++other) close(other);
  execlp("tesseract", "tesseract", "stdin", "stdout", "-l", "deu", "tsv", nullptr);
  _exit(127);
}

bool WriteAll(int to, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t size = write(to, bytes.data(), bytes.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(size));
  }
  return true;
}

std::string ReadAll(int from) {
  std::string bytes;
  std::array<char, 65536> buffer{};
  while (bytes.size() < kMostOutput) {
    const ssize_t size = read(from, buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) break;
    bytes.append(buffer.data(), static_cast<std::size_t>(size));
  }
  return bytes;
}

int EndOf(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

double Number(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::vector<std::string_view> Split(std::string_view line) {
  std::vector<std::string_view> fields;
  for (;;) {
    const auto tab = line.find('\t');
    fields.push_back(line.substr(0, tab));
    if (tab == std::string_view::npos) return fields;
    line.remove_prefix(tab + 1);
  }
}

// What stands in a row of the table.
enum Field {
  kLevel,
  kPage,
  kBlock,
  kParagraph,
  kLine,
  kWord,
  kLeft,
  kTop,
  kWidth,
  kHeight,
  kConfidence,
  kText,
  kFields
};

PdfWord WordOf(const std::vector<std::string_view>& fields, const PdfWord& line, double scale) {
  PdfWord word = line;
  word.text = fields[kText];
  word.left = Number(fields[kLeft]) * scale;
  word.right = word.left + Number(fields[kWidth]) * scale;
  return word;
}

}  // namespace

std::vector<PdfWord> ReadRecognised(std::string_view table, double perInch) {
  const double scale = 72 / perInch;
  std::vector<PdfWord> words;
  PdfWord line;
  while (!table.empty()) {
    const auto end = std::min(table.find('\n'), table.size());
    const auto fields = Split(table.substr(0, end));
    table.remove_prefix(std::min(end + 1, table.size()));
    if (fields.size() != kFields) continue;
    if (fields[kLevel] == "4") {
      line.top = Number(fields[kTop]) * scale;
      line.bottom = line.top + Number(fields[kHeight]) * scale;
      // Heights of lines differ with their letters; sizes of type hardly do.
      line.size = 10;
    }
    const bool blank = fields[kText].find_first_not_of(' ') == std::string_view::npos;
    if (fields[kLevel] == "5" && !blank && IsValidUtf8(fields[kText]))
      words.push_back(WordOf(fields, line, scale));
  }
  return words;
}

std::vector<PdfWord> RecogniseText(const PagePicture& picture) {
  setenv("OMP_THREAD_LIMIT", "1", 1);
  Pipe input;
  Pipe output;
  const pid_t process = fork();
  if (process < 0) throw ImportError("Die Texterkennung ließ sich nicht starten.");
  if (process == 0) Become(input.ends[0], output.ends[1]);
  Pipe::Close(input.ends[0]);
  Pipe::Close(output.ends[1]);
  const std::string head =
      "P5\n" + std::to_string(picture.width) + " " + std::to_string(picture.height) + "\n255\n";
  const bool sent = WriteAll(input.ends[1], head) && WriteAll(input.ends[1], picture.grey);
  Pipe::Close(input.ends[1]);
  const std::string table = ReadAll(output.ends[0]);
  if (EndOf(process) == 0 && sent) return ReadRecognised(table, picture.perInch);
  throw ImportError(
      "Die Texterkennung steht nicht zur Verfügung. Bitte installieren Sie Tesseract mit den deutschen Daten "
      "(Pakete „tesseract-ocr“ und „tesseract-ocr-deu“).");
}

}  // namespace lorelin
