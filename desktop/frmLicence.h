#pragma once

#include <wx/dialog.h>

#include <string>

namespace lorelin {

// Shows the card of a voice, which names its licence, and asks whether the user agrees: wxID_OK.
class FrmLicence final : public wxDialog {
 public:
  FrmLicence(wxWindow* parent, const std::string& voice, const std::string& size, const std::string& card);
};

}  // namespace lorelin
