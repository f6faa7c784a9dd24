#include "host/terminal/machine_view.h"

#include <gtest/gtest.h>

namespace host {
namespace {

/// Adapter 9 uses the second of its three networks; of adapter 10 only its existence is known.
Json TwoAdapters() {
  return Json::parse(R"({
    "WiFi_NetworkAdapter": [
      {"DeviceID": "10", "RadioState": true},
      {"DeviceID": "9", "RadioState": true, "AssociationStatus": "Associated"}],
    "WiFi_AdapterAssociationInfo": [
      {"SettingID": "9", "Associated": true, "SSID": "home", "Rate": "54.0 Mbps",
       "AuthenMode": "WPA2-Personal"}],
    "WiFi_AdapterAssocStats": [
      {"SettingID": "9", "ApMacAddr": "00:00:00:00:00:02", "Rssi": "-64 dBm"}],
    "WiFi_AdapterTcpIpSettings": [],
    "WiFi_AdapterCachedScanList": [
      {"SettingID": "9", "NetworkName": "far", "MacAddress": "00:00:00:00:00:01", "Band": "802.11g",
       "RSSI": "-90", "Encrypted": 0, "ChannelID": "1", "UnicastEncryptionLevel": "None",
       "AuthLevel": "Open"},
      {"SettingID": "9", "NetworkName": "home", "MacAddress": "00:00:00:00:00:02",
       "Band": "802.11g", "RSSI": "-64", "Encrypted": 1, "ChannelID": "6",
       "UnicastEncryptionLevel": "TKIP", "AuthLevel": "WPA_PSK"},
      {"SettingID": "9", "NetworkName": "", "MacAddress": "00:00:00:00:00:03", "Band": "802.11g",
       "Encrypted": 1}],
    "wmihost": [{"Failures": ["WiFi_AdapterTcpIpSettings 0x80041001"]}]
  })");
}

TEST(MachineView, SortsNetworksByStrengthAndMarksTheOneInUse) {
  const Json json = TwoAdapters();
  const Dump dump(json);
  const Machine machine(dump);
  EXPECT_EQ(NetworkTable(machine, 100, false),
            "*  Network   Signal  dBm  Channel  Security      Access point       Adapter\n"
            "-  --------  ------  ---  -------  ------------  -----------------  -------\n"
            "*  home      \u2582\u2584\u2586_    -64        6  WPA-Personal  "
            "00:00:00:00:00:02        9\n"
            "   far       ____    -90        1  Open          00:00:00:00:00:01        9\n"
            "   (hidden)            ?        ?  Encrypted     00:00:00:00:00:03        9\n");
  EXPECT_TRUE(NetworkTable(machine, 60, false)
                  .starts_with("*  Network   Signal  dBm  Channel  Security      Adapter\n"));
  EXPECT_TRUE(NetworkTable(machine, 50, false)
                  .starts_with("*  Network   Signal  dBm  Security      Adapter\n"));
  const Json rows = NetworkRows(machine);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0]["Security"], "WPA-Personal, TKIP");
  EXPECT_EQ(rows[0]["Signal"], -64);
  EXPECT_EQ(rows[0]["Associated"], true);
  EXPECT_TRUE(rows[2]["Signal"].is_null() && rows[2]["Network"].is_null());
}

TEST(MachineView, SaysWhatIsNotKnown) {
  const Json json = TwoAdapters();
  const Dump dump(json);
  const Machine machine(dump);
  const Json rows = AdapterRows(machine);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0]["Adapter"], "9");
  EXPECT_EQ(rows[0]["AccessPoint"], "00:00:00:00:00:02");
  EXPECT_TRUE(rows[0]["Address"].is_null() && rows[1]["State"].is_null());
  const std::string table = AdapterTable(machine, 200, false);
  EXPECT_NE(table.find("     10  ?  "), std::string::npos) << table;
  EXPECT_NE(table.find("associated  home     00:00:00:00:00:02  -64 dBm  54.0 Mbps  ?"),
            std::string::npos)
      << table;
  const std::string status = StatusText(machine, 100, false);
  EXPECT_NE(status.find("Adapter 9: associated\n  Network        home\n"), std::string::npos)
      << status;
  EXPECT_NE(status.find("  Signal         \u2582\u2584\u2586_ -64 dBm\n"), std::string::npos);
  EXPECT_NE(status.find("  Address        not known: WBEM_E_FAILED"), std::string::npos) << status;
  EXPECT_NE(status.find("Adapter 10: state not known: "), std::string::npos) << status;
  const std::vector<std::string> unknowns = Unknowns(machine);
  ASSERT_EQ(unknowns.size(), 2u);
  EXPECT_EQ(unknowns[0].find("adapter 10: its state is not known: "), 0u) << unknowns[0];
  EXPECT_EQ(unknowns[1].find("adapter 10: its networks are not known: "), 0u) << unknowns[1];
}

TEST(MachineView, SaysNoAdapterOnlyWhereTheyWereListed) {
  const std::pair<const char*, const char*> rows[] = {
      {R"({"WiFi_NetworkAdapter": []})", "there is no adapter"},
      {R"({})", "whether there are adapters is not known: "},
      {R"({"WiFi_NetworkAdapter": [], "wmihost": [{"Failures": ["WiFi_NetworkAdapter 0x80041001"]}]})",
       "whether there are adapters is not known: WBEM_E_FAILED"},
  };
  for (const auto& [text, unknown] : rows) {
    const Json json = Json::parse(text);
    const Dump dump(json);
    const Machine machine(dump);
    ASSERT_EQ(Unknowns(machine).size(), 1u) << text;
    EXPECT_EQ(Unknowns(machine)[0].find(unknown), 0u) << Unknowns(machine)[0];
  }
}

}  // namespace
}  // namespace host
