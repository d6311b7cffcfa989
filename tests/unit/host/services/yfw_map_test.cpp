#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "host/services/mapping_context.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

class Classification : public testing::Test {
 protected:
  SchemaIndex paths_{schemas().native()};
  OutputLog log_{paths_, true};
  MappingContext edit_{YFW_REQUEST_EDIT, log_};
};

TEST_F(Classification, EqualTexts_Match) {
  EXPECT_NE(yfw_map_do_these_match("config", "config"), 0);
  EXPECT_EQ(yfw_map_do_these_match("config", "Config"), 0);
  EXPECT_EQ(yfw_map_do_these_match("config", "configuration"), 0);
}

TEST_F(Classification, NullTexts_DoNotMatch) {
  EXPECT_EQ(yfw_map_do_these_match(nullptr, nullptr), 0);
  EXPECT_EQ(yfw_map_do_these_match("a", nullptr), 0);
  EXPECT_EQ(yfw_map_do_these_match(nullptr, "a"), 0);
}

TEST_F(Classification, DeleteOrRemove_IsADelete) {
  for (const char* operation : {"delete", "remove"}) {
    RequestTree tree = parse(lacp(R"("@": {"ietf-netconf:operation": ")" + std::string(operation) + "\"}"));
    EXPECT_NE(yfw_map_is_request_delete(tree.top()), 0) << operation;
    EXPECT_EQ(yfw_map_is_request_add(&edit_, tree.top()), 0) << operation;
  }
}

TEST_F(Classification, MergeReplaceOrCreate_IsAnAdd) {
  for (const char* operation : {"merge", "replace", "create"}) {
    RequestTree tree = parse(lacp(R"("@": {"ietf-netconf:operation": ")" + std::string(operation) + "\"}"));
    EXPECT_EQ(yfw_map_is_request_delete(tree.top()), 0) << operation;
    EXPECT_NE(yfw_map_is_request_add(&edit_, tree.top()), 0) << operation;
  }
}

TEST_F(Classification, NodeWithoutAnOperation_TakesTheNearestAbove) {
  RequestTree tree = parse(interface(R"("@": {"ietf-netconf:operation": "delete"}, "name": "a", "config": {
      "@": {"ietf-netconf:operation": "replace"}, "interval": "FAST"})"));
  EXPECT_NE(yfw_map_is_request_delete(find(tree, {"interfaces", "interface", "name"})), 0);
  EXPECT_EQ(yfw_map_is_request_delete(find(tree, {"interfaces", "interface", "config", "interval"})), 0);
  EXPECT_EQ(yfw_map_is_request_delete(find(tree, {"interfaces"})), 0);
}

TEST_F(Classification, OperationChangedByTheModule_Applies) {
  RequestTree tree = parse(interface(R"("name": "a")"));
  find(tree, {"interfaces", "interface"})->operation = YFW_OPERATION_REMOVE;
  EXPECT_NE(yfw_map_is_request_delete(find(tree, {"interfaces", "interface", "name"})), 0);
}

TEST_F(Classification, Read_IsNotAnAdd) {
  RequestTree tree = parse(lacp(""));
  for (const uint32_t operation : {YFW_REQUEST_READ_CONFIG, YFW_REQUEST_READ_STATE}) {
    MappingContext read(operation, log_);
    EXPECT_EQ(yfw_map_is_request_add(&read, tree.top()), 0) << operation;
  }
}

cerrno check_leafref(MappingContext& request, RequestTree& tree) {
  return yfw_map_check_oc_leafref(&request, "/lacp/interfaces/interface", "config", "name",
                                  find(tree, {"interfaces", "interface"}));
}

TEST_F(Classification, KeyWithAnEqualOrMissingTarget_IsAccepted) {
  for (const char* content : {R"("name": "a", "config": {"name": "a"})", R"("name": "a", "config": {})",
                              R"("name": "a")", R"("name": "a", "config": {"name": ""})"}) {
    RequestTree tree = parse(interface(content));
    EXPECT_EQ(check_leafref(edit_, tree), YFW_OK) << content;
  }
  EXPECT_FALSE(edit_.refused());
}

TEST_F(Classification, KeyThatDiffersFromItsTarget_IsRefused) {
  RequestTree tree = parse(interface(R"("name": "a", "config": {"name": "b"})"));
  EXPECT_EQ(check_leafref(edit_, tree), kKeyDisagrees);
  ASSERT_TRUE(edit_.refused());
  EXPECT_EQ(edit_.refused()->node, find(tree, {"interfaces", "interface", "config", "name"}));
  EXPECT_EQ(edit_.refused()->reason, "'b' differs from the list key that refers to it");
}

}  // namespace
}  // namespace oclacp::host
