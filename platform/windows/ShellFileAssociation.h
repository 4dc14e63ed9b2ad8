#pragma once

#include "platform/windows/AdvapiRegistry.h"
#include "ports/FileAssociation.h"

namespace lorelin {

// The class registry is all that Windows needs; the desktop is told when it has changed.
class ShellFileAssociation final : public FileAssociation {
 public:
  // Does not own the registry.
  explicit ShellFileAssociation(const AdvapiRegistry& registry) : registry_(registry) {}
  void Publish(const FileAssociationData& data) override;

 private:
  const AdvapiRegistry& registry_;
};

}  // namespace lorelin
