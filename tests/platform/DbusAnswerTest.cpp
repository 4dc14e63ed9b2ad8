#include "platform/linux/dbusAnswer.h"

#include <gtest/gtest.h>

#include <memory>

namespace lorelin {
namespace {

struct Unref {
  void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using Variant = std::unique_ptr<GVariant, Unref>;

Variant Take(GVariant* floating) {
  return Variant(g_variant_ref_sink(floating));
}

TEST(DbusAnswer, IsItsFirstText) {
  EXPECT_EQ(FirstText(Take(g_variant_new("(s)", "Grüße")).get()), "Grüße");
  EXPECT_EQ(FirstText(Take(g_variant_new("(ss)", "a", "b")).get()), "a");
}

TEST(DbusAnswer, IsNothingWhenItsFirstValueIsNoText) {
  EXPECT_EQ(FirstText(Take(g_variant_new("()")).get()), std::nullopt);
  EXPECT_EQ(FirstText(Take(g_variant_new("(is)", 1, "b")).get()), std::nullopt);
  EXPECT_EQ(FirstText(Take(g_variant_new("(v)", g_variant_new_string("b"))).get()), std::nullopt);
}

TEST(DbusAnswer, IsNothingWhenItIsNoList) {
  EXPECT_EQ(FirstText(nullptr), std::nullopt);
  EXPECT_EQ(FirstText(Take(g_variant_new_int32(1)).get()), std::nullopt);
  EXPECT_EQ(FirstText(Take(g_variant_new_string("b")).get()), std::nullopt);
}

TEST(DbusArgument, CarriesTextAndMarksWhatIsNone) {
  EXPECT_EQ(FirstText(Take(TextArgument("Grüße")).get()), "Grüße");
  EXPECT_EQ(FirstText(Take(TextArgument("")).get()), "");
  EXPECT_EQ(FirstText(Take(TextArgument(std::string_view("a\0b\xFF", 4))).get()),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(DbusFailure, IsToldInGermanWhereTheBusFailed) {
  EXPECT_EQ(ReasonOfFailure("", "Timeout was reached"), "Die Erweiterung antwortet nicht.");
  EXPECT_EQ(ReasonOfFailure("org.freedesktop.DBus.Error.NoReply", "x"), "Die Erweiterung antwortet nicht.");
  EXPECT_EQ(ReasonOfFailure("de.beispiel.NoReply", "Leer"), "Die Erweiterung meldet: Leer");
  EXPECT_TRUE(IsMissingMethod("org.freedesktop.DBus.Error.UnknownObject"));
  EXPECT_FALSE(IsMissingMethod("org.freedesktop.DBus.Error.NoReply"));
}

}  // namespace
}  // namespace lorelin
