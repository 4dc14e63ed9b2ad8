#pragma once

#include <gtk/gtk.h>

namespace lorelin {

// Whatever leaves the view (copied, cut, selected with the mouse, dragged) is the text as it is written,
// without the marks of AsShown. Selections without them keep their formats. User-interface thread only.
void CopyAsWritten(GtkTextView* view);

// Whether there may be such marks in a buffer; whoever puts them there says so.
void SetHoldsPieces(GtkTextBuffer* buffer, bool holds);
[[nodiscard]] bool HoldsPieces(GtkTextBuffer* buffer);

}  // namespace lorelin
