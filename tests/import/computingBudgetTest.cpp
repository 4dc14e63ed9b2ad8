#include <gtest/gtest.h>

#include "import/ComputingBudget.h"

namespace lorelin {
namespace {

double computed = 0;  // what the process is said to have computed

double Computed() {
  return computed;
}

TEST(ComputingBudget, CountsNothingThatWasComputedBefore) {
  computed = 100;
  const ComputingBudget budget(6, Computed);
  EXPECT_TRUE(budget.IsLeft());
  computed = 105.9;
  EXPECT_TRUE(budget.IsLeft());
}

TEST(ComputingBudget, IsUsedUpInTheEnd) {
  computed = 100;
  const ComputingBudget budget(6, Computed);
  computed = 106;
  EXPECT_FALSE(budget.IsLeft());
}

}  // namespace
}  // namespace lorelin
