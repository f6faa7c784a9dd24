#include "host/fleet/numbers.h"

#include "schema/contract.h"

namespace host {
namespace {

using enum NumberForm;

constexpr NumberRow kRows[] = {
    {"WiFi_NetworkAdapter", "SupportedRates", kList, "SupportedRatesMbps"},
    {"WiFi_NetworkAdapter", "TxRate", kInteger, "TxRateNumber"},
    {"WiFi_NetworkAdapter", "CcxTpcPower", kInteger, "CcxTpcPowerNumber"},
    {"WiFi_NetworkAdapter", "CcxPowerLevels", kList, "CcxPowerLevelsMilliwatts"},
    {"WiFi_AdapterChannel", "ChannelA_Options", kList, "ChannelA_OptionNumbers"},
    {"WiFi_AdapterChannel", "ChannelB_Options", kList, "ChannelB_OptionNumbers"},
    {"WiFi_AdapterSignalParameters", "CrcErrors", kCounter, nullptr},
    {"WiFi_AdapterSignalParameters", "RSSI", kInteger, "SignalDbm"},
    {"WiFi_AdapterAssociationInfo", "Rate", kMeasure, "RateMbps"},
    {"WiFi_AdapterAssociationInfo", "Channel", kInteger, "ChannelNumber"},
    {"WiFi_AdapterAssocStats", "Rssi", kMeasure, "SignalDbm"},
    {"WiFi_AdapterAssocStats", "NumAps", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "NumAssociations", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "NumFullScans", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "NumPartialScans", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "RoamCount", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "ApDidNotTx", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "PoorBeaconQuality", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "LoadBalancing", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "LowRssi", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "PoorChannelQuality", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "DroppedByAp", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "RxBeacons", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "TxRetries", kCounter, nullptr},
    {"WiFi_AdapterAssocStats", "CrcErrs", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "TxTotalPackets", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "TxTotalBytes", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "TxDirectPackets", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "TxDirectPacketsRate", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "TxNonDirectPackets", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "TxNonDirectPacketsRate", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "RxTotalPackets", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "RxTotalBytes", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "RxDirectPackets", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "RxDirectPacketsRate", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "RxNonDirectPackets", kCounter, nullptr},
    {"WiFi_AdapterTxRxStats", "RxNonDirectPacketsRate", kCounter, nullptr},
    {"WiFi_AdapterCachedScanList", "RSSI", kInteger, "SignalDbm"},
    {"WiFi_AdapterCachedScanList", "ChannelID", kInteger, "ChannelNumber"},
    {"WiFi_AvailableNetwork", "RSSI", kInteger, "SignalDbm"},
    {"WiFi_AvailableNetwork", "Encrypted", kInteger, "ChannelNumber"},
    {"WiFi_AdapterDevice", "RevisionID", kInteger, "RevisionNumber"},
    {"WiFi_AdapterConfigSettings", "InterruptNumber", kInteger, "InterruptNumberValue"},
    {"WiFi_AdapterConfigSettings", "MemorySize", kInteger, "MemorySizeNumber"},
    {"WiFi_AdapterConfigSettings", "AttriuteMemorySize", kInteger, "AttributeMemorySizeNumber"},
};

/// The first CLASS.PROPERTY that the schema does not have, or has in another form than a text or,
/// for a counter, a number.
constexpr contract::Name Misread() {
  for (const NumberRow& row : kRows) {
    const contract::Property property = contract::FindProperty(row.className, row.property);
    const CIMTYPE scalar = property.type & ~CIM_FLAG_ARRAY;
    const bool fits = scalar == CIM_STRING || (row.form == kCounter && scalar == CIM_SINT32);
    if (property.name.empty() || !fits) return {row.className, row.property};
  }
  return {};
}
static_assert(contract::IsKnown<Misread()>());

}  // namespace

const std::span<const NumberRow> kNumbers = kRows;

std::string NameOf(const NumberRow& row) {
  return row.name == nullptr ? std::string(row.property) + "Unsigned" : row.name;
}

}  // namespace host
