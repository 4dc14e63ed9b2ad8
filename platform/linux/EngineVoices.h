#pragma once

#include "ports/NaturalVoices.h"

namespace lorelin {

// Natural voices as lorelin-engine finds them.
class EngineVoices final : public NaturalVoices {
 public:
  std::string Obstacle() const override;
  bool Supported() const override { return true; }
  std::string OwnFolder() const override;
  std::vector<InstalledVoice> Installed() const override;
  std::string Problem(std::string_view description) const override;
};

}  // namespace lorelin
