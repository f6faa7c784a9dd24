#include "classes/network_adapter_update.h"

#include "adapterapi/codes.h"
#include "classes/os_gate.h"
#include "classes/updated_adapter.h"
#include "provider/core/flag_value.h"
#include "provider/core/instance.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

using adapterapi::AdapterApi;
using adapterapi::AdapterNumber;
using adapterapi::ApiStatus;
using platform::Variant;

constexpr std::uint16_t kRadioOn = 0xFFFF;

using Slot = std::uint32_t LastKnownValues::*;
using Setter = ApiStatus (AdapterApi::*)(AdapterNumber, std::uint32_t);

struct Updating {
  ProviderState& state;
  AdapterNumber adapter;
  HRESULT read;  ///< the success code of reading the value from the client's instance

  std::uint32_t& LastKnownOf(Slot slot) const { return state.memory.lastKnown.*slot; }
};

/// A number from 1 to `highest`. Other numbers are ignored.
struct NumberProperty {
  Slot lastKnown;
  LONG highest;
  Setter set;
  const char* refused;
};

constexpr NumberProperty kIbssTxPower = {&LastKnownValues::ibssTxPower, 5,
                                         &AdapterApi::SetIbssTxPower,
                                         "UpdateAdapterProperty: failed to update IBSSTxPower"};
constexpr NumberProperty kPspMode = {&LastKnownValues::pspMode, 7, &AdapterApi::SetPspMode,
                                     "UpdateAdapter: QuarnApi SetPspMode returns error"};
constexpr NumberProperty kProtocolPreference = {
    &LastKnownValues::protocolPreference, 8, &AdapterApi::SetProtocolPreference,
    "UpdateAdapter: QuarnApi SetProtocolPreference returns error"};
constexpr NumberProperty kConnectionPreference = {
    &LastKnownValues::connectionPreference, 4, &AdapterApi::SetConnectionPreference,
    "UpdateAdapter: QuarnApi SetConnectionPreference returns erroe"};

template <const NumberProperty& Property>
HRESULT UpdateNumber(const Updating& updating, Variant& value) {
  const HRESULT converted = value.ChangeType(VT_I4);
  if (FAILED(converted)) return converted;
  const LONG number = value.get().lVal;
  std::uint32_t& lastKnown = updating.LastKnownOf(Property.lastKnown);
  if (number < 1 || number > Property.highest || lastKnown == static_cast<std::uint32_t>(number)) {
    return S_OK;
  }
  if ((updating.state.api.*Property.set)(updating.adapter, static_cast<std::uint32_t>(number)) !=
      0) {
    TraceMessage(Property.refused);
    return S_OK;
  }
  lastKnown = static_cast<std::uint32_t>(number);
  return S_OK;
}

/// Writes a flag (0 or 1) that differs from the last known value. `bits` is the value from the
/// client.
using SetFlag = HRESULT (*)(const Updating&, std::uint32_t flag, std::uint16_t bits,
                            std::uint32_t& lastKnown);

template <Slot LastKnown, SetFlag Set>
HRESULT UpdateFlag(const Updating& updating, Variant& value) {
  const auto bits = FlagBits(value.get());
  std::uint32_t& lastKnown = updating.LastKnownOf(LastKnown);
  const std::uint32_t flag = bits.value_or(0) != 0 ? 1 : 0;
  // A non-zero value of the library other than 1 also differs from 1, and is then written once as
  // 1.
  return !bits || lastKnown == flag ? updating.read : Set(updating, flag, *bits, lastKnown);
}

HRESULT SetRadioState(const Updating& updating, std::uint32_t flag, std::uint16_t bits,
                      std::uint32_t& lastKnown) {
  if (bits != 0 && bits != kRadioOn) return S_OK;
  if (updating.state.api.SetRadioState(updating.adapter, flag) == 0) {
    lastKnown = flag;
  } else {
    TraceMessage("UpdateAdapter: QuarnApi SetRadioState return error!");
  }
  return S_OK;
}

HRESULT SetReadyForProfileState(const Updating& updating, std::uint32_t flag, std::uint16_t,
                                std::uint32_t& lastKnown) {
  if (updating.state.api.SetReadyForProfileState(updating.adapter, flag) == 0) {
    lastKnown = flag;
  } else {
    TraceMessage("UpdateAdapter: QuarnApi SetReadyForProfileState return error!");
  }
  return S_OK;
}

/// The only flag that counts as written even if the library refuses.
HRESULT SetXpZeroConfig(const Updating& updating, std::uint32_t flag, std::uint16_t,
                        std::uint32_t& lastKnown) {
  updating.state.api.EnableXpZeroConfig(updating.adapter, flag);
  lastKnown = flag;
  return S_OK;
}

HRESULT SetAdapterState(const Updating& updating, std::uint32_t flag, std::uint16_t,
                        std::uint32_t& lastKnown) {
  adapterapi::DeviceInfoRecord device = {};
  if (updating.state.api.GetDeviceInfo(updating.adapter, &device) != 0) {
    TraceMessage("UpdateAdapterProperty:failed to get device info!");
    return S_OK;
  }
  const ApiStatus status = updating.state.api.SetAdapter(&device, flag);
  if (status < 0) {
    TraceMessage("UpdateAdapterProperty: QuarnApi SetAdapter returns error");
    return status;
  }
  lastKnown = flag;
  TraceMessage("UpdateAdapterProperty: Update AdapterState succeeded!");
  return S_OK;
}

HRESULT SetDisableRfControl(const Updating& updating, std::uint32_t flag, std::uint16_t,
                            std::uint32_t& lastKnown) {
  if (updating.state.api.SetBoosSeteing(adapterapi::setting::kDisableRfControl, flag) != 0) {
    TraceMessage("UpdateAdapterProperty: SetBoosSeteing failed to set DisableRfControl!");
    return WBEM_E_PROVIDER_FAILURE;
  }
  lastKnown = flag;
  return S_OK;
}

struct UpdateRow {
  const OLECHAR* property;
  const char* missing;
  const char* before = nullptr;
  HRESULT (*update)(const Updating&, Variant&);
  const char* failed = nullptr;  ///< traced if `update` fails; null if nothing is traced
  bool leftOutOnNt6 = false;
};

// In the order in which they are applied. The result of the last row is the result of the update.
constexpr UpdateRow kUpdateRows[] = {
    {
        .property = OLESTR("RadioState"),
        .missing = "UpdateAdapter: failed to get RadioState property",
        .update = UpdateFlag<&LastKnownValues::radioState, SetRadioState>,
        .failed = "UpdateAdapter: failed to update RadioState property",
    },
    {
        .property = OLESTR("ReadyForProfileState"),
        .missing = "UpdateAdapter: failed to get ReadyForProfileStated property",
        .update = UpdateFlag<&LastKnownValues::readyForProfileState, SetReadyForProfileState>,
        .failed = "UpdateAdapter: failed to update ReadyForProfileState property",
        .leftOutOnNt6 = true,
    },
    {
        .property = OLESTR("IBSSTxPower"),
        .missing = "UpdateAdapter: failed to get IBSSTxPower from instance",
        .update = UpdateNumber<kIbssTxPower>,
    },
    {
        .property = OLESTR("PSPMode"),
        .missing = "UpdateAdapter: failed to get PSPMode from instance",
        .update = UpdateNumber<kPspMode>,
    },
    {
        .property = OLESTR("ProtocolPreference"),
        .missing = "UpdateAdapter: failed to get ProtocolPreference from instance",
        .update = UpdateNumber<kProtocolPreference>,
    },
    {
        .property = OLESTR("ConnectionPreference"),
        .missing = "UpdateAdapter: failed to get ConnectionPreference from instance",
        .update = UpdateNumber<kConnectionPreference>,
    },
    {
        .property = OLESTR("XpZeroConfigEnabled"),
        .missing = "UpdateAdapter: failed to get XpZeroConfigEnabled property",
        .update = UpdateFlag<&LastKnownValues::xpZeroConfigEnabled, SetXpZeroConfig>,
        .failed = "UpdateAdapter: failed to update XpZeroConfigEnabled property",
    },
    {
        .property = OLESTR("AdapterState"),
        .missing = "UpdateAdapter: failed to get AdapterState property",
        .before = "UpdateAdapter: Updating AdapterState...",
        .update = UpdateFlag<&LastKnownValues::adapterState, SetAdapterState>,
        .leftOutOnNt6 = true,
    },
    {
        .property = OLESTR("DisableRfControl"),
        // The line names a different property.
        .missing = "UpdateAdapter: failed to get ReadyForProfileStated property",
        .update = UpdateFlag<&LastKnownValues::disableRfControl, SetDisableRfControl>,
        .failed = "UpdateAdapter: failed to update DisableRfControl property",
    },
};

}  // namespace

HRESULT UpdateNetworkAdapter(ProviderState& state, IWbemClassObject* instance,
                             AdapterEntry& entry) {
  HRESULT result = IsUpdateOf(instance, OLESTR("DeviceID"), entry);
  if (result != S_OK) return FAILED(result) ? result : S_OK;
  for (const UpdateRow& row : kUpdateRows) {
    if (row.leftOutOnNt6 && IsNtVersion6()) continue;
    Variant value;
    const HRESULT read = GetPropertyValue(*instance, row.property, value);
    if (FAILED(read)) {
      TraceMessage(row.missing);
      return WBEM_E_PROVIDER_FAILURE;
    }
    if (row.before != nullptr) TraceMessage(row.before);
    result = row.update({state, entry.number, read}, value);
    if (FAILED(result) && row.failed != nullptr) TraceMessage(row.failed);
  }
  return result;
}

}  // namespace wifi
