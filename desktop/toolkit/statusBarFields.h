#pragma once

#include <wx/frame.h>
#include <wx/statusbr.h>

namespace lorelin {

// The fields of a status bar, as this system shows them to a person and to assistive technology.

enum class StatusField { First, Message, Notice, Place, Line };
inline constexpr int kStatusFields = 5;

// A status bar with its fields, of any width.
[[nodiscard]] wxStatusBar* MakeStatusFields(wxFrame& frame);

// What a screen reader is to be told of when the text of the field has changed.
[[nodiscard]] wxWindow& AnnouncedPart(wxStatusBar& bar, StatusField field);

}  // namespace lorelin
