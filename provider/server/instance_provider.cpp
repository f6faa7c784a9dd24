#include "provider/server/instance_provider.h"

#include <memory>

#include "methods/method_dispatch.h"
#include "provider/core/object_path.h"
#include "provider/server/discovery.h"
#include "provider/server/request.h"
#include "provider/server/routing.h"

namespace wifi {
namespace {

using platform::Variant;

constexpr std::uint32_t kFirstReserved = 16;

/// Reads a request's object path; WBEM_E_INVALID_OBJECT_PATH for a text that is none.
HRESULT ReadObjectPath(const OLECHAR* text, std::unique_ptr<ParsedPath>& path) {
  const PathResult result = PathParser(PathFlag::kAbsoluteNamespace).Parse(text, &path);
  return result == PathResult::kParsed ? WBEM_S_NO_ERROR : WBEM_E_INVALID_OBJECT_PATH;
}

HRESULT Enumerate(const ClassRoute* route, ProviderState& state, const Delivery& delivery) {
  return route == nullptr ? WBEM_E_INVALID_CLASS : route->enumerate(state, delivery);
}

}  // namespace

InstanceProvider::~InstanceProvider() {
  try {
    state_.api.CloseLibrary();
  } catch (...) {
    // Nobody is left to hear of it.
  }
}

HRESULT InstanceProvider::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IWbemProviderInit)) {
    *object = static_cast<IWbemProviderInit*>(this);
  } else if (IsEqualIID(iid, IID_IWbemServices)) {
    *object = static_cast<IWbemServices*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG InstanceProvider::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT InstanceProvider::Initialize(LPWSTR, LONG, LPWSTR, LPWSTR, IWbemServices* services,
                                     IWbemContext*, IWbemProviderInitSink* initSink) {
  state_.adapters.clear();
  state_.discoveryState = 0;
  state_.services = platform::ComPtr<IWbemServices>(services);
  state_.encodedDomain.clear();
  state_.encodedUser.clear();
  state_.reserved[0] = kFirstReserved;
  state_.reserved[1] = 0;
  state_.initialized = 1;

  HRESULT status = WBEM_S_INITIALIZED;
  try {
    status = DiscoverAdapters(state_);
  } catch (...) {
    status = WBEM_E_FAILED;
  }
  try {
    if (initSink != nullptr) initSink->SetStatus(status, 0);
  } catch (...) {
    // A sink that throws has had its one status.
  }
  return WBEM_S_NO_ERROR;
}

HRESULT InstanceProvider::CreateInstanceEnumAsync(const BSTR className, LONG, IWbemContext* context,
                                                  IWbemObjectSink* sink) {
  return RunRequest(sink, [&] {
    return Enumerate(RouteByName(className), state_, {sink, context});
  });
}

HRESULT InstanceProvider::ExecQueryAsync(const BSTR, const BSTR query, LONG, IWbemContext* context,
                                         IWbemObjectSink* sink) {
  return RunRequest(sink, [&] { return Enumerate(RouteByQuery(query), state_, {sink, context}); });
}

HRESULT InstanceProvider::GetObjectAsync(const BSTR path, LONG, IWbemContext* context,
                                         IWbemObjectSink* sink) {
  return RunRequest(sink, [&]() -> HRESULT {
    std::unique_ptr<ParsedPath> parsed;
    const HRESULT result = ReadObjectPath(path, parsed);
    if (FAILED(result)) return result;
    const ClassRoute* route = RouteByName(parsed->classText());
    if (route == nullptr) return WBEM_E_INVALID_CLASS;
    return route->get(state_, {sink, context}, *parsed);
  });
}

HRESULT InstanceProvider::PutInstanceAsync(IWbemClassObject* instance, LONG, IWbemContext*,
                                           IWbemObjectSink* sink) {
  return RunRequest(sink, [&] { return UpdateInstance(instance); });
}

/// Offers the instance to the update routine of its class once for each adapter. Its __PATH has to
/// be a path, but the routine goes by __CLASS alone.
HRESULT InstanceProvider::UpdateInstance(IWbemClassObject* instance) {
  if (instance == nullptr) return WBEM_E_INVALID_PARAMETER;
  Variant pathText;
  instance->Get(OLESTR("__PATH"), 0, pathText.put(), nullptr, nullptr);
  std::unique_ptr<ParsedPath> path;
  HRESULT result = ReadObjectPath(pathText.text(), path);
  if (FAILED(result)) return result;
  Variant className;
  result = instance->Get(OLESTR("__CLASS"), 0, className.put(), nullptr, nullptr);
  if (FAILED(result)) return result;

  return VisitAdapters(state_, [&](AdapterEntry& entry) -> HRESULT {
    const UpdateRoute* route = UpdateRouteByName(className.text());
    if (route == nullptr) return WBEM_E_INVALID_CLASS;
    return route->update(state_, instance, entry);
  });
}

HRESULT InstanceProvider::DeleteInstanceAsync(const BSTR path, LONG, IWbemContext*,
                                              IWbemObjectSink* sink) {
  return RunRequest(sink, [&]() -> HRESULT {
    std::unique_ptr<ParsedPath> parsed;
    const HRESULT result = ReadObjectPath(path, parsed);
    return FAILED(result) ? result : DeleteAnswer(parsed->classText());
  });
}

HRESULT InstanceProvider::ExecMethodAsync(const BSTR path, const BSTR method, LONG,
                                          IWbemContext* context, IWbemClassObject* inParameters,
                                          IWbemObjectSink* sink) {
  return RunRequest(sink, [&]() -> HRESULT {
    std::unique_ptr<ParsedPath> parsed;
    const HRESULT result = ReadObjectPath(path, parsed);
    if (FAILED(result)) return result;
    return ExecuteMethod(state_, {sink, context}, *parsed, method, inParameters);
  });
}

}  // namespace wifi
