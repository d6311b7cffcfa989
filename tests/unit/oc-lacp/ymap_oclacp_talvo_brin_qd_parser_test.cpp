// The tables of the native walkers: which node is dispatched to what. How a walker walks is tested with the engine.
#include <algorithm>
#include <string>

#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::Inner;
using support::leaf;
using support::Node;
using support::Platform;
using support::Request;
using testing::IsEmpty;

bool is_operational(const Inner& inner) {
  return inner.ns == support::kBundlemgrOper;
}

// Walks the tree to a node with the given children.
class Walk {
 public:
  Walk(const Inner& inner, std::vector<Node> children, std::uint32_t operation = YFW_REQUEST_READ_STATE)
      : request(nodes::tree_to(inner.path, std::move(children))) {
    platform.lacp_interfaces = {"Bundle-Ether1"};
    platform.set_operation(operation);
    status = inner.entry.function(platform.ctx(), request.root(), platform.output());
    EXPECT_THAT(support::left_behind(platform, request), IsEmpty());
  }

  Platform platform;
  Request request;
  cerrno status;
};

// A value with which every leaf is walked without an error.
Node child_leaf(const std::string& tag) {
  return leaf(tag, tag == "period" ? "1000" : "a");
}

TEST(NativeWalkers, Walk_RecordsTheWalkersNameAndRunsItsHandler) {
  for (const Inner& inner : nodes::native().inner) {
    SCOPED_TRACE(inner.walker.name);
    const Walk walk(inner, {});
    EXPECT_EQ(walk.status, YFW_OK);
    EXPECT_EQ(walk.platform.traced(inner.walker.name, "Start"), 1U);
    EXPECT_EQ(walk.platform.traced(inner.walker.name, "End"), 1U);
    EXPECT_GE(walk.platform.traced(inner.handler, "Start"), 1U);
    const auto& calls = walk.platform.calls();
    const auto called = [&](const std::string& start) {
      return std::find_if(calls.begin(), calls.end(), [&](const support::Call& call) {
        return call.function == "_lstrace" && call.arguments.find(start) != std::string::npos;
      });
    };
    const auto walker = called(inner.walker.name + " \"Start\"");
    EXPECT_NE(std::find_if(walker, calls.end(),
                           [&](const support::Call& call) {
                             return call.function == "_lstrace" &&
                                    call.arguments == std::string("TRC ") + inner.handler + " \"Start\"";
                           }),
              calls.end())
        << inner.handler << " is not called by it";
  }
}

TEST(NativeWalkers, Child_IsDispatchedToItsFunction) {
  for (const Inner& inner : nodes::native().inner) {
    for (std::size_t i = 0; i < inner.children.size(); ++i) {
      const std::string& child = inner.children[i];
      const std::string& function = inner.functions[i];
      SCOPED_TRACE(inner.path + "/" + child);
      // A key stands in the entry already.
      const bool is_key = std::find(inner.keys.begin(), inner.keys.end(), child) != inner.keys.end();
      const std::string path = inner.path + "/" + child;
      const bool is_entry = path.ends_with("/interface-configuration") || path.ends_with("/mtus/mtu");
      std::vector<Node> children;
      if (is_entry) {
        children = {support::container(
            child, {leaf("active", "act"), leaf("interface-name", "Bundle-Ether1"), leaf("owner", "ethernet")})};
      } else if (!is_key) {
        children = {child_leaf(child)};
      }
      const Walk walk(inner, children);
      EXPECT_EQ(walk.platform.traced(function, "Start"), 1U) << function << " is not called";
    }
  }
}

TEST(NativeWalkers, Tags_AreTestedInOrder) {
  for (const Inner& inner : nodes::native().inner) {
    SCOPED_TRACE(inner.path);
    const Walk walk(inner, {leaf("unheard-of")});
    EXPECT_EQ(walk.status, YFW_OK);
    std::vector<std::string> tested;
    const std::string start = "\"unheard-of\" \"";
    for (const support::Call& call : walk.platform.calls()) {
      if (call.function != "yfw_map_do_these_match" || call.arguments.rfind(start, 0) != 0) continue;
      tested.push_back(call.arguments.substr(start.size(), call.arguments.size() - start.size() - 1));
    }
    // The scan of an entry's keys tests every child first.
    std::vector<std::string> expected = inner.keys;
    expected.insert(expected.end(), inner.children.begin(), inner.children.end());
    EXPECT_EQ(tested, expected);
    EXPECT_EQ(
        walk.platform.traced(inner.walker.name, "Unsupported tag. Ignoring."),
        1U + inner.keys.size() -
            static_cast<std::size_t>(std::count_if(inner.keys.begin(), inner.keys.end(), [&](const std::string& key) {
              return std::find(inner.children.begin(), inner.children.end(), key) != inner.children.end();
            })));
  }
}

TEST(NativeWalkers, UnknownChild_HasItsNamespaceTestedAgainstTheWalkers) {
  for (const Inner& inner : nodes::native().inner) {
    SCOPED_TRACE(inner.path);
    const Walk walk(inner, {leaf("unheard-of").in("urn:other")});
    EXPECT_EQ(walk.platform.count("yfw_map_do_these_match", std::string("\"urn:other\" \"") + inner.ns + "\""), 1U);
  }
}

TEST(NativeWalkers, ForeignChild_GoesToTheWalkersHook) {
  for (const Inner& inner : nodes::native().inner) {
    SCOPED_TRACE(inner.path);
    for (const std::uint32_t operation : {0U, 10U}) {
      const Walk walk(inner, {leaf("other").in("urn:other")}, operation);
      EXPECT_EQ(walk.status, YFW_OK);
      const bool reached =
          !is_operational(inner) || operation == YFW_REQUEST_READ_STATE || inner.path.find('/', 1) == std::string::npos;
      // The dispatcher of an entry gets the nodes on the way too.
      if (reached) {
        EXPECT_GE(walk.platform.traced(inner.augments.name, "Start"), 1U);
      }
    }
  }
}

TEST(NativeWalkers, ForeignChildAddedToConfiguration_IsIgnored) {
  for (const Inner& inner : nodes::native().inner) {
    if (is_operational(inner)) continue;
    SCOPED_TRACE(inner.path);
    const Walk walk(inner, {leaf("other").in("urn:other")}, YFW_REQUEST_EDIT);
    EXPECT_EQ(walk.status, YFW_OK);
    EXPECT_EQ(walk.platform.error_tag(), "");
  }
}

TEST(NativeWalkers, ForeignChildAddedToOperationalData_IsRefused) {
  for (const char* root : {"/lacp-bundles", "/lacp-data"}) {
    for (const Inner& inner : nodes::native().inner) {
      if (inner.path != std::string(root)) continue;
      SCOPED_TRACE(inner.path);
      const Walk walk(inner, {leaf("other").in("urn:other")}, YFW_REQUEST_EDIT);
      EXPECT_EQ(walk.status, YFW_UNKNOWN_AUGMENT);
      EXPECT_EQ(walk.platform.error_tag(), "other");
    }
  }
}

TEST(NativeWalkers, OperationalDataInOtherRequests_ReportsNothing) {
  for (const Inner& inner : nodes::native().inner) {
    if (!is_operational(inner)) continue;
    SCOPED_TRACE(inner.path);
    for (const std::uint32_t operation : {0U, 1U, 8U, 15U}) {
      std::vector<Node> children;
      for (const std::string& child : inner.children) children.push_back(leaf(child, "a"));
      const Walk walk(inner, children, operation);
      EXPECT_EQ(walk.status, YFW_OK);
      EXPECT_THAT(walk.platform.additions(), IsEmpty());
      const bool is_root = inner.path.find('/', 1) == std::string::npos;
      EXPECT_EQ(walk.platform.traced(inner.walker.name, "Start"), is_root ? 1U : 0U) << "operation " << operation;
    }
  }
}

TEST(NativeWalkers, ListEntry_SetsItsListPath) {
  for (const Inner& inner : nodes::native().inner) {
    if (inner.keys.empty()) continue;
    SCOPED_TRACE(inner.path);
    const Walk walk(inner, {});
    EXPECT_EQ(walk.platform.count("yfw_map_update_current_list_node", std::string("\"") + inner.path + "\""), 1U);
    const std::string tag = nodes::tag_of(inner.path) + " list";
    EXPECT_EQ(walk.platform.count("yfw_map_add_to_node_hierarchy", tag), 1U);
  }
}

}  // namespace
