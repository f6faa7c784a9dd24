#include "simulator/connection.h"

#include <algorithm>

#include "adapterapi/codes.h"
#include "scenario/signal_quality.h"

namespace simulator {
namespace {

using adapterapi::codes::kAdHoc;
using adapterapi::codes::kInfrastructure;

constexpr std::uint32_t kAssociated = 1;
constexpr std::uint32_t kNotAssociated = 2;
constexpr std::uint32_t kIbssJoined = 4;
constexpr std::uint32_t kDisconnected = 1;
constexpr std::uint32_t kAuthenticated = 4;
constexpr std::uint32_t kOutOfRange = 2;
constexpr std::uint32_t kOpen = 1;
constexpr std::uint32_t kExcludedByUser = 0x1;
constexpr std::uint32_t kBand11b = 2;
constexpr std::int32_t kNoSignal = -100;       // dBm
constexpr std::int32_t kGoodSignal = -55;      // dBm
constexpr std::uint32_t kBestRate = 54000000;  // bit/s
constexpr std::uint32_t kRate11b = 11000000;   // bit/s

template <std::size_t Size>
bool SameText(const char (&left)[Size], const char (&right)[Size]) {
  return std::strncmp(left, right, Size) == 0;
}

}  // namespace

void Connect(Adapter& adapter, const ProfileRecord& profile) {
  AdapterRecords& records = adapter.records;
  adapterapi::AssociationInfoRecord association{};
  association.associated = 1;
  std::memcpy(association.profileName, profile.name, sizeof profile.name);
  // A profile from another library may contain only a name.
  const bool named = profile.ssid[0] != '\0';
  std::memcpy(association.ssid, named ? profile.ssid : profile.name, sizeof profile.ssid - 1);
  association.opMode = profile.opMode == kAdHoc ? kAdHoc : kInfrastructure;
  association.encryption = std::max(profile.encryption, 1u);
  association.authenMode = std::max(profile.authentication, kOpen);
  association.authenEnabled = association.authenMode != kOpen;
  association.rate = kBestRate;

  std::int32_t rssi = kGoodSignal;
  const auto networks = adapter.availableNetworks.Seen<adapterapi::ScanListEntry>();
  const auto network = std::find_if(networks.begin(), networks.end(), [&](const auto& entry) {
    return SameText(entry.ssid, association.ssid);
  });
  if (network != networks.end()) {
    std::memcpy(association.bssid, network->macAddress, sizeof association.bssid);
    association.channel = static_cast<std::uint8_t>(network->channel);
    association.rate = network->band == kBand11b ? kRate11b : kBestRate;
    records.band = network->band;
    rssi = network->rssi;
  }
  records.association = association;
  records.associationStatus = association.opMode == kAdHoc ? kIbssJoined : kAssociated;
  records.authenticationStatus = kAuthenticated;
  records.txRate = static_cast<std::int32_t>(association.rate);
  records.signal.quality = QualityOf(rssi);
  records.signal.rssi = rssi;
  records.associationStats.rssi = rssi;
  ++records.associationStats.numAssociations;
  records.lastProfile = profile;
}

void Disconnect(Adapter& adapter) {
  AdapterRecords& records = adapter.records;
  records.association = {};
  records.associationStatus = kNotAssociated;
  records.authenticationStatus = kDisconnected;
  records.txRate = 0;
  records.signal.quality = kOutOfRange;
  records.signal.rssi = kNoSignal;
  records.associationStats.rssi = kNoSignal;
}

adapterapi::ExcludeEntryRecord CurrentNetwork(const Adapter& adapter) {
  const adapterapi::AssociationInfoRecord& association = adapter.records.association;
  adapterapi::ExcludeEntryRecord entry{};
  std::memcpy(entry.ssid, association.ssid, sizeof entry.ssid);
  std::memcpy(entry.macAddress, association.bssid, sizeof entry.macAddress);
  entry.reasonBits = kExcludedByUser;
  return entry;
}

}  // namespace simulator
