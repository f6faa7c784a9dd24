#include "tests/support/fake_wbem.h"

#include <cstdio>
#include <stdexcept>

namespace testing_support {
namespace {

using platform::ComPtr;
using platform::Utf8Text;
using platform::ViewOf;

std::string ShownArray(SAFEARRAY* array) {
  LONG last = -1;
  SafeArrayGetUBound(array, 1, &last);
  std::string shown = "texts:";
  for (LONG index = 0; index <= last; ++index) {
    platform::Bstr element;
    SafeArrayGetElement(array, &index, element.put());
    shown += (index == 0 ? "" : "|") + Utf8Text(element.view());
  }
  return shown;
}

}  // namespace

std::string Shown(const VARIANT& value) {
  char code[16];
  switch (value.vt) {
    case VT_EMPTY:
      return "empty";
    case VT_NULL:
      return "null";
    case VT_BSTR:
      return value.bstrVal == nullptr ? "text" : "text:" + Utf8Text(ViewOf(value.bstrVal));
    case VT_I4:
      return "number:" + std::to_string(value.lVal);
    case VT_BOOL:
      return value.boolVal == VARIANT_TRUE    ? "flag:true"
             : value.boolVal == VARIANT_FALSE ? "flag:false"
                                              : "flag:" + std::to_string(value.boolVal);
    case VT_ERROR:
      std::snprintf(code, sizeof(code), "%08X", static_cast<unsigned>(value.scode));
      return "error:" + std::string(code);
    case VT_ARRAY | VT_BSTR:
      return ShownArray(value.parray);
    default:
      return "type " + std::to_string(value.vt);
  }
}

std::vector<std::string> FakeObject::ShownPuts() const {
  std::vector<std::string> shown;
  for (const PutValue& put : puts) shown.push_back(put.name + "=" + put.value);
  return shown;
}

std::string FakeObject::Last(const std::string& name) const {
  std::string last;
  for (const PutValue& put : puts) {
    if (put.name == name) last = put.value;
  }
  return last;
}

HRESULT FakeObject::Get(LPCWSTR name, LONG, VARIANT* value, CIMTYPE*, LONG*) {
  const Outgoing call(Step::kGet);
  if (call.struck()) return call.code();
  const std::string key = Utf8Text(ViewOf(name));
  script_.journal.Add("get " + key);
  const auto found = values.find(key);
  if (found == values.end()) return WBEM_E_NOT_FOUND;
  const HRESULT copied = VariantCopy(value, const_cast<VARIANT*>(&found->second.get()));
  return FAILED(copied) ? copied : script_.getResult;
}

HRESULT FakeObject::Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) {
  const Outgoing call(Step::kPut);
  if (call.struck()) return call.code();
  const std::string key = Utf8Text(ViewOf(name));
  script_.journal.Add("put " + key);
  if (script_.putThrows == key) throw std::runtime_error("put");
  if (flags != 0 || type != 0) return E_INVALIDARG;
  const auto result = script_.putResults.find(key);
  if (result != script_.putResults.end() && FAILED(result->second)) return result->second;
  puts.push_back({key, Shown(*value)});
  return result == script_.putResults.end() ? S_OK : result->second;
}

HRESULT FakeObject::SpawnInstance(LONG flags, IWbemClassObject** instance) {
  const Outgoing call(Step::kSpawn);
  if (call.struck()) return call.code();
  script_.journal.Add("spawn " + className);
  if (flags != 0) return E_INVALIDARG;
  if (FAILED(script_.spawnResult)) return script_.spawnResult;
  auto* spawned = new FakeObject(script_);
  spawned->className = className;
  *instance = spawned;
  return S_OK;
}

HRESULT FakeObject::GetMethod(LPCWSTR name, LONG, IWbemClassObject** in, IWbemClassObject** out) {
  const Outgoing call(Step::kSignature);
  if (call.struck()) return call.code();
  const std::string method = Utf8Text(ViewOf(name));
  script_.journal.Add("method " + method);
  if (in != nullptr) return E_INVALIDARG;
  auto* signature = new FakeObject(script_);
  signature->className = className + "." + method;
  *out = signature;
  return S_OK;
}

HRESULT FakeSink::Indicate(LONG count, IWbemClassObject** indicated) {
  const Outgoing call(Step::kIndicate);
  if (call.struck()) return call.code();
  script_.journal.Add("indicate");
  if (count != 1 || indicated == nullptr || indicated[0] == nullptr) return E_INVALIDARG;
  ++calls_;
  const auto scripted = script_.indicateResults.find(calls_);
  const HRESULT result =
      scripted == script_.indicateResults.end() ? script_.indicateResult : scripted->second;
  if (SUCCEEDED(result)) {
    objects.push_back(ComPtr<FakeObject>(static_cast<FakeObject*>(indicated[0])));
  }
  return result;
}

HRESULT FakeSink::SetStatus(LONG flags, HRESULT status, BSTR text, IWbemClassObject* object) {
  {
    const Side outside(false);
    script_.journal.Add("status " + std::to_string(status));
    if (flags != WBEM_STATUS_COMPLETE || text != nullptr || object != nullptr) return E_INVALIDARG;
    statuses.push_back(status);
  }
  const Outgoing call(Step::kStatus);
  return call.struck() ? call.code() : S_OK;
}

HRESULT FakeEnumeration::Next(LONG timeout, ULONG count, IWbemClassObject** object,
                              ULONG* returned) {
  const Outgoing call(Step::kNext);
  *returned = 0;
  if (call.struck()) return call.code();
  if (timeout != WBEM_INFINITE || count != 1) return E_INVALIDARG;
  if (next_ == objects_.size()) return WBEM_S_FALSE;
  ComPtr<IWbemClassObject> found = objects_[next_++];
  *returned = found ? 1 : 0;
  *object = found.release();
  return S_OK;
}

HRESULT FakeNamespace::GetObject(const BSTR path, LONG flags, IWbemContext* context,
                                 IWbemClassObject** object, IWbemCallResult** result) {
  const Outgoing call(Step::kFetch);
  if (call.struck()) return call.code();
  if (path == nullptr) script_.journal.Add("call without a class");
  const std::string name = Utf8Text(ViewOf(path));
  contexts.push_back(context);
  if (flags != 0 || result != nullptr) return E_INVALIDARG;
  const auto scripted = getObjectResults.find(name);
  if (scripted != getObjectResults.end() && FAILED(scripted->second)) return scripted->second;
  auto* definition = new FakeObject(script_);
  definition->className = name;
  *object = definition;
  return S_OK;
}

HRESULT FakeNamespace::CreateInstanceEnum(const BSTR name, LONG flags, IWbemContext* context,
                                          IEnumWbemClassObject** enumeration) {
  const Outgoing call(Step::kOpen);
  if (call.struck()) return call.code();
  if (name == nullptr) script_.journal.Add("call without a class");
  char entry[80];
  std::snprintf(entry, sizeof(entry), "%s %X", Utf8Text(ViewOf(name)).c_str(),
                static_cast<unsigned>(flags));
  enumerations.push_back(entry);
  if (context != nullptr) return E_INVALIDARG;
  const auto found = platformObjects.find(Utf8Text(ViewOf(name)));
  if (found == platformObjects.end()) return WBEM_E_INVALID_CLASS;
  *enumeration = new FakeEnumeration(found->second);
  return S_OK;
}

}  // namespace testing_support
