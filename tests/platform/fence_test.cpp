#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "platform/structured_exception.h"

namespace {

TEST(Fence, GivesTheResultOfTheCall) {
  int calls = 0;
  EXPECT_EQ("done", platform::CallFenced([&] { return ++calls, std::string("done"); }));
  platform::CallFenced([&] { ++calls; });
  EXPECT_EQ(2, calls);
}

TEST(Fence, LetsExceptionsThroughWithTheirType) {
  for (int i = 0; i < 1000; ++i) {
    int destroyed = 0;
    try {
      platform::CallFenced([&] {
        platform::CallFenced([&] {
          struct Counter {
            int* count;
            ~Counter() { ++*count; }
          } counter{&destroyed};
          throw std::out_of_range("the message");
        });
      });
      FAIL() << "no exception";
    } catch (const std::out_of_range& error) {
      ASSERT_STREQ("the message", error.what());
      ASSERT_EQ(1, destroyed);
    }
  }
  EXPECT_THROW(platform::CallFenced([]() -> int { throw 7; }), int);
}

}  // namespace
