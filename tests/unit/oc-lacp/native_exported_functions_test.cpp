// What holds for every exported function of the native side that runs in the handler frame.
#include <string>

#include "unit/oc-lacp/function_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::ContainerFunction;
using nodes::Named;
using nodes::NodeFunction;

class NativeFunctions : public nodes::FunctionTest {};

using NativeFunctionsDeathTest = NativeFunctions;

TEST_F(NativeFunctionsDeathTest, NullContext_AbortsWithTheFunctionsPrototype) {
  std::vector<Named<NodeFunction>> functions = nodes::native().functions;
  const auto& unchecked = nodes::native().unchecked_functions;
  functions.insert(functions.end(), unchecked.begin(), unchecked.end());
  for (const Named<NodeFunction>& one : functions) {
    EXPECT_DEATH(one.function(nullptr, request.root(), platform.output()),
                 std::string("mapping/oc-lacp/src/ymap_oclacp_talvo_brin_qd_[a-z_]+\\.[a-z]+:[0-9]+: cerrno ") +
                     one.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*, yfw_datatree \\*\\): "
                     "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
  for (const Named<ContainerFunction>& one : nodes::native().container_functions) {
    EXPECT_DEATH(one.function(nullptr, request.root(), 0, platform.output()),
                 std::string("cerrno ") + one.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*, unsigned int, yfw_datatree \\*\\): "
                     "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
}

TEST_F(NativeFunctions, NullInput_IsRefusedUnderTheFunctionsName) {
  expect_refusals_of_null_input(nodes::native().functions, nodes::native().container_functions);
}

TEST_F(NativeFunctions, NullOutput_IsRefusedUnderTheFunctionsName) {
  expect_refusals_of_null_output(nodes::native().functions, nodes::native().container_functions);
}

TEST_F(NativeFunctions, DefaultConfigurationHandlers_IgnoreTheirArguments) {
  for (const Named<NodeFunction>& one : nodes::native().unchecked_functions) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), nullptr, nullptr), YFW_OK);
    EXPECT_THAT(new_trace(), is_run_of(one.name));
  }
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(NativeFunctions, ContainerHandlers_AcceptEveryRequestAndReportNothing) {
  for (const Named<ContainerFunction>& one : nodes::native().container_functions) {
    SCOPED_TRACE(one.name);
    for (const std::uint32_t operation : {0U, 1U, 10U}) {
      platform.set_operation(operation);
      EXPECT_EQ(one.function(platform.ctx(), request.root(), 3, platform.output()), YFW_OK);
      EXPECT_THAT(new_trace(), is_run_of(one.name));
    }
  }
  EXPECT_TRUE(platform.additions().empty());
}

TEST_F(NativeFunctions, DefaultAndUnreachedHandlers_ReportNothing) {
  const Named<NodeFunction> functions[] = {
      NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_list),
      NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_duck_map_leaf),
      NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_data_actorportstate),
      NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_man_leaf_lvla_lacpbundlemembers_member_memberinterface),
      NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgroper_leaf_lvla_lacpbundlemembers_member_memberinterface),
      NODES_NAMED(ymap_qo_oclacp_talvobrinqdbundlemgrcfg_man_leaf_lvla_bundlemember_id_portactivity)};
  platform.set_operation(YFW_REQUEST_READ_STATE);
  for (const Named<NodeFunction>& one : functions) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), request.root(), platform.output()), YFW_OK);
    EXPECT_THAT(new_trace(), is_run_of(one.name));
  }
  EXPECT_TRUE(platform.additions().empty());
}

TEST_F(NativeFunctions, ConfigurationHooks_IgnoreForeignNodes) {
  for (const nodes::Inner& inner : nodes::native().inner) {
    // The hook of an interface's configuration hands on what augments it.
    if (inner.ns == support::kBundlemgrOper || nodes::tag_of(inner.path) == "interface-configuration") continue;
    const Named<NodeFunction>& one = inner.augments;
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), request.root(), platform.output()), YFW_OK);
    EXPECT_THAT(new_trace(), is_run_of(one.name));
  }
  for (const char level : {'a', 'b', 'c', 'd', 'e'}) {
    const std::string name =
        std::string("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvl") + level + "_interface_configuration_parse_augments";
    for (const Named<NodeFunction>& one : nodes::native().functions) {
      if (one.name != name) continue;
      EXPECT_EQ(one.function(platform.ctx(), request.root(), platform.output()), YFW_OK);
      EXPECT_THAT(new_trace(), is_run_of(one.name));
    }
  }
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
}

TEST_F(NativeFunctions, OperationalHooks_RefuseAddedForeignNodesOnly) {
  unsigned refused = 0;
  for (const nodes::Inner& inner : nodes::native().inner) {
    if (inner.ns != support::kBundlemgrOper) continue;
    const Named<NodeFunction>& one = inner.augments;
    SCOPED_TRACE(one.name);
    for (const std::uint32_t operation : {0U, 10U}) {
      platform.set_operation(operation);
      EXPECT_EQ(one.function(platform.ctx(), request.root(), platform.output()), YFW_OK);
    }
    platform.set_operation(YFW_REQUEST_EDIT);
    support::Request deleting(support::leaf("leaf").with(YFW_OPERATION_DELETE));
    EXPECT_EQ(one.function(platform.ctx(), deleting.root(), platform.output()), YFW_OK);
    EXPECT_EQ(one.function(platform.ctx(), request.root(), platform.output()), YFW_UNKNOWN_AUGMENT);
    EXPECT_EQ(platform.error_tag(), "leaf");
    EXPECT_EQ(platform.traced(one.name, "End"), 4U);
    EXPECT_EQ(platform.count("yfw_oc_error_path"), ++refused);
  }
  EXPECT_EQ(refused, 15U);
}

TEST_F(NativeFunctions, CallSiteIds_AreTheFunctionsOwn) {
  expect_own_call_site_ids(nodes::native().functions);
}

}  // namespace
