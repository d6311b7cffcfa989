#include "server/datastores/leaf_table.h"

#include <algorithm>
#include <string_view>

namespace oclacp::server {
namespace {

// A key's value in quotes of the kind that it does not hold itself, as libyang writes it.
void append_quoted(std::string& path, std::string_view value) {
  const char quote = value.find('\'') == std::string_view::npos ? '\'' : '"';
  path.append(1, quote).append(value).append(1, quote);
}

void append_step(std::string& path, const host::AnswerNode& node, const lysc_node* above) {
  const lysc_node* schema = node.schema();
  path.append("/");
  if (above == nullptr || above->module != schema->module) {
    path.append(schema->module->name).append(":");
  }
  path.append(schema->name);
  if (schema->nodetype == LYS_LEAFLIST) {
    path.append("[.=");
    append_quoted(path, node.value());
    path.append("]");
  }
  if (schema->nodetype != LYS_LIST) {
    return;
  }
  for (const lysc_node* key = lysc_node_child(schema); key != nullptr && lysc_is_key(key); key = key->next) {
    path.append("[").append(key->name).append("=");
    append_quoted(path, node.child(key->name).value());
    path.append("]");
  }
}

void collect(host::AnswerNode node, const lysc_node* above, std::string& path, LeafTable& leaves) {
  for (; node; node = node.next()) {
    const size_t length = path.size();
    append_step(path, node, above);
    if ((node.schema()->nodetype & LYD_NODE_TERM) != 0) {
      leaves.push_back({path, std::string(node.value())});
    } else {
      collect(node.first_child(), node.schema(), path, leaves);
    }
    path.resize(length);
  }
}

}  // namespace

LeafTable leaves_of(const host::AnswerData& answer) {
  LeafTable leaves;
  if (answer.is_empty()) {
    return leaves;
  }
  std::string path;
  collect(answer.top(), nullptr, path, leaves);
  std::sort(leaves.begin(), leaves.end(), [](const Leaf& one, const Leaf& other) { return one.path < other.path; });
  return leaves;
}

Changes find_changes(const LeafTable& before, const LeafTable& after) {
  Changes changes;
  auto old = before.begin();
  auto now = after.begin();
  while (old != before.end() || now != after.end()) {
    const int order = old == before.end() ? 1 : now == after.end() ? -1 : old->path.compare(now->path);
    if (order < 0) {
      changes.push_back({ChangeKind::kDeleted, true, old->path, old->value, ""});
      ++old;
    } else if (order > 0) {
      changes.push_back({ChangeKind::kAdded, true, now->path, "", now->value});
      ++now;
    } else {
      if (old->value != now->value) {
        changes.push_back({ChangeKind::kChanged, true, now->path, old->value, now->value});
      }
      ++old;
      ++now;
    }
  }
  return changes;
}

}  // namespace oclacp::server
