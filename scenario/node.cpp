#include "scenario/node.h"

#include <algorithm>
#include <charconv>

#include "scenario/platform_objects.h"

namespace simulator {

std::string PlaceBelow(const std::string& place, std::string_view name) {
  constexpr std::size_t kMost = 60;
  std::string below = place + "/";
  const bool isLong = name.size() > kMost;
  if (isLong) name = name.substr(0, kMost);
  for (const char character : name) {
    if (character == '~') {
      below += "~0";
    } else if (character == '/') {
      below += "~1";
    } else {
      below += character;
    }
  }
  return isLong ? below + "..." : below;
}

std::string PlaceBelow(const std::string& place, std::size_t index) {
  return place + "/" + std::to_string(index);
}

std::string Node::Place() const {
  if (parent == nullptr) return root;
  return name.data() == nullptr ? PlaceBelow(parent->Place(), index)
                                : PlaceBelow(parent->Place(), name);
}

void Node::Fail(const std::string& problem) const {
  const std::string place = Place();
  throw ScenarioError((place.empty() ? "/" : place) + ": " + problem);
}

void Node::FailExpecting(const std::string& expected) const {
  std::string found = value.is_structured() ? std::string(value.type_name()) : value.dump();
  if (found.size() > 80) found = "a long " + std::string(value.type_name());
  Fail("expected " + expected + ", found " + found);
}

const nlohmann::json& Node::Object() const {
  if (!value.is_object()) FailExpecting("an object");
  return value;
}

std::string Node::Text() const {
  if (!value.is_string()) FailExpecting("a text");
  return value.get<std::string>();
}

bool Node::Boolean() const {
  if (!value.is_boolean()) FailExpecting("true or false");
  return value.get<bool>();
}

std::int64_t Node::Number(std::int64_t least, std::int64_t most) const {
  const std::string expected =
      "a number from " + std::to_string(least) + " to " + std::to_string(most);
  std::int64_t number = 0;
  if (value.is_number_unsigned()) {
    const auto wide = value.get<std::uint64_t>();
    if (wide > static_cast<std::uint64_t>(most)) FailExpecting(expected);
    number = static_cast<std::int64_t>(wide);
  } else if (value.is_number_integer()) {
    number = value.get<std::int64_t>();
  } else if (value.is_string() && value.get_ref<const std::string&>().starts_with("0x")) {
    const auto& text = value.get_ref<const std::string&>();
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 2, end, number, 16);
    if (error != std::errc() || stop != end || text[2] == '-') FailExpecting(expected);
  } else {
    FailExpecting(expected);
  }
  if (number < least || number > most) FailExpecting(expected);
  return number;
}

void Node::EachElement(const std::function<void(const Node&)>& visit) const {
  if (!value.is_array()) FailExpecting("an array");
  for (std::size_t i = 0; i < value.size(); ++i) visit(Element(value[i], i));
}

void Node::EachMember(const std::vector<Member>& members) const {
  for (const auto& [key, child] : Object().items()) {
    if (std::none_of(members.begin(), members.end(),
                     [&wanted = key](const Member& member) { return member.name == wanted; })) {
      std::vector<std::string_view> accepted;
      for (const Member& member : members) accepted.push_back(member.name);
      Child(child, key).Fail("no such member; accepted are " + Join(accepted));
    }
  }
  for (const Member& member : members) {
    const auto found = value.find(member.name);
    if (found != value.end()) member.read(Child(*found, member.name));
  }
}

std::string Join(std::span<const std::string_view> names) {
  std::string joined;
  for (const std::string_view name : names) {
    if (!joined.empty()) joined += ", ";
    joined += name;
  }
  return joined;
}

}  // namespace simulator
