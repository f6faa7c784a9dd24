#pragma once

#include <string>
#include <vector>

#include "tests/support/fake_wbem.h"

namespace sweep {

/// One request of a management service, which can be made any number of times.
struct Request {
  enum Kind { kEnumerate, kQuery, kGet, kDelete, kPut, kMethod, kInitialize, kFactory };

  Kind kind;
  std::string name;     ///< for messages
  platform::Bstr text;  ///< class, query or path
  platform::Bstr method = {};
  platform::ComPtr<testing_support::FakeObject> object =
      {};  ///< the put instance, or the in-parameters
};

/// Every operation on every class, method and update, including those that are refused. The
/// adapters are "7" and "10", the networks those of library_data.h.
std::vector<Request> AllRequests(testing_support::InstanceScript& script);

/// Makes one of the six requests to the provider itself; returns its result.
HRESULT Send(const Request& request, IWbemServices& provider, IWbemObjectSink* client);

}  // namespace sweep
