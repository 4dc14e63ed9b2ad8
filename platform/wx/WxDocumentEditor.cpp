#include "platform/wx/WxDocumentEditor.h"

#include "app/modFile.h"
#include "app/text.h"
#include "platform/wx/accessibility.h"
#include "platform/wx/innerMargins.h"
#include "platform/wx/text.h"

namespace lorelin {
namespace {

// Text controls end a text at its first NUL; the replacement character shows that something stood there.
std::string WithoutNul(std::string_view text) {
  std::string clean(text);
  ReplaceAll(clean, std::string_view("\0", 1), "\xEF\xBF\xBD");
  return clean;
}

}  // namespace

WxDocumentEditor::WxDocumentEditor(wxWindow* parent)
    : wxTextCtrl(parent, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_RICH2 | wxTE_NOHIDESEL, wxDefaultValidator, "rtfText") {
  SetFont(GetFont().Scaled(1.2F));
  SetInnerMargins(*this, FromDIP(12), FromDIP(10));
  SetAccessibleName(*this, "Dokument");
}

std::string WxDocumentEditor::Text() {
  return FromWx(GetValue());
}
void WxDocumentEditor::SetText(std::string_view text) {
  SetValue(ToWx(WithoutNul(text)));
}
void WxDocumentEditor::LoadFile(const std::string& path) {
  SetText(ReadTextFile(path));
}

std::size_t WxDocumentEditor::SelectionStart() {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  return static_cast<std::size_t>(from);
}

std::string WxDocumentEditor::SelectedText() {
  return FromWx(GetStringSelection());
}

void WxDocumentEditor::ReplaceSelection(std::string_view text) {
  long from = 0;
  long to = 0;
  GetSelection(&from, &to);
  Replace(from, to, ToWx(WithoutNul(text)));
}

}  // namespace lorelin
