#pragma once

#include <string>

#include "ports/Clock.h"
#include "ports/Log.h"
#include "ports/SoundRendering.h"

namespace lorelin {

// Every renderer is a lorelin-engine of its own, which gives way to what is heard.
class EngineSoundRendering final : public SoundRendering {
 public:
  // Owns none of the references; they must outlive the object and what it makes.
  EngineSoundRendering(std::string engineFile, Clock& clock, Log& log)
      : engineFile_(std::move(engineFile)), clock_(clock), log_(log) {}

  [[nodiscard]] std::string Missing() const override { return {}; }
  [[nodiscard]] std::unique_ptr<SoundRenderer> Make(EventPump& pump) override;
  void PutInPlace(const std::string& rendered, const std::string& target, SoundFormat format,
                  const SoundTags& tags) override;

 private:
  const std::string engineFile_;
  Clock& clock_;
  Log& log_;
};

}  // namespace lorelin
