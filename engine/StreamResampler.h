#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lorelin::engine {

// Samples at another rate, as they come: the same as the whole read at once by Resampled.
class StreamResampler {
 public:
  StreamResampler(std::uint32_t from, std::uint32_t to);

  // What can be said of the samples so far; the rest follows with the next ones. Valid until the next call.
  [[nodiscard]] const std::vector<std::int16_t>& Next(std::span<const std::int16_t> samples);
  // What is left when no more samples come.
  [[nodiscard]] const std::vector<std::int16_t>& Last();

 private:
  // Reads whole groups out of `waiting_`, all that it holds when it is the end.
  void Read(bool end);

  std::size_t inGroup_;     // so many samples that come
  std::size_t outGroup_;    // become so many
  std::size_t before_ = 0;  // of `waiting_` that have been read; the next ones need them
  std::vector<float> waiting_;
  std::vector<std::int16_t> read_;
};

}  // namespace lorelin::engine
