#include "tests/sweep/requests.h"

#include "tests/support/schema_objects.h"

namespace sweep {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;
using platform::WideText;
using testing_support::FakeObject;
using testing_support::PathOf;

// Refused requests, besides an unknown method of each class with methods.
constexpr struct {
  const char* path;
  const char* method;
} kRefusedMethods[] = {
    {R"(WiFi_NetworkExcludeList.SettingID="none")", "IsExcludeListEnabled"},
    {R"(WiFi_NetworkExcludeList.SettingID="none")", "GetRogueApCount"},
    {R"(WiFi_NetworkAdapterSetting.Element="7")", "Unknown"},
    {R"(WiFi_AdapterChannel.SettingID="7")", "Unknown"},
    {"no path = ", "IsAssociated"},
};

Bstr Text(const std::string& text) {
  return Bstr(WideText(text));
}

/// All properties and in-parameters that any update or method reads. Numbers differ from the
/// library's, so that every setter is called; one of them is a text, to be converted.
ComPtr<FakeObject> Filled(testing_support::InstanceScript& script, const std::string& className) {
  auto object = ComPtr<FakeObject>::Adopt(new FakeObject(script));
  FillFromSchema(*object.get());
  auto& values = object->values;
  values["__PATH"] = Variant::AnsiText(className + "=@");
  values["__CLASS"] = Variant::AnsiText(className);
  for (const char* key : {"DeviceID", "SettingID"}) values[key] = Variant::AnsiText("7");
  values["IBSSTxPower"] = Variant::AnsiText("2");
  return object;
}

}  // namespace

std::vector<Request> AllRequests(testing_support::InstanceScript& script) {
  std::vector<Request> requests;
  const auto add = [&](Request::Kind kind, const char* what, const std::string& text) -> Request& {
    return requests.emplace_back(Request{kind, std::string(what) + " " + text, Text(text)});
  };
  const auto addClass = [&](const std::string& name, const std::string& path) {
    add(Request::kEnumerate, "enumerate", name);
    add(Request::kQuery, "query", "SELECT * FROM " + name);
    add(Request::kGet, "get", path);
    add(Request::kGet, "get", R"(\\.\root\cimv2:)" + name + R"(.SettingID="none")");
    add(Request::kDelete, "delete", path);
    add(Request::kPut, "put", name).object = Filled(script, name);
  };
  const auto addMethod = [&](const std::string& path, std::string_view method) {
    Request& request = add(Request::kMethod, "method", path);
    request.method = Text(std::string(method));
    request.name.append(" ").append(method);
    request.object = Filled(script, "in");
  };
  const auto keys = testing_support::KeysOfAdapter7({{"MacAddress", "32:32:32:32:32:32"},
                                                     {"NetworkName", std::string(32, '2')},
                                                     {"Name", "Office"}});
  for (const contract::Class& row : contract::kClasses) {
    addClass(std::string(row.name), PathOf(row.name, keys));
  }
  addClass("WiFi_Unknown", R"(WiFi_Unknown.SettingID="7")");
  add(Request::kGet, "get", "no path = ");
  add(Request::kPut, "put nothing", "").object = ComPtr<FakeObject>::Adopt(new FakeObject(script));
  std::string_view last;
  for (const contract::Method& row : contract::kMethods) {
    if (row.className != last) addMethod(PathOf(row.className, keys), "Unknown");
    last = row.className;
    addMethod(PathOf(row.className, keys), row.name);
  }
  for (const auto& row : kRefusedMethods) addMethod(row.path, row.method);
  add(Request::kInitialize, "Initialize", "");
  add(Request::kFactory, "class factory", "");
  return requests;
}

HRESULT Send(const Request& request, IWbemServices& provider, IWbemObjectSink* client) {
  switch (request.kind) {
    case Request::kEnumerate:
      return provider.CreateInstanceEnumAsync(request.text.get(), 0, nullptr, client);
    case Request::kQuery:
      return provider.ExecQueryAsync(nullptr, request.text.get(), 0, nullptr, client);
    case Request::kGet:
      return provider.GetObjectAsync(request.text.get(), 0, nullptr, client);
    case Request::kDelete:
      return provider.DeleteInstanceAsync(request.text.get(), 0, nullptr, client);
    case Request::kPut:
      return provider.PutInstanceAsync(request.object.get(), 0, nullptr, client);
    case Request::kMethod:
      return provider.ExecMethodAsync(request.text.get(), request.method.get(), 0, nullptr,
                                      request.object.get(), client);
    default:
      return E_UNEXPECTED;
  }
}

}  // namespace sweep
