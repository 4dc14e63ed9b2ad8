#pragma once

#include <string>

#include "platform/common/UnfinishedList.h"
#include "ports/Clock.h"
#include "ports/Log.h"
#include "ports/SoundRendering.h"

namespace lorelin {

// Every renderer is a lorelin-engine of its own, which gives way to what is heard.
class EngineSoundRendering final : public SoundRendering {
 public:
  // Owns none of the references; they must outlive the object and what it makes, and the object what it
  // makes. What a killed process left is cleared away with the next file.
  EngineSoundRendering(std::string engineFile, std::string cacheFolder, Clock& clock, Log& log)
      : engineFile_(std::move(engineFile)), unfinished_(std::move(cacheFolder)), clock_(clock), log_(log) {}

  [[nodiscard]] std::string Missing() const override { return {}; }
  [[nodiscard]] std::unique_ptr<SoundRenderer> Make(EventPump& pump) override;
  void PutInPlace(const std::string& rendered, const std::string& target, SoundFormat format,
                  const SoundTags& tags) override;

 private:
  const std::string engineFile_;
  UnfinishedList unfinished_;
  Clock& clock_;
  Log& log_;
};

}  // namespace lorelin
