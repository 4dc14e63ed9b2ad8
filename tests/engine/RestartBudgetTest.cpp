#include "engine/RestartBudget.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

using std::chrono::seconds;

TEST(RestartBudget, AllowsThreeInTwoMinutes) {
  RestartBudget budget;
  const RestartBudget::Time start{};
  EXPECT_TRUE(budget.Take(start));
  EXPECT_TRUE(budget.Take(start + seconds(1)));
  EXPECT_TRUE(budget.Take(start + seconds(2)));
  EXPECT_FALSE(budget.Take(start + seconds(119)));
}

TEST(RestartBudget, AllowsOneMoreWhenTheFirstIsTwoMinutesOld) {
  RestartBudget budget;
  const RestartBudget::Time start{};
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(budget.Take(start + seconds(i)));
  EXPECT_TRUE(budget.Take(start + seconds(120)));
  EXPECT_FALSE(budget.Take(start + seconds(120)));
}

}  // namespace
}  // namespace lorelin
