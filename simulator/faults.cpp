#include "simulator/faults.h"

#include <stdexcept>

namespace simulator {

std::optional<Fault> FaultPlan::Take(std::string_view operation,
                                     std::optional<adapterapi::AdapterNumber> adapter) {
  for (Fault& fault : faults_) {
    if (fault.operation != operation || fault.times == 0u) continue;
    if (fault.adapter && fault.adapter != adapter) continue;
    if (fault.times) --*fault.times;
    return fault;
  }
  return std::nullopt;
}

std::int32_t Strike(const Fault& fault) {
  switch (fault.kind) {
    case Fault::Kind::kException:
      throw std::runtime_error(fault.exception);
    case Fault::Kind::kStructured:
      RaiseStructured(fault.structuredCode);
    case Fault::Kind::kStatus:
      break;
  }
  return fault.status;
}

}  // namespace simulator
