// The owners of the statistics' arrays, checked by counting the native layer's live blocks.

#include <memory>

#include "classes/statistics.h"
#include "platform/native/observe.h"
#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

using ArrayOwnership = FillerFixture;

TEST_F(ArrayOwnership, AThousandFillsHoldTwoArraysAProperty) {
  const int before = native::LiveAllocations();
  const auto filled = std::make_unique<wifi::ProviderMemory>();
  wifi::ProviderState filling(api, *filled);
  filling.services = services;
  filling.adapters = std::make_shared<wifi::AdapterMap>();
  (*filling.adapters)["7"].number = 70;
  const auto liveAfter = [&](int fills) {
    for (int fill = 0; fill < fills; ++fill) {
      EXPECT_EQ(wifi::EnumerateStatistics(filling, delivery()), S_OK);
      sink->objects.clear();
    }
    return native::LiveAllocations() - before;
  };
  constexpr int kBlocksOfArray = 2 + static_cast<int>(wifi::kRateCount);
  EXPECT_EQ(liveAfter(1), 5 * kBlocksOfArray);
  EXPECT_EQ(liveAfter(1), 10 * kBlocksOfArray);
  EXPECT_EQ(liveAfter(998), 10 * kBlocksOfArray);
  filled->statisticsArrays = {};
  EXPECT_EQ(liveAfter(0), 0);
}

TEST_F(ArrayOwnership, EveryFailingAllocationIsReportedAndLeaksNothing) {
  object = MakeObject();
  const int before = native::LiveAllocations();
  const std::int32_t values[wifi::kRateCount] = {};
  HRESULT result = E_FAIL;
  int nth = 0;
  while (result != S_OK) {
    ASSERT_LT(++nth, 100);
    journal.Clear();
    native::FailAllocation(nth);
    result = wifi::FillSafeArray(state, object.get(), OLESTR("Rates"), values);
    native::FailAllocation(0);
    if (result == S_OK) break;
    const bool created = nth > 2;  // an array consists of two blocks
    EXPECT_EQ(result, created ? WBEM_E_NOT_FOUND : E_OUTOFMEMORY);
    EXPECT_TRUE(
        journal.Has(created ? "trace Error is E_OUTOFMEMORY" : "trace Error out of memory"));
    EXPECT_EQ(journal.Of("put ").size(), 0u);
  }
  EXPECT_GT(nth, static_cast<int>(wifi::kRateCount));
  state.memory.statisticsArrays = {};
  EXPECT_EQ(native::LiveAllocations(), before);
}

}  // namespace
}  // namespace testing_support
