#include "tests/support/FakeRegistry.h"

#include "tests/support/RegistryContract.h"

namespace lorelin {
namespace {

std::unique_ptr<Registry> MakeFakeRegistry() {
  return std::make_unique<FakeRegistry>();
}

INSTANTIATE_TEST_SUITE_P(Fake, RegistryContract, testing::Values(&MakeFakeRegistry));

}  // namespace
}  // namespace lorelin
