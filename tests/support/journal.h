#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "provider/core/trace.h"
#include "tests/support/fault_plan.h"

namespace testing_support {

/// The events, in order, of all fakes of a test: "call GetBand", "put Band", "trace …", "exception
/// …", "spawn CLASS", "indicate", "status 0".
class Journal final : public wifi::TraceReceiver {
 public:
  Journal() : before_(wifi::SetTraceReceiver(this)) {}
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;
  ~Journal() { wifi::SetTraceReceiver(before_); }

  void Add(std::string event) { events_.push_back(std::move(event)); }
  void OnLine(const char* line, bool exceptionLine) override {
    const Side outside(false);
    Add((exceptionLine ? "exception " : "trace ") + std::string(line));
  }

  const std::vector<std::string>& events() const { return events_; }
  /// The events that begin with `prefix`, without the prefix.
  std::vector<std::string> Of(const std::string& prefix) const {
    std::vector<std::string> found;
    for (const std::string& event : events_) {
      if (event.rfind(prefix, 0) == 0) found.push_back(event.substr(prefix.size()));
    }
    return found;
  }
  std::vector<std::string> calls() const { return Of("call "); }
  std::vector<std::string> traces() const { return Of("trace "); }
  bool Has(const std::string& event) const {
    return std::find(events_.begin(), events_.end(), event) != events_.end();
  }
  void Clear() { events_.clear(); }

 private:
  wifi::TraceReceiver* before_;
  std::vector<std::string> events_;
};

}  // namespace testing_support
