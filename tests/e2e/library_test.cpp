// The host's library as a module finds it.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "tests/support/locations.h"

namespace support {
namespace {

// What a loaded module takes from the host: everything that the contract's headers declare.
TEST(Library, Loaded_ExportsTheContract) {
  void* library = dlopen(location::kHostLibrary, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  for (const char* name : {"_lstrace",
                           "_sysdb_bind",
                           "_sysdb_unbind",
                           "access",
                           "bag_register",
                           "bag_register_abort",
                           "bag_register_end",
                           "bag_register_start",
                           "cerr_strerror",
                           "dt_log_filter_adv",
                           "get_intf_type_if_lacp_configured",
                           "imc_db_bind",
                           "imc_db_unbind",
                           "imc_display_namestring",
                           "imc_ifname_parse",
                           "imc_interface_find",
                           "imc_s_interface_get_flags",
                           "named_free",
                           "platform_get_router_type",
                           "ret_nc_yfw_trace_index_incr",
                           "sysdb_find",
                           "sysdb_list_free",
                           "sysdb_list_next",
                           "yfw_add_to_output_list_ctx",
                           "yfw_debug_should_log",
                           "yfw_intf_mgbl_connid",
                           "yfw_map_add_to_node_hierarchy",
                           "yfw_map_check_oc_leafref",
                           "yfw_map_copy_trim_path_list_ctx",
                           "yfw_map_datatree_add_path_flagged",
                           "yfw_map_do_these_match",
                           "yfw_map_get_node_info",
                           "yfw_map_is_request_add",
                           "yfw_map_is_request_delete",
                           "yfw_map_remove_from_node_hierarchy",
                           "yfw_map_search_or_add_list",
                           "yfw_map_update_current_list_node",
                           "yfw_map_util_itree_stack_peak",
                           "yfw_map_util_itree_stack_pop",
                           "yfw_map_util_itree_stack_push",
                           "yfw_map_util_itree_stack_size",
                           "yfw_oc_error_path",
                           "yfw_ocifmgr_im_conn",
                           "yfw_remove_from_output_list_ctx",
                           "yfw_strcmp_s",
                           "yfw_strcpy_s",
                           "yfw_strdup",
                           "yfw_strncpy_s"}) {
    EXPECT_NE(dlsym(library, name), nullptr) << name;
  }
  dlclose(library);
}

}  // namespace
}  // namespace support
