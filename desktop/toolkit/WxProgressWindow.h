#pragma once

#include <wx/progdlg.h>

#include <memory>

#include "desktop/toolkit/FocusKeeper.h"
#include "ports/ProgressWindow.h"

namespace lorelin {

class WxProgressWindow final : public ProgressWindow {
 public:
  bool Show(std::string_view text, double done) override;
  void Close() override;

 private:
  std::unique_ptr<FocusKeeper> focus_;  // of the window that is locked meanwhile
  std::unique_ptr<wxGenericProgressDialog> dialog_;
};

}  // namespace lorelin
