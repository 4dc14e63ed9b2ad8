#include "base/conversion.h"

#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace lorelin {
namespace {

std::int32_t ErrorOf(std::string_view text) {
  try {
    (void)ToLong(text);
    return 0;
  } catch (const RuntimeError& error) {
    return error.Number();
  }
}

TEST(ToLong, ReadsDecimalNumbers) {
  EXPECT_EQ(ToLong("0"), 0);
  EXPECT_EQ(ToLong("25"), 25);
  EXPECT_EQ(ToLong("-7"), -7);
  EXPECT_EQ(ToLong("+7"), 7);
  EXPECT_EQ(ToLong("  60 "), 60);
  EXPECT_EQ(ToLong("2147483647"), 2147483647);
}

TEST(ToLong, RoundsFractionsWithHalvesToEven) {
  EXPECT_EQ(ToLong("2,5"), 2);
  EXPECT_EQ(ToLong("3.5"), 4);
  EXPECT_EQ(ToLong("2,51"), 3);
}

TEST(ToLong, RefusesWhatIsNoNumber) {
  for (const auto text : {"", " ", "abc", "12a", "1 2", "--1", "+-1", ".", "inf", "nan", "0x10", "1e3"}) {
    EXPECT_EQ(ErrorOf(text), 13) << text;
  }
}

TEST(ToLong, ReportsANumberThatDoesNotFit) {
  EXPECT_EQ(ErrorOf("2147483648"), 6);
  EXPECT_EQ(ErrorOf("-2147483649"), 6);
  EXPECT_EQ(ErrorOf(std::string(400, '9')), 6);
}

}  // namespace
}  // namespace lorelin
