#include <gtest/gtest.h>

#include "host/model/machine.h"

namespace host {
namespace {

Json Rows(const char* key, const std::vector<const char*>& adapters) {
  Json rows = Json::array();
  for (const char* adapter : adapters) rows.push_back({{key, adapter}});
  return rows;
}

Json Heard(const char* adapter, const char* name) {
  return {{"SettingID", adapter}, {"NetworkName", name}, {"MacAddress", name},
          {"RSSI", "-50"},        {"ChannelID", "6"},    {"Band", "802.11g"}};
}

/// Adapters 10, 7 and 8, in the order in which the provider walks over them.
Json ThreeAdapters() {
  return {{"WiFi_NetworkAdapter", Rows("DeviceID", {"10", "7", "8"})}};
}

const Adapter& Find(const Machine& machine, const std::string& key) {
  for (const Adapter& adapter : machine.adapters) {
    if (adapter.key == key) return adapter;
  }
  throw std::runtime_error("no adapter " + key);
}

TEST(Model, TellsWhatAListLeftUnknown) {
  const std::string empty =
      "the list is empty or could not be read, WBEM_E_NOT_FOUND (0x80041002): not found";
  const std::string ended10 =
      "the enumeration ended at adapter 10, WBEM_E_NOT_FOUND (0x80041002): not found";
  const std::string ended7 =
      "the enumeration ended at adapter 7, WBEM_E_NOT_FOUND (0x80041002): not found";
  const std::string failed = "WBEM_E_PROVIDER_FAILURE (0x80041004): the provider failed";
  const struct {
    Json heard;
    const char* failure;
    std::vector<std::string> why;  ///< of 10, 7, 8
  } rows[] = {
      {Json::array(), "", {empty, ended10, ended10}},
      {Json::array(), "0x80041004", {failed, failed, failed}},
      {{Heard("10", "a")}, "0x80041002", {"", empty, ended7}},
      {{Heard("10", "a"), Heard("7", "a"), Heard("8", "a")}, "", {"", "", ""}},
      {{Heard("10", "a"), Heard("7", "a")}, "0x80041002", {"", "", empty}},
      {{Heard("10", "a"), Heard("7", "a")},
       "0x80041004",
       {"", "", "the list could not be read, " + failed}},
      {{Heard("10", "a"), Heard("7", "a"), Heard("8", "a")},
       "0x80041002",
       {"", "", "the list was not read to its end, WBEM_E_NOT_FOUND (0x80041002): not found"}},
  };
  for (const auto& row : rows) {
    Json dump = ThreeAdapters();
    dump["WiFi_AdapterCachedScanList"] = row.heard;
    if (*row.failure != '\0') {
      dump["wmihost"] = {
          {{"Failures", {std::string("WiFi_AdapterCachedScanList ") + row.failure}}}};
    }
    const Machine machine{Dump(dump)};
    EXPECT_EQ(Find(machine, "10").whyUnheard, row.why[0]) << dump;
    EXPECT_EQ(Find(machine, "7").whyUnheard, row.why[1]) << dump;
    EXPECT_EQ(Find(machine, "8").whyUnheard, row.why[2]) << dump;
  }
}

TEST(Model, KnowsAdaptersThatAnotherClassNamesInTheOrderOfTheirNumbers) {
  Json dump = {{"WiFi_NetworkAdapter", Rows("DeviceID", {"10"})},
               {"WiFi_AdapterVersion", Rows("SettingID", {"10", "7", "8"})},
               {"wmihost", {{{"Failures", {"WiFi_NetworkAdapter 0x80041004"}}}}}};
  const Machine machine{Dump(dump)};
  std::vector<std::string> keys;
  for (const Adapter& adapter : machine.adapters) keys.push_back(adapter.key);
  EXPECT_EQ(keys, (std::vector<std::string>{"7", "8", "10"}));
  EXPECT_EQ(machine.whyMoreAdapters, "WBEM_E_PROVIDER_FAILURE (0x80041004): the provider failed");
  EXPECT_EQ(
      Find(machine, "8").Get(AdapterFact::kType).why,
      "the enumeration ended at adapter 7, WBEM_E_PROVIDER_FAILURE (0x80041004): the provider "
      "failed");
  EXPECT_FALSE(Find(machine, "8").isAssociated);
}

TEST(Model, SaysThatThereIsNoAdapterOnlyWhereTheyWereListed) {
  const struct {
    Json dump;
    const char* headline;
  } rows[] = {
      {{{"WiFi_NetworkAdapter", Json::array()}}, "There is no adapter"},
      {Json::object(), "Whether there is an adapter is not known"},
      {{{"WiFi_NetworkAdapter", Json::array()}, {"wmihost", {{{"StartStatus", "0x80070005"}}}}},
       "The provider's start failed"},
      {{{"WiFi_NetworkAdapter", Json::array()},
        {"wmihost", {{{"Failures", {"WiFi_NetworkAdapter 0x80041003"}}}}}},
       "Whether there is an adapter is not known"},
      {{{"WiFi_NetworkAdapter", Json::array()}, {"wmihost", {{{"StartStatus", "0x00000000"}}}}},
       "There is no adapter"},
  };
  for (const auto& row : rows) {
    const Machine machine{Dump(row.dump)};
    ASSERT_FALSE(machine.findings.empty()) << row.dump;
    EXPECT_EQ(machine.findings.front().headline, row.headline) << row.dump;
  }
}

TEST(Model, MakesOneFindingOfManyThatAreAlike) {
  for (const std::size_t count : {3u, 4u, 50u}) {
    Json dump = {{"WiFi_NetworkAdapter", Json::array()}};
    for (std::size_t number = 0; number < count; ++number) {
      dump["WiFi_NetworkAdapter"].push_back({{"DeviceID", std::to_string(7 + number)},
                                             {"AssociationStatus", "NotAssociated"},
                                             {"RadioState", number != 1}});
    }
    dump["WiFi_AdapterCachedScanList"] = Json::array({Heard("7", "a")});
    std::vector<Finding> alone;
    const Machine machine{Dump(dump)};
    for (const Finding& finding : machine.findings) {
      if (finding.headline.ends_with("not associated")) alone.push_back(finding);
    }
    ASSERT_EQ(alone.size(), count > 3 ? 1u : 3u);
    if (count != 50) continue;
    EXPECT_EQ(alone[0].headline, "50 adapters are not associated");
    EXPECT_EQ(alone[0].detail,
              "Adapter 7, Adapter 8: Radio off: software has switched it off, Adapter 9, Adapter "
              "10, Adapter 11, Adapter 12 and 44 more.");
  }
}

TEST(Model, ReadsNamesAsUtf8Too) {
  const struct {
    const char* name;  ///< as the code page reads the bytes
    const char* reading;
  } rows[] = {
      {"Cafe", ""}, {"Café", ""},     {"CafÃ©", "Café"}, {"ðŸ“Š", "\U0001F4CA"},
      {"日本", ""}, {"Ã\u0081", "Á"}, {"Ã", ""},         {"â€®x", "\\u202ex"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(NetworkOf(Heard("7", row.name)).utf8Name, row.reading) << row.name;
  }
}

TEST(Model, TellsWhatWasMadeUp) {
  const Json dump = {
      {"wmihost",
       {{{"Source",
          {{"Kind", "scenario"},
           {"Name", "x.json"},
           {"Simulated", true},
           {"MadeOf", "a scan"},
           {"Told", {"WiFi_AdapterCachedScanList", "WiFi_AdapterAssocStats.Rssi"}},
           {"Invented",
            {"WiFi_AdapterCachedScanList.MacAddress", "WiFi_AdapterAssocStats.Rssi of 8"}}}}}}}};
  const Source source = SourceOf(Dump(dump));
  EXPECT_EQ(source.Title(), "scenario x.json");
  EXPECT_EQ(source.Nature(),
            "A simulated machine. Its scenario was made of a scan. What is marked as made up was "
            "not told by that.");
  EXPECT_FALSE(source.IsInvented("WiFi_AdapterCachedScanList", "RSSI", "7"));
  EXPECT_TRUE(source.IsInvented("WiFi_AdapterCachedScanList", "MacAddress", "7"));
  EXPECT_FALSE(source.IsInvented("WiFi_AdapterAssocStats", "Rssi", "7"));
  EXPECT_TRUE(source.IsInvented("WiFi_AdapterAssocStats", "Rssi", "8"));
  EXPECT_TRUE(source.IsInvented("WiFi_AdapterAssocStats", "NumAps", "7"));
  EXPECT_FALSE(SourceOf(Dump(Json::object())).IsInvented("WiFi_AdapterAssocStats", "Rssi", "7"));
}

TEST(Model, CountsRoamingAndPackets) {
  const Json dump = {{"WiFi_NetworkAdapter", Rows("DeviceID", {"7"})},
                     {"WiFi_AdapterAssocStats",
                      {{{"SettingID", "7"}, {"RoamCount", 3}, {"ApDidNotTx", 1}, {"LowRssi", -1}}}},
                     {"WiFi_AdapterTxRxStats",
                      {{{"SettingID", "7"},
                        {"Rates", {"1000000", "0", "0"}},
                        {"TxDirectPacketsRate", {"5", "0", "2"}},
                        {"RxNonDirectPacketsRate", {"-1", "0"}}}}}};
  const Machine machine{Dump(dump)};
  const Adapter& adapter = machine.adapters.front();
  EXPECT_EQ(adapter.roamed.value, 3u);
  EXPECT_EQ(adapter.roamingCauses[0].value, 1u);
  EXPECT_EQ(adapter.roamingCauses[1].value, std::nullopt);
  EXPECT_EQ(adapter.roamingCauses[3].value, 4294967295u);
  ASSERT_EQ(adapter.packets.size(), 2u);
  EXPECT_EQ(adapter.packets[0].sent, 5u);
  EXPECT_EQ(adapter.packets[0].received, 4294967295u);
  EXPECT_EQ(adapter.packets[1].sent, 2u);
}

}  // namespace
}  // namespace host
