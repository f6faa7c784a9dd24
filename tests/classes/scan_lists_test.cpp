#include "classes/scan_lists.h"

#include "tests/classes/list_fixture.h"

namespace testing_support {
namespace {

using ScanLists = ListFixture;

RecordBytes<ScanListEntry> Network(const char* name, char lastMacByte) {
  RecordBytes<ScanListEntry> entry;
  return entry.Bytes(0, name)
      .Bytes(33, "\xA0\x0B\xF8")
      .At(38, lastMacByte)
      .At(40, 3u)
      .At(44, 2u)
      .At<std::uint16_t>(48, 0xFFB0)
      .At(52, 1u)
      .At(56, 0x22u)
      .At(60, 0x14u)
      .At(64, 0x80u)
      .At<std::uint16_t>(72, 0x018B)
      .At(76, 9u);
}

TEST_F(ScanLists, CachedScanList) {
  const ListBytes<ScanListEntry> list(1, {Network("Net", 1)});
  api.onGetCachedScanList = list.Getter();
  EXPECT_EQ(wifi::EnumerateCachedScanList(state, delivery()), S_OK);
  EXPECT_EQ(journal.events(),
            (Lines{"trace Getting network information for WiFi_AdapterCachedScanList",
                   "call GetCachedScanList", "spawn WiFi_AdapterCachedScanList", "put SettingID",
                   "put Caption", "put Description", "put NetworkName", "put MacAddress",
                   "put Band", "put OperationMode", "put RSSI", "put Encrypted", "put ChannelID",
                   "put Stealth", "put UnicastEncryptionLevel", "put MulticastEncryptionLevel",
                   "put AuthLevel", "indicate"}));
  EXPECT_EQ(Shown(),
            (Lines{"SettingID=text:7", "Caption=text:Caption 7", "Description=text:Description 7",
                   "NetworkName=text:Net", "MacAddress=text:A0:0B:F8:00:00:01", "Band=text:802.11g",
                   "OperationMode=text:Ad hoc", "RSSI=text:-80", "Encrypted=number:1",
                   "ChannelID=text:139", "Stealth=number:9", "UnicastEncryptionLevel=text:AES-CCMP",
                   "MulticastEncryptionLevel=text:UnKnown", "AuthLevel=text:RSNA"}));
}

TEST_F(ScanLists, AvailableNetworkPutsTheChannelOverEncrypted) {
  const ListBytes<ScanListEntry> list(1,
                                      {Network("Net", 1).Fill(0, 33, 'n').At(40, 4u).At(44, 0u)});
  api.onGetAvailableNetworks = list.Getter();
  EXPECT_EQ(wifi::EnumerateAvailableNetworks(state, delivery()), S_OK);
  EXPECT_EQ(journal.traces(), Lines{"Getting network information for WiFi_AdapterNetwork"});
  EXPECT_TRUE(journal.Has("spawn WiFi_AvailableNetwork"));
  const Lines shown = Shown();
  EXPECT_EQ(Lines(shown.begin() + 3, shown.end()),
            (Lines{"NetworkName=text:" + std::string(33, 'n'), "MacAddress=text:A0:0B:F8:00:00:01",
                   "Band=text:<Unknown>", "OperationMode=text:Unknown", "RSSI=text:-80",
                   "Encrypted=number:1", "Encrypted=text:395"}));
}

TEST_F(ScanLists, TheFirstSecurityBitInOrderDecides) {
  struct Field {
    std::size_t offset;
    const char* property;
    std::vector<std::pair<std::uint32_t, const char*>> texts;
  };
  const Field fields[] = {
      {60, "UnicastEncryptionLevel", {{0xFF, "AES-CCMP"}, {0xEF, "TKIP"}, {0xEB, "Orvel Wrap"}}},
      {60, "UnicastEncryptionLevel", {{0xE3, "CKIP"}, {0xA3, "WEP104"}, {0, "UnKnown"}}},
      {64, "MulticastEncryptionLevel", {{0x83, "WEP40"}, {0x81, "None"}, {0x80, "UnKnown"}}},
      {56, "AuthLevel", {{0xDF, "WPA"}, {0xDD, "PSK"}, {0x9D, "WPA_PSK"}, {0x99, "Open"}}},
      {56, "AuthLevel", {{0x91, "Shared"}, {0x81, "None"}, {0x80, "UnKnown"}}}};
  for (const Field& field : fields) {
    for (const auto& [bits, text] : field.texts) {
      const ListBytes<ScanListEntry> list(1, {Network("", 1).At(field.offset, bits)});
      api.onGetCachedScanList = list.Getter();
      wifi::EnumerateCachedScanList(state, delivery());
      EXPECT_EQ(sink->objects.back()->Last(field.property), std::string("text:") + text);
    }
  }
}

TEST_F(ScanLists, WalkStopRules) {
  AddAdapter("8", 80);
  const ListBytes<ScanListEntry> list(2, {Network("A", 1), Network("B", 2)});
  api.onGetCachedScanList = list.Getter();
  const auto enumerate = [&] { return wifi::EnumerateCachedScanList(state, delivery()); };

  EXPECT_EQ(enumerate(), S_OK);
  EXPECT_EQ(sink->objects.size(), 4u);
  script.indicateResults = {{5, E_FAIL}};  // the first entry of two: the walk goes on
  EXPECT_EQ(enumerate(), S_OK);
  EXPECT_EQ(sink->objects.size(), 7u);
  script.indicateResults = {{10, 1}};  // the last one ends the walk, even with a success code
  EXPECT_EQ(enumerate(), 1);
  EXPECT_EQ(sink->objects.size(), 9u);

  script.putResults = {{"Band", E_FAIL}};
  journal.Clear();
  EXPECT_EQ(enumerate(), E_FAIL);
  EXPECT_EQ(journal.Of("put OperationMode").size() + journal.Of("indicate").size(), 0u);
  EXPECT_EQ(journal.Of("spawn ").size(), 2u);  // only the first adapter's
}

TEST_F(ScanLists, NoListIsNotFound) {
  const ListBytes<ScanListEntry> empty(0, {});
  const ListBytes<ScanListEntry> negative(-1, {});
  const ListBytes<ScanListEntry> full(1, {Network("A", 1)});
  const std::function<ApiStatus(AdapterNumber, const ScanList**)> cases[] = {
      empty.Getter(), negative.Getter(), Answers(0),
      [&](AdapterNumber adapter, const ScanList** list) {
        full.Getter()(adapter, list);
        return 1;
      }};
  AddAdapter("8", 80);
  for (const auto& getter : cases) {
    api.onGetAvailableNetworks = getter;
    journal.Clear();
    EXPECT_EQ(wifi::EnumerateAvailableNetworks(state, delivery()), kNotFound);
    EXPECT_EQ(journal.calls().size(), 1u);
    EXPECT_EQ(wifi::GetAvailableNetworkObject(state, delivery(),
                                              Path(OLESTR("MacAddress"), "A0:0B:F8:00:00:01")),
              kNotFound);
  }
  EXPECT_TRUE(sink->objects.empty());
  api.onGetAvailableNetworks = Raises();
  EXPECT_THROW(wifi::EnumerateAvailableNetworks(state, delivery()), std::runtime_error);
  state.adapters->clear();
  EXPECT_EQ(wifi::EnumerateAvailableNetworks(state, delivery()), S_OK);
}

TEST_F(ScanLists, ScanListEntryByMacAddress) {
  const ListBytes<ScanListEntry> list(3, {Network("A", 1), Network("B", 2), Network("C", 2)});
  api.onGetCachedScanList = list.Getter();
  const auto get = [&](const char* mac) {
    return wifi::GetCachedScanListObject(state, delivery(), Path(OLESTR("MacAddress"), mac));
  };
  EXPECT_EQ(get("a0:0b:f8:00:00:02"), kNotFound);
  EXPECT_EQ(get("A0:0B:F8:00:00:03"), kNotFound);
  EXPECT_EQ(get("A0:0B:F8:00:00:02"), S_OK);
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->Last("NetworkName"), "text:B");
}

}  // namespace
}  // namespace testing_support
