#include "host/service/cim_object.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

platform::Variant DefaultOf(const PropertyDeclaration& property) {
  if (property.defaultValue) return FromMof(property.type, *property.defaultValue);
  platform::Variant null;
  null.in_place()->vt = VT_NULL;
  return null;
}

std::string KeyText(const Json& value) {
  if (value.is_string()) return Quoted(value.get<std::string>());
  if (value.is_boolean()) return value.get<bool>() ? "TRUE" : "FALSE";
  return value.dump();
}

/// A value in MOF notation: arrays in braces, texts quoted.
std::string MofText(const Json& value) {
  if (value.is_string()) return Quoted(value.get<std::string>());
  if (!value.is_array()) return value.dump();
  std::string text;
  for (const Json& element : value) text += (text.empty() ? "" : ", ") + MofText(element);
  return "{" + text + "}";
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::optional<std::string> SystemPropertyName(std::string_view name) {
  for (const char* known : {"__CLASS", "__SUPERCLASS", "__RELPATH", "__PATH"}) {
    if (SameIgnoringAsciiCase(known, name)) return known;
  }
  return std::nullopt;
}

Json CimObject::SystemValue(const std::string& name) const {
  if (name == "__CLASS") return info_->name();
  if (name == "__SUPERCLASS") {
    const std::string& superclass = info_->declaration.superclass;
    return superclass.empty() ? Json() : Json(superclass);
  }
  const std::optional<std::string> path = name == "__PATH" ? Path() : RelativePath();
  return path ? Json(*path) : Json();
}

CimObject::CimObject(const ClassInfo& info, Kind kind) : info_(&info), kind_(kind) {
  for (const PropertyDeclaration& property : info.declaration.properties) {
    values_.push_back(DefaultOf(property));
  }
}

CimObject::CimObject(const CimObject& other)
    : info_(other.info_), kind_(other.kind_), order_(other.order_) {
  for (const platform::Variant& value : other.values_) {
    values_.push_back(platform::Variant::CopyOf(value.get()));
  }
}

CimObject& CimObject::operator=(CimObject other) noexcept {
  std::swap(info_, other.info_);
  std::swap(kind_, other.kind_);
  values_.swap(other.values_);
  order_.swap(other.order_);
  return *this;
}

HRESULT CimObject::Put(std::size_t property, const VARIANT& value) {
  const HRESULT result =
      Convert(info_->declaration.properties[property].type, value, &values_[property]);
  if (SUCCEEDED(result) && std::ranges::find(order_, property) == order_.end()) {
    order_.push_back(property);
  }
  return result;
}

void CimObject::Reset(std::size_t property) {
  values_[property] = DefaultOf(info_->declaration.properties[property]);
  std::erase(order_, property);
}

std::optional<std::string> CimObject::RelativePath() const {
  if (IsClass()) return info_->name();
  if (info_->declaration.qualifiers.Flag("singleton")) return info_->name() + "=@";
  std::string keys;
  for (std::size_t index = 0; index < values_.size(); ++index) {
    const PropertyDeclaration& property = info_->declaration.properties[index];
    if (!property.qualifiers.Flag("key")) continue;
    if (Value(index).vt == VT_NULL) return std::nullopt;
    keys += (keys.empty() ? "." : ",") + property.name + "=" +
            KeyText(host::ToJson(property.type, Value(index)));
  }
  if (keys.empty()) return std::nullopt;
  return info_->name() + keys;
}

std::optional<std::string> CimObject::Path() const {
  const std::optional<std::string> relative = RelativePath();
  if (!relative || info_->namespacePath.empty()) return std::nullopt;
  return info_->namespacePath + ":" + *relative;
}

std::string CimObject::Text() const {
  std::string text = (IsClass() ? "class " : "instance of ") + info_->name() + "\n{\n";
  for (std::size_t index = 0; index < values_.size(); ++index) {
    const PropertyDeclaration& property = info_->declaration.properties[index];
    const bool hasValue = Value(index).vt != VT_NULL;
    if (!IsClass() && !hasValue) continue;
    text += "\t";
    if (IsClass()) {
      const bool isArray = (property.type & CIM_FLAG_ARRAY) != 0;
      if (property.qualifiers.Flag("key")) text += "[key] ";
      text += CimTypeName(property.type & ~CIM_FLAG_ARRAY) + " " + property.name +
              (isArray ? "[]" : "");
    } else {
      text += property.name;
    }
    if (hasValue) text += " = " + MofText(host::ToJson(property.type, Value(index)));
    text += ";\n";
  }
  return text + "};\n";
}

Json CimObject::ToJson() const {
  Json object = Json::object();
  object.get_ref<Json::object_t&>().reserve(order_.size());
  for (const std::size_t index : order_) {
    const PropertyDeclaration& property = info_->declaration.properties[index];
    object[property.name] = host::ToJson(property.type, Value(index));
  }
  return object;
}

}  // namespace host
