#include "scenario/from_dump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "scenario/dump_turn.h"
#include "scenario/dump_value.h"
#include "scenario/scenario.h"
#include "schema/contract.h"

namespace simulator {
namespace {

/// The scenario made from a text, which the simulator accepts.
nlohmann::json Made(const std::string& text) {
  const ScenarioOfCapture made = ScenarioFromDump(text, "dump");
  ParseScenario(made.json, "made.json");
  return nlohmann::json::parse(made.json);
}

bool Says(const std::string& text, const std::string& part) {
  const ScenarioOfCapture made = ScenarioFromDump(text, "dump");
  return std::ranges::any_of(made.remarks, [&](const std::string& remark) {
    return remark.starts_with("dump: ") && remark.find(part) != std::string::npos;
  });
}

/// Whether a scenario can make clients see the property.
bool CanBeMade(const contract::Property& property) {
  for (const RecordRow& row : kRecordClasses) {
    if (row.className != property.className) continue;
    const Table& table =
        row.record == nullptr ? kAdapterTable : *FieldNamed(kAdapterTable, row.record)->record;
    return property.name == row.key || HasProducer(property.name, row.properties, table);
  }
  for (const ListRow& row : kListClasses) {
    if (row.className != property.className) continue;
    return property.name == "SettingID" || HasProducer(property.name, row.properties, row.table);
  }
  for (const OtherRow& row : kOtherClasses) {
    if (row.className != property.className) continue;
    return property.isKey || HasProducer(property.name, row.properties, Table{});
  }
  return HasProducer(property.name, kProfileClass.properties, kProfileClass.table);
}

TEST(FromDump, EveryPropertyOfTheSchemaCanBeMade) {
  for (const contract::Property& property : contract::kProperties) {
    EXPECT_TRUE(CanBeMade(property))
        << property.className << "." << property.name
        << ": no member of a scenario gives it: add the member to scenario/tables.cpp, or say in "
           "scenario/dump_classes.cpp which other one does";
  }
}

TEST(FromDump, TakesWhatWritersOfOtherKindsMakeOfInstances) {
  const std::string adapter = R"("DeviceID": "7", "Band": "802.11a", "RadioState": false,
                                 "AuthenticationStatus": null)";
  const std::string cim = R"("CimClass": {"CimClassName": "WiFi_NetworkAdapter"},
      "CimSystemProperties": {"Namespace": "root/cimv2", "ClassName": "WiFi_NetworkAdapter"},
      "PSComputerName": null)";
  const std::string page =
      "<!DOCTYPE html>\n<html><script type=\"application/json\" id=\"wifi-dump\">";
  const std::string dump = R"({"WiFi_NetworkAdapter": [{)" + adapter + "}]}";
  std::string wide = "\xFF\xFE";
  for (const char letter : dump) wide += {letter, '\0'};
  for (const std::string& text :
       {dump, "\xEF\xBB\xBF" + dump, wide, page + dump + "</script></html>",
        R"({"WiFi_NetworkAdapter": {)" + adapter + "}}", "{" + cim + ", " + adapter + "}",
        "[{" + adapter + ", " + cim + "}]",
        R"({"value": [{)" + cim + ", " + adapter + R"(}], "Count": 1})",
        R"([[{"__CLASS": "WiFi_NetworkAdapter", "__PATH": null, )" + adapter + "}]]"}) {
    const nlohmann::json made = Made(text);
    ASSERT_EQ(made["adapters"].size(), 1u) << text;
    EXPECT_EQ(made["adapters"][0]["band"], "802.11a") << text;
    EXPECT_EQ(made["adapters"][0]["radioState"], false) << text;
    EXPECT_FALSE(made["adapters"][0].contains("authenticationStatus")) << text;
    EXPECT_EQ(made["platform"]["networkAdapters"][0]["deviceId"], "7") << text;
    EXPECT_EQ(made["platform"]["osVersion"], "6.1") << "RegistrationState is not shown";
    EXPECT_TRUE(Says(text, "there is no WiFi_AdapterDevice")) << text;
    EXPECT_FALSE(Says(text, "PSComputerName")) << text;
  }
}

TEST(FromDump, SaysWhatCannotBeTold) {
  const struct {
    const char* text;
    const char* remark;
  } kRows[] = {
      {R"({"WiFi_NetworkAdapter": [{"DeviceID": "7", "Band": "<Unknown>"}]})",
       "WiFi_NetworkAdapter.Band: '<Unknown>' stands for every code without a text: 0 is taken"},
      {R"({"WiFi_NetworkAdapter": [{"DeviceID": "7", "Band": "802.11n"}]})",
       "WiFi_NetworkAdapter.Band: \"802.11n\" has no counterpart"},
      {R"({"WiFi_NetworkAdapter": [{"DeviceID": "7", "Color": "red"}]})",
       "WiFi_NetworkAdapter.Color: no member"},
      {R"({"WiFi_NetworkAdapter": [{"DeviceID": "7", "LastAppliedProfile": "\u0416"}]})", "'?'"},
      {R"({"WiFi_AdapterDevice": [], "WiFi_AdapterChannel": [{"SettingID": "7", "ChannelA": 36}]})",
       "WiFi_AdapterDevice has no instance of adapter 7: its call is to fail"},
      {R"({"WiFi_AdapterVersion": [{"SettingID": "7"}]})", "WiFi_AdapterVersion shows nothing of"},
      {R"({"WiFi_PreferredProfile": [{"Type": "user"}]})", "a profile without a name"},
      {R"({"WiFi_AdapterDevice": [{"SettingID": "7", "MacAddress": "00:00:00:00:00:01"},
                                  {"SettingID": "8", "MacAddress": "00:00:00:00:00:01"}]})",
       "adapter 8 has the address of another: 02:00:00:00:00:02 is taken"},
  };
  for (const auto& row : kRows) {
    EXPECT_TRUE(Says(row.text, row.remark)) << row.text;
    Made(row.text);
  }
}

TEST(FromDump, RefusesOtherTexts) {
  const struct {
    const char* text;
    const char* error;
  } kRows[] = {
      {"", "dump: line 1, column 1: no JSON"},
      {"[{\"Band\": \"802.11a\"}]", "the member Band is no class"},
      {"[5]", "expected instances, found 5"},
      {"{}", "it holds no instances"},
      {R"({"wmihost": [{"Version": "1.0.0"}]})", "it holds no instances"},
      {"<!DOCTYPE html><html></html>", "no JSON"},
  };
  for (const auto& row : kRows) {
    try {
      ScenarioFromDump(row.text, "dump");
      ADD_FAILURE() << row.text;
    } catch (const ScenarioError& error) {
      EXPECT_NE(std::string(error.what()).find(row.error), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace simulator
