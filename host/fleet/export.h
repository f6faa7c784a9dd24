#pragma once
// What management systems import, made from the schema.

#include <string>
#include <vector>

#include "host/mof/schema.h"

namespace host {

struct ExportedFile {
  std::string path;  ///< relative, with slashes
  std::string content;
};

/// The PowerShell module WiFiAdapter, a folder of that name: cmdlets over the classes, their help,
/// views, and members that turn texts into numbers. `version` is that of the program.
std::vector<ExportedFile> PowerShellModule(const Schema& schema, const std::string& version);

}  // namespace host
