#include "speech/readingRules.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

TEST(ReadingRulesTest, AFileOfRulesComesBack) {
  const ReadingRules rules{{true, "a\\tb", "c d"}, {false, "x", ""}};
  EXPECT_EQ(ParseReadingRules("# Kopf\n" + ReadingRuleLine(rules[0]) + "\r\n\nfalsch\tx\ty\n" +
                              ReadingRuleLine(rules[1])),
            rules);
}

TEST(ReadingRulesTest, OnlyRulesThatAreOnCount) {
  EXPECT_TRUE(RulesThatCount({{false, "a", "b"}}).IsEmpty());
  EXPECT_EQ(RulesThatCount({{false, "a", "b"}, {true, "c", "d"}}).Apply("ac").text, "ad");
}

TEST(ReadingRulesTest, WhatCannotBeKeptIsToldInGerman) {
  EXPECT_FALSE(RuleProblem({true, "\\[[^\\]]*\\]", ""}));
  EXPECT_EQ(RuleProblem({true, "a(b", ""}), "Eine Klammer ist nicht geschlossen.");
  EXPECT_EQ(RuleProblem({true, "", "x"}), "Der Ausdruck ist leer.");
  EXPECT_TRUE(RuleProblem({true, "a", "b\nc"}));
  EXPECT_TRUE(RuleProblem({true, "a\tb", "c"}));
}

}  // namespace
}  // namespace lorelin
