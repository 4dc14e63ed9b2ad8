#include "desktop/toolkit/plainText.h"

namespace lorelin {
namespace {

class PlainText final : public wxStaticText {
 public:
  using wxStaticText::wxStaticText;

 protected:
  bool GTKWidgetNeedsMnemonic() const override { return false; }
};

}  // namespace

wxStaticText* NewPlainText(wxWindow* parent, const wxString& text, long style, const wxString& name) {
  return new PlainText(parent, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, style, name);
}

}  // namespace lorelin
