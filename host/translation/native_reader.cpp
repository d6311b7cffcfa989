#include "host/translation/native_reader.h"

#include "host/base/error.h"
#include "host/trees/node.h"

namespace oclacp::host {
namespace {

// How many list entries are walked at a time.
constexpr size_t kEntriesInPart = 256;

// The first list on the way down, where the request names entries of one.
const yfw_datatree* find_parent_of_list(const yfw_datatree* node) {
  for (unsigned index = 0; index < node->child_count; ++index) {
    const yfw_datatree* child = &node->children[index];
    const uint16_t kind = info_of(child).schema->nodetype;
    if (kind == LYS_LIST) {
      return node;
    }
    if (const yfw_datatree* found = kind == LYS_CONTAINER ? find_parent_of_list(child) : nullptr; found != nullptr) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

EntryFilter make_entry_filter(const yfw_datatree* request) {
  EntryFilter wanted;
  const yfw_datatree* above = find_parent_of_list(request);
  for (unsigned index = 0; above != nullptr && index < above->child_count; ++index) {
    const yfw_datatree& entry = above->children[index];
    const yfw_datatree* key = entry.child_count == 0 ? nullptr : &entry.children[0];
    if (key == nullptr || !lysc_is_key(info_of(key).schema) || requested_value(key) == nullptr) {
      return {};
    }
    wanted.list = info_of(&entry).schema;
    wanted.keys.insert(requested_value(key));
  }
  return wanted;
}

// Whether a native list entry maps to entries of the wanted list, or to leaves of one that it does not name, and to
// none that is wanted. Found by a walk of its keys alone.
bool NativeReader::is_unwanted(const NativeParts& parts, size_t branch, yfw_map_walker walker) const {
  if (parts.branches()[branch].data->schema->nodetype != LYS_LIST) {
    return false;
  }
  NativeTree tree = parts.keys_of(branch);
  OutputLog output(context_.index, false);
  if (walk_native(walker, tree.top(), operation_, output, {})) {
    return false;
  }
  bool comes_to_others = false;
  for (const OutputLog::Entry& entry : output.entries()) {
    if (entry.list == wanted_->list) {
      if (entry.has_keys() && wanted_->keys.count(entry.keys.front()) != 0) {
        return false;
      }
      comes_to_others = true;
    }
  }
  return comes_to_others;
}

// Nothing when it went well.
std::optional<Error> NativeReader::walk(yfw_map_walker walker, const yfw_datatree* top) {
  OutputLog output(context_.index, false);
  if (std::optional<Error> failure = walk_native(walker, top, operation_, output, sinks_)) {
    return failure;
  }
  try {
    answer_.add(output);
  } catch (const Error& error) {
    return error;
  }
  return std::nullopt;
}

yfw_map_walker NativeReader::walker_of(const lysc_node* top) const {
  return module_->native_walker(top->module->ns, top->name);
}

// Whether to go on.
bool NativeReader::read_parts(const NativeParts& parts, yfw_map_walker walker) {
  const bool stops = on_failure_ == OnFailure::kStop;
  const size_t branches_in_part = stops ? kEntriesInPart : 1;
  for (size_t first = 0; first == 0 || first < parts.branches().size(); first += branches_in_part) {
    NativeTree tree = parts.part(first, branches_in_part);
    if (std::optional<Error> failure = walk(walker, tree.top())) {
      failures_.push_back(std::move(*failure));
      if (stops) {
        return false;
      }
    }
  }
  return true;
}

// Which branches are not left out.
std::vector<bool> NativeReader::find_wanted(const NativeParts& parts, yfw_map_walker walker) const {
  std::vector<bool> is_wanted(parts.branches().size());
  for (size_t branch = 0; branch < is_wanted.size(); ++branch) {
    is_wanted[branch] = !is_unwanted(parts, branch, walker);
  }
  return is_wanted;
}

void NativeReader::read(const lyd_node* data, const NativeSelection::Node* selected) {
  const yfw_map_walker walker = data == nullptr ? nullptr : walker_of(data->schema);
  if (walker == nullptr) {
    return;
  }
  NativeParts parts(data, selected);
  if (wanted_->list != nullptr && parts.branches().size() > 1) {
    const std::vector<bool> is_wanted = find_wanted(parts, walker);
    parts.drop_if([&](size_t branch) { return !is_wanted[branch]; });
  }
  if (!read_parts(parts, walker)) {
    throw Error(failures_.front());
  }
}

bool NativeReader::read_in_pieces(const NativeDocument& document, const lysc_node* top,
                                  const NativeSelection::Node* selected) {
  const yfw_map_walker walker = walker_of(top);
  bool goes_on = true;
  NativeDocument::Visitor visitor;
  if (wanted_->list != nullptr) {
    visitor.choose = [&](const lyd_node* keys) { return find_wanted(NativeParts(keys, nullptr), walker); };
  }
  visitor.visit = [&](const lyd_node* piece) {
    goes_on = goes_on && (walker == nullptr || read_parts(NativeParts(piece, selected), walker));
  };
  return document.visit(top, visitor) && goes_on;
}

void NativeReader::finish(Answer& answer) {
  answer.dropped_leaves = answer_.dropped_leaves();
  answer.failures = std::move(failures_);
  answer.valueless = answer_.valueless();
  answer.data = answer_.take();
}

}  // namespace oclacp::host
