#pragma once

#include <string>
#include <vector>

#include "tests/support/fake_wbem.h"

namespace sweep {

/// One request of a management service, ready to be made again and again.
struct Request {
  enum Kind { kEnumerate, kQuery, kGet, kDelete, kPut, kMethod, kInitialize, kFactory };

  Kind kind;
  std::string name;     ///< for messages
  platform::Bstr text;  ///< class, query or path
  platform::Bstr method = {};
  platform::ComPtr<testing_support::FakeObject> object = {};  ///< what is put, or in-parameters
};

/// Every operation on every class, method and update, those that are refused included. The
/// adapters are "7" and "10", the networks those of library_data.h.
std::vector<Request> AllRequests(testing_support::InstanceScript& script);

/// Makes one of the six requests that go to the provider itself; its answer.
HRESULT Send(const Request& request, IWbemServices& provider, IWbemObjectSink* client);

}  // namespace sweep
