// What holds for every exported function that runs in the handler frame.
#include <string>

#include "unit/oc-lacp/function_test.h"

namespace {

using nodes::ContainerFunction;
using nodes::Named;
using nodes::NodeFunction;

class ExportedFunctions : public nodes::FunctionTest {};

using ExportedFunctionsDeathTest = ExportedFunctions;

TEST_F(ExportedFunctionsDeathTest, NullContext_AbortsWithTheFunctionsPrototype) {
  for (const Named<NodeFunction>& one : nodes::openconfig().functions) {
    EXPECT_DEATH(one.function(nullptr, request.root(), platform.output()),
                 std::string("mapping/oc-lacp/src/ymap_oclacp_openconfig_lacp_[a-z_]+\\.[a-z]+:[0-9]+: cerrno ") +
                     one.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*, yfw_datatree \\*\\): "
                     "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
  for (const Named<ContainerFunction>& one : nodes::openconfig().container_functions) {
    EXPECT_DEATH(one.function(nullptr, request.root(), 0, platform.output()),
                 std::string("cerrno ") + one.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*, unsigned int, yfw_datatree \\*\\): "
                     "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
}

TEST_F(ExportedFunctions, NullInput_IsRefusedUnderTheFunctionsName) {
  expect_refusals_of_null_input(nodes::openconfig().functions, nodes::openconfig().container_functions);
}

TEST_F(ExportedFunctions, NullOutput_IsRefusedUnderTheFunctionsName) {
  expect_refusals_of_null_output(nodes::openconfig().functions, nodes::openconfig().container_functions);
}

TEST_F(ExportedFunctions, CallSiteIds_AreTheFunctionsOwn) {
  expect_own_call_site_ids(nodes::openconfig().functions);
}

}  // namespace
