#pragma once

#include <memory>
#include <string>

#include "export/ExportPlan.h"
#include "export/RenderedFile.h"
#include "extensions/modAddin.h"
#include "ports/Clock.h"
#include "settings/SettingsStore.h"
#include "speech/Pronunciations.h"

namespace lorelin {

// What an export needs to know before it goes on without the user: the text as it would be read aloud, and
// the voice as it is set now. User-interface thread only.
class ExportPreparation {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    SettingsStore& settings;
    ModAddin& extensions;
    Pronunciations& pronunciations;
    Clock& clock;
  };

  explicit ExportPreparation(const Parts& parts) : parts_(parts) {}

  // Chapters beyond the text's end are dropped. Through the extensions' filter, with prefix, suffix and the
  // time. Null when the user did not want to wait for the filter any longer.
  [[nodiscard]] std::shared_ptr<const ExportText> TextOf(std::string written, DocumentInfo info,
                                                         std::vector<TextRun> formats = {});
  // Throws RuntimeError 13 or 6 when a stored value is no number.
  [[nodiscard]] std::shared_ptr<const ExportVoice> Voice();

 private:
  Parts parts_;
};

}  // namespace lorelin
