#pragma once

#include <atomic>

namespace lorelin::engine {

// What wakes whoever waits in poll(). From any thread.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  void Set(bool on);
  [[nodiscard]] bool IsSet() const { return on_; }
  // Readable while it is set.
  [[nodiscard]] int Descriptor() const { return descriptor_; }

 private:
  const int descriptor_;
  std::atomic<bool> on_{false};
};

}  // namespace lorelin::engine
