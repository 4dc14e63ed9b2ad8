#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/modelPatch.h"

// Whatever bytes call themselves a voice's model, they are refused with a reason or patched into a model that
// is a voice's again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::string problem;
  const auto patched = lorelin::engine::PatchModel(bytes, problem);
  if (patched.has_value() != problem.empty()) std::abort();
  if (patched && !lorelin::engine::PatchModel(patched->bytes, problem)) std::abort();
  return 0;
}
