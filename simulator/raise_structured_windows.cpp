#include <cstdlib>

#include "platform/platform.h"
#include "simulator/faults.h"

namespace simulator {

void RaiseStructured(std::uint32_t code) {
  RaiseException(code, EXCEPTION_NONCONTINUABLE, 0, nullptr);
  std::abort();
}

}  // namespace simulator
