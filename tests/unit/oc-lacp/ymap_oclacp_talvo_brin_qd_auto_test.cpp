// The leaf handlers of the native side, row by row.
#include <algorithm>
#include <string>

#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::Leaf;
using support::Addition;
using support::Platform;
using support::Request;

// A value that every leaf can carry.
std::string value_for(const Leaf& leaf) {
  return nodes::tag_of(leaf.path) == "period" ? "true" : "5";
}

struct Outcome {
  cerrno status;
  std::vector<Addition> additions;
  std::vector<std::string> trace;
};

Outcome run(const Leaf& leaf, std::uint32_t operation = YFW_REQUEST_READ_STATE, cerrno addition_status = YFW_OK) {
  Platform platform;
  platform.set_operation(operation);
  platform.lacp_interfaces = {"Bundle-Ether1", "5"};
  platform.node_info["/interface-configurations/interface-configuration/interface-name"] = "Bundle-Ether1";
  platform.node_info["/lacp-bundles/bundles/bundle/bundle-interface"] = "Bundle-Ether1";
  platform.node_info["/lacp-bundles/bundles/bundle/data/applied-lacp-mode"] = "bmd-mode-active";
  if (addition_status != YFW_OK) platform.script("yfw_map_datatree_add_path_flagged", 0, addition_status);
  Request request(support::leaf(nodes::tag_of(leaf.path), value_for(leaf)));
  const cerrno status = leaf.handler.function(platform.ctx(), request.root(), platform.output());
  // Without the walker of its entry, the handler of an interface's name leaves it in the scratch buffer.
  std::ranges::fill(platform.state().interface_name, '\0');
  EXPECT_EQ(support::left_behind(platform, request), std::vector<std::string>{});
  return {status, platform.additions(), platform.trace()};
}

TEST(NativeLeafHandlers, StateRead_RecordsHandlerAndConverterNames) {
  for (const Leaf& leaf : nodes::native().leaves) {
    SCOPED_TRACE(leaf.path);
    const std::string own = "TRC " + leaf.handler.name;
    std::vector<std::string> expected = {own + ": Start", own + ": End"};
    if (!leaf.converter.empty()) {
      const std::string converters = "TRC " + leaf.converter;
      expected = {own + ": Start", converters + ": Start", converters + ": End", own + ": End"};
    }
    EXPECT_EQ(run(leaf).trace, expected);
  }
}

TEST(NativeLeafHandlers, Targets_AreReportedInOrderWithFlagsAndWithoutNode) {
  for (const Leaf& leaf : nodes::native().leaves) {
    SCOPED_TRACE(leaf.path);
    const Outcome outcome = run(leaf);
    EXPECT_EQ(outcome.status, YFW_OK);
    std::vector<std::string> targets;
    for (const Addition& addition : outcome.additions) {
      targets.push_back(addition.path);
      EXPECT_EQ(addition.ns, support::kOpenconfigLacp);
      EXPECT_TRUE(addition.value.has_value());
      EXPECT_EQ(addition.source, nullptr);
      EXPECT_EQ(addition.word, 0U);
      EXPECT_EQ(addition.list_flag, leaf.list_flag);
      EXPECT_EQ(addition.last_flag, leaf.last_flag);
    }
    EXPECT_EQ(targets, leaf.targets);
  }
}

TEST(NativeLeafHandlers, UnconvertedLeaf_CopiesItsValue) {
  for (const Leaf& leaf : nodes::native().leaves) {
    const std::string tag = nodes::tag_of(leaf.path);
    if (tag == "applied-lacp-mode" || tag == "actor-port-state" || tag == "mode" || tag == "period") continue;
    for (const Addition& addition : run(leaf).additions) EXPECT_EQ(addition.value, value_for(leaf)) << leaf.path;
  }
}

TEST(NativeLeafHandlers, FailedAdditions_ReturnTheirStatusExceptForThePortState) {
  for (const Leaf& leaf : nodes::native().leaves) {
    SCOPED_TRACE(leaf.path);
    const bool heeded = !leaf.targets.empty() && nodes::tag_of(leaf.path) != "actor-port-state";
    EXPECT_EQ(run(leaf, YFW_REQUEST_READ_STATE, 0x77).status, heeded ? 0x77U : YFW_OK);
  }
}

TEST(NativeLeafHandlers, OtherRequests_ReportTheSameTargets) {
  for (const Leaf& leaf : nodes::native().leaves) {
    const std::string tag = nodes::tag_of(leaf.path);
    if (tag == "applied-lacp-mode" || tag == "interface-name") continue;
    SCOPED_TRACE(leaf.path);
    EXPECT_EQ(run(leaf, YFW_REQUEST_READ_CONFIG).additions.size(), leaf.targets.size());
    EXPECT_EQ(run(leaf, YFW_REQUEST_EDIT).additions.size(), leaf.targets.size());
  }
}

TEST(NativeLeafHandlers, TransmissionErrors_AreNeverReported) {
  for (const Leaf& leaf : nodes::native().leaves) {
    for (const Addition& addition : run(leaf).additions) {
      EXPECT_EQ(addition.path.find("lacp-tx-errors"), std::string::npos) << leaf.path;
    }
  }
}

}  // namespace
