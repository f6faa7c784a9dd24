#include "classes/scan_lists.h"

#include "classes/list_class.h"
#include "classes/network_entry.h"
#include "classes/record_fields.h"
#include "platform/text.h"

namespace wifi {
namespace {

namespace codes = adapterapi::codes;
namespace operation = adapterapi::operation;
using adapterapi::ScanListEntry;

constexpr const OLECHAR* kMacAddress = OLESTR("MacAddress");

constexpr FieldRow<ScanListEntry> kCommonFields[] = {
    {OLESTR("NetworkName"), Text<&ScanListEntry::ssid>},
    {kMacAddress, Mac<&ScanListEntry::macAddress>},
    {OLESTR("Band"), Code<&ScanListEntry::band, codes::kBands, kBracketedUnknown>},
    {OLESTR("OperationMode"), Code<&ScanListEntry::opMode, codes::kOpModes>},
    {OLESTR("RSSI"), Decimal<&ScanListEntry::rssi>},
    {OLESTR("Encrypted"), Number<&ScanListEntry::encrypted>},
};

/// In the cached scan list the channel has one byte; the byte after it does not belong to it.
HRESULT ChannelByte(PropertyWriter& writer, const OLECHAR* property, const ScanListEntry& entry) {
  return writer.PutDecimal(property, entry.channel & 0xFF);
}

constexpr FieldRow<ScanListEntry> kCachedFields[] = {
    {OLESTR("ChannelID"), ChannelByte},
    {OLESTR("Stealth"), Number<&ScanListEntry::stealth>},
    {OLESTR("UnicastEncryptionLevel"),
     FirstBit<&ScanListEntry::unicastBits, codes::kCiphers, kUnKnown>},
    {OLESTR("MulticastEncryptionLevel"),
     FirstBit<&ScanListEntry::multicastBits, codes::kCiphers, kUnKnown>},
    {OLESTR("AuthLevel"), FirstBit<&ScanListEntry::authBits, codes::kAuthentications, kUnKnown>},
};

constexpr FieldRow<ScanListEntry> kAvailableFields[] = {
    // The class has no property for the channel, which is put into Encrypted, over the flag.
    {OLESTR("Encrypted"), Decimal<&ScanListEntry::channel>},
};

template <const auto& OwnFields>
void Fill(PropertyWriter& writer, const AdapterEntry& adapter, const ScanListEntry& entry) {
  PutAdapterTexts(writer, adapter);
  PutFields(writer, kCommonFields, entry);
  PutFields(writer, OwnFields, entry);
}

/// Case-sensitive: a key in lower case matches no entry.
bool HasMacAddress(const ScanListEntry& entry, const WantedKey& wanted) {
  return platform::EqualsAscii(wanted.text, adapterapi::MacText(entry.macAddress));
}

constexpr char kCachedLine[] = "Getting network information for WiFi_AdapterCachedScanList";
// There is no class of this name.
constexpr char kAvailableLine[] = "Getting network information for WiFi_AdapterNetwork";

constexpr ListClass<ScanListEntry> kCachedScanList = {
    .name = OLESTR("WiFi_AdapterCachedScanList"),
    .getter = operation::GetCachedScanList,
    .enumerateLine = kCachedLine,
    .getLine = kCachedLine,
    .fill = Fill<kCachedFields>,
    .key = kMacAddress,
    .matches = HasMacAddress,
};
constexpr ListClass<ScanListEntry> kAvailableNetworks = {
    .name = OLESTR("WiFi_AvailableNetwork"),
    .getter = operation::GetAvailableNetworks,
    .enumerateLine = kAvailableLine,
    .getLine = kAvailableLine,
    .fill = Fill<kAvailableFields>,
    .key = kMacAddress,
    .matches = HasMacAddress,
};

}  // namespace

HRESULT EnumerateCachedScanList(ProviderState& state, const Delivery& delivery) {
  return EnumerateLists(state, delivery, kCachedScanList);
}

HRESULT GetCachedScanListObject(ProviderState& state, const Delivery& delivery,
                                const ParsedPath& path) {
  return GetListEntry(state, delivery, path, kCachedScanList);
}

HRESULT EnumerateAvailableNetworks(ProviderState& state, const Delivery& delivery) {
  return EnumerateLists(state, delivery, kAvailableNetworks);
}

HRESULT GetAvailableNetworkObject(ProviderState& state, const Delivery& delivery,
                                  const ParsedPath& path) {
  return GetListEntry(state, delivery, path, kAvailableNetworks);
}

}  // namespace wifi
