#include "classes/tcpip_settings.h"

#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

using TcpIpSettings = FillerFixture;

struct TextField {
  const char* property;
  std::size_t offset;
  std::size_t size;
};

/// Every text fills its field to the last byte with a letter of its own; adds the expected values.
template <class Record, std::size_t Count>
void FillTexts(RecordBytes<Record>& record, const TextField (&fields)[Count], Lines& expected) {
  char letter = 'a';
  for (const TextField& field : fields) {
    record.Fill(field.offset, field.size, letter);
    expected.push_back(field.property + ("=text:" + std::string(field.size, letter++)));
  }
}

TEST_F(TcpIpSettings, TcpIp) {
  const TextField fields[] = {{"IPAddress", 12, 50},  {"DefaultGateway", 62, 25},
                              {"DhcpServer", 87, 25}, {"DhcpSubnetMask", 112, 25},
                              {"DNSPrim", 137, 25},   {"DNSSec", 162, 25},
                              {"WINSPrim", 187, 25},  {"WINSSec", 212, 25},
                              {"Domain", 237, 25},    {"ScopeID", 262, 34}};
  Lines expected = {"DHCP_IP=flag:true", "DNS=flag:false", "DHCP_WINS=flag:true"};
  RecordBytes<TcpipConfigRecord> record;
  FillTexts(record.At(0, 2u).At(8, 0x80000000u), fields, expected);
  api.onGetTcpipConfigInfo = Gives<TcpipConfigRecord>(record);
  EXPECT_EQ(Fill(wifi::FillTcpIpSettings), S_OK);
  EXPECT_EQ(Puts(), expected);
  EXPECT_EQ(journal.traces(), Lines{"Getting TCP/IP information for WiFi_AdapterTcpIpSettings"});
}

TEST_F(TcpIpSettings, TcpIpv6) {
  const TextField fields[] = {{"DhcpServer", 1076, 50}, {"DhcpSubnetMask", 1126, 50},
                              {"DNSPrim", 1176, 50},    {"DNSSec", 1226, 50},
                              {"WINSPrim", 1276, 50},   {"WINSSec", 1326, 50},
                              {"Domain", 1376, 50},     {"ScopeID", 1426, 50}};
  Lines expected = {"DHCP_IP=flag:false", "DNS=flag:true", "DHCP_WINS=flag:false",
                    "IPAddress=text:fe80::1  2001:db8::2  ", "DefaultGateway=text:"};
  RecordBytes<Tcpipv6ConfigRecord> record;
  record.At(8, 1u).At(16, 2u).Bytes(20, "fe80::1").Bytes(70, "2001:db8::2").Bytes(576, "unused");
  FillTexts(record, fields, expected);
  api.onGetTcpipv6ConfigInfo = [&](AdapterNumber, Tcpipv6ConfigRecord* output) {
    EXPECT_EQ(output->size, 1484u);
    *output = record;
    return 0;
  };
  EXPECT_EQ(Fill(wifi::FillTcpIpv6Settings), S_OK);
  EXPECT_EQ(Puts(), expected);
  EXPECT_EQ(journal.traces(),
            Lines{"Getting TCP/IPV6 information for WiFi_AdapterTcpIpv6Settings"});
}

TEST_F(TcpIpSettings, Ipv6CountsBeyondTheRecordEndWithIt) {
  RecordBytes<Tcpipv6ConfigRecord> record;
  record.Fill(0, 1484, 'x').At(16, 0xFFFFFFFFu).At(572, 0x7FFFFFFFu);
  api.onGetTcpipv6ConfigInfo = Gives<Tcpipv6ConfigRecord>(record);
  EXPECT_EQ(Fill(wifi::FillTcpIpv6Settings), S_OK);
  // The last slots have only the 14 and the 8 bytes that are left in the record. The count at 572
  // overlaps the slot at 570.
  const std::string gateways = object->Last("DefaultGateway");
  EXPECT_EQ(gateways.size(), std::string("text:").size() + 18 * 52 + 10);
  EXPECT_EQ(gateways.substr(gateways.size() - 12), "  " + std::string(8, 'x') + "  ");
  const std::string addresses = object->Last("IPAddress");
  EXPECT_EQ(addresses.substr(addresses.size() - 18), "  " + std::string(14, 'x') + "  ");
}

}  // namespace
}  // namespace testing_support
