#include <gtest/gtest.h>

#include "platform/structured_exception.h"

namespace {

struct Counter {
  int* count;
  ~Counter() { ++*count; }
};

int ReadNowhere() {
  int* volatile nowhere = nullptr;
  return *static_cast<volatile int*>(nowhere);
}

int RaiseNumbered(DWORD code) {
  RaiseException(code, 0, 0, nullptr);
  return 0;
}

// Whether the fence turns what is raised into the exception that stands for it; the object above it
// must be destroyed on the way.
template <class Call>
bool Stops(Call call) {
  int destroyed = 0;
  try {
    const Counter counter{&destroyed};
    platform::CallFenced(call);
  } catch (const platform::StructuredException&) {
    return destroyed == 1;
  }
  return false;
}

TEST(StructuredFence, StopsAllKindsTimeAfterTime) {
  for (DWORD i = 0; i < 1000; ++i) {
    ASSERT_TRUE(Stops([] { return ReadNowhere(); }));
    ASSERT_TRUE(Stops([i] { return RaiseNumbered(0xE0000001u + i); }));
  }
}

TEST(StructuredFence, Nests) {
  EXPECT_TRUE(Stops([] {
    EXPECT_TRUE(Stops([] { return RaiseNumbered(0xE1234567u); }));
    return RaiseNumbered(0xE7654321u);
  }));
  // From an inner fence on it is a C++ exception.
  EXPECT_TRUE(Stops([] { platform::CallFenced([] { return RaiseNumbered(0xE0000009u); }); }));
}

}  // namespace
