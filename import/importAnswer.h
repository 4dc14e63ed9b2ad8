#pragma once

#include <string>
#include <string_view>

#include "import/ImportedDocument.h"

namespace lorelin {

// What passes from lorelin-import to the program: the document, or why there is none. Both are of one build.
// Pure, standard library only.

[[nodiscard]] std::string WriteImportAnswer(const ImportedDocument& document);

// The answer when there is no document: a German sentence that says why.
[[nodiscard]] std::string WriteImportProblem(std::string_view sentence);

// The document of such an answer. Throws RuntimeError (321): with the sentence of a problem, and for an
// answer that is none: places outside the text, runs that reach beyond it, text that is no UTF-8 are not
// believed.
[[nodiscard]] ImportedDocument ReadImportAnswer(std::string_view bytes);

}  // namespace lorelin
