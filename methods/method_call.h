#pragma once

#include <optional>
#include <string>

#include "provider/core/instance.h"

namespace wifi {

/// One call of a method. An in-parameter that is missing or has another type is read as nullopt.
struct MethodCall {
  ProviderState& state;
  const ParsedPath& path;
  IWbemClassObject* inParameters;  ///< may be null
  const AdapterEntry* entry;       ///< the adapter that the path names; null for profile methods

  adapterapi::AdapterNumber adapter() const { return entry->number; }

  /// The in-parameter, unconverted.
  std::optional<platform::Variant> Value(const OLECHAR* name) const;
  /// A boolean as 1 or 0.
  std::optional<std::uint32_t> Flag(const OLECHAR* name) const;
  /// A text in the ANSI code page.
  std::optional<std::string> AnsiText(const OLECHAR* name) const;
};

/// The out-parameters of a method. The default is ReturnValue FALSE and no second out-parameter.
struct MethodResult {
  platform::Variant returnValue = platform::Variant::Boolean(false);
  std::optional<LONG> extra = {};  ///< the second out-parameter, if the method has one
};

/// ReturnValue TRUE or FALSE.
inline MethodResult Answer(bool succeeded) {
  return {platform::Variant::Boolean(succeeded)};
}

/// Runs one method. The caller catches its exceptions, and then returns FALSE to the client.
using MethodBody = MethodResult (*)(const MethodCall&);

}  // namespace wifi
