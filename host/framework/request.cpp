#include "host/framework/request.h"

#include <cstring>
#include <utility>

#include "host/framework/request_tree.h"

namespace oclacp::host {
namespace {

bool is_list_at(const yfw_datatree* node, std::string_view path) {
  if (info_of(node).schema->nodetype != LYS_LIST) {
    return false;
  }
  // Compares from the leaf end, so that nothing is built.
  for (; node != nullptr; node = info_of(node).parent) {
    const std::string_view tag = node->tag;
    if (!path.ends_with(tag) || path.size() == tag.size() || path[path.size() - tag.size() - 1] != '/') {
      return false;
    }
    path.remove_suffix(tag.size() + 1);
  }
  return path.empty();
}

}  // namespace

Request::Request(uint32_t operation, EditScript& output) : yfw_map_ctx_record{}, output_(output) {
  descriptor_.operation = operation;
  state_.descriptor = &descriptor_;
  request = &state_;
  output_root_.framework = &output;
}

Request::~Request() {
  named_free(state_.error_tag);
}

bool Request::is_edit() const {
  return descriptor_.operation != YFW_REQUEST_READ_CONFIG && descriptor_.operation != YFW_REQUEST_READ_STATE;
}

void Request::enter(const yfw_datatree* node) {
  last_entered_ = node;
  positions_.push_back({node, output_.list_depth()});
}

void Request::leave() {
  if (!positions_.empty()) {
    output_.leave_lists(positions_.back().list_depth);
    positions_.pop_back();
  }
}

void Request::enter_list(std::string_view list_path) {
  output_.enter_list(list_path);
}

const char* Request::find_key(std::string_view path, std::string_view leaf) const {
  for (auto position = positions_.rbegin(); position != positions_.rend(); ++position) {
    if (!is_list_at(position->node, path)) {
      continue;
    }
    const lyd_node* child = lyd_child(info_of(position->node).data);
    while (child != nullptr && (child->schema == nullptr || leaf != child->schema->name)) {
      child = child->next;
    }
    return child == nullptr ? nullptr : lyd_get_value(child);
  }
  return nullptr;
}

void Request::mark_error() {
  if (state_.whole_subtree == 0 && marked_node_ == nullptr) {
    marked_node_ = position();
  }
}

void Request::refuse(const yfw_datatree* node, std::string reason) {
  if (!refused_) {
    refused_ = Refused{node, std::move(reason)};
  }
}

}  // namespace oclacp::host
