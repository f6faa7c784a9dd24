#include "host/report/report.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/format/format.h"
#include "host/model/machine.h"
#include "host/report/chart_labels.h"
#include "host/report/html.h"
#include "host/report/terminal_chart.h"
#include "tests/host/toy.h"

namespace host {
namespace {

/// One adapter, 7, associated with the first of its networks.
Json DumpWith(Json networks) {
  for (Json& network : networks) network["SettingID"] = "7";
  const std::string first = networks.empty() ? "" : networks[0].value("MacAddress", "");
  return {{"WiFi_NetworkAdapter",
           {{{"DeviceID", "7"}, {"RadioState", true}, {"AssociationStatus", "Associated"}}}},
          {"WiFi_AdapterAssociationInfo", {{{"SettingID", "7"}, {"Associated", true}}}},
          {"WiFi_AdapterAssocStats", {{{"SettingID", "7"}, {"ApMacAddr", first}}}},
          {"WiFi_AdapterCachedScanList", networks}};
}

Json Heard(const std::string& name, int channel, int signal, int encrypted = 1,
           const char* cipher = "AES-CCMP", const char* level = "PSK") {
  static int count = 0;
  return {{"NetworkName", name},
          {"MacAddress", "00:00:00:00:00:" + std::to_string(10 + ++count)},
          {"Band", channel > 14 ? "802.11a" : "802.11g"},
          {"RSSI", std::to_string(signal)},
          {"Encrypted", encrypted},
          {"ChannelID", std::to_string(channel)},
          {"UnicastEncryptionLevel", cipher},
          {"AuthLevel", level}};
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; ++at) ++count;
  return count;
}

std::string PageOf(const Json& dump) {
  std::ostringstream page;
  WriteReport(page, ToyRepository(), dump);
  return page.str();
}

TEST(Report, KeepsNamesFromBecomingMarkup) {
  for (const std::string name :
       {"</script><script>alert(1)</script>", "<img src=x onerror=alert(1)>",
        "\" onload=\"alert(1)", "' autofocus onfocus='x", "</title></svg><b>", "<!--", "&lt;b&gt;",
        "]]>", "a\u2028b\x01", "\u202ea\u0085\x7f"}) {
    const Json dump = DumpWith({Heard(name, 6, -50), Heard(name, 44, -60, 0, "None", "Open")});
    const std::string page = PageOf(dump);
    EXPECT_EQ(CountOf(page, "<script"), 2u) << name;
    EXPECT_EQ(CountOf(page, "</script"), 2u) << name;
    const std::string start = "id=\"wifi-dump\">";
    const std::size_t json = page.find(start) + start.size();
    const std::string shown = page.substr(0, json);
    for (const char* markup : {"<img", "<b>", "<!--", " onload=\"", "' autofocus", "<bdi>&lt;b",
                               "\u2028", "\u202e", "\u0085", "\x7f"}) {
      EXPECT_EQ(shown.find(markup), std::string::npos) << name;
    }
    EXPECT_EQ(Json::parse(page.substr(json, page.find("</script>", json) - json)), dump) << name;
  }
}

TEST(Report, WritesNoControlCharacters) {
  std::ostringstream markup;
  Html(markup).Element("p", {{"title", "a\nb"}}, "\x1F ~");
  EXPECT_EQ(markup.str(), "<p title=\"a b\">  ~</p>");
}

TEST(Report, ShowsProtectionAsThePointsAnnounceIt) {
  const struct {
    Json row;
    Protection protection;
    const char* security;
  } rows[] = {
      {Heard("", 1, -1, 0, "None", "Open"), Protection::kOpen, "Open"},
      {Heard("", 1, -1, 0, "UnKnown", "UnKnown"), Protection::kOpen, "Open"},
      {Heard("", 1, -1, 1, "WEP104", "Open"), Protection::kWep, "WEP104"},
      {Heard("", 1, -1, 1, "UnKnown", "Shared"), Protection::kWep, "WEP"},
      {Heard("", 1, -1, 1, "TKIP", "WPA_PSK"), Protection::kProtected, "WPA-Personal, TKIP"},
      {Heard("", 1, -1, 1, "UnKnown", "RSNA"), Protection::kProtected, "WPA2-Enterprise"},
      {Heard("", 1, -1, 1, "UnKnown", "UnKnown"), Protection::kProtected, "Encrypted"},
      // Open authentication, but encrypted.
      {Heard("", 1, -1, 0, "AES-CCMP", "Open"), Protection::kProtected, "AES-CCMP"},
      // The available network's channel, which says nothing about its protection.
      {{{"Encrypted", "11"}, {"RSSI", "-40"}}, Protection::kUnknown, ""},
  };
  for (const auto& row : rows) {
    const Network network = NetworkOf(row.row);
    EXPECT_EQ(network.protection, row.protection) << row.row;
    EXPECT_EQ(network.security, row.security);
  }
}

TEST(Report, FindsWhatStandsOut) {
  Json off = DumpWith(Json::array());
  off["WiFi_NetworkAdapter"][0] = {
      {"DeviceID", "7"}, {"RadioState", false}, {"AssociationStatus", "NotAssociated"}};
  Json failing = DumpWith({Heard("a", 44, -50)});
  failing["WiFi_AdapterAssocStats"][0]["CrcErrs"] = -1;
  failing["WiFi_AdapterAssocStats"][0]["PercentMissedBeacons"] = 9;
  failing["WiFi_NetworkAdapterSetting"] = Json::array();
  failing["wmihost"] = {{{"Failures", {"WiFi_NetworkAdapterSetting 0x80041002"}}}};
  Json dropped = DumpWith({Heard("a", 44, -50)});
  dropped["WiFi_AdapterAssocStats"][0]["DroppedByAp"] = 1;
  Json bounds = DumpWith({Heard("a", 36, -50), Heard("b", 36, -50), Heard("c", 36, -50),
                          Heard("d", 36, -50), Heard("e", 44, -50, 0, "None", "Open")});
  bounds["WiFi_AdapterAssocStats"][0]["Rssi"] = -75;
  bounds["WiFi_AdapterAssocStats"][0]["PercentTxErrs"] = 10;
  Json again = bounds["WiFi_AdapterCachedScanList"][4];
  again["SettingID"] = "8";  // another adapter hears the same access point
  bounds["WiFi_AdapterCachedScanList"].push_back(again);
  Json below = DumpWith({Heard("a", 36, -50)});
  below["WiFi_AdapterAssocStats"][0]["Rssi"] = -74;
  const struct {
    Json dump;
    std::vector<std::string> findings;
  } rows[] = {
      {{{"WiFi_NetworkAdapter", Json::array()}}, {"0 There is no adapter: "}},
      {off, {"0 Adapter 7 is not associated: Radio off: software has switched it off."}},
      {failing,
       {"1 WiFi_NetworkAdapterSetting was not read in full: WBEM_E_NOT_FOUND (0x80041002): not "
        "found.",
        "2 Adapter 7 counted errors: 9 % of the beacons were missed, 4294967295 frames with a "
        "wrong check sum."}},
      {bounds,
       {"1 Adapter 7 shares its air: Channel 36: 3 more networks on the channel of [a], 0 on "
        "channels that reach into it.",
        "1 Adapter 7 hears its network weakly: Signal -75 dBm.",
        "1 Adapter 7 counted errors: 10 % of the transmissions failed.",
        "1 Adapter 8 may be associated or not: Not known: no instance was shown.",
        "1 1 open access point: [e].", "2 Networks crowd in the 5 GHz band: 4 on channel 36."}},
      {below, {}},
      {dropped, {"1 Adapter 7 counted errors: 1 times dropped by the access point."}},
      {DumpWith({Heard("a", 1, -50), Heard("b", 5, -50), Heard("c", 36, -50), Heard("d", 40, -50)}),
       {}},
      {DumpWith({Heard("a", 1, -50, 0, "None", "Open"), Heard("b", 4, -50), Heard("", 1, -60)}),
       {"0 Adapter 7 uses an open network: [a] encrypts nothing.",
        "1 Adapter 7 shares its air: Channel 1: 1 more network on the channel of [a], 1 on "
        "channels "
        "that reach into it.",
        "1 1 open access point: [a].", "1 Channels overlap in the 2.4 GHz band: 1 and 4."}},
  };
  for (const auto& row : rows) {
    std::vector<std::string> found;
    for (const Finding& finding : Machine(Dump(row.dump)).findings) {
      std::string text = std::to_string(static_cast<int>(finding.weight)) + " " + finding.headline +
                         ": " + finding.detail;
      for (const auto& [mark, plain] : {std::pair("\u201C\u2068", "["), {"\u2069\u201D", "]"}}) {
        for (std::size_t at = 0; (at = text.find(mark)) != std::string::npos;) {
          text.replace(at, std::string(mark).size(), plain);
        }
      }
      found.push_back(text);
    }
    EXPECT_EQ(found, row.findings) << row.dump;
  }
}

TEST(ChartLabels, KeepTheOrderOfStrengthAndNeverCoverEachOther) {
  const Box area = {0, 0, 300, 200};
  std::vector<LabelWish> wishes;
  for (int index = 0; index < 40; ++index) {
    const int strength = -40 - index / 2;
    wishes.push_back(
        {{index % 7 * 60.0 - 30, 20.0 - 3 * (strength + 40), 80, 14}, strength, index == 17});
  }
  std::size_t placed = 0;
  const std::vector<std::optional<Box>> places = PlaceLabels(wishes, area);
  for (std::size_t one = 0; one < places.size(); ++one) {
    if (!places[one]) continue;
    ++placed;
    EXPECT_GE(places[one]->left, 0);
    EXPECT_LE(places[one]->left + 80, 300);
    EXPECT_GE(places[one]->top, 0);
    EXPECT_LE(places[one]->top + 14, 200);
    EXPECT_NEAR(places[one]->top, wishes[one].box.top, 34);
    for (std::size_t other = 0; other < one; ++other) {
      if (!places[other]) continue;
      EXPECT_FALSE(places[one]->Meets(*places[other])) << one << ' ' << other;
      if (wishes[other].strength > wishes[one].strength) {
        EXPECT_LE(places[other]->top, places[one]->top) << one << ' ' << other;
      }
    }
  }
  EXPECT_GE(placed, 12u);
  EXPECT_TRUE(places[17]);
  EXPECT_EQ(Shortened("Straße", 6), "Straße");
  EXPECT_EQ(Shortened("Straße", 5), "Stra…");
  EXPECT_EQ(Shortened("日本語", 4), "日…");
}

TEST(TerminalChart, DrawsWithinItsWidthAndLosesNoNetwork) {
  Json networks = Json::array();
  for (int index = 0; index < 60; ++index) {
    networks.push_back(Heard("n" + std::to_string(index), 1 + index % 14, -20 - 2 * index));
  }
  networks.push_back(Heard("far", 165, -32768));
  networks.push_back(Heard("nowhere", 200, -50));
  for (const int width : {1, 40, 79, 80, 200}) {
    const std::string text = ChartText(networks, width);
    for (const Json& network : networks) {
      EXPECT_NE(text.find(network.value("NetworkName", "")), std::string::npos) << width;
    }
    for (std::size_t start = 0; start < text.size(); start = text.find('\n', start) + 1) {
      EXPECT_LE(DisplayWidth(text.substr(start, text.find('\n', start) - start)),
                std::max(width, 48));
    }
    EXPECT_NE(text.find("-32768 dBm▼"), std::string::npos);
    EXPECT_NE(text.find("  -20 dBm  channel   1"), std::string::npos);
    EXPECT_NE(text.find("not on the chart, channel 200: "), std::string::npos);
  }
  for (int index = 0; index < 10; ++index) networks.push_back(Heard("w", 6, -150 - index));
  EXPECT_NE(ChartText(networks, 80).find("+8 more, from -152 to -159 dBm\n"), std::string::npos);
}

}  // namespace
}  // namespace host
