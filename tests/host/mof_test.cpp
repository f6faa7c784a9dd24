// The MOF reader, the checks of a schema, and the product's own MOF compared with them.

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "host/mof/check.h"
#include "host/mof/product_schema.h"
#include "host/mof/reference.h"
#include "host/mof/registration.h"
#include "schema/contract.h"

EMBEDDED_TEXT(uninstall_mof)

namespace host {
namespace {

Schema ProductSchema() {
  return ParseMof(embedded::wifi_adapter_provider_mof(), "product");
}

TEST(MofReader, ReadsEveryFeature) {
  const Schema schema = ParseMof(
      "\xEF\xBB\xBF// a comment\n"
      "#pragma namespace(\"\\\\\\\\.\\\\root\\\\x\")\n"
      "/* one\n more */ INSTANCE OF __Win32Provider as $P { Name = \"N\"; Level = -0x10;\n"
      "  Flag = true; Nothing = NULL; };\n"
      "instance of Reg { Provider = $p; };\n"
      "[dynamic: ToInstance ToSubclass, Values{\"a\", \"b\"}, Provider(\"N\")]\n"
      "class Wi_A : Base {\n"
      "  [key] string Name = \"a\" \"\\\"\\x41\\x7f\\x80\\x7ff\\x800\\n\";\n"
      "  uint16 Numbers[] = {1, 65535};\n"
      "  Wi_B ref Other = NULL;\n"
      "  [Implemented] void Run();\n"
      "  sint32 Do([in, ID(0)] boolean Really, [out, ID(1)] string Texts[]);\n"
      "};\n"
      "#pragma deleteclass(\"Old\", NOFAIL)\n"
      "#pragma deleteinstance(\"Old.K=1\", NOFAIL)",
      "all");
  EXPECT_EQ(schema.namespaceName, "\\\\.\\root\\x");
  ASSERT_EQ(schema.instances.size(), 2u);
  using Values = std::vector<MofScalar>;
  const std::vector<std::pair<std::string, Values>> expected = {
      {"Name", {"N"}}, {"Level", {std::int64_t{-16}}}, {"Flag", {true}}, {"Nothing", {}}};
  EXPECT_EQ(schema.instances[0].values, expected);
  EXPECT_EQ(schema.instances[0].alias, "$P");
  EXPECT_EQ(schema.instances[1].values[0].second, Values{"$p"});
  EXPECT_EQ(schema.deletedClasses, std::vector<std::string>{"Old"});
  EXPECT_EQ(schema.deletedInstances, std::vector<std::string>{"Old.K=1"});

  ASSERT_FALSE(schema.classes.empty());
  const ClassDeclaration* wiA = &schema.classes[0];
  EXPECT_EQ(wiA->name, "Wi_A");
  EXPECT_EQ(wiA->superclass, "Base");
  EXPECT_EQ(wiA->line, 8);
  EXPECT_TRUE(wiA->qualifiers.Flag("Dynamic"));
  EXPECT_EQ(wiA->qualifiers.Text("provider"), "N");
  EXPECT_EQ(wiA->qualifiers.Find("values")->values.size(), 2u);
  EXPECT_EQ(wiA->FindProperty("NAME")->defaultValue,
            Values{"a\"A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\n"});
  EXPECT_TRUE(wiA->FindProperty("Name")->qualifiers.Flag("key"));
  EXPECT_EQ(CimTypeName(wiA->FindProperty("Numbers")->type), "uint16[]");
  EXPECT_EQ(wiA->FindProperty("Numbers")->defaultValue->size(), 2u);
  EXPECT_EQ(wiA->FindProperty("Other")->referencedClass, "Wi_B");
  EXPECT_EQ(wiA->FindProperty("Other")->defaultValue, std::nullopt);
  ASSERT_EQ(wiA->methods.size(), 2u);
  EXPECT_EQ(wiA->methods[0].returnType, CIM_EMPTY);
  const MethodDeclaration* method = &wiA->methods[1];
  EXPECT_EQ(CimTypeName(method->returnType), "sint32");
  ASSERT_EQ(method->parameters.size(), 2u);
  EXPECT_EQ(CimTypeName(method->parameters[1].type), "string[]");
  EXPECT_EQ(wiA->FindProperty("Do"), nullptr);
}

TEST(MofReader, SaysWhatIsWrongAndWhere) {
  const struct {
    std::string text;
    std::string message;
  } rows[] = {
      {"klass A {};", "m:1: expected #pragma, class or instance, found 'klass'"},
      {"[key", "m:1: expected ']', found the end"},
      {"[key(", "m:1: expected a text, a number, TRUE or FALSE, found the end"},
      {"[key: Sometimes] class A {};",
       "m:1: expected a flavor such as ToInstance, found 'Sometimes'"},
      {"class {};", "m:1: expected a class name, found '{'"},
      {"class A {\n  string B\n};", "m:3: expected ';', found '}'"},
      {"class A { datetime B; };", "m:1: expected a data type or CLASS ref, found 'datetime'"},
      {"class A { void B; };", "m:1: expected '(', found ';'"},
      {"class A { string B(void C); };",
       "m:1: expected a data type before the parameter's name, found ')'"},
      {"class A { string B[2]; };", "m:1: expected ']', found '2'"},
      {"class A {\nsint32 B =\n\"2\"; };", "m:3: expected a value of type sint32, found another"},
      {"class A { sint32 B = 2147483648; };",
       "m:1: expected a value of type sint32, found another"},
      {"class A { string B[] = \"x\"; };", "m:1: expected a value of type string[], found another"},
      {"class A { sint32 B = 010; };",
       "m:1: expected a decimal or hexadecimal number of at most 64 bits, found '010'"},
      {"class A { sint32 B = 99999999999999999999; };",
       "m:1: expected a decimal or hexadecimal number of at most 64 bits, found "
       "'99999999999999999999'"},
      {"class A { sint32 B = 0x; };",
       "m:1: expected a decimal or hexadecimal number of at most 64 bits, found '0x'"},
      {"instance A {};", "m:1: expected of, found 'A'"},
      {"instance of A as B {};", "m:1: expected an alias such as $name, found 'B'"},
      {"instance of A { B = $C; };", "m:1: expected an alias of an earlier instance, found '$C'"},
      {"instance of A { B = $; };", "m:1: expected an alias's name after $, found another"},
      {"instance of A { B = {1, }; };", "m:1: expected a text, a number, TRUE or FALSE, found '}'"},
      {"#pragma include(\"x\")",
       "m:1: expected namespace, classflags, deleteclass or deleteinstance, found 'include'"},
      {"#pragma deleteclass(\"x\", MAYBE)", "m:1: expected NOFAIL, found 'MAYBE'"},
      {"\n/* open\n\n", "m:2: expected */ to close a comment, found the end"},
      {"[a(\"open", "m:1: expected \" to close a text, found the end"},
      {"[a(\"open\n\")]", "m:1: expected \" to close a text, found a control character"},
      {"[a(\"\\xD800\")]",
       "m:1: expected an escape: one of \\b \\t \\n \\f \\r \\\" \\' \\\\ or \\xHHHH of a "
       "character, found another after the backslash"},
      {"[a(\"\\",
       "m:1: expected an escape: one of \\b \\t \\n \\f \\r \\\" \\' \\\\ or \\xHHHH of a "
       "character, found another after the backslash"},
      {std::string("class\0", 6), "m:1: expected a class name, found byte 0"},
      {"\xFF\xFE", "m:1: expected #pragma, class or instance, found byte 255"},
  };
  for (const auto& row : rows) {
    try {
      ParseMof(row.text, "m");
      ADD_FAILURE() << "accepted: " << row.text;
    } catch (const MofError& error) {
      EXPECT_EQ(error.what(), row.message);
    }
  }
}

TEST(SchemaCheck, FindsEveryFault) {
  const Schema schema = ParseMof(
      "instance of __Win32Provider as $P { Name = \"P\"; HostingModel = \"SelfHost\"; }; "
      "instance of __InstanceProviderRegistration { SupportsGet = FALSE; SupportsPut = TRUE; "
      "SupportsDelete = TRUE; }; "
      "[dynamic, provider(\"p\"), Description(\"D.\")] class A {\n"
      "  [read, read, Description(\"D.\")] string B;\n"
      "  [key, Description(\"D.\"), ValueMap{\"1\"}, Values{\"a\", \"b\"}] uint8 b;\n"
      "  [Description(\"D.\")] string M([Description(\"no stop\"), ID(1)] string X);\n"
      "};\n"
      "class a {};\n",
      "m");
  EXPECT_EQ(CheckSchema(schema), (std::vector<std::string>{
                                     "1: __Win32Provider: no host for a module that acts as its "
                                     "clients: 'SelfHost'",
                                     "1: __InstanceProviderRegistration: SupportsGet is not TRUE",
                                     "1: __InstanceProviderRegistration: SupportsEnumeration is "
                                     "not TRUE",
                                     "1: __InstanceProviderRegistration: SupportsPut is not FALSE",
                                     "1: __InstanceProviderRegistration: SupportsDelete is not "
                                     "FALSE",
                                     "1: __InstanceProviderRegistration: of another provider",
                                     "1: __MethodProviderRegistration: 0 instances",
                                     "6: a: the name is declared twice",
                                     "1: A: its provider is not 'P'",
                                     "3: b: the name is declared twice",
                                     "2: A.B: the qualifier read is repeated",
                                     "3: A.b: ValueMap and Values differ in length",
                                     "3: A.b: type uint8",
                                     "3: A.b: not readable",
                                     "4: A.M: no qualifier Implemented",
                                     "4: A.M: returns string",
                                     "4: A.M.X: no description that ends in a full stop",
                                     "4: A.M.X: neither in nor out, or both",
                                     "4: A.M.X: its ID is not 0",
                                     "6: a: no description that ends in a full stop",
                                     "6: a: not dynamic",
                                     "6: a: its provider is not 'P'",
                                     "6: a: no key",
                                 }));
}

TEST(SchemaCheck, KnowsTheHostsOfModules) {
  const std::pair<std::string, bool> rows[] = {{"LocalSystemHost", true},
                                               {"LocalServiceHost:Group", true},
                                               {"LocalServiceHost:", false},
                                               {"LocalService", false},
                                               {"Group:LocalServiceHost", false}};
  for (const auto& [host, isHost] : rows) {
    const std::vector<std::string> findings = CheckSchema(
        ParseMof("instance of __Win32Provider { HostingModel = \"" + host + "\"; };", "m"));
    EXPECT_EQ(findings.front().starts_with("1: __Win32Provider: no host"), !isHost) << host;
  }
}

TEST(SchemaCheck, FindsClassesThatDeriveFromThemselves) {
  const Schema schema = ParseMof(
      "class A : A {};\nclass B : C {};\nclass C : b {};\nclass D : B {};\nclass E : Other {};",
      "m");
  std::vector<std::string> found;
  for (const std::string& finding : CheckSchema(schema)) {
    if (finding.ends_with("it derives from itself")) found.push_back(finding.substr(0, 4));
  }
  EXPECT_EQ(found, (std::vector<std::string>{"1: A", "2: B", "3: C"}));
}

TEST(ProductMof, IsWholeAndWithoutFindings) {
  const Schema schema = ProductSchema();
  EXPECT_EQ(CheckSchema(schema), std::vector<std::string>{});
  EXPECT_EQ(schema.namespaceName, "\\\\.\\root\\cimv2");
  EXPECT_EQ(schema.instances.size(), 3u);
  // Values that the class factory, the installer and the host process assume without a check.
  EXPECT_EQ(TextOf(schema.instances[0], "Name"), "WiFiAdapterProvider");
  EXPECT_EQ(ProviderClassId(schema), "{3B14BAD6-C364-4576-8271-39B5850ABDA8}");
  EXPECT_EQ(TextOf(schema.instances[0], "HostingModel"), "LocalServiceHost:WiFiAdapterProvider");
}

/// What the build reads of the schema equals what the host reads.
TEST(ProductMof, IsTheContract) {
  const auto shown = [](auto... words) {
    std::ostringstream line;
    ((line << words << ' '), ...);
    return line.str();
  };
  std::multiset<std::string> read;
  std::multiset<std::string> built;
  for (const ClassDeclaration& declaration : ProductSchema().classes) {
    std::string keys;
    bool isWritten = false;
    for (const PropertyDeclaration& item : declaration.properties) {
      const bool isKey = item.qualifiers.Flag("key");
      if (isKey) keys += keys.empty() ? item.name : " " + item.name;
      isWritten |= item.qualifiers.Flag("write");
      read.insert(
          shown(declaration.name, item.name, item.type, isKey, item.qualifiers.Flag("write")));
    }
    for (const MethodDeclaration& method : declaration.methods) {
      read.insert(shown(declaration.name, method.name, method.returnType));
      for (const PropertyDeclaration& item : method.parameters) {
        read.insert(shown(declaration.name, method.name, item.name, item.type,
                          item.qualifiers.Flag("out")));
      }
    }
    read.insert(shown(declaration.name, keys, isWritten));
  }
  for (const auto& row : contract::kClasses) {
    built.insert(shown(row.name, row.keys, row.isWritten));
  }
  for (const auto& row : contract::kProperties) {
    built.insert(shown(row.className, row.name, row.type, row.isKey, row.isWritten));
  }
  for (const auto& row : contract::kMethods) {
    built.insert(shown(row.className, row.name, row.returnType));
  }
  for (const auto& row : contract::kParameters) {
    built.insert(shown(row.className, row.method, row.name, row.type, row.isOut));
  }
  EXPECT_EQ(built, read);
}

TEST(ProductMof, IsTakenAwayWhole) {
  const Schema schema = ProductSchema();
  const Schema removal = ParseMof(embedded::uninstall_mof(), "uninstall");
  EXPECT_EQ(removal.namespaceName, schema.namespaceName);
  std::set<std::string> names;
  for (const ClassDeclaration& declaration : schema.classes) names.insert(declaration.name);
  EXPECT_EQ(std::set(removal.deletedClasses.begin(), removal.deletedClasses.end()), names);
  EXPECT_EQ(
      removal.deletedInstances,
      (std::vector<std::string>{
          R"(__MethodProviderRegistration.Provider="\\\\.\\root\\cimv2:__Win32Provider.Name=\"WiFiAdapterProvider\"")",
          R"(__MethodProviderRegistration.Provider="__Win32Provider.Name=\"WiFiAdapterProvider\"")",
          R"(__InstanceProviderRegistration.Provider="\\\\.\\root\\cimv2:__Win32Provider.Name=\"WiFiAdapterProvider\"")",
          R"(__InstanceProviderRegistration.Provider="__Win32Provider.Name=\"WiFiAdapterProvider\"")",
          R"(__Win32Provider.Name="WiFiAdapterProvider")"}));
}

TEST(ClassReference, WritesTablesAndEscapes) {
  const Schema schema = ParseMof(
      "[Description(\"A class.\")] class A {\n"
      "  [key, read, write, Units(\"dBm\"), MinValue(1), MaxValue(5), ValueMap{\"1\", \"<2>\"},\n"
      "   Values{\"one\", \"two\"}, Description(\"B | b\\nmore.\")] sint32 B;\n"
      "  [read] C ref R;\n"
      "  [Description(\"Runs.\")] boolean Run([in, Description(\"How.\")] string How);\n"
      "};",
      "m");
  EXPECT_EQ(ClassReference(schema),
            "# Management classes\n\n"
            "Made from `schema/wifi_adapter_provider.mof`. Namespace ``.\n\n"
            "- [A](#a)\n"
            "\n## A\n\nA class.\n"
            "\n| Property | Type | Access | Unit or values | Description |\n"
            "|---|---|---|---|---|\n"
            "| `B` | sint32 | key, read, write | dBm; 1 to 5; \"1\" one, \"\\<2\\>\" two | "
            "B \\| b more. |\n"
            "| `R` | C ref | read |  |  |\n"
            "\n### A.Run\n\n`boolean Run(in string How)`\n\nRuns.\n"
            "\n| Parameter | Type | Access | Unit or values | Description |\n"
            "|---|---|---|---|---|\n"
            "| `How` | string | in |  | How. |\n");
  EXPECT_EQ(DescribeClass(schema.classes[0]),
            "A\n    A class.\n\nProperties\n"
            "  B: sint32, key, read, write\n      B | b more.\n"
            "      [dBm; 1 to 5; \"1\" one, \"<2>\" two]\n"
            "  R: C ref, read\n"
            "\nMethods\n  boolean Run(in string How)\n      Runs.\n"
            "      How: string, in\n          How.\n");
}

TEST(ClassReference, WrapsAtEightyColumns) {
  for (const ClassDeclaration& declaration : ProductSchema().classes) {
    std::istringstream lines(DescribeClass(declaration));
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
  }
}

}  // namespace
}  // namespace host
