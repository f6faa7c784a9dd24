#pragma once
// A JSON value with its place, so that errors can name the place. Only the sources of this folder
// include it.

#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/fields.h"
#include "scenario/json.h"

namespace simulator {

struct Node;

/// The largest value of a 32-bit member.
inline constexpr std::int64_t kAllBits = std::numeric_limits<std::uint32_t>::max();

/// A member of an object, and how to read it.
struct Member {
  std::string_view name;
  std::function<void(const Node&)> read;
};

/// A value and its place: below its parent, which outlives it, or at a root of its own.
struct Node {
  const nlohmann::json& value;
  std::string root = {};  ///< place of a value without a parent
  const Node* parent = nullptr;
  std::string_view name = {};  ///< of a member of the parent
  std::size_t index = 0;       ///< of an element of the parent, which has no name

  Node Child(const nlohmann::json& member, std::string_view memberName) const {
    return {member, {}, this, memberName};
  }
  Node Element(const nlohmann::json& element, std::size_t position) const {
    return {element, {}, this, {}, position};
  }
  /// "/adapters/0/mac", empty for the whole scenario.
  std::string Place() const;

  /// Throws ScenarioError with the place and `problem`.
  [[noreturn]] void Fail(const std::string& problem) const;
  [[noreturn]] void FailExpecting(const std::string& expected) const;

  const nlohmann::json& Object() const;
  std::string Text() const;
  bool Boolean() const;
  /// An integer, or a text with "0x" and hexadecimal digits, between `least` and `most`.
  std::int64_t Number(std::int64_t least, std::int64_t most) const;
  /// Calls `visit` for each element in order.
  void EachElement(const std::function<void(const Node&)>& visit) const;
  /// Reads the given members, in the order of `members`. Any other is refused with a message that
  /// lists the names of `members`.
  void EachMember(const std::vector<Member>& members) const;
};

/// The place of a member or an element below another place; a long name is shortened.
std::string PlaceBelow(const std::string& place, std::string_view name);
std::string PlaceBelow(const std::string& place, std::size_t index);

/// Reads an object into the record at `base`: the table's rows in their order, then `others`.
/// Fields without a member are not changed.
void ReadRecord(const Node& node, const Table& table, void* base,
                const std::vector<Member>& others = {});

/// The names joined for an error message or a document.
std::string Join(std::span<const std::string_view> names);

}  // namespace simulator
