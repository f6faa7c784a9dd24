#include "classes/association.h"

#include "provider/core/object_path.h"
#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

using Association = FillerFixture;

RecordBytes<AssociationInfoRecord> SomeAssociation() {
  RecordBytes<AssociationInfoRecord> record;
  return record.At(0, 0x100u)
      .Bytes(4, "Office")
      .Bytes(68, "Net")
      .Bytes(101, "\xAA\xBB\xCC\x0D\xEE\xFF")
      .At(112, 54000000u)
      .At(116, 1u)
      .At(120, 3u)
      .At(124, 7u)
      .At(128, 6u)
      .At(132, 7u)
      .At<std::uint8_t>(140, 255);
}

TEST_F(Association, InfoInOrder) {
  api.onGetAssociationInfo = Gives<AssociationInfoRecord>(SomeAssociation());
  EXPECT_EQ(Fill(wifi::FillAssociationInfo), S_OK);
  EXPECT_EQ(
      Puts(),
      (Lines{"Associated=flag:true", "Profile=text:Office", "SSID=text:Net", "Rate=text:54.0 Mbps",
             "OpMode=text:Infrastructure", "Encryption=text:TKIP ", "AuthenMode=text:CCX",
             "AuthenAlgorithm=text:EapFast", "AuthenEnabled=flag:true", "Channel=text:255"}));
  EXPECT_EQ(journal.traces(),
            Lines{"Getting association information for WiFi_AdapterAssociationInfo"});
}

TEST_F(Association, InfoValues) {
  struct Case {
    RecordBytes<AssociationInfoRecord> record;
    const char* property;
    std::string value;
  };
  const auto code = [](std::size_t offset, std::uint32_t value) {
    return RecordBytes<AssociationInfoRecord>().At(offset, value);
  };
  std::vector<Case> cases = {
      {code(112, 0), "Rate", "0.0 Mbps"},
      {code(112, 5500000), "Rate", "5.5 Mbps"},
      {code(112, 0xFFFFFFFF), "Rate", "4295.0 Mbps"},
      {code(0, 0).Bytes(4, "@direct@"), "Profile", " "},
      {code(0, 0).Bytes(4, "@Direct@"), "Profile", "@Direct@"},
      {code(0, 0).Bytes(4, "@direct@2"), "Profile", "@direct@2"},
      {code(0, 0), "Profile", ""},
      {code(0, 0).Fill(4, 64, 'p').Bytes(68, "ssid"), "Profile", std::string(64, 'p')},
      {code(0, 0).Fill(68, 33, 's').Bytes(101, "more"), "SSID", std::string(33, 's')},
      {code(116, 2), "OpMode", "Ad hoc"},
      {code(116, 3), "OpMode", "Unknown"},
  };
  const std::pair<std::pair<std::size_t, const char*>, std::vector<const char*>> tables[] = {
      {{124, "AuthenAlgorithm"},
       {"No Authentication", "Md5", "Leap", "Tls", "Ttls", "Peap", "EapSim", "EapFast", "Unknown"}},
      {{128, "Encryption"},
       {"Unknown", "None", "40-bit", "104-bit", "CKIP 40-bit", "CKIP 104-bit", "TKIP ", "Unknown"}},
      {{132, "AuthenMode"},
       {"Unknown", "Open", "Shared", "WPA-Enterprise", "WPA-Personal", "WPA2-Enterprise",
        "WPA2-Personal", "CCX", "Unknown"}}};
  for (const auto& [field, texts] : tables) {
    for (std::uint32_t value = 0; value < texts.size(); ++value) {
      cases.push_back({code(field.first, value), field.second, texts[value]});
    }
  }
  for (const Case& one : cases) {
    api.onGetAssociationInfo = Gives<AssociationInfoRecord>(one.record);
    Fill(wifi::FillAssociationInfo);
    EXPECT_EQ(object->Last(one.property), "text:" + one.value);
  }
}

TEST_F(Association, TheEntryKeepsTheLastAssociatedThatWasPut) {
  api.onGetAssociationInfo = Gives<AssociationInfoRecord>(SomeAssociation());
  Fill(wifi::FillAssociationInfo);
  EXPECT_EQ(Shown(entry.work.get()), "flag:true");
  api.onGetAssociationInfo = Answers(0);
  script.putResults["Associated"] = E_FAIL;
  Fill(wifi::FillAssociationInfo);
  EXPECT_EQ(Shown(entry.work.get()), "flag:true");
  script.putResults.clear();
  Fill(wifi::FillAssociationInfo);
  EXPECT_EQ(Shown(entry.work.get()), "flag:false");
}

RecordBytes<AssociationStatsRecord> SomeStats() {
  RecordBytes<AssociationStatsRecord> record;
  record.At(8, -80);
  for (std::uint32_t word = 3; word < 19; ++word) record.At(4 * word, word);
  return record.At(72, 0xFFFFFFFFu);
}

TEST_F(Association, StatsInOrder) {
  api.onGetAssociationStats = Gives<AssociationStatsRecord>(SomeStats());
  api.onGetAssociationInfo = Gives<AssociationInfoRecord>(SomeAssociation());
  EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), S_OK);
  const Lines events = journal.events();
  EXPECT_EQ(
      Lines(events.begin(), events.begin() + 8),
      (Lines{"trace Getting Association Stats for WiFi_AdapterAssocStats",
             "call GetAssociationStats", "spawn WiFi_AdapterAssocStats", "trace FillAssocStats",
             "put SettingID", "trace Getting association information for WiFi_AdapterAssocStats",
             "call GetAssociationInfo", "put ApMacAddr"}));
  EXPECT_EQ(events.back(), "indicate");
  ASSERT_EQ(sink->objects.size(), 1u);
  EXPECT_EQ(sink->objects[0]->ShownPuts(),
            (Lines{"SettingID=text:7", "ApMacAddr=text:AA:BB:CC:0D:EE:FF", "Rssi=text:-80 dBm",
                   "NumAps=number:3", "NumAssociations=number:4", "NumFullScans=number:5",
                   "NumPartialScans=number:6", "RoamCount=number:7", "ApDidNotTx=number:8",
                   "PoorBeaconQuality=number:9", "LoadBalancing=number:10", "LowRssi=number:11",
                   "PoorChannelQuality=number:12", "DroppedByAp=number:13", "RxBeacons=number:14",
                   "TxRetries=number:15", "PercentTxErrs=number:16", "CrcErrs=number:17",
                   "PercentMissedBeacons=number:-1"}));
}

TEST_F(Association, StatsAddressFollowsTheMode) {
  const auto address = [&] {
    sink->objects.clear();
    EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), S_OK);
    return sink->objects.at(0)->Last("ApMacAddr");
  };
  const std::pair<std::uint32_t, const char*> cases[] = {
      {0, "text:"}, {2, "text:00:00:00:00:00:00"}, {3, "text:"}};
  for (const auto& [mode, text] : cases) {
    api.onGetAssociationInfo = Gives<AssociationInfoRecord>(SomeAssociation().At(116, mode));
    EXPECT_EQ(address(), text);
  }
  api.onGetAssociationInfo = Gives<AssociationInfoRecord>(SomeAssociation(), 1);
  EXPECT_EQ(address(), "text:");
  api.onGetAssociationInfo = Raises();
  EXPECT_EQ(address(), "text:");
  EXPECT_TRUE(journal.Has("exception Exception from Quarn API GetAssociationInfo"));
}

TEST_F(Association, StatsOutcomes) {
  AddAdapter("8", 80);
  script.putResults = {{"SettingID", E_FAIL}, {"CrcErrs", E_FAIL}};
  EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), S_OK);
  EXPECT_EQ(sink->objects.size(), 2u);
  script.putResults.clear();
  script.indicateResults = {{3, 1}};  // a success code does not end the walk
  EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), S_OK);
  EXPECT_EQ(sink->objects.size(), 4u);
  script.putResults = {{"PercentMissedBeacons", E_FAIL}};
  EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), E_FAIL);
  EXPECT_EQ(sink->objects.size(), 4u);
  api.onGetAssociationStats = Answers(-1);
  journal.Clear();
  EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), WBEM_E_NOT_FOUND);
  EXPECT_EQ(journal.calls(), Lines{"GetAssociationStats"});
  api.onGetAssociationStats = Raises();
  EXPECT_THROW(wifi::EnumerateAssociationStats(state, delivery()), std::runtime_error);
}

TEST_F(Association, StatsByKey) {
  wifi::ParsedPath path;
  EXPECT_EQ(wifi::GetAssociationStatsObject(state, delivery(), path), WBEM_E_NOT_FOUND);
  EXPECT_TRUE(journal.events().empty());
  path.AddKey(OLESTR("SettingID"), platform::Variant::AnsiText("7").get());
  EXPECT_EQ(wifi::GetAssociationStatsObject(state, delivery(), path), S_OK);
  EXPECT_EQ(journal.traces().front(), "Getting network information for WiFi_AdapterAssocStats");
  EXPECT_EQ(sink->objects.size(), 1u);
}

}  // namespace
}  // namespace testing_support
