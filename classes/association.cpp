#include "classes/association.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

namespace codes = adapterapi::codes;
using adapterapi::AssociationInfoRecord;
using adapterapi::AssociationStatsRecord;
using platform::Variant;

/// The name of the profile. An association without a profile shows a blank, not an empty text.
HRESULT Profile(PropertyWriter& writer, const OLECHAR* property,
                const AssociationInfoRecord& record) {
  const std::string_view name = adapterapi::BoundedText(record.profileName);
  return writer.PutAnsi(property, name == "@direct@" ? std::string_view(" ") : name);
}

HRESULT Rate(PropertyWriter& writer, const OLECHAR* property, const AssociationInfoRecord& record) {
  return writer.PutAnsi(property,
                        platform::ShortText<16>().Tenths(record.rate / 1'000'000.0).Add(" Mbps"));
}

constexpr FieldRow<AssociationInfoRecord> kAssociationFields[] = {
    {OLESTR("Profile"), Profile},
    {OLESTR("SSID"), Text<&AssociationInfoRecord::ssid>},
    {OLESTR("Rate"), Rate},
    {OLESTR("OpMode"), Code<&AssociationInfoRecord::opMode, codes::kOpModes>},
    {OLESTR("Encryption"), Code<&AssociationInfoRecord::encryption, codes::kEncryptions>},
    {OLESTR("AuthenMode"), Code<&AssociationInfoRecord::authenMode, codes::kAuthenModes>},
    {OLESTR("AuthenAlgorithm"),
     Code<&AssociationInfoRecord::authenAlgorithm, codes::kAuthenAlgorithms>},
    {OLESTR("AuthenEnabled"), Flag<&AssociationInfoRecord::authenEnabled>},
    {OLESTR("Channel"), Decimal<&AssociationInfoRecord::channel>},
};

constexpr FieldRow<AssociationStatsRecord> kCounters[] = {
    {OLESTR("NumAps"), Number<&AssociationStatsRecord::numAps>},
    {OLESTR("NumAssociations"), Number<&AssociationStatsRecord::numAssociations>},
    {OLESTR("NumFullScans"), Number<&AssociationStatsRecord::numFullScans>},
    {OLESTR("NumPartialScans"), Number<&AssociationStatsRecord::numPartialScans>},
    {OLESTR("RoamCount"), Number<&AssociationStatsRecord::roamCount>},
    {OLESTR("ApDidNotTx"), Number<&AssociationStatsRecord::apDidNotTx>},
    {OLESTR("PoorBeaconQuality"), Number<&AssociationStatsRecord::poorBeaconQuality>},
    {OLESTR("LoadBalancing"), Number<&AssociationStatsRecord::loadBalancing>},
    {OLESTR("LowRssi"), Number<&AssociationStatsRecord::lowRssi>},
    {OLESTR("PoorChannelQuality"), Number<&AssociationStatsRecord::poorChannelQuality>},
    {OLESTR("DroppedByAp"), Number<&AssociationStatsRecord::droppedByAp>},
    {OLESTR("RxBeacons"), Number<&AssociationStatsRecord::rxBeacons>},
    {OLESTR("TxRetries"), Number<&AssociationStatsRecord::txRetries>},
    {OLESTR("PercentTxErrs"), Number<&AssociationStatsRecord::percentTxErrs>},
    {OLESTR("CrcErrs"), Number<&AssociationStatsRecord::crcErrs>},
    {OLESTR("PercentMissedBeacons"), Number<&AssociationStatsRecord::percentMissedBeacons>},
};

/// The address of the access point: all zeros in ad hoc mode, empty if there is no association.
platform::ShortText<17> AccessPointAddress(ProviderState& state, const AdapterEntry& entry) {
  AssociationInfoRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting association information for WiFi_AdapterAssocStats",
                 adapterapi::operation::GetAssociationInfo, record, S_OK);
  if (status != 0) return {};
  if (record.opMode == codes::kInfrastructure) return adapterapi::MacText(record.bssid);
  platform::ShortText<17> none;
  return record.opMode == codes::kAdHoc ? none.Add("00:00:00:00:00:00") : none;
}

HRESULT FillAssociationStats(ProviderState& state, IWbemClassObject* instance,
                             const AdapterEntry& entry, const AssociationStatsRecord& record) {
  TraceMessage("FillAssocStats");
  PropertyWriter writer(instance, PutRule::kGoOn);
  writer.PutKey(kSettingId, entry.deviceId);
  writer.PutAnsi(OLESTR("ApMacAddr"), AccessPointAddress(state, entry));
  Dbm<&AssociationStatsRecord::rssi>(writer, OLESTR("Rssi"), record);
  PutFields(writer, kCounters, record);
  return writer.result();
}

constexpr RecordClass<AssociationStatsRecord> kAssociationStats = {
    .name = OLESTR("WiFi_AdapterAssocStats"),
    .getter = adapterapi::operation::GetAssociationStats,
    .enumerateLine = "Getting Association Stats for WiFi_AdapterAssocStats",
    .getLine = "Getting network information for WiFi_AdapterAssocStats",
    .fill = FillAssociationStats,
    .successIsZero = true,
};

}  // namespace

HRESULT FillAssociationInfo(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutPropertyValue(instance, kSettingId, Variant::Text(entry.deviceId));
  AssociationInfoRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting association information for WiFi_AdapterAssociationInfo",
                 adapterapi::operation::GetAssociationInfo, record, keyPut);
  // On refusal deliver the instance with only its key (WiFi_AdapterAssocStats returns
  // WBEM_E_NOT_FOUND instead).
  if (status != 0) return S_OK;

  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  if (SUCCEEDED(writer.PutFlag(OLESTR("Associated"), record.associated))) {
    entry.work = Variant::Boolean(record.associated != 0);
  }
  PutFields(writer, kAssociationFields, record);
  return writer.result();
}

HRESULT EnumerateAssociationStats(ProviderState& state, const Delivery& delivery) {
  return EnumerateRecords(state, delivery, kAssociationStats);
}

HRESULT GetAssociationStatsObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path) {
  return GetRecordObject(state, delivery, path, kAssociationStats);
}

}  // namespace wifi
