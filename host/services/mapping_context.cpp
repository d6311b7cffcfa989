#include "host/services/mapping_context.h"

#include <cstdlib>
#include <cstring>
#include <utility>

#include "host/trees/node.h"
#include "host/trees/request_tree.h"
#include "host/yang/data_nodes.h"

namespace oclacp::host {
namespace {

// Takes the path of `node` off the front of `path`; false when it does not stand there.
bool take_path_of(const yfw_datatree* node, std::string_view& path) {
  const yfw_datatree* above = info_of(node).parent;
  if (above != nullptr && !take_path_of(above, path)) {
    return false;
  }
  const std::string_view tag = node->tag;
  if (path.size() <= tag.size() || path.front() != '/' || path.compare(1, tag.size(), tag) != 0 ||
      (path.size() > tag.size() + 1 && path[tag.size() + 1] != '/')) {
    return false;
  }
  path.remove_prefix(tag.size() + 1);
  return true;
}

}  // namespace

MappingContext::MappingContext(uint32_t operation, OutputLog& output) : yfw_map_ctx_record{}, output_(output) {
  descriptor_.operation = operation;
  state_.descriptor = &descriptor_;
  request = &state_;
  output_root_.framework = &output;
}

MappingContext::~MappingContext() {
  std::free(state_.error_tag);  // from yfw_strdup()
}

bool MappingContext::is_edit() const {
  return descriptor_.operation != YFW_REQUEST_READ_CONFIG && descriptor_.operation != YFW_REQUEST_READ_STATE;
}

void MappingContext::enter(const yfw_datatree* node) {
  last_entered_ = node;
  positions_.push_back({node, output_.list_depth()});
}

void MappingContext::leave() {
  if (!positions_.empty()) {
    output_.leave_lists(positions_.back().list_depth);
    positions_.pop_back();
  }
}

void MappingContext::enter_list(std::string_view list_path) {
  output_.enter_list(list_path);
}

const char* MappingContext::find_leaf(std::string_view path, std::string_view leaf) const {
  for (auto position = positions_.rbegin(); position != positions_.rend(); ++position) {
    std::string_view rest = path;
    if (!take_path_of(position->node, rest)) {
      continue;
    }
    const lyd_node* node = info_of(position->node).data;
    while (node != nullptr && !rest.empty()) {
      rest.remove_prefix(1);
      const std::string_view name = rest.substr(0, rest.find('/'));
      rest.remove_prefix(name.size());
      node = child_named(node, name);
    }
    const lyd_node* found = node == nullptr ? nullptr : child_named(node, leaf);
    return found == nullptr ? nullptr : lyd_get_value(found);
  }
  return nullptr;
}

void MappingContext::mark_error() {
  if (state_.whole_subtree == 0 && marked_node_ == nullptr) {
    marked_node_ = position();
  }
}

void MappingContext::refuse(const yfw_datatree* node, ErrorKind kind, std::string reason) {
  if (!refused_) {
    refused_ = Refused{node, kind, std::move(reason)};
  }
}

}  // namespace oclacp::host
