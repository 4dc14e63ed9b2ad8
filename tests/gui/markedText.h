#pragma once

#include <wx/textctrl.h>

#include <string>

namespace lorelin {

enum class ReadingMark { Word, Sentence };

// The text of the editor that a reader sees marked, places apart by "|".
[[nodiscard]] std::string MarkedText(wxTextCtrl& editor, ReadingMark mark);

}  // namespace lorelin
