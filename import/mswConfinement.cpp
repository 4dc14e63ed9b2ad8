#include <windows.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <thread>

#include "import/confinement.h"
#include "import/importAnswer.h"

namespace lorelin {
namespace {

constexpr double kUnitsPerSecond = 1e7;  // of 100 ns

double SecondsOf(const FILETIME& time) {
  return static_cast<double>(static_cast<std::uint64_t>(time.dwHighDateTime) << 32U | time.dwLowDateTime) /
         kUnitsPerSecond;
}

// Made before it is needed: then there may be no memory.
const std::string& TooSlow() {
  static const std::string output = [] {
    const std::string answer = WriteImportProblem(kTooSlowAnswer);
    return "answer " + std::to_string(answer.size()) + "\n" + answer;
  }();
  return output;
}

[[noreturn]] void EndLate() {
  const std::string& output = TooSlow();
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), output.data(), static_cast<DWORD>(output.size()), &written,
            nullptr);
  TerminateProcess(GetCurrentProcess(), 1);
  std::abort();
}

std::atomic<double> end = 0;  // of the computing time that was given; 0 for none

void Watch() {
  constexpr DWORD kStep = 50;
  for (;; Sleep(kStep)) {
    double last = end;
    if (last > 0 && ComputingTime() > last && end.compare_exchange_strong(last, 0)) EndLate();
  }
}

}  // namespace

const char* const kConfinementText =
    "Lorelin gibt dem Prozess wenig Speicher und Zeit und lässt ihn kein anderes Programm starten.\n";

// The job that the process was started in holds it, see ImportJobRunner. No window tells of a failure.
void Confine(const std::filesystem::path&, bool) {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

void GiveComputingTime(int seconds) {
  (void)TooSlow();
  const double before = end.exchange(seconds > 0 ? ComputingTime() + seconds : 0);
  // It has run out already: the watch writes the answer.
  if (seconds == 0 && before == 0) Sleep(INFINITE);
  static const bool watched = [] {
    std::thread(&Watch).detach();
    return true;
  }();
  (void)watched;
}

double ComputingTime() {
  FILETIME begin{};
  FILETIME finish{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &begin, &finish, &kernel, &user);
  return SecondsOf(kernel) + SecondsOf(user);
}

}  // namespace lorelin
