#include "scenario/names.h"
#include "scenario/scenario.h"

namespace simulator {
namespace {

using enum Kind;
using namespace adapterapi;

#define AT(record, member) offsetof(record, member), sizeof(record::member)
#define WORD_OF(record, member, index) \
  offsetof(record, member) + (index) * sizeof(std::uint32_t), sizeof(std::uint32_t)

// clang-format off
constexpr Field kCcxVersion[] = {
    {"major", kNumber, AT(CcxVersionRecord, major)},
    {"minor", kNumber, AT(CcxVersionRecord, minor)},
    {"build", kNumber, AT(CcxVersionRecord, build)},
};
constexpr Field kCcxPowerLevels[] = {
    {"levels", kLevels, AT(CcxPowerLevelsRecord, levels), "dBm"},
    {"count", kNumber, AT(CcxPowerLevelsRecord, count), "overrides the number of levels"},
};
constexpr Field kChannels[] = {
    {"channelA", kNumber, AT(IbssPreferencesRecord, channelA), "chosen 5 GHz channel"},
    {"channelADefault", kNumber, AT(IbssPreferencesRecord, channelADefault)},
    {"channelAOptions", kBits, AT(IbssPreferencesRecord, channelAOptions),
     "allowed 5 GHz channels", kNamesOf<codes::k5GhzChannels>},
    {"channelB", kNumber, AT(IbssPreferencesRecord, channelB), "chosen 2.4 GHz channel"},
    {"channelBDefault", kNumber, AT(IbssPreferencesRecord, channelBDefault)},
    {"channelBOptions", kBits, AT(IbssPreferencesRecord, channelBOptions),
     "allowed 2.4 GHz channels", kNamesOf<codes::k2GhzChannels>},
};
constexpr Field kAssociation[] = {
    {"associated", kFlag, AT(AssociationInfoRecord, associated)},
    {"profileName", kText, AT(AssociationInfoRecord, profileName),
     "\"@direct@\": without a profile"},
    {"ssid", kText, AT(AssociationInfoRecord, ssid)},
    {"bssid", kMac, AT(AssociationInfoRecord, bssid)},
    {"rate", kNumber, AT(AssociationInfoRecord, rate), "bit/s"},
    {"opMode", kNumber, AT(AssociationInfoRecord, opMode), "", kNamesOf<codes::kOpModes>},
    {"authenEnabled", kFlag, AT(AssociationInfoRecord, authenEnabled)},
    {"authenAlgorithm", kNumber, AT(AssociationInfoRecord, authenAlgorithm), "", kNamesOf<codes::kAuthenAlgorithms>},
    {"encryption", kNumber, AT(AssociationInfoRecord, encryption), "", kNamesOf<codes::kEncryptions>},
    {"authenMode", kNumber, AT(AssociationInfoRecord, authenMode), "", kNamesOf<codes::kAuthenModes>},
    {"channel", kNumber, AT(AssociationInfoRecord, channel)},
};
constexpr Field kAssociationStats[] = {
    {"rssi", kSigned, AT(AssociationStatsRecord, rssi), "dBm"},
    {"numAps", kNumber, WORD_OF(AssociationStatsRecord, counters, 0)},
    {"numAssociations", kNumber, WORD_OF(AssociationStatsRecord, counters, 1)},
    {"numFullScans", kNumber, WORD_OF(AssociationStatsRecord, counters, 2)},
    {"numPartialScans", kNumber, WORD_OF(AssociationStatsRecord, counters, 3)},
    {"roamCount", kNumber, WORD_OF(AssociationStatsRecord, counters, 4)},
    {"apDidNotTx", kNumber, WORD_OF(AssociationStatsRecord, counters, 5)},
    {"poorBeaconQuality", kNumber, WORD_OF(AssociationStatsRecord, counters, 6)},
    {"loadBalancing", kNumber, WORD_OF(AssociationStatsRecord, counters, 7)},
    {"lowRssi", kNumber, WORD_OF(AssociationStatsRecord, counters, 8)},
    {"poorChannelQuality", kNumber, WORD_OF(AssociationStatsRecord, counters, 9)},
    {"droppedByAp", kNumber, WORD_OF(AssociationStatsRecord, counters, 10)},
    {"rxBeacons", kNumber, WORD_OF(AssociationStatsRecord, counters, 11)},
    {"txRetries", kNumber, WORD_OF(AssociationStatsRecord, counters, 12)},
    {"percentTxErrs", kNumber, WORD_OF(AssociationStatsRecord, counters, 13), "per cent"},
    {"crcErrs", kNumber, WORD_OF(AssociationStatsRecord, counters, 14)},
    {"percentMissedBeacons", kNumber, WORD_OF(AssociationStatsRecord, counters, 15), "per cent"},
};
constexpr Field kDevice[] = {
    {"vendorId", kNumber, AT(DeviceInfoRecord, vendorId)},
    {"deviceId", kNumber, AT(DeviceInfoRecord, deviceId)},
    {"subsystemVendorId", kNumber, AT(DeviceInfoRecord, subsystemVendorId)},
    {"subsystemId", kNumber, AT(DeviceInfoRecord, subsystemId)},
    {"revisionId", kNumber, AT(DeviceInfoRecord, revisionId)},
    {"hardwareId", kNumber, AT(DeviceInfoRecord, hardwareId)},
    {"cardType", kNumber, AT(DeviceInfoRecord, cardType), "one bit", kNamesOf<codes::kCardTypes>},
};
constexpr Field kConfiguration[] = {
    {"interruptNumber", kSigned, AT(ConfigInfoRecord, interruptNumber)},
    {"ioAddress", kNumber, AT(ConfigInfoRecord, ioAddress)},
    {"memoryAddress", kNumber, AT(ConfigInfoRecord, memoryAddress)},
    {"memorySize", kSigned, AT(ConfigInfoRecord, memorySize), "bytes"},
    {"attributeMemoryAddress", kNumber, AT(ConfigInfoRecord, attributeMemoryAddress)},
    {"attributeMemorySize", kSigned, AT(ConfigInfoRecord, attributeMemorySize), "bytes"},
    {"controllerIoAddress", kNumber, AT(ConfigInfoRecord, controllerIoAddress)},
    {"packetFilterMask", kNumber, AT(ConfigInfoRecord, packetFilterMask)},
    {"addressingMode", kNumber, AT(ConfigInfoRecord, addressingMode), "", kNamesOf<codes::kAddressingModes>},
    {"socketNumber", kNumber, AT(ConfigInfoRecord, socketNumber)},
};
constexpr Field kVersions[] = {
    {"driver", kText, AT(VersionInfoRecord, driver)},
    {"firmware11a", kText, AT(VersionInfoRecord, firmware11a)},
    {"firmware11b", kText, AT(VersionInfoRecord, firmware11b)},
    {"firmware11g", kText, AT(VersionInfoRecord, firmware11g)},
    {"microcode11a", kText, AT(VersionInfoRecord, microcode11a)},
    {"microcode11b", kText, AT(VersionInfoRecord, microcode11b)},
    {"microcode11g", kText, AT(VersionInfoRecord, microcode11g)},
    {"eeprom", kText, AT(VersionInfoRecord, eeprom)},
};
constexpr Field kFeatures[] = {
    {"antennaDiversity", kFlag, WORD_OF(FeaturesRecord, flags, 0)},
    {"beaconInterval", kFlag, WORD_OF(FeaturesRecord, flags, 1)},
    {"fragThreshold", kFlag, WORD_OF(FeaturesRecord, flags, 2)},
    {"rtsThreshold", kFlag, WORD_OF(FeaturesRecord, flags, 3)},
    {"sweepTable", kFlag, WORD_OF(FeaturesRecord, flags, 4)},
    {"apTable", kFlag, WORD_OF(FeaturesRecord, flags, 5)},
    {"peerTable", kFlag, WORD_OF(FeaturesRecord, flags, 6)},
    {"radioState", kFlag, WORD_OF(FeaturesRecord, flags, 7)},
    {"preamble", kFlag, WORD_OF(FeaturesRecord, flags, 8)},
    {"qos", kFlag, WORD_OF(FeaturesRecord, flags, 9)},
    {"powerMode", kFlag, WORD_OF(FeaturesRecord, flags, 28)},
    {"autoPsp", kFlag, WORD_OF(FeaturesRecord, flags, 29)},
    {"powerSource", kFlag, WORD_OF(FeaturesRecord, flags, 30)},
    {"bssTxPwrCtl", kFlag, WORD_OF(FeaturesRecord, flags, 31)},
    {"ibssTxPwrCtl", kFlag, WORD_OF(FeaturesRecord, flags, 32)},
    {"wep", kFlag, WORD_OF(FeaturesRecord, flags, 33)},
    {"security8021x", kFlag, WORD_OF(FeaturesRecord, flags, 34)},
    {"leap", kFlag, WORD_OF(FeaturesRecord, flags, 35)},
    {"tkip", kFlag, WORD_OF(FeaturesRecord, flags, 36)},
    {"aes", kFlag, WORD_OF(FeaturesRecord, flags, 37)},
    {"hwRadioSwitch", kFlag, WORD_OF(FeaturesRecord, flags, 38)},
};
constexpr Field kSignal[] = {
    {"quality", kNumber, AT(SignalParametersRecord, quality), "", kNamesOf<codes::kSignalQualities>},
    {"rssi", kSigned, AT(SignalParametersRecord, rssi), "dBm"},
    {"percentMissedBeacons", kNumber, AT(SignalParametersRecord, percentMissedBeacons), "per cent"},
    {"percentTxRetries", kNumber, AT(SignalParametersRecord, percentTxRetries), "per cent"},
    {"crcErrors", kNumber, AT(SignalParametersRecord, crcErrors)},
};
constexpr Field kTcpip[] = {
    {"dhcpEnabled", kFlag, AT(TcpipConfigRecord, dhcpEnabled)},
    {"dnsFromDhcp", kFlag, AT(TcpipConfigRecord, dnsFromDhcp)},
    {"winsFromDhcp", kFlag, AT(TcpipConfigRecord, winsFromDhcp)},
    {"ipAddress", kText, AT(TcpipConfigRecord, ipAddress)},
    {"defaultGateway", kText, AT(TcpipConfigRecord, defaultGateway)},
    {"dhcpServer", kText, AT(TcpipConfigRecord, dhcpServer)},
    {"dhcpSubnetMask", kText, AT(TcpipConfigRecord, dhcpSubnetMask)},
    {"dnsPrimary", kText, AT(TcpipConfigRecord, dnsPrimary)},
    {"dnsSecondary", kText, AT(TcpipConfigRecord, dnsSecondary)},
    {"winsPrimary", kText, AT(TcpipConfigRecord, winsPrimary)},
    {"winsSecondary", kText, AT(TcpipConfigRecord, winsSecondary)},
    {"domain", kText, AT(TcpipConfigRecord, domain)},
    {"scopeId", kText, AT(TcpipConfigRecord, scopeId)},
};
constexpr Field kTcpipv6[] = {
    {"dhcpEnabled", kFlag, AT(Tcpipv6ConfigRecord, dhcpEnabled)},
    {"dnsFromDhcp", kFlag, AT(Tcpipv6ConfigRecord, dnsFromDhcp)},
    {"winsFromDhcp", kFlag, AT(Tcpipv6ConfigRecord, winsFromDhcp)},
    {"ipAddresses", kTexts, AT(Tcpipv6ConfigRecord, ipAddresses)},
    {"addressCount", kNumber, AT(Tcpipv6ConfigRecord, addressCount),
     "overrides the number of addresses"},
    {"gateways", kTexts, AT(Tcpipv6ConfigRecord, gateways)},
    {"gatewayCount", kNumber, AT(Tcpipv6ConfigRecord, gatewayCount),
     "overrides the number of gateways"},
    {"dhcpServer", kText, AT(Tcpipv6ConfigRecord, dhcpServer)},
    {"dhcpSubnetMask", kText, AT(Tcpipv6ConfigRecord, dhcpSubnetMask)},
    {"dnsPrimary", kText, AT(Tcpipv6ConfigRecord, dnsPrimary)},
    {"dnsSecondary", kText, AT(Tcpipv6ConfigRecord, dnsSecondary)},
    {"winsPrimary", kText, AT(Tcpipv6ConfigRecord, winsPrimary)},
    {"winsSecondary", kText, AT(Tcpipv6ConfigRecord, winsSecondary)},
    {"domain", kText, AT(Tcpipv6ConfigRecord, domain)},
    {"scopeId", kText, AT(Tcpipv6ConfigRecord, scopeId)},
};
constexpr Field kTraffic[] = {
    {"rates", kNumbers, AT(TxRxStatsRecord, rates), "one a transmit rate"},
    {"txTotalPackets", kNumber, AT(TxRxStatsRecord, txTotalPackets)},
    {"txTotalBytes", kNumber, AT(TxRxStatsRecord, txTotalBytes)},
    {"txDirectPackets", kNumber, AT(TxRxStatsRecord, txDirectPackets)},
    {"txDirectPacketsRate", kNumbers, AT(TxRxStatsRecord, txDirectPacketsRate)},
    {"txNonDirectPackets", kNumber, AT(TxRxStatsRecord, txNonDirectPackets)},
    {"txNonDirectPacketsRate", kNumbers, AT(TxRxStatsRecord, txNonDirectPacketsRate)},
    {"rxTotalPackets", kNumber, AT(TxRxStatsRecord, rxTotalPackets)},
    {"rxTotalBytes", kNumber, AT(TxRxStatsRecord, rxTotalBytes)},
    {"rxDirectPackets", kNumber, AT(TxRxStatsRecord, rxDirectPackets)},
    {"rxDirectPacketsRate", kNumbers, AT(TxRxStatsRecord, rxDirectPacketsRate)},
    {"rxNonDirectPackets", kNumber, AT(TxRxStatsRecord, rxNonDirectPackets)},
    {"rxNonDirectPacketsRate", kNumbers, AT(TxRxStatsRecord, rxNonDirectPacketsRate)},
};

constexpr Table kCcxVersionTable = {"ccxVersion", sizeof(CcxVersionRecord), kCcxVersion};
constexpr Table kCcxPowerTable = {"ccxPowerLevels", sizeof(CcxPowerLevelsRecord), kCcxPowerLevels};
constexpr Table kChannelsTable = {"channels", sizeof(IbssPreferencesRecord), kChannels};
constexpr Table kAssociationTable = {"association", sizeof(AssociationInfoRecord), kAssociation};
constexpr Table kStatsTable = {"associationStats", sizeof(AssociationStatsRecord),
                               kAssociationStats};
constexpr Table kDeviceTable = {"device", sizeof(DeviceInfoRecord), kDevice};
constexpr Table kConfigurationTable = {"configuration", sizeof(ConfigInfoRecord), kConfiguration};
constexpr Table kVersionsTable = {"versions", sizeof(VersionInfoRecord), kVersions};
constexpr Table kFeaturesTable = {"features", sizeof(FeaturesRecord), kFeatures};
constexpr Table kSignalTable = {"signal", sizeof(SignalParametersRecord), kSignal};
constexpr Table kTcpipTable = {"tcpip", sizeof(TcpipConfigRecord), kTcpip};
constexpr Table kTcpipv6Table = {"tcpipv6", sizeof(Tcpipv6ConfigRecord), kTcpipv6};
constexpr Table kTrafficTable = {"traffic", sizeof(TxRxStatsRecord), kTraffic};

constexpr Field kAdapter[] = {
    {"number", kNumber, AT(AdapterRecords, number),
     "the library's number; if missing, the position in the array, from 1"},
    {"mac", kMac, AT(AdapterRecords, mac), "required"},
    {"present", kFlag, AT(AdapterRecords, present)},
    {"type", kNumber, AT(AdapterRecords, type), "", kNamesOf<codes::kAdapterTypes>},
    {"band", kNumber, AT(AdapterRecords, band), "", kNamesOf<codes::kBands>},
    {"radioState", kFlag, AT(AdapterRecords, radioState)},
    {"hwRadioState", kFlag, AT(AdapterRecords, hwRadioState), "switch on the case"},
    {"registrationState", kFlag, AT(AdapterRecords, registrationState)},
    {"associationStatus", kNumber, AT(AdapterRecords, associationStatus), "", kNamesOf<codes::kAssociationStatuses>},
    {"readyForProfileState", kFlag, AT(AdapterRecords, readyForProfileState)},
    {"ibssTxPower", kNumber, AT(AdapterRecords, ibssTxPower), "code, 1 to 5"},
    {"supportedRates", kBits, AT(AdapterRecords, supportedRates), "Mbit/s", kNamesOf<codes::kRates>},
    {"pspMode", kNumber,
     offsetof(AdapterRecords, psp) + offsetof(PspInfoRecord, mode),
     sizeof(PspInfoRecord::mode), "code, 1 to 7"},
    {"authenticationStatus", kNumber, AT(AdapterRecords, authenticationStatus),
     "", kNamesOf<codes::kAuthenticationStatuses>},
    {"txRate", kSigned, AT(AdapterRecords, txRate), "bit/s"},
    {"adapterState", kFlag, AT(AdapterRecords, adapterState), "enabled"},
    {"protocolPreference", kNumber, AT(AdapterRecords, protocolPreference), "code, 1 to 8"},
    {"connectionPreference", kNumber, AT(AdapterRecords, connectionPreference), "code, 1 to 4"},
    {"xpZeroConfigEnabled", kFlag, AT(AdapterRecords, xpZeroConfigEnabled)},
    {"ccxTpcPower", kSigned, AT(AdapterRecords, ccxTpcPower), "dBm"},
    {"tcpIpBound", kFlag, AT(AdapterRecords, tcpIpBound)},
    {"supported", kFlag, AT(AdapterRecords, supported)},
    {"excludeListEnabled", kFlag, AT(AdapterRecords, excludeListEnabled)},
    {"rogueApCount", kNumber, AT(AdapterRecords, rogueApCount)},
    {"lastAppliedProfile", kText,
     offsetof(AdapterRecords, lastProfile) + offsetof(ProfileRecord, name),
     sizeof(ProfileRecord::name), "name"},
    {"ccxVersion", kRecord, AT(AdapterRecords, ccxVersion), "", {}, &kCcxVersionTable},
    {"ccxPowerLevels", kRecord, AT(AdapterRecords, ccxPowerLevels), "", {}, &kCcxPowerTable},
    {"channels", kRecord, AT(AdapterRecords, channels), "", {}, &kChannelsTable},
    {"association", kRecord, AT(AdapterRecords, association), "", {}, &kAssociationTable},
    {"associationStats", kRecord, AT(AdapterRecords, associationStats), "", {}, &kStatsTable},
    {"device", kRecord, AT(AdapterRecords, device), "", {}, &kDeviceTable},
    {"configuration", kRecord, AT(AdapterRecords, configuration), "", {}, &kConfigurationTable},
    {"versions", kRecord, AT(AdapterRecords, versions), "", {}, &kVersionsTable},
    {"features", kRecord, AT(AdapterRecords, features), "", {}, &kFeaturesTable},
    {"signal", kRecord, AT(AdapterRecords, signal), "", {}, &kSignalTable},
    {"tcpip", kRecord, AT(AdapterRecords, tcpip), "", {}, &kTcpipTable},
    {"tcpipv6", kRecord, AT(AdapterRecords, tcpipv6), "", {}, &kTcpipv6Table},
    {"traffic", kRecord, AT(AdapterRecords, traffic), "", {}, &kTrafficTable},
};
constexpr Field kNetwork[] = {
    {"ssid", kText, AT(ScanListEntry, ssid)},
    {"mac", kMac, AT(ScanListEntry, macAddress)},
    {"band", kNumber, AT(ScanListEntry, band), "", kNamesOf<codes::kBands>},
    {"opMode", kNumber, AT(ScanListEntry, opMode), "", kNamesOf<codes::kOpModes>},
    {"rssi", kSigned, AT(ScanListEntry, rssi), "dBm"},
    {"encrypted", kFlag, AT(ScanListEntry, encrypted)},
    {"auth", kBits, AT(ScanListEntry, authBits), "", kNamesOf<codes::kAuthentications>},
    {"unicast", kBits, AT(ScanListEntry, unicastBits), "", kNamesOf<codes::kCiphers>},
    {"multicast", kBits, AT(ScanListEntry, multicastBits), "", kNamesOf<codes::kCiphers>},
    {"channel", kNumber, AT(ScanListEntry, channel)},
    {"stealth", kFlag, AT(ScanListEntry, stealth), "hidden network"},
};
constexpr Field kExcludeEntry[] = {
    {"ssid", kPaddedText, AT(ExcludeEntryRecord, ssid)},
    {"mac", kMac, AT(ExcludeEntryRecord, macAddress)},
    {"reason", kNumber, AT(ExcludeEntryRecord, reasonBits),
     "bits: 0x1, 0x20, 0x40, 0x8000, 0x10000"},
};
constexpr Field kProfile[] = {
    {"name", kText, AT(ProfileRecord, name), "required"},
    {"ssid", kText, AT(ProfileRecord, ssid)},
    {"mandatoryAp", kText, AT(ProfileRecord, mandatoryAp)},
    {"opMode", kNumber, AT(ProfileRecord, opMode), "", kNamesOf<codes::kOpModes>},
    {"stealth", kFlag, AT(ProfileRecord, stealth), "hidden network"},
    {"encryption", kNumber, AT(ProfileRecord, encryption), "", kNamesOf<codes::kEncryptions>},
    {"authentication", kNumber, AT(ProfileRecord, authentication), "", kNamesOf<codes::kAuthenModes>},
};
// clang-format on

}  // namespace

const Table kAdapterTable = {"an adapter", sizeof(AdapterRecords), kAdapter};
const Table kNetworkTable = {"an entry of cachedNetworks and availableNetworks",
                             sizeof(ScanListEntry), kNetwork};
const Table kExcludeEntryTable = {"an entry of excludeList", sizeof(ExcludeEntryRecord),
                                  kExcludeEntry};
const Table kProfileTable = {"a profile", sizeof(ProfileRecord), kProfile};

}  // namespace simulator
