#include "scenario/dump_text.h"

#include "platform/text.h"
#include "scenario/parse.h"
#include "scenario/platform_objects.h"

namespace simulator {
namespace {

using nlohmann::json;

constexpr std::string_view kReportElement = R"(id="wifi-dump">)";
constexpr std::string_view kReportElementEnd = "</script>";
constexpr std::string_view kClassPrefix = "WiFi_";
constexpr std::string_view kOrigin = "wmihost";

/// The text as UTF-8, without a byte order mark.
std::string Utf8Of(std::string_view text) {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  constexpr std::string_view kUtf16Mark = "\xFF\xFE";
  if (text.starts_with(kUtf8Mark)) return std::string(text.substr(kUtf8Mark.size()));
  if (!text.starts_with(kUtf16Mark)) return std::string(text);
  platform::OleString wide;
  for (std::size_t at = kUtf16Mark.size(); at + 1 < text.size(); at += 2) {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    wide += static_cast<OLECHAR>(byte(at) | byte(at + 1) << 8);
  }
  return platform::Utf8Text(wide);
}

/// The dump in a report; any other text unchanged.
std::string_view WithoutPage(std::string_view text) {
  const std::size_t element = text.find(kReportElement);
  if (element == text.npos || text.find_first_not_of(" \t\r\n") != text.find('<')) return text;
  text.remove_prefix(element + kReportElement.size());
  return text.substr(0, text.find(kReportElementEnd));
}

/// A text that is a member of a member, empty if there is no such text.
std::string TextAt(const json& instance, const char* outer, const char* inner) {
  const auto found = instance.find(outer);
  if (found == instance.end() || !found->is_object()) return "";
  const auto text = found->find(inner);
  return text != found->end() && text->is_string() ? text->get<std::string>() : "";
}

/// The class that the instance itself names, as both of PowerShell's families of commands write it.
std::string OwnClass(const json& instance) {
  for (const auto& [outer, inner] :
       {std::pair("CimSystemProperties", "ClassName"), std::pair("CimClass", "CimClassName")}) {
    if (std::string name = TextAt(instance, outer, inner); !name.empty()) return name;
  }
  const auto own = instance.find("__CLASS");
  return own != instance.end() && own->is_string() ? own->get<std::string>() : "";
}

class Collector {
 public:
  explicit Collector(const std::string& source) : source_(source) {}

  Dump Take() { return std::move(dump_); }

  /// `className` is the class of everything below, empty if the instances name their class.
  void Visit(const json& value, const std::string& className) {
    if (value.is_null()) return;
    if (value.is_array()) {
      for (const json& element : value) Visit(element, className);
      return;
    }
    if (!value.is_object()) Fail("expected instances, found " + value.dump());
    // One of the forms in which ConvertTo-Json writes an array.
    if (value.size() == 2 && value.contains("value") && value.contains("Count")) {
      return Visit(value["value"], className);
    }
    const std::string own = className.empty() ? OwnClass(value) : className;
    if (!own.empty()) return Add(value, own);
    for (const auto& [name, member] : value.items()) {
      if (!name.starts_with(kClassPrefix) && name != kOrigin) {
        Fail("the member " + name +
             " is no class: expected what dump --format json writes, a report, "
             "or what ConvertTo-Json makes of instances");
      }
      dump_[name];
      Visit(member, name);
    }
  }

 private:
  [[noreturn]] void Fail(const std::string& problem) const {
    throw ScenarioError(source_ + ": " + problem);
  }

  void Add(const json& instance, const std::string& className) {
    json& added = dump_[className].emplace_back(json::object());
    for (const auto& [name, value] : instance.items()) {
      if (!value.is_null()) added[name] = value;
    }
  }

  const std::string& source_;
  Dump dump_;
};

}  // namespace

Dump ParseDump(std::string_view text, const std::string& source) {
  const std::string utf8 = Utf8Of(text);
  Collector collector(source);
  json value;
  try {
    value = ParseScenarioText(WithoutPage(utf8), [](const Node&) {});
  } catch (const ScenarioError& error) {
    throw ScenarioError(source + ": " + error.what());
  }
  collector.Visit(value, "");
  Dump dump = collector.Take();
  if (dump.empty() || (dump.size() == 1 && dump.contains(kOrigin))) {
    throw ScenarioError(source + ": it holds no instances of WiFi classes");
  }
  return dump;
}

}  // namespace simulator
