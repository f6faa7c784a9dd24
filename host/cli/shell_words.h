#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A word of a shell line.
struct ShellWord {
  std::string text;       ///< without the shell's quotes
  std::size_t start = 0;  ///< offset of its first byte in the line
  char openQuote = 0;     ///< a quote without an end, or 0
};

/// Splits a line into words at blanks. Text in quotes is not split, and the quotes are removed, as
/// in other shells: "a b", 'a b', Name="a b". Between double quotes \" and \\ stand for the second
/// character; elsewhere \ is an ordinary character. Within an object path (CLASS.KEY="...", and the
/// first argument of a command that takes a path) quotes and their content are kept, because paths
/// need them.
std::vector<ShellWord> CutShellLine(std::string_view line);

/// The words of a whole line. A line that begins with SELECT, ASSOCIATORS or REFERENCES is the text
/// of a query up to the first option. Throws CommandLineError for a quote without an end.
std::vector<std::string> SplitShellLine(std::string_view line);

}  // namespace host
