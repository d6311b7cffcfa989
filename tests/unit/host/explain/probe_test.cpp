#include "host/explain/probe.h"

#include "tests/unit/host/explain/explain_test.h"

namespace oclacp::host {
namespace {

// "path=value" of each leaf, or the refusal.
std::vector<std::string> shown(const ProbeResult& result) {
  if (result.refusal) {
    return {"refused: " + *result.refusal};
  }
  std::vector<std::string> texts;
  for (const ProbeResult::Leaf& leaf : result.leaves) {
    texts.push_back(bare_path(leaf.schema) + "=" + leaf.value.value_or("-"));
  }
  return texts;
}

class ProbeTest : public testing::Test {
 protected:
  std::vector<std::string> edit(const std::string& path, const std::string& value) {
    return shown(explained_.probe.edit(explained_.node(path), value));
  }
  std::vector<std::string> native(const std::string& path, const std::string& value) {
    return shown(explained_.probe.native(explained_.node(path), value));
  }

  Explained explained_;
  const std::string entry_ = kEntry;
  const std::string openconfig_entry_ = kOcEntry;
};

TEST_F(ProbeTest, EditOfALeaf_ShowsItsAdditionsOnly) {
  EXPECT_THAT(edit(openconfig_entry_ + "config/interval", "SLOW"), testing::ElementsAre(entry_ + "lacp/period=30000"));
  EXPECT_THAT(edit(openconfig_entry_ + "config/name", "Bundle-Ether1"), testing::IsEmpty());
  EXPECT_THAT(edit(openconfig_entry_ + "state/lacp-mode", "ACTIVE"),
              testing::ElementsAre("refused: not supported by this mapping (error tag 'state', code 0xaaf2ee00)"));
}

TEST_F(ProbeTest, EditOfAKey_ShowsTheAdditionsOfTheEntry) {
  EXPECT_THAT(edit(openconfig_entry_ + "name", "Bundle-Ether7"),
              testing::ElementsAre(entry_ + "interface-name=Bundle-Ether7", entry_ + "active=act",
                                   entry_ + "interface-virtual=-"));
}

TEST_F(ProbeTest, Read_ShowsTheNativeLeavesReadOrTheRefusal) {
  EXPECT_THAT(shown(explained_.probe.read(explained_.node(std::string(kOcMember) + "state/activity"))),
              testing::ElementsAre("/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state=-"));
  EXPECT_THAT(shown(explained_.probe.read(explained_.node(openconfig_entry_ + "state/interval"))),
              testing::ElementsAre("refused: not supported by this mapping (error tag 'interval', code 0xaaf2ee00)"));
}

TEST_F(ProbeTest, NativeLeaf_ShowsTheAnswerWithItsKeys) {
  EXPECT_THAT(native(entry_ + "lacp/mode", "passive"),
              testing::IsSupersetOf(
                  {openconfig_entry_ + "name=Bundle-Ether1", openconfig_entry_ + "config/lacp-mode=PASSIVE"}));
  EXPECT_THAT(native(entry_ + "lacp/mode", "on"), testing::Not(testing::Contains(testing::HasSubstr("lacp-mode"))));
  EXPECT_THAT(native(entry_ + "lacp/period", "2"),
              testing::ElementsAre(testing::StartsWith("refused: '2' has no OpenConfig form")));
  EXPECT_THAT(native("/lacp-bundles/bundles/bundle/members/member/counters/lacpd-us-received", "9"),
              testing::Contains(std::string(kOcMember) + "state/counters/lacp-in-pkts=9"));
}

TEST_F(ProbeTest, NativeLeafWithoutAMapping_HasNoAnswer) {
  EXPECT_THAT(native("/bundle/lacp-delay", "1"), testing::IsEmpty());
}

}  // namespace
}  // namespace oclacp::host
