#pragma once

#include <string>

#include "ports/LoadedFile.h"
#include "richtext/RichText.h"

namespace lorelin {

// A document and what is known of its file.
struct StoredRichText {
  RichText text;
  LoadedFile file;
};

// A document's file as a text with formats: RTF when it is RTF, else plain text (see DecodeText) with "\n"
// line ends. A NUL, at which text controls and engines would end, is the replacement character. Throws like
// ReadFileBytes, and 321 for what is no text (see IsText).
[[nodiscard]] StoredRichText ReadRichTextFile(const std::string& path);

// The replacement character for every NUL.
[[nodiscard]] std::string WithoutNul(std::string_view text);

}  // namespace lorelin
