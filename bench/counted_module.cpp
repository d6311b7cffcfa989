#include "counted_module.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>
#include <vector>

#include "counting_platform.h"
#include "oclacp/openconfig_lacp.h"
#include "yfw/context.h"
#include "yfw/datatree.h"

namespace bench {
namespace {

constexpr char kNamespace[] = "http://openconfig.net/yang/lacp";

yfw_datatree node(const char* tag, const char* value = nullptr) {
  yfw_datatree node{};
  node.tag = tag;
  node.value = value;
  node.ns = kNamespace;
  if (value != nullptr) node.flags = YFW_FLAG_VALUE;
  return node;
}

template <typename Children>
void give(yfw_datatree& parent, Children& children) {
  parent.children = children.data();
  parent.child_count = static_cast<unsigned int>(children.size());
  parent.flags |= YFW_FLAG_SUBTREE;
  for (yfw_datatree& child : children) child.framework = &parent;
}

}  // namespace

struct CountedModule::Parts {
  yfw_request_descriptor descriptor{};
  yfw_request_state state{};
  yfw_map_ctx_record context{};
  yfw_datatree output{};

  std::deque<std::string> names;
  yfw_datatree lacp = node("lacp");
  std::array<yfw_datatree, 1> interfaces{node("interfaces")};
  std::vector<yfw_datatree> entries;
  std::deque<std::array<yfw_datatree, 2>> entry_children;
  std::deque<std::array<yfw_datatree, 5>> config_children;

  void name_interfaces(std::size_t count) {
    for (std::size_t i = 1; i <= count; ++i) names.push_back("Bundle-Ether" + std::to_string(i));
  }

  void create_each() {
    entries.assign(names.size(), node("interface"));
    give(lacp, interfaces);
    give(interfaces[0], entries);
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const char* const name = names[i].c_str();
      auto& children = entry_children.emplace_back(std::array{node("name", name), node("config")});
      auto& config = config_children.emplace_back(
          std::array{node("name", name), node("interval", "FAST"), node("lacp-mode", "ACTIVE"),
                     node("system-id-mac", "00:11:22:33:44:55"), node("system-priority", "100")});
      give(entries[i], children);
      give(children[1], config);
    }
  }
};

CountedModule::CountedModule(Request request, std::size_t interfaces) : parts_(std::make_unique<Parts>()) {
  parts_->descriptor.operation = YFW_REQUEST_EDIT;
  parts_->state.descriptor = &parts_->descriptor;
  parts_->context.request = &parts_->state;
  parts_->name_interfaces(interfaces);
  CountingPlatform& platform = counting_platform();
  platform.store_items.clear();
  if (request == Request::kCreate) {
    parts_->create_each();
  } else {
    for (const std::string& name : parts_->names) platform.store_items.push_back(name + "/lacp/");
  }
}

CountedModule::~CountedModule() = default;

void CountedModule::walk() {
  CountingPlatform& platform = counting_platform();
  platform.calls = 0;
  platform.additions = 0;
  // An expanded delete leaves the working operation on the node.
  const bool deletes = parts_->lacp.child_count == 0;
  parts_->lacp.operation = deletes ? YFW_OPERATION_DELETE : YFW_OPERATION_NONE;
  const cerrno status = ymap_oq_oclacp_openconfiglacp_lvla_lacp(&parts_->context, &parts_->lacp, &parts_->output);
  if (status == YFW_OK) return;
  std::fprintf(stderr, "the module refuses the request: 0x%08x\n", status);
  std::abort();
}

std::size_t CountedModule::calls() const {
  return counting_platform().calls;
}

std::size_t CountedModule::additions() const {
  return counting_platform().additions;
}

}  // namespace bench
