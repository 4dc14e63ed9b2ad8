#include "platform/windows/MissingSpeech.h"

namespace lorelin {

void MissingSpeech::Speak(std::string_view) {
  pump_.Post([alive = std::weak_ptr(handler_)] {
    const auto handler = alive.lock();
    if (handler && *handler) (*handler)({.complete = false, .reason = kReason});
  });
}

void MissingSpeech::OnEndOfText(std::function<void(const EndOfText&)> handler) {
  *handler_ = std::move(handler);
}

}  // namespace lorelin
