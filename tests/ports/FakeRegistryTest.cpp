#include "tests/support/FakeRegistry.h"

#include "tests/support/RegistryContract.h"

namespace lorelin {
namespace {

std::unique_ptr<Registry> MakeFake() {
  return std::make_unique<FakeRegistry>();
}

INSTANTIATE_TEST_SUITE_P(Fake, RegistryContract, testing::Values(&MakeFake));

}  // namespace
}  // namespace lorelin
