#pragma once

#include <string>
#include <vector>

#include "host/service/cim_object.h"
#include "host/service/unsupported_services.h"

namespace host {

/// The namespace that the provider gets at Initialize: class definitions by name, and the instances
/// of the platform's own classes. Reports calls without the current request's context.
class Namespace final : public UnsupportedServices {
 public:
  /// The namespace must not outlive any of the three.
  Namespace(const Repository& repository, ObjectPool& pool, Defects& defects);

  /// Adds an instance to those that CreateInstanceEnum returns for its class.
  void AddInstance(CimObject instance);

  /// From now on calls belong to `request` and must carry `context`; null means no context.
  void BeginRequest(std::string request, IWbemContext* context);

  HRESULT STDMETHODCALLTYPE GetObject(const BSTR path, LONG flags, IWbemContext* context,
                                      IWbemClassObject** object, IWbemCallResult** result) override;
  HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR className, LONG flags,
                                               IWbemContext* context,
                                               IEnumWbemClassObject** instances) override;

 private:
  void CheckContext(const std::string& call, IWbemContext* context);

  const Repository& repository_;
  ObjectPool& pool_;
  Defects& defects_;
  std::vector<CimObject> instances_;
  std::string request_;
  IWbemContext* context_ = nullptr;  ///< only compared
};

}  // namespace host
