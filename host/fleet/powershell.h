#pragma once
// The parts of the PowerShell module that its files share.

#include <string>
#include <vector>

#include "host/fleet/cmdlets.h"

namespace host {

/// The other name of SettingID, by which an adapter's object binds to it in a pipeline.
inline constexpr const char* kAdapterAlias = "DeviceID";

struct Cmdlet {
  const char* verb;
  const char* noun;
  bool hasImpact;                               ///< it has -WhatIf and -Confirm
  bool needsKeys;                               ///< its keys are mandatory
  std::string description;                      ///< sentences of the schema
  std::vector<PropertyDeclaration> parameters;  ///< in-parameters and written properties
  bool areMandatory;                            ///< the parameters

  std::string name() const { return std::string(verb) + "-" + noun; }
};

/// Get, Set if the class has writable properties, and those of its methods.
std::vector<Cmdlet> CmdletsOver(const ClassDeclaration& declaration);

std::vector<PropertyDeclaration> KeysOf(const ClassDeclaration& declaration);
/// Whether a key is the SettingID of an adapter's object.
bool NamesAdapter(const ClassDeclaration& declaration, const PropertyDeclaration& key);

/// The help of the cmdlets over one class, for Get-Help.
std::string CmdletHelp(const ClassDeclaration& declaration);
/// The help topic about_WiFiAdapter: all cmdlets, and what has none.
std::string AboutModule(const Schema& schema);

}  // namespace host
