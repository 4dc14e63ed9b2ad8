#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/TaskPump.h"
#include "export/RenderedFile.h"
#include "speech/SpelledSpeech.h"

namespace lorelin {

// A text on its way into one sound file, with an engine of its own. All calls from one thread.
class TextRendering {
 public:
  // Owns none of what it is given. `before`: characters of the document that were made already, for the
  // progress. Throws RuntimeError when there is no engine.
  TextRendering(const PlannedFile& file, const ExportVoice& voice, SoundRendering& rendering,
                RenderingProgress& progress, std::size_t before = 0);

  // The file is there, under this name, when the end is complete. Nothing when it was cancelled.
  [[nodiscard]] std::optional<EndOfText> Run(const std::string& target);
  // In the order of their times and places.
  [[nodiscard]] const std::vector<TimedWord>& Words() const { return words_; }

 private:
  void Take(const HeardWord& word);

  const PlannedFile& file_;
  RenderingProgress& progress_;
  const std::size_t before_;
  TaskPump pump_;
  std::unique_ptr<SoundRenderer> renderer_;
  SpelledSpeech speech_;
  std::vector<TimedWord> words_;
  std::optional<EndOfText> end_;
};

}  // namespace lorelin
