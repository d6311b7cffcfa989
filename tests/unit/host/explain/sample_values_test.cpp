#include "host/explain/sample_values.h"

#include "host/yang/schema_nodes.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

SampleValues samples(const std::string& path) {
  return sample_values(find_nodes(schemas(), path).front());
}

TEST(SampleValues, FiniteType_HasAllValues) {
  const SampleValues interval = samples("/lacp/interfaces/interface/config/interval");
  EXPECT_TRUE(interval.is_complete);
  EXPECT_THAT(interval.values, testing::ElementsAre("FAST", "SLOW"));
  const SampleValues collecting = samples("/lacp/interfaces/interface/members/member/state/collecting");
  EXPECT_TRUE(collecting.is_complete);
  EXPECT_THAT(collecting.values, testing::ElementsAre("true", "false"));
  const SampleValues state = samples("/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state");
  EXPECT_TRUE(state.is_complete);
  ASSERT_EQ(state.values.size(), 256U);
  EXPECT_EQ(state.values.back(), "255");
}

TEST(SampleValues, OtherType_HasOneValidValue) {
  for (const auto& [path, value] : {std::pair{"/lacp/config/system-priority", "1"},
                                    std::pair{"/lacp/interfaces/interface/config/system-id-mac", "00:11:22:33:44:55"},
                                    std::pair{"/lacp/interfaces/interface/config/name", kSampleInterface},
                                    std::pair{"/lacp/interfaces/interface/name", kSampleInterface}}) {
    const SampleValues one = samples(path);
    EXPECT_FALSE(one.is_complete) << path;
    EXPECT_THAT(one.values, testing::ElementsAre(value)) << path;
  }
}

TEST(SampleValues, Period_HasItsFiniteValuesAndTheProtocolPeriods) {
  const SampleValues period = samples("/interface-configurations/interface-configuration/lacp/period");
  EXPECT_FALSE(period.is_complete);
  EXPECT_THAT(period.values, testing::ElementsAre("true", "false", "1000", "30000", "1"));
}

}  // namespace
}  // namespace oclacp::host
