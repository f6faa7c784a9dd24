#include "classes/association_info.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

using adapterapi::AssociationInfoRecord;
using platform::Variant;

constexpr CodeText kOpModes[] = {{1, "Infrastructure"}, {2, "Ad hoc"}};

constexpr CodeText kEncryptions[] = {
    {1, "None"},        {2, "40-bit"},       {3, "104-bit"},
    {4, "CKIP 40-bit"}, {5, "CKIP 104-bit"}, {6, "TKIP "},  // the blank belongs to the text
};

constexpr CodeText kAuthenModes[] = {
    {1, "Open"},         {2, "Shared"},          {3, "WPA-Enterprise"},
    {4, "WPA-Personal"}, {5, "WPA2-Enterprise"}, {6, "WPA2-Personal"},
    {7, "CCX"},
};

// Unlike the others, these codes start at 0.
constexpr CodeText kAuthenAlgorithms[] = {
    {0, "No Authentication"},
    {1, "Md5"},
    {2, "Leap"},
    {3, "Tls"},
    {4, "Ttls"},
    {5, "Peap"},
    {6, "EapSim"},
    {7, "EapFast"},
};

/// The profile's name. An association made without one shows a blank, not an empty text.
Variant Profile(const AssociationInfoRecord& record) {
  const std::string_view name = adapterapi::BoundedText(record.profileName);
  return Variant::AnsiText(name == "@direct@" ? std::string_view(" ") : name);
}

Variant Rate(const AssociationInfoRecord& record) {
  return Variant::AnsiText(FormatText("%.1f Mbps", record.rate / 1'000'000.0));
}

constexpr FieldRow<AssociationInfoRecord> kFields[] = {
    {OLESTR("Profile"), Profile},
    {OLESTR("SSID"), Text<&AssociationInfoRecord::ssid>},
    {OLESTR("Rate"), Rate},
    {OLESTR("OpMode"), Code<&AssociationInfoRecord::opMode, kOpModes>},
    {OLESTR("Encryption"), Code<&AssociationInfoRecord::encryption, kEncryptions>},
    {OLESTR("AuthenMode"), Code<&AssociationInfoRecord::authenMode, kAuthenModes>},
    {OLESTR("AuthenAlgorithm"), Code<&AssociationInfoRecord::authenAlgorithm, kAuthenAlgorithms>},
    {OLESTR("AuthenEnabled"), Flag<&AssociationInfoRecord::authenEnabled>},
    {OLESTR("Channel"), Decimal<&AssociationInfoRecord::channel>},
};

}  // namespace

HRESULT FillAssociationInfo(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutPropertyValue(instance, kSettingId, Variant::Text(entry.deviceId));
  AssociationInfoRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting association information for WiFi_AdapterAssociationInfo",
                 adapterapi::operation::GetAssociationInfo, record, keyPut);
  // A refusal leaves an instance with its key alone, which the statistics class would not show.
  if (status != 0) return S_OK;

  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  if (SUCCEEDED(writer.PutFlag(OLESTR("Associated"), record.associated))) {
    entry.work = Variant::Boolean(record.associated != 0);
  }
  PutFields(writer, kFields, record);
  return writer.result();
}

}  // namespace wifi
