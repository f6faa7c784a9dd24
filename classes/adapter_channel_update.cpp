#include "classes/adapter_channel_update.h"

#include "classes/updated_adapter.h"
#include "provider/core/trace.h"

namespace wifi {
namespace {

HRESULT ReadNumber(IWbemClassObject* instance, const OLECHAR* property, std::uint32_t& number) {
  platform::Variant value;
  HRESULT result = instance->Get(property, 0, value.put(), nullptr, nullptr);
  if (SUCCEEDED(result)) result = value.ChangeType(VT_I4);
  if (SUCCEEDED(result)) number = static_cast<std::uint32_t>(value.get().lVal);
  return result;
}

HRESULT Refused(const char* line) {
  TraceMessage(line);
  return WBEM_E_PROVIDER_FAILURE;
}

}  // namespace

HRESULT UpdateAdapterChannel(ProviderState& state, IWbemClassObject* instance,
                             AdapterEntry& entry) {
  const HRESULT named = IsUpdateOf(instance, OLESTR("SettingID"), entry);
  if (named != S_OK) return FAILED(named) ? named : S_OK;

  std::uint32_t channelA = 0;
  std::uint32_t channelB = 0;
  const bool writesChannelA = SUCCEEDED(ReadNumber(instance, OLESTR("ChannelA"), channelA));
  if (FAILED(ReadNumber(instance, OLESTR("ChannelB"), channelB))) {
    return Refused("UpdateAdapterChannel: failed to change channel type!");
  }
  adapterapi::IbssPreferencesRecord record = {};
  if (state.api.GetChannelInfo(entry.number, &record) < 0) {
    return Refused("UpdateAdapterChannel:GetIbssPreferences() failed!");
  }
  // A ChannelA that cannot be read is no wish for channel 0: the library's own stays.
  if (writesChannelA) record.channelA = channelA;
  record.channelB = channelB;
  const adapterapi::ApiStatus status = state.api.SetIbssPreferences(entry.number, &record);
  return status < 0 ? Refused("UpdateAdapterChannel:SetIbssPreferences() failed!") : status;
}

}  // namespace wifi
