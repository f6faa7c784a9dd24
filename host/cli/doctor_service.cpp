#include <algorithm>
#include <iterator>

#include "host/cli/doctor.h"
#include "host/model/dump.h"
#include "host/model/wording.h"
#include "host/mof/registration.h"
#include "host/service/cim_object.h"
#include "host/service/result_text.h"

namespace host {
namespace {

constexpr const char* kProviderClass = "__Win32Provider";
constexpr const char* kRegistrations[] = {"__InstanceProviderRegistration",
                                          "__MethodProviderRegistration"};
constexpr const char* kCompile = "Repair with the installer, or: mofcomp wifi_adapter_provider.mof";
constexpr const char* kQuotas = "__ProviderHostQuotaConfiguration";

struct AdviceRow {
  HRESULT code;
  const char* advice;
};
constexpr AdviceRow kAdvice[] = {
    {WBEM_E_INVALID_CLASS, kCompile},
    {WBEM_E_PROVIDER_NOT_FOUND, kCompile},
    {WBEM_E_PROVIDER_LOAD_FAILURE, "Mend the module, its registration and the libraries."},
    {WBEM_E_INITIALIZATION_FAILURE, "Mend the module, its registration and the libraries."},
    {WBEM_E_ACCESS_DENIED, "Start the console as administrator."},
    {E_ACCESSDENIED, "Start the console as administrator."},
    {kLate, "Restart the service Winmgmt."},
    {WBEM_E_CALL_CANCELLED, "Ask again, and wait for the answer."},
};

std::string AdviceFor(HRESULT code) {
  const auto* row = std::ranges::find(kAdvice, code, &AdviceRow::code);
  return row == std::end(kAdvice) ? "Look the code up in result-codes.md." : row->advice;
}

std::string ServiceCell(const ServiceObject& object, const char* property) {
  return TextOf(RowOfService(object, {property}), property);
}

/// What was not said before of a service that fails: all that follows is unknown.
Diagnosis FailedRequest(const char* part, HRESULT status) {
  return {part, MeansUnanswered(status) ? Severity::kUnknown : Severity::kProblem,
          DescribeResult(status) + ".", AdviceFor(status)};
}

/// Whether the class in the repository has the properties of the product's.
bool HasSameProperties(const ServiceObject& object, const ClassInfo& info) {
  const Json properties = PropertiesOf(object);
  const auto& own = info.declaration.properties;
  return properties.size() == own.size() && std::ranges::all_of(properties, [&](const Json& row) {
           return info.FindProperty(row["Name"].get<std::string>()).has_value();
         });
}

Diagnosis DiagnoseSchema(const ServiceClient& service, const Repository& repository) {
  constexpr const char* kPart = "schema";
  std::vector<std::string> missing;
  std::vector<std::string> other;
  for (const ClassInfo* info : repository.served()) {
    const ServiceAnswer answer = service.Get(info->name());
    if (FAILED(answer.status) && !MeansNotFound(answer.status))
      return FailedRequest(kPart, answer.status);
    if (answer.objects.empty()) {
      missing.push_back(info->name());
    } else if (!HasSameProperties(answer.objects.front(), *info)) {
      other.push_back(info->name());
    }
  }
  if (!missing.empty()) {
    return {kPart, Severity::kProblem, "The repository lacks " + Joined(missing) + ".", kCompile};
  }
  if (!other.empty()) {
    return {kPart, Severity::kProblem,
            "The repository has another version of " + Joined(other) + ".", kCompile};
  }
  return {kPart, Severity::kGood,
          "The repository has all " + std::to_string(repository.served().size()) + " classes."};
}

/// Whether an instance of the class registers the provider.
bool IsRegistered(const ServiceClient& service, const char* className,
                  const std::string& provider) {
  return std::ranges::any_of(
      service.Enumerate(className).objects, [&](const ServiceObject& object) {
        return ServiceCell(object, "provider").find(Quoted(provider)) != std::string::npos;
      });
}

Diagnosis DiagnoseProvider(const ServiceClient& service, const Schema& schema) {
  constexpr const char* kPart = "provider";
  const InstanceDeclaration& own = *InstancesOf(schema, kProviderClass).front();
  const std::string name = TextOf(own, "Name");
  ServiceAnswer found = service.Enumerate(kProviderClass);
  if (FAILED(found.status)) return FailedRequest(kPart, found.status);
  std::erase_if(found.objects, [&](const ServiceObject& object) {
    return !SameIgnoringAsciiCase(ServiceCell(object, "Name"), name);
  });
  std::vector<std::string> present;
  std::vector<std::string> missing;
  for (const char* each : kRegistrations) {
    (IsRegistered(service, each, name) ? present : missing).emplace_back(each);
  }
  if (found.objects.empty()) {
    if (present.empty()) {
      return {kPart, Severity::kProblem, "The repository does not know the provider.", kCompile};
    }
    return {
        kPart, Severity::kProblem,
        Joined(present) + " is left over: it names a provider that the repository does not know.",
        "Compile uninstall.mof, or to use the provider, wifi_adapter_provider.mof (mofcomp)."};
  }
  if (!missing.empty()) {
    return {kPart, Severity::kProblem, "The repository lacks " + Joined(missing) + ".", kCompile};
  }
  const std::string classId = ServiceCell(found.objects.front(), "CLSID");
  if (!SameIgnoringAsciiCase(classId, ProviderClassId(schema))) {
    return {kPart, Severity::kProblem,
            "The repository has another class identifier, " + classId + ".", kCompile};
  }
  const std::string host = ServiceCell(found.objects.front(), "HostingModel");
  if (!SameIgnoringAsciiCase(host, TextOf(own, "HostingModel"))) {
    return {kPart, Severity::kNote, "Its host is " + host + ", not the schema's.",
            "To take the schema's: mofcomp wifi_adapter_provider.mof"};
  }
  return {kPart, Severity::kGood, "It is registered, with the host " + host + "."};
}

Diagnosis DiagnoseAnswer(const ServiceClient& service) {
  constexpr const char* kPart = "answer";
  const ServiceAnswer answer = service.Enumerate("WiFi_NetworkAdapter");
  if (FAILED(answer.status)) {
    return {kPart, Severity::kProblem, DescribeResult(answer.status) + ".",
            AdviceFor(answer.status)};
  }
  if (answer.objects.empty()) {
    return {kPart, Severity::kNote, "The service shows no adapter.",
            "Plug in and enable a supported adapter, and install its driver."};
  }
  return {kPart, Severity::kGood,
          "The service shows " + Counted(answer.objects.size(), "adapter") + "."};
}

}  // namespace

std::vector<Diagnosis> DiagnoseService(const ServiceClient& service, const Schema& schema,
                                       const Repository& repository) {
  if (FAILED(service.connected())) {
    return {{"service", Severity::kProblem, DescribeResult(service.connected()) + ".",
             AdviceFor(service.connected())}};
  }
  return {{"service", Severity::kGood, "It can be reached."},
          DiagnoseSchema(service, repository),
          DiagnoseProvider(service, schema),
          DiagnoseAnswer(service)};
}

Diagnosis DiagnoseQuota(const ServiceClient& service) {
  constexpr const char* kPart = "quota";
  const ServiceAnswer answer = FAILED(service.connected())
                                   ? ServiceAnswer{service.connected(), {}}
                                   : service.Get(std::string(kQuotas) + "=@");
  if (answer.objects.empty()) {
    return {kPart, Severity::kUnknown, std::string(kQuotas) + ": " + DescribeResult(answer.status)};
  }
  const ServiceObject& quotas = answer.objects.front();
  return {kPart, Severity::kGood,
          "A host may use " + ServiceCell(quotas, "MemoryPerHost") + " bytes of memory, " +
              ServiceCell(quotas, "HandlesPerHost") + " handles and " +
              ServiceCell(quotas, "ThreadsPerHost") + " threads."};
}

}  // namespace host
