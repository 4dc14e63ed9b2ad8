#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>

namespace lorelin {

// Of the events only those that a selection needs: what else waits is not let in.
void LetSelectionEventsIn();

// Asks for the text of the selection and waits for it, a second at most: `received` is called with it (""
// when there is none), possibly later, or never.
void RequestSelection(GdkAtom selection, std::function<void(std::string text)> received);

}  // namespace lorelin
