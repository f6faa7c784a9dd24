#include "classes/exclude_list.h"

#include "tests/classes/list_fixture.h"

namespace testing_support {
namespace {

using ExcludeLists = ListFixture;

RecordBytes<ExcludeEntryRecord> Excluded(const std::string& name, std::uint32_t reasonBits) {
  RecordBytes<ExcludeEntryRecord> entry;
  return entry.Bytes(0, name).Bytes(40, "\x01\x80\xFF").At(48, reasonBits);
}

TEST_F(ExcludeLists, ExcludeList) {
  const ListBytes<ExcludeEntryRecord> list(1, {Excluded("Cafe", 0)});
  api.onGetExcludeList = list.Getter();
  EXPECT_EQ(wifi::EnumerateExcludeList(state, delivery()), S_OK);
  EXPECT_EQ(journal.events(),
            (Lines{"trace Getting exclude list for WiFi_NetworkExcludeList", "call GetExcludeList",
                   "trace Done Getting network information for WiFi_NetworkExcludeList",
                   "spawn WiFi_NetworkExcludeList", "trace FillAdapterExcludeList", "put SettingID",
                   "put Caption", "put Description", "put NetworkName", "trace 01:80:FF:00:00:00",
                   "put MacAddress", "put Reason", "indicate"}));
  EXPECT_EQ(Shown(), (Lines{"SettingID=text:7", "Caption=text:Caption 7",
                            "Description=text:Description 7", "NetworkName=text:Cafe",
                            "MacAddress=text:01:80:FF:00:00:00", "Reason=number:1"}));
  script.putResults = {{"Caption", E_FAIL}};  // the address is still traced
  EXPECT_EQ(wifi::EnumerateExcludeList(state, delivery()), E_FAIL);
  EXPECT_EQ(journal.traces().back(), "01:80:FF:00:00:00");
}

TEST_F(ExcludeLists, ExclusionReasons) {
  const std::pair<std::uint32_t, int> cases[] = {{0x41, 0},    {0x8040, 2}, {0x18000, 3},
                                                 {0x10000, 4}, {0x2, 1},    {0xFFFFFFFF, 0}};
  for (const auto& [bits, reason] : cases) {
    const ListBytes<ExcludeEntryRecord> list(1, {Excluded("", bits)});
    api.onGetExcludeList = list.Getter();
    wifi::EnumerateExcludeList(state, delivery());
    EXPECT_EQ(sink->objects.back()->Last("Reason"), "number:" + std::to_string(reason));
  }
}

TEST_F(ExcludeLists, ExcludeEntryByName) {
  const std::string full(32, 'x');
  const ListBytes<ExcludeEntryRecord> list(
      4, {Excluded("Cafe", 1), Excluded("Cafe", 2), Excluded(full, 2), Excluded(full + "yz", 2)});
  api.onGetExcludeList = list.Getter();
  const auto get = [&](const char* name) {
    return wifi::GetExcludeListObject(state, delivery(), Path(OLESTR("NetworkName"), name));
  };
  EXPECT_EQ(get("cafe"), kNotFound);
  EXPECT_EQ(journal.traces(),
            (Lines{"Getting network information for WiFi_NetworkExcludeList",
                   "Done Getting network information for WiFi_NetworkExcludeList"}));
  EXPECT_EQ(get("Cafe"), S_OK);
  EXPECT_EQ(sink->objects.back()->Last("Reason"), "number:0");
  // A name is compared over 32 bytes and shown up to 33.
  EXPECT_EQ(get((full + "y").c_str()), kNotFound);
  EXPECT_EQ(get(full.c_str()), S_OK);
  EXPECT_EQ(sink->objects.back()->Last("NetworkName"), "text:" + full);
  EXPECT_EQ(wifi::EnumerateExcludeList(state, delivery()), S_OK);
  EXPECT_EQ(sink->objects.back()->Last("NetworkName"), "text:" + full + "y");
}

}  // namespace
}  // namespace testing_support
