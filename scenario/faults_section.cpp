#include <algorithm>
#include <limits>

#include "scenario/operations.h"
#include "scenario/sections.h"

namespace simulator {
namespace {

constexpr std::int64_t kAllBits = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t kAccessViolation = 0xC0000005;

const Operation& OperationNamed(const Node& node) {
  const std::string name = node.Text();
  const auto* found = std::find_if(std::begin(kOperations), std::end(kOperations),
                                   [&](const Operation& known) { return known.name == name; });
  if (found == std::end(kOperations)) {
    std::vector<std::string_view> names;
    for (const Operation& known : kOperations) names.push_back(known.name);
    node.FailExpecting("one of " + Join(names));
  }
  return *found;
}

/// Status codes are signed; they are accepted as 32 bits too, the way codes are written.
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

Fault ReadFault(const Node& node) {
  Fault fault;
  int kinds = 0;
  bool ofAdapter = true;
  const auto setKind = [&](Fault::Kind kind) {
    fault.kind = kind;
    ++kinds;
  };
  const auto number = [](const Node& member, std::int64_t least) {
    return static_cast<std::uint32_t>(member.Number(least, kAllBits));
  };
  node.EachMember({{"operation",
                    [&](const Node& member) {
                      const Operation& operation = OperationNamed(member);
                      fault.operation = operation.name;
                      ofAdapter = operation.ofAdapter;
                    }},
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
                   {"output", [&](const Node& member) { fault.output = member.Boolean(); }}});
  if (fault.operation.empty()) node.Fail("the member operation is missing");
  if (kinds != 1) node.Fail("expected one of status, exception, structured");
  if (fault.adapter && !ofAdapter) {
    node.Fail("the operation " + fault.operation + " is about no adapter");
  }
  return fault;
}

}  // namespace

std::vector<Fault> ReadFaults(const Node& node) {
  std::vector<Fault> faults;
  node.EachElement([&faults](const Node& element) { faults.push_back(ReadFault(element)); });
  return faults;
}

}  // namespace simulator
