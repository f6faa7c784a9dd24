#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/format/format.h"

namespace host {

struct CommandRow;

/// One command as it was typed: the values of each argument and option of the table, by its name
/// there ("CLASS", "--trace").
class Command {
 public:
  const CommandRow* row = nullptr;
  OutputFormat format = OutputFormat::kTable;
  std::vector<std::string> fields;  ///< empty for all, or what a table shows of a class
  bool allFields = false;           ///< shows all fields even in a table

  bool Has(const std::string& name) const { return values_.contains(name); }
  /// The only or last value; nullopt if it was not typed.
  std::optional<std::string> Find(const std::string& name) const {
    const auto found = values_.find(name);
    if (found == values_.end() || found->second.empty()) return std::nullopt;
    return found->second.back();
  }
  std::string Text(const std::string& name) const { return Find(name).value_or(""); }
  std::vector<std::string> All(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::vector<std::string>() : found->second;
  }
  /// The values joined by blanks, as they were typed without quotes in a shell.
  std::string Joined(const std::string& name) const {
    std::string text;
    for (const std::string& value : All(name)) text += (text.empty() ? "" : " ") + value;
    return text;
  }
  void Set(const std::string& name, std::vector<std::string> values) {
    values_[name] = std::move(values);
  }

 private:
  std::map<std::string, std::vector<std::string>> values_;
};

/// Says in one line what is wrong with a command line.
class CommandLineError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace host
