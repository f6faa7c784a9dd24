#include "classes/exclude_list.h"

#include "adapterapi/bounded_text.h"
#include "adapterapi/mac_text.h"
#include "classes/list_class.h"
#include "classes/network_entry.h"

namespace wifi {
namespace {

using adapterapi::ExcludeEntryRecord;

constexpr const OLECHAR* kNetworkName = OLESTR("NetworkName");

struct ReasonBit {
  std::uint32_t bit;
  std::uint32_t reason;
};
// The first row whose bit is set gives the reason.
constexpr ReasonBit kReasons[] = {{0x00001, 0}, {0x00040, 2}, {0x08000, 3}, {0x10000, 4}};
constexpr std::uint32_t kOtherReason = 1;

std::uint32_t Reason(std::uint32_t bits) {
  for (const ReasonBit& row : kReasons) {
    if ((bits & row.bit) != 0) return row.reason;
  }
  return kOtherReason;
}

/// A name of 32 bytes is ended by the byte after the field. If that byte is not zero, it is shown
/// too.
constexpr std::size_t kShownNameRoom = sizeof(ExcludeEntryRecord::ssid) + 1;

void FillExcludeEntry(PropertyWriter& writer, const AdapterEntry& adapter,
                      const ExcludeEntryRecord& entry) {
  TraceMessage("FillAdapterExcludeList");
  PutAdapterTexts(writer, adapter);
  writer.PutAnsi(kNetworkName, adapterapi::BoundedText(&entry, kShownNameRoom));
  const auto macAddress = adapterapi::MacText(entry.macAddress);
  TraceMessage(macAddress.c_str());
  writer.PutAnsi(OLESTR("MacAddress"), macAddress);
  writer.PutNumber(OLESTR("Reason"), Reason(entry.reasonBits));
}

/// Case-sensitive. Compares at most the 32 bytes of the field.
bool HasNetworkName(const ExcludeEntryRecord& entry, const WantedKey& wanted) {
  return adapterapi::BoundedText(entry.ssid) == wanted.ansi;
}

constexpr ListClass<ExcludeEntryRecord> kExcludeList = {
    .name = OLESTR("WiFi_NetworkExcludeList"),
    .getter = adapterapi::operation::GetExcludeList,
    .enumerateLine = "Getting exclude list for WiFi_NetworkExcludeList",
    .getLine = "Getting network information for WiFi_NetworkExcludeList",
    .doneLine = "Done Getting network information for WiFi_NetworkExcludeList",
    .fill = FillExcludeEntry,
    .key = kNetworkName,
    .matches = HasNetworkName,
};

}  // namespace

HRESULT EnumerateExcludeList(ProviderState& state, const Delivery& delivery) {
  return EnumerateLists(state, delivery, kExcludeList);
}

HRESULT GetExcludeListObject(ProviderState& state, const Delivery& delivery,
                             const ParsedPath& path) {
  return GetListEntry(state, delivery, path, kExcludeList);
}

}  // namespace wifi
