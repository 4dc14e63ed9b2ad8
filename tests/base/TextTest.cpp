#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace lorelin {
namespace {

TEST(ListedBefore, OrdersNamesAsAPersonLooksForThem) {
  const std::vector<std::string> wanted{"alpha",  "Änderung", "Band 2", "band 010", "Band 100",       "Öl",
                                        "Straße", "strasse",  "Zebra",  "zz",       "\xE4 kein UTF-8"};
  std::vector<std::string> names = wanted;
  std::sort(names.begin(), names.end());
  std::sort(names.begin(), names.end(), ListedBefore);
  EXPECT_EQ(names, wanted);
}

TEST(ListedBefore, TellsDifferentNamesApart) {
  EXPECT_TRUE(ListedBefore("A", "a") != ListedBefore("a", "A"));
  EXPECT_TRUE(ListedBefore("01", "1") != ListedBefore("1", "01"));
  EXPECT_FALSE(ListedBefore("a", "a"));
}

TEST(ListedBefore, TakesNumbersOfAnyLength) {
  const std::string nines(100, '9');
  EXPECT_TRUE(ListedBefore("5", nines));
  EXPECT_TRUE(ListedBefore(nines, nines + "1"));
}

}  // namespace
}  // namespace lorelin
