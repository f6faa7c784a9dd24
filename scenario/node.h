#pragma once
// A JSON value with its place, for reading with errors that name the place. Only the sources of
// this folder include it.

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

/// The most that a member of 32 bits takes.
inline constexpr std::int64_t kAllBits = std::numeric_limits<std::uint32_t>::max();

/// A member of an object, and how to read it.
struct Member {
  std::string_view name;
  std::function<void(const Node&)> read;
};

/// A value and where it stands: below its parent, which outlives it, or at a place of its own.
struct Node {
  const nlohmann::json& value;
  std::string root = {};  ///< the place of a value without a parent
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

  /// Throws ScenarioError: the place, then `problem`.
  [[noreturn]] void Fail(const std::string& problem) const;
  [[noreturn]] void FailExpecting(const std::string& expected) const;

  const nlohmann::json& Object() const;
  std::string Text() const;
  bool Boolean() const;
  /// An integer, or a text of hexadecimal digits after "0x", from `least` to `most`.
  std::int64_t Number(std::int64_t least, std::int64_t most) const;
  /// Calls `visit` for each element in order.
  void EachElement(const std::function<void(const Node&)>& visit) const;
  /// Reads the members that are there, in the order of `members`; any other is refused with the
  /// names of those.
  void EachMember(const std::vector<Member>& members) const;
};

/// The place of a member or an element below another place; a long name is cut.
std::string PlaceBelow(const std::string& place, std::string_view name);
std::string PlaceBelow(const std::string& place, std::size_t index);

/// Reads an object into the record at `base`: the table's rows in their order, then `others`.
/// Fields without a member stay as they are.
void ReadRecord(const Node& node, const Table& table, void* base,
                const std::vector<Member>& others = {});

/// The names joined for an error or a document.
std::string Join(std::span<const std::string_view> names);

}  // namespace simulator
