#include "scenario/names.h"
#include "scenario/scenario.h"

namespace simulator {
namespace {

using enum Kind;
using namespace adapterapi;

#define AT(record, member) .offset = offsetof(record, member), .size = sizeof(record::member)

// clang-format off
constexpr Field kCcxVersion[] = {
    {.name = "major", .kind = kNumber, AT(CcxVersionRecord, major)},
    {.name = "minor", .kind = kNumber, AT(CcxVersionRecord, minor)},
    {.name = "build", .kind = kNumber, AT(CcxVersionRecord, build)},
};
constexpr Field kCcxPowerLevels[] = {
    {.name = "levels", .kind = kLevels, AT(CcxPowerLevelsRecord, levels), .note = "dBm"},
    {.name = "count", .kind = kNumber, AT(CcxPowerLevelsRecord, count), .note = "overrides the number of levels"},
};
constexpr Field kChannels[] = {
    {.name = "channelA", .kind = kNumber, AT(IbssPreferencesRecord, channelA), .note = "chosen 5 GHz channel"},
    {.name = "channelADefault", .kind = kNumber, AT(IbssPreferencesRecord, channelADefault)},
    {.name = "channelAOptions", .kind = kBits, AT(IbssPreferencesRecord, channelAOptions), .note = "allowed 5 GHz channels", .names = kNamesOf<codes::k5GhzChannels>},
    {.name = "channelB", .kind = kNumber, AT(IbssPreferencesRecord, channelB), .note = "chosen 2.4 GHz channel"},
    {.name = "channelBDefault", .kind = kNumber, AT(IbssPreferencesRecord, channelBDefault)},
    {.name = "channelBOptions", .kind = kBits, AT(IbssPreferencesRecord, channelBOptions), .note = "allowed 2.4 GHz channels", .names = kNamesOf<codes::k2GhzChannels>},
};
constexpr Field kAssociation[] = {
    {.name = "associated", .kind = kFlag, AT(AssociationInfoRecord, associated)},
    {.name = "profileName", .kind = kText, AT(AssociationInfoRecord, profileName), .note = "\"@direct@\": without a profile"},
    {.name = "ssid", .kind = kText, AT(AssociationInfoRecord, ssid)},
    {.name = "bssid", .kind = kMac, AT(AssociationInfoRecord, bssid)},
    {.name = "rate", .kind = kNumber, AT(AssociationInfoRecord, rate), .note = "bit/s"},
    {.name = "opMode", .kind = kNumber, AT(AssociationInfoRecord, opMode), .names = kNamesOf<codes::kOpModes>},
    {.name = "authenEnabled", .kind = kFlag, AT(AssociationInfoRecord, authenEnabled)},
    {.name = "authenAlgorithm", .kind = kNumber, AT(AssociationInfoRecord, authenAlgorithm), .names = kNamesOf<codes::kAuthenAlgorithms>},
    {.name = "encryption", .kind = kNumber, AT(AssociationInfoRecord, encryption), .names = kNamesOf<codes::kEncryptions>},
    {.name = "authenMode", .kind = kNumber, AT(AssociationInfoRecord, authenMode), .names = kNamesOf<codes::kAuthenModes>},
    {.name = "channel", .kind = kNumber, AT(AssociationInfoRecord, channel)},
};
constexpr Field kAssociationStats[] = {
    {.name = "rssi", .kind = kSigned, AT(AssociationStatsRecord, rssi), .note = "dBm"},
    {.name = "numAps", .kind = kNumber, AT(AssociationStatsRecord, numAps)},
    {.name = "numAssociations", .kind = kNumber, AT(AssociationStatsRecord, numAssociations)},
    {.name = "numFullScans", .kind = kNumber, AT(AssociationStatsRecord, numFullScans)},
    {.name = "numPartialScans", .kind = kNumber, AT(AssociationStatsRecord, numPartialScans)},
    {.name = "roamCount", .kind = kNumber, AT(AssociationStatsRecord, roamCount)},
    {.name = "apDidNotTx", .kind = kNumber, AT(AssociationStatsRecord, apDidNotTx)},
    {.name = "poorBeaconQuality", .kind = kNumber, AT(AssociationStatsRecord, poorBeaconQuality)},
    {.name = "loadBalancing", .kind = kNumber, AT(AssociationStatsRecord, loadBalancing)},
    {.name = "lowRssi", .kind = kNumber, AT(AssociationStatsRecord, lowRssi)},
    {.name = "poorChannelQuality", .kind = kNumber, AT(AssociationStatsRecord, poorChannelQuality)},
    {.name = "droppedByAp", .kind = kNumber, AT(AssociationStatsRecord, droppedByAp)},
    {.name = "rxBeacons", .kind = kNumber, AT(AssociationStatsRecord, rxBeacons)},
    {.name = "txRetries", .kind = kNumber, AT(AssociationStatsRecord, txRetries)},
    {.name = "percentTxErrs", .kind = kNumber, AT(AssociationStatsRecord, percentTxErrs), .note = "per cent"},
    {.name = "crcErrs", .kind = kNumber, AT(AssociationStatsRecord, crcErrs)},
    {.name = "percentMissedBeacons", .kind = kNumber, AT(AssociationStatsRecord, percentMissedBeacons), .note = "per cent"},
};
constexpr Field kDevice[] = {
    {.name = "vendorId", .kind = kNumber, AT(DeviceInfoRecord, vendorId)},
    {.name = "deviceId", .kind = kNumber, AT(DeviceInfoRecord, deviceId)},
    {.name = "subsystemVendorId", .kind = kNumber, AT(DeviceInfoRecord, subsystemVendorId)},
    {.name = "subsystemId", .kind = kNumber, AT(DeviceInfoRecord, subsystemId)},
    {.name = "revisionId", .kind = kNumber, AT(DeviceInfoRecord, revisionId)},
    {.name = "hardwareId", .kind = kNumber, AT(DeviceInfoRecord, hardwareId)},
    {.name = "cardType", .kind = kNumber, AT(DeviceInfoRecord, cardType), .note = "one bit", .names = kNamesOf<codes::kCardTypes>},
};
constexpr Field kConfiguration[] = {
    {.name = "interruptNumber", .kind = kSigned, AT(ConfigInfoRecord, interruptNumber)},
    {.name = "ioAddress", .kind = kNumber, AT(ConfigInfoRecord, ioAddress)},
    {.name = "memoryAddress", .kind = kNumber, AT(ConfigInfoRecord, memoryAddress)},
    {.name = "memorySize", .kind = kSigned, AT(ConfigInfoRecord, memorySize), .note = "bytes"},
    {.name = "attributeMemoryAddress", .kind = kNumber, AT(ConfigInfoRecord, attributeMemoryAddress)},
    {.name = "attributeMemorySize", .kind = kSigned, AT(ConfigInfoRecord, attributeMemorySize), .note = "bytes"},
    {.name = "controllerIoAddress", .kind = kNumber, AT(ConfigInfoRecord, controllerIoAddress)},
    {.name = "packetFilterMask", .kind = kNumber, AT(ConfigInfoRecord, packetFilterMask)},
    {.name = "addressingMode", .kind = kNumber, AT(ConfigInfoRecord, addressingMode), .names = kNamesOf<codes::kAddressingModes>},
    {.name = "socketNumber", .kind = kNumber, AT(ConfigInfoRecord, socketNumber)},
};
constexpr Field kVersions[] = {
    {.name = "driver", .kind = kText, AT(VersionInfoRecord, driver)},
    {.name = "firmware11a", .kind = kText, AT(VersionInfoRecord, firmware11a)},
    {.name = "firmware11b", .kind = kText, AT(VersionInfoRecord, firmware11b)},
    {.name = "firmware11g", .kind = kText, AT(VersionInfoRecord, firmware11g)},
    {.name = "microcode11a", .kind = kText, AT(VersionInfoRecord, microcode11a)},
    {.name = "microcode11b", .kind = kText, AT(VersionInfoRecord, microcode11b)},
    {.name = "microcode11g", .kind = kText, AT(VersionInfoRecord, microcode11g)},
    {.name = "eeprom", .kind = kText, AT(VersionInfoRecord, eeprom)},
};
constexpr Field kFeatures[] = {
    {.name = "antennaDiversity", .kind = kFlag, AT(FeaturesRecord, antennaDiversity)},
    {.name = "beaconInterval", .kind = kFlag, AT(FeaturesRecord, beaconInterval)},
    {.name = "fragThreshold", .kind = kFlag, AT(FeaturesRecord, fragThreshold)},
    {.name = "rtsThreshold", .kind = kFlag, AT(FeaturesRecord, rtsThreshold)},
    {.name = "sweepTable", .kind = kFlag, AT(FeaturesRecord, sweepTable)},
    {.name = "apTable", .kind = kFlag, AT(FeaturesRecord, apTable)},
    {.name = "peerTable", .kind = kFlag, AT(FeaturesRecord, peerTable)},
    {.name = "radioState", .kind = kFlag, AT(FeaturesRecord, radioState)},
    {.name = "preamble", .kind = kFlag, AT(FeaturesRecord, preamble)},
    {.name = "qos", .kind = kFlag, AT(FeaturesRecord, qos)},
    {.name = "powerMode", .kind = kFlag, AT(FeaturesRecord, powerMode)},
    {.name = "autoPsp", .kind = kFlag, AT(FeaturesRecord, autoPsp)},
    {.name = "powerSource", .kind = kFlag, AT(FeaturesRecord, powerSource)},
    {.name = "bssTxPwrCtl", .kind = kFlag, AT(FeaturesRecord, bssTxPwrCtl)},
    {.name = "ibssTxPwrCtl", .kind = kFlag, AT(FeaturesRecord, ibssTxPwrCtl)},
    {.name = "wep", .kind = kFlag, AT(FeaturesRecord, wep)},
    {.name = "security8021x", .kind = kFlag, AT(FeaturesRecord, security8021x)},
    {.name = "leap", .kind = kFlag, AT(FeaturesRecord, leap)},
    {.name = "tkip", .kind = kFlag, AT(FeaturesRecord, tkip)},
    {.name = "aes", .kind = kFlag, AT(FeaturesRecord, aes)},
    {.name = "hwRadioSwitch", .kind = kFlag, AT(FeaturesRecord, hwRadioSwitch)},
};
constexpr Field kSignal[] = {
    {.name = "quality", .kind = kNumber, AT(SignalParametersRecord, quality), .names = kNamesOf<codes::kSignalQualities>},
    {.name = "rssi", .kind = kSigned, AT(SignalParametersRecord, rssi), .note = "dBm"},
    {.name = "percentMissedBeacons", .kind = kNumber, AT(SignalParametersRecord, percentMissedBeacons), .note = "per cent"},
    {.name = "percentTxRetries", .kind = kNumber, AT(SignalParametersRecord, percentTxRetries), .note = "per cent"},
    {.name = "crcErrors", .kind = kNumber, AT(SignalParametersRecord, crcErrors)},
};
constexpr Field kTcpip[] = {
    {.name = "dhcpEnabled", .kind = kFlag, AT(TcpipConfigRecord, dhcpEnabled)},
    {.name = "dnsFromDhcp", .kind = kFlag, AT(TcpipConfigRecord, dnsFromDhcp)},
    {.name = "winsFromDhcp", .kind = kFlag, AT(TcpipConfigRecord, winsFromDhcp)},
    {.name = "ipAddress", .kind = kText, AT(TcpipConfigRecord, ipAddress)},
    {.name = "defaultGateway", .kind = kText, AT(TcpipConfigRecord, defaultGateway)},
    {.name = "dhcpServer", .kind = kText, AT(TcpipConfigRecord, dhcpServer)},
    {.name = "dhcpSubnetMask", .kind = kText, AT(TcpipConfigRecord, dhcpSubnetMask)},
    {.name = "dnsPrimary", .kind = kText, AT(TcpipConfigRecord, dnsPrimary)},
    {.name = "dnsSecondary", .kind = kText, AT(TcpipConfigRecord, dnsSecondary)},
    {.name = "winsPrimary", .kind = kText, AT(TcpipConfigRecord, winsPrimary)},
    {.name = "winsSecondary", .kind = kText, AT(TcpipConfigRecord, winsSecondary)},
    {.name = "domain", .kind = kText, AT(TcpipConfigRecord, domain)},
    {.name = "scopeId", .kind = kText, AT(TcpipConfigRecord, scopeId)},
};
constexpr Field kTcpipv6[] = {
    {.name = "dhcpEnabled", .kind = kFlag, AT(Tcpipv6ConfigRecord, dhcpEnabled)},
    {.name = "dnsFromDhcp", .kind = kFlag, AT(Tcpipv6ConfigRecord, dnsFromDhcp)},
    {.name = "winsFromDhcp", .kind = kFlag, AT(Tcpipv6ConfigRecord, winsFromDhcp)},
    {.name = "ipAddresses", .kind = kTexts, AT(Tcpipv6ConfigRecord, ipAddresses)},
    {.name = "addressCount", .kind = kNumber, AT(Tcpipv6ConfigRecord, addressCount), .note = "overrides the number of addresses"},
    {.name = "gateways", .kind = kTexts, AT(Tcpipv6ConfigRecord, gateways)},
    {.name = "gatewayCount", .kind = kNumber, AT(Tcpipv6ConfigRecord, gatewayCount), .note = "overrides the number of gateways"},
    {.name = "dhcpServer", .kind = kText, AT(Tcpipv6ConfigRecord, dhcpServer)},
    {.name = "dhcpSubnetMask", .kind = kText, AT(Tcpipv6ConfigRecord, dhcpSubnetMask)},
    {.name = "dnsPrimary", .kind = kText, AT(Tcpipv6ConfigRecord, dnsPrimary)},
    {.name = "dnsSecondary", .kind = kText, AT(Tcpipv6ConfigRecord, dnsSecondary)},
    {.name = "winsPrimary", .kind = kText, AT(Tcpipv6ConfigRecord, winsPrimary)},
    {.name = "winsSecondary", .kind = kText, AT(Tcpipv6ConfigRecord, winsSecondary)},
    {.name = "domain", .kind = kText, AT(Tcpipv6ConfigRecord, domain)},
    {.name = "scopeId", .kind = kText, AT(Tcpipv6ConfigRecord, scopeId)},
};
constexpr Field kTraffic[] = {
    {.name = "rates", .kind = kNumbers, AT(TxRxStatsRecord, rates), .note = "one a transmit rate"},
    {.name = "txTotalPackets", .kind = kNumber, AT(TxRxStatsRecord, txTotalPackets)},
    {.name = "txTotalBytes", .kind = kNumber, AT(TxRxStatsRecord, txTotalBytes)},
    {.name = "txDirectPackets", .kind = kNumber, AT(TxRxStatsRecord, txDirectPackets)},
    {.name = "txDirectPacketsRate", .kind = kNumbers, AT(TxRxStatsRecord, txDirectPacketsRate)},
    {.name = "txNonDirectPackets", .kind = kNumber, AT(TxRxStatsRecord, txNonDirectPackets)},
    {.name = "txNonDirectPacketsRate", .kind = kNumbers, AT(TxRxStatsRecord, txNonDirectPacketsRate)},
    {.name = "rxTotalPackets", .kind = kNumber, AT(TxRxStatsRecord, rxTotalPackets)},
    {.name = "rxTotalBytes", .kind = kNumber, AT(TxRxStatsRecord, rxTotalBytes)},
    {.name = "rxDirectPackets", .kind = kNumber, AT(TxRxStatsRecord, rxDirectPackets)},
    {.name = "rxDirectPacketsRate", .kind = kNumbers, AT(TxRxStatsRecord, rxDirectPacketsRate)},
    {.name = "rxNonDirectPackets", .kind = kNumber, AT(TxRxStatsRecord, rxNonDirectPackets)},
    {.name = "rxNonDirectPacketsRate", .kind = kNumbers, AT(TxRxStatsRecord, rxNonDirectPacketsRate)},
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
    {.name = "number", .kind = kNumber, AT(AdapterRecords, number), .note = "the library's number; if missing, the position in the array, from 1"},
    {.name = "mac", .kind = kMac, AT(AdapterRecords, mac), .note = "required"},
    {.name = "present", .kind = kFlag, AT(AdapterRecords, present)},
    {.name = "type", .kind = kNumber, AT(AdapterRecords, type), .names = kNamesOf<codes::kAdapterTypes>},
    {.name = "band", .kind = kNumber, AT(AdapterRecords, band), .names = kNamesOf<codes::kBands>},
    {.name = "radioState", .kind = kFlag, AT(AdapterRecords, radioState)},
    {.name = "hwRadioState", .kind = kFlag, AT(AdapterRecords, hwRadioState), .note = "switch on the case"},
    {.name = "registrationState", .kind = kFlag, AT(AdapterRecords, registrationState)},
    {.name = "associationStatus", .kind = kNumber, AT(AdapterRecords, associationStatus), .names = kNamesOf<codes::kAssociationStatuses>},
    {.name = "readyForProfileState", .kind = kFlag, AT(AdapterRecords, readyForProfileState)},
    {.name = "ibssTxPower", .kind = kNumber, AT(AdapterRecords, ibssTxPower), .note = "code, 1 to 5"},
    {.name = "supportedRates", .kind = kBits, AT(AdapterRecords, supportedRates), .note = "Mbit/s", .names = kNamesOf<codes::kRates>},
    {.name = "pspMode", .kind = kNumber, .offset = offsetof(AdapterRecords, psp) + offsetof(PspInfoRecord, mode), .size = sizeof(PspInfoRecord::mode), .note = "code, 1 to 7"},
    {.name = "authenticationStatus", .kind = kNumber, AT(AdapterRecords, authenticationStatus), .names = kNamesOf<codes::kAuthenticationStatuses>},
    {.name = "txRate", .kind = kSigned, AT(AdapterRecords, txRate), .note = "bit/s"},
    {.name = "adapterState", .kind = kFlag, AT(AdapterRecords, adapterState), .note = "enabled"},
    {.name = "protocolPreference", .kind = kNumber, AT(AdapterRecords, protocolPreference), .note = "code, 1 to 8"},
    {.name = "connectionPreference", .kind = kNumber, AT(AdapterRecords, connectionPreference), .note = "code, 1 to 4"},
    {.name = "xpZeroConfigEnabled", .kind = kFlag, AT(AdapterRecords, xpZeroConfigEnabled)},
    {.name = "ccxTpcPower", .kind = kSigned, AT(AdapterRecords, ccxTpcPower), .note = "dBm"},
    {.name = "tcpIpBound", .kind = kFlag, AT(AdapterRecords, tcpIpBound)},
    {.name = "supported", .kind = kFlag, AT(AdapterRecords, supported)},
    {.name = "excludeListEnabled", .kind = kFlag, AT(AdapterRecords, excludeListEnabled)},
    {.name = "rogueApCount", .kind = kNumber, AT(AdapterRecords, rogueApCount)},
    {.name = "lastAppliedProfile", .kind = kText, .offset = offsetof(AdapterRecords, lastProfile) + offsetof(ProfileRecord, name), .size = sizeof(ProfileRecord::name), .note = "name"},
    {.name = "ccxVersion", .kind = kRecord, AT(AdapterRecords, ccxVersion), .record = &kCcxVersionTable},
    {.name = "ccxPowerLevels", .kind = kRecord, AT(AdapterRecords, ccxPowerLevels), .record = &kCcxPowerTable},
    {.name = "channels", .kind = kRecord, AT(AdapterRecords, channels), .record = &kChannelsTable},
    {.name = "association", .kind = kRecord, AT(AdapterRecords, association), .record = &kAssociationTable},
    {.name = "associationStats", .kind = kRecord, AT(AdapterRecords, associationStats), .record = &kStatsTable},
    {.name = "device", .kind = kRecord, AT(AdapterRecords, device), .record = &kDeviceTable},
    {.name = "configuration", .kind = kRecord, AT(AdapterRecords, configuration), .record = &kConfigurationTable},
    {.name = "versions", .kind = kRecord, AT(AdapterRecords, versions), .record = &kVersionsTable},
    {.name = "features", .kind = kRecord, AT(AdapterRecords, features), .record = &kFeaturesTable},
    {.name = "signal", .kind = kRecord, AT(AdapterRecords, signal), .record = &kSignalTable},
    {.name = "tcpip", .kind = kRecord, AT(AdapterRecords, tcpip), .record = &kTcpipTable},
    {.name = "tcpipv6", .kind = kRecord, AT(AdapterRecords, tcpipv6), .record = &kTcpipv6Table},
    {.name = "traffic", .kind = kRecord, AT(AdapterRecords, traffic), .record = &kTrafficTable},
};
constexpr Field kNetwork[] = {
    {.name = "ssid", .kind = kText, AT(ScanListEntry, ssid)},
    {.name = "mac", .kind = kMac, AT(ScanListEntry, macAddress)},
    {.name = "band", .kind = kNumber, AT(ScanListEntry, band), .names = kNamesOf<codes::kBands>},
    {.name = "opMode", .kind = kNumber, AT(ScanListEntry, opMode), .names = kNamesOf<codes::kOpModes>},
    {.name = "rssi", .kind = kSigned, AT(ScanListEntry, rssi), .note = "dBm"},
    {.name = "encrypted", .kind = kFlag, AT(ScanListEntry, encrypted)},
    {.name = "auth", .kind = kBits, AT(ScanListEntry, authBits), .names = kNamesOf<codes::kAuthentications>},
    {.name = "unicast", .kind = kBits, AT(ScanListEntry, unicastBits), .names = kNamesOf<codes::kCiphers>},
    {.name = "multicast", .kind = kBits, AT(ScanListEntry, multicastBits), .names = kNamesOf<codes::kCiphers>},
    {.name = "channel", .kind = kNumber, AT(ScanListEntry, channel)},
    {.name = "stealth", .kind = kFlag, AT(ScanListEntry, stealth), .note = "hidden network"},
};
constexpr Field kExcludeEntry[] = {
    {.name = "ssid", .kind = kPaddedText, AT(ExcludeEntryRecord, ssid)},
    {.name = "mac", .kind = kMac, AT(ExcludeEntryRecord, macAddress)},
    {.name = "reason", .kind = kNumber, AT(ExcludeEntryRecord, reasonBits), .note = "bits: 0x1, 0x20, 0x40, 0x8000, 0x10000"},
};
constexpr Field kProfile[] = {
    {.name = "name", .kind = kText, AT(ProfileRecord, name), .note = "required"},
    {.name = "ssid", .kind = kText, AT(ProfileRecord, ssid)},
    {.name = "mandatoryAp", .kind = kText, AT(ProfileRecord, mandatoryAp)},
    {.name = "opMode", .kind = kNumber, AT(ProfileRecord, opMode), .names = kNamesOf<codes::kOpModes>},
    {.name = "stealth", .kind = kFlag, AT(ProfileRecord, stealth), .note = "hidden network"},
    {.name = "encryption", .kind = kNumber, AT(ProfileRecord, encryption), .names = kNamesOf<codes::kEncryptions>},
    {.name = "authentication", .kind = kNumber, AT(ProfileRecord, authentication), .names = kNamesOf<codes::kAuthenModes>},
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
