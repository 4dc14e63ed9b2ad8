#include "base/sizeText.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(SizeText, HasADecimalBelowTenMegabytes) {
  EXPECT_EQ(SizeText(0), "0,0 MB");
  EXPECT_EQ(SizeText(4230000), "4,2 MB");
  EXPECT_EQ(SizeText(9949999), "9,9 MB");
  EXPECT_EQ(SizeText(9960000), "10 MB");
  EXPECT_EQ(SizeText(63480000), "63 MB");
  EXPECT_EQ(SizeText(2400000000), "2400 MB");
}

}  // namespace
}  // namespace lorelin
