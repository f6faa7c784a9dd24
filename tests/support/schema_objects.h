#pragma once
// Paths and values made from the schema, for tests and programs that walk it.

#include <map>
#include <stdexcept>

#include "schema/contract.h"
#include "tests/support/fake_wbem.h"

namespace testing_support {

/// Values by name, for keys, writable properties or in-parameters. CLASS.NAME takes precedence over
/// NAME.
using SchemaValues = std::map<std::string, std::string>;

inline const std::string& ValueOf(const SchemaValues& values, std::string_view className,
                                  std::string_view name) {
  auto found = values.find(std::string(contract::Name(className, name).view()));
  if (found == values.end()) found = values.find(std::string(name));
  if (found != values.end()) return found->second;
  throw std::runtime_error("this walk over the schema has no value for " + std::string(className) +
                           "." + std::string(name) + ": add one");
}

/// The keys of an instance of a fixture: the adapter "7"; a list's own key comes from `more`.
inline SchemaValues KeysOfAdapter7(SchemaValues more) {
  more.insert({{"DeviceID", "7"},
               {"SettingID", "7"},
               {"WiFi_SystemPolicies.SettingID", "9B22596F-DFD9-4948-817C-43794FEA9472"},
               {"Element", R"(WiFi_NetworkAdapter.DeviceID="7")"},
               {"Setting", R"(WiFi_NetworkAdapterConfiguration.Setting="7")"}});
  return more;
}

/// CLASS.KEY="VALUE",…
inline std::string PathOf(std::string_view className, const SchemaValues& keys) {
  std::string path(className);
  char separator = '.';
  for (const contract::Property& property : contract::kProperties) {
    if (property.className != className || !property.isKey) continue;
    path.append(1, separator).append(property.name).append("=\"");
    for (const char letter : ValueOf(keys, className, property.name)) {
      if (letter == '"' || letter == '\\') path += '\\';
      path += letter;
    }
    path += '"';
    separator = ',';
  }
  return path;
}

/// Sets all properties that clients can write and all in-parameters of an object: flags to false,
/// numbers to 2, texts to the names of things in a fixture.
inline void FillFromSchema(FakeObject& object) {
  const SchemaValues texts = {{"AdapterID", "7"},
                              {"MacAddress", "00:A0:F8:00:00:01"},
                              {"NetworkName", "Guests"},
                              {"ProfileName", "Office"}};
  const auto set = [&](std::string_view className, std::string_view name, CIMTYPE type) {
    object.values[std::string(name)] =
        type == CIM_BOOLEAN  ? platform::Variant::Boolean(false)
        : type == CIM_SINT32 ? platform::Variant::Integer(2)
                             : platform::Variant::AnsiText(ValueOf(texts, className, name));
  };
  for (const contract::Property& property : contract::kProperties) {
    if (property.isWritten) set(property.className, property.name, property.type);
  }
  for (const contract::Parameter& parameter : contract::kParameters) {
    if (!parameter.isOut) set(parameter.className, parameter.name, parameter.type);
  }
}

}  // namespace testing_support
