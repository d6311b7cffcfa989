#include "host/explain/deviations.h"

#include "tests/support/locations.h"
#include "tests/unit/host/explain/explain_test.h"

namespace oclacp::host {
namespace {

// Has libyang load what is told of openconfig-lacp in one context, with openconfig-lacp itself, and compares what is
// left of it with the coverage.
void expect_to_leave_what_is_served(const std::string& published) {
  Explained explained(published);
  const Coverage coverage = explained.coverage();
  const Schemas deviated({location::kSchemas, published}, mapped_schemas());
  auto* context = const_cast<ly_ctx*>(deviated.request());
  ASSERT_EQ(lys_parse_mem(context, deviation_module(coverage).c_str(), LYS_IN_YANG, nullptr), LY_SUCCESS)
      << ly_errmsg(context);
  size_t left = 0;
  for (const CoveredLeaf& leaf : coverage.leaves) {
    const bool is_left = lys_find_path(context, nullptr, schema_path(leaf.schema).c_str(), 0) != nullptr;
    EXPECT_EQ(is_left, leaf.is_served()) << schema_path(leaf.schema);
    left += is_left ? 1 : 0;
  }
  EXPECT_GT(left, 30U);
  EXPECT_LT(left, coverage.leaves.size());
}

TEST(Deviations, ShippedModel_KeepsTheServedLeaves) {
  expect_to_leave_what_is_served("");
}

TEST(Deviations, PublishedModel_KeepsTheServedLeaves) {
  const char* published = std::getenv("OCLACP_PUBLISHED_YANG_DIR");
  if (published == nullptr) {
    GTEST_SKIP() << "OCLACP_PUBLISHED_YANG_DIR names no directory of published modules";
  }
  expect_to_leave_what_is_served(published);
}

TEST(Deviations, LeafThatIsNotServed_HasTheReason) {
  Explained explained;
  Coverage coverage = explained.coverage();
  EXPECT_THAT(deviation_module(coverage),
              testing::HasSubstr("oc-lacp:state/oc-lacp:interval\" {\n    description\n      "
                                 "\"Not served: refused, has no source.\";\n    deviate not-supported;\n"));
  for (CoveredLeaf& leaf : coverage.leaves) {
    leaf.is_known = false;
  }
  EXPECT_THAT(deviation_module(coverage), testing::HasSubstr("\"Not served: unknown to the mapping.\""));
}

TEST(Deviations, ContainerWithoutServedLeaves_IsRemovedAsAWhole) {
  Explained explained;
  Coverage coverage = explained.coverage();
  for (CoveredLeaf& leaf : coverage.leaves) {
    if (schema_path(leaf.schema).find("/members/") != std::string::npos) {
      leaf.in_reads = false;
    }
  }
  EXPECT_THAT(deviation_module(coverage), testing::AllOf(testing::HasSubstr("/oc-lacp:interface/oc-lacp:members\" {"),
                                                         testing::Not(testing::HasSubstr("oc-lacp:members/"))));
}

}  // namespace
}  // namespace oclacp::host
