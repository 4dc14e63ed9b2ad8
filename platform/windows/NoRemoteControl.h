#pragma once

#include "ports/RemoteControl.h"
#include "ports/SelectedText.h"

namespace lorelin {

// Windows has no bus between programs; the media keys come to the window.
class NoRemoteControl final : public RemoteControl {
 public:
  void OnRequest(std::function<void(const RemoteOrder&)>) override {}
  void Tell(const RemoteState&) override {}
  bool AskRunning(const RemoteOrder&) override { return false; }
};

class NoSelectedText final : public SelectedText {
 public:
  std::string Text() override { return {}; }
};

}  // namespace lorelin
