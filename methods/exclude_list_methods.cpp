#include "methods/exclude_list_methods.h"

#include <algorithm>
#include <cstring>

namespace wifi {
namespace {

using adapterapi::ExcludeEntryRecord;

struct ReasonFlags {
  LONG reason;
  std::uint32_t flags;
};
constexpr ReasonFlags kReasonFlags[] = {{1, 0x20}, {2, 0x40}, {3, 0x8000}, {4, 0x10000}};
constexpr std::uint32_t kOtherReasonFlag = 0x1;

std::uint32_t FlagsOf(LONG reason) {
  for (const ReasonFlags& row : kReasonFlags) {
    if (row.reason == reason) return row.flags;
  }
  return kOtherReasonFlag;
}

/// The entry that the in-parameters describe; nullopt if one is missing, the name is empty, or the
/// reason cannot be converted to a number.
std::optional<ExcludeEntryRecord> ReadEntry(const MethodCall& call) {
  const auto name = call.AnsiText(OLESTR("NetworkName"));
  if (!name) return std::nullopt;
  auto reason = call.Value(OLESTR("Reason"));
  if (!reason || FAILED(reason->ChangeType(VT_I4)) || name->empty()) return std::nullopt;
  ExcludeEntryRecord entry = {};
  std::memcpy(entry.ssid, name->data(), std::min(name->size(), sizeof(entry.ssid)));
  entry.reasonBits = FlagsOf(reason->get().lVal);
  return entry;
}

}  // namespace

MethodResult ResetExcludeList(const MethodCall& call) {
  call.state.api.ResetExcludeList(call.adapter());
  return Answer(true);
}

MethodResult AddExcludeListEntry(const MethodCall& call) {
  const auto entry = ReadEntry(call);
  return Answer(entry && call.state.api.AddExcludeListEntry(call.adapter(), &*entry) == 0);
}

MethodResult RemoveExcludeListEntry(const MethodCall& call) {
  const auto entry = ReadEntry(call);
  return Answer(entry && call.state.api.RemoveExcludeListEntry(call.adapter(), &*entry, 0) == 0);
}

MethodResult IsExcludeListEnabled(const MethodCall& call) {
  std::uint32_t enabled = 0;
  MethodResult result = Answer(call.state.api.IsExcludeListEnabled(call.adapter(), &enabled) == 0);
  result.extra = static_cast<LONG>(enabled);
  return result;
}

MethodResult EnableExcludeList(const MethodCall& call) {
  const auto enable = call.Flag(OLESTR("Enabled"));
  return Answer(enable && call.state.api.EnableExcludeList(call.adapter(), *enable, 1) == 0);
}

MethodResult GetRogueApCount(const MethodCall& call) {
  std::uint32_t count = 0;
  if (call.state.api.GetRogueApCount(call.adapter(), &count) != 0) return {};
  MethodResult result = Answer(true);
  result.extra = static_cast<LONG>(count & 0xFF);
  return result;
}

MethodResult ExcludeThisAp(const MethodCall& call) {
  adapterapi::ExcludeCandidateRecord candidate = {};
  return Answer(call.state.api.GetExcludeCandidate(call.adapter(), &candidate) == 0 &&
                call.state.api.ExcludeThisAP(call.adapter(), &candidate) == 0);
}

}  // namespace wifi
