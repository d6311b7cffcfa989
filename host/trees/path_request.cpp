#include "host/trees/path_request.h"

#include <algorithm>
#include <memory>

#include "host/base/error.h"
#include "host/trees/node.h"
#include "host/yang/libyang_error.h"
#include "host/yang/path_parser.h"
#include "host/yang/schema_nodes.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

// Whether a node is inside of another.
bool is_inside(const lyd_node* node, const lyd_node* other) {
  while (node != nullptr && node != other) {
    node = lyd_parent(node);
  }
  return node != nullptr;
}

// The nodes that paths name, as libyang keeps nodes that it has not judged; the request tree does.
class PathNodes {
 public:
  explicit PathNodes(const ly_ctx* context) : context_(context) {}

  void add(const std::string& path) {
    std::vector<PathStep> steps = parse_path_steps(path);
    if (!resolve(steps)) {
      refuse_unknown(steps, path);
    }
    insert(std::move(steps), path);
  }

  // The first of the top nodes; with the places it goes.
  TreePtr take() { return std::move(top_); }

  // The nodes that paths lead to: those that they name, and those that a predicate has named and given its value.
  [[nodiscard]] std::vector<lyd_node*> ends() const {
    std::vector<lyd_node*> ends = selected_;
    collect_whole(root_, ends);
    return ends;
  }
  [[nodiscard]] const std::vector<lyd_node*>& selected() const { return selected_; }

 private:
  // A node that a step leads to.
  struct Place {
    PathStep step;
    lyd_node* node = nullptr;
    bool is_whole = false;  // named with all that is in it
    std::vector<std::unique_ptr<Place>> below;
  };

  static const std::string* own_value(const PathStep& step) {
    const auto own = std::find_if(step.predicates.begin(), step.predicates.end(),
                                  [](const auto& predicate) { return predicate.first == "."; });
    return own == step.predicates.end() ? nullptr : &own->second;
  }

  // A step may lead to a child that a predicate has named.
  static lyd_node* find_value_node(const lyd_node* above, const std::string& name) {
    lyd_node* child = above == nullptr ? nullptr : lyd_child(above);
    while (child != nullptr && (name != reinterpret_cast<lyd_node_opaq*>(child)->name.name || !has_value(child))) {
      child = child->next;
    }
    return child;
  }

  static bool has_value(const lyd_node* node) { return lyd_get_value(node)[0] != '\0'; }

  // Gives each step the name of its module. Whether the schemas have all nodes of the path.
  bool resolve(std::vector<PathStep>& steps) const {
    const lysc_node* schema = nullptr;
    bool is_known = true;
    for (PathStep& step : steps) {
      schema = is_known ? find_step(context_, schema, step) : nullptr;
      is_known = schema != nullptr;
      if (is_known) {
        step.module = schema->module->name;
      } else if (step.module.empty() && &step != &steps.front()) {
        step.module = (&step - 1)->module;
      }
    }
    return is_known;
  }

  // Throws what the request tree says to such a path.
  [[noreturn]] void refuse_unknown(std::vector<PathStep> steps, const std::string& path) const {
    if (steps.front().module.empty()) {
      throw node_error(ErrorKind::kUnknownElement, "/" + steps.front().name, "no such node");
    }
    PathNodes alone(context_);
    alone.insert(std::move(steps), path);
    const RequestTree tree(context_, alone.take());
    throw Error(ErrorKind::kInternal, "the path '" + path + "': names no node, and was read");
  }

  void insert(std::vector<PathStep> steps, const std::string& path) {
    Place* place = &root_;
    for (PathStep& step : steps) {
      const bool is_bare_end = &step == &steps.back() && step.predicates.empty();
      if (lyd_node* named = is_bare_end ? find_value_node(place->node, step.name) : nullptr; named != nullptr) {
        selected_.push_back(named);
        return;
      }
      place = descend(*place, std::move(step), path);
      if (place->is_whole) {
        return;
      }
    }
    make_whole(*place);
  }

  Place* descend(Place& above, PathStep step, const std::string& path) {
    const auto known = std::find_if(above.below.begin(), above.below.end(),
                                    [&step](const auto& place) { return place->step == step; });
    if (known != above.below.end()) {
      return known->get();
    }
    auto place = std::make_unique<Place>();
    place->node = make(above.node, step.module, step.name, own_value(step), path);
    for (const auto& [child, value] : step.predicates) {
      if (child != ".") {
        make(place->node, step.module, child, &value, path);
      }
    }
    place->step = std::move(step);
    return above.below.emplace_back(std::move(place)).get();
  }

  // What was named inside of it before makes no difference any more.
  void make_whole(Place& place) {
    place.is_whole = true;
    std::erase_if(selected_, [&place](const lyd_node* node) { return is_inside(node, place.node); });
    for (const std::unique_ptr<Place>& below : place.below) {
      lyd_free_tree(below->node);
    }
    place.below.clear();
  }

  lyd_node* make(lyd_node* above, const std::string& module, const std::string& name, const std::string* value,
                 const std::string& path) {
    lyd_node* made = nullptr;
    if (lyd_new_opaq(above, context_, name.c_str(), value == nullptr ? nullptr : value->c_str(), nullptr,
                     module.c_str(), &made) != LY_SUCCESS) {
      throw Error(ErrorKind::kBadElement, "the path '" + path + "': '" + name + "' is not the name of a node");
    }
    if (value == nullptr) {
      reinterpret_cast<lyd_node_opaq*>(made)->hints = LYD_VALHINT_EMPTY;
    }
    if (above == nullptr) {
      lyd_node* first = top_.release();
      lyd_insert_sibling(first, made, &first);
      top_.reset(first);
    }
    return made;
  }

  static void collect_whole(const Place& place, std::vector<lyd_node*>& ends) {
    if (place.is_whole) {
      ends.push_back(place.node);
    }
    for (const std::unique_ptr<Place>& below : place.below) {
      collect_whole(*below, ends);
    }
  }

  const ly_ctx* context_;
  TreePtr top_;
  Place root_;
  std::vector<lyd_node*> selected_;
};

RequestTree make_tree(const ly_ctx* context, PathNodes& nodes) {
  TreePtr data = nodes.take();
  const bool is_alone = data->next == nullptr;
  RequestTree tree(context, std::move(data));
  require_one_top(tree, is_alone);
  return tree;
}

}  // namespace

RequestTree parse_paths(const ly_ctx* context, const std::vector<std::string>& paths) {
  PathNodes nodes(context);
  for (const std::string& path : paths) {
    nodes.add(path);
  }
  RequestTree tree = make_tree(context, nodes);
  for (yfw_datatree& node : tree.nodes()) {
    if (std::find(nodes.selected().begin(), nodes.selected().end(), info_of(&node).data) != nodes.selected().end()) {
      RequestTree::select(node);
    }
  }
  return tree;
}

ParsedRequest parse_delete_paths(const ly_ctx* context, const std::vector<std::string>& paths, AbsentNode absent) {
  PathNodes nodes(context);
  for (const std::string& path : paths) {
    nodes.add(path);
  }
  const char* operation = absent == AbsentNode::kIsFine ? "remove" : "delete";
  for (lyd_node* node : nodes.ends()) {
    if (lyd_new_attr(node, operation_module(context)->name, "ietf-netconf:operation", operation, nullptr) !=
        LY_SUCCESS) {
      throw libyang_error(context, "the path '" + paths.front() + "'");
    }
  }
  RequestTree tree = make_tree(context, nodes);
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.value != nullptr && !lysc_is_key(info_of(&node).schema)) {
      throw node_error(ErrorKind::kBadElement, node_path(&node), "only list keys may be given values in a delete");
    }
  }
  return {Format::kJson, std::move(tree)};
}

}  // namespace oclacp::host
