#include "simulator/timeline_player.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "scenario/time_text.h"
#include "simulator/library.h"
#include "simulator/profile_library.h"

namespace simulator {
namespace {

constexpr const char* kWalk = R"({
  "adapters": [{"mac": "00:00:00:00:00:01", "band": "802.11g", "signal": {"rssi": -30}}],
  "profiles": {"user": [{"name": "home", "ssid": "start"}]},
  "faults": [{"operation": "GetBand", "status": 5, "from": "20s", "until": "30s"},
             {"operation": "CProfileMgr::Open", "status": 6, "from": "20s", "until": "30s"}],
  "timeline": {"REPEATsteps": [
    {"at": 0, "set": {"adapters/0/signal/rssi": -40, "profiles/user/0/ssid": "first"}},
    {"at": "10s", "ramp": {"adapters/0/signal/rssi": -80}},
    {"at": "10s", "set": {"adapters/0/association/associated": true,
                          "adapters/0/association/ssid": "Hall"}},
    {"at": "15s", "set": {"adapters/0/availableNetworks": [{"ssid": "one"}],
                          "profiles/user/0/ssid": "second"}},
    {"at": "25s", "ramp": {"adapters/0/signal/rssi": -50}}]}})";

std::string Walk(const std::string& begin = "") {
  std::string text = kWalk;
  return text.replace(text.find("\"REPEAT"), 7, begin + "\"");
}

class TimelinePlayerTest : public ::testing::Test {
 protected:
  void Play(const std::string& text) {
    library_.Play(ParseScenario(text, "test"));
    profiles_.Play(ParseScenario(text, "test"));
  }
  void MoveTo(std::int64_t seconds) {
    library_.SetTime(1000 * seconds);
    profiles_.SetTime(1000 * seconds);
  }
  std::int32_t Rssi() {
    SignalParametersRecord signal{};
    EXPECT_EQ(library_.GetSignalParameters(1, &signal), kOk);
    return signal.rssi;
  }
  std::string Network() {
    AssociationInfoRecord association{};
    EXPECT_EQ(library_.GetAssociationInfo(1, &association), kOk);
    return reinterpret_cast<const char*>(association.ssid);
  }
  std::string ProfileNetwork() {
    std::string name;
    profiles_.Run("CProfileMgr::GetProfileToApply", [&name](const Scenario& scenario) {
      name = scenario.profiles[0][0].ssid;
      return 0;
    });
    return name;
  }
  ApiStatus BandStatus() {
    std::uint32_t band = 0;
    return library_.GetBand(1, &band);
  }
  std::int32_t OpenStatus() {
    return profiles_.Run("CProfileMgr::Open", [](const Scenario&) { return 0; });
  }

  Library library_{[] { return std::optional<Scenario>(); }};
  ProfileLibrary profiles_{[] { return std::optional<Scenario>(); }};
};

TEST_F(TimelinePlayerTest, PlaysStepsRampsAndFaultsOfBothLibraries) {
  struct Row {
    std::int64_t second;
    std::int32_t rssi;
    const char* network;
    const char* profileNetwork;
    std::int32_t fault;
  };
  // From a jump over all steps back to the start, then forward in small steps.
  const Row rows[] = {
      {100, -50, "Hall", "second", 0}, {-1, -30, "", "start", 0},
      {0, -40, "", "first", 0},        {1, -44, "", "first", 0},
      {9, -76, "", "first", 0},        {10, -80, "Hall", "first", 0},
      {15, -70, "Hall", "second", 0},  {19, -62, "Hall", "second", 0},
      {20, -60, "Hall", "second", 5},  {25, -50, "Hall", "second", 5},
      {30, -50, "Hall", "second", 0},
  };
  Play(Walk());
  for (const Row& row : rows) {
    SCOPED_TRACE(row.second);
    MoveTo(row.second);
    EXPECT_EQ(Rssi(), row.rssi);
    EXPECT_EQ(Network(), row.network);
    EXPECT_EQ(ProfileNetwork(), row.profileNetwork);
    EXPECT_EQ(BandStatus(), row.fault);
    EXPECT_EQ(OpenStatus(), row.fault == 0 ? 0 : 6);
  }
}

TEST_F(TimelinePlayerTest, StartsAgainWhereItRepeats) {
  Play(Walk(R"("repeat": "1m", )"));
  MoveTo(59);
  EXPECT_EQ(library_.SetRadioState(1, 0), kOk);
  EXPECT_EQ(Network(), "");
  for (const std::int64_t round : {1, 2, 7}) {
    MoveTo(60 * round + 1);
    std::uint32_t radio = 0;
    EXPECT_EQ(library_.GetRadioState(1, &radio), kOk);
    EXPECT_EQ(radio, 1u) << "changes of the round before are gone";
    EXPECT_EQ(Rssi(), -44);
    EXPECT_EQ(ProfileNetwork(), "first");
    MoveTo(60 * round + 22);
    EXPECT_EQ(Network(), "Hall");
    EXPECT_EQ(BandStatus(), 5);
  }
}

TEST_F(TimelinePlayerTest, KeepsChangesThatItDoesNotMakeItself) {
  Play(Walk());
  MoveTo(12);
  library_.Change("adapters/0/txRate", "7");
  library_.Change("adapters/0/association/ssid", "Lab");
  MoveTo(14);
  EXPECT_EQ(Network(), "Lab");
  library_.Change("faults", "[]");
  MoveTo(22);
  EXPECT_EQ(BandStatus(), kOk);
  std::int32_t rate = 0;
  EXPECT_EQ(library_.GetTxRate(1, &rate), kOk);
  EXPECT_EQ(rate, 7);
}

TEST_F(TimelinePlayerTest, LeavesOutAChangeThatFitsNoMore) {
  Play(R"({"faults": [{"operation": "GetApiVersion", "status": 5}], "timeline": {"steps": [
           {"at": 1, "set": {"faults/0/status": 6}}, {"at": 2, "set": {"apiVersion": 9}}]}})");
  library_.Change("faults", "[]");
  MoveTo(2);
  std::uint32_t version = 0;
  EXPECT_EQ(library_.GetApiVersion(&version), kOk);
  EXPECT_EQ(version, 9u);
}

TEST_F(TimelinePlayerTest, KeepsTheListsThatClientsStillRead) {
  Play(Walk());
  MoveTo(0);
  const ScanList* before = nullptr;
  ASSERT_EQ(library_.GetAvailableNetworks(1, &before), kOk);
  const std::int32_t count = before->count;
  MoveTo(16);
  const ScanList* after = nullptr;
  ASSERT_EQ(library_.GetAvailableNetworks(1, &after), kOk);
  EXPECT_EQ(after->count, 1);
  EXPECT_EQ(before->count, count);
  const ScanList* again = nullptr;
  ASSERT_EQ(library_.GetAvailableNetworks(1, &again), kOk);
  EXPECT_EQ(again, after);
}

TEST_F(TimelinePlayerTest, FollowsTheClockFromItsStart) {
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const auto start = [&now](int secondsAgo) {
    const auto moment = now.time_since_epoch() - std::chrono::seconds(secondsAgo);
    return "\"start\": \"" + MomentText(std::chrono::milliseconds(moment).count()) + "\", ";
  };
  Play(Walk(start(12)));
  EXPECT_EQ(Network(), "Hall");
  Play(Walk(start(-3600)));
  EXPECT_EQ(Rssi(), -30) << "it has not begun";
}

TEST_F(TimelinePlayerTest, ShowsNoHalfOfAStep) {
  Play(R"({"adapters": [{"mac": "00:00:00:00:00:01"}], "timeline": {"repeat": "2s", "steps": [
           {"at": 0, "set": {"adapters/0/association/rate": 1, "adapters/0/association/channel": 1}},
           {"at": 1, "set": {"adapters/0/association/rate": 2,
                             "adapters/0/association/channel": 2}}]}})");
  const auto read = [this] {
    AssociationInfoRecord association{};
    EXPECT_EQ(library_.GetAssociationInfo(1, &association), kOk);
    EXPECT_EQ(association.rate, association.channel);
  };
  std::atomic<bool> ends = false;
  std::thread mover([this, &read, &ends] {
    for (std::int64_t time = 0; time < 1'000'000; time += 500) {
      library_.SetTime(time);
      read();
    }
    ends = true;
  });
  while (!ends) read();
  mover.join();
}

}  // namespace
}  // namespace simulator
