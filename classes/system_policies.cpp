#include "classes/system_policies.h"

#include "adapterapi/codes.h"
#include "provider/core/flag_value.h"
#include "provider/core/property_writer.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

namespace setting = adapterapi::setting;
using platform::Variant;

constexpr LONG kHighestAutoConnect = 2;

HRESULT FillSystemPolicies(ProviderState& state, IWbemClassObject* instance) {
  PropertyWriter writer(instance, PutRule::kStopAtFailure);
  writer.PutText(kSettingId, OLESTR("9B22596F-DFD9-4948-817C-43794FEA9472"));
  writer.PutText(OLESTR("Caption"), OLESTR("System Policies"));
  writer.PutText(OLESTR("Description"), OLESTR("System Policies"));
  std::uint32_t value = 0;
  if (writer.open() && state.api.GetPolicyValue(setting::kAutoConnectPolicy, &value) == 0) {
    writer.PutNumber(OLESTR("AutoConnect"), value);
  }
  value = 0;
  if (writer.open() && state.api.GetSettingValue(setting::kSingleBssMode, &value) == 0) {
    writer.PutFlag(OLESTR("SingleBSSMode"), value);
  }
  return writer.result();
}

HRESULT Deliver(ProviderState& state, const Delivery& delivery) {
  return DeliverInstance(
      state, delivery, OLESTR("WiFi_SystemPolicies"),
      [&](IWbemClassObject* instance) { return FillSystemPolicies(state, instance); });
}

void UpdateAutoConnect(ProviderState& state, IWbemClassObject* instance) {
  Variant value;
  if (FAILED(GetPropertyValue(*instance, OLESTR("AutoConnect"), value))) return;
  if (FAILED(value.ChangeType(VT_I4))) {
    TraceMessage("UpdatesysPolicies: failed to change type!");
    return;
  }
  const LONG number = value.get().lVal;
  if (number < 0 || number > kHighestAutoConnect) return;
  state.api.SetPolicyValue(setting::kAutoConnectPolicy, static_cast<std::uint32_t>(number));
}

}  // namespace

HRESULT EnumerateSystemPolicies(ProviderState& state, const Delivery& delivery) {
  TraceMessage("Getting system polices information for WiFi_SystemPolicies");
  return Deliver(state, delivery);
}

HRESULT GetSystemPolicies(ProviderState& state, const Delivery& delivery, const ParsedPath&) {
  return Deliver(state, delivery);
}

HRESULT UpdateSystemPolicies(ProviderState& state, IWbemClassObject* instance, AdapterEntry&) {
  UpdateAutoConnect(state, instance);
  Variant value;
  const HRESULT result = GetPropertyValue(*instance, OLESTR("SingleBSSMode"), value);
  if (FAILED(result)) return result;
  const auto bits = FlagBits(value.get());
  // The value is missing if the library could not read the mode when the client read the instance.
  if (!bits) return S_OK;
  if (state.api.SetBoosSeteing(setting::kSingleBssMode, *bits != 0 ? 1 : 0) != 0) {
    TraceMessage("UpdatesysPolicies: SetBoosSeteing() failed!");
    return WBEM_E_PROVIDER_FAILURE;
  }
  return S_OK;
}

}  // namespace wifi
