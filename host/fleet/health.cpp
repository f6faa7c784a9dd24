#include "host/fleet/health.h"

#include <algorithm>

#include "host/model/wording.h"

namespace host {
namespace {

constexpr std::size_t kLongest = 2048;  ///< bytes that monitoring systems keep of a line

/// Whether a finding is about the machine and not about the networks around it.
bool IsOfMachine(const Finding& finding) {
  return finding.weight == Weight::kProblem ||
         (finding.weight == Weight::kAttention && !finding.spectrum);
}

std::string PerformanceData(const Machine& machine, const SignalLimits& limits) {
  std::string text = "adapters=" + std::to_string(machine.adapters.size());
  for (const Adapter& adapter : machine.adapters) {
    if (!adapter.signal) continue;
    // "@~:-75" is a range from which to warn, up to and including its end.
    text += " 'signal " + adapter.key + "'=" + std::to_string(*adapter.signal) +
            ";@~:" + std::to_string(limits.warning) + ";@~:" + std::to_string(limits.critical);
  }
  return text;
}

CheckResult Result(Health health, std::string text, const std::string& data) {
  // Begins the performance data.
  std::ranges::replace(text, '|', '/');
  const std::string start =
      std::string("WIFI ") + kHealthNames[static_cast<std::size_t>(health)] + " - ";
  const std::string end = data.empty() ? "" : " | " + data;
  const std::size_t used = start.size() + end.size();
  // Without the data if they alone are too long.
  if (used >= kLongest) return Result(health, std::move(text), "");
  std::size_t room = std::min(text.size(), kLongest - used);
  // Not within a character of several bytes.
  while (room < text.size() && (text[room] & 0xC0) == 0x80) --room;
  text.resize(room);
  return {health, start + text + end};
}

}  // namespace

CheckResult CheckHealth(const Machine& machine, const SignalLimits& limits) {
  if (machine.adapters.empty() && !machine.whyMoreAdapters.empty()) {
    return UnknownHealth(machine.whyMoreAdapters);
  }
  Health health = Health::kOk;
  std::vector<std::string> reasons;
  const auto add = [&](Health worse, const std::string& reason) {
    health = std::max(health, worse);
    reasons.push_back(reason);
  };
  for (const Adapter& adapter : machine.adapters) {
    if (!adapter.signal || *adapter.signal > limits.critical) continue;
    add(Health::kCritical, adapter.title + " hears its network very weakly");
  }
  for (const Finding& finding : machine.findings) {
    if (!IsOfMachine(finding)) continue;
    const bool isProblem = finding.weight == Weight::kProblem;
    std::string detail = finding.detail;
    if (detail.ends_with('.')) detail.pop_back();
    add(isProblem ? Health::kCritical : Health::kWarning,
        finding.headline + (detail.empty() ? "" : ": " + detail));
  }
  std::string text;
  for (const std::string& reason : reasons) text += (text.empty() ? "" : "; ") + reason;
  if (text.empty()) text = Counted(machine.adapters.size(), "adapter");
  return Result(health, std::move(text), PerformanceData(machine, limits));
}

CheckResult UnknownHealth(const std::string& why) {
  return Result(Health::kUnknown, why, "");
}

}  // namespace host
