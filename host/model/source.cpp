#include "host/model/source.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace host {
namespace {

std::unordered_set<std::string> TextsOf(const Json& object, const char* name) {
  std::unordered_set<std::string> texts;
  const auto found = object.find(name);
  if (found == object.end() || !found->is_array()) return texts;
  for (const Json& each : *found) {
    if (each.is_string()) texts.insert(each.get<std::string>());
  }
  return texts;
}

std::optional<HRESULT> CodeOf(const std::string& hex) {
  constexpr int kHexadecimal = 16;
  std::uint32_t code = 0;
  if (!hex.starts_with("0x")) return std::nullopt;
  const char* end = hex.data() + hex.size();
  const auto [stop, error] = std::from_chars(hex.data() + 2, end, code, kHexadecimal);
  if (error != std::errc() || stop != end) return std::nullopt;
  return static_cast<HRESULT>(code);
}

}  // namespace

std::string Source::Title() const {
  switch (kind) {
    case SourceKind::kScenario:
      return "scenario " + name;
    case SourceKind::kBuiltIn:
      return "the simulator's built-in machine";
    case SourceKind::kLibraries:
      return "this computer's libraries";
    case SourceKind::kService:
      return computer.empty() ? "service " + name : "computer " + computer;
    default:
      return "";
  }
}

std::string Source::Nature() const {
  if (kind == SourceKind::kService) return "As the management service " + name + " tells it.";
  if (!isSimulated) return "";
  if (!*isSimulated) return "Adapters of this computer, in the platform of a scenario.";
  std::string nature = "A simulated machine.";
  if (!madeOf.empty()) nature += " Its scenario was made of " + madeOf + ".";
  if (!told.empty() || !invented.empty()) {
    nature += " What is marked as made up was not told by that.";
  }
  if (isChanged) nature += " It was changed since it started.";
  return nature;
}

bool Source::IsInvented(const std::string& className, const std::string& property,
                        const std::string& adapter) const {
  const auto names = [&](const std::unordered_set<std::string>& entries) {
    if (entries.empty()) return false;
    const std::string whole = className + "." + property;
    return entries.contains(className) || entries.contains(whole) ||
           entries.contains(whole + " of " + adapter);
  };
  return names(invented) || (!told.empty() && !names(told));
}

Source SourceOf(const Dump& dump) {
  const Json& origin = dump.origin();
  Source source;
  source.version = TextOf(origin, "Version");
  source.osVersion = TextOf(origin, "OsVersion");
  source.libraryVersion = TextOf(origin, "LibraryVersion");
  source.time = TextOf(origin, "Time");
  source.startStatus = CodeOf(TextOf(origin, "StartStatus"));
  const auto stated = origin.find("Source");
  if (stated == origin.end() || !stated->is_object()) return source;
  const std::string word = TextOf(*stated, "Kind");
  const auto* kind = std::ranges::find(kSourceKinds, word);
  if (kind != std::end(kSourceKinds)) {
    source.kind = static_cast<SourceKind>(kind - std::begin(kSourceKinds));
  }
  source.name = TextOf(*stated, "Name");
  source.computer = TextOf(*stated, "Computer");
  const std::string simulated = TextOf(*stated, "Simulated");
  if (!simulated.empty()) source.isSimulated = simulated == "true";
  source.isChanged = TextOf(*stated, "Changed") == "true";
  source.madeOf = TextOf(*stated, "MadeOf");
  source.told = TextsOf(*stated, "Told");
  source.invented = TextsOf(*stated, "Invented");
  return source;
}

}  // namespace host
