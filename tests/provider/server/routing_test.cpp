// Every class reaches its own routines: by enumeration, by query and by key.

#include <algorithm>
#include <cstring>

#include "tests/support/fake_profile_library.h"
#include "tests/support/os_version.h"
#include "tests/support/provider_fixture.h"
#include "tests/support/schema_objects.h"

namespace wifi {
namespace {

using platform::Bstr;
using platform::WideText;
using testing_support::PathOf;
using testing_support::ValueOf;
using Strings = std::vector<std::string>;

/// One adapter with one of everything.
class Routing : public testing_support::ProviderFixture {
 protected:
  Routing() {
    Initialize({{107, "7", 1}});
    std::memcpy(networks_.entries[0].macAddress, "\x02\0\0\0\0\x01", 6);
    std::memcpy(excluded_.entries[0].ssid, "Guest", 5);
    library_.stores[1] = {{.name = "Home"}};
    api.onGetCachedScanList = api.onGetAvailableNetworks = testing_support::Gives(&networks_);
    api.onGetExcludeList = testing_support::Gives(&excluded_);
  }
  /// "CLASS FIRST-PUT" of each instance that the operation delivered, or its failing code.
  Strings Brought(HRESULT result) {
    Strings brought;
    if (FAILED(result)) brought.push_back(std::to_string(result));
    for (const auto& object : sink->objects) {
      brought.push_back(object->className + " " + object->ShownPuts().front());
    }
    sink->objects.clear();
    return brought;
  }
  Strings Get(const std::string& path) {
    const Bstr text(WideText(path));
    return Brought(provider->GetObjectAsync(text.get(), 0, nullptr, sink.get()));
  }

 private:
  adapterapi::ScanList networks_ = {.count = 1, .entries = {}};
  adapterapi::ExcludeList excluded_ = {.count = 1, .entries = {}};
  testing_support::FakeProfileLibrary library_{journal};
};

TEST_F(Routing, EveryClassByItsOwnRoutines) {
  const auto keys = testing_support::KeysOfAdapter7(
      {{"MacAddress", "02:00:00:00:00:01"}, {"NetworkName", "Guest"}, {"Name", "Home"}});
  for (const contract::Class& row : contract::kClasses) {
    const std::string name(row.name);
    SCOPED_TRACE(name);
    const std::string firstKey(row.keys.substr(0, row.keys.find(' ')));
    const Strings one = {name + " " + firstKey + "=text:" + ValueOf(keys, name, firstKey)};
    const std::string path = PathOf(name, keys);
    EXPECT_EQ(Get(path), one);
    // Under any other name there is no key.
    if (name != "WiFi_SystemPolicies") {
      EXPECT_EQ(Get(std::string(path).insert(name.size() + 1, "X")),
                Strings{std::to_string(static_cast<HRESULT>(WBEM_E_NOT_FOUND))});
    }
    const Bstr className(WideText(name));
    EXPECT_EQ(Brought(provider->CreateInstanceEnumAsync(className.get(), 0, nullptr, sink.get())),
              one);
    const Bstr query(WideText("SELECT * FROM " + name));
    const Strings queried =
        Brought(provider->ExecQueryAsync(nullptr, query.get(), 0, nullptr, sink.get()));
    ASSERT_EQ(queried.size(), 1u);
    // Two names contain the name of another class, which comes first.
    const bool another =
        name == "WiFi_NetworkAdapterConfiguration" || name == "WiFi_NetworkAdapterSetting";
    EXPECT_EQ(queried[0].substr(0, queried[0].find(' ')), another ? "WiFi_NetworkAdapter" : name);
  }
}

/// The kind of value, as Shown writes it, for a property of this type.
const char* KindOf(CIMTYPE type) {
  switch (type) {
    case CIM_BOOLEAN:
      return "flag";
    case CIM_SINT32:
      return "number";
    case CIM_STRING | CIM_FLAG_ARRAY:
      return "texts";
    default:
      return "text";
  }
}

TEST_F(Routing, EveryInstanceHasThePropertiesOfTheSchema) {
  const testing_support::OsVersionNotNt6 nothingLeftOut;
  for (const contract::Class& row : contract::kClasses) {
    const Bstr name(WideText(std::string(row.name)));
    provider->CreateInstanceEnumAsync(name.get(), 0, nullptr, sink.get());
    ASSERT_EQ(sink->objects.size(), 1u) << row.name;
    std::map<std::string, std::string> put;
    for (const auto& [property, value] : sink->objects[0]->puts) {
      put[property] = value.substr(0, value.find(':'));
      EXPECT_FALSE(contract::FindProperty(row.name, std::string_view(property)).name.empty())
          << row.name << "." << property << " is put: declare it in the schema";
    }
    sink->objects.clear();
    for (const contract::Property& property : contract::kProperties) {
      if (property.className != row.name) continue;
      EXPECT_EQ(put[std::string(property.name)], KindOf(property.type))
          << row.name << "." << property.name << " is declared: put it in the class's filler";
    }
  }
}

TEST_F(Routing, EveryUpdateReadsThePropertiesThatAreWritten) {
  const testing_support::OsVersionNotNt6 nothingLeftOut;
  for (const contract::Class& row : contract::kClasses) {
    const auto object = MakeObject();
    FillFromSchema(*object.get());
    object->values["__PATH"] = platform::Variant::AnsiText(std::string(row.name) + "=@");
    object->values["__CLASS"] = platform::Variant::AnsiText(std::string(row.name));
    object->values["DeviceID"] = platform::Variant::AnsiText("7");
    object->values["SettingID"] = platform::Variant::AnsiText("7");
    journal.Clear();
    provider->PutInstanceAsync(object.get(), 0, nullptr, sink.get());
    const Strings read = journal.Of("get ");
    for (const contract::Property& property : contract::kProperties) {
      if (property.className != row.name || property.isKey) continue;
      EXPECT_EQ(std::ranges::count(read, property.name), property.isWritten ? 1 : 0)
          << row.name << "." << property.name
          << ": the class's update reads what the schema declares as written, and nothing else";
    }
  }
}

}  // namespace
}  // namespace wifi
