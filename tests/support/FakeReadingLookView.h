#pragma once

#include <vector>

#include "ports/ReadingLookView.h"

namespace lorelin {

class FakeReadingLookView final : public ReadingLookView {
 public:
  void ShowLook(const ReadingLook& look) override { shown.push_back(look); }

  std::vector<ReadingLook> shown;
};

}  // namespace lorelin
