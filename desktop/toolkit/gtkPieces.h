#pragma once

#include <gtk/gtk.h>

#include <string>

#include "documents/longParagraphs.h"

namespace lorelin {

// The pieces of long paragraphs (see AsShown) in a text buffer. User-interface thread only.

// Inserts such a text; `where` stands behind it then.
void InsertPieces(GtkTextBuffer* buffer, GtkTextIter* where, const ShownText& text);
// There are none any more.
void ForgetPieces(GtkTextBuffer* buffer);
// Whether there may be some.
[[nodiscard]] bool HoldsPieces(GtkTextBuffer* buffer);
// The text between the two as it is written.
[[nodiscard]] std::string WrittenText(const GtkTextIter& from, const GtkTextIter& to);
// The selection's.
[[nodiscard]] std::string SelectedText(GtkTextBuffer* buffer);

// Whatever leaves the view (copied, cut, selected with the mouse, dragged) is the text as it is written.
// Selections without pieces keep their formats.
void CopyAsWritten(GtkTextView* view);

}  // namespace lorelin
