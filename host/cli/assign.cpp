#include "host/cli/assign.h"

#include "host/service/nearest.h"
#include "host/service/value.h"

namespace host {

std::vector<std::size_t> Assign(const std::vector<std::string>& assignments, CimObject* instance,
                                const std::function<bool(const PropertyDeclaration&)>& writable) {
  const std::vector<PropertyDeclaration>& properties = instance->info().declaration.properties;
  const auto accepted = [&] {
    std::string names;
    for (const PropertyDeclaration& property : properties) {
      if (!writable(property)) continue;
      names +=
          (names.empty() ? "" : ", ") + property.name + " (" + CimTypeName(property.type) + ")";
    }
    return names.empty() ? std::string("nothing can be set") : "it takes " + names;
  };
  std::vector<std::size_t> named;
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
      throw ValueError("'" + assignment + "' is not of the form Name=value; " + accepted());
    }
    const std::string name = assignment.substr(0, equals);
    const std::optional<std::size_t> property = instance->info().FindProperty(name);
    if (!property || !writable(properties[*property])) {
      std::vector<std::string> names;
      for (const PropertyDeclaration& each : properties) {
        if (writable(each)) names.push_back(each.name);
      }
      throw ValueError("'" + name + "' cannot be set" + DidYouMean(name, names) + "; " +
                       accepted());
    }
    try {
      const platform::Variant value = FromTypedText(
          properties[*property].type, std::string_view(assignment).substr(equals + 1));
      instance->Put(*property, value.get());
      named.push_back(*property);
    } catch (const ValueError& error) {
      throw ValueError(properties[*property].name + ": " + error.what());
    }
  }
  return named;
}

}  // namespace host
