#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <vector>

#include "platform/ascii.h"
#include "scenario/ansi.h"
#include "scenario/node.h"

namespace simulator {
namespace {

using platform::HexDigit;

/// The bytes of pairs of hexadecimal digits, separated by `separator` unless it is zero.
std::string BytesOfHex(const Node& node, const std::string& hex, char separator,
                       const std::string& expected) {
  std::string bytes;
  const std::size_t step = separator == 0 ? 2 : 3;
  for (std::size_t i = 0; i < hex.size(); i += step) {
    const int high = HexDigit(hex[i]);
    const int low = i + 1 < hex.size() ? HexDigit(hex[i + 1]) : -1;
    const bool separated =
        separator == 0 || i + 2 == hex.size() || (i + 3 < hex.size() && hex[i + 2] == separator);
    if (high < 0 || low < 0 || !separated) node.FailExpecting(expected);
    bytes.push_back(static_cast<char>(high * 16 + low));
  }
  return bytes;
}

std::vector<std::string_view> NamesOf(std::span<const Name> names) {
  std::vector<std::string_view> texts;
  for (const Name& name : names) texts.emplace_back(name.text);
  return texts;
}

const Name* FindName(std::span<const Name> names, std::string_view text) {
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const Name& name) { return name.text == text; });
  return found == names.end() ? nullptr : &*found;
}

bool IsHexNumber(const Node& node) {
  return node.value.is_string() && node.value.get_ref<const std::string&>().starts_with("0x");
}

/// Writes the lowest `size` bytes of a number; the interface and every target are little-endian.
void Store(void* place, std::size_t size, std::int64_t number) {
  std::memcpy(place, &number, size);
}

std::int64_t ReadNumber(const Node& node, const Field& field) {
  if (!field.names.empty() && node.value.is_string() && !IsHexNumber(node)) {
    if (const Name* name = FindName(field.names, node.Text())) return name->code;
    node.FailExpecting("a number or one of " + Join(NamesOf(field.names)));
  }
  return node.Number(0, (std::int64_t{1} << (8 * field.size)) - 1);
}

std::int64_t ReadSigned(const Node& node, std::size_t size) {
  const std::int64_t most = (std::int64_t{1} << (8 * size - 1)) - 1;
  return node.Number(-most - 1, most);
}

std::int64_t ReadBits(const Node& node, const Field& field) {
  if (!node.value.is_array()) return ReadNumber(node, field);
  std::uint32_t bits = 0;
  node.EachElement([&](const Node& element) {
    const bool isText = element.value.is_string();
    const Name* name = FindName(field.names, isText ? element.Text() : element.value.dump());
    if (name == nullptr) element.FailExpecting("one of " + Join(NamesOf(field.names)));
    bits |= name->code;
  });
  return bits;
}

/// Fills `size` bytes with a text, padded with zeros. With `full` the text may use the last byte
/// too.
void ReadText(const Node& node, void* place, std::size_t size, bool full) {
  std::string bytes;
  if (node.value.is_object()) {
    if (node.value.empty()) node.FailExpecting("a text or {\"hex\": \"...\"}");
    node.EachMember({{"hex", [&bytes](const Node& hex) {
                        bytes = BytesOfHex(hex, hex.Text(), 0, "pairs of hexadecimal digits");
                      }}});
    full = true;
  } else {
    const auto ansi = AnsiFromUtf8(node.Text());
    if (!ansi) node.FailExpecting("a text of characters that code page 1252 has");
    if (ansi->find('\0') != std::string::npos) {
      node.Fail("a text cannot hold a zero character; give the bytes as {\"hex\": \"...\"}");
    }
    bytes = *ansi;
  }
  const std::size_t room = full ? size : size - 1;
  if (bytes.size() > room) {
    node.Fail("the text has " + std::to_string(bytes.size()) + " bytes, room is for " +
              std::to_string(room));
  }
  std::memset(place, 0, size);
  std::memcpy(place, bytes.data(), bytes.size());
}

void ReadMac(const Node& node, void* place) {
  const std::string expected = "an address such as \"00:1A:2B:3C:4D:5E\"";
  if (!node.value.is_string()) node.FailExpecting(expected);
  const std::string bytes = BytesOfHex(node, node.Text(), ':', expected);
  if (bytes.size() != 6) node.FailExpecting(expected);
  std::memcpy(place, bytes.data(), bytes.size());
}

/// Reads an array into the field, `step` bytes per element, and clears the rest. Returns the count.
std::uint32_t ReadArray(const Node& node, unsigned char* place, std::size_t size, std::size_t step,
                        const std::function<void(const Node&, void*)>& read) {
  std::memset(place, 0, size);
  std::uint32_t count = 0;
  node.EachElement([&](const Node& element) {
    if (count == size / step) {
      node.Fail("too many elements, room is for " + std::to_string(size / step));
    }
    read(element, place + count++ * step);
  });
  return count;
}

void ReadField(const Node& node, const Field& field, unsigned char* place) {
  const auto storeCount = [&](std::uint32_t count) { Store(place - sizeof count, 4, count); };
  switch (field.kind) {
    case Kind::kNumber:
      return Store(place, field.size, ReadNumber(node, field));
    case Kind::kSigned:
      return Store(place, field.size, ReadSigned(node, field.size));
    case Kind::kFlag:
      return Store(place, field.size,
                   node.value.is_boolean() ? node.Boolean() : node.Number(0, kAllBits));
    case Kind::kBits:
      return Store(place, field.size, ReadBits(node, field));
    case Kind::kText:
    case Kind::kPaddedText:
      return ReadText(node, place, field.size, field.kind == Kind::kPaddedText);
    case Kind::kMac:
      return ReadMac(node, place);
    case Kind::kNumbers:
      ReadArray(node, place, field.size, 4,
                [](const Node& element, void* at) { Store(at, 4, element.Number(0, kAllBits)); });
      return;
    case Kind::kLevels:
      return storeCount(ReadArray(node, place, field.size, 4, [](const Node& element, void* at) {
        Store(at, 4, ReadSigned(element, 4));
      }));
    case Kind::kTexts:
      return storeCount(ReadArray(
          node, place, field.size, kTextsStep,
          [](const Node& element, void* at) { ReadText(element, at, kTextsStep, false); }));
    case Kind::kRecord:
      return ReadRecord(node, *field.record, place);
  }
}

}  // namespace

void ReadRecord(const Node& node, const Table& table, void* base,
                const std::vector<Member>& others) {
  for (const auto& [name, child] : node.Object().items()) {
    const auto isNamed = [&key = name](const auto& known) { return known.name == key; };
    if (std::ranges::any_of(table.fields, isNamed) || std::ranges::any_of(others, isNamed))
      continue;
    std::vector<std::string_view> accepted;
    for (const Field& field : table.fields) accepted.push_back(field.name);
    for (const Member& member : others) accepted.push_back(member.name);
    node.Child(child, name).Fail("no such member; accepted are " + Join(accepted));
  }
  for (const Field& field : table.fields) {
    const auto found = node.value.find(field.name);
    if (found == node.value.end()) continue;
    ReadField(node.Child(*found, field.name), field,
              static_cast<unsigned char*>(base) + field.offset);
  }
  for (const Member& member : others) {
    const auto found = node.value.find(member.name);
    if (found != node.value.end()) member.read(node.Child(*found, member.name));
  }
}

}  // namespace simulator
