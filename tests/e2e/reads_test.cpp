// Reads, from the request to the native paths that they ask for.
#include "tests/e2e/program.h"

namespace support {
namespace {

const std::string kInterface =
    "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
    "[interface-name='Bundle-Ether1']/Talvo-Brin-QD-bundlemgr-cfg:lacp/";
const std::string kAnyInterface =
    "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/Talvo-Brin-QD-bundlemgr-cfg:lacp/";

std::string read(const std::string& what, const std::string& name) {
  const Outcome result = run({"translate", "--to", "native", "--read", what, example("requests/" + name)});
  expect_success(result);
  return result.out;
}

TEST(Read, ConfigurationOfAnInterface_AsksForItsLeaves) {
  EXPECT_EQ(read("config", "read-interface.json"), kInterface + "period\n" + kInterface + "mode\n" + kInterface +
                                                       "system-mac\n" + kInterface + "system-priority\n");
}

TEST(Read, ConfigurationAndState_AsksForStateToo) {
  const std::string paths = read("all", "read-interface.json");
  EXPECT_THAT(paths, testing::StartsWith(read("config", "read-interface.json")));
  EXPECT_THAT(paths, testing::HasSubstr("\n/Talvo-Brin-QD-bundlemgr-oper:lacp-bundles/bundles/bundle/members/member/"
                                        "link-data/actor-port-state\n"));
}

TEST(Read, WholeOfLacp_AsksForEveryInterface) {
  EXPECT_EQ(read("config", "read-lacp.json"), "/Talvo-Brin-QD-bundlemgr-cfg:lacp/system-priority\n" + kAnyInterface +
                                                  "period\n" + kAnyInterface + "mode\n" + kAnyInterface +
                                                  "system-mac\n" + kAnyInterface + "system-priority\n");
}

TEST(Read, Selection_AsksForTheSelectedLeaves) {
  EXPECT_EQ(read("config", "read-selection.xml"), kInterface + "mode\n" + kInterface + "period\n");
}

TEST(Read, Match_ShowsTheValue) {
  EXPECT_THAT(read("config", "read-match.json"), testing::StartsWith(kInterface + "mode = ACTIVE\n"));
}

TEST(Read, EntryWithoutAKey_AsksForAllEntries) {
  const Outcome result = translate(interface(R"("config": {"interval": [null]})"), {"--read", "config"});
  expect_success(result);
  EXPECT_EQ(result.out, kAnyInterface + "period\n");
}

TEST(Read, EntryWithoutContent_AsksForAllEntriesWhole) {
  for (const char* kind : {"config", "all"}) {
    const Outcome bare = translate(interface(""), {"--read", kind});
    expect_success(bare);
    const Outcome all = translate(R"({"openconfig-lacp:lacp": {"interfaces": {}}})", {"--read", kind});
    EXPECT_EQ(bare.out, all.out);
    const char* filter =
        R"(<lacp xmlns="http://openconfig.net/yang/lacp"><interfaces><interface/></interfaces></lacp>)";
    EXPECT_EQ(translate(filter, {"--read", kind}).out, all.out);
  }
  const Outcome members = translate(interface(R"("members": {"member": [{}]})"), {"--read", "all"});
  expect_success(members);
  EXPECT_EQ(members.out, translate(interface(R"("members": {})"), {"--read", "all"}).out);
}

TEST(Read, UnsupportedStateLeaf_IsRefused) {
  expect_refusal(run({"translate", "--to", "native", "--read", "all", example("bad/read-unsupported.xml")}),
                 "/state/interval: not supported by this mapping (error tag 'interval', code 0xaaf2ee00)");
}

}  // namespace
}  // namespace support
