#include <stdexcept>

#include "scenario/hex.h"
#include "simulator/faults.h"

namespace simulator {

void RaiseStructured(std::uint32_t code) {
  throw std::runtime_error("structured exception 0x" + UpperHex(code, 8));
}

}  // namespace simulator
