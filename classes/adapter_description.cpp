#include "classes/adapter_description.h"

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

namespace codes = adapterapi::codes;
namespace operation = adapterapi::operation;
using adapterapi::ConfigInfoRecord;
using adapterapi::DeviceInfoRecord;
using adapterapi::FeaturesRecord;
using adapterapi::VersionInfoRecord;
using platform::Variant;

constexpr FieldRow<DeviceInfoRecord> kDeviceFields[] = {
    {OLESTR("VendorID"), Hex4<&DeviceInfoRecord::vendorId>},
    {OLESTR("DeviceID"), Hex4<&DeviceInfoRecord::deviceId>},
    {OLESTR("SubsystemID"), Hex4<&DeviceInfoRecord::subsystemId>},
    {OLESTR("SubSystemVendorID"), Hex4<&DeviceInfoRecord::subsystemVendorId>},
    // The only id in decimal.
    {OLESTR("RevisionID"), Decimal<&DeviceInfoRecord::revisionId>},
    {OLESTR("HardwareID"), Hex4<&DeviceInfoRecord::hardwareId>},
    {OLESTR("CardType"), Code<&DeviceInfoRecord::cardType, codes::kCardTypes>},
};

constexpr FieldRow<ConfigInfoRecord> kConfigFields[] = {
    {OLESTR("InterruptNumber"), Decimal<&ConfigInfoRecord::interruptNumber>},
    {OLESTR("IOAddress"), Hex8<&ConfigInfoRecord::ioAddress>},
    {OLESTR("MemoryAddress"), Hex8<&ConfigInfoRecord::memoryAddress>},
    {OLESTR("MemorySize"), Decimal<&ConfigInfoRecord::memorySize>},
    {OLESTR("AttributeMemoryAddress"), Hex8<&ConfigInfoRecord::attributeMemoryAddress>},
    // The name of the property lacks a "b".
    {OLESTR("AttriuteMemorySize"), Decimal<&ConfigInfoRecord::attributeMemorySize>},
    {OLESTR("ControllerIOAddress"), Hex8<&ConfigInfoRecord::controllerIoAddress>},
    {OLESTR("PacketFilterMask"), Hex8<&ConfigInfoRecord::packetFilterMask>},
    {OLESTR("AddressingMode"), Code<&ConfigInfoRecord::addressingMode, codes::kAddressingModes>},
};

constexpr FieldRow<VersionInfoRecord> kVersionFields[] = {
    {OLESTR("Driver"), Text<&VersionInfoRecord::driver>},
    {OLESTR("Firmware11a"), Text<&VersionInfoRecord::firmware11a>},
    {OLESTR("Firmware11b"), Text<&VersionInfoRecord::firmware11b>},
    {OLESTR("Firmware11g"), Text<&VersionInfoRecord::firmware11g>},
    {OLESTR("Microcode11a"), Text<&VersionInfoRecord::microcode11a>},
    {OLESTR("Microcode11b"), Text<&VersionInfoRecord::microcode11b>},
    {OLESTR("Microcode11g"), Text<&VersionInfoRecord::microcode11g>},
    {OLESTR("EEPROM"), Text<&VersionInfoRecord::eeprom>},
};

template <auto Member>
HRESULT Supported(PropertyWriter& writer, const OLECHAR* property, const FeaturesRecord& record) {
  return writer.PutAnsi(property, record.*Member != 0 ? "Yes" : "No");
}

constexpr FieldRow<FeaturesRecord> kFeatures[] = {
    {OLESTR("AntennaDiversity"), Supported<&FeaturesRecord::antennaDiversity>},
    {OLESTR("BeaconInterval"), Supported<&FeaturesRecord::beaconInterval>},
    {OLESTR("FragThreshold"), Supported<&FeaturesRecord::fragThreshold>},
    {OLESTR("RtsThreshold"), Supported<&FeaturesRecord::rtsThreshold>},
    {OLESTR("SweepTable"), Supported<&FeaturesRecord::sweepTable>},
    {OLESTR("ApTable"), Supported<&FeaturesRecord::apTable>},
    {OLESTR("PeerTable"), Supported<&FeaturesRecord::peerTable>},
    {OLESTR("RadioState"), Supported<&FeaturesRecord::radioState>},
    {OLESTR("Preamble"), Supported<&FeaturesRecord::preamble>},
    {OLESTR("Qos"), Supported<&FeaturesRecord::qos>},
    {OLESTR("PowerMode"), Supported<&FeaturesRecord::powerMode>},
    {OLESTR("AutoPsp"), Supported<&FeaturesRecord::autoPsp>},
    {OLESTR("PowerSource"), Supported<&FeaturesRecord::powerSource>},
    {OLESTR("BssTxPwrCtl"), Supported<&FeaturesRecord::bssTxPwrCtl>},
    {OLESTR("IbssTxPwrCtl"), Supported<&FeaturesRecord::ibssTxPwrCtl>},
    {OLESTR("Wep"), Supported<&FeaturesRecord::wep>},
    {OLESTR("Security_802_1x"), Supported<&FeaturesRecord::security8021x>},
    {OLESTR("Leap"), Supported<&FeaturesRecord::leap>},
    {OLESTR("Tkip"), Supported<&FeaturesRecord::tkip>},
    {OLESTR("Aes"), Supported<&FeaturesRecord::aes>},
    {OLESTR("HwRadioSwitch"), Supported<&FeaturesRecord::hwRadioSwitch>},
};

}  // namespace

HRESULT FillAdapterDevice(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  DeviceInfoRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting device information for WiFi_AdapterDevice",
                 operation::GetDeviceInfo, record, keyPut);
  if (status != 0) return status;
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  writer.PutText(OLESTR("MacAddress"), entry.macAddress);
  PutFields(writer, kDeviceFields, record);
  return writer.result();
}

HRESULT FillConfigSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  ConfigInfoRecord record = {};
  // The line says "version" instead of "settings".
  const HRESULT status =
      ReadRecord(state, entry, "Getting version information for WiFi_AdapterConfigSettings",
                 operation::GetAdapterConfiguration, record, keyPut);
  if (status != 0) return status;
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  PutFields(writer, kConfigFields, record);
  // Always put, even after a failed put; only this result is returned.
  PropertyWriter last(instance, PutRule::kGoOn);
  return Number<&ConfigInfoRecord::socketNumber>(last, OLESTR("SocketNumber"), record);
}

HRESULT FillAdapterVersion(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  // Of the four classes, only this one goes on after an exception from the put of its key.
  const HRESULT keyPut = PutPropertyValue(instance, kSettingId, Variant::Text(entry.deviceId));
  VersionInfoRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting version information for WiFi_AdapterVersion",
                 operation::GetVersionInfo, record, keyPut);
  if (status != 0) return status;
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  PutFields(writer, kVersionFields, record);
  return writer.result();
}

HRESULT FillAdapterFeatures(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  FeaturesRecord record = {};
  // The line names the class of the signal parameters.
  const HRESULT status = ReadRecord(
      state, entry, "Getting adapter features information for WiFi_AdapterSignalParameters",
      operation::GetAdapterFeatures, record, keyPut);
  if (status != 0) return status;
  PropertyWriter writer(instance, PutRule::kGoOn);
  PutFields(writer, kFeatures, record);
  return writer.result();
}

}  // namespace wifi
