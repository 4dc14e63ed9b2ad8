#pragma once

#include <string>
#include <vector>

#include "ports/PronunciationDialogs.h"

namespace lorelin {

class FakePronunciationDialogs final : public PronunciationDialogs {
 public:
  void ChangePronunciation(const std::string& written) override { asked.push_back(written); }
  void ShowPronunciations() override { ++shown; }

  std::vector<std::string> asked;
  int shown = 0;
};

}  // namespace lorelin
