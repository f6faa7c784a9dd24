#pragma once

#include <functional>
#include <string>
#include <utility>

#include "host/service/namespace.h"
#include "host/service/request_sink.h"
#include "scenario/platform_objects.h"

namespace host {

/// One provider from Initialize to its last release, and its requests. Every violation of the
/// contract between service and provider is reported to `defects`.
class ProviderSession {
 public:
  /// The session must not outlive any of these.
  ProviderSession(const Repository& repository, const simulator::PlatformObjects& platformObjects,
                  Defects& defects);
  ProviderSession(const ProviderSession&) = delete;
  ProviderSession& operator=(const ProviderSession&) = delete;
  ~ProviderSession();

  /// Creates a provider and initialises it. Returns the failure if it cannot be created; the status
  /// reported by Initialize is `init_status()`.
  HRESULT Start(IClassFactory* factory);
  HRESULT init_status() const { return initStatus_; }
  /// Releases the provider and everything that belongs to it; reports objects that it still holds.
  void Stop();

  /// `watcher` is called with each request before it is made, and with null after it has ended.
  void Watch(std::function<void(const std::string*)> watcher) { watcher_ = std::move(watcher); }

  Outcome Enumerate(const std::string& className);
  /// The same, but passes each instance to `visitor` as it arrives; the outcome contains no
  /// instances.
  Outcome Enumerate(const std::string& className, const ObjectVisitor& visitor);
  Outcome Get(const std::string& path);
  Outcome Query(const std::string& query);
  Outcome Put(const CimObject& instance);
  Outcome Delete(const std::string& path);
  /// `in` has the in-parameters, or is null. The outcome's object has the out-parameters.
  Outcome Call(const std::string& path, const std::string& method, const CimObject* in);

 private:
  /// Runs one request: `issue(context, sink)` makes the call and returns its result.
  template <class Issue>
  Outcome Run(const std::string& request, const ClassInfo* expected, Issue issue,
              const ObjectVisitor* visitor = nullptr);

  Outcome EnumerateInto(const std::string& className, const ObjectVisitor* visitor);

  const Repository& repository_;
  Defects& defects_;
  ObjectPool pool_;
  Namespace namespace_;
  platform::ComPtr<IWbemProviderInit> provider_;
  platform::ComPtr<IWbemServices> services_;
  HRESULT initStatus_ = S_OK;
  std::function<void(const std::string*)> watcher_;
};

}  // namespace host
