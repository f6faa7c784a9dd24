#include <algorithm>
#include <limits>

#include "scenario/fault_targets.h"
#include "scenario/sections.h"

namespace simulator {
namespace {

constexpr std::uint32_t kAccessViolation = 0xC0000005;

const FaultTarget& TargetNamed(const Node& node) {
  const std::string name = node.Text();
  const auto* found = std::find_if(std::begin(kFaultTargets), std::end(kFaultTargets),
                                   [&](const FaultTarget& known) { return known.name == name; });
  if (found == std::end(kFaultTargets)) {
    std::vector<std::string_view> names;
    for (const FaultTarget& known : kFaultTargets) names.push_back(known.name);
    node.FailExpecting("one of " + Join(names));
  }
  return *found;
}

/// Status codes are signed; they are also accepted as unsigned 32 bits, as codes are usually
/// written.
std::int32_t ReadStatus(const Node& node) {
  return static_cast<std::int32_t>(node.Number(std::numeric_limits<std::int32_t>::min(), kAllBits));
}

std::uint32_t ReadStructuredCode(const Node& node) {
  if (node.value == "access-violation") return kAccessViolation;
  if (node.value.is_string() && !node.Text().starts_with("0x")) {
    node.FailExpecting("a code or \"access-violation\"");
  }
  return static_cast<std::uint32_t>(node.Number(0, kAllBits));
}

/// The adapter of the fault `node` must exist.
void CheckAdapter(const Node& node, adapterapi::AdapterNumber adapter,
                  const AdapterNumbers& adapters) {
  if (std::ranges::find(adapters, adapter) != adapters.end()) return;
  std::vector<std::string> numbers;
  for (const adapterapi::AdapterNumber known : adapters) {
    numbers.push_back(std::to_string(known));
  }
  const Node member = node.Child(node.value.at("adapter"), "adapter");
  if (numbers.empty()) member.Fail("there are no adapters");
  const std::vector<std::string_view> views(numbers.begin(), numbers.end());
  member.FailExpecting("the number of an adapter, " + Join(views));
}

/// Whether calls of an operation concern an adapter.
bool IsOfAdapter(const std::string& operation) {
  const auto* known = std::ranges::find(kFaultTargets, operation, &FaultTarget::name);
  return known != std::end(kFaultTargets) && known->ofAdapter;
}

}  // namespace

void ReadFault(const Node& node, const AdapterNumbers* adapters, Fault& fault) {
  constexpr std::int64_t kMostDelay = 3'600'000;
  int kinds = 0;
  const auto setKind = [&](Fault::Kind kind) {
    fault.kind = kind;
    ++kinds;
  };
  const auto number = [](const Node& member, std::int64_t least) {
    return static_cast<std::uint32_t>(member.Number(least, kAllBits));
  };
  node.EachMember(
      {{"operation", [&](const Node& member) { fault.operation = TargetNamed(member).name; }},
       {"adapter", [&](const Node& member) { fault.adapter = number(member, 0); }},
       {"status",
        [&](const Node& member) {
          setKind(Fault::Kind::kStatus);
          fault.status = ReadStatus(member);
        }},
       {"exception",
        [&](const Node& member) {
          setKind(Fault::Kind::kException);
          fault.exception = member.Text();
        }},
       {"structured",
        [&](const Node& member) {
          setKind(Fault::Kind::kStructured);
          fault.structuredCode = ReadStructuredCode(member);
        }},
       {"times", [&](const Node& member) { fault.times = number(member, 1); }},
       {"after", [&](const Node& member) { fault.after = number(member, 1); }},
       {"delayMs",
        [&](const Node& member) {
          fault.delayMs = static_cast<std::uint32_t>(member.Number(1, kMostDelay));
        }},
       {"output", [&](const Node& member) { fault.output = member.Boolean(); }},
       {"from", [&](const Node& member) { fault.from = ReadTime(member); }},
       {"until", [&](const Node& member) { fault.until = ReadTime(member); }}});
  if (fault.operation.empty()) node.Fail("the member operation is missing");
  if (kinds > 1 || (fault.kind == Fault::Kind::kDelay && fault.delayMs == 0)) {
    node.Fail("expected one of status, exception, structured, or delayMs");
  }
  if (fault.until <= fault.from) node.Fail("it ends at until, before it begins at from");
  if (fault.adapter && !IsOfAdapter(fault.operation)) {
    node.Fail("the operation " + fault.operation + " is about no adapter");
  }
  if (node.value.contains("adapter") && adapters != nullptr) {
    CheckAdapter(node, *fault.adapter, *adapters);
  }
}

std::vector<Fault> ReadFaults(const Node& node, const AdapterNumbers* adapters) {
  std::vector<Fault> faults;
  node.EachElement([&](const Node& element) {
    faults.emplace_back().index = element.index;
    ReadFault(element, adapters, faults.back());
  });
  return faults;
}

}  // namespace simulator
