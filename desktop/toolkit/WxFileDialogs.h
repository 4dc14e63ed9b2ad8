#pragma once

#include <wx/string.h>
#include <wx/window.h>

#include "ports/FileDialogs.h"
#include "ports/MessageBoxes.h"

namespace lorelin {

class WxFileDialogs final : public FileDialogs {
 public:
  // Does not own the boxes, which must outlive it.
  explicit WxFileDialogs(MessageBoxes& messageBoxes) : messageBoxes_(messageBoxes) {}
  // The dialogs belong to this window; nullptr for none.
  void SetParent(wxWindow* parent) { parent_ = parent; }

  std::optional<std::string> AskForFile(const FileDialogRequest& request) override;
  std::optional<std::string> AskForTarget(const FileDialogRequest& request) override;
  std::optional<std::string> AskForAddress(const std::string& proposed) override;

 private:
  struct Choice {
    wxString path;
    int filter = 0;
  };

  [[nodiscard]] std::optional<Choice> Ask(const FileDialogRequest& request, long style);
  [[nodiscard]] bool MayReplace(const wxString& path);

  MessageBoxes& messageBoxes_;
  wxWindow* parent_ = nullptr;
  wxString lastFolder_;
};

}  // namespace lorelin
