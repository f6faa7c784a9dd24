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

// What code the fence reports; the object above it must be destroyed on the way.
template <class Call>
DWORD CodeOf(Call call) {
  int destroyed = 0;
  try {
    const Counter counter{&destroyed};
    platform::CallFenced(call);
  } catch (const platform::StructuredException& exception) {
    return destroyed == 1 ? exception.code() : 0;
  }
  return 0;
}

TEST(StructuredFence, ReportsTheCodeTimeAfterTime) {
  for (DWORD i = 0; i < 1000; ++i) {
    ASSERT_EQ(DWORD{EXCEPTION_ACCESS_VIOLATION}, CodeOf([] { return ReadNowhere(); }));
    ASSERT_EQ(0xE0000001u + i, CodeOf([i] { return RaiseNumbered(0xE0000001u + i); }));
  }
}

TEST(StructuredFence, Nests) {
  const DWORD outer = CodeOf([] {
    const DWORD inner = CodeOf([] { return RaiseNumbered(0xE1234567u); });
    EXPECT_EQ(0xE1234567u, inner);
    return RaiseNumbered(0xE7654321u);
  });
  EXPECT_EQ(0xE7654321u, outer);
  // From an inner fence on it is a C++ exception.
  EXPECT_EQ(0xE0000009u,
            CodeOf([] { platform::CallFenced([] { return RaiseNumbered(0xE0000009u); }); }));
}

}  // namespace
