#pragma once

#include <cstddef>

namespace testing_support {

/// The resources that the process has in use.
struct Held {
  std::size_t bytes = 0;  ///< in all heaps
  unsigned handles = 0;
  unsigned threads = 0;
};
Held HeldByProcess();

}  // namespace testing_support
