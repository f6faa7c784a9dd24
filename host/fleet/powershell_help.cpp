#include <algorithm>

#include "host/fleet/powershell.h"
#include "host/fleet/xml.h"

namespace host {
namespace {

std::string DescriptionOf(const Qualifiers& qualifiers) {
  return qualifiers.Text("Description");
}

std::string TypeName(const PropertyDeclaration& item) {
  return item.type == CIM_BOOLEAN ? "Boolean" : item.type == CIM_SINT32 ? "Int32" : "String";
}

void WriteText(Xml& xml, const std::string& text) {
  xml.Open("maml:description").Element("maml:para", text).Close();
}

void WriteParameter(Xml& xml, const PropertyDeclaration& item, bool isMandatory,
                    const char* aliases = "none") {
  const bool isKey = item.qualifiers.Flag("key");
  xml.Open("command:parameter", {{"required", isMandatory ? "true" : "false"},
                                 {"globbing", isKey ? "true" : "false"},
                                 {"pipelineInput", isKey ? "true (ByPropertyName)" : "false"},
                                 {"position", "named"},
                                 {"aliases", aliases}});
  xml.Element("maml:name", item.name);
  WriteText(xml, DescriptionOf(item.qualifiers));
  xml.Element("command:parameterValue", {{"required", "true"}},
              TypeName(item) + (isKey ? "[]" : ""));
  xml.Close();
}

void WriteParameters(Xml& xml, const ClassDeclaration& declaration, const Cmdlet& cmdlet) {
  for (const PropertyDeclaration& key : KeysOf(declaration)) {
    WriteParameter(xml, key, cmdlet.needsKeys,
                   NamesAdapter(declaration, key) ? kAdapterAlias : "none");
  }
  for (const PropertyDeclaration& parameter : cmdlet.parameters) {
    WriteParameter(xml, parameter, cmdlet.areMandatory);
  }
}

void WriteHelp(Xml& xml, const ClassDeclaration& declaration, const Cmdlet& cmdlet) {
  xml.Open("command:command",
           {{"xmlns:maml", "http://schemas.microsoft.com/maml/2004/10"},
            {"xmlns:command", "http://schemas.microsoft.com/maml/dev/command/2004/10"}});
  xml.Open("command:details").Element("command:name", cmdlet.name());
  WriteText(xml, cmdlet.description);
  xml.Element("command:verb", cmdlet.verb).Element("command:noun", cmdlet.noun).Close();
  const std::string description = DescriptionOf(declaration.qualifiers);
  WriteText(xml, cmdlet.description + " Class " + declaration.name +
                     (cmdlet.description == description ? "." : ": " + description));
  xml.Open("command:syntax").Open("command:syntaxItem").Element("maml:name", cmdlet.name());
  WriteParameters(xml, declaration, cmdlet);
  xml.Close().Close().Open("command:parameters");
  WriteParameters(xml, declaration, cmdlet);
  xml.Close();
  const char* note = CmdletsOf(declaration).why;
  if (note != nullptr)
    xml.Open("maml:alertSet").Open("maml:alert").Element("maml:para", note).Close().Close();
  xml.Close();
}

}  // namespace

std::vector<Cmdlet> CmdletsOver(const ClassDeclaration& declaration) {
  const ClassCmdlets& row = CmdletsOf(declaration);
  std::vector<Cmdlet> cmdlets = {
      {"Get", row.noun, false, false, DescriptionOf(declaration.qualifiers), {}, false}};
  if (IsWritten(declaration)) {
    Cmdlet update = {"Set", row.noun, true, row.needsKeys, "Changes the properties that are given.",
                     {},    false};
    std::ranges::copy_if(
        declaration.properties, std::back_inserter(update.parameters),
        [](const PropertyDeclaration& property) { return property.qualifiers.Flag("write"); });
    cmdlets.push_back(std::move(update));
  }
  for (const MethodDeclaration& method : declaration.methods) {
    const MethodCmdlet& cmdlet = CmdletOf(declaration, method);
    if (cmdlet.verb == nullptr) continue;
    cmdlets.push_back({cmdlet.verb,
                       cmdlet.noun,
                       cmdlet.impact != nullptr,
                       row.needsKeys,
                       DescriptionOf(method.qualifiers),
                       {},
                       true});
    std::ranges::copy_if(
        method.parameters, std::back_inserter(cmdlets.back().parameters),
        [](const PropertyDeclaration& parameter) { return parameter.qualifiers.Flag("in"); });
  }
  return cmdlets;
}

std::string CmdletHelp(const ClassDeclaration& declaration) {
  Xml xml;
  xml.Open("helpItems", {{"schema", "maml"}, {"xmlns", "http://msh"}});
  for (const Cmdlet& cmdlet : CmdletsOver(declaration)) WriteHelp(xml, declaration, cmdlet);
  return xml.Close().text();
}

std::string AboutModule(const Schema& schema) {
  std::string cmdlets;
  std::string without;
  for (const ClassDeclaration& declaration : schema.classes) {
    const ClassCmdlets& row = CmdletsOf(declaration);
    if (row.noun == nullptr) {
      without += "    " + declaration.name + ": " + row.why + ".\n";
      continue;
    }
    for (const Cmdlet& cmdlet : CmdletsOver(declaration)) {
      cmdlets += "    " + cmdlet.name() + "\n        " + cmdlet.description + "\n";
    }
    for (const MethodDeclaration& method : declaration.methods) {
      if (CmdletOf(declaration, method).verb != nullptr) continue;
      without += "    " + declaration.name + "." + method.name + ": " +
                 DescriptionOf(method.qualifiers) + "\n";
    }
  }
  return "TOPIC\n    about_WiFiAdapter\n\nSHORT DESCRIPTION\n"
         "    Cmdlets over the classes of the WiFi Adapter Provider.\n\nLONG DESCRIPTION\n"
         "    Every cmdlet takes -CimSession, -ThrottleLimit and -AsJob. Those that change "
         "something\n"
         "    take -WhatIf and -Confirm. Numbers that the classes give as texts, and counters "
         "that\n"
         "    turn negative, are also there as numbers: SignalDbm, RateMbps, "
         "TxTotalBytesUnsigned.\n"
         "    The case of letters counts in the key of a profile or of an excluded network.\n\n"
         "CMDLETS\n" +
         cmdlets + "\nWITHOUT A CMDLET\n" + without;
}

}  // namespace host
