// The operations that change an adapter's association and its exclude list.

#include <algorithm>

#include "adapterapi/mac_text.h"
#include "platform/ascii.h"
#include "simulator/connection.h"
#include "simulator/machine.h"

namespace simulator {
namespace {

bool IsSameNetwork(const ExcludeEntryRecord& left, const ExcludeEntryRecord& right) {
  return std::strncmp(left.ssid, right.ssid, sizeof left.ssid) == 0;
}

bool IsMac(std::string_view text, const MacAddress& mac) {
  return platform::SameIgnoringAsciiCase(text, adapterapi::MacText(mac));
}

}  // namespace

ApiStatus Machine::Apply(State* state, const ORVEL_WLAN_PROFILE* profile) {
  if (state == nullptr || profile == nullptr) return kInvalidArgument;
  if (state->records.radioState == 0 || state->records.adapterState == 0) return kNotReady;
  ProfileRecord record;
  std::memcpy(&record, profile, sizeof record);
  if (record.name[0] == '\0') return kInvalidArgument;
  Connect(*state, record);
  return kOk;
}

ApiStatus Machine::ApplyProfile(AdapterNumber adapter, const ORVEL_WLAN_PROFILE* profile,
                                std::uint32_t, std::uint32_t, std::uint32_t) {
  return Apply(Find(adapter), profile);
}

ApiStatus Machine::ApplyProfileFromMacAddress(const char* macAddress,
                                              const ORVEL_WLAN_PROFILE* profile) {
  if (macAddress == nullptr) return kInvalidArgument;
  const auto found = std::find_if(adapters_.begin(), adapters_.end(), [&](const State& state) {
    return IsMac(macAddress, state.records.mac);
  });
  return Apply(found == adapters_.end() ? nullptr : &*found, profile);
}

ApiStatus Machine::Disassociate(AdapterNumber adapter) {
  State* state = Find(adapter);
  if (state == nullptr) return kInvalidArgument;
  if (state->records.association.associated == 0) return kNotReady;
  Disconnect(*state);
  return kOk;
}

ApiStatus Machine::StopAuthentication(AdapterNumber adapter) {
  State* state = Find(adapter);
  if (state == nullptr) return kInvalidArgument;
  constexpr std::uint32_t kAuthenticationEnded = 1;
  state->records.authenticationStatus = kAuthenticationEnded;
  return kOk;
}

ApiStatus Machine::SetRadioState(AdapterNumber adapter, std::uint32_t on) {
  State* state = Find(adapter);
  if (state == nullptr || on > 1) return kInvalidArgument;
  if (on == 1 && state->records.hwRadioState == 0) return kNotReady;
  state->records.radioState = on;
  if (on == 0) Disconnect(*state);
  return kOk;
}

ApiStatus Machine::SetAdapter(const DeviceInfoRecord* record, std::uint32_t enable) {
  State* state = Find(record);
  if (state == nullptr || enable > 1) return kInvalidArgument;
  state->records.adapterState = enable;
  if (enable == 0) Disconnect(*state);
  return kOk;
}

/// Applies `edit` to the entries and keeps the result, unless it returns a failure.
template <class Edit>
ApiStatus Machine::EditExcludeList(AdapterNumber adapter, Edit&& edit) {
  State* state = Find(adapter);
  if (state == nullptr) return kInvalidArgument;
  const auto seen = state->excludeList.Seen<ExcludeEntryRecord>();
  std::vector<ExcludeEntryRecord> entries(seen.begin(), seen.end());
  if (const ApiStatus status = edit(entries); status != kOk) return status;
  state->excludeList = RecordList::Of<ExcludeEntryRecord>(entries);
  return kOk;
}

ApiStatus Machine::AddExcludeListEntry(AdapterNumber adapter, const ExcludeEntryRecord* entry) {
  if (entry == nullptr || entry->ssid[0] == '\0') return kInvalidArgument;
  return EditExcludeList(adapter, [entry](auto& entries) {
    const auto found = std::find_if(entries.begin(), entries.end(), [entry](const auto& known) {
      return IsSameNetwork(known, *entry);
    });
    if (found != entries.end()) {
      *found = *entry;
    } else {
      entries.push_back(*entry);
    }
    return kOk;
  });
}

ApiStatus Machine::RemoveExcludeListEntry(AdapterNumber adapter, const ExcludeEntryRecord* entry,
                                          std::uint32_t) {
  if (entry == nullptr) return kInvalidArgument;
  return EditExcludeList(adapter, [entry](auto& entries) {
    const auto removed =
        std::erase_if(entries, [entry](const auto& known) { return IsSameNetwork(known, *entry); });
    return removed == 0 ? kNotFound : kOk;
  });
}

ApiStatus Machine::ResetExcludeList(AdapterNumber adapter) {
  return EditExcludeList(adapter, [](auto& entries) {
    entries.clear();
    return kOk;
  });
}

ApiStatus Machine::GetExcludeCandidate(AdapterNumber adapter, ExcludeCandidateRecord* candidate) {
  const State* state = Find(adapter);
  if (state == nullptr || candidate == nullptr) return kInvalidArgument;
  if (state->records.association.associated == 0) return kNotReady;
  const ExcludeEntryRecord entry = CurrentNetwork(*state);
  std::memset(candidate, 0, sizeof *candidate);
  std::memcpy(candidate, &entry, sizeof entry);
  return kOk;
}

ApiStatus Machine::ExcludeThisAP(AdapterNumber adapter, ExcludeCandidateRecord* candidate) {
  const State* state = Find(adapter);
  if (state == nullptr || candidate == nullptr) return kInvalidArgument;
  if (state->records.association.associated == 0) return kNotReady;
  ExcludeEntryRecord entry;
  std::memcpy(&entry, candidate, sizeof entry);
  return AddExcludeListEntry(adapter, &entry);
}

}  // namespace simulator
