#include "classes/adapter_description.h"

#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

using AdapterDescription = FillerFixture;

TEST_F(AdapterDescription, DeviceShowsItsIds) {
  api.onGetDeviceInfo = Gives<DeviceInfoRecord>(RecordBytes<DeviceInfoRecord>()
                                                    .At<std::uint16_t>(6, 0x8AB)
                                                    .At<std::uint16_t>(8, 0x4220)
                                                    .At<std::uint16_t>(10, 0x8086)
                                                    .At<std::uint16_t>(12, 0xFFFF)
                                                    .At<std::uint8_t>(14, 0x1A)
                                                    .At<std::uint16_t>(16, 9)
                                                    .At<std::uint32_t>(20, 8));
  EXPECT_EQ(Fill(wifi::FillAdapterDevice), S_OK);
  EXPECT_EQ(journal.events(),
            (Lines{"put SettingID", "trace Getting device information for WiFi_AdapterDevice",
                   "call GetDeviceInfo", "put MacAddress", "put VendorID", "put DeviceID",
                   "put SubsystemID", "put SubSystemVendorID", "put RevisionID", "put HardwareID",
                   "put CardType"}));
  EXPECT_EQ(Puts(),
            (Lines{"MacAddress=text:00:A0:F8:00:00:01", "VendorID=text:08AB", "DeviceID=text:4220",
                   "SubsystemID=text:FFFF", "SubSystemVendorID=text:8086", "RevisionID=text:26",
                   "HardwareID=text:0009", "CardType=text:Embedded USB"}));
}

TEST_F(AdapterDescription, CardTypeIsOneWholeBit) {
  const std::pair<std::uint32_t, const char*> cases[] = {
      {0, "Unknown"},     {1, "Cardbus"},        {2, "PCI"},     {3, "Unknown"},  {4, "MiniPCI"},
      {16, "Dongle USB"}, {32, "Compact Flash"}, {64, "PCMCIA"}, {128, "Unknown"}};
  for (const auto& [code, text] : cases) {
    api.onGetDeviceInfo =
        Gives<DeviceInfoRecord>(RecordBytes<DeviceInfoRecord>().At<std::uint32_t>(20, code));
    Fill(wifi::FillAdapterDevice);
    EXPECT_EQ(object->Last("CardType"), std::string("text:") + text) << code;
  }
}

ConfigInfoRecord SomeConfig() {
  return RecordBytes<ConfigInfoRecord>()
      .At<std::int32_t>(0, 11)
      .At<std::uint32_t>(4, 0xE000)
      .At<std::uint32_t>(8, 0xFEDC0000)
      .At<std::int32_t>(12, -1)
      .At<std::uint32_t>(16, 0xAB)
      .At<std::int32_t>(20, 4096)
      .At<std::uint32_t>(24, 1)
      .At<std::uint32_t>(28, 0x2F)
      .At<std::uint32_t>(32, 2)
      .At<std::uint16_t>(40, 0xFFFF)
      .record();
}

TEST_F(AdapterDescription, ConfigSettingsShowTheResources) {
  api.onGetAdapterConfiguration = Gives(SomeConfig());
  EXPECT_EQ(Fill(wifi::FillConfigSettings), S_OK);
  EXPECT_EQ(journal.traces(), Lines{"Getting version information for WiFi_AdapterConfigSettings"});
  EXPECT_EQ(Puts(), (Lines{"InterruptNumber=text:11", "IOAddress=text:0000E000",
                           "MemoryAddress=text:FEDC0000", "MemorySize=text:-1",
                           "AttributeMemoryAddress=text:000000AB", "AttriuteMemorySize=text:4096",
                           "ControllerIOAddress=text:00000001", "PacketFilterMask=text:0000002F",
                           "AddressingMode=text:I/O", "SocketNumber=number:65535"}));
}

TEST_F(AdapterDescription, VersionTextsEndAtTheirFields) {
  RecordBytes<VersionInfoRecord> record;
  record.Bytes(4, "driver 1.2").Fill(36, 32, 'a').Bytes(68, "b").Bytes(100, "g");
  api.onGetVersionInfo = Gives<VersionInfoRecord>(
      record.Bytes(132, "ma").Bytes(164, "mb").Bytes(196, "mg").Fill(228, 32, 'e'));
  EXPECT_EQ(Fill(wifi::FillAdapterVersion), S_OK);
  EXPECT_EQ(journal.traces(), Lines{"Getting version information for WiFi_AdapterVersion"});
  EXPECT_EQ(Puts(), (Lines{"Driver=text:driver 1.2", "Firmware11a=text:" + std::string(32, 'a'),
                           "Firmware11b=text:b", "Firmware11g=text:g", "Microcode11a=text:ma",
                           "Microcode11b=text:mb", "Microcode11g=text:mg",
                           "EEPROM=text:" + std::string(32, 'e')}));
}

TEST_F(AdapterDescription, EachFeatureHasItsOwnFlag) {
  const std::pair<std::size_t, const char*> cases[] = {
      {0, "AntennaDiversity"},  {4, "BeaconInterval"}, {8, "FragThreshold"},  {12, "RtsThreshold"},
      {16, "SweepTable"},       {20, "ApTable"},       {24, "PeerTable"},     {28, "RadioState"},
      {32, "Preamble"},         {36, "Qos"},           {112, "PowerMode"},    {116, "AutoPsp"},
      {120, "PowerSource"},     {124, "BssTxPwrCtl"},  {128, "IbssTxPwrCtl"}, {132, "Wep"},
      {136, "Security_802_1x"}, {140, "Leap"},         {144, "Tkip"},         {148, "Aes"},
      {152, "HwRadioSwitch"}};
  for (const auto& [offset, supported] : cases) {
    api.onGetAdapterFeatures =
        Gives<FeaturesRecord>(RecordBytes<FeaturesRecord>().At<std::uint32_t>(offset, 2));
    EXPECT_EQ(Fill(wifi::FillAdapterFeatures), S_OK);
    Lines expected;
    for (const auto& [unused, property] : cases) {
      expected.push_back(property + std::string(property == supported ? "=text:Yes" : "=text:No"));
    }
    EXPECT_EQ(Puts(), expected);
  }
  EXPECT_EQ(journal.traces(),
            Lines{"Getting adapter features information for WiFi_AdapterSignalParameters"});
}

}  // namespace
}  // namespace testing_support
