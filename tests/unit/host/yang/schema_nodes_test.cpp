#include "host/yang/schema_nodes.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::vector<std::string> found(const std::string& path) {
  std::vector<std::string> paths;
  for (const lysc_node* node : find_nodes(schemas(), path)) {
    paths.push_back(schema_path(node));
  }
  return paths;
}

std::string refused(const std::string& path) {
  return refusal_of([&] { find_nodes(schemas(), path); });
}

TEST(SchemaPath, AnyOrNoPrefix_IsTheSameNode) {
  const std::string interval = "/openconfig-lacp:lacp/interfaces/interface/config/interval";
  EXPECT_THAT(found("/lacp/interfaces/interface/config/interval"), testing::ElementsAre(interval));
  EXPECT_THAT(found(interval), testing::ElementsAre(interval));
  EXPECT_THAT(found("/oc-lacp:lacp/oc-lacp:interfaces/interface/config/interval/"), testing::ElementsAre(interval));
  const std::string mode =
      "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/Talvo-Brin-QD-bundlemgr-cfg:lacp/mode";
  EXPECT_THAT(found("/interface-configurations/interface-configuration/lacp/mode"), testing::ElementsAre(mode));
  EXPECT_THAT(found(mode), testing::ElementsAre(mode));
}

TEST(SchemaPath, Predicates_AreIgnored) {
  EXPECT_EQ(found("/lacp/interfaces/interface[name='GigabitEthernet0/0/0/1']/config/interval[.='FAST']"),
            found("/lacp/interfaces/interface/config/interval"));
  EXPECT_EQ(found("/interface-configurations/interface-configuration[active='act'][interface-name=\"a\"]"),
            found("/interface-configurations/interface-configuration"));
}

TEST(SchemaPath, NameOfBothSides_FindsBoth) {
  EXPECT_THAT(found("/lacp"), testing::ElementsAre("/openconfig-lacp:lacp", "/Talvo-Brin-QD-bundlemgr-cfg:lacp"));
  EXPECT_THAT(found("/openconfig-lacp:lacp"), testing::ElementsAre("/openconfig-lacp:lacp"));
}

TEST(SchemaPath, UnknownNodeOrPredicate_IsRefused) {
  EXPECT_EQ(refused("/lacp/colour"), "/lacp/colour: neither openconfig-lacp nor a native model has such a node");
  EXPECT_EQ(refused("/other:lacp"), "/other:lacp: neither openconfig-lacp nor a native model has such a node");
  EXPECT_EQ(refused("/lacp/config/system-priority/more"),
            "/lacp/config/system-priority/more: neither openconfig-lacp nor a native model has such a node");
  EXPECT_EQ(
      refused("/lacp/interfaces/interface[name='a'"),
      "the path '/lacp/interfaces/interface[name='a'': ']' is missing after '/lacp/interfaces/interface[name='a''");
  EXPECT_EQ(refused("/lacp/interfaces/interface[colour='a']"),
            "/openconfig-lacp:lacp/interfaces/interface: the predicate 'colour' names no leaf of it");
  EXPECT_EQ(refused("/lacp/config[.='5']"), "/openconfig-lacp:lacp/config: the predicate '.' names no leaf of it");
}

TEST(SchemaPath, LeavesOf_AreInTheOrderOfTheSchema) {
  std::vector<std::string> paths;
  for (const lysc_node* leaf : leaves_of(find_nodes(schemas(), "/lacp-data").front())) {
    paths.push_back(bare_path(leaf));
  }
  EXPECT_THAT(paths, testing::ElementsAre("/lacp-data/global/system-id/system-id/system-mac-addr/macaddr",
                                          "/lacp-data/global/system-id/system-id/system-prio"));
}

}  // namespace
}  // namespace oclacp::host
