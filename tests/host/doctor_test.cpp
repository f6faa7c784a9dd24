#include "host/cli/doctor.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>

#include "host/service/unsupported_services.h"
#include "platform/control/control.h"
#include "tests/host/toy.h"

namespace host {
namespace {

constexpr std::string_view kProduct = R"(
#pragma namespace("\\\\.\\root\\cimv2")
instance of __Win32Provider as $Prov { Name = "Prov"; ClsId = "{1}"; HostingModel = "Host"; };
class WiFi_NetworkAdapter { [key] string DeviceID; string Band; };
class Other { [key] string Id; };
)";
constexpr const char* kPlatform = R"(
#pragma namespace("\\\\.\\root\\cimv2")
class __Win32Provider { [key] string Name; string CLSID; string HostingModel; };
class __InstanceProviderRegistration { [key] string provider; };
class __MethodProviderRegistration { [key] string provider; };
class __ProviderHostQuotaConfiguration { string MemoryPerHost; string HandlesPerHost;
                                         string ThreadsPerHost; };
)";

using Instances = std::vector<std::pair<const char*, std::map<const char*, const char*>>>;

/// A service with classes and instances.
class FilledService final : public UnsupportedServices {
 public:
  FilledService(const std::string& mof, const Instances& instances)
      : UnsupportedServices("the filled service"), repository_(mof, "service.mof") {
    for (const auto& [name, values] : instances) {
      CimObject& object = instances_.emplace_back(*repository_.FindClass(name));
      for (const auto& [property, value] : values) Put(object, property, Text(value));
    }
  }

  HRESULT STDMETHODCALLTYPE GetObject(const BSTR path, LONG, IWbemContext*,
                                      IWbemClassObject** object, IWbemCallResult**) override {
    std::string name = platform::Utf8Text(platform::ViewOf(path));
    const bool isClass = !name.ends_with("=@");
    if (!isClass) name.resize(name.size() - 2);
    const ClassInfo* info = repository_.FindClass(name);
    if (info == nullptr) return WBEM_E_NOT_FOUND;
    for (const CimObject& each : instances_) {
      if (isClass || &each.info() != info) continue;
      *object = pool_.New<ClassObject>(pool_, each).release();
      return S_OK;
    }
    if (!isClass) return WBEM_E_NOT_FOUND;
    *object = pool_.New<ClassObject>(pool_, CimObject(*info, CimObject::Kind::kClass)).release();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE CreateInstanceEnum(const BSTR className, LONG, IWbemContext*,
                                               IEnumWbemClassObject** enumeration) override {
    const ClassInfo* info = repository_.FindClass(platform::Utf8Text(platform::ViewOf(className)));
    if (info == nullptr) return WBEM_E_INVALID_CLASS;
    std::vector<CimObject> found;
    for (const CimObject& each : instances_) {
      if (&each.info() == info) found.push_back(each);
    }
    *enumeration = pool_.New<Enumeration>(pool_, std::move(found)).release();
    return S_OK;
  }

 private:
  class Enumeration final : public ComObject<IEnumWbemClassObject, IID_IEnumWbemClassObject> {
   public:
    Enumeration(ObjectPool& pool, std::vector<CimObject> objects)
        : ComObject("the filled enumeration"), pool_(pool), objects_(std::move(objects)) {}
    HRESULT STDMETHODCALLTYPE Next(LONG, ULONG, IWbemClassObject** objects,
                                   ULONG* returned) override {
      *returned = objects_.empty() ? 0 : 1;
      if (objects_.empty()) return S_FALSE;
      *objects = pool_.New<ClassObject>(pool_, objects_.back()).release();
      objects_.pop_back();
      return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Reset() override { return kNotSupported; }
    HRESULT STDMETHODCALLTYPE NextAsync(ULONG, IWbemObjectSink*) override { return kNotSupported; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumWbemClassObject**) override { return kNotSupported; }
    HRESULT STDMETHODCALLTYPE Skip(LONG, ULONG) override { return kNotSupported; }

   private:
    ObjectPool& pool_;
    std::vector<CimObject> objects_;
  };

  Repository repository_;
  ObjectPool pool_;
  std::vector<CimObject> instances_;
};

std::string Line(const Diagnosis& diagnosis) {
  return std::to_string(static_cast<int>(diagnosis.severity)) + " " + diagnosis.found;
}

TEST(DoctorTest, SaysWhatTheServiceLacks) {
  constexpr const char* kOwn =
      "class WiFi_NetworkAdapter { [key] string DeviceID; string Band; };"
      "class Other { [key] string Id; };";
  const auto provider = [](const char* classId, const char* host) {
    return Instances::value_type{"__Win32Provider",
                                 {{"Name", "Prov"}, {"CLSID", classId}, {"HostingModel", host}}};
  };
  const Instances::value_type gets = {"__InstanceProviderRegistration",
                                      {{"provider", "__Win32Provider.Name=\"Prov\""}}};
  const Instances::value_type calls = {"__MethodProviderRegistration",
                                       {{"provider", "__Win32Provider.Name=\"Prov\""}}};
  const Instances::value_type strange = {"__MethodProviderRegistration",
                                         {{"provider", "__Win32Provider.Name=\"Other\""}}};
  const Instances::value_type adapter = {"WiFi_NetworkAdapter", {{"DeviceID", "7"}}};
  constexpr const char* kAll = "0 The repository has all 2 classes.";
  constexpr const char* kKnown = "0 It is registered, with the host Host.";
  constexpr const char* kShown = "0 The service shows 1 adapter.";
  const struct {
    const char* classes;
    Instances instances;
    std::vector<std::string> lines;  ///< of schema, provider and answer
  } rows[] = {
      {kOwn, {provider("{1}", "Host"), gets, calls, adapter}, {kAll, kKnown, kShown}},
      {kOwn,
       {provider("{1}", "Host"), gets, calls},
       {kAll, kKnown, "1 The service shows no adapter."}},
      {"class Other { [key] string Id; };",
       {provider("{1}", "Host"), gets, calls},
       {"2 The repository lacks WiFi_NetworkAdapter.", kKnown,
        "2 WBEM_E_INVALID_CLASS (0x80041010): no such class."}},
      {"class WiFi_NetworkAdapter { [key] string DeviceID; string Ban; };"
       "class Other { [key] string Id; string More; };",
       {provider("{1}", "Host"), gets, calls, adapter},
       {"2 The repository has another version of WiFi_NetworkAdapter, Other.", kKnown, kShown}},
      {kOwn,
       {provider("{2}", "Host"), gets, calls, adapter},
       {kAll, "2 The repository has another class identifier, {2}.", kShown}},
      {kOwn,
       {provider("{1}", "Else"), gets, calls, adapter},
       {kAll, "1 Its host is Else, not the schema's.", kShown}},
      {kOwn,
       {provider("{1}", "Host"), gets, strange, adapter},
       {kAll, "2 The repository lacks __MethodProviderRegistration.", kShown}},
      {kOwn, {adapter}, {kAll, "2 The repository does not know the provider.", kShown}},
      {kOwn,
       {calls, adapter},
       {kAll,
        "2 __MethodProviderRegistration is left over: it names a provider that the repository does "
        "not know.",
        kShown}},
  };
  const platform::Apartment apartment(platform::Apartment::Kind::kMultithreaded);
  const Schema schema = ParseMof(kProduct, "product.mof");
  const Repository repository(kProduct, "product.mof");
  for (const auto& row : rows) {
    FilledService filled(std::string(kPlatform) + row.classes, row.instances);
    const auto connect = [&filled] {
      return std::make_shared<os::ServiceConnection>(platform::ComPtr<IWbemServices>(&filled));
    };
    const ServiceClient service(connect, std::chrono::seconds(0));
    const auto found = DiagnoseService(service, schema, repository);
    ASSERT_EQ(found.size(), 4u);
    for (std::size_t index = 0; index < row.lines.size(); ++index) {
      EXPECT_EQ(Line(found[index + 1]), row.lines[index]) << row.lines[0] << row.lines[1];
      const bool isGood = found[index + 1].severity == Severity::kGood;
      EXPECT_EQ(found[index + 1].advice.empty(), isGood) << found[index + 1].found;
    }
  }
}

TEST(DoctorTest, SaysThatTheServiceDoesNotAnswer) {
  const auto connect = [] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    return ServiceClient::Connection();
  };
  const ServiceClient service(connect, std::chrono::milliseconds(1));
  const auto found = DiagnoseService(service, ParseMof(kProduct, "product.mof"), ToyRepository());
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(Line(found[0]), "2 RPC_E_TIMEOUT (0x8001011F): no answer in time.");
  EXPECT_EQ(found[0].advice, "Restart the service Winmgmt.");
}

}  // namespace
}  // namespace host
