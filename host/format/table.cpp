#include <algorithm>
#include <cstddef>

#include "host/format/format.h"

namespace host {
namespace {

constexpr int kGap = 2;  ///< blanks between columns
/// This number of columns is never transposed, even if the last one is too wide.
constexpr std::size_t kAlwaysUpright = 2;

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kDim = "\x1b[2m";
constexpr std::string_view kPlain = "\x1b[0m";

struct Cell {
  std::string text;
  bool dim = false;
};

struct Column {
  std::vector<Cell> cells;  ///< the first is the heading
  int width = 0;

  void Add(Cell cell) {
    width = std::max(width, DisplayWidth(cell.text));
    cells.push_back(std::move(cell));
  }
};

int TotalWidth(const std::vector<Column>& columns) {
  int total = -kGap;
  for (const Column& column : columns) total += column.width + kGap;
  return total;
}

/// The lines of a table, with a rule below the headings. No line ends with blanks.
std::string Lines(const std::vector<const Column*>& columns, bool color) {
  std::string text;
  const std::size_t count = columns.front()->cells.size();
  for (std::size_t row = 0; row < count; ++row) {
    std::string line;
    std::string rule;
    for (const Column* column : columns) {
      const Cell& cell = column->cells[row];
      if (cell.dim) line += kDim;
      line += cell.text;
      if (cell.dim) line += kPlain;
      line += std::string(static_cast<std::size_t>(column->width - DisplayWidth(cell.text) + kGap),
                          ' ');
      rule += std::string(static_cast<std::size_t>(column->width), '-') + std::string(kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    if (row == 0 && color) line = std::string(kBold) + line + std::string(kPlain);
    text += line + '\n';
    if (row == 0) text += rule.substr(0, rule.find_last_not_of(' ') + 1) + '\n';
  }
  return text;
}

Cell CellOf(const Json& row, const std::string& name, bool color) {
  const auto found = row.find(name);
  if (color && (found == row.end() || found->is_null())) return {"NULL", true};
  return {found == row.end() ? std::string() : CellText(*found)};
}

std::vector<const Column*> Pointers(const std::vector<Column>& columns) {
  std::vector<const Column*> pointers;
  for (const Column& column : columns) pointers.push_back(&column);
  return pointers;
}

/// One line for each name; blocks with as many rows as fit next to the names.
std::string Turned(const Json& rows, const std::vector<std::string>& names, int width, bool color) {
  Column heads;
  heads.Add({"Property"});
  for (const std::string& name : names) heads.Add({name});
  std::vector<Column> values;
  for (const Json& row : rows) {
    Column& column = values.emplace_back();
    column.Add({"Instance " + std::to_string(values.size())});
    for (const std::string& name : names) column.Add(CellOf(row, name, color));
  }
  std::string text;
  for (std::size_t next = 0; next < values.size();) {
    std::vector<const Column*> block = {&heads, &values[next]};
    int used = heads.width + kGap + values[next++].width;
    while (next < values.size() && used + kGap + values[next].width <= width) {
      used += kGap + values[next].width;
      block.push_back(&values[next++]);
    }
    text += (text.empty() ? "" : "\n") + Lines(block, color);
  }
  return text;
}

}  // namespace

std::string TableText(const Json& rows, int width, std::vector<std::string> names, bool color) {
  if (names.empty()) names = NamesOf(rows);
  if (names.empty() || rows.empty()) return "";
  std::vector<Column> columns;
  for (const std::string& name : names) {
    Column& column = columns.emplace_back();
    column.Add({name});
    for (const Json& row : rows) column.Add(CellOf(row, name, color));
  }
  const bool upright = names.size() <= kAlwaysUpright || TotalWidth(columns) <= width;
  return upright ? Lines(Pointers(columns), color) : Turned(rows, names, width, color);
}

}  // namespace host
