#pragma once

#include <string>
#include <vector>

#include "host/service/cim_object.h"
#include "host/service/unsupported_services.h"

namespace host {

/// The namespace that the provider gets at Initialize: class definitions by name, and the instances
/// of the platform's own classes. Reports calls that do not carry the running request's context.
class Namespace final : public UnsupportedServices {
 public:
  /// All three outlive the namespace.
  Namespace(const Repository& repository, ObjectPool& pool, Defects& defects);

  /// Adds an instance that CreateInstanceEnum gives for its class.
  void AddInstance(CimObject instance);

  /// From here on calls belong to `request` and carry `context`, null for none.
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
