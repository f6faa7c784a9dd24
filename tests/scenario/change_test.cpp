#include "scenario/change.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "scenario/member_paths.h"

namespace simulator {
namespace {

class ChangeTest : public ::testing::Test {
 protected:
  void Change(const std::string& path, const std::string& value) {
    ChangeMember(
        path, value,
        [this](std::size_t index) {
          return index < scenario_.adapters.size() ? &scenario_.adapters[index] : nullptr;
        },
        scenario_);
  }

  Scenario scenario_ = LoadScenario(SCENARIO_FOLDER "test-bench.json");
};

TEST_F(ChangeTest, ReplacesJustTheMember) {
  const AdapterRecords before = scenario_.adapters[1].records;
  Change("adapters/1/band", "802.11a");
  Change("/adapters/1/association/ssid", "007");
  Change("adapters/1/txRate", "-1");
  Change("settings/415", "9");
  const AdapterRecords& after = scenario_.adapters[1].records;
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(after.association.ssid)), "007");
  EXPECT_EQ(after.txRate, -1);
  EXPECT_NE(after.band, before.band);
  EXPECT_EQ(after.association.rate, before.association.rate);
  EXPECT_EQ(scenario_.settings[415], 9u);
  EXPECT_GT(scenario_.settings.size(), 1u);
}

TEST_F(ChangeTest, ChangesFaultsAndAddsThem) {
  const std::size_t count = scenario_.faults.size();
  const std::string next = "faults/" + std::to_string(count);
  Change(next, R"({"operation": "GetBand", "adapter": 10, "status": 5, "times": 2})");
  Change(next + "/status", "0x80004005");
  Change(next + "/after", "3");
  ASSERT_EQ(scenario_.faults.size(), count + 1);
  EXPECT_EQ(scenario_.faults.back().index, count);
  EXPECT_EQ(scenario_.faults.back().operation, "GetBand");
  EXPECT_EQ(scenario_.faults.back().status, static_cast<std::int32_t>(0x80004005));
  EXPECT_EQ(scenario_.faults.back().after, 3u);
  EXPECT_EQ(scenario_.faults.back().times, 2u);
  Change(next + "/exception", "gone");
  EXPECT_EQ(scenario_.faults.back().kind, Fault::Kind::kException);
  Change("faults", "[]");
  EXPECT_TRUE(scenario_.faults.empty());
}

TEST_F(ChangeTest, NamesWhatCanBeChanged) {
  struct Row {
    const char* typed;
    std::vector<std::string> some;  ///< some of the completions
    const char* never;
  };
  const Row rows[] = {
      {"ad", {"adapters/", "apiVersion=", "faults/"}, "platform/"},
      {"adapters/", {"adapters/0/", "adapters/3/"}, "adapters/4/"},
      {"adapters/0/b",
       {"adapters/0/band=", "adapters/0/association/", "adapters/0/excludeList/"},
       "adapters/0/mac="},
      {"/adapters/0/association/", {"/adapters/0/association/ssid="}, ""},
      {"adapters/0/availableNetworks/", {"adapters/0/availableNetworks/0/"}, ""},
      {"adapters/0/availableNetworks/0/r", {"adapters/0/availableNetworks/0/rssi="}, ""},
      {"adapters/0/band=8", {"adapters/0/band=802.11a", "adapters/0/band=802.11b"}, ""},
      {"adapters/0/radioState=", {"adapters/0/radioState=true", "adapters/0/radioState=false"}, ""},
      {"profiles/", {"profiles/user/"}, ""},
      {"profiles/user/", {"profiles/user/0/"}, ""},
      {"profiles/user/0/", {"profiles/user/0/ssid="}, ""},
      {"settings/", {"settings/415="}, ""},
      {"faults/0/", {"faults/0/operation="}, ""},
  };
  for (const auto& [typed, some, never] : rows) {
    const std::vector<std::string> offered = MemberPaths(typed, scenario_);
    for (const std::string& path : some) {
      EXPECT_EQ(std::ranges::count(offered, path), 1) << typed << " " << path;
    }
    EXPECT_EQ(std::ranges::count(offered, never), 0) << typed;
  }
  for (const char* typed :
       {"adapters/9/availableNetworks/", "adapters/x/excludeList/", "profiles/no/",
        "adapters/0/band/x/", "adapters/0/ssid=", "platform/", "a//b/"}) {
    EXPECT_TRUE(MemberPaths(typed, scenario_).empty()) << typed;
  }
}

TEST_F(ChangeTest, RefusesWithThePlaceAndChangesNothing) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"adapters/4/band", "1", "/adapters/4: expected the number of an entry, 0 to 3"},
      {"adapters/0", "1", "/adapters/0: a member of the adapter is to be named"},
      {"adapters/0/mac", "00:1A:2B:3C:4D:5E", "/adapters/0/mac: it is seen only when"},
      {"adapters/0/present", "1", "/adapters/0/present: it is seen only when"},
      {"adapters/0/bandwidth", "1", "/adapters/0/bandwidth: no such member; accepted are"},
      {"adapters/0/txRate", "fast", "/adapters/0/txRate: expected a number"},
      // A typed JSON text that is invalid is not taken as plain text.
      {"adapters/0/association/ssid", R"("a\u0000b")", "a text cannot hold a zero character"},
      {"adapters/0/association/ssid", R"({"hex": "4"})", "expected pairs"},
      {"adapters/0/availableNetworks/99/rssi", "1", "/adapters/0/availableNetworks/99: expected"},
      {"profiles/nobody/0/ssid", "x", "expected one of user, persistent"},
      {"faults", "{}", "/faults: expected an array"},
      {"faults/5", "{}", "/faults/5: expected the number of an entry, 0 to 0"},
      {"faults/0", "{}", "/faults/0: the member operation is missing"},
      {"faults/0/status", "1", "there are no entries"},
      {"faults/0", R"({"operation": "GetBand", "adapter": 99, "status": 1})",
       "/faults/0/adapter: expected the number of an adapter, "},
      {"platform/userName", "x", "/platform: it cannot be changed while the machine plays"},
  };
  const AdapterRecords before = scenario_.adapters[0].records;
  for (const auto& [path, value, problem] : rows) {
    try {
      Change(path, value);
      ADD_FAILURE() << path << " was accepted";
    } catch (const ScenarioError& error) {
      EXPECT_NE(std::string(error.what()).find(problem), std::string::npos) << error.what();
    }
  }
  EXPECT_EQ(std::memcmp(&before, &scenario_.adapters[0].records, sizeof before), 0);
}

}  // namespace
}  // namespace simulator
