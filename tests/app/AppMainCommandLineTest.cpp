#include <gtest/gtest.h>

#include "app/modAppMain.h"

namespace lorelin {
namespace {

TEST(PathInCommandLine, IsTheTextBetweenTheQuotesAtTheBeginning) {
  EXPECT_EQ(PathInCommandLine(R"("C:\Texte\brief.txt")"), R"(C:\Texte\brief.txt)");
  EXPECT_EQ(PathInCommandLine(R"("C:\Texte\brief.txt" /s)"), R"(C:\Texte\brief.txt)");
}

TEST(PathInCommandLine, RunsPastTheClosingQuoteWhenSomethingStandsBefore) {
  EXPECT_EQ(PathInCommandLine(R"(/t "C:\brief.txt" x)"), "C:\\brief.txt\" x");
}

TEST(PathInCommandLine, IsEmptyWithoutQuotes) {
  EXPECT_EQ(PathInCommandLine(R"(C:\Texte\brief.txt)"), "");
}

TEST(PathInCommandLine, IsEmptyForASingleQuoteAtTheBeginning) {
  EXPECT_EQ(PathInCommandLine("\"abc"), "");
}

TEST(PathInCommandLine, KeepsQuotesInsideThePath) {
  EXPECT_EQ(PathInCommandLine(R"("a"b.txt")"), "a\"b.txt");
}

}  // namespace
}  // namespace lorelin
