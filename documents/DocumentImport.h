#pragma once

#include "import/ImportedDocument.h"
#include "ports/Clock.h"
#include "ports/DocumentEditor.h"
#include "ports/ImportProcess.h"
#include "ports/ProgressWindow.h"

namespace lorelin {

// Has documents of foreign formats read by the process for it, and shows how far that is. User-interface
// thread only.
class DocumentImport {
 public:
  // Owns none of them.
  DocumentImport(ImportProcess& process, ProgressWindow& progress, Clock& clock)
      : process_(process), progress_(progress), clock_(clock) {}

  // Throws RuntimeError: 32755 (Cancelled) when the user gives up, 321 with a German sentence when there is
  // no document.
  [[nodiscard]] ImportedDocument Run(const ImportProcess::Job& job);
  // Shows the file in the editor, whatever its format. Throws like Run and LoadFile.
  void Show(const std::string& path, DocumentEditor& editor);

 private:
  ImportProcess& process_;
  ProgressWindow& progress_;
  Clock& clock_;
};

}  // namespace lorelin
