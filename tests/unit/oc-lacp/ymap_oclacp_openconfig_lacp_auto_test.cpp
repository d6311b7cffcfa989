#include <string>

#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::Leaf;
using support::Addition;
using support::Platform;
using support::Request;

bool is_config(const Leaf& leaf) {
  return leaf.path.find("/config/") != std::string::npos && !leaf.targets.empty();
}

// A value that every leaf can carry; the interval alone is particular.
std::string value_for(const Leaf& leaf) {
  return nodes::tag_of(leaf.path) == "interval" ? "FAST" : "ACTIVE";
}

struct Outcome {
  cerrno status;
  std::vector<Addition> additions;
  std::vector<std::string> trace;
  std::string error_tag;
};

// Runs a leaf handler on a leaf of its own tag.
Outcome run(const Leaf& leaf, std::uint32_t operation, std::uint32_t edit_operation = YFW_OPERATION_NONE) {
  Platform platform;
  platform.set_operation(operation);
  Request request(support::leaf(nodes::tag_of(leaf.path), value_for(leaf)).with(edit_operation));
  const cerrno status = leaf.handler.function(platform.ctx(), request.root(), platform.output());
  EXPECT_EQ(support::left_behind(platform, request), std::vector<std::string>{});
  for (const Addition& addition : platform.additions()) {
    EXPECT_TRUE(addition.source == nullptr || addition.source == request.root());
  }
  return {status, platform.additions(), platform.trace(), platform.error_tag()};
}

TEST(LeafHandlers, ConfigRead_RecordsHandlerAndConverterNames) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    SCOPED_TRACE(leaf.path);
    const std::string own = "TRC " + leaf.handler.name;
    std::vector<std::string> expected = {own + ": Start", own + ": End"};
    if (!leaf.converter.empty()) {
      const std::string converters = "TRC " + leaf.converter;
      expected = {own + ": Start", converters + ": Start", converters + ": End", own + ": End"};
    }
    EXPECT_EQ(run(leaf, YFW_REQUEST_READ_CONFIG).trace, expected);
  }
}

TEST(LeafHandlers, Read_RequestsTheTargetWithValueAndWithoutNode) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (leaf.targets.empty() || leaf.work == OCLACP_LEAF_HANDWRITTEN) continue;
    SCOPED_TRACE(leaf.path);
    for (const std::uint32_t operation : {0U, 10U}) {
      const Outcome outcome = run(leaf, operation);
      EXPECT_EQ(outcome.status, YFW_OK);
      ASSERT_EQ(outcome.additions.size(), 1U);
      const Addition& addition = outcome.additions[0];
      EXPECT_EQ(addition.path, leaf.targets[0]);
      EXPECT_EQ(addition.ns, nodes::namespace_at(leaf.targets[0]));
      EXPECT_EQ(addition.value, value_for(leaf));
      EXPECT_EQ(addition.source, nullptr);
      EXPECT_EQ(addition.word, 0U);
      EXPECT_EQ(addition.list_flag, 0);
      EXPECT_EQ(addition.last_flag, leaf.last_flag);
    }
  }
}

TEST(LeafHandlers, ConfigLeafInEdit_AddsItsTarget) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (!is_config(leaf)) continue;
    SCOPED_TRACE(leaf.path);
    const Outcome outcome = run(leaf, YFW_REQUEST_EDIT);
    EXPECT_EQ(outcome.status, YFW_OK);
    ASSERT_EQ(outcome.additions.size(), 1U);
    const Addition& addition = outcome.additions[0];
    EXPECT_EQ(addition.path, leaf.targets[0]);
    EXPECT_EQ(addition.ns, nodes::namespace_at(leaf.targets[0]));
    EXPECT_TRUE(addition.value.has_value());
    EXPECT_NE(addition.source, nullptr);
    EXPECT_EQ(addition.word, 0U);
    EXPECT_EQ(addition.list_flag, 0);
    EXPECT_EQ(addition.last_flag, leaf.last_flag);
  }
}

TEST(LeafHandlers, ConfigLeafInDelete_AddsItsTargetWithoutValue) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (!is_config(leaf)) continue;
    SCOPED_TRACE(leaf.path);
    const Outcome outcome = run(leaf, YFW_REQUEST_EDIT, YFW_OPERATION_DELETE);
    EXPECT_EQ(outcome.status, YFW_OK);
    ASSERT_EQ(outcome.additions.size(), 1U);
    EXPECT_EQ(outcome.additions[0].path, leaf.targets[0]);
    EXPECT_EQ(outcome.additions[0].value, std::nullopt);
    EXPECT_EQ(outcome.additions[0].operation, std::uint32_t{YFW_OPERATION_DELETE});
    EXPECT_EQ(outcome.additions[0].last_flag, leaf.last_flag);
  }
}

TEST(LeafHandlers, StateLeafInEdit_AddsNothing) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (is_config(leaf) || (leaf.work != OCLACP_LEAF_ASKED_FOR && leaf.work != OCLACP_LEAF_CONVERTED)) continue;
    SCOPED_TRACE(leaf.path);
    for (const std::uint32_t edit : {std::uint32_t{YFW_OPERATION_NONE}, std::uint32_t{YFW_OPERATION_DELETE}}) {
      const Outcome outcome = run(leaf, YFW_REQUEST_EDIT, edit);
      EXPECT_EQ(outcome.status, YFW_OK);
      EXPECT_TRUE(outcome.additions.empty());
    }
  }
}

TEST(LeafHandlers, UnsupportedLeaf_RefusesEveryRequest) {
  std::vector<std::string> unsupported;
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (leaf.work != OCLACP_LEAF_REFUSED) continue;
    unsupported.emplace_back(leaf.path);
    for (const std::uint32_t operation : {0U, 1U, 8U, 10U, 15U}) {
      const Outcome outcome = run(leaf, operation);
      EXPECT_EQ(outcome.status, YFW_UNSUPPORTED_NODE);
      EXPECT_TRUE(outcome.additions.empty());
      EXPECT_EQ(outcome.error_tag, nodes::tag_of(leaf.path));
    }
  }
  EXPECT_EQ(unsupported,
            (std::vector<std::string>{"/lacp/interfaces/interface/state/interval",
                                      "/lacp/interfaces/interface/members/member/state/counters/lacp-tx-errors"}));
}

TEST(LeafHandlers, FailedAddition_ReturnsItsStatus) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (leaf.targets.empty()) continue;
    SCOPED_TRACE(leaf.path);
    Platform platform;
    platform.script("yfw_map_datatree_add_path_flagged", 0, 0x99);
    platform.set_operation(YFW_REQUEST_READ_STATE);
    Request request(support::leaf(nodes::tag_of(leaf.path)));
    EXPECT_EQ(leaf.handler.function(platform.ctx(), request.root(), platform.output()), 0x99U);
  }
}

TEST(LeafHandlers, ErrorCounters_ReadIllegalPackets) {
  for (const char* tag : {"lacp-unknown-errors", "lacp-errors"}) {
    const Leaf* const leaf = nodes::leaf_at(
        nodes::openconfig(), std::string("/lacp/interfaces/interface/members/member/state/counters/") + tag);
    ASSERT_NE(leaf, nullptr);
    const Outcome outcome = run(*leaf, YFW_REQUEST_READ_STATE);
    ASSERT_EQ(outcome.additions.size(), 1U);
    EXPECT_EQ(outcome.additions[0].path,
              "/lacp-bundles/bundles/bundle/members/member/counters/illegal-packets-received");
  }
}

TEST(LeafHandlers, MemberLeafInEdit_AddsNothing) {
  for (const Leaf& leaf : nodes::openconfig().leaves) {
    if (leaf.path.find("/members/") == std::string::npos || leaf.work == OCLACP_LEAF_REFUSED) continue;
    SCOPED_TRACE(leaf.path);
    const Outcome outcome = run(leaf, YFW_REQUEST_EDIT);
    EXPECT_EQ(outcome.status, YFW_OK);
    EXPECT_TRUE(outcome.additions.empty());
  }
}

class ContainerHandlers : public support::ModuleTest {};

TEST_F(ContainerHandlers, AnyRequest_IsAcceptedAndAddsNothing) {
  Request request(support::container("node"));
  for (const auto& one : nodes::openconfig().container_functions) {
    SCOPED_TRACE(one.name);
    for (const std::uint32_t operation : {0U, 1U, 10U}) {
      platform.set_operation(operation);
      EXPECT_EQ(one.function(platform.ctx(), request.root(), 3, platform.output()), YFW_OK);
    }
    EXPECT_EQ(platform.traced(one.name, "Start"), 3U);
    EXPECT_EQ(platform.traced(one.name, "End"), 3U);
  }
  EXPECT_TRUE(platform.additions().empty());
}

class DefaultHandlers : public support::ModuleTest {
 protected:
  Request request{support::leaf("untranslated", "value")};
};

TEST_F(DefaultHandlers, List_IgnoresItsArguments) {
  EXPECT_EQ(ymap_oq_oclacp_openconfiglacp_duck_map_list(platform.ctx(), nullptr, nullptr), YFW_OK);
  EXPECT_EQ(platform.trace(), (std::vector<std::string>{"TRC ymap_oq_oclacp_openconfiglacp_duck_map_list: Start",
                                                        "TRC ymap_oq_oclacp_openconfiglacp_duck_map_list: End"}));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(DefaultHandlers, Leaf_IsRefused) {
  EXPECT_EQ(ymap_oq_oclacp_openconfiglacp_duck_map_leaf(platform.ctx(), request.root(), platform.output()),
            YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.error_tag(), "untranslated");
  EXPECT_LT(position("yfw_oc_error_path"), position("yfw_strdup"));
}

using DefaultHandlersDeathTest = DefaultHandlers;

TEST_F(DefaultHandlersDeathTest, NullContextOfList_Aborts) {
  EXPECT_DEATH(ymap_oq_oclacp_openconfiglacp_duck_map_list(nullptr, nullptr, nullptr),
               "cerrno ymap_oq_oclacp_openconfiglacp_duck_map_list\\(yfw_map_ctx, const yfw_datatree \\*, "
               "yfw_datatree \\*\\): Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
}

}  // namespace
