#pragma once

#include <wx/stattext.h>

namespace lorelin {

// A text that stands for itself. Of any other static text, assistive technology takes it that it names the
// control behind it.
class PlainText final : public wxStaticText {
 public:
  using wxStaticText::wxStaticText;

#ifdef __WXGTK__
 protected:
  bool GTKWidgetNeedsMnemonic() const override {
    return false;
  }
#endif
};

}  // namespace lorelin
