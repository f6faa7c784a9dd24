#include "simulator/library.h"

#include <gtest/gtest.h>

#include <thread>

#include "simulator/profile_library.h"

namespace simulator {
namespace {

constexpr ApiStatus kRefused = static_cast<ApiStatus>(0x80070057);

Library::Loader LoaderOf(const std::string& json) {
  return [json] { return ParseScenario(json, "test"); };
}

Library::Loader WithFaults(const std::string& faults) {
  return LoaderOf(R"({"adapters": [{"mac": "00:00:00:00:00:01", "band": 3},
                                   {"mac": "00:00:00:00:00:02", "band": 3}], "faults": [)" +
                  faults + "]}");
}

TEST(Library, WithoutAScenarioEveryOperationFails) {
  Library library([] { return std::optional<Scenario>(); });
  EXPECT_EQ(library.SetLibraryMode(FixedNumber{1}), 0);
  EXPECT_EQ(library.CloseLibrary(), 0);
  std::uint32_t value = 7;
  EXPECT_EQ(library.GetBand(1, &value), static_cast<ApiStatus>(0x80004005));
  EXPECT_EQ(library.GetApiVersion(&value), static_cast<ApiStatus>(0x80004005));
  EXPECT_EQ(value, 7u);
}

TEST(Library, ReadsTheScenarioOnceAtTheFirstOperationThatNeedsIt) {
  int reads = 0;
  Library library([&reads] {
    ++reads;
    return ParseScenario("{}", "test");
  });
  library.SetLibraryMode(FixedNumber{1});
  EXPECT_EQ(reads, 0);
  const AdapterList* list = nullptr;
  EXPECT_EQ(library.GetAdapterList(&list), 0);
  EXPECT_EQ(list->count, 0u);
  library.GetAdapterList(&list);
  EXPECT_EQ(reads, 1);
}

TEST(Library, PlaysAScenarioThatIsHandedOver) {
  Library library([]() -> std::optional<Scenario> { throw ScenarioError("nothing is read"); });
  library.Play(
      ParseScenario(R"({"adapters": [{"mac": "00:00:00:00:00:01", "number": 4}]})", "test"));
  std::uint32_t band = 0;
  EXPECT_EQ(library.GetBand(4, &band), 0);
  library.Play(ParseScenario(R"({"apiVersion": 5})", "test"));
  EXPECT_EQ(library.GetBand(4, &band), kRefused);
  EXPECT_EQ(library.GetApiVersion(&band), 0);
  EXPECT_EQ(band, 5u);
}

TEST(Faults, GiveAStatusAndLeaveTheOutputAlone) {
  Library library(WithFaults(R"({"operation": "GetBand", "adapter": 2, "status": "0x80004005"})"));
  std::uint32_t band = 77;
  EXPECT_EQ(library.GetBand(2, &band), static_cast<ApiStatus>(0x80004005));
  EXPECT_EQ(band, 77u);
  EXPECT_EQ(library.GetBand(1, &band), 0);
  EXPECT_EQ(band, 3u);
}

TEST(Faults, CanCarryOutTheOperationFirst) {
  Library library(WithFaults(R"({"operation": "GetBand", "status": 5, "output": true},
                                {"operation": "SetRadioState", "status": -1, "output": true})"));
  std::uint32_t value = 77;
  EXPECT_EQ(library.GetBand(1, &value), 5);
  EXPECT_EQ(value, 3u);
  EXPECT_EQ(library.SetRadioState(1, 0), -1);
  EXPECT_EQ(library.GetRadioState(1, &value), 0);
  EXPECT_EQ(value, 0u);
}

TEST(Faults, RunOutAndTheNextOneFollows) {
  Library library(WithFaults(R"({"operation": "GetBand", "status": 1, "times": 2},
                                {"operation": "GetBand", "exception": "gone", "times": 1})"));
  std::uint32_t band = 0;
  EXPECT_EQ(library.GetBand(1, &band), 1);
  EXPECT_EQ(library.GetBand(2, &band), 1);
  try {
    library.GetBand(1, &band);
    ADD_FAILURE() << "no exception";
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "gone");
  }
  EXPECT_EQ(library.GetBand(1, &band), 0) << "an exception leaves the library usable";
}

TEST(Faults, BeginAfterSomeCallsWhateverDecidesThose) {
  Library library(WithFaults(R"({"operation": "GetBand", "status": 1, "after": 3, "times": 1},
                                {"operation": "GetBand", "adapter": 2, "status": 2, "after": 3},
                                {"operation": "GetBand", "status": 3, "times": 1})"));
  const struct {
    AdapterNumber adapter;
    ApiStatus expected;
  } kCalls[] = {{2, 3}, {1, 0}, {2, 1}, {2, 2}, {1, 0}, {2, 2}};
  std::uint32_t band = 0;
  for (const auto& call : kCalls) EXPECT_EQ(library.GetBand(call.adapter, &band), call.expected);
}

TEST(Faults, CanWaitAndThenCarryOutOrFail) {
  Library library(WithFaults(R"({"operation": "GetBand", "adapter": 1, "delayMs": 40},
                                {"operation": "GetBand", "adapter": 2, "delayMs": 40, "status": 5})"));
  std::uint32_t band = 0;
  for (const AdapterNumber adapter : {1u, 2u}) {
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(library.GetBand(adapter, &band), adapter == 1 ? 0 : 5);
    EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(40));
    EXPECT_EQ(band, 3u);
  }
}

TEST(Faults, ASettingIsNoAdapter) {
  Library library(WithFaults(R"({"operation": "GetSettingValue", "status": 9})"));
  std::uint32_t value = 0;
  EXPECT_EQ(library.GetSettingValue(SettingNumber{415}, &value), 9);
}

TEST(Library, ToleratesThreadsOnOneAdapter) {
  Library library(LoaderOf(R"({"adapters": [{"mac": "00:00:00:00:00:01"}]})"));
  const auto work = [&library](char name) {
    for (int i = 0; i < 500; ++i) {
      ExcludeEntryRecord entry{};
      entry.ssid[0] = name;
      EXPECT_EQ(library.AddExcludeListEntry(1, &entry), 0);
      const ScanList* scans = nullptr;
      EXPECT_EQ(library.GetCachedScanList(1, &scans), 0);
      EXPECT_EQ(scans->count, 0);
      EXPECT_EQ(library.RemoveExcludeListEntry(1, &entry, 0), 0);
    }
  };
  std::thread first(work, 'a');
  std::thread second(work, 'b');
  first.join();
  second.join();
  const ExcludeList* list = nullptr;
  EXPECT_EQ(library.GetExcludeList(1, &list), 0);
  EXPECT_EQ(list->count, 0);
}

TEST(Library, RefusesWhatIsNotThereWithoutWriting) {
  Library library(WithFaults(""));
  std::uint32_t value = 77;
  AssociationInfoRecord record;
  const ScanList* list = nullptr;
  ORVEL_WLAN_PROFILE profile{};
  profile.bytes[kProfileNameOffset] = 'x';
  EXPECT_EQ(library.GetBand(9, &value), kRefused);
  EXPECT_EQ(library.GetCachedScanList(9, &list), kRefused);
  EXPECT_EQ(library.GetAssociationInfo(9, &record), kRefused);
  EXPECT_EQ(library.ApplyProfile(9, &profile, 0, 0, 0), kRefused);
  EXPECT_EQ(library.ApplyProfileFromMacAddress("00:00:00:00:00:03", &profile), kRefused);
  EXPECT_LT(library.GetSettingValue(SettingNumber{7}, &value), 0);
  EXPECT_LT(library.SetPolicyValue(SettingNumber{7}, 1), 0);
  EXPECT_EQ(value, 77u);
  EXPECT_EQ(list, nullptr);
  EXPECT_EQ(library.GetBand(1, nullptr), kRefused);
  EXPECT_EQ(library.GetAdapterList(nullptr), kRefused);
  EXPECT_EQ(library.GetExcludeList(1, nullptr), kRefused);
  EXPECT_EQ(library.SetAdapter(nullptr, 1), kRefused);
  EXPECT_EQ(library.ApplyProfileFromMacAddress(nullptr, &profile), kRefused);
  EXPECT_EQ(library.AddExcludeListEntry(1, nullptr), kRefused);
}

TEST(ProfileLibrary, FailsWithoutAScenarioAndMeetsItsFaults) {
  ProfileLibrary none([] { return std::optional<Scenario>(); });
  const auto succeed = [](const Scenario&) { return 1; };
  EXPECT_LT(none.Run("CProfileMgr::Open", succeed), 0);
  ProfileLibrary library(
      WithFaults(R"({"operation": "CProfileMgr::Open", "status": 3, "times": 1})"));
  EXPECT_EQ(library.Run("CProfileMgr::Open", succeed), 3);
  EXPECT_EQ(library.Run("CProfileMgr::Open", succeed), 1);
}

}  // namespace
}  // namespace simulator
