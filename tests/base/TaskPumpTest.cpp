#include "base/TaskPump.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>

namespace lorelin {
namespace {

TEST(TaskPump, RunsWhatWasPostedInOrder) {
  TaskPump pump;
  std::string order;
  pump.Post([&] { order += "a"; });
  pump.Post([&] { order += "b"; });
  EXPECT_EQ(order, "");
  pump.WaitForEvents();
  EXPECT_EQ(order, "ab");
  pump.WaitForEvents();
  EXPECT_EQ(order, "ab");
}

TEST(TaskPump, RunsWhatATaskPosts) {
  TaskPump pump;
  bool ran = false;
  pump.Post([&] { pump.Post([&] { ran = true; }); });
  pump.WaitForEvents();
  EXPECT_TRUE(ran);
}

TEST(TaskPump, MayBePumpedByATask) {
  TaskPump pump;
  std::string order;
  pump.Post([&] {
    pump.WaitForEvents();
    order += "outer";
  });
  pump.Post([&] { order += "inner "; });
  pump.WaitForEvents();
  EXPECT_EQ(order, "inner outer");
}

TEST(TaskPump, GoesOnBehindATaskThatFails) {
  TaskPump pump;
  bool ran = false;
  pump.Post([] { throw std::runtime_error("task"); });
  pump.Post([&] { ran = true; });
  EXPECT_NO_THROW(pump.WaitForEvents());
  EXPECT_TRUE(ran);
}

TEST(TaskPump, RunsOnItsOwnThreadWhatAnotherOnePosts) {
  TaskPump pump;
  std::thread::id ranOn;
  std::thread poster([&] { pump.Post([&] { ranOn = std::this_thread::get_id(); }); });
  while (ranOn == std::thread::id()) pump.WaitForEvents();
  poster.join();
  EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST(TaskPump, CallsTheTurnEveryTimeAndLetsItsExceptionOut) {
  TaskPump pump;
  int turns = 0;
  pump.OnTurn([&] {
    if (++turns == 2) throw std::runtime_error("turn");
  });
  pump.WaitForEvents();
  EXPECT_EQ(turns, 1);
  EXPECT_THROW(pump.WaitForEvents(), std::runtime_error);
}

}  // namespace
}  // namespace lorelin
