#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/common/UnfinishedList.h"
#include "ports/DirectSS.h"
#include "ports/SoundRendering.h"

namespace lorelin {

// Every renderer is an engine of Windows on a thread of its own.
class ComSoundRendering final : public SoundRendering {
 public:
  // Never null. Called on the thread that the engine lives on, with its pump; from several threads.
  using MakeEngine = std::function<std::unique_ptr<DirectSS>(EventPump& pump)>;

  // Must outlive what it makes. What a killed process left is cleared away with the next file.
  ComSoundRendering(MakeEngine makeEngine, std::string cacheFolder)
      : makeEngine_(std::move(makeEngine)), unfinished_(std::move(cacheFolder)) {}

  [[nodiscard]] std::string Missing() const override { return {}; }
  [[nodiscard]] std::unique_ptr<SoundRenderer> Make(EventPump& pump) override;
  void PutInPlace(const std::string& rendered, const std::string& target, SoundFormat format,
                  const SoundTags& tags) override;

 private:
  const MakeEngine makeEngine_;
  UnfinishedList unfinished_;
};

}  // namespace lorelin
