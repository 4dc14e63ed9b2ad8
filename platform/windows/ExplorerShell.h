#pragma once

#include <string>

#include "ports/Log.h"
#include "ports/Shell.h"

namespace lorelin {

// The shell of Windows: the verb "open" of shell32, and the Explorer.
class ExplorerShell final : public Shell {
 public:
  // `programsFolder` holds the programs that came with this one. Does not own the log.
  ExplorerShell(std::string programsFolder, Log& log)
      : programsFolder_(std::move(programsFolder)), log_(log) {}
  bool OpenFolder(const std::string& folder) override;
  bool Open(const std::string& item, const std::string& folder, ShowCommand show) override;

 private:
  bool Execute(const std::string& item, const std::string& parameters, const std::string& folder,
               ShowCommand show);

  std::string programsFolder_;
  Log& log_;
};

}  // namespace lorelin
