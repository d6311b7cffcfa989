#include "host/explain/coverage.h"

#include "host/explain/coverage_printer.h"
#include "host/translation/translator.h"
#include "tests/support/locations.h"
#include "tests/unit/host/explain/explain_test.h"

namespace oclacp::host {
namespace {

class CoverageTest : public testing::Test {
 protected:
  const CoveredLeaf& at(const std::string& path) {
    const lysc_node* node = explained_.node(path);
    const auto found = std::find_if(coverage_.leaves.begin(), coverage_.leaves.end(),
                                    [&](const CoveredLeaf& leaf) { return leaf.schema == node; });
    EXPECT_NE(found, coverage_.leaves.end()) << path;
    return *found;
  }

  Explained explained_;
  const Coverage coverage_ = explained_.coverage();
  const std::string entry_ = kOcEntry;
  const std::string member_ = kOcMember;
};

TEST_F(CoverageTest, Leaves_AreThoseOfTheSchema) {
  std::vector<const lysc_node*> covered;
  for (const CoveredLeaf& leaf : coverage_.leaves) {
    covered.push_back(leaf.schema);
  }
  EXPECT_EQ(covered, leaves_of(explained_.node("/openconfig-lacp:lacp")));
}

TEST_F(CoverageTest, ConfigurationAndStateLeaves_DifferInEdits) {
  EXPECT_TRUE(at(entry_ + "config/interval").in_edits);
  EXPECT_TRUE(at(entry_ + "config/interval").in_reads);
  EXPECT_FALSE(at(member_ + "state/activity").in_edits);
  EXPECT_TRUE(at(member_ + "state/activity").in_reads);
  EXPECT_THAT(
      at(member_ + "state/activity").sources,
      testing::ElementsAre(explained_.node("/lacp-bundles/bundles/bundle/members/member/link-data/actor-port-state")));
}

TEST_F(CoverageTest, LeafRefusedByEveryRequest_IsNotServed) {
  std::vector<std::string> unserved;
  for (const CoveredLeaf& leaf : coverage_.leaves) {
    if (!leaf.is_served()) {
      unserved.push_back(bare_path(leaf.schema));
      EXPECT_TRUE(leaf.is_known);
      EXPECT_THAT(leaf.sources, testing::IsEmpty());
      EXPECT_EQ(leaf.refusal, explained_.probe.read(leaf.schema).refusal);
      EXPECT_EQ(reason_of(leaf), "refused, has no source");
    }
  }
  EXPECT_THAT(unserved, testing::ElementsAre(entry_ + "state/interval", member_ + "state/counters/lacp-tx-errors"));
}

TEST_F(CoverageTest, ReasonOf_FollowsWhatIsKnownOfTheLeaf) {
  CoveredLeaf leaf = at(entry_ + "state/interval");
  ASSERT_TRUE(leaf.refusal);
  leaf.refusal.reset();
  EXPECT_EQ(reason_of(leaf), "has no effect, has no source");
  leaf.sources = at(entry_ + "name").sources;
  EXPECT_EQ(reason_of(leaf), "has no effect");
  leaf.is_known = false;
  EXPECT_EQ(reason_of(leaf), "unknown to the mapping");
}

TEST_F(CoverageTest, LeafServedByAnyRequest_HasNoRefusal) {
  EXPECT_EQ(at(entry_ + "config/interval").refusal, std::nullopt);
  EXPECT_EQ(at(entry_ + "state/lacp-mode").refusal, std::nullopt);
}

TEST_F(CoverageTest, LeafServedInReads_IsReadByItsPath) {
  Translator translator({location::kSchemas, ""}, location::kModule);
  for (const CoveredLeaf& leaf : coverage_.leaves) {
    const std::string path = bare_path(leaf.schema);
    const std::string refusal =
        refusal_of([&] { translator.get(EmptySnapshot(), {path}, {.content = Content::kAll}); });
    EXPECT_EQ(refusal == "accepted", leaf.in_reads) << path << ": " << refusal;
  }
}

TEST_F(CoverageTest, LeafThatTheKeyRefersTo_IsServedWithTheKey) {
  const CoveredLeaf& name = at(entry_ + "config/name");
  EXPECT_EQ(name.key, explained_.node(entry_ + "name"));
  EXPECT_TRUE(name.in_edits);
  EXPECT_TRUE(name.in_reads);
}

TEST_F(CoverageTest, Sources_AreThoseOfTheLeafMappings) {
  LeafMappingFinder& mappings = explained_.mappings;
  for (const CoveredLeaf& leaf : coverage_.leaves) {
    std::vector<const lysc_node*> read_from;
    for (const LeafMapping& mapping : mappings.to(leaf.schema)) {
      read_from.push_back(mapping.from);
    }
    EXPECT_EQ(leaf.sources, read_from) << bare_path(leaf.schema);
  }
  EXPECT_THAT(at(entry_ + "name").sources,
              testing::ElementsAre(explained_.node(std::string(kEntry) + "interface-name"),
                                   explained_.node("/lacp-bundles/bundles/bundle/bundle-interface")));
}

TEST_F(CoverageTest, SeveralSources_ArePathsOfTheirOwnInMarkdown) {
  EXPECT_THAT(coverage_markdown(coverage_),
              testing::HasSubstr("\n| name | yes | yes | `/interface-configurations/interface-configuration/"
                                 "interface-name`, `/lacp-bundles/bundles/bundle/bundle-interface` |\n"));
}

TEST_F(CoverageTest, Table_FitsInto80Columns) {
  const std::string table = coverage_table(coverage_);
  EXPECT_THAT(table, testing::StartsWith("openconfig-lacp, revision 2021-07-20\n"
                                         "35 leaves: 7 are served in edits, 33 in reads, 2 not at all.\n"));
  EXPECT_THAT(table, testing::HasSubstr("\n/lacp/interfaces/interface/config\n"
                                        "  natively below /interface-configurations/interface-configuration/lacp\n"
                                        "  leaf             edits  reads  native\n"
                                        "  name             yes    yes    with the key name\n"
                                        "  interval         yes    yes    period\n"));
  EXPECT_THAT(table, testing::HasSubstr("\n  interval         -      -      refused, has no source\n"));
  EXPECT_THAT(table, testing::HasSubstr("\n/lacp/interfaces/interface\n"
                                        "  natively below /interface-configurations/interface-configuration\n"
                                        "             and /lacp-bundles/bundles/bundle\n"
                                        "  leaf  edits  reads  native\n"
                                        "  name  yes    yes    interface-name, bundle-interface\n"));
  std::istringstream lines(table);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80U) << line;
  }
}

TEST_F(CoverageTest, Json_HasAllThatIsKnownOfALeaf) {
  EXPECT_THAT(coverage_json(coverage_),
              testing::AllOf(
                  testing::HasSubstr(
                      R"({"path": "/openconfig-lacp:lacp/state/system-priority", "edits": false, "reads": true, )"
                      R"("sources": ["/Talvo-Brin-QD-bundlemgr-oper:lacp-data/global/system-id/system-id/)"
                      R"(system-prio"], "key": null})"),
                  testing::HasSubstr(R"("sources": [], "key": "/openconfig-lacp:lacp/interfaces/interface/name"})")));
}

}  // namespace
}  // namespace oclacp::host
