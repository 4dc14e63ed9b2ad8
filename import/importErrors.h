#pragma once

#include <string>

#include "base/RuntimeError.h"

namespace lorelin {

// Why there is no document, as a person reads it.

[[nodiscard]] inline RuntimeError ImportError(const std::string& sentence) {
  return {ErrorNumber::InvalidFileFormat, sentence};
}

[[nodiscard]] inline RuntimeError DocumentTooLarge() {
  return ImportError("Das Dokument ist zu umfangreich, um geöffnet zu werden.");
}

// `kind` with its article: "Das E-Book".
[[nodiscard]] inline RuntimeError DamagedDocument(const std::string& kind) {
  return ImportError(kind + " ist beschädigt oder unvollständig. Bitte öffnen Sie eine andere Kopie.");
}

// What is said beside a document that was read in part.
inline constexpr const char* kDamagedNotice = "Die Datei ist beschädigt. Ein Teil des Textes kann fehlen.";

[[nodiscard]] inline RuntimeError NoTextInDocument() {
  return ImportError("In der Datei wurde kein Text gefunden.");
}

}  // namespace lorelin
