#include "simulator/machine.h"

#include <gtest/gtest.h>

#include <cstring>

namespace simulator {
namespace {

constexpr AdapterNumber kAdapter = 10;

class MachineTest : public ::testing::Test {
 protected:
  template <class Value>
  Value Get(ApiStatus (Machine::*operation)(AdapterNumber, Value*)) {
    Value value{};
    EXPECT_EQ((machine.*operation)(kAdapter, &value), kOk);
    return value;
  }

  void Apply(const char* name, const char* ssid, std::uint32_t opMode = 1) {
    ProfileRecord record{};
    std::strncpy(record.name, name, sizeof record.name - 1);
    std::strncpy(record.ssid, ssid, sizeof record.ssid - 1);
    record.opMode = opMode;
    std::memcpy(&profile, &record, sizeof profile);
  }

  std::vector<std::string> ExcludedNames() {
    const ExcludeList* list = nullptr;
    EXPECT_EQ(machine.GetExcludeList(kAdapter, &list), kOk);
    std::vector<std::string> names;
    for (std::int32_t i = 0; i < list->count; ++i) {
      ExcludeEntryRecord entry;
      std::memcpy(&entry, &list->entries[i], sizeof entry);
      names.emplace_back(entry.ssid, strnlen(entry.ssid, sizeof entry.ssid));
    }
    return names;
  }

  static ExcludeEntryRecord Entry(const char* ssid, std::uint32_t reason) {
    ExcludeEntryRecord entry{};
    std::memcpy(entry.ssid, ssid, strnlen(ssid, sizeof entry.ssid));
    entry.reasonBits = reason;
    return entry;
  }

  Machine machine{LoadScenario(SCENARIO_FOLDER "test-bench.json")};
  ORVEL_WLAN_PROFILE profile{};
};

TEST_F(MachineTest, RadioOffEndsTheAssociationAndOnDoesNotRestoreIt) {
  ASSERT_EQ(Get(&Machine::GetAssociationInfo).associated, 1u);
  const std::uint32_t band = Get(&Machine::GetBand);
  for (const std::uint32_t on : {0u, 1u}) {
    ASSERT_EQ(machine.SetRadioState(kAdapter, on), kOk);
    EXPECT_EQ(Get(&Machine::GetRadioState), on);
    EXPECT_EQ(Get(&Machine::GetAssociationStatus), 2u);
    EXPECT_EQ(Get(&Machine::GetAssociationInfo).associated, 0u);
    EXPECT_EQ(Get(&Machine::GetTxRate), 0);
    EXPECT_EQ(Get(&Machine::GetSignalParameters).quality, 2u);
    EXPECT_EQ(Get(&Machine::GetAuthenticationStatus), 1u);
    EXPECT_EQ(Get(&Machine::GetBand), band);
  }
  EXPECT_EQ(machine.SetRadioState(kAdapter, 2), kInvalidArgument);
  machine.Change("adapters/0/hwRadioState", "0");
  EXPECT_EQ(machine.SetRadioState(kAdapter, 1), kNotReady);
  EXPECT_EQ(machine.SetRadioState(kAdapter, 0), kOk);
  EXPECT_EQ(Get(&Machine::GetRadioState), 0u);
}

TEST_F(MachineTest, ApplyingAProfileJoinsItsNetwork) {
  ASSERT_EQ(machine.Disassociate(kAdapter), kOk);
  EXPECT_LT(machine.Disassociate(kAdapter), 0);
  Apply("Guest", "lab-g\xE4ste");
  const std::uint32_t associations = Get(&Machine::GetAssociationStats).numAssociations;
  ASSERT_EQ(machine.ApplyProfile(kAdapter, &profile, 0xFFFFFFFF, 0, 0), kOk);
  EXPECT_EQ(Get(&Machine::GetAssociationStats).numAssociations, associations + 1);
  const auto info = Get(&Machine::GetAssociationInfo);
  EXPECT_EQ(info.associated, 1u);
  EXPECT_STREQ(info.profileName, "Guest");
  EXPECT_STREQ(info.ssid, "lab-g\xE4ste");
  EXPECT_EQ(info.channel, 6);
  EXPECT_EQ(info.bssid[5], 0x03);
  EXPECT_EQ(Get(&Machine::GetAssociationStatus), 1u);
  EXPECT_EQ(Get(&Machine::GetAuthenticationStatus), 4u);
  EXPECT_EQ(Get(&Machine::GetBand), 3u);
  EXPECT_EQ(Get(&Machine::GetTxRate), 54000000);
  EXPECT_EQ(Get(&Machine::GetSignalParameters).rssi, -63);
  EXPECT_STREQ(reinterpret_cast<const char*>(Get(&Machine::GetLastAppliedProfile).bytes + 4),
               "Guest");
}

TEST_F(MachineTest, AProfileOfAnotherLibraryNeedsOnlyItsName) {
  Apply("only-a-name", "", 2);
  ASSERT_EQ(machine.ApplyProfileFromMacAddress("00:1a:2b:00:00:10", &profile), kOk);
  EXPECT_STREQ(Get(&Machine::GetAssociationInfo).ssid, "only-a-name");
  EXPECT_EQ(Get(&Machine::GetAssociationStatus), 4u);
  EXPECT_LT(machine.ApplyProfileFromMacAddress("00:1a:2b:00:00:1", &profile), 0);
}

TEST_F(MachineTest, AProfileNeedsTheRadio) {
  Apply("Guest", "lab-core");
  machine.SetRadioState(kAdapter, 0);
  EXPECT_LT(machine.ApplyProfile(kAdapter, &profile, 0, 0, 0), 0);
  EXPECT_EQ(Get(&Machine::GetAssociationStatus), 2u);
}

TEST_F(MachineTest, SetAdapterFindsTheAdapterByItsDeviceRecord) {
  const DeviceInfoRecord device = Get(&Machine::GetDeviceInfo);
  std::uint32_t value = 0;
  EXPECT_EQ(machine.IsAdapterSupported(&device, &value), kOk);
  EXPECT_EQ(value, 1u);
  ASSERT_EQ(machine.SetAdapter(&device, 0), kOk);
  EXPECT_EQ(Get(&Machine::GetAdapterState), 0u);
  EXPECT_EQ(machine.GetAdapterState(7, &value), kOk);
  EXPECT_EQ(value, 1u) << "the other adapter stays";
  const DeviceInfoRecord unknown{};
  EXPECT_EQ(machine.SetAdapter(&unknown, 1), kInvalidArgument);
}

TEST_F(MachineTest, ExcludeListFollowsItsOperations) {
  const std::string longName(32, 'n');
  const ExcludeEntryRecord added = Entry(longName.c_str(), 0x20);
  const ExcludeEntryRecord again = Entry(longName.c_str(), 0x8000);
  const ExcludeEntryRecord unknown = Entry("nowhere", 0);
  EXPECT_EQ(machine.AddExcludeListEntry(kAdapter, &added), kOk);
  EXPECT_EQ(machine.AddExcludeListEntry(kAdapter, &again), kOk);
  EXPECT_EQ(ExcludedNames(), (std::vector<std::string>{"lab-g\xE4ste", longName}));
  const ExcludeList* list = nullptr;
  machine.GetExcludeList(kAdapter, &list);
  EXPECT_EQ(list->entries[1].reasonBits, 0x8000u) << "adding again updates the entry";
  EXPECT_LT(machine.RemoveExcludeListEntry(kAdapter, &unknown, 0), 0);
  EXPECT_EQ(machine.RemoveExcludeListEntry(kAdapter, &added, 0), kOk);
  EXPECT_EQ(list->count, 2) << "a list that was given out stays as it was";
  EXPECT_EQ(ExcludedNames(), (std::vector<std::string>{"lab-g\xE4ste"}));
  machine.Change("adapters/0/excludeList/0/ssid", "lab-core");
  EXPECT_EQ(ExcludedNames(), (std::vector<std::string>{"lab-core"}));
  machine.Change("adapters/0/excludeList/0/ssid", "lab-gäste");

  ExcludeCandidateRecord candidate{};
  EXPECT_EQ(machine.GetExcludeCandidate(kAdapter, &candidate), kOk);
  EXPECT_EQ(machine.ExcludeThisAP(kAdapter, &candidate), kOk);
  EXPECT_EQ(ExcludedNames(), (std::vector<std::string>{"lab-g\xE4ste", "lab-core"}));
  EXPECT_EQ(machine.ResetExcludeList(kAdapter), kOk);
  EXPECT_TRUE(ExcludedNames().empty());
  machine.Disassociate(kAdapter);
  EXPECT_LT(machine.GetExcludeCandidate(kAdapter, &candidate), 0);
  EXPECT_EQ(machine.EnableExcludeList(kAdapter, 0, 1), kOk);
  EXPECT_EQ(Get(&Machine::IsExcludeListEnabled), 0u);
}

TEST_F(MachineTest, ChannelsMustBeAmongTheOptions) {
  const struct {
    std::uint32_t channelA, channelB;
    bool accepted;
  } kCases[] = {{64, 1, true}, {36, 14, false}, {65, 1, false}, {0, 1, false}, {165, 11, false}};
  for (const auto& row : kCases) {
    IbssPreferencesRecord record = Get(&Machine::GetChannelInfo);
    record.channelA = row.channelA;
    record.channelB = row.channelB;
    EXPECT_EQ(machine.SetIbssPreferences(kAdapter, &record) == kOk, row.accepted) << row.channelA;
  }
  const IbssPreferencesRecord kept = Get(&Machine::GetChannelInfo);
  EXPECT_EQ(kept.channelA, 64u);
  EXPECT_EQ(kept.channelB, 1u);
}

TEST_F(MachineTest, SettersKeepTheirValueWithinTheirRange) {
  const struct {
    ApiStatus (Machine::*set)(AdapterNumber, std::uint32_t);
    ApiStatus (Machine::*get)(AdapterNumber, std::uint32_t*);
    std::uint32_t good, bad;
  } kCases[] = {
      {&Machine::SetIbssTxPower, &Machine::GetIbssTxPower, 1, 6},
      {&Machine::SetProtocolPreference, &Machine::GetProtocolPreference, 8, 0},
      {&Machine::SetConnectionPreference, &Machine::GetConnectionPreference, 4, 5},
      {&Machine::SetReadyForProfileState, &Machine::GetReadyForProfileState, 0, 2},
      {&Machine::EnableXpZeroConfig, &Machine::IsXpZeroConfigEnabled, 1, 2},
  };
  for (const auto& row : kCases) {
    EXPECT_EQ((machine.*row.set)(kAdapter, row.good), kOk);
    EXPECT_LT((machine.*row.set)(kAdapter, row.bad), 0);
    EXPECT_EQ(Get(row.get), row.good);
  }
  EXPECT_EQ(machine.SetPspMode(kAdapter, 7), kOk);
  EXPECT_LT(machine.SetPspMode(kAdapter, 8), 0);
  EXPECT_EQ(Get(&Machine::GetPspInfo).mode, 7u);
  std::uint32_t value = 0;
  EXPECT_EQ(machine.SetBoosSeteing(SettingNumber{426}, 1), kOk);
  EXPECT_EQ(machine.GetSettingValue(SettingNumber{426}, &value), kOk);
  EXPECT_EQ(value, 1u);
}

TEST_F(MachineTest, ResetStatisticsClearsCountersOnly) {
  ASSERT_EQ(machine.ResetStatistics(kAdapter), kOk);
  const auto stats = Get(&Machine::GetAssociationStats);
  AssociationStatsRecord cleared = {};
  cleared.rssi = -48;
  EXPECT_EQ(std::memcmp(&stats, &cleared, sizeof stats), 0);
  const auto traffic = Get(&Machine::GetTxRxStats);
  EXPECT_EQ(traffic.rates[0], 1000000u);
  EXPECT_EQ(traffic.txTotalPackets + traffic.rxDirectPacketsRate[11], 0u);
  EXPECT_EQ(Get(&Machine::GetSignalParameters).crcErrors, 0u);
}

TEST_F(MachineTest, WritesNoMoreThanTheRecord) {
  ConfigInfoRecord configuration;
  std::memset(&configuration, 0xCC, sizeof configuration);
  EXPECT_EQ(machine.GetAdapterConfiguration(kAdapter, &configuration), kOk);
  EXPECT_EQ(configuration.room[sizeof configuration.room - 1], 0xCC);
  Tcpipv6ConfigRecord ipv6{};
  EXPECT_LT(machine.GetTcpipv6ConfigInfo(kAdapter, &ipv6), 0) << "the size is the caller's to set";
  Machine hostile{LoadScenario(SCENARIO_FOLDER "hostile.json")};
  struct {
    CcxPowerLevelsRecord record;
    std::int32_t guard = 0x5AFE;
  } levels;
  EXPECT_EQ(hostile.GetCcxPowerLevels(0xFFFFFFFF, &levels.record), kOk);
  EXPECT_EQ(levels.record.count, 0xFFFFFFFFu);
  EXPECT_EQ(levels.guard, 0x5AFE);
}

}  // namespace
}  // namespace simulator
