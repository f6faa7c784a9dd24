#include "host/service/provider_session.h"

#include <optional>
#include <utility>

#include "host/service/class_object.h"
#include "host/service/request_context.h"
#include "platform/text.h"

namespace host {
namespace {

using platform::Bstr;

Bstr WideBstr(const std::string& text) {
  return Bstr(platform::WideFromUtf8(text));
}

using OptionalText = std::optional<std::string>;

/// An instance of a platform class; a missing text is a NULL property.
CimObject PlatformInstance(const Repository& repository, const char* className,
                           const std::vector<std::pair<const char*, const OptionalText*>>& values) {
  CimObject instance(*repository.FindClass(className));
  for (const auto& [name, text] : values) {
    platform::Variant value;
    value.in_place()->vt = VT_NULL;
    if (*text) value = platform::Variant::Text(platform::WideFromUtf8(**text));
    instance.Put(*instance.info().FindProperty(name), value.get());
  }
  return instance;
}

/// Calls the provider; an exception that leaves it is a defect.
template <class Call>
HRESULT Guarded(const std::string& request, Defects& defects, Call call) {
  try {
    return call();
  } catch (...) {
    defects.Add(request + ": an exception left the provider");
    return E_UNEXPECTED;
  }
}

}  // namespace

ProviderSession::ProviderSession(const Repository& repository,
                                 const simulator::PlatformObjects& platformObjects,
                                 Defects& defects)
    : repository_(repository), defects_(defects), namespace_(repository, pool_, defects) {
  for (const simulator::PlatformAdapter& adapter : platformObjects.adapters) {
    namespace_.AddInstance(PlatformInstance(repository, "Win32_NetworkAdapter",
                                            {{"DeviceID", &adapter.deviceId},
                                             {"PNPDeviceID", &adapter.pnpDeviceId},
                                             {"MACAddress", &adapter.macAddress},
                                             {"Caption", &adapter.caption},
                                             {"Description", &adapter.description}}));
  }
  namespace_.AddInstance(PlatformInstance(repository, "Win32_ComputerSystem",
                                          {{"UserName", &platformObjects.userName}}));
}

ProviderSession::~ProviderSession() {
  Stop();
}

HRESULT ProviderSession::Start(IClassFactory* factory) {
  const std::string request = "Initialize";
  HRESULT result = factory->CreateInstance(nullptr, IID_IWbemProviderInit, provider_.put_void());
  if (FAILED(result)) return result;
  {
    namespace_.BeginRequest(request, nullptr);
    platform::ComPtr<InitSink> sink = pool_.New<InitSink>(defects_);
    platform::OleString name = OLESTR("root\\cimv2");
    result = Guarded(request, defects_, [&] {
      return provider_->Initialize(nullptr, 0, name.data(), nullptr, &namespace_, nullptr,
                                   sink.get());
    });
    initStatus_ = sink->Finish();
    if (FAILED(result) && SUCCEEDED(initStatus_)) initStatus_ = result;
  }
  pool_.Sweep(request, defects_);
  return provider_->QueryInterface(IID_IWbemServices, services_.put_void());
}

void ProviderSession::Stop() {
  if (!provider_) return;
  const std::string request = "the last release";
  namespace_.BeginRequest(request, nullptr);
  services_.reset();
  provider_.reset();
  pool_.Sweep(request, defects_);
  const LONG held = namespace_.references() - 1;
  if (held != 0 || namespace_.misused()) {
    defects_.Add(held > 0 ? "the provider still holds the namespace after its last release"
                          : "the namespace was released more often than taken");
  }
}

template <class Issue>
Outcome ProviderSession::Run(const std::string& request, const ClassInfo* expected, Issue issue,
                             const ObjectVisitor* visitor) {
  Outcome outcome;
  if (watcher_) watcher_(&request);
  {
    platform::ComPtr<RequestContext> context = pool_.New<RequestContext>();
    platform::ComPtr<RequestSink> sink = pool_.New<RequestSink>(defects_, request, expected);
    sink->Visit(visitor);
    namespace_.BeginRequest(request, context.get());
    const HRESULT returned =
        Guarded(request, defects_, [&] { return issue(context.get(), sink.get()); });
    outcome = sink->Finish(returned);
    namespace_.BeginRequest("between requests", nullptr);
  }
  if (watcher_) watcher_(nullptr);
  pool_.Sweep(request, defects_);
  return outcome;
}

Outcome ProviderSession::Enumerate(const std::string& className) {
  return EnumerateInto(className, nullptr);
}

Outcome ProviderSession::Enumerate(const std::string& className, const ObjectVisitor& visitor) {
  return EnumerateInto(className, &visitor);
}

Outcome ProviderSession::EnumerateInto(const std::string& className, const ObjectVisitor* visitor) {
  const ClassInfo* info = repository_.FindClass(className);
  const Bstr name = WideBstr(info == nullptr ? className : info->name());
  return Run(
      "enumerate " + className, info,
      [&](IWbemContext* context, IWbemObjectSink* sink) {
        return services_->CreateInstanceEnumAsync(name.get(), 0, context, sink);
      },
      visitor);
}

Outcome ProviderSession::Get(const std::string& path) {
  const Bstr text = WideBstr(path);
  return Run("get " + path, repository_.FindClass(ClassNameOfPath(path)),
             [&](IWbemContext* context, IWbemObjectSink* sink) {
               return services_->GetObjectAsync(text.get(), 0, context, sink);
             });
}

Outcome ProviderSession::Query(const std::string& query) {
  const Bstr language = WideBstr("WQL");
  const Bstr text = WideBstr(query);
  // The provider may return more than the query selects, even instances of another class.
  return Run("query " + query, nullptr, [&](IWbemContext* context, IWbemObjectSink* sink) {
    return services_->ExecQueryAsync(language.get(), text.get(), 0, context, sink);
  });
}

Outcome ProviderSession::Put(const CimObject& instance) {
  return Run("put " + instance.RelativePath().value_or(instance.info().name()), nullptr,
             [&](IWbemContext* context, IWbemObjectSink* sink) {
               platform::ComPtr<ClassObject> object = pool_.New<ClassObject>(pool_, instance);
               return services_->PutInstanceAsync(object.get(), 0, context, sink);
             });
}

Outcome ProviderSession::Delete(const std::string& path) {
  const Bstr text = WideBstr(path);
  return Run("delete " + path, nullptr, [&](IWbemContext* context, IWbemObjectSink* sink) {
    return services_->DeleteInstanceAsync(text.get(), 0, context, sink);
  });
}

Outcome ProviderSession::Call(const std::string& path, const std::string& method,
                              const CimObject* in) {
  const Bstr text = WideBstr(path);
  const Bstr name = WideBstr(method);
  const ClassInfo* info = repository_.FindClass(ClassNameOfPath(path));
  const MethodInfo* known = info == nullptr ? nullptr : info->FindMethod(method);
  return Run("call " + method, known == nullptr ? nullptr : known->out.get(),
             [&](IWbemContext* context, IWbemObjectSink* sink) {
               platform::ComPtr<ClassObject> parameters;
               if (in != nullptr) parameters = pool_.New<ClassObject>(pool_, *in);
               return services_->ExecMethodAsync(text.get(), name.get(), 0, context,
                                                 parameters.get(), sink);
             });
}

}  // namespace host
