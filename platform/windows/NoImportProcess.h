#pragma once

#include <functional>

#include "ports/ImportProcess.h"

namespace lorelin {

// The process that reads foreign formats is not part of the program for this system yet.
class NoImportProcess final : public ImportProcess {
 public:
  Answer Run(const Job&, const std::function<bool(int)>&) override {
    return {.bytes = {},
            .problem =
                "Dokumente dieses Formats kann Lorelin unter Windows noch nicht öffnen. Bitte "
                "speichern Sie das Dokument als RTF- oder Textdatei und öffnen Sie diese."};
  }
};

}  // namespace lorelin
