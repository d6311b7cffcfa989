// The walkers' tables: which node is dispatched to which walker, and what each walker is particular about. How a walker
// walks is tested with the engine.
#include <algorithm>
#include <regex>
#include <string>

#include "support/module.h"
#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::Inner;
using nodes::Leaf;
using support::container;
using support::interface_entry;
using support::lacp_with_interfaces;
using support::leaf;
using support::Node;
using support::Platform;
using support::Request;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// The name of the walker of a node, be it a leaf or not.
std::string walker_at(const std::string& path) {
  if (const Leaf* leaf = nodes::leaf_at(nodes::openconfig(), path)) return leaf->walker.name;
  for (const Inner& inner : nodes::openconfig().inner) {
    if (inner.path == path) return inner.walker.name;
  }
  return "no such node";
}

// The key of a list; empty for a container.
std::string key_of(const Inner& inner) {
  return inner.keys.empty() ? "" : inner.keys[0];
}

bool is_state(const std::string& path) {
  return path == "/lacp/state" || path == "/lacp/interfaces/interface/state" ||
         path == "/lacp/interfaces/interface/members" || path == "/lacp/interfaces/interface/members/member/state";
}

// A node of the request with one child; of a list, the key stands first.
Node node_with(const Inner& inner, const Node& child) {
  Node node = container(nodes::tag_of(inner.path));
  if (!inner.keys.empty() && child.tag != key_of(inner)) node.children.push_back(leaf(key_of(inner), "a"));
  node.children.push_back(child);
  return node;
}

cerrno walk(Platform& platform, const Inner& inner, Request& request) {
  return inner.walker.function(platform.ctx(), request.root(), platform.output());
}

TEST(Walkers, Child_IsDispatchedToItsWalker) {
  for (const Inner& inner : nodes::openconfig().inner) {
    for (const std::string& child : inner.children) {
      const std::string path = inner.path + "/" + child;
      SCOPED_TRACE(path);
      Platform platform;
      platform.set_operation(YFW_REQUEST_READ_STATE);
      Request request(node_with(inner, leaf(child)));
      walk(platform, inner, request);
      EXPECT_EQ(platform.traced(walker_at(path), "Start"), 1U) << walker_at(path) << " is not called";
    }
  }
}

TEST(Walkers, Tags_AreTestedInOrder) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(node_with(inner, leaf("unheard-of")));
    walk(platform, inner, request);
    std::vector<std::string> tested;
    for (const support::Call& call : platform.calls()) {
      const std::string start = "\"unheard-of\" \"";
      if (call.function != "yfw_map_do_these_match" || !call.arguments.starts_with(start)) continue;
      tested.push_back(call.arguments.substr(start.size(), call.arguments.size() - start.size() - 1));
    }
    // The scan of the keys tests every child of a list entry once more.
    if (!inner.keys.empty() && !tested.empty()) tested.erase(tested.begin());
    EXPECT_EQ(tested, inner.children);
  }
}

// Children are expanded in the order in which their tags are tested; only the state of `lacp` comes last.
std::vector<std::string> expansion_of(const Inner& inner) {
  if (inner.path == "/lacp") return {"config", "interfaces", "state"};
  return inner.children;
}

TEST(Walkers, Expansion_CallsChildrenInOrderThenTheAugmentParser) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    platform.set_operation(YFW_REQUEST_READ_STATE);
    Request request(inner.keys.empty() ? container(nodes::tag_of(inner.path))
                                       : container(nodes::tag_of(inner.path), {leaf(key_of(inner), "a")}));
    EXPECT_EQ(walk(platform, inner, request), YFW_OK);
    std::vector<std::string> expected;
    for (const std::string& child : expansion_of(inner)) {
      expected.push_back(walker_at(inner.path + "/" + child));
    }
    expected.push_back(inner.augments.name);
    std::vector<std::string> started;
    for (const support::Record& record : platform.seen().records) {
      const bool is_expected = std::find(expected.begin(), expected.end(), record.handler) != expected.end();
      if (record.text == "Start" && is_expected) started.push_back(record.handler);
    }
    EXPECT_EQ(started, expected);
    EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
  }
}

TEST(Walkers, Container_RunsItsOwnContainerHandler) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(node_with(inner, leaf("unheard-of")));
    walk(platform, inner, request);
    const bool is_container = inner.keys.empty();
    EXPECT_EQ(platform.traced(inner.handler, "Start"), 1U);
    const std::string container_handler = std::regex_replace(inner.handler, std::regex("_list_"), "_cont_");
    EXPECT_EQ(platform.traced(container_handler, "Start"), is_container ? 1U : 0U);
  }
}

TEST(Walkers, OperationalState_IsWalkedInStateReadsOnly) {
  for (const Inner& inner : nodes::openconfig().inner) {
    for (const std::string& child : inner.children) {
      const std::string path = inner.path + "/" + child;
      if (child == key_of(inner)) continue;
      SCOPED_TRACE(path);
      for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
        Platform platform;
        platform.set_operation(operation);
        Request request(node_with(inner, leaf(child)));
        const cerrno status = walk(platform, inner, request);
        const bool walked = !is_state(path) || operation == YFW_REQUEST_READ_STATE;
        EXPECT_EQ(platform.traced(walker_at(path), "Start"), walked ? 1U : 0U) << "operation " << operation;
        if (walked) continue;
        EXPECT_EQ(status, operation == YFW_REQUEST_READ_CONFIG ? YFW_OK : YFW_UNSUPPORTED_NODE);
      }
    }
  }
}

TEST(Walkers, DeleteWithSubtree_IsRefusedWhereTheTableSaysSo) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(node_with(inner, leaf("unheard-of").in("urn:other")).with(YFW_OPERATION_DELETE));
    const cerrno status = walk(platform, inner, request);
    EXPECT_EQ(platform.traced(inner.walker.name, "Delete request with subtree present"),
              inner.refuses_delete_with_subtree ? 1U : 0U);
    EXPECT_EQ(status == YFW_INVALID_ARGUMENTS, inner.refuses_delete_with_subtree);
  }
}

TEST(Walkers, ForeignChild_GoesToTheWalkersAugmentParser) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(node_with(inner, leaf("other").in("urn:other")));
    EXPECT_EQ(walk(platform, inner, request), YFW_UNKNOWN_AUGMENT);
    EXPECT_EQ(platform.traced(inner.augments.name, "Start"), 1U);
    EXPECT_EQ(platform.error_tag(), "other");
    EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
  }
}

TEST(Walkers, UnknownChildOfOwnNamespace_IsUnsupported) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(node_with(inner, leaf("unheard-of").in("http://openconfig.net/yang/lacp")));
    EXPECT_EQ(walk(platform, inner, request), YFW_UNSUPPORTED_NODE);
    EXPECT_EQ(platform.traced(inner.walker.name, "Unsupported tag is specified in the request."), 1U);
    EXPECT_EQ(platform.error_tag(), "unheard-of");
  }
}

TEST(Walkers, List_SetsAndChecksItsOwnPath) {
  for (const Inner& inner : nodes::openconfig().inner) {
    if (inner.keys.empty()) continue;
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(container(nodes::tag_of(inner.path), {leaf(key_of(inner), "a")}));
    walk(platform, inner, request);
    const std::string path = "\"" + inner.path + "\"";
    EXPECT_EQ(platform.count("yfw_map_update_current_list_node", path), 1U);
    EXPECT_EQ(platform.count("yfw_map_check_oc_leafref", path + " \"config\" \"" + key_of(inner) + "\""), 1U);
  }
}

TEST(LeafWalkers, Leaf_RunsItsLeafHandler) {
  for (const Leaf& one : nodes::openconfig().leaves) {
    SCOPED_TRACE(one.path);
    Platform platform;
    platform.set_operation(YFW_REQUEST_READ_STATE);
    Request request(leaf(nodes::tag_of(one.path)));
    one.walker.function(platform.ctx(), request.root(), platform.output());
    const std::vector<std::string> trace = platform.trace();
    ASSERT_GE(trace.size(), 4U);
    EXPECT_EQ(trace[0], "TRC " + one.walker.name + ": Start");
    EXPECT_EQ(trace[1], "TRC " + one.handler.name + ": Start");
    EXPECT_EQ(trace[trace.size() - 1], "TRC " + one.walker.name + ": End");
    EXPECT_EQ(platform.state().filter_bits, std::uint32_t{YFW_FILTER_SELECTION});
  }
}

TEST(AugmentParsers, ForeignNode_IsRefusedInEditsAndIgnoredInReads) {
  for (const Inner& inner : nodes::openconfig().inner) {
    SCOPED_TRACE(inner.path);
    Platform platform;
    Request request(leaf("other", "value").in("urn:other"));
    EXPECT_EQ(inner.augments.function(platform.ctx(), request.root(), platform.output()), YFW_UNKNOWN_AUGMENT);
    EXPECT_EQ(platform.error_tag(), "other");
    platform.set_operation(YFW_REQUEST_READ_CONFIG);
    EXPECT_EQ(inner.augments.function(platform.ctx(), request.root(), platform.output()), YFW_OK);
    EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
  }
}

// ---- Whole requests

class Requests : public support::ModuleTest {
 protected:
  cerrno walk(Request& request, std::uint32_t operation = YFW_REQUEST_EDIT) {
    platform.set_operation(operation);
    return ymap_oq_oclacp_openconfiglacp_lvla_lacp(platform.ctx(), request.root(), platform.output());
  }
};

TEST_F(Requests, DeleteOfLacpWithChildren_IsRefused) {
  Request request(container("lacp", {container("config")}).with(YFW_OPERATION_DELETE));
  EXPECT_EQ(walk(request), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(platform.traced(support::kEntryWalker, "Delete request with subtree present"), 1U);
  EXPECT_THAT(added(), IsEmpty());
}

TEST_F(Requests, DeleteOfWholeLacp_ExpandsIntoEveryChildWalker) {
  Request request(container("lacp").with(YFW_OPERATION_DELETE));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_lvla_lacp_config", "Start"), 1U);
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces", "Start"), 1U);
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_lvla_lacp_state", "Start"), 0U);
  EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
}

TEST_F(Requests, UnknownTag_IsAnErrorInEditsAndIgnoredInReads) {
  Request request(container("lacp", {leaf("unheard-of")}));
  EXPECT_EQ(walk(request), YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_CONFIG), YFW_OK);
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_OK);
}

TEST_F(Requests, InterfaceWithTwoNames_IsRefused) {
  Request request(lacp_with_interfaces({container("interface", {leaf("name", "a"), leaf("name", "b")})}));
  EXPECT_EQ(walk(request), YFW_BAD_LIST_KEY);
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface", "List key node error."),
            1U);
  EXPECT_EQ(platform.error_tag(), "name");
}

TEST_F(Requests, ReplaceOfContainer_RunsItsHandlerTwiceAndRestoresReplace) {
  Request request(container("lacp", {container("config", {leaf("system-priority", "7")}).with(YFW_OPERATION_REPLACE)}));
  EXPECT_EQ(walk(request), YFW_OK);
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_cont_lvla_lacp_config", "Start"), 2U);
  EXPECT_THAT(added(), ElementsAre("/lacp/system-priority", "/lacp/system-priority=7"));
  EXPECT_EQ(platform.additions().at(0).operation, std::uint32_t{YFW_OPERATION_REMOVE});
  EXPECT_EQ(platform.additions().at(1).operation, std::uint32_t{YFW_OPERATION_NONE});
  EXPECT_EQ(request.find("config")->operation, std::uint32_t{YFW_OPERATION_REPLACE});
  EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
}

TEST_F(Requests, ReadOfOperationalInterval_IsRefusedByName) {
  Request request(lacp_with_interfaces(
      {container("interface", {leaf("name", "Bundle-Ether1"), container("state", {leaf("interval")})})}));
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.error_tag(), "interval");
}

TEST_F(Requests, DeletedKeyOfInterface_IsRefused) {
  Request request(lacp_with_interfaces(
      {container("interface", {leaf("name", "Bundle-Ether1").with(YFW_OPERATION_DELETE), container("config")})}));
  EXPECT_EQ(walk(request), YFW_LIST_KEY_DELETED);
  EXPECT_EQ(platform.traced("ymap_oq_oclacp_openconfiglacp_lvla_lacp_interfaces_interface",
                            "The key node should not have delete operation."),
            1U);
}

TEST_F(Requests, ReadOfActivityAndTimeout_RequestsThePortStateTwice) {
  Request request(lacp_with_interfaces({container(
      "interface",
      {leaf("name", "Bundle-Ether1"),
       container("members", {container("member", {leaf("interface", "a"),
                                                  container("state", {leaf("activity"), leaf("timeout")})})})})}));
  EXPECT_EQ(walk(request, YFW_REQUEST_READ_STATE), YFW_OK);
  EXPECT_EQ(platform.count("yfw_map_datatree_add_path_flagged", "/link-data/actor-port-state\""), 2U);
}

TEST_F(Requests, EditOfOperationalState_AddsNothing) {
  Request request(
      lacp_with_interfaces({interface_entry("Bundle-Ether1"),
                            container("interface", {leaf("name", "Bundle-Ether2"), container("members")})}));
  EXPECT_EQ(walk(request), YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.error_tag(), "members");
  EXPECT_THAT(added(), Not(Contains(testing::HasSubstr("/lacp-bundles"))));
}

}  // namespace
