// What every filler of one guarded record does when the library refuses or throws, and when puts
// fail: the rules in which the classes deliberately differ.

#include "adapterapi/codes.h"
#include "classes/adapter_channel.h"
#include "classes/adapter_class.h"
#include "classes/adapter_description.h"
#include "classes/association.h"
#include "classes/network_adapter.h"
#include "classes/signal_parameters.h"
#include "classes/statistics.h"
#include "classes/tcpip_settings.h"
#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

constexpr HRESULT kNotFound = WBEM_E_NOT_FOUND;

struct Rule {
  const char* name;
  Filler fill;
  const char* operation;
  void (*answer)(FakeAdapterApi&, ApiStatus);
  void (*raise)(FakeAdapterApi&);  ///< after writing into the record
  HRESULT refused[2];              ///< the result if the library returns 5 and -5
  std::size_t puts;                ///< for an empty record, including the key
  const char* sample;              ///< one of these puts
  bool directKey;                  ///< the key is put without a fence

  friend void PrintTo(const Rule& rule, std::ostream* out) { *out << rule.name; }
};

/// What the library wrote before it threw is ignored. It gets a cleared record, which may contain
/// its size.
ApiStatus RaiseAfterWriting(void* record, std::size_t size) {
  const auto* bytes = static_cast<const char*>(record);
  EXPECT_LE(std::count_if(bytes, bytes + size, [](char byte) { return byte != 0; }), 2);
  std::memset(record, 0xEE, size);
  throw std::runtime_error("library fault");
}

// clang-format off
#define OPERATION(name)                                                                            \
  .operation = #name,                                                                              \
  .answer = [](FakeAdapterApi& api, ApiStatus status) { api.on##name = Answers(status); },         \
  .raise = [](FakeAdapterApi& api) {                                                               \
    api.on##name = [](auto, auto* record) { return RaiseAfterWriting(record, sizeof(*record)); }; \
  }

const Rule kRules[] = {
    {.name = "Association", .fill = wifi::FillAssociationInfo, OPERATION(GetAssociationInfo), .refused = {S_OK, S_OK}, .puts = 11,
     .sample = "AuthenAlgorithm=text:No Authentication", .directKey = false},
    {.name = "Version", .fill = wifi::FillAdapterVersion, OPERATION(GetVersionInfo), .refused = {5, -5}, .puts = 9,
     .sample = "EEPROM=text:", .directKey = false},
    {.name = "Device", .fill = wifi::FillAdapterDevice, OPERATION(GetDeviceInfo), .refused = {5, -5}, .puts = 9,
     .sample = "CardType=text:Unknown", .directKey = true},
    {.name = "Config", .fill = wifi::FillConfigSettings, OPERATION(GetAdapterConfiguration), .refused = {5, -5}, .puts = 11,
     .sample = "AddressingMode=text:Unknown", .directKey = true},
    {.name = "Signal", .fill = wifi::FillSignalParameters, OPERATION(GetSignalParameters), .refused = {kNotFound, kNotFound}, .puts = 6,
     .sample = "RSSI=text:0", .directKey = true},
    {.name = "Channel", .fill = wifi::FillAdapterChannel, OPERATION(GetChannelInfo), .refused = {5, -5}, .puts = 7,
     .sample = "ChannelB_Options=text:", .directKey = true},
    {.name = "Features", .fill = wifi::FillAdapterFeatures, OPERATION(GetAdapterFeatures), .refused = {5, -5}, .puts = 22,
     .sample = "HwRadioSwitch=text:No", .directKey = true},
    {.name = "TcpIp", .fill = wifi::FillTcpIpSettings, OPERATION(GetTcpipConfigInfo), .refused = {5, -5}, .puts = 14,
     .sample = "DHCP_IP=flag:false", .directKey = true},
    {.name = "TcpIpv6", .fill = wifi::FillTcpIpv6Settings, OPERATION(GetTcpipv6ConfigInfo), .refused = {kNotFound, kNotFound}, .puts = 14,
     .sample = "IPAddress=text:", .directKey = true},
};
// clang-format on
#undef OPERATION
static_assert(
    std::size(kRules) + 1 == static_cast<std::size_t>(wifi::ClassSelector::kEnd),
    "each class of classes/adapter_class.h but WiFi_NetworkAdapter needs its row in kRules, "
    "tests/classes/record_class_test.cpp");

class RecordRules : public FillerFixture, public ::testing::WithParamInterface<Rule> {};

TEST_P(RecordRules, ARefusalLeavesTheKeyAlone) {
  const Rule& rule = GetParam();
  for (const int index : {0, 1}) {
    rule.answer(api, index == 0 ? 5 : -5);
    EXPECT_EQ(Fill(rule.fill), rule.refused[index]);
    EXPECT_EQ(Attempts(), Lines{"SettingID"});
    EXPECT_EQ(journal.calls(), Lines{rule.operation});
  }
  EXPECT_EQ(journal.Has("trace error in getting the IPv6 value "),
            rule.operation == std::string("GetTcpipv6ConfigInfo"));
}

TEST_P(RecordRules, AnExceptionFillsFromTheClearedRecord) {
  const Rule& rule = GetParam();
  rule.raise(api);
  DirtyStack();
  EXPECT_EQ(Fill(rule.fill), S_OK);
  EXPECT_EQ(journal.Of("exception "),
            Lines{std::string("Exception from Quarn API ") + rule.operation});
  const Lines puts = object->ShownPuts();
  EXPECT_EQ(puts.size(), rule.puts);
  EXPECT_EQ(std::count(puts.begin(), puts.end(), rule.sample), 1);
}

TEST_P(RecordRules, AFailingKeyCountsOnlyWhenTheLibraryThrows) {
  const Rule& rule = GetParam();
  script.putResults["SettingID"] = -9;
  EXPECT_EQ(Fill(rule.fill), S_OK);
  EXPECT_EQ(Attempts().size(), rule.puts);
  rule.raise(api);
  const HRESULT result = Fill(rule.fill);
  EXPECT_EQ(result, rule.refused[0] == 5 ? -9 : rule.refused[0]);
  EXPECT_EQ(Attempts(), Lines{"SettingID"});
}

TEST_P(RecordRules, OnlyADirectKeyLetsAnExceptionOut) {
  script.putThrows = "SettingID";
  if (GetParam().directKey) {
    EXPECT_THROW(Fill(GetParam().fill), std::runtime_error);
  } else {
    EXPECT_EQ(Fill(GetParam().fill), S_OK);
    EXPECT_EQ(Attempts().size(), GetParam().puts);
  }
}

INSTANTIATE_TEST_SUITE_P(Fillers, RecordRules, ::testing::ValuesIn(kRules),
                         [](const auto& rule) { return std::string(rule.param.name); });

TEST_F(FillerFixture, WhatTheLibraryLeavesAloneIsZero) {
  DirtyStack();
  EXPECT_EQ(wifi::EnumerateStatistics(state, delivery()), S_OK);
  EXPECT_EQ(sink->objects.back()->Last("RxNonDirectPackets"), "text:0");
  DirtyStack();
  EXPECT_EQ(wifi::EnumerateAssociationStats(state, delivery()), S_OK);
  EXPECT_EQ(sink->objects.back()->Last("CrcErrs"), "number:0");
  api.onGetAssociationInfo = [](auto, AssociationInfoRecord* record) {
    record->opMode = adapterapi::codes::kInfrastructure;
    return 0;
  };
  DirtyStack();
  wifi::EnumerateAssociationStats(state, delivery());
  EXPECT_EQ(sink->objects.back()->Last("ApMacAddr"), "text:00:00:00:00:00:00");
  DirtyStack();
  Fill(wifi::FillNetworkAdapter);
  EXPECT_EQ(object->Last("PSPMode"), "number:0");
  EXPECT_EQ(object->Last("CcxVersion"), "text:0.0.0");
}

struct FailingPut {
  Filler fill;
  const char* property;
  std::size_t attempts;  ///< attempted puts, including the key
  HRESULT result;
};

TEST_F(FillerFixture, WhichPutsFollowAFailingOne) {
  const FailingPut cases[] = {
      {wifi::FillAdapterDevice, "MacAddress", 2, E_FAIL},
      {wifi::FillAdapterDevice, "RevisionID", 7, E_FAIL},
      {wifi::FillAdapterVersion, "Firmware11a", 3, E_FAIL},
      {wifi::FillAdapterFeatures, "AntennaDiversity", 22, S_OK},
      {wifi::FillAdapterFeatures, "HwRadioSwitch", 22, E_FAIL},
      {wifi::FillConfigSettings, "MemoryAddress", 5, S_OK},
      {wifi::FillConfigSettings, "AddressingMode", 11, S_OK},
      {wifi::FillConfigSettings, "SocketNumber", 11, E_FAIL},
      {wifi::FillAdapterChannel, "ChannelA", 7, S_OK},
      {wifi::FillAdapterChannel, "ChannelB_Options", 7, E_FAIL},
      {wifi::FillSignalParameters, "SignalQuality", 2, E_FAIL},
      {wifi::FillAssociationInfo, "Associated", 2, E_FAIL},
      {wifi::FillAssociationInfo, "Rate", 5, E_FAIL},
      {wifi::FillTcpIpSettings, "DHCP_IP", 14, S_OK},
      {wifi::FillTcpIpSettings, "DNS", 14, S_OK},
      {wifi::FillTcpIpSettings, "DHCP_WINS", 4, E_FAIL},
      {wifi::FillTcpIpv6Settings, "DNS", 14, S_OK},
      {wifi::FillTcpIpv6Settings, "Domain", 13, E_FAIL},
  };
  for (const FailingPut& failing : cases) {
    script.putResults = {{failing.property, E_FAIL}};
    EXPECT_EQ(Fill(failing.fill), failing.result) << failing.property;
    EXPECT_EQ(Attempts().size(), failing.attempts) << failing.property;
  }
}

}  // namespace
}  // namespace testing_support
