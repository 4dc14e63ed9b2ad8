#include "tests/support/DirectSSContract.h"
#include "tests/support/FakeDirectSS.h"

namespace lorelin {
namespace {

class FakeUnderTest final : public EngineUnderTest {
 public:
  DirectSS& Instance() override { return fake_; }
  bool RunToTheEnd() override {
    fake_.Finish();
    return true;
  }
  std::string WavePath() override { return "/tmp/nie.wav"; }

 private:
  CallLog log_;
  FakeDirectSS fake_{"Voice", log_};
};

std::unique_ptr<EngineUnderTest> MakeFake() {
  return std::make_unique<FakeUnderTest>();
}

INSTANTIATE_TEST_SUITE_P(Fake, DirectSSContract, testing::Values(&MakeFake));

}  // namespace
}  // namespace lorelin
