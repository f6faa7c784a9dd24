#pragma once
// What the operating system tells of installed files and of the user. Paths are UTF-8.

#include <string>

namespace host::os {

/// MAJOR.MINOR.PATCH of a file's version, empty if it has none.
std::string FileVersion(const std::string& path);

/// What a library lacks that a module imports: "QuarnApi.dll lacks 12, 14", the ordinals or names;
/// empty if nothing is missing, or on a system that says so when it loads the module.
std::string MissingFunctions(const std::string& module);

enum class Signature {
  kValid,
  kNone,
  kRefused,  ///< a signature that the system does not accept
  kUnknown,  ///< the system checks none, or could not
};
Signature SignatureOf(const std::string& path);

/// Whether the user of this process has an administrator's rights.
bool IsAdministrator();

}  // namespace host::os
