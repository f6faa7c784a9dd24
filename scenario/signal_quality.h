#pragma once

#include <algorithm>
#include <cstdint>

namespace simulator {

/// The library's code for a signal in dBm, from 3 (poor) to 7 (excellent), one step every ten dBm.
inline std::uint32_t QualityOf(std::int32_t rssi) {
  return static_cast<std::uint32_t>(std::clamp(3 + (rssi + 90) / 10, 3, 7));
}

}  // namespace simulator
