#include "simulator/machine.h"

#include <algorithm>

#include "scenario/change.h"
#include "scenario/names.h"

namespace simulator {
namespace {

/// What GetAdapterConfiguration fills; the rest of the record belongs to the client.
constexpr std::size_t kConfigurationSize = offsetof(ConfigInfoRecord, room);

RecordList MakeAdapterList(std::span<const Adapter> adapters) {
  std::vector<AdapterListRecord> records;
  for (const Adapter& adapter : adapters) {
    AdapterListRecord& record = records.emplace_back();
    record.number = adapter.records.number;
    std::copy(std::begin(adapter.records.mac), std::end(adapter.records.mac), record.macAddress);
    record.present = adapter.records.present;
  }
  return RecordList::Of<AdapterListRecord>(records);
}

using Settings = std::map<std::uint32_t, std::uint32_t>;

ApiStatus GiveSetting(const Settings& settings, std::uint32_t setting, std::uint32_t* value) {
  if (value == nullptr) return kInvalidArgument;
  const auto found = settings.find(setting);
  if (found == settings.end()) return kUnknownSetting;
  *value = found->second;
  return kOk;
}

ApiStatus KeepSetting(Settings& settings, std::uint32_t setting, std::uint32_t value) {
  const auto found = settings.find(setting);
  if (found == settings.end()) return kUnknownSetting;
  found->second = value;
  return kOk;
}

bool IsOption(std::span<const Name> names, std::uint32_t options, std::uint32_t channel) {
  const std::string text = std::to_string(channel);
  return std::any_of(names.begin(), names.end(), [&](const Name& name) {
    return (options & name.code) != 0 && name.text == text;
  });
}

}  // namespace

Machine::Machine(Scenario scenario)
    : scenario_(std::move(scenario)), adapterList_(MakeAdapterList(scenario_.adapters)) {
  for (Adapter& adapter : scenario_.adapters) {
    places_[adapter.records.number] = adapters_.size();
    adapters_.emplace_back(std::move(adapter));
  }
  scenario_.adapters.clear();
}

bool Machine::Change(const std::string& path, const std::string& value) {
  const auto adapterAt = [this](std::size_t index) -> Adapter* {
    return index < adapters_.size() ? &adapters_[index] : nullptr;
  };
  return ChangeMember(path, value, adapterAt, scenario_);
}

void Machine::Restart(const Scenario& scenario) {
  for (std::size_t index = 0; index < adapters_.size(); ++index) {
    static_cast<Adapter&>(adapters_[index]) = scenario.adapters[index];
  }
  scenario_ = scenario;
  scenario_.adapters.clear();
}

Machine::State* Machine::Find(AdapterNumber number) {
  const auto place = places_.find(number);
  return place == places_.end() ? nullptr : &adapters_[place->second];
}

Machine::State* Machine::Find(const DeviceInfoRecord* record) {
  AdapterNumber number = 0;
  if (record == nullptr) return nullptr;
  std::memcpy(&number, record->unread0, sizeof number);
  return Find(number);
}

template <class Value>
ApiStatus Machine::Give(AdapterNumber number, Value AdapterRecords::*member, Value* output) {
  const State* state = Find(number);
  if (state == nullptr || output == nullptr) return kInvalidArgument;
  *output = state->records.*member;
  return kOk;
}

template <class Value>
ApiStatus Machine::Keep(AdapterNumber number, Value AdapterRecords::*member, Value value,
                        Value least, Value most) {
  State* state = Find(number);
  if (state == nullptr || value < least || value > most) return kInvalidArgument;
  state->records.*member = value;
  return kOk;
}

// clang-format off
#define GIVE(name, Value, member)                                    \
  ApiStatus Machine::name(AdapterNumber adapter, Value* output) {    \
    return Give(adapter, &AdapterRecords::member, output);           \
  }
GIVE(GetAdapterState, std::uint32_t, adapterState)
GIVE(GetAdapterType, std::uint32_t, type)
GIVE(GetAssociationInfo, AssociationInfoRecord, association)
GIVE(GetAssociationStats, AssociationStatsRecord, associationStats)
GIVE(GetAssociationStatus, std::uint32_t, associationStatus)
GIVE(GetAuthenticationStatus, std::uint32_t, authenticationStatus)
GIVE(GetBand, std::uint32_t, band)
GIVE(GetCcxTpcPower, std::int32_t, ccxTpcPower)
GIVE(GetConnectionPreference, std::uint32_t, connectionPreference)
GIVE(GetDeviceInfo, DeviceInfoRecord, device)
GIVE(GetHwRadioState, std::uint32_t, hwRadioState)
GIVE(GetChannelInfo, IbssPreferencesRecord, channels)
GIVE(GetIbssTxPower, std::uint32_t, ibssTxPower)
GIVE(GetProtocolPreference, std::uint32_t, protocolPreference)
GIVE(GetPspInfo, PspInfoRecord, psp)
GIVE(GetRadioState, std::uint32_t, radioState)
GIVE(GetReadyForProfileState, std::uint32_t, readyForProfileState)
GIVE(GetRegistrationState, std::uint32_t, registrationState)
GIVE(GetRogueApCount, std::uint32_t, rogueApCount)
GIVE(GetSignalParameters, SignalParametersRecord, signal)
GIVE(GetSupportedRates, std::uint32_t, supportedRates)
GIVE(GetTcpipConfigInfo, TcpipConfigRecord, tcpip)
GIVE(GetTxRate, std::int32_t, txRate)
GIVE(GetTxRxStats, TxRxStatsRecord, traffic)
GIVE(GetVersionInfo, VersionInfoRecord, versions)
GIVE(IsExcludeListEnabled, std::uint32_t, excludeListEnabled)
GIVE(IsTcpIpInstalledAndBound, std::uint32_t, tcpIpBound)
GIVE(IsXpZeroConfigEnabled, std::uint32_t, xpZeroConfigEnabled)
GIVE(GetAdapterFeatures, FeaturesRecord, features)
#undef GIVE

#define KEEP(name, member, least, most)                                                \
  ApiStatus Machine::name(AdapterNumber adapter, std::uint32_t value) {                \
    return Keep<std::uint32_t>(adapter, &AdapterRecords::member, value, least, most);  \
  }
KEEP(EnableXpZeroConfig, xpZeroConfigEnabled, 0, 1)
KEEP(SetConnectionPreference, connectionPreference, 1, 4)
KEEP(SetIbssTxPower, ibssTxPower, 1, 5)
KEEP(SetProtocolPreference, protocolPreference, 1, 8)
KEEP(SetReadyForProfileState, readyForProfileState, 0, 1)
#undef KEEP
// clang-format on

ApiStatus Machine::SetPspMode(AdapterNumber adapter, std::uint32_t mode) {
  State* state = Find(adapter);
  if (state == nullptr || mode < 1 || mode > 7) return kInvalidArgument;
  state->records.psp.mode = mode;
  return kOk;
}

ApiStatus Machine::GetCcxVersion(AdapterNumber adapter, CcxVersionRecord* record) {
  const State* state = Find(adapter);
  if (state == nullptr || record == nullptr) return kInvalidArgument;
  std::memcpy(record, &state->records.ccxVersion, offsetof(CcxVersionRecord, room));
  return kOk;
}

ApiStatus Machine::GetCcxPowerLevels(AdapterNumber adapter, CcxPowerLevelsRecord* record) {
  const State* state = Find(adapter);
  if (state == nullptr || record == nullptr) return kInvalidArgument;
  const CcxPowerLevelsRecord& levels = state->records.ccxPowerLevels;
  const std::size_t written = std::min(levels.count, CcxPowerLevelsRecord::kRoom);
  std::memcpy(record, &levels, sizeof levels.count + written * sizeof levels.levels[0]);
  return kOk;
}

ApiStatus Machine::GetAdapterConfiguration(AdapterNumber adapter, ConfigInfoRecord* record) {
  const State* state = Find(adapter);
  if (state == nullptr || record == nullptr) return kInvalidArgument;
  std::memcpy(record, &state->records.configuration, kConfigurationSize);
  return kOk;
}

ApiStatus Machine::GetTcpipv6ConfigInfo(AdapterNumber adapter, Tcpipv6ConfigRecord* record) {
  if (record == nullptr || record->size != sizeof *record) return kInvalidArgument;
  return Give(adapter, &AdapterRecords::tcpipv6, record);
}

ApiStatus Machine::GetLastAppliedProfile(AdapterNumber adapter, ORVEL_WLAN_PROFILE* profile) {
  const State* state = Find(adapter);
  if (state == nullptr || profile == nullptr) return kInvalidArgument;
  std::memcpy(profile, &state->records.lastProfile, sizeof *profile);
  return kOk;
}

ApiStatus Machine::IsAdapterSupported(const DeviceInfoRecord* record, std::uint32_t* supported) {
  const State* state = Find(record);
  if (state == nullptr || supported == nullptr) return kInvalidArgument;
  *supported = state->records.supported;
  return kOk;
}

ApiStatus Machine::GetAdapterList(const AdapterList** list) {
  if (list == nullptr) return kInvalidArgument;
  *list = adapterList_.As<AdapterList>();
  return kOk;
}

template <class List>
ApiStatus Machine::GiveList(AdapterNumber number, RecordList Adapter::*member,
                            GivenLists State::*given, const List** list) {
  State* state = Find(number);
  if (state == nullptr || list == nullptr) return kInvalidArgument;
  auto& [lists, last] = state->*given;
  if (lists[last] != state->*member) {
    last = (last + 1) % lists.size();
    lists[last] = state->*member;
  }
  *list = lists[last].template As<List>();
  return kOk;
}

ApiStatus Machine::GetCachedScanList(AdapterNumber adapter, const ScanList** list) {
  return GiveList(adapter, &Adapter::cachedNetworks, &State::cachedNetworksGiven, list);
}

ApiStatus Machine::GetAvailableNetworks(AdapterNumber adapter, const ScanList** list) {
  return GiveList(adapter, &Adapter::availableNetworks, &State::availableNetworksGiven, list);
}

ApiStatus Machine::GetExcludeList(AdapterNumber adapter, const ExcludeList** list) {
  return GiveList(adapter, &Adapter::excludeList, &State::excludeListGiven, list);
}

ApiStatus Machine::GetApiVersion(std::uint32_t* version) {
  if (version == nullptr) return kInvalidArgument;
  *version = scenario_.apiVersion;
  return kOk;
}

ApiStatus Machine::GetSettingValue(SettingNumber setting, std::uint32_t* value) {
  return GiveSetting(scenario_.settings, setting, value);
}

ApiStatus Machine::SetBoosSeteing(SettingNumber setting, std::uint32_t value) {
  return KeepSetting(scenario_.settings, setting, value);
}

ApiStatus Machine::GetPolicyValue(SettingNumber setting, std::uint32_t* value) {
  return GiveSetting(scenario_.policies, setting, value);
}

ApiStatus Machine::SetPolicyValue(SettingNumber setting, std::uint32_t value) {
  return KeepSetting(scenario_.policies, setting, value);
}

ApiStatus Machine::ResetStatistics(AdapterNumber adapter) {
  State* state = Find(adapter);
  if (state == nullptr) return kInvalidArgument;
  AdapterRecords& records = state->records;
  const std::int32_t rssi = records.associationStats.rssi;
  records.associationStats = {};
  records.associationStats.rssi = rssi;
  records.signal.percentMissedBeacons = 0;
  records.signal.percentTxRetries = 0;
  records.signal.crcErrors = 0;
  TxRxStatsRecord traffic{};
  std::copy(std::begin(records.traffic.rates), std::end(records.traffic.rates), traffic.rates);
  records.traffic = traffic;
  return kOk;
}

ApiStatus Machine::SetIbssPreferences(AdapterNumber adapter, const IbssPreferencesRecord* record) {
  State* state = Find(adapter);
  if (state == nullptr || record == nullptr) return kInvalidArgument;
  IbssPreferencesRecord& channels = state->records.channels;
  if (!IsOption(kNamesOf<adapterapi::codes::k5GhzChannels>, channels.channelAOptions,
                record->channelA) ||
      !IsOption(kNamesOf<adapterapi::codes::k2GhzChannels>, channels.channelBOptions,
                record->channelB)) {
    return kInvalidArgument;
  }
  channels.channelA = record->channelA;
  channels.channelB = record->channelB;
  return kOk;
}

ApiStatus Machine::EnableExcludeList(AdapterNumber adapter, std::uint32_t enable, std::uint32_t) {
  return Keep<std::uint32_t>(adapter, &AdapterRecords::excludeListEnabled, enable, 0, 1);
}

ApiStatus Machine::RegisterProfileService(AdapterNumber adapter, std::uint32_t enroll,
                                          std::uint32_t) {
  return Keep<std::uint32_t>(adapter, &AdapterRecords::registrationState, enroll, 0, 1);
}

ApiStatus Machine::Release1xConfig(FixedNumber) {
  return kOk;
}

ApiStatus Machine::CloseLibrary() {
  return kOk;
}

ApiStatus Machine::SetLibraryMode(FixedNumber) {
  return kOk;
}

}  // namespace simulator
