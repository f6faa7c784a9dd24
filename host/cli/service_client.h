#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/cli/patience.h"
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

/// Requests to a management service outside this program. Once the service has not answered in
/// time, or Ctrl-C was typed, no more is asked. Needs a multithreaded apartment.
class ServiceClient {
 public:
  using Connection = std::shared_ptr<const os::ServiceConnection>;

  /// `connect` may still run after the object is gone; so may calls of the service. A limit of 0 is
  /// none; it counts for all requests together.
  ServiceClient(std::function<Connection()> connect, std::chrono::milliseconds limit);

  /// With a failure all requests end.
  HRESULT connected() const { return connected_; }

  ServiceAnswer Enumerate(const std::string& className) const;
  ServiceAnswer Classes() const;
  ServiceAnswer Get(const std::string& classOrPath) const;
  ServiceAnswer Query(const std::string& query) const;
  HRESULT Put(const ServiceObject& instance) const;
  /// The answer's object has the out-parameters. Throws ValueError.
  ServiceAnswer Call(const std::string& path, const std::string& method,
                     const TypedValues& values) const;

 private:
  struct Arrivals;

  ServiceAnswer Request(
      std::function<HRESULT(const os::ServiceConnection&, Arrivals&)> request) const;
  ServiceAnswer Collect(std::function<HRESULT(IWbemServices&, IEnumWbemClassObject**)> open) const;
  ServiceAnswer One(std::function<HRESULT(IWbemServices&, IWbemClassObject**)> ask) const;

  Patience patience_;
  Connection service_;
  HRESULT connected_;
};

/// How long to wait for a service if the user does not say.
inline constexpr std::chrono::seconds kDefaultLimit{60};
/// A client of a service outside this process. Needs a multithreaded apartment.
ServiceClient ConnectToService(const os::ServiceLogon& logon, std::chrono::seconds limit);

/// The object's own properties in their order, or only `fields`; NULL becomes null.
Json RowOfService(const ServiceObject& object, const std::vector<std::string>& fields);
/// The name of a class.
std::string ClassNameOf(const ServiceObject& object);
/// The types of all properties: rows of Name and Type.
Json PropertiesOf(const ServiceObject& classObject);
/// Puts a typed value. Throws ValueError for a name or value that does not fit.
void PutTyped(const ServiceObject& object, const std::string& name, const std::string& text);

}  // namespace host
