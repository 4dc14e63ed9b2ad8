#include "platform/windows/ComSoundRendering.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/unfinishedName.h"
#include "platform/common/SpeechInstance.h"
#include "platform/common/soundTags.h"
#include "platform/windows/ApartmentThread.h"
#include "platform/windows/SentenceRendering.h"
#include "platform/windows/replaceFile.h"

namespace lorelin {
namespace {

engine::Capabilities AbilitiesOf(DirectSS& engine) {
  engine::Capabilities abilities{.pitch = {engine.MinPitch(), engine.MaxPitch()},
                                 .speed = {engine.MinSpeed(), engine.MaxSpeed()},
                                 .volume = {engine.MinVolume(), engine.MaxVolume()},
                                 .voices = {}};
  for (std::int32_t number = 1; number <= engine.VoiceCount(); ++number) {
    abilities.voices.push_back({.name = engine.VoiceName(number),
                                .languageId = engine.VoiceLanguage(number),
                                .gender = engine.VoiceGender(number)});
  }
  return abilities;
}

// The engine as its maker sees it from another thread.
class RenderingVoice final : public SpeechInstance {
 public:
  RenderingVoice(EventPump& pump, const ComSoundRendering::MakeEngine& makeEngine)
      : pump_(pump), makeEngine_(makeEngine) {}
  ~RenderingVoice() override {
    thread_.Do([this] {
      rendering_.reset();
      engine_.reset();
    });
  }
  RenderingVoice(const RenderingVoice&) = delete;
  RenderingVoice& operator=(const RenderingVoice&) = delete;

  void SetSoundFormat(SoundFormat format, SoundQuality quality) {
    properties_.format = format;
    properties_.quality = quality;
  }

  void Speak(std::string_view text) override { Start(text, true); }
  void SpeakBeginning(std::string_view text) override { Start(text, false); }
  void ContinueText(std::string_view text, bool last) override {
    thread_.Post([this, id = CurrentText(), text = std::string(text), last] {
      if (rendering_ && id == renderedText_) rendering_->Add(text, last);
    });
  }
  void PauseAudio() override {
    thread_.Do([this] { Engine().PauseAudio(); });
  }
  void ResumeAudio() override {
    thread_.Do([this] { Engine().ResumeAudio(); });
  }
  void ResetAudio() override {
    DiscardText();
    *underWay_ = 0;
    thread_.Do([this] { rendering_.reset(); });
  }
  bool Speaking() override { return *underWay_ != 0; }

 private:
  const engine::Capabilities& Abilities() override {
    if (abilities_) return *abilities_;
    engine::Capabilities abilities;
    thread_.Do([&] { abilities = AbilitiesOf(Engine()); });
    SetUsualProperties(abilities);
    return abilities_.emplace(std::move(abilities));
  }

  DirectSS& Engine() {
    if (!engine_) engine_ = makeEngine_(thread_);
    return *engine_;
  }

  void Start(std::string_view text, bool last) {
    (void)Abilities();
    const engine::Utterance utterance = BeginText();
    *underWay_ = utterance.id;
    thread_.Post([this, utterance, text = std::string(text), last] {
      rendering_.reset();
      renderedText_ = utterance.id;
      rendering_ = std::make_unique<SentenceRendering>(Engine(), utterance, HandlersFor(utterance.id));
      rendering_->Add(text, last);
    });
  }

  SentenceRendering::Handlers HandlersFor(std::uint32_t id) {
    const std::weak_ptr<Listener> listener = ListenerForTasks();
    return {.word =
                [this, listener, id](const HeardWord& word) {
                  pump_.Post([listener, id, word] { TellWord(listener, id, word); });
                },
            .end =
                [this, listener, id, underWay = underWay_](const EndOfText& end) {
                  std::uint32_t expected = id;
                  underWay->compare_exchange_strong(expected, 0);
                  pump_.Post([listener, id, end] { TellEnd(listener, id, end); });
                }};
  }

  EventPump& pump_;
  const ComSoundRendering::MakeEngine& makeEngine_;
  std::optional<engine::Capabilities> abilities_;
  const std::shared_ptr<std::atomic<std::uint32_t>> underWay_ =
      std::make_shared<std::atomic<std::uint32_t>>(0);  // the text that is not at its end, 0 for none
  // The thread's own.
  std::unique_ptr<DirectSS> engine_;
  std::unique_ptr<SentenceRendering> rendering_;
  std::uint32_t renderedText_ = 0;
  ApartmentThread thread_{[this] {
    if (rendering_) rendering_->Turn();
  }};
};

class ComSoundRenderer final : public SoundRenderer {
 public:
  ComSoundRenderer(UnfinishedList& unfinished, EventPump& pump,
                   const ComSoundRendering::MakeEngine& makeEngine)
      : unfinished_(unfinished), voice_(pump, makeEngine) {}
  DirectSS& Voice() override { return voice_; }
  void SetSoundFile(const std::string& path, SoundFormat format, SoundQuality quality) override {
    unfinished_.Add(path);
    unfinished_.Add(SentenceRendering::ScratchFileFor(path));
    voice_.SetSoundFormat(format, quality);
    voice_.SetWaveFile(path);
  }

 private:
  UnfinishedList& unfinished_;
  RenderingVoice voice_;
};

// A file that goes with the object, unless it was moved.
class Rendered {
 public:
  explicit Rendered(std::filesystem::path path) : path_(std::move(path)) {}
  ~Rendered() { DeleteFileW(path_.c_str()); }
  Rendered(const Rendered&) = delete;
  Rendered& operator=(const Rendered&) = delete;

  // Whether the disk has room for so much more: the library that writes the tags does not tell. Answers 0 or
  // an errno.
  [[nodiscard]] int MakeRoom(std::size_t bytes) const {
    const int descriptor = _wopen(path_.c_str(), _O_RDWR | _O_BINARY | _O_NOINHERIT);
    if (descriptor < 0) return errno;
    const std::int64_t size = _filelengthi64(descriptor);
    int error = _chsize_s(descriptor, size + static_cast<std::int64_t>(bytes));
    if (_chsize_s(descriptor, size) != 0 && error == 0) error = errno;
    _close(descriptor);
    return error;
  }
  // Makes it durable, and has it take that place. Answers 0 or an errno.
  [[nodiscard]] int MoveTo(const std::filesystem::path& target) const {
    const int descriptor = _wopen(path_.c_str(), _O_RDWR | _O_BINARY | _O_NOINHERIT);
    if (descriptor < 0) return errno;
    const int error = _commit(descriptor) == 0 ? 0 : errno;
    _close(descriptor);
    return error != 0 ? error : ReplaceFileBy(target, path_);
  }

 private:
  const std::filesystem::path path_;
};

ErrorNumber NumberOf(int error) {
  if (error == ENOSPC || error == EFBIG) return ErrorNumber::DiskFull;
  if (error == EACCES || error == EPERM || error == EROFS) return ErrorNumber::PermissionDenied;
  return ErrorNumber::PathFileAccess;
}

}  // namespace

std::unique_ptr<SoundRenderer> ComSoundRendering::Make(EventPump& pump) {
  return std::make_unique<ComSoundRenderer>(unfinished_, pump, makeEngine_);
}

void ComSoundRendering::PutInPlace(const std::string& rendered, const std::string& target, SoundFormat format,
                                   const SoundTags& tags) {
  const Rendered file(NativePath(rendered));
  int error = 0;
  if (format != SoundFormat::Wav) {
    error = file.MakeRoom(RoomForSoundTags(tags));
    if (error == 0 && !WriteSoundTags(NativePath(rendered), format, tags)) error = EIO;
  }
  if (error == 0) error = file.MoveTo(FollowedLinks(NativePath(target)));
  unfinished_.Remove(rendered);
  unfinished_.Remove(SentenceRendering::ScratchFileFor(rendered));
  if (error != 0) throw RuntimeError(NumberOf(error));
}

}  // namespace lorelin
