#pragma once

#include <memory>
#include <string>

#include "ports/DirectSS.h"
#include "ports/EventPump.h"
#include "ports/SoundFile.h"

namespace lorelin {

// Port: an engine instance of its own that renders texts into sound files. All calls come from the thread
// whose pump it was made with.
class SoundRenderer {
 public:
  virtual ~SoundRenderer() = default;
  // What speaks. It tells every word of a text, with its time in the file, before the text's end; and the
  // length with the end.
  [[nodiscard]] virtual DirectSS& Voice() = 0;
  // The file that the next text is rendered into: whole, or not at all. UTF-8, either separator.
  virtual void SetSoundFile(const std::string& path, SoundFormat format, SoundQuality quality) = 0;
};

// Port: what makes sound files of texts, several side by side. From any thread.
class SoundRendering {
 public:
  virtual ~SoundRendering() = default;
  // Why there is none here, as a German sentence; "" when there is.
  [[nodiscard]] virtual std::string Missing() const = 0;
  // Never when something is missing. `pump` must outlive the instance.
  [[nodiscard]] virtual std::unique_ptr<SoundRenderer> Make(EventPump& pump) = 0;
  // Writes the tags into the rendered file and puts it in the place of `target`, whose permissions stay; what
  // was there stays when that fails. WAV files have no tags. Throws RuntimeError; the rendered file is gone
  // then.
  virtual void PutInPlace(const std::string& rendered, const std::string& target, SoundFormat format,
                          const SoundTags& tags) = 0;
};

}  // namespace lorelin
