#include <algorithm>
#include <cstring>
#include <set>

#include "methods/method_dispatch.h"
#include "schema/contract.h"
#include "tests/methods/method_fixture.h"

namespace wifi {
namespace {

using platform::Variant;
using testing_support::Answers;
using testing_support::FakeProfileLibrary;
using testing_support::Gives;
using Strings = std::vector<std::string>;

constexpr const char* kTrue = "ReturnValue=flag:true";
constexpr const char* kFalse = "ReturnValue=flag:false";

/// A number of another type.
Variant Typed(VARTYPE type, LONG bits) {
  Variant value = Variant::Integer(bits);
  value.in_place()->vt = type;
  return value;
}

/// "CLASS.METHOD" of the methods that the tests of this file have called.
std::set<std::string>& Called() {
  static std::set<std::string> called;
  return called;
}

class Methods : public testing_support::MethodFixture {
 protected:
  HRESULT Exec(const std::string& path, const char* method) {
    Called().insert(path.substr(0, path.find('.') + 1) + method);
    return MethodFixture::Exec(path, method);
  }
  /// ReturnValue of a method of adapter "7" in one of its classes.
  std::string Answer(const std::string& className, const char* method) {
    const char* key = className == "WiFi_NetworkAdapter" ? "DeviceID" : "SettingID";
    EXPECT_EQ(Exec(className + "." + key + "=\"7\"", method), WBEM_S_NO_ERROR);
    return Out().empty() ? "" : Out().back();
  }
  std::string OnAdapterAnswer(const char* method) { return Answer("WiFi_NetworkAdapter", method); }
};

TEST_F(Methods, CallsWithAFlag) {
  api.onRegisterProfileService = Noting();
  api.onEnableXpZeroConfig = Noting();
  api.onEnableExcludeList = Noting();
  const struct {
    const char* className;
    const char* method;
    const char* flag;
    const char* on;  ///< arguments of the library call
    const char* off;
  } kRows[] = {
      {"WiFi_NetworkAdapter", "RegisterProfileService", "Register", "107 1 1", "107 0 1"},
      {"WiFi_NetworkAdapter", "EnableXpZeroConfig", "Enable", "107 1", "107 0"},
      {"WiFi_NetworkExcludeList", "EnableExcludeList", "Enabled", "107 1 1", "107 0 1"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.method);
    const auto with = [&](Variant flag) {
      arguments.clear();
      in->values[row.flag] = std::move(flag);
      return Answer(row.className, row.method) + " " + arguments;
    };
    EXPECT_EQ(with(Variant::Boolean(true)), kTrue + (" " + std::string(row.on)));
    EXPECT_EQ(with(Variant::Integer(2)), kTrue + (" " + std::string(row.on)));
    EXPECT_EQ(with(Variant::Boolean(false)), kTrue + (" " + std::string(row.off)));
    EXPECT_EQ(with(Variant::Integer(0x10000)), kTrue + (" " + std::string(row.off)));
    EXPECT_EQ(with(Typed(VT_UI1, 0x80)), kTrue + (" " + std::string(row.on)));
    EXPECT_EQ(with(Typed(VT_UI1, 0x100)), kTrue + (" " + std::string(row.off)));
    EXPECT_EQ(with(Typed(VT_I2, 0x100)), kTrue + (" " + std::string(row.on)));
    EXPECT_EQ(with(Typed(VT_UI2, 0x8000)), kTrue + (" " + std::string(row.on)));
    EXPECT_EQ(with(Typed(VT_UI4, 0x8000)), kTrue + (" " + std::string(row.on)));
    EXPECT_EQ(with(Variant::AnsiText("TRUE")), kFalse + std::string(" "));
    in->values.clear();
    EXPECT_EQ(Answer(row.className, row.method), kFalse);
    EXPECT_EQ(arguments, "");
  }
  in->values["Enable"] = Variant::Boolean(true);
  api.onEnableXpZeroConfig = Answers(1);
  EXPECT_EQ(OnAdapterAnswer("EnableXpZeroConfig"), kFalse);
}

TEST_F(Methods, CallsWithTheAdapterAlone) {
  const auto expect = [this](const char* className, const char* method, auto& operation,
                             const char* argument = "107", const char* refused = kFalse) {
    SCOPED_TRACE(method);
    operation = Noting();
    EXPECT_EQ(Answer(className, method), kTrue);
    EXPECT_EQ(arguments, argument);
    operation = Noting(1);
    EXPECT_EQ(Answer(className, method), refused);
  };
  expect("WiFi_NetworkAdapter", "ResetStatistics", api.onResetStatistics);
  expect("WiFi_NetworkAdapter", "StopAuthentication", api.onStopAuthentication);
  expect("WiFi_NetworkAdapter", "Release1xConfig", api.onRelease1xConfig, "0");
  expect("WiFi_NetworkAdapter", "ResetExcludeList", api.onResetExcludeList, "107", kTrue);
  expect("WiFi_NetworkAdapterConfiguration", "Disassociate", api.onDisassociate);
}

TEST_F(Methods, Questions) {
  EXPECT_EQ(OnAdapterAnswer("IsTcpIpInstalledAndBound"), kFalse);
  api.onIsTcpIpInstalledAndBound = Gives(2u);
  EXPECT_EQ(OnAdapterAnswer("IsTcpIpInstalledAndBound"), kTrue);
  api.onIsTcpIpInstalledAndBound = Gives(2u, 1);
  EXPECT_EQ(OnAdapterAnswer("IsTcpIpInstalledAndBound"), kFalse);

  api.onGetDeviceInfo = [](std::uint32_t adapter, adapterapi::DeviceInfoRecord* record) {
    EXPECT_EQ(std::count(reinterpret_cast<char*>(record), reinterpret_cast<char*>(record + 1), 0),
              static_cast<std::ptrdiff_t>(sizeof(*record)));
    record->cardType = adapter;
    return 0;
  };
  testing_support::DirtyStack();
  api.onIsAdapterSupported = [](const adapterapi::DeviceInfoRecord* record, std::uint32_t* out) {
    *out = record->cardType == 107 ? 4 : 0;
    return 1;
  };
  EXPECT_EQ(OnAdapterAnswer("IsAdapterSupported"), kTrue);
  api.onIsAdapterSupported = Gives(1u, 0);
  EXPECT_EQ(OnAdapterAnswer("IsAdapterSupported"), kTrue);
  api.onIsAdapterSupported = Gives(1u, -1);
  EXPECT_EQ(OnAdapterAnswer("IsAdapterSupported"), kFalse);
  api.onGetDeviceInfo = Answers(1);
  journal.Clear();
  EXPECT_EQ(OnAdapterAnswer("IsAdapterSupported"), kFalse);
  EXPECT_EQ(journal.calls(), Strings{"GetDeviceInfo"});

  api.onGetApiVersion = [](std::uint32_t* version) {
    *version = 0x10002;
    return -1;
  };
  EXPECT_EQ(Answer("WiFi_NetworkAdapterConfiguration", "GetAPIVersion"),
            "ReturnValue=number:65538");
  api.onGetAssociationStatus = Gives(1u);
  EXPECT_EQ(Answer("WiFi_AdapterAssociationInfo", "IsAssociated"), kFalse);
  AddAdapter("8", 108).associationFlag = Variant::Boolean(true);
  ParsedPath path;
  path.className = OLESTR("WiFi_AdapterAssociationInfo");
  path.AddKey(kSettingId, Variant::AnsiText("8").get());
  sink->objects.clear();
  EXPECT_EQ(ExecuteMethod(state, delivery(), path, OLESTR("IsAssociated"), nullptr), S_OK);
  EXPECT_EQ(Out(), Strings{kTrue});
}

TEST_F(Methods, IsCurrentProfileIgnoresLetterCase) {
  std::string applied;
  api.onGetLastAppliedProfile = [&](std::uint32_t adapter, ORVEL_WLAN_PROFILE* profile) {
    std::memset(profile->bytes, 0xFF, 4);
    std::memcpy(profile->bytes + 4, applied.data(), applied.size());
    return adapter == 107 ? 0 : 1;
  };
  const struct {
    std::string applied;
    Variant asked;
    const char* answer;
  } kRows[] = {
      {"Office \xE9t\xE9", Variant::AnsiText("OFFICE \xC9T\xC9"), kTrue},
      {"Office", Variant::AnsiText("Offices"), kFalse},
      {"Stra\xDF"
       "e",
       Variant::AnsiText("Strasse"), kFalse},
      // Names that a locale's rules treat as equal are different names.
      {"AE\xC6",
       Variant::AnsiText("\xC6"
                         "AE"),
       kFalse},
      {"co-op", Variant::AnsiText("coop-"), kFalse},
      {"so\xADon", Variant::AnsiText("soo\xADn"), kFalse},
      {"\xFF\x9A\x9C\x9E", Variant::AnsiText("\x9F\x8A\x8C\x8E"), kTrue},
      {"5", Variant::Integer(5), kTrue},
      {"", Variant::AnsiText(""), kTrue},
      {"", Variant::Error(E_FAIL), kTrue},  // a value that is no text counts as an empty text
      {"Office", Variant::Error(E_FAIL), kFalse},
      {std::string(adapterapi::kProfileSize - 4, 'a'),
       Variant::AnsiText(std::string(adapterapi::kProfileSize - 4, 'A')), kTrue},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.applied);
    applied = row.applied;
    in->values["ProfileName"] = Variant::CopyOf(row.asked.get());
    EXPECT_EQ(Answer("WiFi_NetworkAdapterConfiguration", "IsCurrentProfile"), row.answer);
  }
  api.onGetLastAppliedProfile = Answers(1);
  in->values["ProfileName"] = Variant::AnsiText("");
  EXPECT_EQ(Answer("WiFi_NetworkAdapterConfiguration", "IsCurrentProfile"), kFalse);
  in->values.clear();
  journal.Clear();
  EXPECT_EQ(Answer("WiFi_NetworkAdapterConfiguration", "IsCurrentProfile"), kFalse);
  EXPECT_EQ(journal.calls(), Strings{});
}

TEST_F(Methods, ExcludeListEntries) {
  adapterapi::ExcludeEntryRecord entry;
  api.onAddExcludeListEntry = [&](auto adapter, const adapterapi::ExcludeEntryRecord* given) {
    entry = *given;
    return adapter == 107 ? 0 : 1;
  };
  std::uint32_t constant = 9;
  api.onRemoveExcludeListEntry = [&](auto, const adapterapi::ExcludeEntryRecord* given,
                                     std::uint32_t last) {
    entry = *given;
    constant = last;
    return 0;
  };
  const struct {
    std::string name;
    Variant reason;
    std::string stored;
    std::uint32_t flags;
  } kRows[] = {
      {"caf\xE9", Variant::Integer(0), "caf\xE9", 0x1},
      {"n", Variant::Integer(1), "n", 0x20},
      {std::string(31, 'x'), Variant::Integer(2), std::string(31, 'x'), 0x40},
      {std::string(32, 'x'), Variant::AnsiText("3"), std::string(32, 'x'), 0x8000},
      {std::string(40, 'x'), Variant::Integer(4), std::string(32, 'x'), 0x10000},
      {"n", Variant::Integer(5), "n", 0x1},
      {"n", Variant::Integer(-1), "n", 0x1},
  };
  for (const char* method : {"AddExcludeListEntry", "RemoveExcludeListEntry"}) {
    for (const auto& row : kRows) {
      SCOPED_TRACE(row.name);
      in->values["NetworkName"] = Variant::AnsiText(row.name);
      in->values["Reason"] = Variant::CopyOf(row.reason.get());
      EXPECT_EQ(OnAdapterAnswer(method), kTrue);
      adapterapi::ExcludeEntryRecord expected = {};
      std::memcpy(expected.ssid, row.stored.data(), row.stored.size());
      expected.reasonBits = row.flags;
      EXPECT_EQ(std::memcmp(&entry, &expected, sizeof(entry)), 0);
    }
  }
  EXPECT_EQ(constant, 0u);

  journal.Clear();
  for (const auto& [name, reason] : std::vector<std::pair<const char*, const char*>>{
           {"", "1"}, {nullptr, "1"}, {"n", "none"}, {"n", nullptr}}) {
    in->values.clear();
    if (name != nullptr) in->values["NetworkName"] = Variant::AnsiText(name);
    if (reason != nullptr) in->values["Reason"] = Variant::AnsiText(reason);
    EXPECT_EQ(OnAdapterAnswer("AddExcludeListEntry"), kFalse);
    EXPECT_EQ(OnAdapterAnswer("RemoveExcludeListEntry"), kFalse);
  }
  in->values["NetworkName"] = Variant::Integer(5);  // a number is not a name
  in->values["Reason"] = Variant::Integer(1);
  EXPECT_EQ(OnAdapterAnswer("AddExcludeListEntry"), kFalse);
  EXPECT_EQ(journal.calls(), Strings{});
}

TEST_F(Methods, ExcludeListQueries) {
  const std::string path = "WiFi_NetworkExcludeList.SettingID=\"7\"";
  api.onIsExcludeListEnabled = Gives(3u);
  Exec(path, "IsExcludeListEnabled");
  EXPECT_EQ(Out(), (Strings{"Enabled=number:3", kTrue}));
  api.onIsExcludeListEnabled = Answers(1);
  Exec(path, "IsExcludeListEnabled");
  EXPECT_EQ(Out(), (Strings{"Enabled=number:0", kFalse}));
  api.onGetRogueApCount = Gives(300u);
  Exec(path, "GetRogueApCount");
  EXPECT_EQ(Out(), (Strings{"Count=number:44", kTrue}));
  api.onGetRogueApCount = Gives(0x1FFu);
  Exec(path, "GetRogueApCount");
  EXPECT_EQ(Out(), (Strings{"Count=number:255", kTrue}));
  api.onGetRogueApCount = Gives(300u, 1);
  Exec(path, "GetRogueApCount");
  EXPECT_EQ(Out(), Strings{kFalse});

  api.onGetExcludeCandidate = [](auto, adapterapi::ExcludeCandidateRecord* candidate) {
    const auto* bytes = reinterpret_cast<const char*>(candidate);
    EXPECT_EQ(std::count(bytes, bytes + sizeof(*candidate), 0),
              static_cast<std::ptrdiff_t>(sizeof(*candidate)));
    candidate->unread[3647] = 42;
    return 0;
  };
  api.onExcludeThisAP = [](auto adapter, adapterapi::ExcludeCandidateRecord* candidate) {
    return adapter == 107 && candidate->unread[3647] == 42 ? 0 : 1;
  };
  testing_support::DirtyStack();
  EXPECT_EQ(Answer("WiFi_NetworkExcludeList", "ExcludeThisAP"), kTrue);
  api.onGetExcludeCandidate = Answers(-1);
  journal.Clear();
  EXPECT_EQ(Answer("WiFi_NetworkExcludeList", "ExcludeThisAP"), kFalse);
  EXPECT_EQ(journal.calls(), Strings{"GetExcludeCandidate"});
}

class ProfileMethods : public Methods {
 protected:
  ProfileMethods() {
    library.onGetProfileToApply = [](ORVEL_WLAN_PROFILE& profile) {
      EXPECT_EQ(profile.bytes[0], 0);  // cleared
      std::memset(profile.bytes, 0x11, sizeof(profile.bytes));
      return 0;
    };
    api.onApplyProfile = [this](auto adapter, const ORVEL_WLAN_PROFILE* profile, auto... rest) {
      record = *profile;
      return Noting()(adapter, rest...);
    };
    api.onApplyProfileFromMacAddress = [this](const char* mac, const ORVEL_WLAN_PROFILE* profile) {
      record = *profile;
      arguments = mac;
      return 0;
    };
    in->values["AdapterID"] = Variant::AnsiText("8");
    in->values["MacAddress"] = Variant::AnsiText("any \xE9 text");
  }
  std::string Apply(const char* method) {
    journal.Clear();
    EXPECT_EQ(Exec("WiFi_PreferredProfile.Name=\"Home\"", method), WBEM_S_NO_ERROR);
    return Out().at(0);
  }
  std::uint32_t Word(std::size_t offset) const {
    std::uint32_t word;
    std::memcpy(&word, record.bytes + offset, sizeof(word));
    return word;
  }

  FakeProfileLibrary library{journal};
  ORVEL_WLAN_PROFILE record;
};

TEST_F(ProfileMethods, HandTheMarkedRecordOver) {
  const struct {
    const char* method;
    std::uint32_t reenter;
    const char* arguments;
  } kRows[] = {
      {"ApplyProfile", 0x11111111, "108 4294967295 0 0"},
      {"ReenterAndReapplyProfile", 1, "108 4294967295 0 0"},
      {"ApplyProfileFromMacAddress", 0x11111111, "any \xE9 text"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.method);
    EXPECT_EQ(Apply(row.method), kTrue);
    EXPECT_EQ(arguments, row.arguments);
    EXPECT_EQ(Word(0xD0), row.reenter);
    EXPECT_EQ(Word(0xA50), 0x11111113u);
    EXPECT_EQ(Word(3644), 0x11111111u);
    EXPECT_EQ(journal.Of("tolva "),
              (Strings{"new manager", "SetWiFiProvider(true)", "Open(3000)",
                       "GetProfileToApply(Home, 1)", "Close()", "end manager"}));
  }
}

TEST_F(ProfileMethods, EveryFailureIsFalse) {
  for (const char* method : {"ApplyProfile", "ApplyProfileFromMacAddress"}) {
    SCOPED_TRACE(method);
    library.onGetProfileToApply = [](ORVEL_WLAN_PROFILE&) { return -1; };
    EXPECT_EQ(Apply(method), kFalse);
    EXPECT_TRUE(journal.Has("tolva Close()"));
    library.openStatus = 0;
    EXPECT_EQ(Apply(method), kFalse);
    EXPECT_FALSE(journal.Has("tolva Close()"));
    library.openStatus = kTolvaSuccess;
    library.throwsAt = "Open(3000)";
    EXPECT_EQ(Apply(method), kFalse);
    EXPECT_EQ(journal.Of("tolva ").back(), "end manager");
    library.throwsAt.clear();
    EXPECT_EQ(journal.calls(), Strings{});
  }
  in->values["AdapterID"] = Variant::AnsiText("9");
  EXPECT_EQ(Apply("ApplyProfile"), kFalse);
  EXPECT_FALSE(journal.Has("tolva Open(3000)"));
  in->values["AdapterID"] = Variant::Integer(8);
  in->values["MacAddress"] = Variant::Integer(8);
  EXPECT_EQ(Apply("ApplyProfile"), kFalse);
  EXPECT_EQ(Apply("ApplyProfileFromMacAddress"), kFalse);
  EXPECT_FALSE(journal.Has("tolva Open(3000)")) << "a number is no address";
  in->values.clear();
  EXPECT_EQ(Apply("ApplyProfileFromMacAddress"), kFalse);
  EXPECT_FALSE(journal.Has("tolva Open(3000)"));
}

TEST_F(ProfileMethods, NothingIsAskedBeforeInitialize) {
  provider = platform::ComPtr<InstanceProvider>::Adopt(new InstanceProvider(api));
  for (const char* method :
       {"ApplyProfile", "ReenterAndReapplyProfile", "ApplyProfileFromMacAddress"}) {
    journal.Clear();
    Exec("WiFi_PreferredProfile.Name=\"Home\"", method);
    EXPECT_EQ(journal.Of("tolva "), Strings{}) << method;
  }
}

/// Runs after all tests, unless some were left out.
class EveryBodyIsCalled : public ::testing::Environment {
 public:
  void TearDown() override {
    const auto& run = *::testing::UnitTest::GetInstance();
    if (run.test_to_run_count() != run.total_test_count() || run.Failed()) return;
    for (const contract::Method& row : contract::kMethods) {
      const std::string name = std::string(row.className) + "." + std::string(row.name);
      if (row.name.starts_with("Set")) continue;  // without a body
      EXPECT_TRUE(Called().contains(name))
          << name << " has no test of its body: add one to tests/methods/method_bodies_test.cpp";
    }
  }
};
[[maybe_unused]] ::testing::Environment* const kEveryBodyIsCalled =
    ::testing::AddGlobalTestEnvironment(new EveryBodyIsCalled);

}  // namespace
}  // namespace wifi
