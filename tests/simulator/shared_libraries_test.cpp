// Both libraries as a client links them, with the scenario that WIFI_SCENARIO names.

#include <gtest/gtest.h>

#include <cstring>

#include "adapterapi/quarn_api.h"
#include "adapterapi/tolva_api.h"
#include "platform/environment.h"
#include "platform/structured_exception.h"
#include "scenario/scenario.h"
#include "scenario/simulator_hooks.h"

namespace {

using namespace adapterapi;

class SharedLibraries : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    ASSERT_TRUE(SetEnvironmentVariableA("WIFI_SCENARIO", SCENARIO_FOLDER "hostile.json"));
  }
  static void TearDownTestSuite() { SetEnvironmentVariableA("WIFI_SCENARIO", nullptr); }
};

TEST_F(SharedLibraries, GiveTheAdaptersOfTheScenario) {
  EXPECT_EQ(quarn::SetLibraryMode(FixedNumber{1}), 0);
  const AdapterList* list = nullptr;
  ASSERT_EQ(quarn::GetAdapterList(&list), 0);
  ASSERT_EQ(list->count, 2u);
  EXPECT_EQ(list->records[0].number, 0xFFFFFFFFu);
  EXPECT_EQ(list->records[0].macAddress[1], 0x80);
  std::uint32_t version = 0;
  EXPECT_EQ(quarn::GetApiVersion(&version), 0);
  EXPECT_EQ(version, 0xFFFFFFFFu);
  EXPECT_EQ(quarn::CloseLibrary(), 0);
}

TEST_F(SharedLibraries, RaiseBothKindsOfExceptionThroughTheFence) {
  std::uint32_t band = 0;
  std::int32_t rate = 0;
  for (int i = 0; i < 3; ++i) {
    EXPECT_ANY_THROW(platform::CallFenced([&] { return quarn::GetBand(0, &band); }));
    EXPECT_ANY_THROW(platform::CallFenced([&] { return quarn::GetTxRate(0, &rate); }));
  }
  EXPECT_EQ(quarn::GetAdapterType(0, &band), 0) << "no lock is left behind";
}

TEST_F(SharedLibraries, PlayNoScenarioThatTheyCannotRead) {
  // Both libraries export the hook; the linker uses the first one that it finds.
  char problem[16];
  EXPECT_EQ(SimulatorPlay("{\"adapters\": 1}#", 15, problem, sizeof problem), 0);
  EXPECT_STREQ(problem, "scenario: /adap");
}

TEST_F(SharedLibraries, WalkTheStores) {
  CProfileMgr manager;
  CPreferredProfile profile;
  EXPECT_LT(manager.Open(3000), 0) << "for no provider yet";
  manager.SetWiFiProvider(true);
  EXPECT_LT(manager.Open(3001), 0);
  EXPECT_LT(manager.GetFirstPreferredProfile(profile, 1), 0) << "not open";
  ASSERT_EQ(manager.Open(3000), kTolvaSuccess);
  ASSERT_EQ(manager.GetFirstPreferredProfile(profile, 1), kTolvaSuccess);
  EXPECT_EQ(std::string(profile.Name()), std::string(64, '\xDC'));
  EXPECT_EQ(std::string(profile.MandatoryAp()), std::string(33, '~'));
  EXPECT_EQ(profile.OpMode(), 3);
  EXPECT_EQ(profile.Stealth(), 5);
  EXPECT_EQ(profile.WepAlgorithm(), 7);
  EXPECT_EQ(profile.AuthMode(), 3);
  EXPECT_EQ(manager.GetNextPreferredProfile(profile, 1), static_cast<LONG>(0x80004005))
      << "the scenario's fault, once";
  ASSERT_EQ(manager.GetNextPreferredProfile(profile, 1), kTolvaSuccess);
  EXPECT_EQ(manager.GetNextPreferredProfile(profile, 1), kTolvaNoMoreProfiles);
  EXPECT_EQ(manager.GetFirstPreferredProfile(profile, 2), kTolvaNoMoreProfiles);
  EXPECT_EQ(manager.GetFirstPreferredProfile(profile, 8), kTolvaSuccess);
  EXPECT_EQ(manager.GetNextPreferredProfile(profile, 1), E_INVALIDARG) << "another store";
  EXPECT_EQ(manager.GetFirstPreferredProfile(profile, 3), kTolvaNoMoreProfiles);

  ORVEL_WLAN_PROFILE record;
  std::memset(&record, 0xCC, sizeof record);
  const char* name =
      "\xDCn\xEF"
      "c\xF6"
      "d\xE9 \x91"
      "1252\x92";
  ASSERT_GE(manager.GetProfileToApply(name, record, 1), 0);
  EXPECT_STREQ(reinterpret_cast<const char*>(record.bytes + kProfileNameOffset), name);
  EXPECT_EQ(record.bytes[kProfileSize - 1], 0) << "all bytes are filled";
  EXPECT_LT(manager.GetProfileToApply("absent", record, 1), 0);
  EXPECT_LT(manager.GetProfileToApply(name, record, 0), 0) << "other flags";
  EXPECT_EQ(manager.Close(), kTolvaSuccess);
  EXPECT_LT(manager.GetFirstPreferredProfile(profile, 1), 0);
  EXPECT_NE(manager.GetNextPreferredProfile(profile, 0), kTolvaNoMoreProfiles);
  EXPECT_LT(manager.GetProfileToApply(name, record, 1), 0);
  EXPECT_EQ(manager.Open(3000), kTolvaSuccess) << "for the same networks again";
}

}  // namespace
