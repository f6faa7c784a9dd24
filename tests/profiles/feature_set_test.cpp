#include "profiles/feature_set.h"

#include "tests/profiles/profile_settings.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using Strings = std::vector<std::string>;

class FeatureSetTest : public testing_support::StateFixture {
 protected:
  testing_support::ProfileSettings settings;
};

TEST_F(FeatureSetTest, WhatCannotBeReadAsFourBytesIsZero) {
  EXPECT_EQ(ReadFeatureSet().first, 0u);
  settings.SetNumber(OLESTR("FeatureSet1"), 0x81020304);
  const BYTE raw[] = {0x18, 0, 0, 0x80, 1};
  EXPECT_EQ(ReadFeatureSet().first, 0x81020304u);
  EXPECT_EQ(ReadFeatureSet().second, 0u);
  const struct {
    DWORD type;
    DWORD size;
    std::uint32_t expected;
  } kRows[] = {{REG_BINARY, 4, 0x80000018}, {REG_BINARY, 3, 0}, {REG_BINARY, 5, 0}, {REG_SZ, 4, 0}};
  for (const auto& row : kRows) {
    settings.Set(OLESTR("FeatureSet2"), row.type, raw, row.size);
    EXPECT_EQ(ReadFeatureSet().second, row.expected) << row.type << " " << row.size;
    EXPECT_EQ(ReadFeatureSet().first, 0x81020304u);
  }
}

TEST_F(FeatureSetTest, AGateNeedsItsFeatureAndTheLowestBitOfItsSetting) {
  const struct {
    DWORD features;
    std::uint32_t persistent, prelogon;
    bool persistentOpen, prelogonOpen;
    std::size_t queries = 2;
  } kRows[] = {
      {0, 1, 1, true, true},          {0, 2, 3, false, true},    {0, 0, 0, false, false},
      {0x8, 1, 1, false, true},       {0x10, 1, 1, true, false}, {0x18, 1, 1, false, false, 0},
      {0xFFFFFFE7, 1, 1, true, true},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.features);
    settings.SetNumber(OLESTR("FeatureSet2"), row.features);
    api.onGetSettingValue = [&](std::uint32_t setting, std::uint32_t* value) {
      EXPECT_EQ(*value, 0u);
      *value = setting == 415 ? row.persistent : setting == 416 ? row.prelogon : 0;
      return -1;  // ignored
    };
    journal.Clear();
    const StoreGates gates = ReadStoreGates(api);
    EXPECT_EQ(gates.persistent, row.persistentOpen);
    EXPECT_EQ(gates.prelogon, row.prelogonOpen);
    EXPECT_EQ(journal.calls(), Strings(row.queries, "GetSettingValue"));
  }
}

}  // namespace
}  // namespace wifi
