#include "classes/tcpip_settings.h"

#include <algorithm>

#include "classes/record_class.h"
#include "classes/record_fields.h"

namespace wifi {
namespace {

namespace operation = adapterapi::operation;
using adapterapi::TcpipConfigRecord;
using adapterapi::Tcpipv6ConfigRecord;

/// The texts of the slots, each followed by two blanks. The library gives the count, which may
/// exceed the array: the fields after the array are then read as slots too, up to the end of the
/// record.
template <auto Slots, auto Count>
HRESULT Joined(PropertyWriter& writer, const OLECHAR* property, const Tcpipv6ConfigRecord& record) {
  constexpr std::size_t kSlot = sizeof((record.*Slots)[0]);
  constexpr std::size_t kMostSlots = sizeof(record) / kSlot + 1;  // the last one is incomplete
  platform::ShortText<kMostSlots*(kSlot + 2)> text;
  const auto* slot = reinterpret_cast<const char*>(&(record.*Slots));
  const auto* end = reinterpret_cast<const char*>(&record) + sizeof(record);
  for (std::uint32_t left = NumberOf<Count>(record); left > 0 && slot < end; --left) {
    const std::size_t room = std::min(kSlot, static_cast<std::size_t>(end - slot));
    text.Add(adapterapi::BoundedText(slot, room)).Add("  ");
    slot += room;
  }
  return writer.PutAnsi(property, text);
}

/// The results of these two puts are ignored.
template <class Record>
constexpr FieldRow<Record> kUnexaminedFields[] = {
    {OLESTR("DHCP_IP"), Flag<&Record::dhcpEnabled>},
    {OLESTR("DNS"), Flag<&Record::dnsFromDhcp>},
};

template <class Record, FieldForm<Record> IpAddress, FieldForm<Record> DefaultGateway>
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

constexpr std::span kIpv4Fields =
    kTcpipFields<TcpipConfigRecord, Text<&TcpipConfigRecord::ipAddress>,
                 Text<&TcpipConfigRecord::defaultGateway>>;
constexpr std::span kIpv6Fields =
    kTcpipFields<Tcpipv6ConfigRecord,
                 Joined<&Tcpipv6ConfigRecord::ipAddresses, &Tcpipv6ConfigRecord::addressCount>,
                 Joined<&Tcpipv6ConfigRecord::gateways, &Tcpipv6ConfigRecord::gatewayCount>>;

template <class Record>
HRESULT PutSettings(IWbemClassObject* instance, std::span<const FieldRow<Record>> fields,
                    const Record& record) {
  PropertyWriter unexamined(instance, PutRule::kGoOn);
  PutFields(unexamined, kUnexaminedFields<Record>, record);
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  PutFields(writer, fields, record);
  return writer.result();
}

}  // namespace

HRESULT FillTcpIpSettings(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  const HRESULT keyPut = PutSettingId(instance, entry);
  TcpipConfigRecord record = {};
  const HRESULT status =
      ReadRecord(state, entry, "Getting TCP/IP information for WiFi_AdapterTcpIpSettings",
                 operation::GetTcpipConfigInfo, record, keyPut);
  return status != 0 ? status : PutSettings<TcpipConfigRecord>(instance, kIpv4Fields, record);
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
  return PutSettings<Tcpipv6ConfigRecord>(instance, kIpv6Fields, record);
}

}  // namespace wifi
