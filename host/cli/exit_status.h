#pragma once

#include <algorithm>

namespace host {

/// What the program says at its end; where several hold, the highest.
enum ExitStatus : int {
  kSuccess = 0,
  kUnexpected = 1,
  kBadInput = 2,   ///< command line, scenario, query or value
  kNotFound = 3,   ///< no such class or instance
  kRefused = 4,    ///< a request failed, or the provider cannot be loaded or started
  kDefective = 5,  ///< the provider broke the contract
};

inline ExitStatus Worse(ExitStatus left, ExitStatus right) {
  return std::max(left, right);
}

}  // namespace host
