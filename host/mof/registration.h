#pragma once
// What the instances of a schema tell the service about the provider.

#include "host/mof/schema.h"

namespace host {

std::vector<const InstanceDeclaration*> InstancesOf(const Schema& schema,
                                                    std::string_view className);

/// The text of an instance's property, empty when it has none.
std::string TextOf(const InstanceDeclaration& instance, std::string_view property);
/// The flag of an instance's property, false when it has none.
bool FlagOf(const InstanceDeclaration& instance, std::string_view property);

/// The class identifier under which the schema registers its provider, "{…}"; empty without one.
std::string ProviderClassId(const Schema& schema);

}  // namespace host
