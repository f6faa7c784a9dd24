#include "scenario/parse.h"

#include <algorithm>
#include <utility>

#include "scenario/platform_objects.h"

namespace simulator {
namespace {

using nlohmann::json;

constexpr std::size_t kMostLevels = 16;
constexpr std::string_view kStreamed = "adapters";

/// Line and column, from 1, of the byte at this offset.
std::string PlaceOf(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte == 0 ? 0 : byte - 1, text.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t lineStart = before.rfind('\n') + 1;
  return "line " + std::to_string(line) + ", column " +
         std::to_string(before.size() - lineStart + 1);
}

constexpr std::size_t kMostShown = 40;  ///< bytes of the file's text in a message

/// What the parser found and expected, taken from its message "...: syntax error ... - FOUND; last
/// read: 'LAST'; expected WHAT".
std::string ReasonOf(std::string_view message, std::string_view last) {
  constexpr std::string_view kFound = " - ";
  constexpr std::string_view kLast = "; last read: '";
  constexpr std::string_view kExpected = "'; expected ";
  const std::size_t found = message.find(kFound);
  if (found != message.npos) message.remove_prefix(found + kFound.size());
  const std::size_t read = message.find(kLast);
  if (read == message.npos) return std::string(message);
  if (last.size() > kMostShown) last.remove_prefix(last.size() - kMostShown);
  const std::size_t expected = message.rfind(kExpected);
  return std::string(message.substr(0, read)) + " at the end of '" + std::string(last) + "'" +
         std::string(expected == message.npos ? "" : message.substr(expected + 1));
}

/// Builds the value from the parser's events.
class Builder final : public json::json_sax_t {
 public:
  Builder(std::string_view text, const std::function<void(const Node&)>& adapter)
      : text_(text), adapter_(adapter) {}

  json TakeRoot() { return std::move(root_); }

  bool null() override { return Add(json()); }
  bool boolean(bool value) override { return Add(value); }
  bool number_integer(number_integer_t value) override { return Add(value); }
  bool number_unsigned(number_unsigned_t value) override { return Add(value); }
  bool number_float(number_float_t value, const string_t&) override { return Add(value); }
  bool string(string_t& value) override { return Add(std::move(value)); }
  bool binary(binary_t&) override { return false; }  // does not occur in JSON text
  bool start_object(std::size_t) override { return Open(json::object()); }
  bool start_array(std::size_t) override { return Open(json::array()); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(string_t& name) override {
    Level& level = levels_.back();
    const auto [place, isNew] = level.value->get_ref<json::object_t&>().emplace(name, nullptr);
    level.name = name;
    if (!isNew) throw ScenarioError(PlaceOfLevels() + ": the member is there twice");
    level.member = &place->second;
    return true;
  }

  bool parse_error(std::size_t byte, const std::string& last,
                   const json::exception& error) override {
    const bool tooLarge = dynamic_cast<const json::out_of_range*>(&error) != nullptr;
    throw ScenarioError(PlaceOf(text_, byte) + ": " +
                        (tooLarge ? "a number is too large: " + last.substr(0, kMostShown)
                                  : "no JSON: " + ReasonOf(error.what(), last)));
  }

 private:
  /// An object or array whose end has not been read.
  struct Level {
    json* value;
    std::string name = {};     ///< of the member that is being read
    json* member = nullptr;    ///< where it goes
    std::size_t elements = 0;  ///< of an array so far, with the one being read
  };

  /// The place of the value that is being read.
  std::string PlaceOfLevels() const {
    std::string place;
    for (const Level& level : levels_) {
      place = level.value->is_array() ? PlaceBelow(place, level.elements - 1)
                                      : PlaceBelow(place, level.name);
    }
    return place;
  }

  bool Streams() const {
    return levels_.size() == 2 && levels_[1].value->is_array() && levels_[0].name == kStreamed;
  }

  json* Place(json&& value) {
    json* place = &root_;
    if (!levels_.empty()) {
      Level& level = levels_.back();
      if (level.value->is_array()) ++level.elements;
      place = level.value->is_array() ? &level.value->emplace_back() : level.member;
    }
    *place = std::move(value);
    return place;
  }

  /// Passes on an adapter that has been read, and removes it.
  void Hand() {
    if (!Streams()) return;
    json& adapters = *levels_[1].value;
    adapter_({adapters.back(), PlaceOfLevels()});
    adapters.clear();
  }

  bool Add(json&& value) {
    Place(std::move(value));
    Hand();
    return true;
  }

  bool Open(json&& value) {
    json* const place = Place(std::move(value));
    if (levels_.size() == kMostLevels) {
      throw ScenarioError(PlaceOfLevels() + ": more than 16 levels of nesting");
    }
    levels_.push_back({place});
    return true;
  }

  bool Close() {
    levels_.pop_back();
    Hand();
    return true;
  }

  const std::string_view text_;
  const std::function<void(const Node&)>& adapter_;
  json root_;
  std::vector<Level> levels_;
};

}  // namespace

json ParseScenarioText(std::string_view text, const std::function<void(const Node&)>& adapter) {
  constexpr bool kWhole = true;
  constexpr bool kWithComments = true;
  Builder builder(text, adapter);
  json::sax_parse(text, &builder, json::input_format_t::json, kWhole, kWithComments);
  return builder.TakeRoot();
}

}  // namespace simulator
