#include <algorithm>
#include <cstddef>
#include <utility>

#include "host/format/format.h"

namespace host {
namespace {

constexpr int kGap = 2;  ///< blanks between columns
/// This number of columns is never transposed, even if the last one is too wide.
constexpr std::size_t kAlwaysUpright = 2;
constexpr int kLeastRoom = 24;  ///< minimum width of a column whose texts are wrapped

constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kDim = "\x1b[2m";
constexpr std::string_view kPlain = "\x1b[0m";

std::string Blanks(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

struct Cell {
  std::string text;
  bool isNull = false;

  bool operator==(const Cell&) const = default;
};

/// A text in lines of at most `room` columns; words are not broken, even if they are longer.
std::vector<std::string> Wrapped(const std::string& text, int room) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t next = 0; next < text.size();) {
    const std::size_t blank = std::min(text.find(' ', next), text.size());
    const std::string word = text.substr(next, blank - next);
    next = blank + 1;
    if (!line.empty() && DisplayWidth(line) + 1 + DisplayWidth(word) > room) {
      lines.push_back(std::exchange(line, ""));
    }
    line += (line.empty() ? "" : " ") + word;
  }
  if (!line.empty() || lines.empty()) lines.push_back(line);
  return lines;
}

/// A number, with its unit: "-58", "54.0 Mbps".
bool IsNumber(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789";
  const auto takeDigits = [&] {
    const std::size_t count = std::min(text.find_first_not_of(kDigits), text.size());
    text.remove_prefix(count);
    return count > 0;
  };
  if (text.starts_with('-')) text.remove_prefix(1);
  if (!takeDigits()) return false;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    if (!takeDigits()) return false;
  }
  return text.empty() || (text[0] == ' ' && text.find_first_of(" 0123456789,", 1) == text.npos);
}

struct Column {
  std::vector<Cell> cells;  ///< the first is the heading
  int width = 0;
  bool isWrapped = false;  ///< its texts may be wider than the column
  bool isRight = false;    ///< its numbers are right-aligned

  void Add(Cell cell) {
    width = std::max(width, DisplayWidth(cell.text));
    cells.push_back(std::move(cell));
  }
  void AlignNumbers() {
    bool hasNumber = false;
    for (std::size_t row = 1; row < cells.size(); ++row) {
      if (cells[row].isNull || cells[row].text.empty() || cells[row].text == "?") continue;
      if (!IsNumber(cells[row].text)) return;
      hasNumber = true;
    }
    isRight = hasNumber;
  }
  bool IsEqualInAllRows() const {
    return std::all_of(cells.begin() + 2, cells.end(),
                       [this](const Cell& cell) { return cell == cells[1]; });
  }
  /// Makes the column as narrow as `room` and its longest word allow.
  void Narrow(int room) {
    int longest = 0;
    for (const Cell& cell : cells) {
      for (const std::string& word : Wrapped(cell.text, 1)) {
        longest = std::max(longest, DisplayWidth(word));
      }
    }
    width = std::min(width, std::max(room, longest));
    isWrapped = true;
  }
  std::vector<std::string> LinesOf(std::size_t row) const {
    return isWrapped ? Wrapped(cells[row].text, width) : std::vector{cells[row].text};
  }
};

int TotalWidth(const std::vector<Column>& columns) {
  int total = -kGap;
  for (const Column& column : columns) total += column.width + kGap;
  return total;
}

/// One row of a table, which may take several lines. No line ends with blanks.
std::string RowText(const std::vector<const Column*>& columns, std::size_t row, bool color) {
  std::vector<std::vector<std::string>> parts;
  std::size_t height = 1;
  for (const Column* column : columns) {
    parts.push_back(column->LinesOf(row));
    height = std::max(height, parts.back().size());
  }
  std::string text;
  for (std::size_t at = 0; at < height; ++at) {
    std::string line;
    for (std::size_t index = 0; index < columns.size(); ++index) {
      const std::string part = at < parts[index].size() ? parts[index][at] : "";
      const std::string blanks = Blanks(columns[index]->width - DisplayWidth(part));
      const bool isDim = color && columns[index]->cells[row].isNull;
      if (columns[index]->isRight) line += blanks;
      line += isDim ? std::string(kDim) + part + std::string(kPlain) : part;
      if (!columns[index]->isRight) line += blanks;
      line += Blanks(kGap);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    if (row == 0 && color) line = std::string(kBold) + line + std::string(kPlain);
    text += line + '\n';
  }
  return text;
}

/// The lines of a table; a rule is below the headings.
std::string Lines(const std::vector<const Column*>& columns, bool color) {
  std::string rule;
  for (const Column* column : columns) {
    rule += std::string(static_cast<std::size_t>(column->width), '-') + Blanks(kGap);
  }
  std::string text = RowText(columns, 0, color) + rule.substr(0, rule.size() - kGap) + '\n';
  for (std::size_t row = 1; row < columns.front()->cells.size(); ++row) {
    text += RowText(columns, row, color);
  }
  return text;
}

Cell CellOf(const Json& row, const std::string& name, bool color) {
  const auto found = row.find(name);
  const bool isNull = found == row.end() || found->is_null();
  if (isNull) return {color ? "NULL" : "", true};
  return {CellText(*found)};
}

std::vector<const Column*> Pointers(const std::vector<Column>& columns) {
  std::vector<const Column*> pointers;
  for (const Column& column : columns) pointers.push_back(&column);
  return pointers;
}

/// Removes the columns whose rows are all equal, and shows their value once above the table.
std::string SaidOnce(std::vector<Column>* columns, int width) {
  std::string same;
  std::vector<Column> others;
  for (Column& column : *columns) {
    if (!column.IsEqualInAllRows()) {
      others.push_back(std::move(column));
      continue;
    }
    const Cell& value = column.cells[1];
    same += (same.empty() ? "In all rows: " : "; ") + column.cells[0].text + " " +
            (value.isNull || value.text.empty() ? "NULL" : value.text);
  }
  *columns = std::move(others);
  std::string text;
  if (same.empty()) return text;
  for (const std::string& line : Wrapped(same, width)) text += line + '\n';
  return text + '\n';
}

/// Wraps the texts of the widest column if the table then fits.
bool Narrow(std::vector<Column>* columns, int width) {
  const auto widest = std::ranges::max_element(*columns, {}, &Column::width);
  const int room = width - (TotalWidth(*columns) - widest->width);
  const bool mayRunOver = columns->size() <= kAlwaysUpright;
  if (room < kLeastRoom && !mayRunOver) return false;
  Column narrow = *widest;
  narrow.Narrow(std::max(room, kLeastRoom));
  if (narrow.width > room && !mayRunOver) return false;
  *widest = std::move(narrow);
  return true;
}

/// One line for each name; blocks with as many rows as fit next to the names.
std::string Turned(const std::vector<Column>& columns, int width, bool color) {
  Column heads;
  heads.Add({"Property"});
  for (const Column& column : columns) heads.Add(column.cells[0]);
  const int room = std::max(width - heads.width - kGap, kLeastRoom);
  std::vector<Column> values;
  for (std::size_t row = 1; row < columns.front().cells.size(); ++row) {
    Column& value = values.emplace_back();
    value.Add({"Instance " + std::to_string(row)});
    for (const Column& column : columns) value.Add(column.cells[row]);
    if (value.width > room) value.Narrow(room);
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
    column.AlignNumbers();
  }
  if (TotalWidth(columns) <= width) return Lines(Pointers(columns), color);
  const bool differs =
      std::ranges::any_of(columns, [](const Column& column) { return !column.IsEqualInAllRows(); });
  const std::string same = rows.size() > 1 && differs ? SaidOnce(&columns, width) : "";
  const bool fits = TotalWidth(columns) <= width || Narrow(&columns, width);
  return same + (fits ? Lines(Pointers(columns), color) : Turned(columns, width, color));
}

}  // namespace host
