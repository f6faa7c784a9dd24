#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A word of a shell line.
struct ShellWord {
  std::string text;       ///< without the quotes that belong to the shell
  std::size_t start = 0;  ///< of its first byte in the line
  char openQuote = 0;     ///< the quote that has no end, 0 for none
};

/// Cuts a line into words at blanks. Quotes keep blanks together and are dropped, as in other
/// shells: "a b", 'a b', Name="a b". Between double quotes \" and \\ stand for the second
/// character; elsewhere \ is a character like others. Within an object path (CLASS.KEY="...", and
/// whatever stands first behind a command that takes a path) quotes and what they hold stay, as
/// paths need them.
std::vector<ShellWord> CutShellLine(std::string_view line);

/// The words of a whole line. A line that begins with SELECT, ASSOCIATORS or REFERENCES is the text
/// of a query, up to the first option. Throws CommandLineError for a quote without an end.
std::vector<std::string> SplitShellLine(std::string_view line);

}  // namespace host
