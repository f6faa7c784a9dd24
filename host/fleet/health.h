#pragma once
// A machine as the result of a monitoring system's check.

#include <string>

#include "host/model/machine.h"

namespace host {

/// The numbers are the exit statuses of checks.
enum class Health { kOk, kWarning, kCritical, kUnknown };
inline constexpr const char* kHealthNames[] = {"OK", "WARNING", "CRITICAL", "UNKNOWN"};

/// A signal at the limit or below it, in dBm, is reported.
struct SignalLimits {
  int warning = kWeakSignal;
  int critical = -85;
};

struct CheckResult {
  Health health = Health::kOk;
  std::string line;  ///< "WIFI OK - text | performance data", at most 2,048 bytes
};

/// `machine` judges signals by the limit for warnings.
CheckResult CheckHealth(const Machine& machine, const SignalLimits& limits);
/// The result if the machine could not be asked.
CheckResult UnknownHealth(const std::string& why);

}  // namespace host
