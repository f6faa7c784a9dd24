// The PowerShell module and the table of numbers, against the schema.

#include "host/fleet/powershell.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "host/fleet/export.h"
#include "host/fleet/numbers.h"
#include "host/mof/product_schema.h"
#include "schema/contract.h"

namespace host {
namespace {

const Schema& ExportedSchema() {
  static const Schema schema =
      ParseMof(embedded::wifi_adapter_provider_mof(), "wifi_adapter_provider.mof");
  return schema;
}

/// The files of the module by their names.
const std::map<std::string, std::string>& Module() {
  static const auto files = [] {
    std::map<std::string, std::string> all;
    for (const ExportedFile& file : PowerShellModule(ExportedSchema(), "1.2.3")) {
      EXPECT_TRUE(all.emplace(file.path, file.content).second) << file.path;
    }
    return all;
  }();
  return files;
}

bool Says(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// The text from `begin` to the next `end`; empty without `begin`.
std::string Between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t from = text.find(begin);
  return from == std::string::npos ? "" : text.substr(from, text.find(end, from) - from);
}

TEST(PowerShell, EveryClassPropertyAndMethodHasItsCmdlet) {
  const std::string about = Module().at("WiFiAdapter/en-US/about_WiFiAdapter.help.txt");
  const std::string manifest = Module().at("WiFiAdapter/WiFiAdapter.psd1");
  const std::map<CIMTYPE, std::string> types = {
      {CIM_BOOLEAN, "System.Boolean"}, {CIM_SINT32, "System.Int32"}, {CIM_STRING, "System.String"}};
  for (const ClassDeclaration& declaration : ExportedSchema().classes) {
    SCOPED_TRACE(declaration.name);
    const auto file = Module().find("WiFiAdapter/" + declaration.name + ".cdxml");
    if (file == Module().end()) {
      EXPECT_TRUE(Says(about, "    " + declaration.name + ": "));
      continue;
    }
    const std::string& cdxml = file->second;
    EXPECT_TRUE(Says(cdxml, "ClassName=\"root/cimv2/" + declaration.name + "\""));
    const auto expectParameter = [&](const std::string& within, const PropertyDeclaration& item) {
      const std::string parameter =
          Between(within, "<Parameter ParameterName=\"" + item.name + "\"", "</Parameter>");
      EXPECT_TRUE(Says(parameter, "PSType=\"" + types.at(item.type) + "\"")) << item.name;
      const Qualifier* least = item.qualifiers.Find("MinValue");
      EXPECT_EQ(Says(parameter, "CmdletOutputMetadata"), item.qualifiers.Flag("out")) << item.name;
      if (least == nullptr || item.qualifiers.Flag("out")) return;
      const auto number = [](const Qualifier* row) {
        return std::to_string(std::get<std::int64_t>(row->values.at(0)));
      };
      EXPECT_TRUE(Says(parameter, "ValidateRange Min=\"" + number(least) + "\" Max=\"" +
                                      number(item.qualifiers.Find("MaxValue")) + "\""))
          << item.name;
    };
    const std::string update = Between(cdxml, "\"cim:ModifyInstance\"", "</Cmdlet>");
    for (const PropertyDeclaration& property : declaration.properties) {
      EXPECT_EQ(Says(cdxml, "<Property PropertyName=\"" + property.name + "\""),
                property.qualifiers.Flag("key"));
      if (property.qualifiers.Flag("write")) expectParameter(update, property);
    }
    for (const MethodDeclaration& method : declaration.methods) {
      const std::string body = Between(cdxml, "MethodName=\"" + method.name + "\"", "</Cmdlet>");
      // The schema says of the methods without effect that they have none.
      const bool isIdle = Says(method.qualifiers.Text("Description"), "always");
      EXPECT_EQ(body.empty(), isIdle) << method.name;
      EXPECT_EQ(Says(about, "    " + declaration.name + "." + method.name + ": "), isIdle);
      for (const PropertyDeclaration& parameter : method.parameters) {
        expectParameter(body, parameter);
      }
    }
    const std::string& help =
        Module().at("WiFiAdapter/en-US/" + declaration.name + ".cdxml-Help.xml");
    for (const Cmdlet& cmdlet : CmdletsOver(declaration)) {
      EXPECT_TRUE(Says(manifest, "'" + cmdlet.name() + "'")) << cmdlet.name();
      EXPECT_TRUE(Says(help, "<command:name>" + cmdlet.name() + "<")) << cmdlet.name();
      EXPECT_TRUE(Says(about, "    " + cmdlet.name() + "\n")) << cmdlet.name();
    }
  }
}

TEST(PowerShell, NamesAreApprovedAndUnique) {
  const std::set<std::string> approved = {"Add", "Block",  "Clear", "Disconnect",
                                          "Get", "Remove", "Reset", "Restart",
                                          "Set", "Stop",   "Test",  "Use"};
  const std::set<std::string> readOnly = {"Get", "Test"};
  std::set<std::string> names;
  for (const ClassDeclaration& declaration : ExportedSchema().classes) {
    if (CmdletsOf(declaration).noun == nullptr) continue;
    for (const Cmdlet& cmdlet : CmdletsOver(declaration)) {
      EXPECT_TRUE(names.insert(cmdlet.name()).second) << cmdlet.name();
      EXPECT_TRUE(approved.contains(cmdlet.verb)) << cmdlet.name();
      EXPECT_TRUE(std::string(cmdlet.noun).starts_with("WiFi")) << cmdlet.name();
      EXPECT_EQ(cmdlet.hasImpact, !readOnly.contains(cmdlet.verb)) << cmdlet.name();
    }
  }
}

TEST(PowerShell, ViewsShowWhatAnInstanceHas) {
  for (const ClassCmdlets& row : kClassCmdlets) {
    for (const CmdletColumn& column : row.columns) {
      const bool isNumber = std::ranges::any_of(kNumbers, [&](const NumberRow& number) {
        return std::string_view(number.className) == row.className &&
               NameOf(number) == column.property;
      });
      EXPECT_TRUE(isNumber || !contract::FindProperty(row.className, column.property).name.empty())
          << row.className << "." << column.property;
    }
  }
}

TEST(Numbers, HaveNamesOfTheirOwn) {
  std::set<std::string> names;
  for (const NumberRow& row : kNumbers) {
    const std::string name = NameOf(row);
    EXPECT_TRUE(names.insert(std::string(row.className) + "." + name).second) << name;
    EXPECT_TRUE(contract::FindProperty(row.className, contract::Name(name)).name.empty()) << name;
  }
}

}  // namespace
}  // namespace host
