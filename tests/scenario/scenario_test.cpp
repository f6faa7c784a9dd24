#include "scenario/scenario.h"

#include <gtest/gtest.h>

namespace simulator {
namespace {

AdapterRecords ReadAdapter(const std::string& members) {
  return ParseScenario(R"({"adapters": [{"mac": "00:1A:2B:3C:4D:FE")" + members + "}]}", "test")
      .adapters.at(0)
      .records;
}

/// The bytes of a record as a client of the library reads them.
template <class Record>
std::string Bytes(const Record& record, std::size_t offset, std::size_t size) {
  EXPECT_LE(offset + size, sizeof record);
  return std::string(reinterpret_cast<const char*>(&record) + offset, size);
}

TEST(Scenario, OneMacAddressIsEnough) {
  const Scenario scenario =
      ParseScenario(R"({"adapters": [{"mac": "00:1a:2b:3c:4d:fe"}]})", "test");
  const AdapterRecords& records = scenario.adapters.at(0).records;
  EXPECT_EQ(records.number, 1u);
  EXPECT_EQ(records.present, 1u);
  EXPECT_EQ(records.radioState, 1u);
  EXPECT_EQ(records.associationStatus, 2u);
  EXPECT_EQ(scenario.settings.at(415), 1u);
  ASSERT_EQ(scenario.platform.adapters.size(), 1u);
  const PlatformAdapter& platform = scenario.platform.adapters[0];
  EXPECT_EQ(platform.deviceId, "7");
  EXPECT_EQ(platform.macAddress, "00:1A:2B:3C:4D:FE");
  EXPECT_EQ(platform.pnpDeviceId->rfind("PCI\\VEN_7F3C&DEV_0A21&", 0), 0u) << *platform.pnpDeviceId;
  EXPECT_EQ(platform.caption, "[00000007] Orvel Wireless LAN Adapter");
}

TEST(Scenario, FillsRecordsAtTheirOffsets) {
  const AdapterRecords records = ReadAdapter(R"(,
    "supportedRates": [1, "5.5", 54], "pspMode": "0x80000001",
    "ccxPowerLevels": {"levels": [-1, 20]},
    "channels": {"channelAOptions": [34, 165], "channelB": 11},
    "association": {"associated": true, "profileName": "Aé\u00A0ÿ", "ssid": {"hex": "FFFE"},
                    "bssid": "80:90:A0:B0:C0:D0", "rate": 5500000, "authenMode": "CCX",
                    "channel": 255},
    "associationStats": {"rssi": -57, "numAps": 1, "percentMissedBeacons": 16},
    "device": {"vendorId": "0x08AB", "cardType": "PCMCIA"},
    "configuration": {"memorySize": -1, "socketNumber": 65535},
    "versions": {"eeprom": "€"}, "features": {"qos": true, "powerMode": 7, "hwRadioSwitch": true},
    "signal": {"crcErrors": 9},
    "tcpip": {"ipAddress": "10.0.0.1", "scopeId":
      {"hex": "41414141414141414141414141414141414141414141414141414141414141414141"}},
    "tcpipv6": {"ipAddresses": ["fe80::1", "fe80::2"], "gateways": ["fe80::3"], "gatewayCount": 11},
    "traffic": {"rates": [1, 2],
                "rxNonDirectPacketsRate": [0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"0xFFFFFFFF"]})");
  using std::string;
  EXPECT_EQ(records.supportedRates, 0x1005u);
  EXPECT_EQ(Bytes(records.psp, 4, 4), string("\x01\0\0\x80", 4));
  EXPECT_EQ(Bytes(records.ccxPowerLevels, 0, 12),
            string("\x02\0\0\0\xFF\xFF\xFF\xFF\x14\0\0\0", 12));
  EXPECT_EQ(Bytes(records.channels, 12, 8), string("\x01\0\0\x08\x0B\0\0\0", 8));
  EXPECT_EQ(Bytes(records.association, 0, 9), string("\x01\0\0\0"
                                                     "A\xE9\xA0\xFF\0",
                                                     9));
  EXPECT_EQ(Bytes(records.association, 68, 3), string("\xFF\xFE\0", 3));
  EXPECT_EQ(Bytes(records.association, 101, 6), "\x80\x90\xA0\xB0\xC0\xD0");
  EXPECT_EQ(Bytes(records.association, 112, 4), string("\x60\xEC\x53\0", 4));
  EXPECT_EQ(Bytes(records.association, 132, 9), string("\x07\0\0\0\0\0\0\0\xFF", 9));
  EXPECT_EQ(Bytes(records.associationStats, 8, 8), string("\xC7\xFF\xFF\xFF\x01\0\0\0", 8));
  EXPECT_EQ(Bytes(records.associationStats, 72, 4), string("\x10\0\0\0", 4));
  EXPECT_EQ(Bytes(records.device, 0, 8), string("\x01\0\0\0\0\0\xAB\x08", 8));
  EXPECT_EQ(Bytes(records.device, 20, 4), string("\x40\0\0\0", 4));
  EXPECT_EQ(Bytes(records.configuration, 12, 4), "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(Bytes(records.configuration, 40, 2), "\xFF\xFF");
  EXPECT_EQ(Bytes(records.versions, 228, 2), string("\x80\0", 2));
  EXPECT_EQ(Bytes(records.features, 36, 8), string("\x01\0\0\0\0\0\0\0", 8));
  EXPECT_EQ(Bytes(records.features, 112, 4), string("\x07\0\0\0", 4));
  EXPECT_EQ(Bytes(records.features, 152, 4), string("\x01\0\0\0", 4));
  EXPECT_EQ(Bytes(records.signal, 24, 4), string("\x09\0\0\0", 4));
  EXPECT_EQ(Bytes(records.tcpip, 12, 9), string("10.0.0.1\0", 9));
  EXPECT_EQ(Bytes(records.tcpip, 262, 34), string(34, 'A'));
  EXPECT_EQ(Bytes(records.tcpipv6, 16, 11), string("\x02\0\0\0"
                                                   "fe80::1",
                                                   11));
  EXPECT_EQ(Bytes(records.tcpipv6, 70, 8), string("fe80::2\0", 8));
  EXPECT_EQ(Bytes(records.tcpipv6, 572, 11), string("\x0B\0\0\0"
                                                    "fe80::3",
                                                    11));
  EXPECT_EQ(Bytes(records.traffic, 0, 12), string("\x01\0\0\0\x02\0\0\0\0\0\0\0", 12));
  EXPECT_EQ(Bytes(records.traffic, 348, 4), "\xFF\xFF\xFF\xFF");
}

TEST(Scenario, ListsAreCountedAndMayShowFewerEntriesThanTheyHold) {
  const Scenario scenario = ParseScenario(R"({"adapters": [{"mac": "00:1A:2B:3C:4D:5E",
      "cachedNetworks": [{"ssid": "a"}, {"ssid": "b", "rssi": -80, "channel": 11}],
      "availableNetworks": {"count": -1, "entries": [{}]},
      "excludeList": [{"ssid": {"hex": "5A"}, "mac": "01:02:03:04:05:06", "reason": "0x8000"}]}]})",
                                          "test");
  const auto& adapter = scenario.adapters.at(0);
  const auto* cached = adapter.cachedNetworks.As<unsigned char>();
  EXPECT_EQ(cached[0], 2);
  EXPECT_EQ(cached[4 + 88], 'b');
  EXPECT_EQ(cached[4 + 88 + 48], 0xB0);
  EXPECT_EQ(cached[4 + 88 + 72], 11);
  EXPECT_EQ(adapter.availableNetworks.As<adapterapi::ScanList>()->count, -1);
  const auto* exclude = adapter.excludeList.As<unsigned char>();
  EXPECT_EQ(exclude[4], 'Z');
  EXPECT_EQ(exclude[4 + 45], 6);
  EXPECT_EQ(exclude[4 + 49], 0x80);
}

TEST(Scenario, ASettingMayBeUnknown) {
  const Scenario scenario = ParseScenario(R"({"settings": {"426": null, "7": 1}})", "test");
  EXPECT_EQ(scenario.settings,
            (std::map<std::uint32_t, std::uint32_t>{{7, 1}, {406, 0}, {415, 1}, {416, 1}}));
}

TEST(Scenario, FilesLoad) {
  const struct {
    const char* file;
    std::size_t adapters;
    std::size_t platformAdapters;
  } kFiles[] = {{"default.json", 2, 2},
                {"laptop.json", 1, 2},
                {"test-bench.json", 4, 4},
                {"hostile.json", 2, 2}};
  for (const auto& row : kFiles) {
    const Scenario scenario = LoadScenario(std::string(SCENARIO_FOLDER) + row.file);
    EXPECT_EQ(scenario.adapters.size(), row.adapters) << row.file;
    EXPECT_EQ(scenario.platform.adapters.size(), row.platformAdapters) << row.file;
    EXPECT_FALSE(scenario.profiles[0].empty()) << row.file;
  }
}

}  // namespace
}  // namespace simulator
