#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/os/os.h"
#include "host/service/value.h"

namespace host {

/// A class of the service, or an instance.
using ServiceObject = platform::ComPtr<IWbemClassObject>;

/// The result of a request to the service.
struct ServiceAnswer {
  HRESULT status = S_OK;
  std::vector<ServiceObject> objects;
};

/// Names and values to put, as typed.
using TypedValues = std::vector<std::pair<std::string, std::string>>;

/// Requests to a management service outside this program.
class ServiceClient {
 public:
  explicit ServiceClient(const os::ServiceLogon& logon) : service_(logon) {}

  HRESULT connected() const { return service_.status(); }

  ServiceAnswer Enumerate(const std::string& className);
  ServiceAnswer Classes();
  ServiceAnswer Get(const std::string& classOrPath);
  ServiceAnswer Query(const std::string& query);
  HRESULT Put(const ServiceObject& instance);
  /// The answer's object has the out-parameters. Throws ValueError.
  ServiceAnswer Call(const std::string& path, const std::string& method, const TypedValues& values);

 private:
  ServiceAnswer Collect(const std::function<HRESULT(IEnumWbemClassObject**)>& open);

  os::ServiceConnection service_;
};

/// The object's own properties in their order, or only `fields`; NULL becomes null.
Json RowOfService(const ServiceObject& object, const std::vector<std::string>& fields);
/// The name of a class.
std::string ClassNameOf(const ServiceObject& object);
/// The types of all properties: rows of Name and Type.
Json PropertiesOf(const ServiceObject& classObject);
/// Puts a typed value. Throws ValueError for a name or value that does not fit.
void PutTyped(const ServiceObject& object, const std::string& name, const std::string& text);

}  // namespace host
