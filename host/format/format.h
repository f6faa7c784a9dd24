#pragma once
// The output formats. Rows are JSON objects, name to value, in the order in which they are shown;
// not every row has every name. Texts are UTF-8, lines end with a line feed.

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/service/value.h"

namespace host {

/// kChart draws networks alone and is no format of rows.
enum class OutputFormat { kTable, kList, kJson, kCsv, kChart };

/// The names that the command line takes, in the order of the enumeration.
inline constexpr const char* kFormatNames[] = {"table", "list", "json", "csv", "chart"};
/// The format of a name, in any case of letters; none if there is no such format.
std::optional<OutputFormat> FormatOf(std::string_view name);

/// `rows` is a JSON array of objects; `width` is the number of columns that a table may fill;
/// `names` are the columns that were asked for, empty for those that the rows have; with `color` a
/// table has bold headings, and a dim NULL where there is no value.
std::string FormatRows(const Json& rows, OutputFormat format, int width,
                       const std::vector<std::string>& names = {}, bool color = false);

/// JSON with an indent of two blanks and a line end; texts that are no UTF-8 are mended.
std::string JsonText(const Json& value);
/// The same text of an object with arrays, an element of an array at a time.
void EachJsonPiece(const Json& value, const std::function<void(std::string_view)>& take);
/// Rows that come one after the other, kept as the lines that they become.
class CsvRows {
 public:
  /// `names` are the columns, none for those that the rows have, in the order in which they come.
  explicit CsvRows(std::vector<std::string> names)
      : names_(std::move(names)), fixed_(!names_.empty()) {}

  void Add(const Json& row);
  /// One header line, then one line for each row, as RFC 4180 writes them but with line feeds.
  void Write(std::ostream& output) const;

 private:
  /// Lines of rows that were added while there were so many columns.
  struct Block {
    std::size_t columns;
    std::string text = {};
    std::vector<std::size_t> ends = {};  ///< of the lines
  };

  std::vector<std::string> names_;
  bool fixed_;
  std::deque<Block> blocks_;
};

/// The lines of CsvRows.
std::string CsvText(const Json& rows, std::vector<std::string> names = {});
/// One `Name : Value` line for each value; a blank line between rows.
std::string ListText(const Json& rows);
/// Columns side by side; three or more that do not fit are turned: one line for each name, one
/// column for each row, as many as fit.
std::string TableText(const Json& rows, int width, std::vector<std::string> names = {},
                      bool color = false);

/// All names of the rows in the order in which they first appear.
std::vector<std::string> NamesOf(const Json& rows);
/// A value in one line: text as VisibleText has it, the elements of an array with a comma between
/// them, nothing for null.
std::string CellText(const Json& value);
/// Columns that a text takes on a terminal: two for wide characters, none for combining ones.
int DisplayWidth(std::string_view utf8);

}  // namespace host
