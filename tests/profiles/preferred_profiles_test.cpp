#include "profiles/preferred_profiles.h"

#include "tests/profiles/profile_settings.h"
#include "tests/support/fake_profile_library.h"
#include "tests/support/provider_fixture.h"

namespace wifi {
namespace {

using platform::Variant;
using testing_support::FakeProfile;
using Strings = std::vector<std::string>;

constexpr HRESULT kNotFound = WBEM_E_NOT_FOUND;

class PreferredProfiles : public testing_support::StateFixture {
 protected:
  PreferredProfiles() {
    api.onGetSettingValue = testing_support::Gives(1u);
    library.stores[1] = {{"Home", "ssid1", "00:01", 1, 5, 6, 2}, {"Away", "s", "", 2, 0, 1, 1}};
    library.stores[2] = {{"Caf\xE9", nullptr, "", 3, -1, 7, 3}};
    library.stores[4] = {{"Logon"}};
    library.stores[8] = {{"Later"}};
    library.stores[16] = {{"Office"}};
  }
  HRESULT List() {
    sink->objects.clear();
    return EnumeratePreferredProfiles(state, delivery());
  }
  HRESULT Get(const char* name) {
    sink->objects.clear();
    library.loads = 0;
    ParsedPath path;
    path.AddKey(OLESTR("Name"), Variant::AnsiText(name).get());
    return GetPreferredProfile(state, delivery(), path);
  }
  Strings Listed(const char* property) {
    Strings values;
    for (const auto& object : sink->objects) values.push_back(object->Last(property));
    return values;
  }

  testing_support::ProfileSettings settings;
  testing_support::FakeProfileLibrary library{journal};
};

TEST_F(PreferredProfiles, ListsEveryStoreInOrder) {
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(Listed("Name"), (Strings{"text:Home", "text:Away", "text:Caf\xC3\xA9", "text:Logon",
                                     "text:Later", "text:Office"}));
  EXPECT_EQ(Listed("Type"), (Strings{"text:user", "text:user", "text:persistent", "text:prelogon",
                                     "text:postlogon", "text:itprofile"}));
  EXPECT_EQ(
      sink->objects[0]->ShownPuts(),
      (Strings{"Name=text:Home", "SSID=text:ssid1", "MandatoryAp=text:00:01",
               "OperationMode=text:BSS", "Stealth=flag:true", "Encryption=text:TKIP ",
               "Authentication=text:Shared", "Caption=text:Preferred Profile List",
               "Description=text:Provides the list of all Preferred Profiles", "Type=text:user"}));
  EXPECT_EQ(sink->objects[1]->Last("OperationMode"), "text:IBSS");
  EXPECT_EQ(sink->objects[1]->Last("Stealth"), "flag:false");
  EXPECT_EQ(sink->objects[2]->Last("SSID"), "text");
  EXPECT_EQ(sink->objects[2]->Last("OperationMode"), "text:Unknown");
  EXPECT_EQ(sink->objects[2]->Last("Encryption"), "text:Unknown");
  EXPECT_EQ(sink->objects[2]->Last("Authentication"), "text:Unknown");
  EXPECT_EQ(journal.traces(),
            Strings{"Getting preferred profile information for WiFi_PreferredProfile"});
  EXPECT_EQ(journal.Of("tolva "),
            (Strings{"new profile", "new manager", "SetWiFiProvider(true)", "Open(3000)",
                     "GetFirst(1)", "GetNext(1)", "GetNext(1)", "GetFirst(2)", "GetNext(2)",
                     "GetFirst(4)", "GetNext(4)", "GetFirst(8)", "GetNext(8)", "GetFirst(16)",
                     "GetNext(16)", "Close()", "end manager", "end profile"}));
}

TEST_F(PreferredProfiles, ClosedGatesHideTheirStores) {
  settings.SetNumber(OLESTR("FeatureSet2"), 0x18);
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(Listed("Type"),
            (Strings{"text:user", "text:user", "text:postlogon", "text:itprofile"}));
  EXPECT_EQ(Get("Logon"), kNotFound);
  EXPECT_FALSE(journal.Has("tolva GetFirst(4)"));
  EXPECT_EQ(journal.calls(), Strings{});
}

TEST_F(PreferredProfiles, AListingGoesOnBehindAFailure) {
  script.indicateResults[1] = E_ACCESSDENIED;
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(sink->objects.size(), 5u);
  script.indicateResult = E_ACCESSDENIED;
  EXPECT_EQ(List(), E_ACCESSDENIED);
  script.indicateResult = S_OK;
  script.putResults["SSID"] = E_FAIL;
  EXPECT_EQ(List(), E_FAIL);
  EXPECT_TRUE(sink->objects.empty());
  // Only Home's put fails. A success code does not suppress an instance.
  script.putResults["Type"] = WBEM_S_FALSE;
  library.onCall = [this](const std::string& call) {
    if (call == "GetNext(1)") script.putResults.erase("SSID");
  };
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(Listed("Name").size(), 5u);
}

TEST_F(PreferredProfiles, AnInstanceGoesOnceTheNextProfileIsLoaded) {
  ULONG references = 0;
  library.onCall = [&](const std::string& call) {
    if (references != 0 || call.find("GetNext(1)") == std::string::npos) return;
    references = sink->objects.at(0)->AddRef();
    sink->objects[0]->Release();
  };
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(references, 3u);  // the sink's, the provider's and this one
}

TEST_F(PreferredProfiles, AStoreIsListedWhileTheLibrarySaysSuccess) {
  library.loadStatuses = {{1, -7}};  // instead of Home: the rest of the store is skipped
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(Listed("Name").at(0), "text:Caf\xC3\xA9");
}

TEST_F(PreferredProfiles, ASearchGoesOnUntilTheEnd) {
  library.loadStatuses = {{1, -7}};
  EXPECT_EQ(Get("Away"), S_OK);
  EXPECT_EQ(Listed("Name"), Strings{"text:Away"});
  for (int load = 1; load <= 20002; ++load) library.loadStatuses[load] = -7;
  EXPECT_EQ(Get("Logon"), S_OK);  // the walk of an endless store is given up
  EXPECT_EQ(library.loads, 20003);
}

TEST_F(PreferredProfiles, AStoreWithoutAnEndIsGivenUp) {
  library.stores.clear();
  library.stores[1] = {{"Home"}};
  library.endless = true;
  api.onGetSettingValue = testing_support::Gives(0u);
  script.spawnResult = E_ACCESSDENIED;
  EXPECT_EQ(List(), E_ACCESSDENIED);
  EXPECT_EQ(journal.Of("spawn ").size(), 3 * 10000u);
  EXPECT_TRUE(journal.Has("tolva Close()"));
}

TEST_F(PreferredProfiles, FoundByExactNameInThreeStores) {
  EXPECT_EQ(Get("Caf\xE9"), S_OK);
  EXPECT_EQ(Listed("Type"), Strings{"text:persistent"});
  EXPECT_EQ(journal.traces(), (Strings{"Opening", "Getting"}));
  EXPECT_EQ(journal.Of("tolva ").back(), "end profile");
  EXPECT_TRUE(journal.Has("tolva Close()"));
  for (const char* name : {"home", "Later", "Office", "None"}) {
    EXPECT_EQ(Get(name), kNotFound) << name;
    EXPECT_TRUE(sink->objects.empty());
  }
  EXPECT_EQ(GetPreferredProfile(state, delivery(), ParsedPath()), kNotFound);
  script.indicateResult = E_ACCESSDENIED;
  EXPECT_EQ(Get("Home"), E_ACCESSDENIED);
}

TEST_F(PreferredProfiles, ALibraryThatDoesNotOpenIsNotClosed) {
  library.openStatus = 1;
  EXPECT_EQ(List(), S_OK);
  EXPECT_EQ(Get("Home"), kNotFound);
  EXPECT_FALSE(journal.Has("tolva Close()"));
  EXPECT_FALSE(journal.Has("trace Getting"));
  EXPECT_TRUE(sink->objects.empty());
}

TEST_F(PreferredProfiles, NothingBeforeInitializeAndFaultsPassThrough) {
  for (const char* call : {"new manager", "SetWiFiProvider(true)", "GetNext(1)", "Close()"}) {
    library.throwsAt = call;
    journal.Clear();
    EXPECT_THROW(List(), std::runtime_error) << call;
    EXPECT_EQ(journal.Of("tolva ").back(), "end profile") << call;
  }
  state.initialized = 0;
  journal.Clear();
  EXPECT_EQ(List(), E_FAIL);
  EXPECT_EQ(Get("Home"), E_FAIL);
  EXPECT_TRUE(journal.events().empty());
}

}  // namespace
}  // namespace wifi
