#include "engine/Interruption.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace lorelin::engine {

Interruption::Interruption() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Interruption::~Interruption() {
  close(descriptor_);
}

void Interruption::Set(bool on) {
  on_ = on;
  std::uint64_t count = 1;
  if (on) {
    (void)!write(descriptor_, &count, sizeof count);
  } else {
    (void)!read(descriptor_, &count, sizeof count);
  }
}

}  // namespace lorelin::engine
