#pragma once

#include "base/RuntimeError.h"
#include "ports/SoundRendering.h"

namespace lorelin {

// The encoders are not part of the program for Windows.
class NoSoundRendering final : public SoundRendering {
 public:
  [[nodiscard]] std::string Missing() const override {
    return "Unter Windows lässt sich eine Sprachausgabe bisher nur als WAV-Datei exportieren.";
  }
  [[nodiscard]] std::unique_ptr<SoundRenderer> Make(EventPump&) override {
    throw RuntimeError(ErrorNumber::CannotCreateObject, Missing());
  }
  void PutInPlace(const std::string&, const std::string&, SoundFormat, const SoundTags&) override {
    throw RuntimeError(ErrorNumber::CannotCreateObject, Missing());
  }
};

}  // namespace lorelin
