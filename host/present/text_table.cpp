#include "host/present/text_table.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

#include "host/base/printable_text.h"

namespace oclacp::host {
namespace {

constexpr size_t kGap = 2;
// What names get at least when the columns do not fit side by side.
constexpr size_t kNameWidth = 24;

constexpr std::string_view kHeadingColour = "\x1b[1m";
constexpr std::string_view kGoodColour = "\x1b[32m";
constexpr std::string_view kBadColour = "\x1b[31m";
constexpr std::string_view kNoColour = "\x1b[0m";

// Characters, of a text in UTF-8.
size_t length(std::string_view text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xc0) != 0x80; }));
}

std::string_view colour_of(CellStyle tone) {
  switch (tone) {
    case CellStyle::kGood:
      return kGoodColour;
    case CellStyle::kBad:
      return kBadColour;
    case CellStyle::kPlain:
      break;
  }
  return "";
}

// Writes one line, cell by cell; nothing follows the last one.
class Line {
 public:
  Line(std::string& text, const TableLayout& layout) : text_(text), layout_(layout), blanks_(layout.indent) {}

  void put(std::string_view cell, std::string_view colour, TextTable::Align align, size_t width) {
    const size_t own = length(cell);
    const size_t padding = width > own ? width - own : 0;
    blanks_ += align == TextTable::Align::kRight ? padding : 0;
    if (!cell.empty()) {
      text_.append(blanks_, ' ');
      blanks_ = 0;
      const bool is_coloured = layout_.has_colours && !colour.empty();
      text_.append(is_coloured ? colour : "").append(cell).append(is_coloured ? kNoColour : "");
    }
    blanks_ += (align == TextTable::Align::kLeft ? padding : 0) + kGap;
    if (own > width) {
      text_.append("\n");
      blanks_ = layout_.indent + width + kGap;
    }
  }

  void end() { text_.append("\n"); }

 private:
  std::string& text_;
  const TableLayout& layout_;
  size_t blanks_;  // that stand in front of the next cell
};

}  // namespace

void TextTable::add(std::vector<Cell> row) {
  for (Cell& cell : row) {
    cell.text = printable(cell.text);
  }
  rows_.push_back(std::move(row));
}

size_t TextTable::drop_columns_showing(const std::string& text) {
  for (size_t column = columns_.size() - 1; column > 0; --column) {
    if (std::all_of(rows_.begin(), rows_.end(), [&](const auto& row) { return row[column].text == text; })) {
      const auto place = static_cast<std::ptrdiff_t>(column);
      columns_.erase(columns_.begin() + place);
      for (auto& row : rows_) {
        row.erase(row.begin() + place);
      }
    }
  }
  return columns_.size();
}

// The widest cell of each column; a name takes no more than what the others leave, or a part of the line.
std::vector<size_t> TextTable::column_widths(size_t room) const {
  std::vector<size_t> widths;
  for (size_t column = 0; column < columns_.size(); ++column) {
    size_t width = length(columns_[column].heading);
    for (const auto& row : rows_) {
      width = std::max(width, length(row[column].text));
    }
    widths.push_back(width);
  }
  const size_t others = std::accumulate(widths.begin() + 1, widths.end(), kGap * (widths.size() - 1));
  const size_t limit = room > others + kNameWidth ? room - others : kNameWidth;
  size_t& names = widths.front();
  names = 0;
  const auto make_room = [&](const std::string& name) {
    const size_t own = length(name);
    names = own <= limit ? std::max(names, own) : names;
  };
  make_room(columns_.front().heading);
  for (const auto& row : rows_) {
    make_room(row.front().text);
  }
  return widths;
}

std::vector<TextTable::Part> TextTable::split(const std::vector<size_t>& widths, size_t room) const {
  std::vector<Part> parts = {{{0}, widths.front()}};
  for (size_t column = 1; column < columns_.size(); ++column) {
    const size_t wider = kGap + widths[column];
    if (parts.back().columns.size() > 1 && parts.back().width + wider > room) {
      parts.push_back({{0}, widths.front()});
    }
    parts.back().columns.push_back(column);
    parts.back().width += wider;
  }
  return parts;
}

std::string TextTable::text(const TableLayout& layout) const {
  const size_t room = layout.width - std::min(layout.width, layout.indent);
  const std::vector<size_t> widths = column_widths(room);
  std::string text;
  for (const Part& part : split(widths, room)) {
    text.append(text.empty() ? "" : "\n");
    Line heading(text, layout);
    for (const size_t column : part.columns) {
      heading.put(columns_[column].heading, kHeadingColour, columns_[column].align, widths[column]);
    }
    heading.end();
    for (const auto& row : rows_) {
      Line line(text, layout);
      for (const size_t column : part.columns) {
        line.put(row[column].text, colour_of(row[column].tone), columns_[column].align, widths[column]);
      }
      line.end();
    }
  }
  return text;
}

}  // namespace oclacp::host
