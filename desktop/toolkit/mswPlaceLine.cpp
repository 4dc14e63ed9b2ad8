#include "desktop/toolkit/PlaceLine.h"

namespace lorelin {

// A track bar is drawn in whatever height it gets.
void MakeThin(wxSlider&) {}

}  // namespace lorelin
