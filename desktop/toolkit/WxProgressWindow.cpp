#include "desktop/toolkit/WxProgressWindow.h"

#include <algorithm>

#include "desktop/toolkit/activeWindow.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kMost = 1000;

}  // namespace

bool WxProgressWindow::Show(std::string_view text, double done) {
  if (!dialog_) {
    focus_ = std::make_unique<FocusKeeper>();
    dialog_ = std::make_unique<wxGenericProgressDialog>("Lorelin", ToWx(text), kMost, OwnerOfDialog(nullptr),
                                                        wxPD_APP_MODAL | wxPD_CAN_ABORT | wxPD_SMOOTH);
  }
  // The full value would keep the window until it is closed by hand.
  return dialog_->Update(std::min(static_cast<int>(done * kMost), kMost - 1));
}

void WxProgressWindow::Close() {
  if (!dialog_) return;
  dialog_.reset();
  focus_->GiveBack();
  focus_.reset();
}

}  // namespace lorelin
