#include "app/readingOrder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/paths.h"

namespace lorelin {
namespace {

using Arguments = std::vector<std::string>;

TEST(ReadingOrder, IsNoneWithoutTheOption) {
  Arguments arguments{"brief.txt", "/s"};
  EXPECT_FALSE(TakeReadingOrder(arguments));
  EXPECT_EQ(arguments, (Arguments{"brief.txt", "/s"}));
}

TEST(ReadingOrder, MeansWhatIsSelected) {
  Arguments arguments{"--auswahl", "/t"};
  const auto order = TakeReadingOrder(arguments);
  ASSERT_TRUE(order);
  EXPECT_EQ(order->request, RemoteRequest::ReadSelection);
  EXPECT_EQ(arguments, Arguments{"/t"});
}

TEST(ReadingOrder, MeansFilesWhereverTheProgramRuns) {
  Arguments arguments{"--auswahl", "brief.txt", "zwei Worte.rtf"};
  const auto order = TakeReadingOrder(arguments);
  ASSERT_TRUE(order);
  EXPECT_EQ(order->request, RemoteRequest::ReadFiles);
  const auto here = std::filesystem::current_path();
  EXPECT_EQ(order->files, (Arguments{PathText(here / "brief.txt"), PathText(here / "zwei Worte.rtf")}));
  EXPECT_TRUE(arguments.empty());
}

}  // namespace
}  // namespace lorelin
