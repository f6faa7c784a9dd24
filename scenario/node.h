#pragma once
// A JSON value with its place, for reading with errors that name the place. Only the sources of
// this folder include it.

#include <functional>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "scenario/fields.h"

namespace simulator {

struct Node;

/// A member of an object, and how to read it.
struct Member {
  std::string_view name;
  std::function<void(const Node&)> read;
};

struct Node {
  const nlohmann::json& value;
  nlohmann::json::json_pointer path{};

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

/// Reads an object into the record at `base`: the table's rows in their order, then `others`.
/// Fields without a member stay as they are.
void ReadRecord(const Node& node, const Table& table, void* base, std::vector<Member> others = {});

/// The names joined for an error or a document.
std::string Join(std::span<const std::string_view> names);

}  // namespace simulator
