#pragma once

#include "export/RenderedFile.h"

namespace lorelin {

// Makes an EPUB of the text: its chapters with their sound, sentence by sentence. On the caller's thread,
// until the file is there or it was cancelled; else nothing of it is left. Throws RuntimeError.
[[nodiscard]] RenderingResult RenderBook(const PlannedFile& file, const ExportVoice& voice,
                                         SoundRendering& rendering, FileWriter& files,
                                         RenderingProgress& progress);

}  // namespace lorelin
