// A module whose provider never sets the final status of a request.

#include "tests/host/fake_provider.h"

STDAPI DllGetClassObject(REFCLSID, REFIID iid, void** object) {
  static host::FakeProvider provider;
  provider.services.steps = [](host::Request&) { return HRESULT{S_OK}; };
  return provider.factory()->QueryInterface(iid, object);
}
STDAPI DllCanUnloadNow() {
  return S_OK;
}
