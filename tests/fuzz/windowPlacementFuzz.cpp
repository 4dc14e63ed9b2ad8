#include "app/windowPlacement.h"
#include "tests/fuzz/input.h"

using lorelin::fuzz::Hold;

namespace {

bool Fits(int number) {
  return number >= -lorelin::kFarthestPixel && number <= lorelin::kFarthestPixel;
}

}  // namespace

// What is taken for a placement lies near a screen, and is the same when it was kept again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto placement = lorelin::ParsePlacement(text);
  if (!placement) return 0;
  Hold(text.find_first_not_of("0123456789- ") == std::string_view::npos);
  Hold(Fits(placement->x) && Fits(placement->y) && Fits(placement->width) && Fits(placement->height) &&
       Fits(placement->sash));
  Hold(placement->width >= 0 && placement->height >= 0);
  Hold(lorelin::ParsePlacement(lorelin::PlacementText(*placement)) == placement);
  return 0;
}
