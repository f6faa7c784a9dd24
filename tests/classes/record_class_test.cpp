// What every filler of one guarded record does when the library refuses or throws, and when puts
// fail: the rules that the classes deliberately do not share.

#include "classes/adapter_channel.h"
#include "classes/adapter_description.h"
#include "classes/association.h"
#include "classes/signal_parameters.h"
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
  HRESULT refused[2];              ///< the result when the library answers 5 and -5
  std::size_t puts;                ///< of an empty record, with the key
  const char* sample;              ///< one of them
  bool directKey;                  ///< the key's put has no fence
};

/// What the library wrote before it threw does not count.
ApiStatus RaiseAfterWriting(void* record, std::size_t size) {
  std::memset(record, 0xEE, size);
  throw std::runtime_error("library fault");
}

// clang-format off
#define OPERATION(name)                                                                   \
  #name, [](FakeAdapterApi& api, ApiStatus status) { api.on##name = Answers(status); },  \
  [](FakeAdapterApi& api) {                                                              \
    api.on##name = [](auto, auto* record) { return RaiseAfterWriting(record, sizeof(*record)); }; \
  }

const Rule kRules[] = {
    {"Association", wifi::FillAssociationInfo, OPERATION(GetAssociationInfo), {S_OK, S_OK}, 11,
     "AuthenAlgorithm=text:No Authentication", false},
    {"Version", wifi::FillAdapterVersion, OPERATION(GetVersionInfo), {5, -5}, 9,
     "EEPROM=text:", false},
    {"Device", wifi::FillAdapterDevice, OPERATION(GetDeviceInfo), {5, -5}, 9,
     "CardType=text:Unknown", true},
    {"Config", wifi::FillConfigSettings, OPERATION(GetAdapterConfiguration), {5, -5}, 11,
     "AddressingMode=text:Unknown", true},
    {"Signal", wifi::FillSignalParameters, OPERATION(GetSignalParameters), {kNotFound, kNotFound}, 6,
     "RSSI=text:0", true},
    {"Channel", wifi::FillAdapterChannel, OPERATION(GetChannelInfo), {5, -5}, 7,
     "ChannelB_Options=text:", true},
    {"Features", wifi::FillAdapterFeatures, OPERATION(GetAdapterFeatures), {5, -5}, 22,
     "HwRadioSwitch=text:No", true},
    {"TcpIp", wifi::FillTcpIpSettings, OPERATION(GetTcpipConfigInfo), {5, -5}, 14,
     "DHCP_IP=flag:false", true},
    {"TcpIpv6", wifi::FillTcpIpv6Settings, OPERATION(GetTcpipv6ConfigInfo), {kNotFound, kNotFound}, 14,
     "IPAddress=text:", true},
};
// clang-format on
#undef OPERATION

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

struct FailingPut {
  Filler fill;
  const char* property;
  std::size_t attempts;  ///< puts attempted, with the key
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
