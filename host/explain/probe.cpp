#include "host/explain/probe.h"

#include <algorithm>
#include <cstring>

#include "host/base/error.h"
#include "host/explain/sample_values.h"
#include "host/services/current_device.h"
#include "host/translation/run_walker.h"
#include "host/trees/answer_builder.h"
#include "host/trees/native_tree.h"
#include "host/trees/node.h"
#include "host/trees/output_log.h"
#include "host/trees/path_request.h"
#include "host/yang/libyang_error.h"
#include "host/yang/path_text.h"
#include "host/yang/schema_nodes.h"

namespace oclacp::host {
namespace {

constexpr const char* kSampleConfiguration =
    "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/Talvo-Brin-QD-bundlemgr-cfg:lacp/mode";

// The class of configuration that is in force has a fixed name; no other key of the mapped models has.
std::string sample_key(const lysc_node* key) {
  if (std::strcmp(key->name, "active") == 0) {
    return "act";
  }
  const SampleValues samples = sample_values(key);
  return samples.values.empty() ? "" : samples.values.front();
}

// The path of an instance: the sample entry of each list, where a key that is asked about itself has its own value.
std::string instance_path(const lysc_node* node, const lysc_node* asked, const std::string& value) {
  std::string path = node->parent == nullptr ? "" : instance_path(node->parent, asked, value);
  if ((node->nodetype & (LYS_CHOICE | LYS_CASE)) != 0 || lysc_is_key(node)) {
    return path;
  }
  append_step(path, *node, node->parent == nullptr ? nullptr : node->parent->module);
  if (node->nodetype != LYS_LIST) {
    return path;
  }
  for (const lysc_node* key : data_children(node)) {
    if (lysc_is_key(key)) {
      append_predicate(path, key->name, key == asked ? value : sample_key(key));
    }
  }
  return path;
}

std::string instance_path(const lysc_node* node, const std::string& value) {
  return instance_path(node, node, value);
}

// What is after the node's path.
std::string reason_of(const std::string& refusal) {
  const size_t colon = refusal.find(": ");
  return colon == std::string::npos ? refusal : refusal.substr(colon + 2);
}

ProbeResult refused(const std::string& refusal) {
  return {{}, {}, reason_of(refusal)};
}

void add_addition(ProbeResult& result, const OutputLog::Addition& addition) {
  if (addition.target->is_list()) {
    result.lists.push_back(addition.target->schema);
    return;
  }
  if (addition.target->is_leaf()) {
    result.leaves.push_back(
        {addition.target->schema, addition.has_value ? std::optional<std::string>(addition.value) : std::nullopt});
  }
}

// Whether what an edit adds for `source` is added for the leaf that was asked about. A key stands for its entry.
bool is_about(const lysc_node* leaf, const yfw_datatree* source) {
  const lysc_node* schema = source == nullptr ? nullptr : info_of(source).schema;
  return schema == leaf || (lysc_is_key(leaf) && schema == leaf->parent);
}

bool has_addition(const OutputLog& log, const lysc_node* schema) {
  return std::any_of(log.additions().begin(), log.additions().end(),
                     [&](const OutputLog::Addition& addition) { return addition.target->schema == schema; });
}

// The answer has a leaf more than the module added: the one that a key refers to.
void add_leaves(ProbeResult& result, const OutputLog& log, AnswerNode node) {
  for (; node; node = node.next()) {
    if (is_leaf(node.schema()) && has_addition(log, node.schema())) {
      result.leaves.push_back({node.schema(), std::string(node.value())});
    }
    add_leaves(result, log, node.first_child());
  }
}

TreePtr make_tree(const ly_ctx* context, const std::string& path, const char* value) {
  lyd_node* top = nullptr;
  if (lyd_new_path(nullptr, context, path.c_str(), value, 0, &top) != LY_SUCCESS) {
    throw libyang_error(context, path);
  }
  return TreePtr(top);
}

TreePtr sample_configuration(const ly_ctx* context) {
  return make_tree(context, instance_path(lys_find_path(context, nullptr, kSampleConfiguration, 0), ""), "active");
}

// An instance of a native node.
TreePtr native_data(const ly_ctx* context, const lysc_node* node, const std::string& value) {
  const bool has_value = is_leaf(node) && !lysc_is_key(node);
  return make_tree(context, instance_path(node, value), has_value ? value.c_str() : nullptr);
}

}  // namespace

std::optional<std::string> ProbeResult::value_of(const lysc_node* leaf) const {
  const auto found = std::find_if(leaves.rbegin(), leaves.rend(), [&](const Leaf& one) { return one.schema == leaf; });
  return found == leaves.rend() ? std::nullopt : found->value;
}

Probe::Probe(LoadedMapping& mapping)
    : mapping_(mapping),
      configuration_(sample_configuration(mapping.schemas.native())),
      device_(configuration_.get()) {}

ProbeResult Probe::edit(const lysc_node* leaf, const std::string& value) {
  std::string path = instance_path(leaf, value);
  if (!lysc_is_key(leaf)) {
    append_predicate(path, ".", value);
  }
  return run_request(path, YFW_REQUEST_EDIT, leaf);
}

ProbeResult Probe::read(const lysc_node* node) {
  return run_request(schema_path(node), YFW_REQUEST_READ_STATE, nullptr);
}

ProbeResult Probe::run_request(const std::string& path, uint32_t operation, const lysc_node* about) {
  const CurrentDevice installed(device_);
  OutputLog log(mapping_.native.index, operation == YFW_REQUEST_EDIT);
  RequestTree request = parse_paths(mapping_.schemas.request(), {path});
  try {
    walk_request(mapping_.request_walker(request), request, operation, log, {});
  } catch (const Error& error) {
    return refused(error.what());
  }
  ProbeResult result;
  for (const OutputLog::Addition& addition : log.additions()) {
    if (about == nullptr || is_about(about, addition.source)) {
      add_addition(result, addition);
    }
  }
  return result;
}

ProbeResult Probe::native(const lysc_node* node, const std::string& value) {
  return run_native(native_data(mapping_.schemas.native(), node, value).get(), device_);
}

ProbeResult Probe::native_alone(const lysc_node* node, const std::string& value) {
  const TreePtr data = native_data(mapping_.schemas.native(), node, value);
  return run_native(data.get(), EmptySnapshot(data.get()));
}

ProbeResult Probe::run_native(const lyd_node* data, const DeviceSnapshot& device) {
  const lysc_node* top = data->schema;
  yfw_map_walker walker = nullptr;
  for (const MappingModule& module : mapping_.modules) {
    walker = walker == nullptr ? module.native_walker(top->module->ns, top->name) : walker;
  }
  if (walker == nullptr) {
    return {};
  }
  const CurrentDevice installed(device);
  OutputLog log(mapping_.openconfig.index, false);
  NativeTree tree(data, nullptr);
  if (const auto failure = walk_native(walker, tree.top(), YFW_REQUEST_READ_STATE, log, {}); failure) {
    return refused(failure->what());
  }
  ProbeResult result;
  AnswerBuilder answer(mapping_.openconfig);
  try {
    answer.add(log);
  } catch (const Error& error) {
    return refused(error.what());
  }
  for (const OutputLog::Entry& entry : log.entries()) {
    result.lists.push_back(entry.list);
  }
  const AnswerData made = answer.take();
  add_leaves(result, log, made.top());
  return result;
}

}  // namespace oclacp::host
