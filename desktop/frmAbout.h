#pragma once

#include <wx/dialog.h>

#include <string>

namespace lorelin {

// The about box. Any key and a click on its picture close it.
class FrmAbout final : public wxDialog {
 public:
  FrmAbout(wxWindow* parent, const std::string& pictureFile);
};

// "Version 1.2.1": the last number is always the same.
[[nodiscard]] std::string VersionLabel(int major, int minor);

}  // namespace lorelin
