#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "ports/RemoteControl.h"
#include "ports/SelectedText.h"

namespace lorelin {

class FakeRemoteControl final : public RemoteControl {
 public:
  void OnRequest(std::function<void(const RemoteOrder&)> handler) override { ask = std::move(handler); }
  void Tell(const RemoteState& state) override { told.push_back(state); }
  bool AskRunning(const RemoteOrder&) override { return running; }
  std::function<void(const RemoteOrder&)> ask;
  std::vector<RemoteState> told;
  bool running = false;
};

class FakeSelectedText final : public SelectedText {
 public:
  std::string Text() override { return text; }
  std::string text;
};

}  // namespace lorelin
