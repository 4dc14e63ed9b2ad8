#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>

#include "export/ExportPlan.h"
#include "german/spokenGerman.h"
#include "ports/FileWriter.h"
#include "ports/SoundRendering.h"
#include "speech/VoiceProfile.h"

namespace lorelin {

// How the texts of an export are spoken.
struct ExportVoice {
  VoiceProfile profile;
  std::shared_ptr<const GermanSpeller> speller;  // null when German voices get texts as they are
};

// What another thread sees and says of a file that is being made.
struct RenderingProgress {
  std::atomic<std::size_t> characters = 0;  // of the document that are spoken
  std::atomic<bool> cancelled = false;
};

enum class RenderingEnd { Whole, Cancelled, CutShort, NotWritten };

struct RenderingResult {
  RenderingEnd end = RenderingEnd::Whole;
  std::string problem;  // a German sentence when it is not whole, "" when it was cancelled
};

// Makes the file, on the caller's thread, until it is there or cancelled: whole and with its tags, or not at
// all; then its subtitles. What was at its place stays until then. Never throws.
[[nodiscard]] RenderingResult RenderFile(const PlannedFile& file, const ExportVoice& voice,
                                         SoundRendering& rendering, FileWriter& files,
                                         RenderingProgress& progress);

}  // namespace lorelin
