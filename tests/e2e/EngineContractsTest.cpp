#include <cstdlib>
#include <string>

#include "tests/support/CommandData.h"
#include "tests/support/DirectSSContract.h"
#include "tests/support/HeardWordsContract.h"
#include "tests/support/NaturalData.h"
#include "tests/support/RealEngine.h"
#include "tests/support/voiceWith.h"

// What every engine does, over the voices that are not eSpeak NG's.
namespace lorelin {
namespace {

class NaturalUnderTest final : public EngineUnderTest {
 public:
  NaturalUnderTest(const char* voice, bool playing) : playing_(playing) {
    if (!engine::InstalledRuntime().empty()) real_.engine.SetCurrentVoice(VoiceWith(real_.engine, voice));
    real_.engine.SetSpeed(real_.engine.MaxSpeed());
  }
  DirectSS& Instance() override { return real_.engine; }
  bool RunToTheEnd() override {
    const bool ended = real_.WaitUntil([this] { return !real_.engine.Speaking(); });
    real_.pump.WaitForEvents();
    return ended;
  }
  std::string WavePath() override { return playing_ ? "" : FileToRender(); }
  std::string FileToRender() override { return real_.folder.File("a.wav"); }
  std::string Lacking() override {
    return engine::InstalledRuntime().empty() ? "there is no ONNX Runtime" : "";
  }

 private:
  NaturalData data_;
  bool playing_;
  RealEngine real_;
};

// The parameter of a contract test is a plain function.
template <char Voice, bool Playing>
std::unique_ptr<EngineUnderTest> MakeNatural() {
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  const char* const voice = Voice == '1' ? "– hoch" : Voice == '2' ? "– tief" : "probe";
  return std::make_unique<NaturalUnderTest>(voice, Playing);
}

INSTANTIATE_TEST_SUITE_P(NaturalRendering, DirectSSContract,
                         testing::Values(&MakeNatural<'0', false>, &MakeNatural<'2', false>));
INSTANTIATE_TEST_SUITE_P(NaturalPlaying, DirectSSContract, testing::Values(&MakeNatural<'1', true>));
INSTANTIATE_TEST_SUITE_P(NaturalPlaying, HeardWordsContract,
                         testing::Values(&MakeNatural<'0', true>, &MakeNatural<'2', true>));

class CommandUnderTest final : public EngineUnderTest {
 public:
  CommandUnderTest(const char* voice, bool playing) : playing_(playing) {
    real_.engine.SetCurrentVoice(VoiceWith(real_.engine, voice));
    real_.engine.SetSpeed(real_.engine.MaxSpeed());
  }
  DirectSS& Instance() override { return real_.engine; }
  bool RunToTheEnd() override {
    const bool ended = real_.WaitUntil([this] { return !real_.engine.Speaking(); });
    real_.pump.WaitForEvents();
    return ended;
  }
  std::string WavePath() override { return playing_ ? "" : FileToRender(); }
  std::string FileToRender() override { return real_.folder.File("a.wav"); }

 private:
  CommandData data_;
  bool playing_;
  RealEngine real_{playing_};
};

template <char Voice, bool Playing>
std::unique_ptr<EngineUnderTest> MakeCommand() {
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  const char* const voice = Voice == 'e'   ? "– Einzeln"
                            : Voice == 'b' ? "– Bleibend"
                            : Voice == 'r' ? "– Roh"
                                           : "– Modul";
  return std::make_unique<CommandUnderTest>(voice, Playing);
}

INSTANTIATE_TEST_SUITE_P(CommandsRendering, DirectSSContract,
                         testing::Values(&MakeCommand<'e', false>, &MakeCommand<'b', false>,
                                         &MakeCommand<'m', false>));
INSTANTIATE_TEST_SUITE_P(CommandsPlaying, DirectSSContract,
                         testing::Values(&MakeCommand<'r', true>, &MakeCommand<'b', true>));
INSTANTIATE_TEST_SUITE_P(CommandsPlaying, HeardWordsContract,
                         testing::Values(&MakeCommand<'e', true>, &MakeCommand<'b', true>,
                                         &MakeCommand<'r', true>, &MakeCommand<'m', true>));

}  // namespace
}  // namespace lorelin
