#include "classes/statistics.h"

#include "provider/core/object_path.h"
#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

using Statistics = FillerFixture;

/// Word n of the record is n, except for the two largest values of their types.
TxRxStatsRecord SomeStatistics() {
  RecordBytes<TxRxStatsRecord> record;
  for (std::uint32_t word = 0; word < 88; ++word) record.At(4 * word, word);
  return record.At(60, 0xFFFFFFFFu).At(64, 0xFFFFFFFFu).record();
}

std::string Texts(int first, const char* last) {
  std::string texts = "=texts:";
  for (int value = first; value < first + 15; ++value) texts += std::to_string(value) + "|";
  return texts + last;
}

TEST_F(Statistics, AllCountersInOrder) {
  api.onGetTxRxStats = Gives(SomeStatistics());
  EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), S_OK);
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->ShownPuts(),
            (Lines{"SettingID=text:7", "Rates" + Texts(0, "-1"), "TxTotalPackets=text:-1",
                   "TxTotalBytes=text:17", "TxDirectPackets=text:18",
                   "TxDirectPacketsRate" + Texts(19, "34"), "TxNonDirectPackets=text:35",
                   "TxNonDirectPacketsRate" + Texts(36, "51"), "RxTotalPackets=text:52",
                   "RxTotalBytes=text:53", "RxDirectPackets=text:54",
                   "RxDirectPacketsRate" + Texts(55, "70"), "RxNonDirectPackets=text:71",
                   "RxNonDirectPacketsRate" + Texts(72, "87")}));
  const Lines events = journal.events();
  EXPECT_EQ(
      Lines(events.begin(), events.begin() + 8),
      (Lines{"trace Getting exclude list for WiFi_AdapterTxRxStats", "call GetTxRxStats",
             "spawn WiFi_AdapterTxRxStats", "trace FillTxRxStats", "put SettingID",
             "trace Inside the Fillsafearray", "put Rates", "trace exiting the Fillsafearray"}));
}

TEST_F(Statistics, TheThirdFillIsTheFirstToDelete) {
  for (const std::size_t deletions : {0u, 0u, 5u, 5u}) {
    journal.Clear();
    EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), S_OK);
    EXPECT_EQ(journal.Of("trace Deleting").size(), deletions);
  }
  EXPECT_EQ(journal.Of("trace Deleting the Array Data for "),
            (Lines{"Rates", "TxDirectPacketsrate", "TxNonDirectPacketsRate", "RxDirectpacketsRate",
                   "RxNonDirectPacketsRate"}));
}

TEST_F(Statistics, UnknownArrayName) {
  object = MakeObject();
  const std::int32_t values[wifi::kRateCount] = {};
  for (const OLECHAR* name : {OLESTR("rates"), OLESTR("Rates2"), OLESTR("")}) {
    journal.Clear();
    EXPECT_EQ(wifi::FillSafeArray(state, object.get(), name, values), E_OUTOFMEMORY);
    EXPECT_EQ(journal.events(),
              (Lines{"trace Inside the Fillsafearray", "trace Error out of memory"}));
  }
}

TEST_F(Statistics, OnlyTheLastArrayDecides) {
  AddAdapter("8", 80);
  for (const char* property : {"SettingID", "Rates", "TxTotalPackets", "RxNonDirectPackets"}) {
    script.putResults[property] = E_FAIL;
  }
  EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), S_OK);
  EXPECT_EQ(sink->objects.size(), 2u);
  script.putResults = {{"RxNonDirectPacketsRate", E_FAIL}};
  EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), E_FAIL);
  EXPECT_EQ(sink->objects.size(), 2u);
  script.putResults.clear();
  script.indicateResults = {{3, 1}};  // a success code of the sink ends the walk
  EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), 1);
  EXPECT_EQ(sink->objects.size(), 3u);
  script.putThrows = "TxTotalBytes";  // put without a fence
  EXPECT_THROW(wifi::EnumerateStatistics(state, delivery()), std::runtime_error);
}

// The slots of an array are shared by all requests.
TEST_F(Statistics, AnArrayOutlivesTheFillsThatItsPutLetsIn) {
  api.onGetTxRxStats = Gives(SomeStatistics());
  FaultPlan plan{Step::kPut, Manner::kReenter, 2, false};
  plan.reenter = [&] {
    api.onGetTxRxStats = Gives(RecordBytes<TxRxStatsRecord>().record());
    for (int fill = 0; fill < 2; ++fill) wifi::EnumerateStatistics(state, delivery());
  };
  FaultPlan::armed = &plan;
  {
    const Side inside(true);
    EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), S_OK);
  }
  FaultPlan::armed = nullptr;
  ASSERT_EQ(sink->objects.size(), 3u);
  EXPECT_EQ(sink->objects[2]->ShownPuts()[1], "Rates" + Texts(0, "-1"));
}

TEST_F(Statistics, ByKey) {
  wifi::ParsedPath path;
  path.AddKey(OLESTR("SettingID"), platform::Variant::AnsiText("7").get());
  EXPECT_EQ(wifi::GetStatisticsObject(state, delivery(), path), S_OK);
  EXPECT_EQ(journal.traces().front(), "Getting network information for WiFi_NetworkExcludeList");
  EXPECT_EQ(sink->objects.size(), 1u);
  api.onGetTxRxStats = Answers(1);
  EXPECT_EQ(wifi::GetStatisticsObject(state, delivery(), path), WBEM_E_NOT_FOUND);
  path.keys.clear();
  journal.Clear();
  EXPECT_EQ(wifi::GetStatisticsObject(state, delivery(), path), WBEM_E_NOT_FOUND);
  EXPECT_TRUE(journal.events().empty());
}

TEST_F(Statistics, WithoutANamespaceNothingIsShown) {
  state.services.reset();
  EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), E_FAIL);
  EXPECT_EQ(journal.Of("put ").size() + journal.Of("indicate").size(), 0u);
}

}  // namespace
}  // namespace testing_support
