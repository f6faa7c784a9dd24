#pragma once
// The records of the adapter control library in their binary layout: little-endian, fixed widths; a
// text may have no terminator in its field. The product never reads fields named `unread…`. Sizes
// and offsets are in bytes.

#include <cstddef>
#include <cstdint>

namespace adapterapi {

/// The library's number for an adapter: the first argument of every operation on an adapter, and of
/// no other operation.
using AdapterNumber = std::uint32_t;

/// The library's number for a setting or a policy. The known ones are in `setting` in codes.h.
enum SettingNumber : std::uint32_t {};

/// An argument that is the same in every call of its operation.
enum FixedNumber : std::uint32_t {};

/// The result of every operation of the library. Zero is success.
using ApiStatus = std::int32_t;

/// An IEEE 802 address: six bytes, in the order in which they are written.
using MacAddress = std::uint8_t[6];

#pragma pack(push, 1)

/// One adapter of GetAdapterList.
struct AdapterListRecord {
  AdapterNumber number;
  MacAddress macAddress;
  std::uint8_t unread10[1218];
  std::uint32_t present;  ///< non-zero: the adapter is plugged in
  std::uint8_t unread1232[8];
};

/// GetAdapterList: a count, followed by that many records.
struct AdapterList {
  std::uint32_t count;
  AdapterListRecord records[1];
};

/// GetPspInfo.
struct PspInfoRecord {
  std::uint32_t unread0;
  std::uint32_t mode;  ///< power-save mode, 1 to 7
};

/// GetCcxVersion. The library fills three bytes; `room` is our safety margin.
struct CcxVersionRecord {
  std::uint8_t major;
  std::uint8_t minor;
  std::uint8_t build;
  std::uint8_t room[13];
};

/// GetCcxPowerLevels: a count, followed by that many levels in dBm. The library documents no
/// maximum; a count above kRoom is read as kRoom.
struct CcxPowerLevelsRecord {
  static constexpr std::uint32_t kRoom = 255;
  std::uint32_t count;
  std::int32_t levels[kRoom];
};

/// ORVEL_WLAN_PROFILE of both libraries (ApplyProfile, GetLastAppliedProfile).
inline constexpr std::size_t kProfileSize = 3648;
inline constexpr std::size_t kProfileNameOffset = 4;       ///< narrow text
inline constexpr std::size_t kProfileReenterOffset = 208;  ///< u32, 1: re-enter request
inline constexpr std::size_t kProfileFlagsOffset = 2640;   ///< u32
inline constexpr std::uint32_t kProfileAppliedFlag = 0x2;  ///< set before every application

/// GetExcludeCandidate fills it, and it is passed unread to ExcludeThisAP.
struct ExcludeCandidateRecord {
  std::uint8_t unread[3648];
};

/// GetChannelInfo and SetIbssPreferences: ad hoc channels.
struct IbssPreferencesRecord {
  std::uint32_t unread0;
  std::uint32_t channelA;  ///< chosen 5 GHz channel number
  std::uint32_t channelADefault;
  std::uint32_t channelAOptions;  ///< allowed 5 GHz channels, bit set
  std::uint32_t channelB;         ///< chosen 2.4 GHz channel number
  std::uint32_t channelBDefault;
  std::uint32_t channelBOptions;  ///< allowed 2.4 GHz channels, bit n is channel n + 1
  std::uint32_t unread28[2];      ///< written back unchanged
};

/// GetAssociationInfo.
struct AssociationInfoRecord {
  std::uint32_t associated;  ///< non-zero: the adapter is associated
  char profileName[64];
  char ssid[33];
  MacAddress bssid;
  std::uint8_t unread107[5];
  std::uint32_t rate;             ///< bit/s
  std::uint32_t opMode;           ///< 1 infrastructure, 2 ad hoc
  std::uint32_t authenEnabled;    ///< non-zero: authentication in force
  std::uint32_t authenAlgorithm;  ///< EAP method code, 0 to 7
  std::uint32_t encryption;       ///< encryption code, 1 to 6
  std::uint32_t authenMode;       ///< authentication mode code, 1 to 7
  std::uint32_t unread136;
  std::uint8_t channel;
  std::uint8_t unread141[3];
};

/// GetAssociationStats: counters since the last ResetStatistics.
struct AssociationStatsRecord {
  std::uint32_t unread0[2];
  std::int32_t rssi;  ///< dBm
  std::uint32_t numAps;
  std::uint32_t numAssociations;
  std::uint32_t numFullScans;
  std::uint32_t numPartialScans;
  std::uint32_t roamCount;
  std::uint32_t apDidNotTx;
  std::uint32_t poorBeaconQuality;
  std::uint32_t loadBalancing;
  std::uint32_t lowRssi;
  std::uint32_t poorChannelQuality;
  std::uint32_t droppedByAp;
  std::uint32_t rxBeacons;
  std::uint32_t txRetries;
  std::uint32_t percentTxErrs;  ///< per cent
  std::uint32_t crcErrs;
  std::uint32_t percentMissedBeacons;  ///< per cent
};

/// One network of GetCachedScanList and GetAvailableNetworks.
struct ScanListEntry {
  char ssid[33];
  MacAddress macAddress;
  std::uint8_t unread39;
  std::uint32_t band;    ///< 1 802.11a, 2 802.11b, 3 802.11g
  std::uint32_t opMode;  ///< 1 infrastructure, 2 ad hoc
  std::int16_t rssi;     ///< dBm
  std::uint8_t unread50[2];
  std::uint32_t encrypted;
  std::uint32_t authBits;       ///< cached scan list only
  std::uint32_t unicastBits;    ///< cached scan list only
  std::uint32_t multicastBits;  ///< cached scan list only
  std::uint8_t unread68[4];
  std::uint16_t channel;  ///< the cached scan list uses its first byte only
  std::uint8_t unread74[2];
  std::uint32_t stealth;  ///< cached scan list only
  std::uint8_t unread80[8];
};

/// A list that the library owns: a signed count, followed by that many entries.
template <class Entry>
struct LibraryList {
  std::int32_t count;
  Entry entries[1];
};
using ScanList = LibraryList<ScanListEntry>;

/// One network of GetExcludeList; also what AddExcludeListEntry and RemoveExcludeListEntry take.
struct ExcludeEntryRecord {
  char ssid[32];  ///< zero-padded; a name of 32 bytes is ended by the zero byte after the field
  std::uint8_t unread32[8];
  MacAddress macAddress;
  std::uint8_t unread46[2];
  std::uint32_t reasonBits;
};
using ExcludeList = LibraryList<ExcludeEntryRecord>;

/// GetDeviceInfo fills it; it is passed to SetAdapter and IsAdapterSupported.
struct DeviceInfoRecord {
  std::uint8_t unread0[6];
  std::uint16_t vendorId;
  std::uint16_t deviceId;
  std::uint16_t subsystemVendorId;
  std::uint16_t subsystemId;
  std::uint8_t revisionId;
  std::uint8_t unread15;
  std::uint16_t hardwareId;
  std::uint8_t unread18[2];
  std::uint32_t cardType;  ///< one bit
};

/// GetAdapterConfiguration. The library may write more than the product reads, hence `room`.
struct ConfigInfoRecord {
  std::int32_t interruptNumber;
  std::uint32_t ioAddress;
  std::uint32_t memoryAddress;
  std::int32_t memorySize;
  std::uint32_t attributeMemoryAddress;
  std::int32_t attributeMemorySize;
  std::uint32_t controllerIoAddress;
  std::uint32_t packetFilterMask;
  std::uint32_t addressingMode;  ///< 1 memory, 2 I/O
  std::uint8_t unread36[4];
  std::uint16_t socketNumber;
  std::uint8_t room[86];
};

/// GetVersionInfo: eight narrow texts.
struct VersionInfoRecord {
  std::uint32_t unread0;
  char driver[32];
  char firmware11a[32];
  char firmware11b[32];
  char firmware11g[32];
  char microcode11a[32];
  char microcode11b[32];
  char microcode11g[32];
  char eeprom[32];
};

/// GetAdapterFeatures: 32-bit flags; non-zero: supported.
struct FeaturesRecord {
  std::uint32_t antennaDiversity;
  std::uint32_t beaconInterval;
  std::uint32_t fragThreshold;
  std::uint32_t rtsThreshold;
  std::uint32_t sweepTable;
  std::uint32_t apTable;
  std::uint32_t peerTable;
  std::uint32_t radioState;
  std::uint32_t preamble;
  std::uint32_t qos;
  std::uint32_t unread40[18];
  std::uint32_t powerMode;
  std::uint32_t autoPsp;
  std::uint32_t powerSource;
  std::uint32_t bssTxPwrCtl;
  std::uint32_t ibssTxPwrCtl;
  std::uint32_t wep;
  std::uint32_t security8021x;
  std::uint32_t leap;
  std::uint32_t tkip;
  std::uint32_t aes;
  std::uint32_t hwRadioSwitch;
  std::uint32_t unread156[6];
};

/// GetSignalParameters.
struct SignalParametersRecord {
  std::uint32_t quality;  ///< quality code, 2 to 7
  std::int32_t rssi;      ///< dBm
  std::uint8_t unread8[8];
  std::uint32_t percentMissedBeacons;
  std::uint32_t percentTxRetries;
  std::uint32_t crcErrors;
};

/// GetTcpipConfigInfo.
struct TcpipConfigRecord {
  std::uint32_t dhcpEnabled;
  std::uint32_t dnsFromDhcp;
  std::uint32_t winsFromDhcp;
  char ipAddress[50];
  char defaultGateway[25];
  char dhcpServer[25];
  char dhcpSubnetMask[25];
  char dnsPrimary[25];
  char dnsSecondary[25];
  char winsPrimary[25];
  char winsSecondary[25];
  char domain[25];
  char scopeId[34];
};

/// GetTcpipv6ConfigInfo. The caller sets `size` to the size of the record.
struct Tcpipv6ConfigRecord {
  std::uint32_t size;
  std::uint32_t dhcpEnabled;
  std::uint32_t dnsFromDhcp;
  std::uint32_t winsFromDhcp;
  std::uint32_t addressCount;
  char ipAddresses[11][50];
  std::uint8_t padding570[2];
  std::uint32_t gatewayCount;
  char gateways[10][50];
  char dhcpServer[50];
  char dhcpSubnetMask[50];
  char dnsPrimary[50];
  char dnsSecondary[50];
  char winsPrimary[50];
  char winsSecondary[50];
  char domain[50];
  char scopeId[50];
  std::uint8_t unread1476[8];
};

/// GetTxRxStats: packet and byte counters; the arrays have one element for each transmit rate.
struct TxRxStatsRecord {
  std::uint32_t rates[16];
  std::uint32_t txTotalPackets;
  std::uint32_t txTotalBytes;
  std::uint32_t txDirectPackets;
  std::uint32_t txDirectPacketsRate[16];
  std::uint32_t txNonDirectPackets;
  std::uint32_t txNonDirectPacketsRate[16];
  std::uint32_t rxTotalPackets;
  std::uint32_t rxTotalBytes;
  std::uint32_t rxDirectPackets;
  std::uint32_t rxDirectPacketsRate[16];
  std::uint32_t rxNonDirectPackets;
  std::uint32_t rxNonDirectPacketsRate[16];
};

#pragma pack(pop)

static_assert(sizeof(AdapterListRecord) == 1240);
static_assert(offsetof(AdapterListRecord, macAddress) == 4);
static_assert(offsetof(AdapterListRecord, present) == 1228);
static_assert(offsetof(AdapterList, records) == 4);
static_assert(sizeof(PspInfoRecord) == 8 && offsetof(PspInfoRecord, mode) == 4);
static_assert(offsetof(CcxPowerLevelsRecord, levels) == 4);
static_assert(sizeof(ExcludeCandidateRecord) == 3648);

static_assert(sizeof(IbssPreferencesRecord) == 36);
static_assert(offsetof(IbssPreferencesRecord, channelA) == 4);
static_assert(offsetof(IbssPreferencesRecord, channelADefault) == 8);
static_assert(offsetof(IbssPreferencesRecord, channelAOptions) == 12);
static_assert(offsetof(IbssPreferencesRecord, channelB) == 16);
static_assert(offsetof(IbssPreferencesRecord, channelBDefault) == 20);
static_assert(offsetof(IbssPreferencesRecord, channelBOptions) == 24);

static_assert(sizeof(AssociationInfoRecord) == 144);
static_assert(offsetof(AssociationInfoRecord, profileName) == 4);
static_assert(offsetof(AssociationInfoRecord, ssid) == 68);
static_assert(offsetof(AssociationInfoRecord, bssid) == 101);
static_assert(offsetof(AssociationInfoRecord, rate) == 112);
static_assert(offsetof(AssociationInfoRecord, opMode) == 116);
static_assert(offsetof(AssociationInfoRecord, authenEnabled) == 120);
static_assert(offsetof(AssociationInfoRecord, authenAlgorithm) == 124);
static_assert(offsetof(AssociationInfoRecord, encryption) == 128);
static_assert(offsetof(AssociationInfoRecord, authenMode) == 132);
static_assert(offsetof(AssociationInfoRecord, channel) == 140);

static_assert(sizeof(AssociationStatsRecord) == 76);
static_assert(offsetof(AssociationStatsRecord, rssi) == 8);
static_assert(offsetof(AssociationStatsRecord, numAps) == 12);
static_assert(offsetof(AssociationStatsRecord, percentMissedBeacons) == 72);

static_assert(sizeof(ScanListEntry) == 88);
static_assert(offsetof(ScanListEntry, macAddress) == 33);
static_assert(offsetof(ScanListEntry, band) == 40);
static_assert(offsetof(ScanListEntry, opMode) == 44);
static_assert(offsetof(ScanListEntry, rssi) == 48);
static_assert(offsetof(ScanListEntry, encrypted) == 52);
static_assert(offsetof(ScanListEntry, authBits) == 56);
static_assert(offsetof(ScanListEntry, unicastBits) == 60);
static_assert(offsetof(ScanListEntry, multicastBits) == 64);
static_assert(offsetof(ScanListEntry, channel) == 72);
static_assert(offsetof(ScanListEntry, stealth) == 76);
static_assert(offsetof(ScanList, entries) == 4);

static_assert(sizeof(ExcludeEntryRecord) == 52);
static_assert(offsetof(ExcludeEntryRecord, macAddress) == 40);
static_assert(offsetof(ExcludeEntryRecord, reasonBits) == 48);
static_assert(offsetof(ExcludeList, entries) == 4);

static_assert(sizeof(DeviceInfoRecord) == 24);
static_assert(offsetof(DeviceInfoRecord, vendorId) == 6);
static_assert(offsetof(DeviceInfoRecord, deviceId) == 8);
static_assert(offsetof(DeviceInfoRecord, subsystemVendorId) == 10);
static_assert(offsetof(DeviceInfoRecord, subsystemId) == 12);
static_assert(offsetof(DeviceInfoRecord, revisionId) == 14);
static_assert(offsetof(DeviceInfoRecord, hardwareId) == 16);
static_assert(offsetof(DeviceInfoRecord, cardType) == 20);

static_assert(sizeof(ConfigInfoRecord) >= 44);
static_assert(offsetof(ConfigInfoRecord, packetFilterMask) == 28);
static_assert(offsetof(ConfigInfoRecord, addressingMode) == 32);
static_assert(offsetof(ConfigInfoRecord, socketNumber) == 40);

static_assert(sizeof(VersionInfoRecord) == 260);
static_assert(offsetof(VersionInfoRecord, driver) == 4);
static_assert(offsetof(VersionInfoRecord, eeprom) == 228);
static_assert(sizeof(FeaturesRecord) == 180);
static_assert(offsetof(FeaturesRecord, qos) == 36);
static_assert(offsetof(FeaturesRecord, powerMode) == 112);
static_assert(offsetof(FeaturesRecord, hwRadioSwitch) == 152);

static_assert(sizeof(SignalParametersRecord) == 28);
static_assert(offsetof(SignalParametersRecord, rssi) == 4);
static_assert(offsetof(SignalParametersRecord, percentMissedBeacons) == 16);
static_assert(offsetof(SignalParametersRecord, crcErrors) == 24);

static_assert(sizeof(TcpipConfigRecord) == 296);
static_assert(offsetof(TcpipConfigRecord, ipAddress) == 12);
static_assert(offsetof(TcpipConfigRecord, defaultGateway) == 62);
static_assert(offsetof(TcpipConfigRecord, scopeId) == 262);

static_assert(sizeof(Tcpipv6ConfigRecord) == 1484);
static_assert(offsetof(Tcpipv6ConfigRecord, ipAddresses) == 20);
static_assert(offsetof(Tcpipv6ConfigRecord, gatewayCount) == 572);
static_assert(offsetof(Tcpipv6ConfigRecord, gateways) == 576);
static_assert(offsetof(Tcpipv6ConfigRecord, dhcpServer) == 1076);
static_assert(offsetof(Tcpipv6ConfigRecord, scopeId) == 1426);

static_assert(sizeof(TxRxStatsRecord) == 352);
static_assert(offsetof(TxRxStatsRecord, txTotalPackets) == 64);
static_assert(offsetof(TxRxStatsRecord, txDirectPacketsRate) == 76);
static_assert(offsetof(TxRxStatsRecord, txNonDirectPackets) == 140);
static_assert(offsetof(TxRxStatsRecord, rxTotalPackets) == 208);
static_assert(offsetof(TxRxStatsRecord, rxDirectPacketsRate) == 220);
static_assert(offsetof(TxRxStatsRecord, rxNonDirectPackets) == 284);

}  // namespace adapterapi

/// A profile, as both closed libraries pass it: 3648 bytes, read and written only at the offsets
/// above. It is in the global namespace because the decorated names of the profile library say so.
struct ORVEL_WLAN_PROFILE {
  std::uint8_t bytes[adapterapi::kProfileSize];
};
