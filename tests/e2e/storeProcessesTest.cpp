#include <sys/mman.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>
#include <vector>

#include "tests/e2e/storeProcesses.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// A number that the test and the processes it starts see together.
class SharedNumber {
 public:
  SharedNumber()
      : memory_(mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                     -1, 0)),
        number_(new (memory_) std::atomic<int>(0)) {}
  ~SharedNumber() { munmap(memory_, sizeof(std::atomic<int>)); }
  SharedNumber(const SharedNumber&) = delete;
  SharedNumber& operator=(const SharedNumber&) = delete;
  std::atomic<int>& operator*() { return *number_; }

 private:
  void* memory_;
  std::atomic<int>* number_;
};

// Two kinds of long texts in turn; the number tells which write it was.
std::string TextOfWrite(int number) {
  return std::to_string(number) + std::string(number % 2 == 0 ? 6000 : 9000, number % 2 == 0 ? 'g' : 'u');
}

int WriteForEver(const std::string& file, std::atomic<int>& written) {
  FakeLog log;
  const auto opened = SqliteRegistry::Open(file, log);
  if (opened.lost || !opened.notice.empty()) return 1;
  for (int number = written + 1; WriteText(*opened.registry, "Wert", TextOfWrite(number)); ++number) {
    written = number;
  }
  return 2;
}

// Returns when the process has written something, or has ended.
void AwaitWrite(pid_t child, std::atomic<int>& written, int before) {
  while (written == before && waitpid(child, nullptr, WNOHANG) == 0) {
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  }
}

class Store : public testing::Test {
 protected:
  TemporaryFolder folder;
  std::string file = folder.File("lorelin/registry.sqlite");
  FakeLog log;
};

TEST_F(Store, HoldsTheLastOrTheNextValueAfterEveryOfAThousandKills) {
  SharedNumber written;
  std::mt19937 random(4711);
  std::uniform_int_distribution<int> microseconds(0, 4000);
  for (int kill = 0; kill < 1000; ++kill) {
    const int before = *written;
    const pid_t child = Start([&] { return WriteForEver(file, *written); });
    // One half dies wherever it has come to, opening included, the other half among its writes.
    if (kill % 2 == 0) AwaitWrite(child, *written, before);
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    ::kill(child, SIGKILL);
    ASSERT_EQ(ResultOf(child), -1) << kill;
    if (*written == 0) continue;
    const auto opened = SqliteRegistry::Open(file, log);
    ASSERT_FALSE(opened.lost) << kill;
    const std::string text = ReadText(*opened.registry, "Wert");
    if (text == TextOfWrite(*written + 1)) ++*written;  // committed, but killed before it could say so
    ASSERT_EQ(text, TextOfWrite(*written)) << kill;
  }
  ExpectIntact(file);
  RecordProperty("writes", *written);
}

TEST_F(Store, LosesNoneOfTheValuesOfEightProcesses) {
  constexpr int kProcesses = 8;
  constexpr int kValues = 1000;
  const auto name = [](int process, int value) {
    return "Wert " + std::to_string(process) + "." + std::to_string(value);
  };
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(Start([&] {
      const auto opened = SqliteRegistry::Open(file, log);
      if (!opened.notice.empty()) return 1;
      for (int value = 0; value < kValues; ++value) {
        if (!WriteText(*opened.registry, name(process, value), std::to_string(process * value))) return 2;
        if (ReadText(*opened.registry, name(process, value)) != std::to_string(process * value)) return 3;
      }
      return 0;
    }));
  }
  for (const pid_t child : children) EXPECT_EQ(ResultOf(child), 0);
  const auto opened = SqliteRegistry::Open(file, log);
  int found = 0;
  for (int process = 0; process < kProcesses; ++process) {
    for (int value = 0; value < kValues; ++value) {
      found += ReadText(*opened.registry, name(process, value)) == std::to_string(process * value);
    }
  }
  EXPECT_EQ(found, kProcesses * kValues);
  ExpectIntact(file);
}

}  // namespace
}  // namespace lorelin
