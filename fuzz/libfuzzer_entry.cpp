// One fuzzer: WIFI_FUZZ_TARGET is its function.

#include "fuzz/fuzz_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  WIFI_FUZZ_TARGET({data, size});
  return 0;
}
