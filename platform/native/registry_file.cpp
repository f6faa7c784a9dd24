#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <optional>

#include "platform/native/registry_tree.h"

namespace native {
namespace {

using Json = nlohmann::ordered_json;

std::string Utf8(std::u16string_view text) {
  std::string utf8(text.size() * 3, '\0');
  utf8.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(),
                          static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

std::u16string Wide(std::string_view utf8) {
  std::u16string text(utf8.size(), u'\0');
  text.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), text.data(),
                          static_cast<int>(text.size()))));
  return text;
}

// The text of a REG_SZ whose only terminator is at its end; nullopt for all other data.
std::optional<std::u16string> TextOf(const RegistryValue& value) {
  constexpr std::size_t kUnit = sizeof(OLECHAR);
  if (value.type != REG_SZ || value.data.size() < kUnit || value.data.size() % kUnit != 0) {
    return std::nullopt;
  }
  std::u16string text(value.data.size() / kUnit, u'\0');
  std::memcpy(text.data(), value.data.data(), value.data.size());
  if (text.find(u'\0') != text.size() - 1) return std::nullopt;
  text.pop_back();
  if (!IsWellFormed(text)) return std::nullopt;
  return text;
}

Json JsonOf(const RegistryValue& value) {
  if (const std::optional<std::u16string> text = TextOf(value)) return {{"text", Utf8(*text)}};
  if (value.type == REG_DWORD && value.data.size() == sizeof(DWORD)) {
    DWORD number;
    std::memcpy(&number, value.data.data(), sizeof number);
    return {{"number", number}};
  }
  return {{"type", value.type}, {"bytes", value.data}};
}

Json JsonOf(const RegistryNode& key) {
  Json json = Json::object();
  for (const auto& [folded, child] : key.keys) json["keys"][Utf8(child->name)] = JsonOf(*child);
  for (const auto& [folded, value] : key.values) json["values"][Utf8(value.name)] = JsonOf(value);
  return json;
}

template <class Plain>
std::vector<BYTE> BytesOf(const Plain* data, std::size_t count) {
  const auto* bytes = reinterpret_cast<const BYTE*>(data);
  return {bytes, bytes + count * sizeof(Plain)};
}

// The functions below throw a Json::exception if the JSON has another form.
RegistryValue ValueOf(const std::string& name, const Json& json) {
  if (json.contains("text")) {
    const std::u16string text = Wide(json.at("text").get_ref<const std::string&>());
    return {Wide(name), REG_SZ, BytesOf(text.c_str(), text.size() + 1)};
  }
  if (json.contains("number")) {
    const auto number = json.at("number").get<DWORD>();
    return {Wide(name), REG_DWORD, BytesOf(&number, 1)};
  }
  return {Wide(name), json.at("type").get<DWORD>(), json.at("bytes").get<std::vector<BYTE>>()};
}

void ReadKey(const Json& json, const RegistryNodeRef& key) {
  const auto& members = json.get_ref<const Json::object_t&>();
  for (const auto& [member, rows] : members) {
    for (const auto& [name, row] : rows.get_ref<const Json::object_t&>()) {
      if (member == "keys") {
        ReadKey(row, MakeChild(key, Wide(name)));
      } else {
        SetValue(key.get(), ValueOf(name, row));
      }
    }
  }
}

}  // namespace

bool IsWellFormed(std::u16string_view text) {
  return Wide(Utf8(text)) == text;
}

std::string WriteRegistry(const RegistryNode& root) {
  return Json{{"registry", 1}, {"root", JsonOf(root)}}.dump(1) + "\n";
}

RegistryNodeRef ReadRegistry(const std::string& text) {
  try {
    const Json json = Json::parse(text);
    if (json.at("registry") != 1) return nullptr;
    auto root = std::make_shared<RegistryNode>();
    ReadKey(json.at("root"), root);
    return root;
  } catch (const Json::exception&) {
    return nullptr;
  }
}

bool ReplaceFile(const std::string& path, const std::string& contents) {
  const std::string fresh = path + ".new";
  std::FILE* file = std::fopen(fresh.c_str(), "wb");
  if (file == nullptr) return false;
  bool written = std::fwrite(contents.data(), 1, contents.size(), file) == contents.size();
  written = std::fflush(file) == 0 && written;
  written = fsync(fileno(file)) == 0 && written;
  written = std::fclose(file) == 0 && written;
  if (written && std::rename(fresh.c_str(), path.c_str()) == 0) return true;
  std::remove(fresh.c_str());
  return false;
}

}  // namespace native
