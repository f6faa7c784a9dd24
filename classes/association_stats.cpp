#include "classes/association_stats.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

using adapterapi::AssociationInfoRecord;
using adapterapi::AssociationStatsRecord;

constexpr std::uint32_t kInfrastructure = 1;
constexpr std::uint32_t kAdHoc = 2;

// In the order of the record's counters.
constexpr const OLECHAR* kCounters[] = {
    OLESTR("NumAps"),
    OLESTR("NumAssociations"),
    OLESTR("NumFullScans"),
    OLESTR("NumPartialScans"),
    OLESTR("RoamCount"),
    OLESTR("ApDidNotTx"),
    OLESTR("PoorBeaconQuality"),
    OLESTR("LoadBalancing"),
    OLESTR("LowRssi"),
    OLESTR("PoorChannelQuality"),
    OLESTR("DroppedByAp"),
    OLESTR("RxBeacons"),
    OLESTR("TxRetries"),
    OLESTR("PercentTxErrs"),
    OLESTR("CrcErrs"),
    OLESTR("PercentMissedBeacons"),
};
static_assert(std::size(kCounters) == std::size(AssociationStatsRecord{}.counters));

/// The access point's address; all zeros in ad hoc mode, empty when there is no association.
std::string AccessPointAddress(ProviderState& state, const AdapterEntry& entry) {
  AssociationInfoRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting association information for WiFi_AdapterAssocStats",
                 adapterapi::operation::GetAssociationInfo, record, S_OK);
  if (status != 0) return {};
  if (record.opMode == kInfrastructure) return MacText(record.bssid);
  return record.opMode == kAdHoc ? "00:00:00:00:00:00" : "";
}

HRESULT FillAssociationStats(ProviderState& state, IWbemClassObject* instance,
                             const AdapterEntry& entry, const AssociationStatsRecord& record) {
  TraceMessage("FillAssocStats");
  PropertyWriter writer(instance, PutRule::kGoOn);
  writer.PutKey(kSettingId, platform::Variant::Text(entry.deviceId));
  writer.PutAnsi(OLESTR("ApMacAddr"), AccessPointAddress(state, entry));
  writer.Put(OLESTR("Rssi"), Dbm<&AssociationStatsRecord::rssi>(record));
  for (std::size_t index = 0; index < std::size(kCounters); ++index) {
    writer.PutNumber(kCounters[index], record.counters[index]);
  }
  return writer.result();
}

constexpr RecordClass<AssociationStatsRecord> kAssociationStats = {
    OLESTR("WiFi_AdapterAssocStats"),
    adapterapi::operation::GetAssociationStats,
    "Getting Association Stats for WiFi_AdapterAssocStats",
    "Getting network information for WiFi_AdapterAssocStats",
    FillAssociationStats,
    true};

}  // namespace

HRESULT EnumerateAssociationStats(ProviderState& state, const Delivery& delivery) {
  return EnumerateRecords(state, delivery, kAssociationStats);
}

HRESULT GetAssociationStatsObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path) {
  return GetRecordObject(state, delivery, path, kAssociationStats);
}

}  // namespace wifi
