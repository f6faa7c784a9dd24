#pragma once
// A small schema for the host's tests, and short functions that build its objects.

#include <string>
#include <string_view>

#include "host/service/class_object.h"
#include "platform/text.h"

namespace host {

inline constexpr std::string_view kToyMof = R"(
#pragma namespace("\\\\.\\root\\cimv2")
class Base { [key] string Id; };
class Toy : Base {
  boolean On;
  sint32 Count;
  uint8 Small;
  uint32 Big;
  string Tags[];
  [write] string Note = "none";
  boolean Reset([in, ID(0)] string Why, [in, ID(1)] sint32 Level, [out, ID(2)] string Echo);
  boolean Stop();
};
class Pair { [key] string Left; [key] sint32 Right; [key] boolean Flag; };
[singleton] class Only { string Note; };
)";

inline const Repository& ToyRepository() {
  static const Repository repository(kToyMof, "toy.mof");
  return repository;
}

inline CimObject NewInstance(const char* className) {
  return CimObject(*ToyRepository().FindClass(className));
}

inline HRESULT Put(CimObject& object, const char* name, const platform::Variant& value) {
  return object.Put(*object.info().FindProperty(name), value.get());
}

inline platform::Variant Text(std::string_view utf8) {
  return platform::Variant::Text(platform::WideFromUtf8(utf8));
}

inline platform::Variant Empty(VARTYPE type) {
  platform::Variant value;
  value.in_place()->vt = type;
  return value;
}

/// A Toy with Id and Count.
inline CimObject NewToy(std::string_view id, LONG count) {
  CimObject toy = NewInstance("Toy");
  Put(toy, "Id", Text(id));
  Put(toy, "Count", platform::Variant::Integer(count));
  return toy;
}

}  // namespace host
