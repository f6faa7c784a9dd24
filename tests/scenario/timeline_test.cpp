#include <gtest/gtest.h>

#include "scenario/scenario.h"
#include "scenario/time_text.h"

namespace simulator {
namespace {

TEST(TimeText, ReadsDurations) {
  const std::tuple<const char*, std::optional<std::int64_t>> rows[] = {
      {"90", 90'000},
      {"90s", 90'000},
      {"1m30s", 90'000},
      {"500ms", 500},
      {"2h", 7'200'000},
      {"0", 0},
      {"1d1ms", 86'400'001},
      {"3653d", 315'619'200'000},
      {"3653d1ms", {}},
      {"", {}},
      {"s", {}},
      {"-1", {}},
      {"1.5h", {}},
      {"30s1m", {}},
      {"1m1m", {}},
      {"1m30", {}},
      {"1 m", {}},
      {"1w", {}},
      {"99999999999999999999", {}},
  };
  for (const auto& [text, milliseconds] : rows)
    EXPECT_EQ(ParseDuration(text), milliseconds) << text;
}

TEST(TimeText, ReadsAndWritesMoments) {
  const std::tuple<const char*, std::optional<std::int64_t>> rows[] = {
      {"1970-01-01T00:00:00Z", 0},
      {"1970-01-01T00:00:00.001Z", 1},
      {"2024-02-29T23:59:59Z", 1'709'251'199'000},
      {"1969-12-31T23:59:59.999Z", -1},
      {"2023-02-29T00:00:00Z", {}},
      {"2024-01-01T24:00:00Z", {}},
      {"2024-01-01T00:60:00Z", {}},
      {"2024-01-01T00:00:00", {}},
      {"2024-01-01T00:00:00.1Z", {}},
      {"2024-01-01T00:00:00ZZ", {}},
      {"2024-01-01 00:00:00Z", {}},
      {"", {}},
  };
  for (const auto& [text, milliseconds] : rows) {
    EXPECT_EQ(ParseMoment(text), milliseconds) << text;
    if (milliseconds) {
      EXPECT_EQ(ParseMoment(MomentText(*milliseconds)), milliseconds) << text;
    }
  }
  EXPECT_EQ(MomentText(1'709'251'199'007), "2024-02-29T23:59:59.007Z");
}

Scenario WithTimeline(const std::string& timeline) {
  return ParseScenario(
      R"({"adapters": [{"mac": "00:00:00:00:00:01"}], "timeline": )" + timeline + "}", "test");
}

TEST(TimelineSection, NamesWhatIsWrong) {
  const std::tuple<const char*, const char*> rows[] = {
      {R"({"start": "soon"})", "/timeline/start: expected a moment in UTC"},
      {R"({"repeat": "0s"})", "/timeline/repeat: expected more than no time"},
      {R"({"steps": [{}]})", "/timeline/steps/0: the member at is missing"},
      {R"({"steps": [{"at": "late"}]})", "/timeline/steps/0/at: expected a time such as"},
      {R"({"steps": [{"at": -1}]})", "/timeline/steps/0/at: expected"},
      {R"({"steps": [{"at": 0, "sets": {}}]})", "/timeline/steps/0/sets: no such member"},
      {R"({"steps": [{"at": 5, "set": {"apiVersion": 1}}, {"at": 4}]})",
       "/timeline/steps/1/at: it is earlier than the step before"},
      {R"({"repeat": "1m", "steps": [{"at": "60s"}]})",
       "/timeline/steps/0/at: the timeline begins again before"},
      {R"({"steps": [{"at": 1, "ramp": {"settings/406": 4}}]})",
       "/timeline/steps/0/ramp/settings~1406: no earlier step gives this member a number"},
      {R"({"steps": [{"at": 0, "set": {"adapters/0/association/ssid": "a"}},
                     {"at": 1, "ramp": {"adapters/0/association/ssid": 4}}]})",
       "no earlier step gives this member a number"},
      {R"({"steps": [{"at": 0, "set": {"settings/406": 4}},
                     {"at": 1, "ramp": {"settings/406": "high"}}]})",
       "/timeline/steps/1/ramp/settings~1406: expected a number"},
      {R"({"steps": [{"at": "1s", "set": {"adapters/0/bandwidth": 4}}]})",
       "/timeline: the step at 1000 ms: /adapters/0/bandwidth: no such member"},
      {R"({"steps": [{"at": 1, "set": {"adapters/0/mac": "00:00:00:00:00:02"}}]})",
       "/adapters/0/mac: it is seen only when"},
      {R"({"steps": [{"at": 1, "set": {"adapters/1/band": 1}}]})", "/adapters/1: expected"},
      {R"({}, "faults": [{"operation": "GetBand", "status": 1, "from": "2m", "until": 120}])",
       "/faults/0: it ends at until, before it begins at from"},
  };
  for (const auto& [timeline, problem] : rows) {
    try {
      WithTimeline(timeline);
      ADD_FAILURE() << timeline << " was accepted";
    } catch (const ScenarioError& error) {
      EXPECT_NE(std::string(error.what()).find(problem), std::string::npos) << error.what();
    }
  }
}

TEST(TimelineSection, ChecksAStepAfterTheStepsBefore) {
  const Scenario scenario = WithTimeline(
      R"({"steps": [{"at": 0, "set": {"faults": [{"operation": "GetBand", "status": 1}]}},
                    {"at": 1, "set": {"/faults/0/status": 2}}]})");
  ASSERT_EQ(scenario.timeline.changes.size(), 2u);
  EXPECT_TRUE(scenario.faults.empty()) << "a check changes nothing";
}

}  // namespace
}  // namespace simulator
