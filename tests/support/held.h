#pragma once

#include <cstddef>

namespace testing_support {

/// What the process has in use.
struct Held {
  std::size_t bytes = 0;  ///< of all heaps
  unsigned handles = 0;
  unsigned threads = 0;
};
Held HeldByProcess();

/// What a thread has to enter before it uses COM objects, where there is COM.
class Apartment {
 public:
  Apartment();
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment();
};

}  // namespace testing_support
