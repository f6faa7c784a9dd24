#include "classes/network_adapter.h"

#include <algorithm>
#include <cmath>

#include "adapterapi/bounded_text.h"
#include "adapterapi/profile_name.h"
#include "classes/os_gate.h"
#include "platform/short_text.h"
#include "provider/core/code_table.h"
#include "provider/core/guarded_call.h"
#include "provider/core/property_writer.h"

namespace wifi {
namespace {

namespace codes = adapterapi::codes;
namespace operation = adapterapi::operation;
using adapterapi::AdapterNumber;
using adapterapi::Operation;
using platform::ShortText;
using platform::Variant;

constexpr const char* kNoCcxVersion = "0.0.0";

struct Filling {
  ProviderState& state;
  PropertyWriter& writer;
  const AdapterEntry& entry;
};

/// The result of a guarded getter: its value (0 after an exception), and whether it succeeded.
template <class Value>
struct Reading {
  Value value;
  bool succeeded;
};

template <class Value>
Reading<Value> Read(const Filling& filling, const Operation<AdapterNumber, Value*>& getter) {
  Value value = 0;
  const GuardedResult result = GuardedCall(filling.state.api, getter, filling.entry.number, value);
  return {value, result.succeeded()};
}

using Slot = std::uint32_t LastKnownValues::*;

void Remember(const Filling& filling, Slot slot, std::uint32_t value) {
  if (slot != nullptr) filling.state.memory.lastKnown.*slot = value;
}

/// Puts a flag. The status of the getter is ignored.
template <const auto& Getter, Slot Cached = nullptr>
HRESULT PutFlag(const Filling& filling, const OLECHAR* property) {
  const std::uint32_t flag = Read(filling, Getter).value;
  Remember(filling, Cached, flag);
  return filling.writer.PutFlag(property, flag);
}

/// Puts a code as text. The status of the getter is ignored.
template <const auto& Getter, const auto& Texts>
HRESULT PutCode(const Filling& filling, const OLECHAR* property) {
  return filling.writer.PutAnsi(property,
                                TextOfCode(Texts, Read(filling, Getter).value, kBracketedUnknown));
}

/// Puts a number; 0 if the getter fails.
template <const auto& Getter, Slot Cached>
HRESULT PutPreference(const Filling& filling, const OLECHAR* property) {
  const auto reading = Read(filling, Getter);
  const std::uint32_t value = reading.succeeded ? reading.value : 0;
  Remember(filling, Cached, value);
  return filling.writer.PutNumber(property, value);
}

/// Puts a signed number as text. The status of the getter is ignored.
template <const auto& Getter>
HRESULT PutSigned(const Filling& filling, const OLECHAR* property) {
  return filling.writer.PutDecimal(property, Read(filling, Getter).value);
}

HRESULT PutSupportedRates(const Filling& filling, const OLECHAR* property) {
  const auto rates = Read(filling, operation::GetSupportedRates);
  return filling.writer.PutAnsi(property,
                                TextOfAllBits(codes::kRates, rates.succeeded ? rates.value : 0));
}

HRESULT PutPspMode(const Filling& filling, const OLECHAR* property) {
  adapterapi::PspInfoRecord record = {};
  const GuardedResult result =
      GuardedCall(filling.state.api, operation::GetPspInfo, filling.entry.number, record);
  const std::uint32_t mode = result.succeeded() ? record.mode : 0;
  Remember(filling, &LastKnownValues::pspMode, mode);
  return filling.writer.PutNumber(property, mode);
}

HRESULT PutAuthenticationStatus(const Filling& filling, const OLECHAR* property) {
  const auto status = Read(filling, operation::GetAuthenticationStatus);
  return filling.writer.PutAnsi(
      property, TextOfCode(codes::kAuthenticationStatuses, status.succeeded ? status.value : 0,
                           kBracketedUnknown));
}

HRESULT PutCcxVersion(const Filling& filling, const OLECHAR* property) {
  adapterapi::CcxVersionRecord version = {};
  const GuardedResult result =
      GuardedCall(filling.state.api, operation::GetCcxVersion, filling.entry.number, version);
  ShortText<16> text;
  if (result.raised || result.status < 0) {
    text.Add(kNoCcxVersion);
  } else {
    text.Decimal(version.major).Add(".").Decimal(version.minor).Add(".").Decimal(version.build);
  }
  return filling.writer.PutAnsi(property, text);
}

/// The levels in milliwatts: "10.0, 100.0 mW".
std::string PowerLevelsText(const adapterapi::CcxPowerLevelsRecord& record) {
  std::string text;
  const std::uint32_t count = std::min(record.count, record.kRoom);
  for (std::uint32_t index = 0; index < count; ++index) {
    constexpr std::size_t kLongest = 320;  // the largest double has 309 digits before the point
    text += ShortText<kLongest>().Tenths(std::pow(10.0, record.levels[index] / 10.0)).Add(", ");
  }
  text.erase(text.find_last_not_of(", ") + 1);
  return text + " mW";
}

HRESULT PutCcxPowerLevels(const Filling& filling, const OLECHAR* property) {
  adapterapi::CcxPowerLevelsRecord record = {};
  const GuardedResult result =
      GuardedCall(filling.state.api, operation::GetCcxPowerLevels, filling.entry.number, record);
  const bool failed = result.raised || result.status < 0;
  return filling.writer.Put(
      property, Variant::OrOutOfMemory([&] {
        return Variant::AnsiText(failed ? kNoCcxVersion : PowerLevelsText(record));
      }));
}

HRESULT PutLastAppliedProfile(const Filling& filling, const OLECHAR* property) {
  ORVEL_WLAN_PROFILE profile = {};
  const GuardedResult result = GuardedCall(filling.state.api, operation::GetLastAppliedProfile,
                                           filling.entry.number, profile);
  return filling.writer.PutAnsi(
      property, result.raised || result.status < 0 ? std::string_view() : ProfileName(profile));
}

/// The second put of two properties: the value as the library left it, whatever its status. An
/// exception of the library passes through.
template <const auto& Getter>
HRESULT PutUnfiltered(const Filling& filling, const OLECHAR* property) {
  std::uint32_t value = 0;
  (filling.state.api.*Getter.call)(filling.entry.number, &value);
  return filling.writer.PutNumber(property, value);
}

struct FillRow {
  const OLECHAR* property;
  const char* trace;
  HRESULT (*put)(const Filling&, const OLECHAR*);
  bool leftOutOnNt6 = false;
};

// In the order in which the properties are put. Clients see this order.
constexpr FillRow kFillRows[] = {
    {OLESTR("WiFiAdapterType"), "Getting adapter type for WiFi_NetworkAdapter",
     PutCode<operation::GetAdapterType, codes::kAdapterTypes>},
    {OLESTR("Band"), "Getting band for WiFi_NetworkAdapter",
     PutCode<operation::GetBand, codes::kBands>},
    {OLESTR("RadioState"), "Getting radio state for WiFi_NetworkAdapter",
     PutFlag<operation::GetRadioState, &LastKnownValues::radioState>},
    {OLESTR("RegistrationState"), "Getting registration state for WiFi_NetworkAdapter",
     PutFlag<operation::GetRegistrationState>, true},
    {OLESTR("AssociationStatus"), "Getting association information for WiFi_NetworkAdapter",
     PutCode<operation::GetAssociationStatus, codes::kAssociationStatuses>},
    {OLESTR("ReadyForProfileState"), "Getting ready for profile state for WiFi_NetworkAdapter",
     PutFlag<operation::GetReadyForProfileState, &LastKnownValues::readyForProfileState>, true},
    {OLESTR("IBSSTxPower"), "Getting IBSS Tx Power for WiFi_NetworkAdapter",
     PutPreference<operation::GetIbssTxPower, &LastKnownValues::ibssTxPower>},
    {OLESTR("SupportedRates"), "Getting supported rates for WiFi_NetworkAdapter",
     PutSupportedRates},
    {OLESTR("PSPMode"), "Getting PSP Mode for WiFi_NetworkAdapter", PutPspMode},
    // The line says "registration" instead of "radio".
    {OLESTR("HardwareRadioState"), "Getting hardware registration state for WiFi_NetworkAdapter",
     PutFlag<operation::GetHwRadioState>},
    {OLESTR("AuthenticationStatus"), "Getting AuthenticationStatus for WiFi_NetworkAdapter",
     PutAuthenticationStatus},
    {OLESTR("TxRate"), "Getting Tx Rate for WiFi_NetworkAdapter", PutSigned<operation::GetTxRate>},
    {OLESTR("AdapterState"), "Getting adapter state for WiFi_NetworkAdapter",
     PutFlag<operation::GetAdapterState, &LastKnownValues::adapterState>, true},
    {OLESTR("ProtocolPreference"), "Getting ProtocolPreference for WiFi_NetworkAdapter",
     PutPreference<operation::GetProtocolPreference, &LastKnownValues::protocolPreference>, true},
    {OLESTR("ConnectionPreference"), "Getting ConnectionPreference for WiFi_NetworkAdapter",
     PutPreference<operation::GetConnectionPreference, &LastKnownValues::connectionPreference>},
    {OLESTR("XpZeroConfigEnabled"), "Getting XpZeroConfigEnabled for WiFi_NetworkAdapter",
     PutFlag<operation::IsXpZeroConfigEnabled, &LastKnownValues::xpZeroConfigEnabled>},
    {OLESTR("CcxTpcPower"), "Getting CcxTpcPower for WiFi_NetworkAdapter",
     PutSigned<operation::GetCcxTpcPower>},
    {OLESTR("CcxVersion"), "Getting CcxVersion for WiFi_NetworkAdapter", PutCcxVersion},
    {OLESTR("CcxPowerLevels"), "Getting CcxPowerLevels for WiFi_NetworkAdapter", PutCcxPowerLevels},
    {OLESTR("LastAppliedProfile"), "Getting LastAppliedProfile for WiFi_NetworkAdapter",
     PutLastAppliedProfile},
    // Both preferences are put a second time, as the library gives them. The lines name the class
    // of the system policies.
    {OLESTR("ProtocolPreference"), "Getting band preference for WiFi_SystemPolicies",
     PutUnfiltered<operation::GetProtocolPreference>, true},
    {OLESTR("ConnectionPreference"), "Getting connection preference for WiFi_SystemPolicies",
     PutUnfiltered<operation::GetConnectionPreference>},
};

/// Puts the last property. If the setting cannot be read, the property is not put, but the value in
/// `flag` is still remembered.
HRESULT PutDisableRfControl(const Filling& filling, HRESULT lastPut) {
  TraceMessage("Getting DisableRfControl for WiFi_NetworkAdapter");
  std::uint32_t flag = 0;
  const adapterapi::ApiStatus status =
      filling.state.api.GetSettingValue(adapterapi::setting::kDisableRfControl, &flag);
  Remember(filling, &LastKnownValues::disableRfControl, flag);
  if (status == 0) return filling.writer.PutFlag(OLESTR("DisableRfControl"), flag);
  TraceMessage("FillAdapter: Failed to Get DisableRfControl");
  return lastPut;
}

}  // namespace

HRESULT FillNetworkAdapter(ProviderState& state, IWbemClassObject* instance, AdapterEntry& entry) {
  PropertyWriter writer(instance, PutRule::kGoOn);
  const Filling filling{state, writer, entry};
  TraceMessage("Filling adapter information for WiFi_NetworkAdapter");
  TraceMessage(entry.key);
  HRESULT result = writer.PutText(OLESTR("DeviceID"), entry.deviceId);
  for (const FillRow& row : kFillRows) {
    if (FAILED(result)) return result;
    if (row.leftOutOnNt6 && IsNtVersion6()) continue;
    TraceMessage(row.trace);
    result = row.put(filling, row.property);
  }
  return FAILED(result) ? result : PutDisableRfControl(filling, result);
}

}  // namespace wifi
