#pragma once

#include <wx/progdlg.h>

#include <memory>

#include "ports/ProgressWindow.h"

namespace lorelin {

class WxProgressWindow final : public ProgressWindow {
 public:
  bool Show(std::string_view text, double done) override;
  void Close() override { dialog_.reset(); }

 private:
  std::unique_ptr<wxGenericProgressDialog> dialog_;
};

}  // namespace lorelin
