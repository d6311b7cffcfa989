// Texts in columns, for people.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace oclacp::host {

// What a cell says of what it shows; told in colour where there are colours.
enum class CellStyle { kPlain, kGood, kBad };

struct TableLayout {
  size_t width = std::string::npos;  // columns of characters that a line has
  size_t indent = 0;                 // blanks in front of each line
  bool has_colours = false;          // whether terminal colours are used (ECMA-48, SGR)
};

// Rows of cells under a heading. The first column names what a row is about.
class TextTable {
 public:
  enum class Align { kLeft, kRight };

  struct Column {
    std::string heading;
    Align align = Align::kLeft;
  };

  struct Cell {
    std::string text;
    CellStyle tone = CellStyle::kPlain;
  };

  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  // `row` has a cell for each column. Nothing in its texts acts on a terminal (base/printable_text.h).
  void add(std::vector<Cell> row);

  // Takes away the columns after the first in which every row shows `text`. Returns how many columns are left.
  size_t drop_columns_showing(const std::string& text);

  // Columns that are too many for the width follow below, after an empty line, with the first column again. A name
  // that leaves no room for the others stands on a line of its own.
  [[nodiscard]] std::string text(const TableLayout& layout) const;

 private:
  // The first column and some of the others, in a table that fits.
  struct Part {
    std::vector<size_t> columns;
    size_t width;
  };

  [[nodiscard]] std::vector<size_t> column_widths(size_t room) const;
  [[nodiscard]] std::vector<Part> split(const std::vector<size_t>& widths, size_t room) const;

  std::vector<Column> columns_;
  std::vector<std::vector<Cell>> rows_;
};

}  // namespace oclacp::host
