#include "host/trees/subtree_filter.h"

#include "host/trees/path_request.h"
#include "tests/unit/host/trees/answer_test.h"

namespace oclacp::host {
namespace {

constexpr const char* kAnswer =
    R"({"openconfig-lacp:lacp": {"config": {"system-priority": 5}, "interfaces": {"interface": [
    {"name": "a", "config": {"name": "a", "interval": "FAST", "lacp-mode": "ACTIVE"}},
    {"name": "b", "config": {"name": "b", "interval": "SLOW"}}]}}})";

// What a request leaves of the answer, in JSON without blanks.
std::string pruned(RequestTree request) {
  NodeShapes shapes;
  ValueCheck values;
  AnswerData answer = answer_of(parse_answer(kAnswer), shapes);
  apply_subtree_filter(answer, {request.top()}, values);
  return squeezed_json(answer);
}

std::string by_path(const std::string& path) {
  return pruned(parse_paths(schemas().request(), {path}));
}

std::string interfaces(const std::string& entries) {
  return R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[)" + entries + "]}}}";
}

TEST(Prune, NodeWithoutContent_SelectsItsSubtree) {
  EXPECT_THAT(by_path("/lacp"), testing::AllOf(testing::HasSubstr("priority"), testing::HasSubstr("\"b\"")));
  EXPECT_EQ(by_path("/lacp/config"), R"({"openconfig-lacp:lacp":{"config":{"system-priority":5}}})");
}

TEST(Prune, Key_SelectsItsEntry) {
  EXPECT_EQ(by_path("/lacp/interfaces/interface[name='b']"),
            interfaces(R"({"name":"b","config":{"name":"b","interval":"SLOW"}})"));
  EXPECT_EQ(by_path("/lacp/interfaces/interface[name='c']"), "{}");
}

TEST(Prune, SelectedLeaf_ComesWithItsKeyOnly) {
  EXPECT_EQ(by_path("/lacp/interfaces/interface/config/lacp-mode"),
            interfaces(R"({"name":"a","config":{"lacp-mode":"ACTIVE"}})"));
  EXPECT_EQ(by_path("/lacp/interfaces/interface/name"), interfaces(R"({"name":"a"},{"name":"b"})"));
}

TEST(Prune, LeafThatIsMatchedAndSelected_StandsAlone) {
  EXPECT_EQ(by_path("/lacp/interfaces/interface[name='b']/name"), interfaces(R"({"name":"b"})"));
  EXPECT_EQ(by_path("/lacp/interfaces/interface/config[lacp-mode='ACTIVE']/lacp-mode"),
            interfaces(R"({"name":"a","config":{"lacp-mode":"ACTIVE"}})"));
  EXPECT_EQ(by_path("/lacp/interfaces/interface[name='c']/name"), "{}");
  EXPECT_EQ(by_path("/lacp/interfaces/interface/config[lacp-mode='PASSIVE']/lacp-mode"), "{}");
}

TEST(Prune, NodeAbsentFromTheAnswer_IsEmpty) {
  EXPECT_EQ(by_path("/lacp/interfaces/interface[name='b']/config/lacp-mode"), "{}");
  EXPECT_EQ(by_path("/lacp/state"), "{}");
}

TEST(Prune, MatchAlone_SelectsItsWholeContainer) {
  EXPECT_EQ(by_path("/lacp/interfaces/interface/config/interval[.='SLOW']"),
            interfaces(R"({"name":"b","config":{"name":"b","interval":"SLOW"}})"));
  EXPECT_EQ(by_path("/lacp/interfaces/interface[name='a']/config/interval[.='SLOW']"), "{}");
}

TEST(Prune, MatchBesideASelection_KeepsTheSelectedLeaves) {
  const auto request = [](const std::string& mode) {
    return parse(interface(R"("config": {"interval": [null], "lacp-mode": ")" + mode + "\"}"));
  };
  EXPECT_EQ(pruned(request("ACTIVE")), interfaces(R"({"name":"a","config":{"interval":"FAST","lacp-mode":"ACTIVE"}})"));
  EXPECT_EQ(pruned(request("PASSIVE")), "{}");
}

TEST(Prune, SeveralEntries_AreAllSelected) {
  EXPECT_EQ(pruned(parse(lacp(R"("interfaces": {"interface": [{"name": "b", "config": {"interval": [null]}},
                                                             {"name": "a"}]})"))),
            interfaces(R"({"name":"a","config":{"name":"a","interval":"FAST","lacp-mode":"ACTIVE"}},)"
                       R"({"name":"b","config":{"interval":"SLOW"}})"));
}

TEST(Prune, TwoFiltersOfOneEntry_AreMerged) {
  EXPECT_EQ(pruned(parse(lacp(R"("interfaces": {"interface": [
                {"name": "a", "config": {"interval": [null]}}, {"config": {"lacp-mode": [null]}}]})"))),
            interfaces(R"({"name":"a","config":{"interval":"FAST","lacp-mode":"ACTIVE"}})"));
}

TEST(Prune, FilterWithoutAMatch_LeavesTheOtherUnchanged) {
  EXPECT_EQ(pruned(parse(lacp(R"("interfaces": {"interface": [
                {"config": {"interval": "SLOW", "lacp-mode": [null]}}, {"config": {"interval": [null]}}]})"))),
            interfaces(R"({"name":"a","config":{"interval":"FAST"}},{"name":"b","config":{"interval":"SLOW"}})"));
}

}  // namespace
}  // namespace oclacp::host
