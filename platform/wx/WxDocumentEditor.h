#pragma once

#include <wx/textctrl.h>

#include "platform/DocumentEditor.h"

namespace lorelin {

// The document in a native multi-line text control.
class WxDocumentEditor final : public wxTextCtrl, public DocumentEditor {
 public:
  explicit WxDocumentEditor(wxWindow* parent);

  std::string Text() override;
  void SetText(std::string_view text) override;
  void LoadFile(const std::string& path) override;
  std::size_t SelectionStart() override;
  std::string SelectedText() override;
  void ReplaceSelection(std::string_view text) override;

  // Number of characters, without looking at the text.
  [[nodiscard]] std::size_t CharacterCount() const { return static_cast<std::size_t>(GetLastPosition()); }
};

}  // namespace lorelin
