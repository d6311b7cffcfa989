#include "host/explain/explainer.h"

#include "tests/support/locations.h"
#include "tests/unit/host/explain/explain_test.h"

namespace oclacp::host {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class ExplainerTest : public testing::Test {
 protected:
  Explainer explainer_{{location::kSchemas, ""}, {location::kModule}};
  const std::string entry_ = kOcEntry;
  const std::string member_ = kOcMember;
};

TEST_F(ExplainerTest, ConfigurationLeaf_IsExplainedInBothDirections) {
  const std::string period =
      "  /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/Talvo-Brin-QD-bundlemgr-cfg:lacp/"
      "period\n";
  EXPECT_THAT(explainer_.explain(entry_ + "config/interval"),
              AllOf(StartsWith("/openconfig-lacp:lacp/interfaces/interface/config/interval\n\nIt is served by\n"
                               "  leaf walker  ymap_oq_oclacp_openconfiglacp_lvla_lacp_config_interval\n"
                               "  handler      ymap_oq_oclacp_openconfiglacp_leaf_lvla_lacp_config_interval\n"
                               "  converter    oc2qd_cfginterval\n\nAn edit of it sets\n" +
                               period + "    \"FAST\" -> \"1\"\n    \"SLOW\" -> \"30000\"\n\nA read of it asks for\n" +
                               period + "\nIt is read back from\n" + period +
                               "    handler ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_lacp_period, converter "
                               "qd2oc_cfginterval\n    \"true\" -> \"FAST\"\n"),
                    HasSubstr("\n    \"30000\" -> \"SLOW\"\n    \"1\" -> refused: '1' has no OpenConfig form")));
}

TEST_F(ExplainerTest, StateLeaf_RefusesAnEdit) {
  EXPECT_THAT(explainer_.explain(member_ + "state/timeout"),
              AllOf(HasSubstr("\nAn edit of it is refused: not supported by this mapping (error tag 'members'"),
                    HasSubstr("\n    bit 1: 0 -> \"LONG\", 1 -> \"SHORT\"\n")));
}

TEST_F(ExplainerTest, LeafWithoutASource_SaysSo) {
  EXPECT_THAT(explainer_.explain(entry_ + "state/interval"),
              AllOf(HasSubstr("\nA read of it is refused: not supported by this mapping (error tag 'interval'"),
                    HasSubstr("\nIt has no source: nothing native is read back as it.\n")));
}

TEST_F(ExplainerTest, LeafThatTheKeyRefersTo_NamesTheKey) {
  EXPECT_THAT(explainer_.explain(entry_ + "config/name"),
              AllOf(HasSubstr("\nThe list key that refers to it carries its value,\n"
                              "  /openconfig-lacp:lacp/interfaces/interface/name\n"),
                    Not(HasSubstr("no source"))));
}

TEST_F(ExplainerTest, Key_IsReadBackFromConfigurationAndState) {
  EXPECT_THAT(explainer_.explain(entry_ + "name"),
              testing::ContainsRegex("\nIt is read back from\n  .*/interface-name\n.*\n  "
                                     "/Talvo-Brin-QD-bundlemgr-oper:lacp-bundles/bundles/bundle/bundle-interface\n"));
}

TEST_F(ExplainerTest, NativeLeaf_IsExplainedInBothDirections) {
  EXPECT_THAT(explainer_.explain("/interface-configurations/interface-configuration/interface-name"),
              AllOf(HasSubstr("\nIt is read as\n  /openconfig-lacp:lacp/interfaces/interface/name\n"
                              "    as it is, such as \"Bundle-Ether1\"\n"
                              "    (only where LACP is configured on the interface)\n"
                              "  /openconfig-lacp:lacp/interfaces/interface/state/name\n"),
                    HasSubstr("\nAn edit sets it from\n  /openconfig-lacp:lacp/interfaces/interface/name\n"),
                    HasSubstr("\nIt is asked for by a read of\n  /openconfig-lacp:lacp/interfaces/interface/name\n")));
  EXPECT_THAT(explainer_.explain("/interface-configurations/interface-configuration/active"),
              AllOf(HasSubstr("\nNo handler serves it.\n\nNothing in openconfig-lacp is built from it.\n"),
                    HasSubstr("\n    \"Bundle-Ether1\" -> \"act\"\n")));
  EXPECT_THAT(explainer_.explain("/bundle/lacp-delay"),
              AllOf(HasSubstr("ymap_qo_oclacp_talvobrinqdbundlemgrcfg_leaf_lvla_bundle_lacpdelay\n"),
                    HasSubstr("\nNothing in openconfig-lacp is built from it.\n")));
}

TEST_F(ExplainerTest, List_ExplainsItsEntriesAndEachLeaf) {
  EXPECT_THAT(explainer_.explain("/lacp/interfaces/interface[name='a']"),
              AllOf(HasSubstr("\nAn entry of it is read back from an entry of\n"
                              "  /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration\n"
                              "  /Talvo-Brin-QD-bundlemgr-oper:lacp-bundles/bundles/bundle\n"),
                    HasSubstr("\n\nname\n  <-> /interface-configurations/interface-configuration/interface-name\n"
                              "  -> /interface-configurations/interface-configuration/active\n"
                              "  -> /interface-configurations/interface-configuration/interface-virtual\n"
                              "  <- /lacp-bundles/bundles/bundle/bundle-interface\n"
                              "config/name\n  with the key /lacp/interfaces/interface/name\n"
                              "config/interval\n  <-> /interface-configurations/interface-configuration/lacp/period\n"),
                    HasSubstr("\nstate/interval\n  none\nstate/lacp-mode\n  <- /lacp-bundles/bundles/bundle/data/"
                              "applied-lacp-mode\n")));
  EXPECT_THAT(explainer_.explain("/lacp-bundles/bundles/bundle/members/member"),
              AllOf(HasSubstr("\nAn entry of it is read as an entry of\n"
                              "  /openconfig-lacp:lacp/interfaces/interface/members/member\n\n"),
                    HasSubstr("\nlink-data/actor-port-id\n  -> /lacp/interfaces/interface/members/member/state/"
                              "port-num\n")));
}

TEST_F(ExplainerTest, LinesOfAContainer_FitInto80ColumnsUnlessOnePath) {
  for (const char* path : {"/lacp", "/lacp-bundles", "/interface-configurations"}) {
    std::istringstream lines(explainer_.explain(path));
    for (std::string line; std::getline(lines, line);) {
      const size_t path_at = line.find('/');
      EXPECT_TRUE(line.size() <= 80 || (path_at <= 6 && line.find(' ', path_at) == std::string::npos)) << line;
    }
  }
}

TEST_F(ExplainerTest, NameOfBothSides_ExplainsBoth) {
  EXPECT_THAT(explainer_.explain("/lacp"),
              AllOf(StartsWith("/openconfig-lacp:lacp\n"), HasSubstr("\n\n/Talvo-Brin-QD-bundlemgr-cfg:lacp\n")));
}

TEST_F(ExplainerTest, ServedLeaf_NamesItsHandlerAndTargets) {
  const Explained explained;
  for (const std::vector<LeafRow>* rows : {&explained.tables.openconfig(), &explained.tables.native()}) {
    for (const LeafRow& row : *rows) {
      const std::string text = explainer_.explain(schema_path(row.schema));
      EXPECT_THAT(text, HasSubstr(std::string("  handler      ") + row.leaf->handler + "\n")) << row.leaf->node;
      for (const lysc_node* target : row.targets) {
        EXPECT_THAT(text, HasSubstr("\n  " + schema_path(target) + "\n")) << row.leaf->node;
      }
    }
  }
}

}  // namespace
}  // namespace oclacp::host
