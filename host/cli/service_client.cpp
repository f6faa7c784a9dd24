#include "host/cli/service_client.h"

#include <mutex>

#include "host/mof/cim_types.h"
#include "host/service/repository.h"
#include "host/service/result_text.h"
#include "platform/safe_array.h"
#include "platform/text.h"

namespace host {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::SafeArray;
using platform::Variant;

Bstr ServiceText(const std::string& text) {
  return Bstr(platform::WideFromUtf8(text));
}

std::vector<std::string> OwnNames(IWbemClassObject& object) {
  std::vector<std::string> names;
  SAFEARRAY* given = nullptr;
  if (FAILED(object.GetNames(nullptr, WBEM_FLAG_NONSYSTEM_ONLY, nullptr, &given))) return names;
  const SafeArray owned(given);
  LONG last = -1;
  if (given == nullptr || FAILED(SafeArrayGetUBound(given, 1, &last))) return names;
  for (LONG index = 0; index <= last; ++index) {
    Bstr name;
    if (SUCCEEDED(SafeArrayGetElement(given, &index, name.put()))) {
      names.push_back(platform::Utf8Text(name.view()));
    }
  }
  return names;
}

Json ValueOf(IWbemClassObject& object, const std::string& name) {
  Variant value;
  CIMTYPE type = CIM_EMPTY;
  const platform::OleString wide = platform::WideFromUtf8(name);
  if (FAILED(object.Get(wide.c_str(), 0, value.put(), &type, nullptr))) return nullptr;
  Json json = ToJson(type, value.get());
  if (!json.is_null() || value.type() == VT_NULL) return json;
  // A type that the schema does not use, such as a real number.
  if (SUCCEEDED(value.ChangeType(VT_BSTR))) json = ToJson(CIM_STRING, value.get());
  return json;
}

}  // namespace

/// The objects of a request, which arrive on its own thread.
struct ServiceClient::Arrivals {
  std::mutex mutex;
  ServiceAnswer answer;
  bool isAwaited = true;

  /// False once nobody waits for more.
  bool Add(ServiceObject object) {
    const std::lock_guard lock(mutex);
    if (isAwaited) answer.objects.push_back(std::move(object));
    return isAwaited;
  }
};

ServiceClient::ServiceClient(std::function<Connection()> connect, std::chrono::milliseconds limit)
    : patience_(limit) {
  const auto made = std::make_shared<Connection>();
  connected_ = patience_.Await([connect = std::move(connect), made] { *made = connect(); });
  if (connected_ != S_OK) return;
  service_ = *made;
  connected_ = service_->status();
}

ServiceAnswer ServiceClient::Request(
    std::function<HRESULT(const os::ServiceConnection&, Arrivals&)> request) const {
  if (FAILED(connected_)) return {connected_, {}};
  const auto arrivals = std::make_shared<Arrivals>();
  const HRESULT waited =
      patience_.Await([service = service_, request = std::move(request), arrivals] {
        const HRESULT status = request(*service, *arrivals);
        const std::lock_guard lock(arrivals->mutex);
        arrivals->answer.status = status;
      });
  const std::lock_guard lock(arrivals->mutex);
  arrivals->isAwaited = false;
  ServiceAnswer answer = std::move(arrivals->answer);
  if (waited != S_OK) answer.status = waited;
  return answer;
}

ServiceAnswer ServiceClient::Collect(
    std::function<HRESULT(IWbemServices&, IEnumWbemClassObject**)> open) const {
  return Request([open = std::move(open)](const os::ServiceConnection& service,
                                          Arrivals& arrivals) -> HRESULT {
    constexpr ULONG kAtOnce = 1;
    ComPtr<IEnumWbemClassObject> enumeration;
    const HRESULT opened = open(*service.get(), enumeration.put());
    if (FAILED(opened) || !enumeration) return opened;
    service.Secure(enumeration.get());
    while (true) {
      ServiceObject object;
      ULONG returned = 0;
      const HRESULT next = enumeration->Next(WBEM_INFINITE, kAtOnce, object.put(), &returned);
      if (next != S_OK || returned == 0 || !object) return FAILED(next) ? next : S_OK;
      if (!arrivals.Add(std::move(object))) return S_OK;
    }
  });
}

ServiceAnswer ServiceClient::One(
    std::function<HRESULT(IWbemServices&, IWbemClassObject**)> ask) const {
  return Request([ask = std::move(ask)](const os::ServiceConnection& service, Arrivals& arrivals) {
    ServiceObject object;
    const HRESULT status = ask(*service.get(), object.put());
    if (SUCCEEDED(status) && object) arrivals.Add(std::move(object));
    return status;
  });
}

ServiceAnswer ServiceClient::Enumerate(const std::string& className) const {
  return Collect([className](IWbemServices& service, IEnumWbemClassObject** enumeration) {
    return service.CreateInstanceEnum(ServiceText(className).get(),
                                      WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY,
                                      nullptr, enumeration);
  });
}

ServiceAnswer ServiceClient::Classes() const {
  return Collect([](IWbemServices& service, IEnumWbemClassObject** enumeration) {
    return service.CreateClassEnum(nullptr, WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY,
                                   nullptr, enumeration);
  });
}

ServiceAnswer ServiceClient::Query(const std::string& query) const {
  return Collect([query](IWbemServices& service, IEnumWbemClassObject** enumeration) {
    return service.ExecQuery(ServiceText("WQL").get(), ServiceText(query).get(),
                             WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY, nullptr,
                             enumeration);
  });
}

ServiceAnswer ServiceClient::Get(const std::string& classOrPath) const {
  return One([classOrPath](IWbemServices& service, IWbemClassObject** object) {
    return service.GetObject(ServiceText(classOrPath).get(), 0, nullptr, object, nullptr);
  });
}

HRESULT ServiceClient::Put(const ServiceObject& instance) const {
  return One([instance](IWbemServices& service, IWbemClassObject**) {
           constexpr LONG kUpdateOnly = 1;
           return service.PutInstance(instance.get(), kUpdateOnly, nullptr, nullptr);
         })
      .status;
}

ServiceAnswer ServiceClient::Call(const std::string& path, const std::string& method,
                                  const TypedValues& values) const {
  ServiceAnswer answer = Get(ClassNameOfPath(path));
  if (FAILED(answer.status) || answer.objects.empty()) return answer;
  ServiceObject signature;
  ServiceObject unused;
  ServiceObject in;
  const platform::OleString name = platform::WideFromUtf8(method);
  answer.status = answer.objects.front()->GetMethod(name.c_str(), 0, signature.put(), unused.put());
  answer.objects.clear();
  if (FAILED(answer.status)) return answer;
  if (signature) {
    answer.status = signature->SpawnInstance(0, in.put());
    if (FAILED(answer.status)) return answer;
    for (const auto& [parameter, text] : values) PutTyped(in, parameter, text);
  } else if (!values.empty()) {
    throw ValueError(method + " takes no parameters");
  }
  return One([path, method, in](IWbemServices& service, IWbemClassObject** out) {
    return service.ExecMethod(ServiceText(path).get(), ServiceText(method).get(), 0, nullptr,
                              in.get(), out, nullptr);
  });
}

ServiceClient ConnectToService(const os::ServiceLogon& logon, std::chrono::seconds limit) {
  return ServiceClient([logon] { return std::make_shared<os::ServiceConnection>(logon); }, limit);
}

Json RowOfService(const ServiceObject& object, const std::vector<std::string>& fields) {
  Json row = Json::object();
  for (const std::string& name : fields.empty() ? OwnNames(*object.get()) : fields) {
    row[name] = ValueOf(*object.get(), name);
  }
  return row;
}

std::string ClassNameOf(const ServiceObject& object) {
  const Json name = ValueOf(*object.get(), "__CLASS");
  return name.is_string() ? name.get<std::string>() : "";
}

Json PropertiesOf(const ServiceObject& classObject) {
  Json rows = Json::array();
  for (const std::string& name : OwnNames(*classObject.get())) {
    CIMTYPE type = CIM_EMPTY;
    const platform::OleString wide = platform::WideFromUtf8(name);
    classObject->Get(wide.c_str(), 0, nullptr, &type, nullptr);
    const CimType* known = FindCimType(type & ~CIM_FLAG_ARRAY);
    std::string word = known == nullptr ? std::to_string(type) : std::string(known->word);
    if ((type & CIM_FLAG_ARRAY) != 0) word += "[]";
    rows.push_back({{"Name", name}, {"Type", word}});
  }
  return rows;
}

void PutTyped(const ServiceObject& object, const std::string& name, const std::string& text) {
  const platform::OleString wide = platform::WideFromUtf8(name);
  CIMTYPE type = CIM_EMPTY;
  HRESULT result = object->Get(wide.c_str(), 0, nullptr, &type, nullptr);
  if (FAILED(result)) throw ValueError(name + ": " + DescribeResult(result));
  if (FindCimType(type & ~CIM_FLAG_ARRAY) == nullptr) {
    throw ValueError(name + ": values of this type cannot be typed");
  }
  Variant value = FromTypedText(type, text);
  result = object->Put(wide.c_str(), 0, value.in_place(), 0);
  if (FAILED(result)) throw ValueError(name + ": " + DescribeResult(result));
}

}  // namespace host
