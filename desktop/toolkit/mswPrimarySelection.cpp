#include "desktop/toolkit/primarySelection.h"

namespace lorelin {

std::string PrimarySelection() {
  return {};
}

}  // namespace lorelin
