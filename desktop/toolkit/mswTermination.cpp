#include "desktop/toolkit/termination.h"

namespace lorelin {

void OnTermination(std::function<void()>) {}

}  // namespace lorelin
