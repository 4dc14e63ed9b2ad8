#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "engine/SampleSink.h"

namespace lorelin::engine {

// Hands samples on to a sink that takes its time, on a thread of its own: speaking and encoding go on side by
// side. Holds a few seconds of speech at most.
class EncodingQueue final : public SampleSink {
 public:
  explicit EncodingQueue(std::unique_ptr<SampleSink> sink);
  // What is still waiting is dropped.
  ~EncodingQueue() override;
  EncodingQueue(const EncodingQueue&) = delete;
  EncodingQueue& operator=(const EncodingQueue&) = delete;

  bool Write(std::span<const std::int16_t> samples) override;
  bool Finish() override;
  [[nodiscard]] std::string Problem() const override;

 private:
  void Work();
  // Ends the thread, when everything has been handed on or at once.
  void End(bool atOnce);

  std::unique_ptr<SampleSink> sink_;  // the thread's, as long as there is one
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::vector<std::int16_t>> blocks_;
  std::size_t waiting_ = 0;  // samples
  bool ending_ = false;
  bool failed_ = false;
  std::string problem_;
  std::thread thread_;
};

}  // namespace lorelin::engine
