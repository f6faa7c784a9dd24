#pragma once
// The registration script: the keys and values that the module writes below HKEY_CLASSES_ROOT, and
// what happens to them when the module is unregistered. The module has the script as a resource.
//
//   HKCR { KEY… }
//   KEY   := [NoRemove | ForceRemove] NAME [= s 'TEXT'] [{ (KEY | val NAME = s 'TEXT')… }]
//
// When the module is unregistered, a key without a rule is removed if no subkey of others is left
// in it. A NoRemove key is never removed. A ForceRemove key is removed with all its subkeys, and
// also before it is written.

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/bstr.h"

namespace wifi {

enum class RemovalRule { kWhenEmpty, kNever, kWithSubkeys };

/// One key of the script, in a form that is written and removed without allocating memory.
struct ScriptKey {
  platform::OleString name;
  RemovalRule rule = RemovalRule::kWhenEmpty;
  std::optional<platform::OleString> defaultValue;
  std::vector<std::pair<platform::OleString, platform::OleString>> values;
  std::vector<ScriptKey> keys;
};

/// A syntax error, with the number of its line.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Parses the script into the keys directly below HKEY_CLASSES_ROOT. The first %MODULE% in each
/// text is replaced with `modulePath`. Throws ScriptError.
std::vector<ScriptKey> ParseRegistrationScript(std::string_view text,
                                               platform::OleStringView modulePath);

}  // namespace wifi
