#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <vector>

#include "tests/support/RealEngine.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::size_t kRate = 22050;

// A program of the test's own, ended with the object.
class Child {
 public:
  Child(std::vector<std::string> arguments, const std::string& outputFile) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, outputFile.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, (outputFile + ".err").c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    EXPECT_EQ(posix_spawnp(&process_, pointers[0], &actions, nullptr, pointers.data(), environ), 0)
        << arguments[0];
    posix_spawn_file_actions_destroy(&actions);
  }
  ~Child() { End(); }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  void End() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    process_ = -1;
  }

 private:
  pid_t process_ = -1;
};

// A PulseAudio server of the test's own whose only sink goes nowhere, and a recorder on that sink's monitor.
class Sound : public testing::Test {
 protected:
  void SetUp() override {
    const std::string socket = folder.File("native");
    setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
    setenv("HOME", folder.Path().c_str(), 1);
    setenv("PULSE_SERVER", ("unix:" + socket).c_str(), 1);
    setenv("SDL_AUDIODRIVER", "pulseaudio", 1);
    server = std::make_unique<Child>(
        std::vector<std::string>{"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
                                 "--use-pid-file=no",
                                 "--load=module-native-protocol-unix auth-anonymous=1 socket=" + socket,
                                 "--load=module-null-sink sink_name=stille"},
        folder.File("server.log"));
    ASSERT_TRUE(Within(seconds(10), [&] { return std::filesystem::exists(socket); }));
    recorder = std::make_unique<Child>(
        std::vector<std::string>{"parec", "--device=stille.monitor", "--format=s16le", "--channels=1",
                                 "--rate=" + std::to_string(kRate), "--latency-msec=20"},
        folder.File("aufnahme.raw"));
    ASSERT_TRUE(
        Within(seconds(10), [&] { return std::filesystem::file_size(folder.File("aufnahme.raw")) > 0; }));
  }

  static milliseconds seconds(int count) { return std::chrono::seconds(count); }

  bool Within(milliseconds time, const std::function<bool()>& done) {
    const auto end = steady_clock::now() + time;
    while (!done()) {
      if (steady_clock::now() > end) return false;
      usleep(5000);
    }
    return true;
  }

  std::vector<std::int16_t> Recording() {
    usleep(400000);  // what is on its way to the recorder
    const std::string bytes = ReadFile(folder.File("aufnahme.raw"));
    std::vector<std::int16_t> samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
  }

  TemporaryFolder folder;
  std::unique_ptr<Child> server;
  std::unique_ptr<Child> recorder;
};

bool IsLoud(std::int16_t sample) {
  return sample > 200 || sample < -200;
}

// From the first to the last loud sample.
std::vector<std::int16_t> Heard(const std::vector<std::int16_t>& samples) {
  const auto first = std::find_if(samples.begin(), samples.end(), IsLoud);
  const auto last = std::find_if(samples.rbegin(), samples.rend(), IsLoud).base();
  return first < last ? std::vector<std::int16_t>(first, last) : std::vector<std::int16_t>();
}

struct Silence {
  std::size_t begin = 0;
  std::size_t length = 0;
};

Silence LongestSilence(const std::vector<std::int16_t>& samples) {
  Silence longest;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (samples[i] != 0) {
      begin = i + 1;
    } else if (i + 1 - begin > longest.length) {
      longest = {begin, i + 1 - begin};
    }
  }
  return longest;
}

constexpr std::string_view kSentence =
    "Ein Satz ohne jede Pause, aber lang genug, um ihn mittendrin anzuhalten.";

TEST_F(Sound, OfASpokenTextReachesTheAudioServer) {
  RealEngine real(true);
  real.engine.Speak(kSentence);
  ASSERT_TRUE(real.WaitForEnd());
  const auto heard = Heard(Recording());
  EXPECT_TRUE(real.notices.empty());
  RealEngine rendering;
  rendering.engine.SetWaveFile(rendering.folder.File("a.wav"));
  rendering.engine.Speak(kSentence);
  ASSERT_TRUE(rendering.WaitForEnd());
  const auto length = (std::filesystem::file_size(rendering.folder.File("a.wav")) - 44) / 2;
  EXPECT_GT(heard.size(), length * 7 / 10);
  EXPECT_LT(heard.size(), length + kRate / 20);
}

TEST_F(Sound, PausesSoonAndLosesNothing) {
  RealEngine plain(true);
  plain.engine.Speak(kSentence);
  ASSERT_TRUE(plain.WaitForEnd());
  const std::vector<std::int16_t> whole = Heard(Recording());
  recorder->End();
  recorder = std::make_unique<Child>(
      std::vector<std::string>{"parec", "--device=stille.monitor", "--format=s16le", "--channels=1",
                               "--rate=" + std::to_string(kRate), "--latency-msec=20"},
      folder.File("aufnahme.raw"));
  ASSERT_TRUE(
      Within(seconds(10), [&] { return std::filesystem::file_size(folder.File("aufnahme.raw")) > 0; }));

  RealEngine real(true);
  real.engine.Speak(kSentence);
  ASSERT_TRUE(real.WaitUntil([&] { return real.engine.LastStartLatency().count() > 0; }));
  const auto Let = [&](milliseconds time) {
    const auto end = steady_clock::now() + time;
    (void)real.WaitUntil([&] { return steady_clock::now() > end; });
  };
  Let(milliseconds(1000));
  const auto paused = steady_clock::now();
  real.engine.PauseAudio();
  Let(milliseconds(1500));
  EXPECT_TRUE(real.engine.Speaking());
  real.engine.ResumeAudio();
  const double pause = std::chrono::duration<double>(steady_clock::now() - paused).count();
  ASSERT_TRUE(real.WaitForEnd());
  std::vector<std::int16_t> heard = Heard(Recording());
  const Silence silence = LongestSilence(heard);
  // The silence begins at most 100 ms after the pause.
  EXPECT_NEAR(static_cast<double>(silence.length) / kRate, pause, 0.1);
  heard.erase(heard.begin() + static_cast<std::ptrdiff_t>(silence.begin),
              heard.begin() + static_cast<std::ptrdiff_t>(silence.begin + silence.length));
  // Nothing is lost; a busy machine may put a gap of its own into the sound.
  EXPECT_GT(heard.size() + 600, whole.size());
  EXPECT_LT(heard.size(), whole.size() + kRate / 3);
}

TEST_F(Sound, StopsAtOnceOnAReset) {
  RealEngine real(true);
  real.engine.Speak(kSentence);
  ASSERT_TRUE(real.WaitUntil([&] { return real.engine.LastStartLatency().count() > 0; }));
  const auto begin = steady_clock::now();
  (void)real.WaitUntil([&] { return steady_clock::now() > begin + milliseconds(1000); });
  real.engine.ResetAudio();
  const double spoken = std::chrono::duration<double>(steady_clock::now() - begin).count();
  EXPECT_FALSE(real.engine.Speaking());
  EXPECT_LT(static_cast<double>(Heard(Recording()).size()) / kRate, spoken + 0.1);
  EXPECT_TRUE(real.ends.empty());
}

// Where sound begins after a tenth of a second without any.
std::vector<std::size_t> Onsets(const std::vector<std::int16_t>& samples) {
  std::vector<std::size_t> onsets;
  std::size_t quiet = kRate;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (!IsLoud(samples[i])) {
      ++quiet;
      continue;
    }
    if (quiet >= kRate / 10) onsets.push_back(i);
    quiet = 0;
  }
  return onsets;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// Each word is a sentence here, so that the recording shows where it begins.
TEST_F(Sound, TellsEachWordWhenItIsHeard) {
  RealEngine real(true);
  std::vector<double> told;
  real.engine.OnWordHeard([&](const HeardWord&) {
    told.push_back(static_cast<double>(std::filesystem::file_size(folder.File("aufnahme.raw"))) / 2);
  });
  real.engine.Speak(
      "Lampe.\n\nRose.\n\nMond.\n\nNase.\n\nWolle.\n\nAuge.\n\nIgel.\n\nOfen.\n\nUhu.\n\nEule.\n\nMauer."
      "\n\nLeine.");
  ASSERT_TRUE(real.WaitForEnd());
  const std::vector<std::size_t> heard = Onsets(Recording());
  ASSERT_EQ(told.size(), 12U);
  ASSERT_GE(heard.size(), 12U);
  // A busy machine may break a word in two; the nearest beginning is meant.
  std::vector<double> late;
  for (const double word : told) {
    const auto nearest = std::min_element(heard.begin(), heard.end(), [&](std::size_t a, std::size_t b) {
      return std::abs(word - static_cast<double>(a)) < std::abs(word - static_cast<double>(b));
    });
    late.push_back((word - static_cast<double>(*nearest)) / kRate);
  }
  RecordProperty("secondsLate", std::to_string(Median(late)));
  EXPECT_LT(std::abs(Median(late)), 0.2);
}

TEST_F(Sound, IsHeardElsewhereSoonAfterASkip) {
  RealEngine real(true);
  real.engine.Speak(kSentence);
  ASSERT_TRUE(real.WaitUntil([&] { return real.engine.LastStartLatency().count() > 0; }));
  const auto begin = steady_clock::now();
  (void)real.WaitUntil([&] { return steady_clock::now() > begin + milliseconds(1000); });
  const std::size_t skipped = std::filesystem::file_size(folder.File("aufnahme.raw")) / 2;
  real.engine.Speak("Andere Worte.");
  ASSERT_TRUE(real.WaitForEnd());
  const std::vector<std::int16_t> samples = Recording();
  const auto from = samples.begin() + static_cast<std::ptrdiff_t>(skipped);
  // A stretch that is silent to the last bit lies between the two texts.
  constexpr int kSilent = 64;
  const auto gap = std::search_n(from, samples.end(), kSilent, 0);
  ASSERT_NE(gap, samples.end());
  const auto next = std::find_if(gap, samples.end(), &IsLoud);
  ASSERT_NE(next, samples.end());
  RecordProperty("secondsToTheNewText", std::to_string(static_cast<double>(next - from) / kRate));
  EXPECT_LT(static_cast<double>(next - from) / kRate, 1.0);
}

TEST_F(Sound, GoesOnSilentlyWithOneNoticeWhenThereIsNoServer) {
  recorder->End();
  server->End();
  setenv("PULSE_SERVER", "unix:/gibt/es/nicht", 1);
  RealEngine real(true);
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends[0].complete);
  EXPECT_EQ(real.notices,
            std::vector<std::string>{"Es wurde kein Audiogerät gefunden. Der Text wird stumm vorgelesen."});
  real.engine.Speak("Noch einmal.");
  ASSERT_TRUE(real.WaitForEnd(2));
  EXPECT_EQ(real.notices.size(), 1U);
}

}  // namespace
}  // namespace lorelin
