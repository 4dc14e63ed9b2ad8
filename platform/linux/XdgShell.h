#pragma once

#include <string>
#include <vector>

#include "ports/Log.h"
#include "ports/Shell.h"

namespace lorelin {

// The freedesktop.org shell: xdg-open from an argument vector.
class XdgShell final : public Shell {
 public:
  // `programsFolder` holds the programs that came with this one. Does not own the log.
  XdgShell(std::string programsFolder, Log& log) : programsFolder_(std::move(programsFolder)), log_(log) {}
  bool OpenFolder(const std::string& folder) override;
  bool Open(const std::string& item, const std::string& folder, ShowCommand show) override;

 private:
  bool Start(std::vector<std::string> arguments, const std::string& folder);

  std::string programsFolder_;
  Log& log_;
};

}  // namespace lorelin
