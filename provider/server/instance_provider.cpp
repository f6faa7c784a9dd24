#include "provider/server/instance_provider.h"

#include <memory>

#include "methods/method_dispatch.h"
#include "provider/core/object_path.h"
#include "provider/server/discovery.h"
#include "provider/server/request.h"
#include "provider/server/routing.h"

namespace wifi {
namespace {

using platform::ComPtr;
using platform::Variant;

constexpr std::uint32_t kFirstReserved = 16;

/// Parses the object path of a request; WBEM_E_INVALID_OBJECT_PATH if it is not one.
HRESULT ReadObjectPath(const OLECHAR* text, std::unique_ptr<ParsedPath>& path) {
  const PathResult result = PathParser(PathFlag::kAbsoluteNamespace).Parse(text, &path);
  return result == PathResult::kParsed ? WBEM_S_NO_ERROR : WBEM_E_INVALID_OBJECT_PATH;
}

HRESULT Enumerate(const ClassRoute* route, ProviderState& state, const Delivery& delivery) {
  return route == nullptr ? WBEM_E_INVALID_CLASS : route->enumerate(state, delivery);
}

/// Calls the update routine of the instance's class once for each adapter. __PATH must be a valid
/// path, but only __CLASS selects the routine.
HRESULT UpdateInstance(ProviderState& state, IWbemClassObject* instance) {
  if (instance == nullptr) return WBEM_E_INVALID_PARAMETER;
  Variant pathText;
  GetPropertyValue(*instance, OLESTR("__PATH"), pathText);
  std::unique_ptr<ParsedPath> path;
  HRESULT result = ReadObjectPath(pathText.text(), path);
  if (FAILED(result)) return result;
  Variant className;
  result = GetPropertyValue(*instance, OLESTR("__CLASS"), className);
  if (FAILED(result)) return result;

  return VisitAdapters(state, [&](AdapterEntry& entry) -> HRESULT {
    const UpdateRoute* route = UpdateRouteByName(className.text());
    if (route == nullptr) return WBEM_E_INVALID_CLASS;
    return route->update(state, instance, entry);
  });
}

}  // namespace

InstanceProvider::~InstanceProvider() {
  platform::Survives([this] { state_.api.CloseLibrary(); });
}

bool InstanceProvider::Has(REFIID iid) {
  return IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IWbemProviderInit) ||
         IsEqualIID(iid, IID_IWbemServices);
}

HRESULT InstanceProvider::QueryInterface(REFIID iid, void** object) {
  return platform::AnswerFenced([&]() -> HRESULT {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!Has(iid)) return E_NOINTERFACE;
    if (IsEqualIID(iid, IID_IWbemServices)) {
      *object = static_cast<IWbemServices*>(this);
    } else {
      *object = static_cast<IWbemProviderInit*>(this);
    }
    AddRef();
    return S_OK;
  });
}

ULONG InstanceProvider::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT InstanceProvider::Initialize(LPWSTR, LONG, LPWSTR, LPWSTR, IWbemServices* services,
                                     IWbemContext*, IWbemProviderInitSink* initSink) {
  const ComPtr<InstanceProvider> alive(this);  // see Serve
  state_.adapters.reset();
  state_.services = ComPtr<IWbemServices>(services);
  state_.initialized = 1;
  memory_.discoveryState = 0;
  memory_.reserved[0] = kFirstReserved;
  memory_.reserved[1] = 0;

  LONG status = WBEM_E_FAILED;  // if discovery throws an exception
  ProviderState discovered = state_;
  platform::Survives([&] {
    // Publish the map before it is filled: requests may arrive during discovery. A nested
    // Initialize installs its own map and leaves this one alone.
    discovered.adapters = state_.adapters = std::make_shared<AdapterMap>();
    status = DiscoverAdapters(discovered);
  });
  if (initSink != nullptr) platform::Survives([&] { initSink->SetStatus(status, 0); });
  return WBEM_S_NO_ERROR;
}

/// Runs one request (ProviderState& to HRESULT) on a copy of the state. Keeps the provider alive
/// meanwhile, even if the sink releases it.
template <class Steps>
HRESULT InstanceProvider::Serve(IWbemObjectSink* sink, Steps&& steps) {
  const ComPtr<InstanceProvider> alive(this);
  ProviderState state = state_;
  return RunRequest(sink, [&] { return steps(state); });
}

HRESULT InstanceProvider::CreateInstanceEnumAsync(const BSTR className, LONG, IWbemContext* context,
                                                  IWbemObjectSink* sink) {
  return Serve(sink, [&](ProviderState& state) {
    return Enumerate(RouteByName(className), state, {sink, context});
  });
}

HRESULT InstanceProvider::ExecQueryAsync(const BSTR, const BSTR query, LONG, IWbemContext* context,
                                         IWbemObjectSink* sink) {
  return Serve(sink, [&](ProviderState& state) {
    return Enumerate(RouteByQuery(query), state, {sink, context});
  });
}

HRESULT InstanceProvider::GetObjectAsync(const BSTR path, LONG, IWbemContext* context,
                                         IWbemObjectSink* sink) {
  return Serve(sink, [&](ProviderState& state) -> HRESULT {
    std::unique_ptr<ParsedPath> parsed;
    const HRESULT result = ReadObjectPath(path, parsed);
    if (FAILED(result)) return result;
    const ClassRoute* route = RouteByName(parsed->class_text());
    if (route == nullptr) return WBEM_E_INVALID_CLASS;
    return route->get(state, {sink, context}, *parsed);
  });
}

HRESULT InstanceProvider::PutInstanceAsync(IWbemClassObject* instance, LONG, IWbemContext*,
                                           IWbemObjectSink* sink) {
  return Serve(sink, [&](ProviderState& state) { return UpdateInstance(state, instance); });
}

HRESULT InstanceProvider::DeleteInstanceAsync(const BSTR path, LONG, IWbemContext*,
                                              IWbemObjectSink* sink) {
  return Serve(sink, [&](ProviderState&) -> HRESULT {
    std::unique_ptr<ParsedPath> parsed;
    const HRESULT result = ReadObjectPath(path, parsed);
    return FAILED(result) ? result : DeleteAnswer(parsed->class_text());
  });
}

HRESULT InstanceProvider::ExecMethodAsync(const BSTR path, const BSTR method, LONG,
                                          IWbemContext* context, IWbemClassObject* inParameters,
                                          IWbemObjectSink* sink) {
  return Serve(sink, [&](ProviderState& state) -> HRESULT {
    std::unique_ptr<ParsedPath> parsed;
    const HRESULT result = ReadObjectPath(path, parsed);
    if (FAILED(result)) return result;
    return ExecuteMethod(state, {sink, context}, *parsed, method, inParameters);
  });
}

}  // namespace wifi
