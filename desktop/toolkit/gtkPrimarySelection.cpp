#include <memory>
#include <utility>

#include "desktop/toolkit/gtkSelection.h"
#include "desktop/toolkit/primarySelection.h"

namespace lorelin {

std::string PrimarySelection() {
  // The answer may come when nobody waits for it any more.
  const auto answer = std::make_shared<std::string>();
  RequestSelection(GDK_SELECTION_PRIMARY, [answer](std::string text) { *answer = std::move(text); });
  return *answer;
}

}  // namespace lorelin
