#include "import/confinement.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>

#include "confinement/calls.h"
#include "confinement/files.h"
#include "import/importAnswer.h"

namespace lorelin {
namespace {

constexpr rlim_t kMemory = rlim_t{512} << 20U;
constexpr rlim_t kFileOfChild = rlim_t{64} << 20U;

// Made before it is needed: a signal handler may not.
const std::string& TooSlow() {
  static const std::string output = [] {
    const std::string answer = WriteImportProblem(kTooSlowAnswer);
    return "answer " + std::to_string(answer.size()) + "\n" + answer;
  }();
  return output;
}

void EndLate(int) {
  const std::string& output = TooSlow();
  (void)!write(STDOUT_FILENO, output.data(), output.size());
  _exit(1);
}

// What a checking build reserves at its start is more than the limit already.
bool HasRoom() {
  std::uintmax_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<std::uintmax_t>(sysconf(_SC_PAGESIZE)) < kMemory / 2;
}

// The folder in which the system finds what recognises pages; "" for none.
std::filesystem::path FolderOfRecognition() {
  const char* const path = std::getenv("PATH");
  std::istringstream folders(path != nullptr ? path : "");
  std::error_code error;
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (!folder.empty() && std::filesystem::exists(std::filesystem::path(folder) / "tesseract", error))
      return folder;
  }
  return {};
}

// Whoever recognises pages is another program, and keeps them in a file for a while.
void KeepFilesOfReading(const std::filesystem::path& document, bool children) {
  KeptFiles kept{.readable = {document}, .runnable = {}, .writable = {}};
  auto& system = children ? kept.runnable : kept.readable;
  for (auto& folder : SystemFolders()) system.push_back(std::move(folder));
  std::error_code error;
  if (children) kept.runnable.push_back(FolderOfRecognition());
  if (children) kept.writable = {"/tmp", std::filesystem::temp_directory_path(error), "/dev/null"};
  (void)KeepFiles(kept);
}

// The parent may have ended before this process asked to be told.
bool ReaderIsGone() {
  pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
  return poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

}  // namespace

const char* const kConfinementText =
    "Der Prozess kann nichts schreiben und nichts aus dem Netz holen; Speicher und Zeit sind begrenzt.\n";

void Confine(const std::filesystem::path& document, bool children) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (ReaderIsGone()) _exit(1);
  KeepFilesOfReading(document, children);
  (void)KeepCalls({.programs = children});
  prctl(PR_SET_DUMPABLE, 0);
  LimitResource(RLIMIT_CORE, 0, 0);
  LimitResource(RLIMIT_FSIZE, children ? kFileOfChild : 0, 0);
  if (HasRoom()) LimitResource(RLIMIT_AS, kMemory, kMemory);
}

void GiveComputingTime(int seconds) {
  (void)TooSlow();
  std::signal(SIGPROF, &EndLate);
  const itimerval timer{.it_interval = {}, .it_value = {.tv_sec = seconds, .tv_usec = 0}};
  setitimer(ITIMER_PROF, &timer, nullptr);
}

double ComputingTime() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

}  // namespace lorelin
