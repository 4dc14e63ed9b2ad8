#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "base/TaskPump.h"
#include "platform/linux/EngineClient.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {

// On a machine that does ten other things at once.
constexpr EngineConnection::Patience kLongPatience = {.greeting = std::chrono::seconds(30),
                                                      .answer = std::chrono::seconds(10)};

// The real engine's process behind its client, with a clock that the test turns.
class RealEngine {
 public:
  explicit RealEngine(bool audible = false, EngineConnection::Patience patience = kLongPatience,
                      const std::string& engineFile = LORELIN_BIN_DIR "/lorelin-engine")
      : engine({.engineFile = engineFile,
                .audible = audible,
                .folder = folder.Path(),
                .condition = [this](const std::string& text) { notices.push_back(text); },
                .patience = patience},
               pump, clock, log) {
    engine.OnEndOfText([this](const EndOfText& end) { ends.push_back(end); });
  }

  // Handles events until `done`; false after a minute.
  bool WaitUntil(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!done()) {
      if (std::chrono::steady_clock::now() > end) return false;
      pump.WaitForEvents();
    }
    return true;
  }
  bool WaitForEnd(std::size_t count = 1) {
    return WaitUntil([&] { return ends.size() >= count; });
  }

  TemporaryFolder folder;
  TaskPump pump;
  FakeClock clock;
  FakeLog log;
  std::vector<std::string> notices;
  std::vector<EndOfText> ends;
  EngineClient engine;
};

}  // namespace lorelin
