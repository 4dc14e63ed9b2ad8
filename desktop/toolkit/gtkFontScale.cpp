#include "desktop/toolkit/fontScale.h"

namespace lorelin {

double UsualPoints() {
  return 10;
}

}  // namespace lorelin
