#include "desktop/toolkit/fontScale.h"

namespace lorelin {

double UsualPoints() {
  return 9;
}

}  // namespace lorelin
