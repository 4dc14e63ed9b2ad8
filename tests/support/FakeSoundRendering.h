#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "ports/SoundRendering.h"
#include "tests/support/FakeDirectSS.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {

// Renders at once, a character taking ten milliseconds; texts with `failsAt` in them end there. From any
// thread, as the real one.
class FakeSoundRendering final : public SoundRendering {
 public:
  struct File {
    std::string text;
    SoundFormat format = SoundFormat::Wav;
    SoundQuality quality = SoundQuality::Usual;
    SoundTags tags;
  };

  [[nodiscard]] std::string Missing() const override { return missing; }
  [[nodiscard]] std::unique_ptr<SoundRenderer> Make(EventPump& pump) override {
    return std::make_unique<Renderer>(*this, pump);
  }
  void PutInPlace(const std::string& rendered, const std::string& target, SoundFormat format,
                  const SoundTags& tags) override {
    const std::lock_guard guard(mutex_);
    File file = rendered_.extract(rendered).mapped();
    if (error) throw RuntimeError(*error);
    file.format = format;
    file.tags = tags;
    files_[target] = std::move(file);
  }

  [[nodiscard]] std::map<std::string, File> Files() const {
    const std::lock_guard guard(mutex_);
    return files_;
  }

  std::string missing;
  std::string failsAt;               // "" for never
  bool holds = false;                // texts do not end
  bool writesFiles = false;          // what is rendered is really there, as its text
  std::optional<ErrorNumber> error;  // of putting in place

 private:
  class Renderer final : public SoundRenderer {
   public:
    Renderer(FakeSoundRendering& rendering, EventPump& pump) : rendering_(rendering), pump_(pump) {}
    DirectSS& Voice() override { return voice_; }
    // The text is spoken when events are let in next.
    void SetSoundFile(const std::string& path, SoundFormat, SoundQuality quality) override {
      path_ = path;
      quality_ = quality;
      if (!rendering_.holds) pump_.Post([this] { Render(); });
    }

   private:
    void Render() {
      if (voice_.AwaitsMore()) return pump_.Post([this] { Render(); });
      const std::string text = voice_.SpokenText();
      const std::size_t end = text.find(rendering_.failsAt);
      const bool whole = rendering_.failsAt.empty() || end == std::string::npos;
      TellWords(whole ? text : text.substr(0, end));
      const std::lock_guard guard(rendering_.mutex_);
      if (whole) {
        rendering_.rendered_[path_].text = text;
        rendering_.rendered_[path_].quality = quality_;
        if (rendering_.writesFiles) WriteFile(path_, text);
      }
      voice_.Finish(
          {.complete = whole, .reason = whole ? "" : "Abgebrochen.", .length = TimeOf(CharacterCount(text))});
    }
    void TellWords(const std::string& text) {
      for (std::size_t begin = text.find_first_not_of(" \n"); begin != std::string::npos;) {
        const std::size_t end = std::min(text.find_first_of(" \n", begin), text.size());
        const std::size_t first = CharacterCount(text.substr(0, begin));
        voice_.Hear({first, first + CharacterCount(text.substr(begin, end - begin)), TimeOf(first)});
        begin = text.find_first_not_of(" \n", end);
      }
    }
    static std::chrono::milliseconds TimeOf(std::size_t characters) {
      return std::chrono::milliseconds(10 * static_cast<int>(characters));
    }

    FakeSoundRendering& rendering_;
    EventPump& pump_;
    CallLog log_;
    FakeDirectSS voice_{"renderer", log_};
    std::string path_;
    SoundQuality quality_ = SoundQuality::Usual;
  };

  mutable std::mutex mutex_;
  std::map<std::string, File> rendered_;
  std::map<std::string, File> files_;
};

}  // namespace lorelin
