#include "scenario/from_iw.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "adapterapi/bounded_text.h"
#include "adapterapi/mac_text.h"
#include "scenario/scenario.h"

namespace simulator {
namespace {

using adapterapi::ScanListEntry;

constexpr const char* kBss = "BSS 02:00:00:00:20:01(on wlan0)\n";

std::string Sample() {
  std::ostringstream text;
  text << std::ifstream(IW_SCAN_FILE, std::ios::binary).rdbuf();
  return text.str();
}

/// The one adapter of the scenario made from a capture.
Adapter AdapterOf(const std::string& capture) {
  Scenario scenario = ParseScenario(ScenarioFromIw(capture, "scan").json, "made.json");
  EXPECT_EQ(scenario.adapters.size(), 1u);
  return std::move(scenario.adapters.at(0));
}

ScanListEntry OnlyEntry(const std::string& fields) {
  const Adapter adapter = AdapterOf(kBss + fields);
  const auto entries = adapter.cachedNetworks.Seen<ScanListEntry>();
  EXPECT_EQ(entries.size(), 1u) << fields;
  return entries.empty() ? ScanListEntry{} : entries.front();
}

TEST(FromIw, GivesTheNetworksOfACaptureInBothLists) {
  struct Row {
    const char* ssid;
    const char* mac;
    std::uint32_t band, opMode;
    int rssi, channel;
    std::uint32_t encrypted, auth, unicast, multicast, stealth;
  };
  const Row kRows[] = {
      {"Caf\xE9 am Markt", "02:00:00:00:10:01", 3, 1, -62, 1, 1, 0x44, 0x14, 0x04, 0},
      {"office", "02:00:00:00:10:02", 1, 1, -47, 36, 1, 0x20, 0x10, 0x10, 0},
      {" twelve\\bits\xFF", "02:00:00:00:10:03", 2, 2, -70, 13, 1, 0x18, 0x22, 0x22, 0},
      {"", "02:00:00:00:10:04", 1, 1, -88, 165, 0, 0x08, 0x01, 0x01, 1},
  };
  std::string withCarriageReturns;
  for (const char character : Sample()) {
    withCarriageReturns += character == '\n' ? "\r\n" : std::string(1, character);
  }
  for (const std::string& capture : {Sample(), withCarriageReturns}) {
    const Adapter adapter = AdapterOf(capture);
    for (const RecordList* list : {&adapter.cachedNetworks, &adapter.availableNetworks}) {
      const auto entries = list->Seen<ScanListEntry>();
      ASSERT_EQ(entries.size(), std::size(kRows));
      for (std::size_t i = 0; i < entries.size(); ++i) {
        const ScanListEntry& entry = entries[i];
        SCOPED_TRACE(kRows[i].mac);
        EXPECT_EQ(adapterapi::BoundedText(entry.ssid), kRows[i].ssid);
        EXPECT_STREQ(adapterapi::MacText(entry.macAddress).c_str(), kRows[i].mac);
        EXPECT_EQ(entry.band, kRows[i].band);
        EXPECT_EQ(entry.opMode, kRows[i].opMode);
        EXPECT_EQ(entry.rssi, kRows[i].rssi);
        EXPECT_EQ(entry.channel, kRows[i].channel);
        EXPECT_EQ(entry.encrypted, kRows[i].encrypted);
        EXPECT_EQ(entry.authBits, kRows[i].auth);
        EXPECT_EQ(entry.unicastBits, kRows[i].unicast);
        EXPECT_EQ(entry.multicastBits, kRows[i].multicast);
        EXPECT_EQ(entry.stealth, kRows[i].stealth);
      }
    }
  }
}

TEST(FromIw, AssociatesTheAdapter) {
  const AdapterRecords records = AdapterOf(Sample()).records;
  EXPECT_EQ(records.associationStatus, 1u);
  EXPECT_EQ(records.band, 1u);
  EXPECT_EQ(records.txRate, 48000000);
  EXPECT_EQ(records.signal.rssi, -47);
  EXPECT_EQ(records.association.associated, 1u);
  EXPECT_STREQ(records.association.ssid, "office");
  EXPECT_STREQ(adapterapi::MacText(records.association.bssid).c_str(), "02:00:00:00:10:02");
  EXPECT_EQ(records.association.channel, 36);
  EXPECT_EQ(records.association.rate, 48000000u);
  EXPECT_EQ(records.association.authenMode, 5u);  // WPA2-Enterprise
  EXPECT_EQ(records.association.encryption, 0u);  // AES has no code

  const AdapterRecords alone = AdapterOf(kBss).records;
  EXPECT_EQ(alone.associationStatus, 2u);
  EXPECT_EQ(alone.association.associated, 0u);

  const AdapterRecords first = AdapterOf(
                                   "BSS 02:00:00:00:20:01 -- associated\n\tSSID: first\n"
                                   "BSS 02:00:00:00:20:02 -- associated\n\tSSID: second\n")
                                   .records;
  EXPECT_STREQ(first.association.ssid, "first");

  const AdapterRecords joined =
      AdapterOf("BSS 02:00:00:00:20:01 -- joined\n\tcapability: IBSS Privacy\n").records;
  EXPECT_EQ(joined.associationStatus, 4u);
  EXPECT_EQ(joined.association.opMode, 2u);
  EXPECT_EQ(joined.association.authenMode, 1u);
  EXPECT_EQ(joined.association.encryption, 3u);
}

TEST(FromIw, KnowsTheChannelsOfBothBands) {
  struct Row {
    int frequency;
    std::uint32_t band;
    int channel;  ///< 0: no such channel, and the network is left out
  };
  const Row kRows[] = {{2407, 0, 0}, {2412, 3, 1},   {2413, 0, 0}, {2472, 3, 13},
                       {2477, 0, 0}, {2484, 3, 14},  {5155, 0, 0}, {5160, 1, 32},
                       {5161, 0, 0}, {5885, 1, 177}, {5890, 0, 0}};
  for (const Row& row : kRows) {
    const std::string field = "\tfreq: " + std::to_string(row.frequency) + "\n";
    const Adapter adapter = AdapterOf(kBss + field);
    const auto entries = adapter.cachedNetworks.Seen<ScanListEntry>();
    ASSERT_EQ(entries.size(), row.channel == 0 ? 0u : 1u) << field;
    if (entries.empty()) continue;
    EXPECT_EQ(entries[0].band, row.band) << field;
    EXPECT_EQ(entries[0].channel, row.channel) << field;
  }
}

TEST(FromIw, KeepsTheOctetsOfNames) {
  const std::pair<std::string, std::string> kNames[] = {
      {std::string(32, 'n'), std::string(32, 'n')},
      {"\\xe7\\xb6\\xb2", "\xE7\xB6\xB2"},  // a character that code page 1252 lacks
      {"\\xc0\\xa0", "\xC0\xA0"},           // not UTF-8
      {"a\\x", "a\\x"},
      {"\\x0a\\x22", "\n\""},
      {"a\\x00b", "a"},  // the record ends at the zero octet
  };
  for (const auto& [escaped, name] : kNames) {
    EXPECT_EQ(adapterapi::BoundedText(OnlyEntry("\tSSID: " + escaped + "\n").ssid), name);
  }
  const ScanListEntry told = OnlyEntry("\tSSID: told\n\tSSID: \\x00\n");
  EXPECT_STREQ(told.ssid, "told");
  EXPECT_EQ(told.stealth, 1u);
}

TEST(FromIw, NamesWhatSecurityAnnounces) {
  struct Row {
    const char* lines;
    std::uint32_t auth, unicast;
  };
  const Row kRows[] = {
      {"\tWPA:\t * Version: 1\n\t\t * Group cipher: WEP-40\n"
       "\t\t * Pairwise ciphers: Use group cipher suite\n"
       "\t\t * Authentication suites: IEEE 802.1X\n",
       0x02, 0x02},
      {"\tRSN:\t * Version: 1\n\t\t * Pairwise ciphers: CCMP\n"
       "\t\t * Authentication suites: OWE\n",
       0x08, 0x10},
      {"\tRSN:\t * Version: 1\n\t\t * Pairwise ciphers: GCMP-256\n"
       "\t\t * Authentication suites: 00-0f-ac:8\n",
       0x40, 0},
  };
  for (const Row& row : kRows) {
    const ScanListEntry entry = OnlyEntry(row.lines);
    EXPECT_EQ(entry.authBits, row.auth) << row.lines;
    EXPECT_EQ(entry.unicastBits, row.unicast) << row.lines;
    EXPECT_EQ(entry.encrypted, 1u) << row.lines;
  }
}

TEST(FromIw, MakesUpMaskedAddressesThatStayApart) {
  const ScenarioOfCapture made = ScenarioFromIw(
      "BSS xx:xx:xx:xx:3e:41(on wlan0)\nBSS 02:00:00:00:3e:41(on wlan0)\nBSS XX:**:\u2026:3E:41\n"
      "BSS 00:1a:2b:xx:xx:xx -- associated\nBSS ...:01\n",
      "scan");
  EXPECT_EQ(made.remarks, (std::vector<std::string>{
                              "scan: 4 addresses are masked, and made up so that they stay apart: "
                              "XX:XX:XX:XX:3E:41 is 02:00:00:01:3E:41"}));
  const Scenario scenario = ParseScenario(made.json, "made.json");
  std::vector<std::string> addresses;
  for (const ScanListEntry& entry : scenario.adapters.at(0).cachedNetworks.Seen<ScanListEntry>()) {
    addresses.push_back(adapterapi::MacText(entry.macAddress).c_str());
  }
  // The adapter itself has 02:00:00:00:00:01.
  EXPECT_EQ(addresses,
            (std::vector<std::string>{"02:00:00:01:3E:41", "02:00:00:00:3E:41", "02:00:00:02:3E:41",
                                      "00:1A:2B:00:00:00", "02:00:00:00:01:01"}));
  for (const char* heading : {"BSS xx:xx:3e:41", "BSS ...:...:41", "BSS xy:00:00:00:00:01"}) {
    EXPECT_THROW(ScenarioFromIw(heading, "scan"), ScenarioError) << heading;
  }
}

TEST(FromIw, KeepsOneNetworkForEachAddressAndSaysSo) {
  const std::string first = std::string(kBss) + "\tlast seen: 10 ms ago\n\tSSID: first\n";
  const std::pair<std::string, std::string> kSeconds[] = {
      {"BSS 02:00:00:00:20:01\n\tSSID: second\n\tlast seen: 20 ms ago\n", "first"},
      {"BSS 02:00:00:00:20:01\n\tSSID: second\n\tlast seen: 10 ms ago\n", "second"},
      {"BSS 02:00:00:00:20:01 -- associated\n\tSSID: second\n", "second"},
  };
  for (const auto& [second, kept] : kSeconds) {
    const auto made = ScenarioFromIw(first + second, "scan");
    ASSERT_EQ(made.remarks.size(), 1u);
    EXPECT_NE(made.remarks[0].find("02:00:00:00:20:01 is left out"), std::string::npos);
    const Adapter adapter = AdapterOf(first + second);
    ASSERT_EQ(adapter.cachedNetworks.Seen<ScanListEntry>().size(), 1u);
    EXPECT_EQ(adapter.cachedNetworks.Seen<ScanListEntry>()[0].ssid, kept);
  }
  const auto made = ScenarioFromIw(Sample(), "scan");
  ASSERT_EQ(made.remarks.size(), 1u);
  EXPECT_NE(made.remarks[0].find("scan, line 49: 02:00:00:00:10:05"), std::string::npos);
}

TEST(FromIw, RefusesOtherTextWithItsLine) {
  const std::pair<std::string, const char*> kMistakes[] = {
      {"", "scan, line 1: expected 'BSS <address>', found nothing"},
      {"\n \n", "scan, line 3: expected 'BSS <address>'"},
      {"{\"adapters\": []}\n", "line 1: expected 'BSS <address>', found '{\"adapters\": []}'"},
      {"BSS 02:00:00:00:20", "line 1: expected 'BSS <address>'"},
      {"BSS 02:00:00:00-20:01", "line 1: expected 'BSS <address>'"},
      {"\tBSS 02:00:00:00:20:01", "line 1: expected 'BSS <address>'"},
      {std::string(kBss) + "command failed", "line 2: expected 'BSS <address>'"},
      {std::string(kBss) + "\tfreq: ", "line 2: expected a frequency in MHz, found 'freq:'"},
      {std::string(kBss) + "\tsignal: nan dBm", "line 2: expected a signal in dBm"},
      {std::string(kBss) + "\tsignal: 101/100", "line 2: expected a signal from 0/100 to"},
      {std::string(kBss) + "\tSSID: " + std::string(33, 'n'), "a name of at most 32 octets"},
      {std::string(1 << 20, '\xFF'), "found '????????????????????????????????????????...'"},
  };
  for (const auto& [capture, expected] : kMistakes) {
    try {
      ScenarioFromIw(capture, "scan");
      ADD_FAILURE() << expected;
    } catch (const ScenarioError& error) {
      EXPECT_NE(std::string(error.what()).find(expected), std::string::npos) << error.what();
    }
  }
}

TEST(FromIw, ReadsACaptureThatIsCutOff) {
  const std::string sample = Sample();
  for (std::size_t size = 0; size < sample.size(); size += 7) {
    try {
      AdapterOf(sample.substr(0, size));
    } catch (const ScenarioError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with("scan, line ")) << error.what();
    }
  }
}

}  // namespace
}  // namespace simulator
