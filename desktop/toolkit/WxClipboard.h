#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ports/Clipboard.h"

namespace lorelin {

// The clipboard of the toolkit. A program that owns it and does not answer costs one second once; until it
// answers, the clipboard reads as before.
class WxClipboard final : public Clipboard {
 public:
  WxClipboard();
  ~WxClipboard() override;
  WxClipboard(const WxClipboard&) = delete;
  WxClipboard& operator=(const WxClipboard&) = delete;

  std::string Text() override;
  void SetText(std::string_view text) override;

 private:
  // A question for the text of the clipboard.
  struct Request {
    bool answered = true;
    std::uint64_t asOf = 0;  // the change whose text it is
    std::string text;
  };

  std::uint64_t changes_ = 1;         // of the clipboard, as far as the system tells
  unsigned long handler_ = 0;         // of what it tells
  std::shared_ptr<Request> request_;  // the last one; its answer may come after the clipboard's own end
};

}  // namespace lorelin
