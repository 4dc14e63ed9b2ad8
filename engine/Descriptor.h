#pragma once

#include <unistd.h>

#include <utility>

namespace lorelin::engine {

// An open file's number, closed with the object.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() { Close(); }

  void Close() {
    if (number_ >= 0) close(std::exchange(number_, -1));
  }
  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] bool IsOpen() const { return number_ >= 0; }

 private:
  int number_ = -1;
};

}  // namespace lorelin::engine
