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

/// kChart draws only networks and is not a format for rows.
enum class OutputFormat { kTable, kList, kJson, kCsv, kChart };

/// The names on the command line, in the order of the enumeration.
inline constexpr const char* kFormatNames[] = {"table", "list", "json", "csv", "chart"};
/// The format of a name, in any letter case; nullopt if there is no such format.
std::optional<OutputFormat> FormatOf(std::string_view name);

/// `rows` is a JSON array of objects; `width` is the number of columns that a table may fill;
/// `names` are the requested columns, empty for those of the rows. With `color` a table has bold
/// headings and a dim NULL where there is no value.
std::string FormatRows(const Json& rows, OutputFormat format, int width,
                       const std::vector<std::string>& names = {}, bool color = false);

/// JSON indented by two blanks, with a final line end; invalid UTF-8 is replaced.
std::string JsonText(const Json& value);
/// The same text of an object with arrays, one array element at a time.
void EachJsonPiece(const Json& value, const std::function<void(std::string_view)>& take);
/// Rows that arrive one after the other, kept as lines of CSV.
class CsvRows {
 public:
  /// `names` are the columns, empty for those of the rows, in the order in which they first appear.
  explicit CsvRows(std::vector<std::string> names)
      : names_(std::move(names)), fixed_(!names_.empty()) {}

  void Add(const Json& row);
  /// One header line, then one line for each row, as in RFC 4180 but with line feeds.
  void Write(std::ostream& output) const;

 private:
  /// Lines of rows that were added while this number of columns was known.
  struct Block {
    std::size_t columns;
    std::string text = {};
    std::vector<std::size_t> ends = {};  ///< ends of the lines
  };

  std::vector<std::string> names_;
  bool fixed_;
  std::deque<Block> blocks_;
};

/// The lines of CsvRows.
std::string CsvText(const Json& rows, std::vector<std::string> names = {});
/// One `Name : Value` line for each value; a blank line between rows.
std::string ListText(const Json& rows);
/// Columns side by side. A table of three or more that do not fit is transposed: one line for each
/// name, one column for each row, as many as fit.
std::string TableText(const Json& rows, int width, std::vector<std::string> names = {},
                      bool color = false);

/// All names of the rows in the order in which they first appear.
std::vector<std::string> NamesOf(const Json& rows);
/// A value in one line: text as from VisibleText, the elements of an array separated by commas,
/// nothing for null.
std::string CellText(const Json& value);
/// Columns that a text takes on a terminal: two for a wide character, zero for a combining one.
int DisplayWidth(std::string_view utf8);

}  // namespace host
