#include "scenario/change.h"

#include <gtest/gtest.h>

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
