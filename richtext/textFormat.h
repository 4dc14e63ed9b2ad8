#pragma once

#include <string>
#include <string_view>

#include "ports/TextFormat.h"

namespace lorelin {

// The format of a file's bytes: what a document that was read is written in again. Without a character beyond
// ASCII that is SingleBytes; the first line end tells for all.
[[nodiscard]] TextFormat FormatOf(std::string_view bytes);

// The bytes of a text with "\n" line ends; no character is lost in any format.
[[nodiscard]] std::string StoredText(std::string_view text, const TextFormat& format);

}  // namespace lorelin
