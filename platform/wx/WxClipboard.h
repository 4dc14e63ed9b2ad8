#pragma once

#include "platform/Clipboard.h"

namespace lorelin {

class WxClipboard final : public Clipboard {
 public:
  std::string Text() override;
  void SetText(std::string_view text) override;
};

}  // namespace lorelin
