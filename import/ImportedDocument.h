#pragma once

#include <string>

#include "ports/DocumentInfo.h"
#include "richtext/RichText.h"

namespace lorelin {

// A document of a foreign format, as it is shown and read.
struct ImportedDocument {
  RichText text;
  DocumentInfo info;
  std::string notice;     // a German sentence about what could not be read; "" when nothing is missing
  bool hasPages = false;  // pictures of pages whose text can be recognised

  bool operator==(const ImportedDocument&) const = default;
};

}  // namespace lorelin
