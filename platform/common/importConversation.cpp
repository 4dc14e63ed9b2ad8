#include "platform/common/importConversation.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "base/paths.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kStep{50};  // between two calls of the caller's function
constexpr std::size_t kLongestLine = 64;

constexpr std::string_view kNotStarted =
    "Das Programm lorelin-import, das Dokumente einliest, lässt sich nicht starten. Bitte installieren Sie "
    "Lorelin neu.";
constexpr std::string_view kBroken =
    "Die Datei ließ sich nicht einlesen. Wahrscheinlich ist sie beschädigt; bitte öffnen Sie eine andere "
    "Kopie.";
constexpr std::string_view kTooSlow =
    "Das Einlesen wurde abgebrochen, weil es zu lange dauerte. Wahrscheinlich ist die Datei beschädigt.";
constexpr std::string_view kTooLarge = "Das Dokument ist zu umfangreich, um geöffnet zu werden.";

std::optional<std::size_t> NumberAfter(std::string_view line, std::string_view word) {
  if (!line.starts_with(word)) return {};
  line.remove_prefix(word.size());
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
  if (error != std::errc() || end != line.data() + line.size()) return {};
  return number;
}

// What the child has written, and what it means so far.
struct Output {
  std::string bytes;                // not yet taken for a line
  std::optional<std::size_t> size;  // of the answer, once it has begun
  int percent = -1;
  bool broken = false;

  // Takes the lines; whether there was one.
  bool TakeLines() {
    bool any = false;
    for (auto end = bytes.find('\n'); !size && !broken && end != std::string::npos; end = bytes.find('\n')) {
      TakeLine(std::string_view(bytes).substr(0, end));
      bytes.erase(0, end + 1);
      any = true;
    }
    if (!size && bytes.size() > kLongestLine) broken = true;
    return any;
  }
  void TakeLine(std::string_view line) {
    if (const auto done = NumberAfter(line, "progress ")) {
      percent = static_cast<int>(std::min<std::size_t>(*done, 100));
    } else {
      size = NumberAfter(line, "answer ");
      broken = !size;
    }
  }
  [[nodiscard]] bool Whole() const { return size && bytes.size() == *size; }
};

ImportProcess::Answer Problem(std::string_view sentence) {
  return {.bytes = {}, .problem = std::string(sentence)};
}

}  // namespace

std::vector<std::string> ImportArguments(const std::string& program, const ImportProcess::Job& job) {
  std::vector<std::string> arguments{program};
  if (job.articleOnly) arguments.emplace_back("--article");
  if (job.recognisePages) arguments.emplace_back("--recognise");
  if (!job.source.empty()) arguments.insert(arguments.end(), {"--source", job.source});
  if (!job.charset.empty()) arguments.insert(arguments.end(), {"--charset", job.charset});
  arguments.emplace_back("--");
  arguments.push_back(PathText(NativePath(job.path)));
  return arguments;
}

ImportProcess::Answer ImportNotStarted() {
  return Problem(kNotStarted);
}

ImportProcess::Answer HearImport(const ImportReading& read, const ImportLimits& limits,
                                 const std::function<bool(int)>& progress) {
  Output output;
  auto heard = steady_clock::now();
  auto told = heard - kStep;
  for (bool open = true; open;) {
    if (steady_clock::now() - told >= kStep) {
      if (progress && !progress(output.percent)) return {};
      told = steady_clock::now();
    }
    const std::size_t most = output.size ? *output.size + 1 - output.bytes.size() : kLongestLine;
    open = read(output.bytes, kStep, most);
    if (!output.size && output.TakeLines()) heard = steady_clock::now();
    if (output.broken) break;
    if (output.size && *output.size > limits.answer) return Problem(kTooLarge);
    if (output.size && output.bytes.size() > *output.size) break;
    if (steady_clock::now() - heard > limits.silence) return Problem(kTooSlow);
  }
  if (output.broken || !output.Whole()) return Problem(kBroken);
  return {.bytes = std::move(output.bytes), .problem = {}};
}

}  // namespace lorelin
