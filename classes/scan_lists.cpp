#include "classes/scan_lists.h"

#include "classes/list_class.h"
#include "classes/network_entry.h"
#include "classes/record_fields.h"
#include "platform/text.h"

namespace wifi {
namespace {

namespace operation = adapterapi::operation;
using adapterapi::ScanListEntry;
using platform::Variant;

constexpr const OLECHAR* kMacAddress = OLESTR("MacAddress");

constexpr CodeText kBands[] = {{1, "802.11a"}, {2, "802.11b"}, {3, "802.11g"}};
constexpr char kUnknownBand[] = "<Unknown>";

constexpr CodeText kOpModes[] = {{1, "Infrastructure"}, {2, "Ad hoc"}};

// The order of the rows of these two is their precedence: the strongest first.
constexpr CodeText kCiphers[] = {
    {0x10, "AES-CCMP"}, {0x04, "TKIP"},  {0x08, "Orvel Wrap"}, {0x40, "CKIP"},
    {0x20, "WEP104"},   {0x02, "WEP40"}, {0x01, "None"},
};
constexpr CodeText kAuthentications[] = {
    {0x20, "RSNA"}, {0x02, "WPA"},    {0x40, "PSK"},  {0x04, "WPA_PSK"},
    {0x08, "Open"}, {0x10, "Shared"}, {0x01, "None"},
};
constexpr char kNoneKnown[] = "UnKnown";  // with the capital in the middle

constexpr FieldRow<ScanListEntry> kCommonFields[] = {
    {OLESTR("NetworkName"), Text<&ScanListEntry::ssid>},
    {kMacAddress, Mac<&ScanListEntry::macAddress>},
    {OLESTR("Band"), Code<&ScanListEntry::band, kBands, kUnknownBand>},
    {OLESTR("OperationMode"), Code<&ScanListEntry::opMode, kOpModes>},
    {OLESTR("RSSI"), Decimal<&ScanListEntry::rssi>},
    {OLESTR("Encrypted"), Number<&ScanListEntry::encrypted>},
};

/// The cached scan list has a channel of one byte; the byte behind it is not part of it.
Variant ChannelByte(const ScanListEntry& entry) {
  return DecimalText(entry.channel & 0xFF);
}

constexpr FieldRow<ScanListEntry> kCachedFields[] = {
    {OLESTR("ChannelID"), ChannelByte},
    {OLESTR("Stealth"), Number<&ScanListEntry::stealth>},
    {OLESTR("UnicastEncryptionLevel"), FirstBit<&ScanListEntry::unicastBits, kCiphers, kNoneKnown>},
    {OLESTR("MulticastEncryptionLevel"),
     FirstBit<&ScanListEntry::multicastBits, kCiphers, kNoneKnown>},
    {OLESTR("AuthLevel"), FirstBit<&ScanListEntry::authBits, kAuthentications, kNoneKnown>},
};

constexpr FieldRow<ScanListEntry> kAvailableFields[] = {
    // The channel goes under Encrypted, over the flag: the class has no property of its own for it.
    {OLESTR("Encrypted"), Decimal<&ScanListEntry::channel>},
};

template <const auto& OwnFields>
HRESULT Fill(IWbemClassObject* instance, const AdapterEntry& adapter, const ScanListEntry& entry) {
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  PutAdapterTexts(writer, adapter);
  PutFields(writer, kCommonFields, entry);
  PutFields(writer, OwnFields, entry);
  return writer.result();
}

/// Letter case counts: a key in lower case names no network.
bool HasMacAddress(const ScanListEntry& entry, const ParsedPath& path) {
  const Variant key = Variant::CopyOf(GetPathKeyValue(path, kMacAddress));
  return platform::WideText(MacText(entry.macAddress)) == platform::ViewOf(key.text());
}

constexpr char kCachedLine[] = "Getting network information for WiFi_AdapterCachedScanList";
// There is no class of this name.
constexpr char kAvailableLine[] = "Getting network information for WiFi_AdapterNetwork";

constexpr ListClass<ScanListEntry> kCachedScanList = {OLESTR("WiFi_AdapterCachedScanList"),
                                                      operation::GetCachedScanList,
                                                      kCachedLine,
                                                      kCachedLine,
                                                      nullptr,
                                                      Fill<kCachedFields>,
                                                      HasMacAddress};
constexpr ListClass<ScanListEntry> kAvailableNetworks = {OLESTR("WiFi_AvailableNetwork"),
                                                         operation::GetAvailableNetworks,
                                                         kAvailableLine,
                                                         kAvailableLine,
                                                         nullptr,
                                                         Fill<kAvailableFields>,
                                                         HasMacAddress};

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
