#include <gtest/gtest.h>

#include <algorithm>

#include "host/fleet/health.h"
#include "host/fleet/metrics.h"
#include "host/mof/product_schema.h"

namespace host {
namespace {

/// Adapter 7, which is associated with the first of two networks.
Json Associated(int signal) {
  return {{"WiFi_NetworkAdapter", {{{"DeviceID", "7"}, {"RadioState", true}}}},
          {"WiFi_AdapterAssociationInfo",
           {{{"SettingID", "7"}, {"Associated", true}, {"Rate", "5.5 Mbps"}}}},
          {"WiFi_AdapterAssocStats",
           {{{"SettingID", "7"},
             {"ApMacAddr", "1"},
             {"Rssi", std::to_string(signal) + " dBm"},
             {"LowRssi", -1},
             {"PercentTxErrs", 7}}}},
          {"WiFi_AdapterCachedScanList",
           {{{"SettingID", "7"},
             {"MacAddress", "1"},
             {"Band", "802.11g"},
             {"ChannelID", "6"},
             {"Encrypted", 1},
             {"NetworkName", "a|b"}},
            {{"SettingID", "7"},
             {"MacAddress", "2"},
             {"Band", "802.11a"},
             {"ChannelID", "200"},
             {"Encrypted", 0}}}}};
}

Json Changed(Json dump, const char* className, const Json& change) {
  dump[className][0].update(change);
  return dump;
}

std::string MetricsOf(const Json& json, const RequestTimes& times) {
  const Dump dump(json);
  const Repository repository(embedded::wifi_adapter_provider_mof(), "wifi_adapter_provider.mof");
  return MetricsText(Machine(dump), dump, repository, times);
}

TEST(MetricsTest, AreInBaseUnitsAndLeaveOutWhatIsNotKnown) {
  const Json dump = Associated(-60);
  const auto with = [&dump](const char* className, const Json& change) {
    return Changed(dump, className, change);
  };
  constexpr const char* kTraffic = "WiFi_AdapterTxRxStats";
  const struct {
    Json dump;
    const char* line;
    bool isThere = true;
  } rows[] = {
      {dump, "wifi_signal_dbm{adapter=\"7\"} -60\n"},
      {dump, "wifi_link_rate_bytes_per_second{adapter=\"7\"} 687500\n"},
      {dump, "wifi_roams_total{adapter=\"7\",reason=\"weak_signal\"} 4294967295\n"},
      {dump, "wifi_failed_transmissions_ratio{adapter=\"7\"} 0.07\n"},
      {dump, "wifi_radio_on{adapter=\"7\"} 1\n"},
      {dump, "wifi_radio_switch_on", false},
      {dump, "wifi_bytes_total", false},
      {with(kTraffic, {{"SettingID", "7"}, {"RxTotalBytes", "-2147483648"}}),
       "wifi_bytes_total{adapter=\"7\",direction=\"received\"} 2147483648\n"},
      {dump, "# HELP wifi_signal_dbm Received signal strength.\n# TYPE wifi_signal_dbm gauge\n"},
      {dump, " changed its access point.\n# TYPE wifi_roams_total counter\n"},
      {dump, "wifi_association_info{adapter=\"7\",band=\"2.4GHz\",security=\"protected\"} 1\n"},
      {dump, "wifi_networks{band=\"5GHz\",security=\"open\"} 1\n"},
      {dump, "wifi_networks{band=\"unknown\",security=\"wep\"} 0\n"},
      // A channel that does not exist has no series of its own.
      {dump, "\nwifi_channel_networks{channel=\"6\"} 1\n# "},
      {with("WiFi_AdapterAssociationInfo", {{"Associated", false}}), "wifi_signal_dbm", false},
      {with("WiFi_AdapterAssociationInfo", {{"Associated", false}}),
       "wifi_associated{adapter=\"7\"} 0\n"},
      {with("WiFi_AdapterVersion", {{"SettingID", "7"}, {"Driver", "5.2"}}),
       "wifi_driver_version{adapter=\"7\"} 1407383473487872\n"},
      {with("WiFi_AdapterVersion", {{"SettingID", "7"}, {"Driver", "5.x"}}), "wifi_driver_version",
       false},
      {with("WiFi_AdapterVersion", {{"SettingID", "7"}, {"Driver", "a\"\\b"}}),
       "driver=\"a\\\"\\\\b\"} 1\n"},
      {dump, "wifi_provider_up 1\n"},
      {dump, "wifi_provider_request_seconds{class=\"WiFi_NetworkAdapter\"} 0.25\n"},
      {Json::object(), "wifi_provider_up 0\n"},
      {Json::object(), "wifi_adapters", false},
  };
  for (const auto& row : rows) {
    const std::string text = MetricsOf(row.dump, {{"WiFi_NetworkAdapter", 0.25}}) + "# ";
    EXPECT_EQ(text.find(row.line) != std::string::npos, row.isThere) << row.line << '\n' << text;
  }
}

TEST(HealthTest, IsOneLineWithAStateOfItsOwn) {
  const Json dump = Associated(-60);
  const Json off = Changed(dump, "WiFi_NetworkAdapter", {{"RadioState", false}});
  Json open = dump;
  open["WiFi_AdapterAssocStats"][0]["ApMacAddr"] = "2";
  const std::string data = " | adapters=1 'signal 7'=-60;@~:-75;@~:-85";
  Json many = Json::object();
  for (int adapter = 0; adapter < 300; ++adapter) {
    const std::string key = "\u00E4" + std::to_string(adapter);
    many["WiFi_NetworkAdapter"].push_back(
        {{"DeviceID", key}, {"AssociationStatus", "NotAssociated"}});
    many["WiFi_NetworkAdapterConfiguration"].push_back(
        {{"SettingID", key}, {"Description", std::string(600, 'x')}});
  }
  const struct {
    Json dump;
    Health health;
    std::string start;
    std::string end;
  } rows[] = {
      {dump, Health::kOk, "WIFI OK - 1 adapter", data},
      {Associated(-75), Health::kWarning, "WIFI WARNING - Adapter 7 hears its network weakly: Si",
       " 'signal 7'=-75;@~:-75;@~:-85"},
      {Associated(-85), Health::kCritical, "WIFI CRITICAL - Adapter 7 hears its network very weak",
       " 'signal 7'=-85;@~:-75;@~:-85"},
      {off, Health::kCritical, "WIFI CRITICAL - Adapter 7 is not well: Radio off: software", data},
      {open, Health::kCritical, "WIFI CRITICAL - Adapter 7 uses an open network", data},
      {Json::object(), Health::kUnknown, "WIFI UNKNOWN - the dump has no WiFi_NetworkAdapter",
       "WiFi_NetworkAdapter"},
      {{{"WiFi_NetworkAdapter", Json::array()}},
       Health::kCritical,
       "WIFI CRITICAL - There is no adapter",
       " | adapters=0"},
      {many, Health::kCritical,
       "WIFI CRITICAL - 300 adapters are not associated: ", " | adapters=300"},
  };
  for (const auto& row : rows) {
    const Dump read(row.dump);
    const CheckResult result = CheckHealth(Machine(read), {});
    EXPECT_EQ(result.health, row.health) << result.line;
    EXPECT_TRUE(result.line.starts_with(row.start)) << result.line;
    EXPECT_TRUE(result.line.ends_with(row.end)) << result.line;
    EXPECT_LE(result.line.size(), 2048u);
    EXPECT_LE(std::ranges::count(result.line, '|'), 1) << result.line;
  }
  const Dump read(dump);
  EXPECT_EQ(CheckHealth(Machine(read, -60), {.warning = -60}).health, Health::kWarning);
}

}  // namespace
}  // namespace host
