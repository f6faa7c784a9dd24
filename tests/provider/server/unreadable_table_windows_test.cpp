// An adapter table that ends before its count says, at a page that cannot be read.

#include "tests/support/last_bytes.h"
#include "tests/support/provider_fixture.h"

namespace testing_support {
namespace {

using UnreadableTable = ProviderFixture;

TEST_F(UnreadableTable, WhatCanBeReadIsServedAndTheFailureIsReported) {
  Initialize({{1, "7", 1}, {2, "10", 2}});
  const std::uint32_t count = 9;
  std::memcpy(adapterList.data(), &count, sizeof(count));
  const struct {
    std::size_t readable;
    std::size_t served;
  } kRows[] = {{adapterList.size(), 2}, {adapterList.size() - 1, 1}, {4, 0}, {3, 0}};
  for (const auto& row : kRows) {
    const LastBytes table(adapterList.data(), row.readable);
    api.onGetAdapterList = [&](const adapterapi::AdapterList** list) {
      *list = static_cast<const adapterapi::AdapterList*>(table.get());
      return 0;
    };
    initStatuses.clear();
    EXPECT_EQ(InitializeOnly(), S_OK);
    EXPECT_EQ(initStatuses, std::vector<LONG>{WBEM_E_FAILED}) << row.readable;
    const auto answers = MakeSink(script);
    const platform::Bstr name(OLESTR("WiFi_NetworkAdapterConfiguration"));
    EXPECT_EQ(provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, answers.get()), S_OK);
    EXPECT_EQ(answers->objects.size(), row.served);
  }
}

}  // namespace
}  // namespace testing_support
