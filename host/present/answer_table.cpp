#include "host/present/answer_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/base/printable_text.h"
#include "host/yang/data_nodes.h"

namespace oclacp::host {
namespace {

using Align = TextTable::Align;
using Cell = TextTable::Cell;
using Leaves = std::vector<const lysc_node*>;

// A leaf with the heading that its column has.
struct Heading {
  std::string_view leaf;
  const char* text;
};

constexpr std::array kStateHeadings = {Heading{"activity", "activity"},    Heading{"timeout", "timeout"},
                                       Heading{"synchronization", "sync"}, Heading{"aggregatable", "aggr"},
                                       Heading{"collecting", "coll"},      Heading{"distributing", "dist"}};
constexpr std::array kCounterHeadings = {Heading{"lacp-in-pkts", "in"},
                                         Heading{"lacp-out-pkts", "out"},
                                         Heading{"lacp-rx-errors", "rx-err"},
                                         Heading{"lacp-tx-errors", "tx-err"},
                                         Heading{"lacp-unknown-errors", "unk-err"},
                                         Heading{"lacp-errors", "errors"},
                                         Heading{"lacp-timeout-transitions", "timeouts"}};

// One end of a member's link, by the leaves that tell it.
struct LinkEnd {
  const char* name;
  std::string_view system;
  std::string_view key;
  std::string_view port;
};
constexpr std::array kLinkEnds = {LinkEnd{"actor", "system-id", "oper-key", "port-num"},
                                  LinkEnd{"partner", "partner-id", "partner-key", "partner-port-num"}};

const char* value_of(AnswerNode above, std::string_view leaf) {
  const AnswerNode found = above.child(leaf);
  return found ? found.value().data() : nullptr;
}

std::string shown(const char* value) {
  return value == nullptr ? "-" : value;
}

std::optional<uint64_t> number_of(const char* value) {
  const std::string_view text = value == nullptr ? "" : value;
  uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

Leaves leaves_of(const lysc_node* container) {
  Leaves leaves;
  for (const lysc_node* child = lysc_node_child(container); child != nullptr; child = child->next) {
    if (child->nodetype == LYS_LEAF) {
      leaves.push_back(child);
    }
  }
  return leaves;
}

template <typename Visit>
void visit_entries(AnswerNode list_parent, const Visit& visit) {
  for (AnswerNode entry = list_parent.first_child(); entry; entry = entry.next()) {
    visit(entry);
  }
}

// ---- Configuration alone

// The settings of an interface beyond its name.
Leaves setting_leaves(const ly_ctx* context) {
  const lysc_node* list = lys_find_path(context, nullptr, "/openconfig-lacp:lacp/interfaces/interface", 0);
  Leaves leaves = leaves_of(lys_find_path(context, list, "config", 0));
  std::erase_if(leaves,
                [&](const lysc_node* leaf) { return std::string_view(leaf->name) == lysc_node_child(list)->name; });
  return leaves;
}

std::string settings_summary(const ly_ctx* context, AnswerNode answer, const TableLayout& layout) {
  std::string text;
  for (AnswerNode leaf = answer.child("config").first_child(); leaf; leaf = leaf.next()) {
    text.append(leaf.schema()->name).append(": ").append(printable(leaf.value())).append("\n");
  }
  std::vector<TextTable::Column> columns = {{"interface"}};
  const Leaves leaves = setting_leaves(context);
  for (const lysc_node* leaf : leaves) {
    columns.push_back({leaf->name});
  }
  TextTable table(std::move(columns));
  visit_entries(answer.child("interfaces"), [&](AnswerNode entry) {
    std::vector<Cell> row = {{std::string(entry.first_child().value())}};
    for (const lysc_node* leaf : leaves) {
      row.push_back({shown(value_of(entry.child("config"), leaf->name))});
    }
    table.add(std::move(row));
  });
  return text + table.text(layout);
}

// ---- What is configured beside what is in use

// The leaves that `config` and `state` below a node hold, in the order of their schemas, beside the key.
std::vector<std::string_view> held_settings(AnswerNode node) {
  std::vector<std::string_view> names;
  const char* key = node.schema()->nodetype == LYS_LIST ? node.first_child().schema()->name : "";
  for (const char* side : {"config", "state"}) {
    for (AnswerNode leaf = node.child(side).first_child(); leaf; leaf = leaf.next()) {
      const std::string_view name = leaf.schema()->name;
      if (leaf.schema()->nodetype == LYS_LEAF && name != key &&
          std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(name);
      }
    }
  }
  return names;
}

std::string settings_table(const char* title, AnswerNode node, const TableLayout& layout) {
  const std::vector<std::string_view> names = held_settings(node);
  if (names.empty() && node.schema()->nodetype != LYS_LIST) {
    return "";
  }
  std::vector<TextTable::Column> columns = {{printable(title)}};
  for (const std::string_view name : names) {
    columns.push_back({std::string(name)});
  }
  TextTable table(std::move(columns));
  for (const auto& [side, label] : {std::pair("config", "configured"), std::pair("state", "in use")}) {
    AnswerNode container = node.child(side);
    if (!container || names.empty()) {
      continue;
    }
    std::vector<Cell> row = {{label}};
    for (const std::string_view name : names) {
      row.push_back({shown(value_of(container, name))});
    }
    table.add(std::move(row));
  }
  return table.text(layout);
}

// ---- Members

AnswerNode state_of(AnswerNode member) {
  return member.child("state");
}

AnswerNode counters_of(AnswerNode member) {
  return state_of(member).child("counters");
}

Cell state_cell(const char* value) {
  const std::string_view text = value == nullptr ? "-" : value;
  if (text == "true" || text == "IN_SYNC") {
    return {text == "true" ? "yes" : "IN_SYNC", CellStyle::kGood};
  }
  if (text == "false" || text == "OUT_SYNC") {
    return {text == "false" ? "no" : "OUT_SYNC", CellStyle::kBad};
  }
  return {std::string(text)};
}

// A time in nanoseconds since 1970 as a date; anything that is none as it is.
std::string time_text(const char* value) {
  const std::optional<uint64_t> nanoseconds = number_of(value);
  const auto seconds = static_cast<std::time_t>(nanoseconds.value_or(0) / 1'000'000'000);
  std::tm broken_down{};
  std::array<char, sizeof "2026-01-01 00:00:00Z"> text{};
  if (!nanoseconds || gmtime_r(&seconds, &broken_down) == nullptr ||
      std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%SZ", &broken_down) == 0) {
    return shown(value);
  }
  return text.data();
}

// A bundle's members in tables, each of which shows those that hold something of it.
class MemberTables {
 public:
  MemberTables(AnswerNode members, const TableLayout& layout) : layout_(layout) {
    layout_.indent += 2;
    visit_entries(members, [this](AnswerNode member) { members_.push_back(member); });
  }

  [[nodiscard]] std::string state() const {
    std::vector<TextTable::Column> columns = {{"member"}};
    for (const Heading& heading : kStateHeadings) {
      columns.push_back({heading.text});
    }
    columns.push_back({"last-change"});
    TextTable table(std::move(columns));
    return table_of(table, state_of, [](AnswerNode state) {
      std::vector<Cell> cells;
      cells.reserve(kStateHeadings.size() + 1);
      for (const Heading& heading : kStateHeadings) {
        cells.push_back(state_cell(value_of(state, heading.leaf)));
      }
      cells.push_back({time_text(value_of(state, "last-change"))});
      return cells;
    });
  }

  [[nodiscard]] std::string link_ends() const {
    TextTable table({{"member"}, {"end"}, {"system-id"}, {"key", Align::kRight}, {"port", Align::kRight}});
    for (AnswerNode member : members_) {
      for (const LinkEnd& end : kLinkEnds) {
        const bool is_first = &end == kLinkEnds.data();
        AnswerNode state = state_of(member);
        table.add({{is_first ? name_of(member) : ""},
                   {end.name},
                   {shown(value_of(state, end.system))},
                   {shown(value_of(state, end.key))},
                   {shown(value_of(state, end.port))}});
      }
    }
    return text_of(table, 2);
  }

  [[nodiscard]] std::string counters() const {
    TextTable table(counter_columns("member"));
    return table_of(table, counters_of, [](AnswerNode counters) {
      std::vector<Cell> cells;
      for (const Heading& heading : kCounterHeadings) {
        const char* value = value_of(counters, heading.leaf);
        const bool is_error = heading.leaf.ends_with("errors") && number_of(value).value_or(0) != 0;
        cells.push_back({shown(value), is_error ? CellStyle::kBad : CellStyle::kPlain});
      }
      return cells;
    });
  }

  // What the counters gained per second since they were those of `earlier`, by member.
  [[nodiscard]] std::string rates(const std::unordered_map<std::string, AnswerNode>& earlier, double seconds) const {
    TextTable table(counter_columns("per second"));
    for (AnswerNode member : members_) {
      const auto found = earlier.find(name_of(member));
      std::vector<Cell> row = {{name_of(member)}};
      for (const Heading& heading : kCounterHeadings) {
        row.push_back({rate_text(value_of(counters_of(member), heading.leaf),
                                 found == earlier.end() ? nullptr : value_of(counters_of(found->second), heading.leaf),
                                 seconds)});
      }
      table.add(std::move(row));
    }
    return text_of(table, 1, "");
  }

  static std::string name_of(AnswerNode member) { return std::string(member.first_child().value()); }

 private:
  static std::vector<TextTable::Column> counter_columns(const char* title) {
    std::vector<TextTable::Column> columns = {{title}};
    for (const Heading& heading : kCounterHeadings) {
      columns.push_back({heading.text, Align::kRight});
    }
    return columns;
  }

  // Nothing for a counter that is not there. One that was set back, or was not there before, has no rate.
  static std::string rate_text(const char* now, const char* before, double seconds) {
    const std::optional<uint64_t> last = number_of(now);
    const std::optional<uint64_t> first = number_of(before);
    if (!last) {
      return "";
    }
    if (!first || *last < *first) {
      return "-";
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", static_cast<double>(*last - *first) / seconds);
    return text.data();
  }

  // A row for each member, of what its container holds.
  template <typename Container, typename Cells>
  std::string table_of(TextTable& table, const Container& container_of, const Cells& cells_of) const {
    for (AnswerNode member : members_) {
      std::vector<Cell> row = cells_of(container_of(member));
      row.insert(row.begin(), Cell{name_of(member)});
      table.add(std::move(row));
    }
    return text_of(table, 1);
  }

  // Without columns that show `nothing` alone; empty when none is left beside `titles`, which say what a row is about.
  std::string text_of(TextTable& table, size_t titles, const char* nothing = "-") const {
    return table.drop_columns_showing(nothing) > titles ? "\n" + table.text(layout_) : "";
  }

  TableLayout layout_;
  std::vector<AnswerNode> members_;
};

// The members of an earlier answer, by the interfaces of their bundles and their own.
using Earlier = std::unordered_map<std::string, std::unordered_map<std::string, AnswerNode>>;

Earlier members_by_name(AnswerNode answer) {
  Earlier members;
  visit_entries(answer.child("interfaces"), [&](AnswerNode entry) {
    auto& of_entry = members[std::string(entry.first_child().value())];
    visit_entries(entry.child("members"),
                  [&](AnswerNode member) { of_entry.emplace(MemberTables::name_of(member), member); });
  });
  return members;
}

std::string state_tables(AnswerNode answer, const TableLayout& layout, const EarlierAnswer* earlier) {
  std::string text = settings_table("LACP", answer, layout);
  Earlier before = earlier == nullptr ? Earlier() : members_by_name(earlier->top);
  visit_entries(answer.child("interfaces"), [&](AnswerNode entry) {
    const char* name = entry.first_child().value().data();
    text.append(text.empty() ? "" : "\n").append(settings_table(name, entry, layout));
    const MemberTables members(entry.child("members"), layout);
    text.append(members.state()).append(members.link_ends()).append(members.counters());
    if (earlier != nullptr) {
      text.append(members.rates(before[name], earlier->seconds));
    }
  });
  return text;
}

bool has_state(AnswerNode answer) {
  bool found = static_cast<bool>(answer.child("state"));
  visit_entries(answer.child("interfaces"),
                [&](AnswerNode entry) { found |= entry.child("state") || entry.child("members"); });
  return found;
}

}  // namespace

std::string answer_table(const ly_ctx* context, AnswerNode answer, const TableLayout& layout,
                         const EarlierAnswer* earlier) {
  return has_state(answer) ? state_tables(answer, layout, earlier) : settings_summary(context, answer, layout);
}

}  // namespace oclacp::host
