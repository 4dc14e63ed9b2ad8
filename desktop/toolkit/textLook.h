#pragma once

#include <wx/textctrl.h>

#include <memory>

#include "ports/ReadingLookView.h"

namespace lorelin {

// Spacing, width and colours of the text in a multi-line control, as far as the system can show them without
// touching the text. Fonts are somebody else's; what depends on them follows with Update. The control has to
// outlive it. User-interface thread only.
class TextLook {
 public:
  // The least room between the text and the edges, in pixels.
  TextLook(wxTextCtrl& control, int horizontal, int vertical);
  ~TextLook();
  TextLook(const TextLook&) = delete;
  TextLook& operator=(const TextLook&) = delete;

  void Show(const ReadingLook& look);
  // The font is another one, or larger.
  void Update();

  // What this system can show.
  struct Parts {
    bool font;
    bool spacing;
    bool colours;
  };
  [[nodiscard]] static Parts CanShow();

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace lorelin
