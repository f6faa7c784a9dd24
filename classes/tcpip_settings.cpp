#include "classes/tcpip_settings.h"

#include <algorithm>

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

namespace operation = adapterapi::operation;
using adapterapi::TcpipConfigRecord;
using adapterapi::Tcpipv6ConfigRecord;

/// The texts of `count` slots from `first` on, two blanks behind each. The count is the library's
/// and may exceed the array: the slots then go on over what follows it, to the record's end.
HRESULT PutJoined(PropertyWriter& writer, const OLECHAR* property,
                  const Tcpipv6ConfigRecord& record, std::size_t first, std::uint32_t count) {
  constexpr std::size_t kSlot = sizeof(record.ipAddresses[0]);
  static_assert(sizeof(record.gateways[0]) == kSlot);
  constexpr std::size_t kMostSlots = sizeof(record) / kSlot + 1;  // the last one cut short
  platform::ShortText<kMostSlots*(kSlot + 2)> text;
  for (std::size_t slot = first; count > 0 && slot < sizeof(record); slot += kSlot, --count) {
    text.Add(adapterapi::BoundedText(reinterpret_cast<const char*>(&record) + slot,
                                     std::min(kSlot, sizeof(record) - slot)));
    text.Add("  ");
  }
  return writer.PutAnsi(property, text);
}

HRESULT IpAddress(PropertyWriter& writer, const OLECHAR* property,
                  const TcpipConfigRecord& record) {
  return Text<&TcpipConfigRecord::ipAddress>(writer, property, record);
}
HRESULT IpAddress(PropertyWriter& writer, const OLECHAR* property,
                  const Tcpipv6ConfigRecord& record) {
  return PutJoined(writer, property, record, offsetof(Tcpipv6ConfigRecord, ipAddresses),
                   record.addressCount);
}
HRESULT DefaultGateway(PropertyWriter& writer, const OLECHAR* property,
                       const TcpipConfigRecord& record) {
  return Text<&TcpipConfigRecord::defaultGateway>(writer, property, record);
}
HRESULT DefaultGateway(PropertyWriter& writer, const OLECHAR* property,
                       const Tcpipv6ConfigRecord& record) {
  return PutJoined(writer, property, record, offsetof(Tcpipv6ConfigRecord, gateways),
                   record.gatewayCount);
}

/// Put whatever becomes of them.
template <class Record>
constexpr FieldRow<Record> kUnexaminedFields[] = {
    {OLESTR("DHCP_IP"), Flag<&Record::dhcpEnabled>},
    {OLESTR("DNS"), Flag<&Record::dnsFromDhcp>},
};

template <class Record>
constexpr FieldRow<Record> kTcpipFields[] = {
    {OLESTR("DHCP_WINS"), Flag<&Record::winsFromDhcp>},
    {OLESTR("IPAddress"), IpAddress},
    {OLESTR("DefaultGateway"), DefaultGateway},
    {OLESTR("DhcpServer"), Text<&Record::dhcpServer>},
    {OLESTR("DhcpSubnetMask"), Text<&Record::dhcpSubnetMask>},
    {OLESTR("DNSPrim"), Text<&Record::dnsPrimary>},
    {OLESTR("DNSSec"), Text<&Record::dnsSecondary>},
    {OLESTR("WINSPrim"), Text<&Record::winsPrimary>},
    {OLESTR("WINSSec"), Text<&Record::winsSecondary>},
    {OLESTR("Domain"), Text<&Record::domain>},
    {OLESTR("ScopeID"), Text<&Record::scopeId>},
};

template <class Record>
HRESULT PutSettings(IWbemClassObject* instance, const Record& record) {
  PropertyWriter unexamined(instance, PutRule::kGoOn);
  PutFields(unexamined, kUnexaminedFields<Record>, record);
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  PutFields(writer, kTcpipFields<Record>, record);
  return writer.result();
}

}  // namespace

HRESULT FillTcpIpSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  TcpipConfigRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting TCP/IP information for WiFi_AdapterTcpIpSettings",
                 operation::GetTcpipConfigInfo, record, keyPut);
  return status != 0 ? status : PutSettings(instance, record);
}

HRESULT FillTcpIpv6Settings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  Tcpipv6ConfigRecord record = {};
  record.size = sizeof(record);
  const HRESULT status =
      ReadRecord(state, entry, "Getting TCP/IPV6 information for WiFi_AdapterTcpIpv6Settings",
                 operation::GetTcpipv6ConfigInfo, record, keyPut);
  if (status != 0) {
    TraceMessage("error in getting the IPv6 value ");
    return WBEM_E_NOT_FOUND;
  }
  return PutSettings(instance, record);
}

}  // namespace wifi
