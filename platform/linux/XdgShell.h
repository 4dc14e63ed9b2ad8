#pragma once

#include "platform/Log.h"
#include "platform/Shell.h"

namespace lorelin {

// The freedesktop.org shell: xdg-open from an argument vector.
class XdgShell final : public Shell {
 public:
  explicit XdgShell(Log& log) : log_(log) {}
  bool OpenFolder(const std::string& folder) override;

 private:
  Log& log_;
};

}  // namespace lorelin
