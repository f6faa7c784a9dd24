#pragma once
// The registration script: which keys and values the module writes below HKEY_CLASSES_ROOT, and
// what becomes of them when it is unregistered. The text is the same that is embedded in the
// module.
//
//   HKCR { KEY… }
//   KEY   := [NoRemove | ForceRemove] NAME [= s 'TEXT'] [{ (KEY | val NAME = s 'TEXT')… }]
//
// A key without a rule goes on unregistration once nothing foreign is left below it; NoRemove never
// goes; ForceRemove goes with everything below it, also before it is written.

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/bstr.h"

namespace wifi {

enum class RemovalRule { kWhenEmpty, kNever, kWithSubkeys };

/// One key of the script, ready to be written: what writes and removes it needs no memory.
struct ScriptKey {
  platform::OleString name;
  RemovalRule rule = RemovalRule::kWhenEmpty;
  std::optional<platform::OleString> defaultValue;
  std::vector<std::pair<platform::OleString, platform::OleString>> values;
  std::vector<ScriptKey> keys;
};

/// Says in which line the script is wrong.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The keys directly below HKEY_CLASSES_ROOT, the first %MODULE% of each text replaced by
/// `modulePath`. Throws ScriptError.
std::vector<ScriptKey> ParseRegistrationScript(std::string_view text,
                                               platform::OleStringView modulePath);

}  // namespace wifi
