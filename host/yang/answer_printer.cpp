#include "host/yang/answer_printer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

#include "host/refusal.h"

namespace oclacp::host {
namespace {

constexpr size_t kTableWidth = 80;
constexpr size_t kColumnGap = 2;

const lyd_node* find_child(const lyd_node* above, std::string_view name) {
  const lyd_node* child = lyd_child(above);
  while (child != nullptr && name != child->schema->name) {
    child = child->next;
  }
  return child;
}

// Rows of cells, the first of them the header.
using Rows = std::vector<std::vector<std::string>>;

// The leaves of an interface's configuration beyond its name.
std::vector<const lysc_node*> setting_columns(const ly_ctx* context) {
  const lysc_node* list = lys_find_path(context, nullptr, "/openconfig-lacp:lacp/interfaces/interface", 0);
  const lysc_node* config = lys_find_path(context, list, "config", 0);
  std::vector<const lysc_node*> leaves;
  for (const lysc_node* leaf = lysc_node_child(config); leaf != nullptr; leaf = leaf->next) {
    if (leaf->nodetype == LYS_LEAF && std::strcmp(leaf->name, lysc_node_child(list)->name) != 0) {
      leaves.push_back(leaf);
    }
  }
  return leaves;
}

Rows make_rows(const ly_ctx* context, const lyd_node* interfaces) {
  const std::vector<const lysc_node*> columns = setting_columns(context);
  Rows rows = {{"interface"}};
  for (const lysc_node* column : columns) {
    rows.front().emplace_back(column->name);
  }
  for (const lyd_node* entry = lyd_child(interfaces); entry != nullptr; entry = entry->next) {
    std::vector<std::string>& row = rows.emplace_back();
    row.emplace_back(lyd_get_value(lyd_child(entry)));
    const lyd_node* config = find_child(entry, "config");
    for (const lysc_node* column : columns) {
      const lyd_node* leaf = find_child(config, column->name);
      row.emplace_back(leaf == nullptr ? "-" : lyd_get_value(leaf));
    }
  }
  return rows;
}

// The widest cell of each column; the first column takes no more than what the others leave.
std::vector<size_t> column_widths(const Rows& rows) {
  std::vector<size_t> widths(rows.front().size());
  for (size_t column = 1; column < widths.size(); ++column) {
    for (const auto& row : rows) {
      widths[column] = std::max(widths[column], row[column].size());
    }
  }
  const size_t others = std::accumulate(widths.begin(), widths.end(), kColumnGap * (widths.size() - 1));
  const size_t limit = std::max(rows.front().front().size(), kTableWidth - std::min(kTableWidth, others));
  for (const auto& row : rows) {
    if (row.front().size() <= limit) {
      widths.front() = std::max(widths.front(), row.front().size());
    }
  }
  return widths;
}

std::string print_rows(const Rows& rows) {
  const std::vector<size_t> widths = column_widths(rows);
  std::string text;
  for (const auto& row : rows) {
    std::string line;
    size_t end = 0;  // of the column
    for (size_t column = 0; column < row.size(); ++column) {
      if (line.size() > end) {
        text.append(line).append("\n");
        line.clear();
      }
      line.resize(end, ' ');
      line.append(column == 0 ? "" : std::string(kColumnGap, ' ')).append(row[column]);
      end += widths[column] + (column == 0 ? 0 : kColumnGap);
    }
    text.append(line).append("\n");
  }
  return text;
}

}  // namespace

std::string print_answer(const ly_ctx* context, const lyd_node* answer, LYD_FORMAT format) {
  char* printed = nullptr;
  if (lyd_print_mem(&printed, answer, format, LYD_PRINT_WITHSIBLINGS) != LY_SUCCESS) {
    throw Refusal(last_complaint(context, "the answer"));
  }
  const std::unique_ptr<char, decltype(&std::free)> owner(printed, &std::free);
  return printed == nullptr ? "" : printed;
}

std::string print_table(const ly_ctx* context, const lyd_node* answer) {
  std::string text;
  for (const lyd_node* leaf = lyd_child(find_child(answer, "config")); leaf != nullptr; leaf = leaf->next) {
    text.append(leaf->schema->name).append(": ").append(lyd_get_value(leaf)).append("\n");
  }
  return text + print_rows(make_rows(context, find_child(answer, "interfaces")));
}

}  // namespace oclacp::host
