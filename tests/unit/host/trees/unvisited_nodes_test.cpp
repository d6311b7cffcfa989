#include "host/trees/unvisited_nodes.h"

#include "host/trees/node.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

class UnvisitedNodesTest : public testing::Test {
 protected:
  void enter(std::initializer_list<const char*> tags) { find(tree_, tags)->hierarchy_flags |= YFW_HIERARCHY_ENTERED; }
  std::string ignored() {
    const yfw_datatree* node = find_unvisited_node(tree_);
    return node == nullptr ? "none" : node_path(node);
  }

  RequestTree tree_ = parse(interface(R"("name": "a", "config": {"name": "a", "interval": "FAST"})"));
};

TEST_F(UnvisitedNodesTest, KeyNotEntered_IsNotReported) {
  enter({});
  enter({"interfaces"});
  enter({"interfaces", "interface"});
  enter({"interfaces", "interface", "config"});
  enter({"interfaces", "interface", "config", "name"});
  enter({"interfaces", "interface", "config", "interval"});
  EXPECT_EQ(ignored(), "none");
}

TEST_F(UnvisitedNodesTest, NodesNotEntered_TopmostIsFound) {
  enter({});
  enter({"interfaces"});
  enter({"interfaces", "interface"});
  EXPECT_EQ(ignored(), "/openconfig-lacp:lacp/interfaces/interface[name='a']/config");
  enter({"interfaces", "interface", "config"});
  enter({"interfaces", "interface", "config", "interval"});
  EXPECT_EQ(ignored(), "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/name");
}

}  // namespace
}  // namespace oclacp::host
