#include "desktop/toolkit/pictureButton.h"

namespace lorelin {

// Without the theme's own look the button is drawn in these colours, its frame of the focus included.
void MakeReadableOnPicture(wxButton& button) {
  button.SetBackgroundColour(wxColour(28, 79, 143));
}

}  // namespace lorelin
