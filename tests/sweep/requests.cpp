#include "tests/sweep/requests.h"

namespace sweep {
namespace {

using platform::Bstr;
using platform::ComPtr;
using platform::Variant;
using platform::WideText;
using testing_support::FakeObject;

struct ClassRow {
  const char* name;
  const char* keys;  ///< of an existing instance
};
constexpr ClassRow kClasses[] = {
    {"WiFi_NetworkAdapter", R"(DeviceID="7")"},
    {"WiFi_NetworkAdapterConfiguration", R"(SettingID="7")"},
    {"WiFi_AdapterAssociationInfo", R"(SettingID="7")"},
    {"WiFi_NetworkAdapterSetting",
     R"(Element="WiFi_NetworkAdapter.DeviceID=\"7\"",Setting="WiFi_NetworkAdapterConfiguration.Setting=\"7\"")"},
    {"WiFi_AdapterVersion", R"(SettingID="7")"},
    {"WiFi_AdapterDevice", R"(SettingID="7")"},
    {"WiFi_AdapterConfigSettings", R"(SettingID="7")"},
    {"WiFi_AvailableNetwork", R"(SettingID="7",MacAddress="32:32:32:32:32:32")"},
    {"WiFi_PreferredProfile", R"(Name="Office")"},
    {"WiFi_AdapterSignalParameters", R"(SettingID="7")"},
    {"WiFi_AdapterChannel", R"(SettingID="7")"},
    {"WiFi_AdapterFeatures", R"(SettingID="7")"},
    {"WiFi_SystemPolicies", R"(SettingID="9B22596F-DFD9-4948-817C-43794FEA9472")"},
    {"WiFi_AdapterTcpIpSettings", R"(SettingID="7")"},
    {"WiFi_AdapterTcpIpv6Settings", R"(SettingID="7")"},
    {"WiFi_AdapterCachedScanList", R"(SettingID="7",MacAddress="32:32:32:32:32:32")"},
    {"WiFi_NetworkExcludeList", R"(SettingID="7",NetworkName="22222222222222222222222222222222")"},
    {"WiFi_AdapterTxRxStats", R"(SettingID="7")"},
    {"WiFi_AdapterAssocStats", R"(SettingID="7")"},
    {"WiFi_Unknown", R"(SettingID="7")"},
};

struct MethodRow {
  const char* path;
  const char* names;  ///< separated by blanks
};
constexpr MethodRow kMethods[] = {
    {R"(WiFi_NetworkAdapter.DeviceID="7")",
     "RegisterProfileService SetRadioState SetIBSSTxPower SetPspMode SetReadyForProfileState "
     "ResetStatistics SetProtocolPreference SetConnectionPreference EnableXpZeroConfig "
     "ResetExcludeList AddExcludeListEntry RemoveExcludeListEntry IsAdapterSupported "
     "StopAuthentication IsTcpIpInstalledAndBound Release1xConfig Unknown"},
    {R"(WiFi_NetworkAdapterConfiguration.SettingID="7")",
     "GetAPIVersion IsCurrentProfile Disassociate Unknown"},
    {R"(WiFi_AdapterAssociationInfo.SettingID="7")", "IsAssociated Unknown"},
    {R"(WiFi_PreferredProfile.Name="Office")",
     "ApplyProfile ReenterAndReapplyProfile ApplyProfileFromMacAddress Unknown"},
    {R"(WiFi_NetworkExcludeList.SettingID="7")",
     "IsExcludeListEnabled EnableExcludeList GetRogueApCount ExcludeThisAP Unknown"},
    {R"(WiFi_NetworkExcludeList.SettingID="none")", "IsExcludeListEnabled GetRogueApCount"},
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
  auto& values = object->values;
  values["__PATH"] = Variant::AnsiText(className + "=@");
  values["__CLASS"] = Variant::AnsiText(className);
  for (const char* key : {"DeviceID", "SettingID", "AdapterID"}) {
    values[key] = Variant::AnsiText("7");
  }
  for (const char* flag :
       {"RadioState", "ReadyForProfileState", "XpZeroConfigEnabled", "AdapterState",
        "DisableRfControl", "SingleBSSMode", "Register", "Enable", "Enabled"}) {
    values[flag] = Variant::Boolean(false);
  }
  for (const char* number : {"PSPMode", "ProtocolPreference", "ConnectionPreference", "AutoConnect",
                             "ChannelA", "ChannelB", "Reason"}) {
    values[number] = Variant::Integer(2);
  }
  values["IBSSTxPower"] = Variant::AnsiText("2");
  values["ProfileName"] = Variant::AnsiText("Office");
  values["NetworkName"] = Variant::AnsiText("Guests");
  values["MacAddress"] = Variant::AnsiText("00:A0:F8:00:00:01");
  return object;
}

}  // namespace

std::vector<Request> AllRequests(testing_support::InstanceScript& script) {
  std::vector<Request> requests;
  const auto add = [&](Request::Kind kind, const char* what, const std::string& text) -> Request& {
    return requests.emplace_back(Request{kind, std::string(what) + " " + text, Text(text)});
  };
  for (const ClassRow& row : kClasses) {
    const std::string name = row.name;
    add(Request::kEnumerate, "enumerate", name);
    add(Request::kQuery, "query", "SELECT * FROM " + name);
    add(Request::kGet, "get", name + "." + row.keys);
    add(Request::kGet, "get", R"(\\.\root\cimv2:)" + name + R"(.SettingID="none")");
    add(Request::kDelete, "delete", name + "." + row.keys);
    add(Request::kPut, "put", name).object = Filled(script, name);
  }
  add(Request::kGet, "get", "no path = ");
  add(Request::kPut, "put nothing", "").object = ComPtr<FakeObject>::Adopt(new FakeObject(script));
  for (const MethodRow& row : kMethods) {
    const std::string names = row.names;
    for (std::size_t begin = 0; begin < names.size();) {
      const std::size_t end = std::min(names.find(' ', begin), names.size());
      Request& request = add(Request::kMethod, "method", row.path);
      request.method = Text(names.substr(begin, end - begin));
      request.name += " " + names.substr(begin, end - begin);
      request.object = Filled(script, "in");
      begin = end + 1;
    }
  }
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
