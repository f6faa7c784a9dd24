#include "host/mof/registration.h"

#include <algorithm>

namespace host {
namespace {

template <typename Kind>
Kind ValueOf(const InstanceDeclaration& instance, std::string_view property) {
  const auto found = std::ranges::find_if(instance.values, [property](const auto& item) {
    return SameIgnoringAsciiCase(item.first, property);
  });
  if (found == instance.values.end() || found->second.size() != 1) return {};
  const Kind* value = std::get_if<Kind>(&found->second.front());
  return value == nullptr ? Kind{} : *value;
}

}  // namespace

std::vector<const InstanceDeclaration*> InstancesOf(const Schema& schema,
                                                    std::string_view className) {
  std::vector<const InstanceDeclaration*> found;
  for (const InstanceDeclaration& instance : schema.instances) {
    if (SameIgnoringAsciiCase(instance.className, className)) found.push_back(&instance);
  }
  return found;
}

std::string TextOf(const InstanceDeclaration& instance, std::string_view property) {
  return ValueOf<std::string>(instance, property);
}

bool FlagOf(const InstanceDeclaration& instance, std::string_view property) {
  return ValueOf<bool>(instance, property);
}

std::string ProviderClassId(const Schema& schema) {
  const auto providers = InstancesOf(schema, "__Win32Provider");
  return providers.empty() ? "" : TextOf(*providers.front(), "ClsId");
}

}  // namespace host
