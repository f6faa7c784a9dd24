#include "simulator/faults.h"

#include <stdexcept>

#include "adapterapi/call_trace.h"

namespace simulator {

FaultSchedule::FaultSchedule(std::vector<Fault> faults) {
  for (Fault& fault : faults) faults_.push_back({std::move(fault)});
}

std::optional<Fault> FaultSchedule::Take(std::string_view operation,
                                         std::optional<adapterapi::AdapterNumber> adapter) {
  Fault* met = nullptr;
  for (auto& [fault, calls] : faults_) {
    if (fault.operation != operation || (fault.adapter && fault.adapter != adapter)) continue;
    if (time_ < fault.from || time_ >= fault.until) continue;
    if (calls < fault.after) ++calls;
    if (met == nullptr && calls == fault.after && fault.times != 0u) met = &fault;
  }
  if (met == nullptr) return std::nullopt;
  if (met->times) --*met->times;
  return *met;
}

std::int32_t Strike(const Fault& fault) {
  // Tells the tracer of the call which fault was applied; the platform's own codes never set this
  // bit.
  SetLastError(adapterapi::kFaultError | static_cast<DWORD>(fault.index));
  switch (fault.kind) {
    case Fault::Kind::kException:
      throw std::runtime_error(fault.exception);
    case Fault::Kind::kStructured:
      RaiseStructured(fault.structuredCode);
    case Fault::Kind::kStatus:
    case Fault::Kind::kDelay:
      break;
  }
  return fault.status;
}

}  // namespace simulator
