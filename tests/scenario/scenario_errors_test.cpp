#include <gtest/gtest.h>

#include "scenario/scenario.h"

namespace simulator {
namespace {

struct Mistake {
  std::string json;
  const char* expected;  ///< part of the error
};

std::string ErrorOf(std::string_view json) {
  try {
    ParseScenario(json, "bench.json");
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "";
}

/// Puts members into the text of a scenario with one adapter.
std::string Adapter(const std::string& members) {
  return R"({"adapters": [{"mac": "00:1A:2B:3C:4D:5E", )" + members + "}]}";
}

TEST(ScenarioErrors, NameThePlaceAndWhatWasExpected) {
  const Mistake kMistakes[] = {
      {"", "line 1, column 1: no JSON"},
      {"{\n  \"adapters\": [}\n", "line 2, column 16: no JSON"},
      {"{} {}", "line 1, column 4"},
      {"{\"apiVersion\": 1, \"apiVersion\": 2}", "/apiVersion: the member is there twice"},
      {R"({"adapters": [{"mac": "00:00:00:00:00:01"}, {"versions": {"driver": "", "driver": ""}}]})",
       "/adapters/1/versions/driver: the member is there twice"},
      {R"({"settings": {"a/b": 1, "a/b": 1}})", "/settings/a~1b: the member is there twice"},
      {R"({"adapters": [[[]], {}]})", "/adapters/0: expected an object, found array"},
      {"{/* no end", "line 1, column 11: no JSON"},
      {"{\"platform\": {\"userName\": \"\xFF\"}}", "no JSON"},
      {R"({"apiVersion": nul})", R"(no JSON: invalid literal at the end of '"apiVersion": nul}')"},
      {"{\"apiVersion\": -" + std::string(1000, '9'), "a number is too large: -9"},
      {"{\"" + std::string(1000, 'a') + "\": 1}", "aaa...: no such member"},
      {"[]", "/: expected an object, found array"},
      {R"({"adaptors": []})", "/adaptors: no such member; accepted are apiVersion, platform"},
      {R"({"apiVersion": 4294967296})", "/apiVersion: expected a number from 0 to 4294967295"},
      {R"({"apiVersion": 1.5})", "found 1.5"},
      {R"({"apiVersion": 1e999})", "a number is too large"},
      {R"({"apiVersion": "0x"})", "/apiVersion: expected a number"},
      {R"({"apiVersion": "0x-1"})", "/apiVersion: expected a number"},
      {R"({"apiVersion": "0x1FFFFFFFFFFFFFFFF"})", "/apiVersion: expected a number"},
      {R"({"adapters": {}})", "/adapters: expected an array"},
      {R"({"adapters": [{}]})", "/adapters/0: the member mac is missing"},
      {R"({"adapters": [{"mac": "00:1A:2B:3C:4D"}]})", "/adapters/0/mac: expected an address"},
      {R"({"adapters": [{"mac": "00:1A:2B:3C:4D:5E:"}]})", "/adapters/0/mac: expected an address"},
      {R"({"adapters": [{"mac": "00-1A-2B-3C-4D-5E"}]})", "/adapters/0/mac: expected an address"},
      {R"({"adapters": [{"mac": 5}]})", "/adapters/0/mac: expected an address"},
      {R"({"adapters": [{"mac": "00:00:00:00:00:01"}, {"mac": "00:00:00:00:00:01"}]})",
       "/adapters/1: another adapter has the same mac"},
      {R"({"adapters": [{"mac": "00:00:00:00:00:01"}, {"mac": "00:00:00:00:00:02",
                                                            "number": 1}]})",
       "/adapters/1: another adapter has the number 1"},
      {R"({"settings": {"radio": 1}})", "/settings/radio: the member's name is to be a setting"},
      {R"({"settings": {"a~/b": 1}})", "/settings/a~0~1b: "},
      {R"({"platform": {"userName": 5}})", "/platform/userName: expected a text, found 5"},
      {R"({"platform": {"networkAdapters": [{"mac": ""}]}})",
       "/platform/networkAdapters/0/mac: no such member; accepted are deviceId"},
      {R"({"platform": {"osVersion": "6"}})", "/platform/osVersion: expected a version such as"},
      {R"({"registry": {"keyPresent": 1}})", "/registry/keyPresent: expected true or false"},
      {R"({"profiles": {"users": []}})", "accepted are user, persistent, prelogon, postlogon, it"},
      {R"({"profiles": {"user": [{"ssid": "x"}]}})", "/profiles/user/0: the member name"},
      {R"({"faults": [{"operation": "GetBands", "status": 1}]})",
       "/faults/0/operation: expected one of AddExcludeListEntry, "},
      {R"({"faults": [{"status": 1}]})", "/faults/0: the member operation is missing"},
      {R"({"faults": [{"operation": "GetBand"}]})", "exception, structured, or delayMs"},
      {R"({"faults": [{"operation": "GetBand", "status": 1, "exception": "x"}]})",
       "expected one of status, exception, structured"},
      {R"({"faults": [{"operation": "GetAdapterList", "adapter": 1, "status": 1}]})",
       "/faults/0: the operation GetAdapterList is about no adapter"},
      {R"({"faults": [{"operation": "GetBand", "structured": "crash"}]})", "access-violation"},
      {R"({"faults": [{"operation": "GetBand", "status": 1, "times": 0}]})", "/faults/0/times"},
      {R"({"faults": [{"operation": "GetBand", "status": 1, "after": 0}]})", "/faults/0/after"},
      {R"({"faults": [{"operation": "GetBand", "delayMs": 0}]})", "/faults/0/delayMs: expected"},
      {R"({"faults": [{"operation": "GetBand", "adapter": 1, "status": 1}]})",
       "/faults/0/adapter: there are no adapters"},
      {R"({"faults": [{"operation": "GetBand", "adapter": 3, "status": 1}],
           "adapters": [{"mac": "00:00:00:00:00:01"}, {"mac": "00:00:00:00:00:02", "number": 9}]})",
       "/faults/0/adapter: expected the number of an adapter, 1, 9, found 3"},
  };
  for (const Mistake& mistake : kMistakes) {
    const std::string error = ErrorOf(mistake.json);
    EXPECT_EQ(error.rfind("bench.json: ", 0), 0u) << mistake.json << "\n" << error;
    EXPECT_NE(error.find(mistake.expected), std::string::npos) << mistake.json << "\n" << error;
    EXPECT_LT(error.size(), 1600u);
  }
}

TEST(ScenarioErrors, OfAnAdaptersValues) {
  const std::string tooLong = "\"" + std::string(33, 's') + "\"";
  const struct {
    std::string members;
    const char* expected;
  } kMistakes[] = {
      {R"("bandwidth": 1)", "/adapters/0/bandwidth: no such member; accepted are number, mac,"},
      {R"("band": "802.11n")", "/adapters/0/band: expected a number or one of 802.11a, 802.11b"},
      {R"("band": -1)", "/adapters/0/band: expected a number from 0"},
      {R"("txRate": 2147483648)", "from -2147483648 to 2147483647"},
      {R"("txRate": 18446744073709551615)", "/adapters/0/txRate: expected a number"},
      {R"("txRate": "0x-5")", "/adapters/0/txRate: expected a number"},
      {R"("radioState": "on")", "/adapters/0/radioState: expected a number"},
      {R"("supportedRates": ["54", 7])", "/adapters/0/supportedRates/1: expected one of 1, 2, 5.5"},
      {R"("ccxVersion": {"major": 256})", "/adapters/0/ccxVersion/major: expected a number from 0"},
      {R"("association": {"ssid": )" + tooLong + "}", "the text has 33 bytes, room is for 32"},
      {R"("association": {"ssid": "日本"})", "/adapters/0/association/ssid: expected a text of ch"},
      {R"("association": {"ssid": "a\u0000b"})", "a text cannot hold a zero character"},
      {R"("association": {"ssid": {"hex": "4"}})", "/association/ssid/hex: expected pairs"},
      {R"("association": {"ssid": {}})", "/adapters/0/association/ssid: expected a text or"},
      {R"("association": {"bssid": {"hex": "00"}})", "/association/bssid: expected an address"},
      {R"("cachedNetworks": 5)", "/adapters/0/cachedNetworks: expected an array"},
      {R"("cachedNetworks": {"count": 1, "entries": []})", "greater than the number of entries, 0"},
      {R"("cachedNetworks": {"count": -1, "entry": []})", "accepted are entries, count"},
      {R"("cachedNetworks": [{}, {"rssi": 40000}])", "/adapters/0/cachedNetworks/1/rssi: expect"},
      {R"("tcpipv6": {"gateways": ["","","","","","","","","","",""]})", "room is for 10"},
  };
  for (const auto& mistake : kMistakes) {
    const std::string error = ErrorOf(Adapter(mistake.members));
    EXPECT_NE(error.find(mistake.expected), std::string::npos) << mistake.members << "\n" << error;
  }
}

TEST(ScenarioErrors, OfTheFile) {
  EXPECT_NE(ErrorOf(std::string(17, '[')).find("16 levels of nesting"), std::string::npos);
  EXPECT_NE(ErrorOf(std::string(16, '[')).find("no JSON"), std::string::npos);
  EXPECT_THROW(LoadScenario(SCENARIO_FOLDER "absent.json"), ScenarioError);
  EXPECT_THROW(LoadForHost(SCENARIO_FOLDER), ScenarioError);
}

}  // namespace
}  // namespace simulator
