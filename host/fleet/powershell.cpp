#include "host/fleet/powershell.h"

#include <algorithm>

#include "host/fleet/cmdlets.h"
#include "host/fleet/export.h"
#include "host/fleet/numbers.h"
#include "host/fleet/xml.h"

namespace host {
namespace {

constexpr const char* kFolder = "WiFiAdapter/";
constexpr const char* kNamespace = "root/cimv2/";
constexpr const char* kByKey = "ByKey";

/// The types of the schema's own properties and parameters.
std::string TypeOf(const PropertyDeclaration& item) {
  switch (item.type & ~CIM_FLAG_ARRAY) {
    case CIM_BOOLEAN:
      return "System.Boolean";
    case CIM_SINT32:
      return "System.Int32";
    default:
      return "System.String";
  }
}

/// A number that a qualifier gives.
std::string NumberOf(const Qualifiers& qualifiers, const char* name) {
  return std::to_string(std::get<std::int64_t>(qualifiers.Find(name)->values.at(0)));
}

void WriteValue(Xml& xml, const PropertyDeclaration& item, bool isMandatory) {
  xml.Open("Parameter", {{"ParameterName", item.name}});
  xml.Empty("Type", {{"PSType", TypeOf(item)}});
  if (item.qualifiers.Flag("out")) {
    xml.Empty("CmdletOutputMetadata");
  } else if (item.qualifiers.Find("MinValue") == nullptr) {
    xml.Empty("CmdletParameterMetadata", {{"IsMandatory", isMandatory ? "true" : "false"}});
  } else {
    xml.Open("CmdletParameterMetadata", {{"IsMandatory", isMandatory ? "true" : "false"}});
    xml.Empty("ValidateRange", {{"Min", NumberOf(item.qualifiers, "MinValue")},
                                {"Max", NumberOf(item.qualifiers, "MaxValue")}});
    xml.Close();
  }
  xml.Close();
}

void WriteKeys(Xml& xml, const ClassDeclaration& declaration, bool areMandatory) {
  xml.Open("GetCmdletParameters", {{"DefaultCmdletParameterSet", kByKey}});
  xml.Open("QueryableProperties");
  int position = 0;
  for (const PropertyDeclaration& property : KeysOf(declaration)) {
    xml.Open("Property", {{"PropertyName", property.name}});
    xml.Empty("Type", {{"PSType", TypeOf(property)}});
    xml.Open("RegularQuery", {{"AllowGlobbing", "true"}});
    const std::string isMandatory = areMandatory ? "true" : "false";
    const std::string at = std::to_string(position++);
    if (NamesAdapter(declaration, property)) {
      xml.Empty("CmdletParameterMetadata", {{"IsMandatory", isMandatory},
                                            {"Aliases", kAdapterAlias},
                                            {"Position", at},
                                            {"ValueFromPipelineByPropertyName", "true"},
                                            {"CmdletParameterSets", kByKey}});
    } else {
      xml.Empty("CmdletParameterMetadata", {{"IsMandatory", isMandatory},
                                            {"Position", at},
                                            {"ValueFromPipelineByPropertyName", "true"},
                                            {"CmdletParameterSets", kByKey}});
    }
    xml.Close().Close();
  }
  xml.Close().Close();
}

void WriteCmdlet(Xml& xml, const char* verb, const char* noun, const char* impact) {
  if (impact == nullptr) {
    xml.Empty("CmdletMetadata", {{"Verb", verb}, {"Noun", noun}});
  } else {
    xml.Empty("CmdletMetadata", {{"Verb", verb}, {"Noun", noun}, {"ConfirmImpact", impact}});
  }
}

void WriteUpdate(Xml& xml, const ClassDeclaration& declaration) {
  xml.Open("Cmdlet");
  WriteCmdlet(xml, "Set", CmdletsOf(declaration).noun, "Medium");
  xml.Open("Method", {{"MethodName", "cim:ModifyInstance"}}).Open("Parameters");
  for (const PropertyDeclaration& property : declaration.properties) {
    if (property.qualifiers.Flag("write")) WriteValue(xml, property, false);
  }
  xml.Close().Close().Close();
}

void WriteMethod(Xml& xml, const MethodDeclaration& method, const MethodCmdlet& row) {
  xml.Open("Cmdlet");
  WriteCmdlet(xml, row.verb, row.noun, row.impact);
  xml.Open("Method", {{"MethodName", method.name}});
  xml.Open("ReturnValue");
  xml.Empty("Type",
            {{"PSType", method.returnType == CIM_SINT32 ? "System.Int32" : "System.Boolean"}});
  xml.Empty("CmdletOutputMetadata", {{"PSName", "ReturnValue"}}).Close();
  if (!method.parameters.empty()) {
    xml.Open("Parameters");
    for (const PropertyDeclaration& parameter : method.parameters) {
      WriteValue(xml, parameter, true);
    }
    xml.Close();
  }
  xml.Close().Close();
}

/// The cmdlets over one class.
std::string Cmdlets(const ClassDeclaration& declaration, const std::string& version) {
  const ClassCmdlets& row = CmdletsOf(declaration);
  Xml xml;
  xml.Open("PowerShellMetadata",
           {{"xmlns", "http://schemas.microsoft.com/cmdlets-over-objects/2009/11"}});
  xml.Open("Class", {{"ClassName", kNamespace + declaration.name}});
  xml.Element("Version", version).Element("DefaultNoun", row.noun).Open("InstanceCmdlets");
  WriteKeys(xml, declaration, row.needsKeys);
  xml.Open("GetCmdlet");
  WriteCmdlet(xml, "Get", row.noun, nullptr);
  WriteKeys(xml, declaration, false);
  xml.Close();
  if (IsWritten(declaration)) WriteUpdate(xml, declaration);
  for (const MethodDeclaration& method : declaration.methods) {
    const MethodCmdlet& cmdlet = CmdletOf(declaration, method);
    if (cmdlet.verb != nullptr) WriteMethod(xml, method, cmdlet);
  }
  return xml.Close().Close().Close().text();
}

std::string InstanceType(const std::string& className) {
  return "Microsoft.Management.Infrastructure.CimInstance#" + std::string(kNamespace) + className;
}

std::string Views() {
  Xml xml;
  xml.Open("Configuration").Open("ViewDefinitions");
  for (const ClassCmdlets& row : kClassCmdlets) {
    if (row.columns.empty()) continue;
    xml.Open("View").Element("Name", row.className);
    xml.Open("ViewSelectedBy").Element("TypeName", InstanceType(row.className)).Close();
    xml.Open("TableControl").Open("TableHeaders");
    for (const CmdletColumn& column : row.columns) {
      xml.Open("TableColumnHeader").Element("Label", column.label).Close();
    }
    xml.Close().Open("TableRowEntries").Open("TableRowEntry").Open("TableColumnItems");
    for (const CmdletColumn& column : row.columns) {
      xml.Open("TableColumnItem").Element("PropertyName", column.property).Close();
    }
    xml.Close().Close().Close().Close().Close();
  }
  return xml.Close().Close().text();
}

/// A script that reads the number of $this, in the invariant culture; null if there is none.
std::string ScriptOf(const NumberRow& row) {
  const std::string value = std::string("$this.") + row.property;
  switch (row.form) {
    case NumberForm::kInteger:
      return "if (\"$(" + value + ")\" -match '^-?\\d+$') { [int]$Matches[0] }";
    case NumberForm::kMeasure:
      return "if (\"$(" + value + ")\" -match '^-?\\d+(\\.\\d+)?') { [double]$Matches[0] }";
    case NumberForm::kCounter:
      return "foreach ($count in " + value +
             ") { if (\"$count\" -match '^-?\\d+$') "
             "{ [uint32]([long]$Matches[0] -band 4294967295) } }";
    case NumberForm::kList:
      return "foreach ($match in [regex]::Matches(\"$(" + value +
             ")\", '\\d+(\\.\\d+)?')) { [double]$match.Value }";
  }
  return {};
}

std::string Types() {
  Xml xml;
  xml.Open("Types");
  const char* open = "";
  for (const NumberRow& row : kNumbers) {
    if (std::string_view(open) != row.className) {
      if (*open != '\0') xml.Close().Close();
      open = row.className;
      xml.Open("Type").Element("Name", InstanceType(open)).Open("Members");
    }
    xml.Open("ScriptProperty").Element("Name", NameOf(row));
    xml.Element("GetScriptBlock", ScriptOf(row)).Close();
  }
  return xml.Close().Close().Close().text();
}

/// A list of the manifest: @('A', 'B'), an item a line.
std::string List(const std::vector<std::string>& items) {
  std::string text = "@(";
  for (const std::string& item : items) {
    text += (text.size() > 2 ? ",\n        '" : "\n        '") + item + "'";
  }
  return text + ")\n";
}

std::string Manifest(const std::vector<std::string>& files, const std::vector<std::string>& cmdlets,
                     const std::string& version) {
  std::vector<std::string> nested;
  std::ranges::copy_if(files, std::back_inserter(nested),
                       [](const std::string& file) { return file.ends_with(".cdxml"); });
  return "@{\n    ModuleVersion = '" + version +
         "'\n    GUID = 'b3c1f0de-6b3f-4d0b-9a52-1f4f8f6d2c71'\n"
         "    Author = 'The WiFi Adapter Provider authors'\n"
         "    Description = 'Cmdlets over the classes of the WiFi Adapter Provider.'\n"
         "    PowerShellVersion = '3.0'\n    NestedModules = " +
         List(nested) + "    FormatsToProcess = 'WiFiAdapter.format.ps1xml'\n" +
         "    TypesToProcess = 'WiFiAdapter.types.ps1xml'\n    FunctionsToExport = " +
         List(cmdlets) +
         "    CmdletsToExport = @()\n    AliasesToExport = @()\n    VariablesToExport = @()\n"
         "    FileList = " +
         List(files) + "}\n";
}

}  // namespace

std::vector<PropertyDeclaration> KeysOf(const ClassDeclaration& declaration) {
  std::vector<PropertyDeclaration> keys;
  std::ranges::copy_if(
      declaration.properties, std::back_inserter(keys),
      [](const PropertyDeclaration& property) { return property.qualifiers.Flag("key"); });
  return keys;
}

bool NamesAdapter(const ClassDeclaration& declaration, const PropertyDeclaration& key) {
  return key.name == "SettingID" && CmdletsOf(declaration).needsKeys;
}

std::vector<ExportedFile> PowerShellModule(const Schema& schema, const std::string& version) {
  std::vector<ExportedFile> files;
  std::vector<std::string> cmdlets;
  for (const ClassDeclaration& declaration : schema.classes) {
    if (CmdletsOf(declaration).noun == nullptr) continue;
    files.push_back({declaration.name + ".cdxml", Cmdlets(declaration, version)});
    files.push_back({"en-US/" + declaration.name + ".cdxml-Help.xml", CmdletHelp(declaration)});
    for (const Cmdlet& cmdlet : CmdletsOver(declaration)) cmdlets.push_back(cmdlet.name());
  }
  files.push_back({"WiFiAdapter.format.ps1xml", Views()});
  files.push_back({"WiFiAdapter.types.ps1xml", Types()});
  files.push_back({"en-US/about_WiFiAdapter.help.txt", AboutModule(schema)});
  std::vector<std::string> names = {"WiFiAdapter.psd1"};
  for (const ExportedFile& file : files) names.push_back(file.path);
  files.push_back({"WiFiAdapter.psd1", Manifest(names, cmdlets, version)});
  for (ExportedFile& file : files) file.path = kFolder + file.path;
  return files;
}

}  // namespace host
