#include "methods/method_dispatch.h"

#include <span>

#include "methods/adapter_methods.h"
#include "methods/exclude_list_methods.h"
#include "methods/profile_methods.h"
#include "provider/core/same_name.h"
#include "schema/contract.h"

namespace wifi {
namespace {

using platform::ComPtr;
using platform::Variant;

struct Method {
  const OLECHAR* name;
  MethodBody body;                 ///< null: the method is accepted and always returns FALSE
  const OLECHAR* extra = nullptr;  ///< the second out-parameter
  bool answersNumber = false;      ///< ReturnValue is a number, 0 if there is no adapter
};

// The six methods without a body set properties that a put of WiFi_NetworkAdapter writes.
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
  const OLECHAR* adapterKey;  ///< null: the path does not name an adapter
  HRESULT unknownMethod;
  std::span<const Method> methods;
};

// Compatibility: on three classes an unknown method returns success and does nothing.
constexpr ClassMethods kClasses[] = {
    {OLESTR("WiFi_NetworkAdapter"), OLESTR("DeviceID"), WBEM_E_NOT_SUPPORTED, kAdapterMethods},
    {OLESTR("WiFi_NetworkAdapterConfiguration"), kSettingId, WBEM_S_NO_ERROR,
     kConfigurationMethods},
    {OLESTR("WiFi_AdapterAssociationInfo"), kSettingId, WBEM_E_INVALID_CLASS,
     kAssociationInfoMethods},
    {OLESTR("WiFi_PreferredProfile"), nullptr, WBEM_S_NO_ERROR, kProfileMethods},
    {OLESTR("WiFi_NetworkExcludeList"), kSettingId, WBEM_S_NO_ERROR, kExcludeListMethods},
    {OLESTR("WiFi_NetworkAdapterSetting"), nullptr, WBEM_E_NOT_SUPPORTED, {}},
};

/// The row of a method; its name is null if there is no such row.
constexpr Method MethodRow(const contract::Name& className, const contract::Name& name) {
  for (const ClassMethods& owner : kClasses) {
    if (contract::Name(owner.className) != className) continue;
    for (const Method& row : owner.methods) {
      if (contract::Name(row.name) == name) return row;
    }
  }
  return {OLESTR(""), nullptr};
}
/// Whether the row agrees with the schema on the type of ReturnValue and the second out-parameter.
constexpr bool AnswersAsDeclared(const contract::Name& className, const contract::Name& name,
                                 CIMTYPE returnType) {
  const Method row = MethodRow(className, name);
  const contract::Name extra = row.extra == nullptr ? contract::Name() : row.extra;
  return row.answersNumber == (returnType == CIM_SINT32) &&
         extra == contract::FindOut(className, name).name;
}
#define CONTRACT_METHOD(className, method, returnType)              \
  static_assert(*MethodRow(#className, #method).name != 0,          \
                "the schema's method " #className "." #method       \
                " has no row: add it to the table of its class in " \
                "methods/method_dispatch.cpp");                     \
  static_assert(AnswersAsDeclared(#className, #method, returnType), \
                "the row of " #className "." #method                \
                " in methods/method_dispatch.cpp has other out-parameters than the schema");
#include "schema/contract.inc"

/// The first CLASS.METHOD or CLASS.KEY of the tables that the schema does not have.
constexpr contract::Name UnknownMember() {
  for (const ClassMethods& owner : kClasses) {
    if (owner.adapterKey != nullptr &&
        !contract::FindProperty(owner.className, owner.adapterKey).isKey) {
      return {owner.className, owner.adapterKey};
    }
    for (const Method& row : owner.methods) {
      if (contract::FindMethod(owner.className, row.name).name.empty()) {
        return {owner.className, row.name};
      }
    }
  }
  return {};
}
static_assert(contract::IsKnown<contract::UnknownClass(kClasses)>());
static_assert(contract::IsKnown<UnknownMember()>());

const ClassMethods* FindClass(const ParsedPath& path) {
  for (const ClassMethods& row : kClasses) {
    if (SameNameIgnoringCase(path.class_text(), row.className)) return &row;
  }
  return nullptr;
}

const Method* FindMethod(std::span<const Method> methods, const OLECHAR* name) {
  for (const Method& row : methods) {
    if (platform::ViewOf(name) == row.name) return &row;
  }
  return nullptr;
}

/// One call of a method, and where its out-parameters are delivered.
struct Execution {
  const Delivery& delivery;
  const OLECHAR* className;
  const Method& method;
  MethodCall call;
};

/// Spawns an empty object for the out-parameters. Returns the error of the step that fails;
/// WBEM_E_FAILED if a step succeeds without an object.
HRESULT SpawnOutParameters(const Execution& execution, ComPtr<IWbemClassObject>& out) {
  const auto checked = [](HRESULT result, const auto& object) {
    return FAILED(result) || object ? result : WBEM_E_FAILED;
  };
  const ProviderState& state = execution.call.state;
  if (!state.services) return WBEM_E_FAILED;
  ComPtr<IWbemClassObject> definition;
  HRESULT result =
      GetClassDefinition(state, execution.className, execution.delivery.context, definition);
  if (FAILED(result)) return result;
  ComPtr<IWbemClassObject> signature;
  IWbemClassObject** place = signature.put();
  result = checked(platform::CallFenced([&] {
                     return definition->GetMethod(execution.method.name, 0, nullptr, place);
                   }),
                   signature);
  if (FAILED(result)) return result;
  return checked(SpawnInstance(*signature.get(), out), out);
}

/// Puts the second out-parameter before ReturnValue. Returns the result of the sink.
HRESULT IndicateAnswer(const Execution& execution, IWbemClassObject* out,
                       const MethodResult& result) {
  if (result.extra)
    PutOrRethrow(out, execution.method.extra, Variant::Integer(*result.extra).get());
  PutOrRethrow(out, OLESTR("ReturnValue"), result.returnValue.get());
  return Indicate(execution.delivery, out, WBEM_E_FAILED);
}

/// Runs the body, unless the method needs an adapter and there is none.
MethodResult RunMethod(const Method& method, const MethodCall& call, bool needsAdapter) {
  MethodResult result;
  if (method.answersNumber) result.returnValue = Variant::Integer(0);
  if (method.body == nullptr || (needsAdapter && call.entry == nullptr)) return result;
  return method.body(call);
}

/// Runs a method with a second out-parameter on the adapter that the path names. The object for the
/// out-parameters is spawned before the body runs, and again if the body throws.
HRESULT RunExcludeListQuery(const Execution& execution) {
  ComPtr<IWbemClassObject> out;
  HRESULT spawned = SpawnOutParameters(execution, out);
  MethodResult result;
  try {
    result = execution.method.body(execution.call);
  } catch (...) {
    out.reset();
    if (SUCCEEDED(spawned)) spawned = SpawnOutParameters(execution, out);
  }
  return out ? IndicateAnswer(execution, out.get(), result) : spawned;
}

}  // namespace

HRESULT ExecuteMethod(ProviderState& state, const Delivery& delivery, const ParsedPath& path,
                      const OLECHAR* methodName, IWbemClassObject* inParameters) {
  const ClassMethods* owner = FindClass(path);
  if (owner == nullptr) return WBEM_E_INVALID_CLASS;
  const Method* method = FindMethod(owner->methods, methodName);
  if (method == nullptr) return owner->unknownMethod;

  const bool needsAdapter = owner->adapterKey != nullptr;
  Execution execution{delivery, owner->className, *method, {state, path, inParameters, nullptr}};
  const auto isQuery = [&] { return method->extra != nullptr && execution.call.entry != nullptr; };
  MethodResult result;
  try {
    if (needsAdapter) execution.call.entry = FindAdapterByPath(state, path, owner->adapterKey);
    if (!isQuery()) result = RunMethod(*method, execution.call, needsAdapter);
  } catch (...) {
    result = {};
  }
  if (isQuery()) return RunExcludeListQuery(execution);
  ComPtr<IWbemClassObject> out;
  const HRESULT spawned = SpawnOutParameters(execution, out);
  return out ? IndicateAnswer(execution, out.get(), result) : spawned;
}

}  // namespace wifi
