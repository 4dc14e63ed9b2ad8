#pragma once

#include <wx/modalhook.h>

namespace lorelin {

// Counts the dialogs that wait for an answer, the system's own among them.
class ModalDialogs final : private wxModalDialogHook {
 public:
  ModalDialogs() { Register(); }
  ~ModalDialogs() override { Unregister(); }
  ModalDialogs(const ModalDialogs&) = delete;
  ModalDialogs& operator=(const ModalDialogs&) = delete;

  [[nodiscard]] bool AwaitAnswer() const { return open_ > 0; }

 private:
  int Enter(wxDialog*) override {
    ++open_;
    return wxID_NONE;
  }
  void Exit(wxDialog*) override { --open_; }

  int open_ = 0;
};

}  // namespace lorelin
