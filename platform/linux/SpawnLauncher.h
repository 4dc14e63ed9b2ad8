#pragma once

#include "ports/ProgramLauncher.h"

namespace lorelin {

// Starts programs through GLib, which hands them to init: no zombie remains.
class SpawnLauncher final : public ProgramLauncher {
 public:
  void Start(const std::vector<std::string>& arguments) override;
};

}  // namespace lorelin
