#include "host/services/mapping_context.h"

#include "host/base/contract.h"
#include "host/base/status_text.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

class MappingContextTest : public testing::Test {
 protected:
  SchemaIndex paths_{schemas().native()};
  OutputLog log_{paths_, true};
  MappingContext request_{YFW_REQUEST_EDIT, log_};
  RequestTree tree_ = parse(interface(R"("name": "Bundle-Ether1", "config": {"interval": "FAST"})"));
  yfw_datatree* entry_ = find(tree_, {"interfaces", "interface"});
  yfw_datatree* config_ = find(tree_, {"interfaces", "interface", "config"});
};

TEST_F(MappingContextTest, Handle_LeadsToTheContext) {
  yfw_map_ctx ctx = &request_;
  EXPECT_EQ(&MappingContext::of(ctx), &request_);
  EXPECT_EQ(ctx->request->descriptor->operation, static_cast<uint32_t>(YFW_REQUEST_EDIT));
  EXPECT_EQ(ctx->request->error_tag, nullptr);
  EXPECT_EQ(ctx->trace_enabled, 0U);
}

TEST_F(MappingContextTest, Position_IsTheNodeEnteredAndNotLeft) {
  EXPECT_EQ(request_.position(), nullptr);
  yfw_map_add_to_node_hierarchy(&request_, entry_, YFW_HIERARCHY_LIST);
  yfw_map_add_to_node_hierarchy(&request_, config_, YFW_HIERARCHY_CONTAINER);
  EXPECT_EQ(request_.position(), config_);
  yfw_map_remove_from_node_hierarchy(&request_, config_);
  EXPECT_EQ(request_.position(), entry_);
  EXPECT_EQ(request_.last_entered(), config_);
}

TEST_F(MappingContextTest, ErrorMarkedTwice_KeepsTheFirst) {
  yfw_map_add_to_node_hierarchy(&request_, entry_, YFW_HIERARCHY_LIST);
  yfw_oc_error_path(&request_);
  yfw_map_add_to_node_hierarchy(&request_, config_, YFW_HIERARCHY_CONTAINER);
  yfw_oc_error_path(&request_);
  EXPECT_EQ(request_.marked_node(), entry_);
}

TEST_F(MappingContextTest, ErrorUnderAWholeSubtree_IsNotMarked) {
  yfw_map_add_to_node_hierarchy(&request_, config_, YFW_HIERARCHY_CONTAINER);
  request_.request->whole_subtree = 1;
  yfw_oc_error_path(&request_);
  EXPECT_EQ(request_.marked_node(), nullptr);
}

TEST_F(MappingContextTest, KeyOfAnEnclosingEntry_IsFound) {
  const char* value = "untouched";
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interface", "name", &value), kNotFound);
  EXPECT_EQ(value, nullptr);
  yfw_map_add_to_node_hierarchy(&request_, entry_, YFW_HIERARCHY_LIST);
  yfw_map_add_to_node_hierarchy(&request_, config_, YFW_HIERARCHY_CONTAINER);
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interface", "name", &value), YFW_OK);
  EXPECT_STREQ(value, "Bundle-Ether1");
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/interfaces/interface", "name", &value), kNotFound);
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interface", "colour", &value), kNotFound);
}

cerrno no_callback(yfw_map_ctx /*ctx*/, const yfw_datatree* /*entry*/, yfw_datatree* /*output*/) {
  return YFW_OK;
}

TEST_F(MappingContextTest, ItreeStack_IsLastInFirstOut) {
  EXPECT_EQ(yfw_map_util_itree_stack_size(&request_), 0);
  yfw_map_util_itree_stack_push(&request_, entry_->children, entry_->child_count, nullptr);
  yfw_map_util_itree_stack_push(&request_, config_->children, config_->child_count, &no_callback);
  EXPECT_EQ(yfw_map_util_itree_stack_size(&request_), 2);
  yfw_itree_entry top{};
  yfw_map_util_itree_stack_peak(&request_, &top);
  EXPECT_EQ(top.children, config_->children);
  EXPECT_EQ(top.child_count, 1U);
  EXPECT_EQ(top.callback, &no_callback);
  yfw_map_util_itree_stack_pop(&request_);
  yfw_map_util_itree_stack_peak(&request_, &top);
  EXPECT_EQ(top.children, entry_->children);
  EXPECT_EQ(top.callback, nullptr);
  yfw_map_util_itree_stack_pop(&request_);
  EXPECT_EQ(yfw_map_util_itree_stack_size(&request_), 0);
}

TEST_F(MappingContextTest, RefusedAdditionIgnoredByTheModule_FailsTheRequest) {
  const cerrno status =
      yfw_map_datatree_add_path_flagged(&request_, request_.output_root(), "/no/such", kIfmgr, "1", config_, 0, 0, 0);
  EXPECT_EQ(status, kUnknownPath);
  ASSERT_TRUE(request_.refused());
  EXPECT_EQ(request_.refused()->node, config_);
  EXPECT_EQ(request_.refused()->reason, "native /no/such: no such native node");
}

TEST_F(MappingContextTest, LeafOfAContainerInAnEnclosingEntry_IsFound) {
  const char* value = nullptr;
  yfw_map_add_to_node_hierarchy(&request_, entry_, YFW_HIERARCHY_LIST);
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interface/config", "interval", &value), YFW_OK);
  EXPECT_STREQ(value, "FAST");
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interface/state", "interval", &value), kNotFound);
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interfaces", "name", &value), kNotFound);
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/inter", "name", &value), kNotFound);
  yfw_map_add_to_node_hierarchy(&request_, config_, YFW_HIERARCHY_CONTAINER);
  EXPECT_EQ(yfw_map_get_node_info(&request_, "/lacp/interfaces/interface/config", "interval", &value), YFW_OK);
  EXPECT_STREQ(value, "FAST");
}

TEST_F(MappingContextTest, OutputList_IsCounted) {
  yfw_add_to_output_list_ctx(&request_, request_.output_root());
  yfw_add_to_output_list_ctx(&request_, request_.output_root());
  EXPECT_EQ(request_.request->output_list_count, 2U);
  yfw_remove_from_output_list_ctx(&request_, request_.output_root());
  EXPECT_EQ(request_.request->output_list_count, 1U);
}

}  // namespace
}  // namespace oclacp::host
