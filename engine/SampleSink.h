#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "engine/wordMarks.h"

namespace lorelin::engine {

// Where the samples of one utterance go: 16 bit, one channel, at the engine's rate.
class SampleSink {
 public:
  virtual ~SampleSink() = default;
  // Takes the samples; may wait until there is room. False ends the utterance: Problem() tells why, or it was
  // discarded.
  virtual bool Write(std::span<const std::int16_t> samples) = 0;
  // A word begins with a sample that is written next or later; told in order.
  virtual void Mark(const WordMark&) {}
  // Everything was written: returns when it has been heard or is safely in the file. False like Write.
  virtual bool Finish() = 0;
  // A German sentence for the user; "" when nothing is wrong.
  [[nodiscard]] virtual std::string Problem() const = 0;
};

}  // namespace lorelin::engine
