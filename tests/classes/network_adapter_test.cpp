#include "classes/network_adapter.h"

#include <cstring>

#include "tests/support/os_version.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using testing_support::Answers;
using testing_support::FakeObject;
using testing_support::Gives;
using testing_support::OsVersionNotNt6;
using testing_support::Raises;
using testing_support::StateFixture;
using Strings = std::vector<std::string>;

class NetworkAdapter : public StateFixture {
 protected:
  NetworkAdapter() { AddAdapter("7", 42); }

  /// Fills a new instance and keeps it.
  HRESULT Fill() {
    object = MakeObject();
    return FillNetworkAdapter(state, object.get(), state.adapters->at("7"));
  }
  std::string Value(const std::string& property) {
    Fill();
    return object->Last(property);
  }

  platform::ComPtr<FakeObject> object;
};

/// Getters with distinctive values.
void SetBelievable(testing_support::FakeAdapterApi& api) {
  api.onGetAdapterType = Gives(3u);
  api.onGetBand = Gives(3u);
  api.onGetRadioState = Gives(2u);
  api.onGetRegistrationState = Gives(1u);
  api.onGetAssociationStatus = Gives(1u);
  api.onGetReadyForProfileState = Gives(1u);
  api.onGetIbssTxPower = Gives(4u);
  api.onGetSupportedRates = Gives(0x27u);
  api.onGetPspInfo = [](auto, adapterapi::PspInfoRecord* record) {
    record->mode = 5;
    return 0;
  };
  api.onGetHwRadioState = Gives(1u);
  api.onGetAuthenticationStatus = Gives(4u);
  api.onGetTxRate = Gives(-54);
  api.onGetAdapterState = Gives(1u);
  api.onGetProtocolPreference = Gives(7u);
  api.onGetConnectionPreference = Gives(2u);
  api.onIsXpZeroConfigEnabled = Gives(0u);
  api.onGetCcxTpcPower = Gives(-3);
  api.onGetCcxVersion = [](auto, adapterapi::CcxVersionRecord* record) {
    *record = {4, 200, 7, {}};
    return 0;
  };
  api.onGetCcxPowerLevels = [](auto, adapterapi::CcxPowerLevelsRecord* record) {
    record->count = 3;
    record->levels[0] = 10;
    record->levels[1] = 20;
    record->levels[2] = -7;
    return 1;  // only a negative status fails
  };
  api.onGetLastAppliedProfile = [](auto, ORVEL_WLAN_PROFILE* profile) {
    std::strcpy(reinterpret_cast<char*>(profile->bytes) + 4, "B\xFCro");
    return 1;
  };
  api.onGetSettingValue = [](std::uint32_t setting, std::uint32_t* value) {
    *value = setting == 426 ? 9u : 0u;
    return 0;
  };
}

TEST_F(NetworkAdapter, PutsEveryRowInOrder) {
  const OsVersionNotNt6 version;
  SetBelievable(api);
  EXPECT_EQ(Fill(), S_OK);
  EXPECT_EQ(object->ShownPuts(), (Strings{"DeviceID=text:7",
                                          "WiFiAdapterType=text:Peldra2 abg",
                                          "Band=text:802.11g",
                                          "RadioState=flag:true",
                                          "RegistrationState=flag:true",
                                          "AssociationStatus=text:Associated",
                                          "ReadyForProfileState=flag:true",
                                          "IBSSTxPower=number:4",
                                          "SupportedRates=text:1, 2, 5.5, 11, ",
                                          "PSPMode=number:5",
                                          "HardwareRadioState=flag:true",
                                          "AuthenticationStatus=text:Authenticated",
                                          "TxRate=text:-54",
                                          "AdapterState=flag:true",
                                          "ProtocolPreference=number:7",
                                          "ConnectionPreference=number:2",
                                          "XpZeroConfigEnabled=flag:false",
                                          "CcxTpcPower=text:-3",
                                          "CcxVersion=text:4.200.7",
                                          "CcxPowerLevels=text:10.0, 100.0, 0.2 mW",
                                          "LastAppliedProfile=text:B\xC3\xBCro",
                                          "ProtocolPreference=number:7",
                                          "ConnectionPreference=number:2",
                                          "DisableRfControl=flag:true"}));
  const LastKnownValues& cache = state.memory.lastKnown;
  EXPECT_EQ(cache.radioState, 2u);  // the raw number, not a boolean
  EXPECT_EQ(cache.readyForProfileState, 1u);
  EXPECT_EQ(cache.ibssTxPower, 4u);
  EXPECT_EQ(cache.pspMode, 5u);
  EXPECT_EQ(cache.adapterState, 1u);
  EXPECT_EQ(cache.protocolPreference, 7u);
  EXPECT_EQ(cache.connectionPreference, 2u);
  EXPECT_EQ(cache.xpZeroConfigEnabled, 0u);
  EXPECT_EQ(cache.disableRfControl, 9u);

  // Each trace line comes before its call, and the call before its put.
  EXPECT_EQ(Strings(journal.events().begin(), journal.events().begin() + 6),
            (Strings{"trace Filling adapter information for WiFi_NetworkAdapter", "trace 7",
                     "put DeviceID", "trace Getting adapter type for WiFi_NetworkAdapter",
                     "call GetAdapterType", "put WiFiAdapterType"}));
  EXPECT_EQ(journal.traces(),
            (Strings{"Filling adapter information for WiFi_NetworkAdapter",
                     "7",
                     "Getting adapter type for WiFi_NetworkAdapter",
                     "Getting band for WiFi_NetworkAdapter",
                     "Getting radio state for WiFi_NetworkAdapter",
                     "Getting registration state for WiFi_NetworkAdapter",
                     "Getting association information for WiFi_NetworkAdapter",
                     "Getting ready for profile state for WiFi_NetworkAdapter",
                     "Getting IBSS Tx Power for WiFi_NetworkAdapter",
                     "Getting supported rates for WiFi_NetworkAdapter",
                     "Getting PSP Mode for WiFi_NetworkAdapter",
                     "Getting hardware registration state for WiFi_NetworkAdapter",
                     "Getting AuthenticationStatus for WiFi_NetworkAdapter",
                     "Getting Tx Rate for WiFi_NetworkAdapter",
                     "Getting adapter state for WiFi_NetworkAdapter",
                     "Getting ProtocolPreference for WiFi_NetworkAdapter",
                     "Getting ConnectionPreference for WiFi_NetworkAdapter",
                     "Getting XpZeroConfigEnabled for WiFi_NetworkAdapter",
                     "Getting CcxTpcPower for WiFi_NetworkAdapter",
                     "Getting CcxVersion for WiFi_NetworkAdapter",
                     "Getting CcxPowerLevels for WiFi_NetworkAdapter",
                     "Getting LastAppliedProfile for WiFi_NetworkAdapter",
                     "Getting band preference for WiFi_SystemPolicies",
                     "Getting connection preference for WiFi_SystemPolicies",
                     "Getting DisableRfControl for WiFi_NetworkAdapter"}));
}

TEST_F(NetworkAdapter, LeavesFourPropertiesOutOnNt6) {
  // The version query's own answer, natively and under Wine.
  SetBelievable(api);
  state.memory.lastKnown.adapterState = 77;
  EXPECT_EQ(Fill(), S_OK);
  for (const char* property :
       {"RegistrationState", "ReadyForProfileState", "AdapterState", "ProtocolPreference"}) {
    EXPECT_EQ(object->Last(property), "") << property;
  }
  EXPECT_EQ(object->puts.size(), 24u - 5u);
  EXPECT_EQ(state.memory.lastKnown.adapterState, 77u);
  EXPECT_FALSE(journal.Has("call GetProtocolPreference"));
  EXPECT_FALSE(journal.Has("trace Getting band preference for WiFi_SystemPolicies"));
}

TEST_F(NetworkAdapter, TextsOfCodes) {
  const struct {
    const char* property;
    std::uint32_t code;
    const char* text;
  } rows[] = {
      {"WiFiAdapterType", 0, "<Unknown>"},
      {"WiFiAdapterType", 1, "Peldra1"},
      {"WiFiAdapterType", 2, "Peldra2 bg"},
      {"WiFiAdapterType", 4, "Vorny"},
      {"WiFiAdapterType", 5, "<Unknown>"},
      {"WiFiAdapterType", 7, "<Unknown>"},
      {"WiFiAdapterType", 8, "Tusko"},
      {"Band", 0, "<Unknown>"},
      {"Band", 1, "802.11a"},
      {"Band", 2, "802.11b"},
      {"Band", 4, "<Unknown>"},
      {"AssociationStatus", 0, "<Unknown>"},
      {"AssociationStatus", 2, "NotAssociated"},
      {"AssociationStatus", 3, "Ibss Created"},
      {"AssociationStatus", 4, "Ibss Joined"},
      {"AssociationStatus", 5, "Roamed"},
      {"AssociationStatus", 6, "<Unknown>"},
      {"AuthenticationStatus", 0, "<Unknown>"},
      {"AuthenticationStatus", 1, "Disconnected"},
      {"AuthenticationStatus", 2, "Authenticating"},
      {"AuthenticationStatus", 3, "Failed authentication"},
      {"AuthenticationStatus", 5, "<Unknown>"},
      {"SupportedRates", 0, ""},
      {"SupportedRates", 0x1FFF, "1, 2, 5.5, 6, 9, 11, 12, 18, 24, 36, 48, 54, "},
      {"SupportedRates", 0xFFFFE100, ""},
  };
  for (const auto& row : rows) {
    api.onGetAdapterType = api.onGetBand = api.onGetAssociationStatus =
        api.onGetAuthenticationStatus = api.onGetSupportedRates = Gives(row.code);
    EXPECT_EQ(Value(row.property), "text:" + std::string(row.text))
        << row.property << " " << row.code;
  }
  const char* const rates[] = {"1, ",  "2, ", "5.5, ", "6, ",  "9, ",  "11, ", "12, ",
                               "18, ", "",    "24, ",  "36, ", "48, ", "54, "};
  for (std::uint32_t bit = 0; bit < std::size(rates); ++bit) {
    api.onGetSupportedRates = Gives(1u << bit);
    EXPECT_EQ(Value("SupportedRates"), std::string("text:") + rates[bit]);
  }
}

TEST_F(NetworkAdapter, FailingAndRaisingGetters) {
  const OsVersionNotNt6 version;
  // The value if the getter returns 5 with its output written, and if it raises an exception.
  const struct {
    const char* property;
    const char* operation;
    const char* onPositiveStatus;
    const char* onNegativeStatus;
    const char* onException;
  } rows[] = {
      {"WiFiAdapterType", "GetAdapterType", "text:Peldra2 abg", "text:Peldra2 abg",
       "text:<Unknown>"},
      {"Band", "GetBand", "text:802.11g", "text:802.11g", "text:<Unknown>"},
      {"RadioState", "GetRadioState", "flag:true", "flag:true", "flag:false"},
      {"RegistrationState", "GetRegistrationState", "flag:true", "flag:true", "flag:false"},
      {"AssociationStatus", "GetAssociationStatus", "text:Associated", "text:Associated",
       "text:<Unknown>"},
      {"ReadyForProfileState", "GetReadyForProfileState", "flag:true", "flag:true", "flag:false"},
      {"IBSSTxPower", "GetIbssTxPower", "number:0", "number:0", "number:0"},
      {"SupportedRates", "GetSupportedRates", "text:", "text:", "text:"},
      {"PSPMode", "GetPspInfo", "number:0", "number:0", "number:0"},
      {"HardwareRadioState", "GetHwRadioState", "flag:true", "flag:true", "flag:false"},
      {"AuthenticationStatus", "GetAuthenticationStatus", "text:<Unknown>", "text:<Unknown>",
       "text:<Unknown>"},
      {"TxRate", "GetTxRate", "text:-54", "text:-54", "text:0"},
      {"AdapterState", "GetAdapterState", "flag:true", "flag:true", "flag:false"},
      {"XpZeroConfigEnabled", "IsXpZeroConfigEnabled", "flag:true", "flag:true", "flag:false"},
      {"CcxTpcPower", "GetCcxTpcPower", "text:-3", "text:-3", "text:0"},
      {"CcxVersion", "GetCcxVersion", "text:4.200.7", "text:0.0.0", "text:0.0.0"},
      {"CcxPowerLevels", "GetCcxPowerLevels", "text:10.0 mW", "text:0.0.0", "text:0.0.0"},
      {"LastAppliedProfile", "GetLastAppliedProfile", "text:P", "text:", "text:"},
  };
  const auto setAll = [this](int status, bool raises) {
    const auto outcome = [status, raises]() {
      if (raises) throw 1;
      return status;
    };
    const auto scalar = [outcome](auto value) {
      return [outcome, value](auto, auto* output) {
        *output = value;
        return outcome();
      };
    };
    api.onGetAdapterType = api.onGetBand = scalar(3u);
    api.onGetRadioState = api.onGetRegistrationState = api.onGetReadyForProfileState =
        api.onGetHwRadioState = api.onGetAdapterState = api.onIsXpZeroConfigEnabled =
            api.onGetAssociationStatus = api.onGetAuthenticationStatus = scalar(1u);
    api.onGetIbssTxPower = api.onGetSupportedRates = scalar(3u);
    api.onGetTxRate = scalar(-54);
    api.onGetCcxTpcPower = scalar(-3);
    api.onGetPspInfo = [outcome](auto, auto* record) {
      record->mode = 5;
      return outcome();
    };
    api.onGetCcxVersion = scalar(adapterapi::CcxVersionRecord{4, 200, 7, {}});
    api.onGetCcxPowerLevels = [outcome](auto, auto* record) {
      record->count = 1;
      record->levels[0] = 10;
      return outcome();
    };
    api.onGetLastAppliedProfile = [outcome](auto, auto* profile) {
      profile->bytes[4] = 'P';
      return outcome();
    };
  };
  setAll(5, false);
  ASSERT_EQ(Fill(), S_OK);
  for (const auto& row : rows) {
    EXPECT_EQ(object->Last(row.property), row.onPositiveStatus) << row.property;
  }
  setAll(-5, false);
  ASSERT_EQ(Fill(), S_OK);
  for (const auto& row : rows) {
    EXPECT_EQ(object->Last(row.property), row.onNegativeStatus) << row.property;
  }
  setAll(0, true);
  journal.Clear();
  ASSERT_EQ(Fill(), S_OK);
  for (const auto& row : rows) {
    EXPECT_EQ(object->Last(row.property), row.onException) << row.property;
    EXPECT_TRUE(journal.Has("exception Exception from Quarn API " + std::string(row.operation)));
  }
}

TEST_F(NetworkAdapter, PutsThePreferencesTwiceAndGuardsOnlyTheFirstPass) {
  const OsVersionNotNt6 version;
  // A failing status: 0 first, then the value that the library left.
  api.onGetProtocolPreference = Gives(6u, 1);
  api.onGetConnectionPreference = Gives(3u, 1);
  ASSERT_EQ(Fill(), S_OK);
  Strings preferences;
  for (const std::string& put : object->ShownPuts()) {
    if (put.find("Preference") != std::string::npos) preferences.push_back(put);
  }
  EXPECT_EQ(preferences, (Strings{"ProtocolPreference=number:0", "ConnectionPreference=number:0",
                                  "ProtocolPreference=number:6", "ConnectionPreference=number:3"}));
  EXPECT_EQ(state.memory.lastKnown.protocolPreference, 0u);

  int calls = 0;
  api.onGetConnectionPreference = [&](auto, auto*) -> adapterapi::ApiStatus { throw ++calls; };
  EXPECT_THROW(Fill(), int);
  EXPECT_EQ(calls, 2);
}

TEST_F(NetworkAdapter, LeavesDisableRfControlOutWhenItCannotBeRead) {
  state.memory.lastKnown.disableRfControl = 9;
  api.onGetSettingValue = Answers(1);
  EXPECT_EQ(Value("DisableRfControl"), "");
  EXPECT_TRUE(journal.Has("trace FillAdapter: Failed to Get DisableRfControl"));
  EXPECT_EQ(state.memory.lastKnown.disableRfControl, 0u);
  for (const std::uint32_t flag : {0u, 1u, 2u}) {
    api.onGetSettingValue = Gives(flag);
    EXPECT_EQ(Value("DisableRfControl"), flag == 0 ? "flag:false" : "flag:true");
    EXPECT_EQ(state.memory.lastKnown.disableRfControl, flag);
  }
}

TEST_F(NetworkAdapter, StopsAtTheFirstFailedPut) {
  SetBelievable(api);
  script.putResults["Band"] = WBEM_E_TYPE_MISMATCH;
  EXPECT_EQ(Fill(), WBEM_E_TYPE_MISMATCH);
  EXPECT_EQ(journal.calls(), (Strings{"GetAdapterType", "GetBand"}));
  EXPECT_EQ(state.memory.lastKnown.radioState, 0u);

  script.putResults = {{"DisableRfControl", WBEM_S_FALSE}};
  EXPECT_EQ(Fill(), WBEM_S_FALSE);  // the last put's own success code
  script.putResults.clear();
  script.putThrows = "TxRate";
  EXPECT_EQ(Fill(), E_FAIL);
}

TEST_F(NetworkAdapter, PowerLevelsInMilliwatts) {
  const struct {
    std::uint32_t count;
    std::int32_t level;
    const char* text;
  } rows[] = {
      {0, 0, "text: mW"},
      {1, 17, "text:50.1 mW"},
      {2, 0, "text:1.0, 1.0 mW"},
      {1, -400, "text:0.0 mW"},
  };
  for (const auto& row : rows) {
    api.onGetCcxPowerLevels = [&](auto, adapterapi::CcxPowerLevelsRecord* record) {
      record->count = row.count;
      for (auto& level : record->levels) level = row.level;
      return 0;
    };
    EXPECT_EQ(Value("CcxPowerLevels"), row.text) << row.count;
  }
  // A count larger than the record is limited to it.
  api.onGetCcxPowerLevels = [](auto, adapterapi::CcxPowerLevelsRecord* record) {
    record->count = 0xFFFFFFFF;
    return 0;
  };
  EXPECT_EQ(Value("CcxPowerLevels").size(),
            std::string("text: mW").size() + 5 * adapterapi::CcxPowerLevelsRecord::kRoom - 2);
}

TEST_F(NetworkAdapter, ReadsAProfileNameWithoutTerminatorInsideTheRecordOnly) {
  api.onGetLastAppliedProfile = [](auto, ORVEL_WLAN_PROFILE* profile) {
    std::memset(profile->bytes, 'x', sizeof(profile->bytes));
    return 0;
  };
  EXPECT_EQ(Value("LastAppliedProfile"), "text:" + std::string(adapterapi::kProfileSize - 4, 'x'));
}

}  // namespace
}  // namespace wifi
