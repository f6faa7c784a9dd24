#include "methods/adapter_methods.h"

#include "adapterapi/profile_name.h"
#include "platform/text.h"
#include "provider/core/same_name.h"

namespace wifi {

using platform::Variant;

MethodResult RegisterProfileService(const MethodCall& call) {
  const auto enroll = call.Flag(OLESTR("Register"));
  return Answer(enroll && call.state.api.RegisterProfileService(call.adapter(), *enroll, 1) == 0);
}

MethodResult ResetStatistics(const MethodCall& call) {
  return Answer(call.state.api.ResetStatistics(call.adapter()) == 0);
}

MethodResult EnableXpZeroConfig(const MethodCall& call) {
  const auto enable = call.Flag(OLESTR("Enable"));
  return Answer(enable && call.state.api.EnableXpZeroConfig(call.adapter(), *enable) == 0);
}

MethodResult IsAdapterSupported(const MethodCall& call) {
  adapterapi::DeviceInfoRecord device = {};
  if (call.state.api.GetDeviceInfo(call.adapter(), &device) != 0) return {};
  std::uint32_t supported = 0;
  return Answer(call.state.api.IsAdapterSupported(&device, &supported) >= 0 && supported != 0);
}

MethodResult StopAuthentication(const MethodCall& call) {
  return Answer(call.state.api.StopAuthentication(call.adapter()) == 0);
}

MethodResult IsTcpIpInstalledAndBound(const MethodCall& call) {
  std::uint32_t bound = 0;
  return Answer(call.state.api.IsTcpIpInstalledAndBound(call.adapter(), &bound) == 0 && bound != 0);
}

MethodResult Release1xConfig(const MethodCall& call) {
  // The argument is a constant. The adapter must exist, but is not passed.
  return Answer(call.state.api.Release1xConfig(adapterapi::FixedNumber{0}) == 0);
}

MethodResult GetApiVersion(const MethodCall& call) {
  std::uint32_t version = 0;
  call.state.api.GetApiVersion(&version);
  return {Variant::Integer(static_cast<LONG>(version))};
}

MethodResult IsCurrentProfile(const MethodCall& call) {
  std::optional<Variant> name = call.Value(OLESTR("ProfileName"));
  if (!name) return {};
  ORVEL_WLAN_PROFILE profile = {};
  if (call.state.api.GetLastAppliedProfile(call.adapter(), &profile) != 0) return {};
  name->ChangeType(VT_BSTR);  // a value that cannot be converted counts as an empty name
  // Compared in the ANSI code page, in which the library stores names.
  return Answer(EqualIgnoringCase(platform::WideText(platform::AnsiText(name->text())),
                                  platform::WideText(ProfileName(profile))));
}

MethodResult Disassociate(const MethodCall& call) {
  return Answer(call.state.api.Disassociate(call.adapter()) == 0);
}

MethodResult IsAssociated(const MethodCall& call) {
  return {Variant::CopyOf(call.entry->associationFlag.get())};
}

}  // namespace wifi
