#include "methods/method_dispatch.h"

#include <span>

#include "methods/adapter_methods.h"
#include "methods/exclude_list_methods.h"
#include "methods/profile_methods.h"
#include "provider/core/same_name.h"

namespace wifi {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;

struct Method {
  const OLECHAR* name;
  MethodBody body;                 ///< none: served, and always FALSE
  const OLECHAR* extra = nullptr;  ///< the second out-parameter
  bool answersNumber = false;      ///< ReturnValue is a number, 0 without an adapter
};

// The six without a body change what an instance of WiFi_NetworkAdapter changes when it is put.
constexpr Method kAdapterMethods[] = {
    {OLESTR("RegisterProfileService"), RegisterProfileService},
    {OLESTR("SetRadioState"), nullptr},
    {OLESTR("SetIBSSTxPower"), nullptr},
    {OLESTR("SetPspMode"), nullptr},
    {OLESTR("SetReadyForProfileState"), nullptr},
    {OLESTR("ResetStatistics"), ResetStatistics},
    {OLESTR("SetProtocolPreference"), nullptr},
    {OLESTR("SetConnectionPreference"), nullptr},
    {OLESTR("EnableXpZeroConfig"), EnableXpZeroConfig},
    {OLESTR("ResetExcludeList"), ResetExcludeList},
    {OLESTR("AddExcludeListEntry"), AddExcludeListEntry},
    {OLESTR("RemoveExcludeListEntry"), RemoveExcludeListEntry},
    {OLESTR("IsAdapterSupported"), IsAdapterSupported},
    {OLESTR("StopAuthentication"), StopAuthentication},
    {OLESTR("IsTcpIpInstalledAndBound"), IsTcpIpInstalledAndBound},
    {OLESTR("Release1xConfig"), Release1xConfig},
};

constexpr Method kConfigurationMethods[] = {
    {OLESTR("GetAPIVersion"), GetApiVersion, nullptr, true},
    {OLESTR("IsCurrentProfile"), IsCurrentProfile},
    {OLESTR("Disassociate"), Disassociate},
};

constexpr Method kAssociationInfoMethods[] = {
    {OLESTR("IsAssociated"), IsAssociated},
};

constexpr Method kProfileMethods[] = {
    {OLESTR("ApplyProfile"), ApplyProfile},
    {OLESTR("ReenterAndReapplyProfile"), ReenterAndReapplyProfile},
    {OLESTR("ApplyProfileFromMacAddress"), ApplyProfileFromMacAddress},
};

constexpr Method kExcludeListMethods[] = {
    {OLESTR("IsExcludeListEnabled"), IsExcludeListEnabled, OLESTR("Enabled")},
    {OLESTR("EnableExcludeList"), EnableExcludeList},
    {OLESTR("GetRogueApCount"), GetRogueApCount, OLESTR("Count")},
    {OLESTR("ExcludeThisAP"), ExcludeThisAp},
};

struct ClassMethods {
  const OLECHAR* className;
  const OLECHAR* adapterKey;  ///< none: the path names no adapter
  HRESULT unknownMethod;
  std::span<const Method> methods;
};

// That an unknown method succeeds silently on three classes is what clients know.
const ClassMethods kClasses[] = {
    {OLESTR("WiFi_NetworkAdapter"), OLESTR("DeviceID"), WBEM_E_NOT_SUPPORTED, kAdapterMethods},
    {OLESTR("WiFi_NetworkAdapterConfiguration"), OLESTR("SettingID"), WBEM_S_NO_ERROR,
     kConfigurationMethods},
    {OLESTR("WiFi_AdapterAssociationInfo"), OLESTR("SettingID"), WBEM_E_INVALID_CLASS,
     kAssociationInfoMethods},
    {OLESTR("WiFi_PreferredProfile"), nullptr, WBEM_S_NO_ERROR, kProfileMethods},
    {OLESTR("WiFi_NetworkExcludeList"), OLESTR("SettingID"), WBEM_S_NO_ERROR, kExcludeListMethods},
    {OLESTR("WiFi_NetworkAdapterSetting"), nullptr, WBEM_E_NOT_SUPPORTED, {}},
};

const ClassMethods* FindClass(const ParsedPath& path) {
  for (const ClassMethods& row : kClasses) {
    if (SameNameIgnoringCase(path.classText(), row.className)) return &row;
  }
  return nullptr;
}

const Method* FindMethod(std::span<const Method> methods, const OLECHAR* name) {
  for (const Method& row : methods) {
    if (platform::ViewOf(name) == row.name) return &row;
  }
  return nullptr;
}

/// An empty out-parameter object; the failing step's code, WBEM_E_FAILED where a step gives none.
HRESULT SpawnOutParameters(const ProviderState& state, IWbemContext* context,
                           const OLECHAR* className, const OLECHAR* methodName,
                           ComPtr<IWbemClassObject>& out) {
  const auto checked = [](HRESULT result, const auto& object) {
    return FAILED(result) || object ? result : static_cast<HRESULT>(WBEM_E_FAILED);
  };
  if (!state.services) return WBEM_E_FAILED;
  const Bstr name(className);
  ComPtr<IWbemClassObject> definition;
  HRESULT result = checked(
      state.services->GetObject(name.get(), 0, context, definition.put(), nullptr), definition);
  if (FAILED(result)) return result;
  ComPtr<IWbemClassObject> signature;
  result = checked(definition->GetMethod(methodName, 0, nullptr, signature.put()), signature);
  if (FAILED(result)) return result;
  return checked(signature->SpawnInstance(0, out.put()), out);
}

/// Runs the body, unless it needs an adapter that is not there.
MethodResult Run(const Method& method, const MethodCall& call, bool needsAdapter) {
  MethodResult result;
  if (method.answersNumber) result.returnValue = Variant::Integer(0);
  if (method.body == nullptr || (needsAdapter && call.entry == nullptr)) return result;
  return method.body(call);
}

}  // namespace

HRESULT ExecuteMethod(ProviderState& state, const Delivery& delivery, const ParsedPath& path,
                      const OLECHAR* methodName, IWbemClassObject* inParameters) {
  const ClassMethods* owner = FindClass(path);
  if (owner == nullptr) return WBEM_E_INVALID_CLASS;
  const Method* method = FindMethod(owner->methods, methodName);
  if (method == nullptr) return owner->unknownMethod;

  const bool needsAdapter = owner->adapterKey != nullptr;
  ComPtr<IWbemClassObject> out;
  HRESULT spawned = WBEM_S_NO_ERROR;
  const auto spawn = [&] {
    spawned = SpawnOutParameters(state, delivery.context, owner->className, method->name, out);
  };
  MethodCall call{state, path, inParameters, nullptr};
  MethodResult result;
  try {
    if (needsAdapter) call.entry = FindAdapterByPath(state, path, owner->adapterKey);
    // A method with a second out-parameter has its object made first.
    if (method->extra != nullptr && call.entry != nullptr) spawn();
    result = Run(*method, call, needsAdapter);
  } catch (...) {
    result = {};
    out.reset();  // the answer that says so is made anew
  }
  if (!out && SUCCEEDED(spawned)) spawn();
  if (!out) return spawned;
  if (result.extra) PutDirectly(out.get(), method->extra, Variant::Integer(*result.extra));
  PutDirectly(out.get(), OLESTR("ReturnValue"), std::move(result.returnValue));
  return Indicate(delivery, out.get(), WBEM_E_FAILED);
}

}  // namespace wifi
