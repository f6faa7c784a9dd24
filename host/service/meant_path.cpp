#include "host/service/meant_path.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "host/service/cim_object.h"

namespace host {
namespace {

using Keys = std::vector<std::pair<std::string_view, std::string_view>>;  ///< name and value

/// Splits "A=1,B=2"; a value without a name has an empty name.
Keys CutKeys(std::string_view text) {
  Keys keys;
  while (!text.empty()) {
    const std::size_t comma = std::min(text.find(','), text.size());
    const std::string_view part = text.substr(0, comma);
    text.remove_prefix(std::min(comma + 1, text.size()));
    const std::size_t equals = part.find('=');
    if (equals == std::string_view::npos) {
      keys.emplace_back("", part);
    } else {
      keys.emplace_back(part.substr(0, equals), part.substr(equals + 1));
    }
  }
  return keys;
}

/// The path with these keys; nullopt if the class has other keys.
std::optional<std::string> PathOf(const ClassInfo& info, const Keys& keys) {
  std::string path = info.name();
  std::size_t used = 0;
  for (const PropertyDeclaration& property : info.declaration.properties) {
    if (!property.qualifiers.Flag("key")) continue;
    const auto key = std::ranges::find_if(keys, [&](const auto& each) {
      return each.first.empty() ? keys.size() == 1
                                : SameIgnoringAsciiCase(each.first, property.name);
    });
    if (key == keys.end() || key->second.empty()) return std::nullopt;
    const bool isText = property.type == CIM_STRING || property.type == CIM_REFERENCE;
    path += (used++ == 0 ? "." : ",") + property.name + "=";
    path += isText ? Quoted(key->second) : std::string(key->second);
  }
  return used == keys.size() && used > 0 ? std::optional(path) : std::nullopt;
}

}  // namespace

std::optional<std::string> MeantPath(std::string_view path, const Repository& repository) {
  if (path.find_first_of("\"'@") != std::string_view::npos) return std::nullopt;
  std::string_view local = path.substr(path.find(':') == path.npos ? 0 : path.find(':') + 1);
  const ClassInfo* info = repository.FindClass(ClassNameOfPath(local));
  if (info != nullptr) {
    local.remove_prefix(info->name().size());
    const auto meant = local.empty() ? std::nullopt : PathOf(*info, CutKeys(local.substr(1)));
    if (!meant) return std::nullopt;
    return std::string(path.substr(0, path.size() - local.size() - info->name().size())) + *meant;
  }
  const Keys keys = CutKeys(local);
  if (std::ranges::any_of(keys, [](const auto& key) { return key.first.empty(); }))
    return std::nullopt;
  for (const ClassInfo* each : repository.served()) {
    if (auto meant = PathOf(*each, keys)) return meant;
  }
  return std::nullopt;
}

}  // namespace host
