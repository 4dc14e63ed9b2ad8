#pragma once

#include "ports/SelectedText.h"

namespace lorelin {

// What the focused control of the program in front tells assistive technology to be selected in it (AT-SPI 2,
// interfaces Accessible, Collection and Text as in at-spi2-core 2.46).
class AtspiSelectedText final : public SelectedText {
 public:
  std::string Text() override;
};

}  // namespace lorelin
