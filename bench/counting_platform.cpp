#include "counting_platform.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "bag/bag.h"
#include "imc/imc.h"
#include "platform/router.h"
#include "sysdb/sysdb.h"
#include "yfw/log.h"
#include "yfw/map.h"
#include "yfw/strings.h"

// The parameters that a platform which keeps nothing has no use for.
// NOLINTBEGIN(misc-unused-parameters)

namespace bench {

CountingPlatform& counting_platform() {
  static CountingPlatform platform;
  return platform;
}

}  // namespace bench

namespace {

bench::CountingPlatform& counted() {
  bench::CountingPlatform& platform = bench::counting_platform();
  ++platform.calls;
  return platform;
}

}  // namespace

extern "C" {

imc_handle yfw_ocifmgr_im_conn;
sysdb_handle yfw_intf_mgbl_connid;

uint32_t platform_get_router_type() {
  counted();
  return 7;
}

cerrno imc_db_bind(const uint32_t* /*kind*/, uint32_t /*mode*/, imc_handle* connection) {
  *connection = reinterpret_cast<imc_handle>(&counted());
  return YFW_OK;
}

cerrno imc_db_unbind(imc_handle* /*connection*/, uint32_t /*zero*/) {
  counted();
  return YFW_OK;
}

cerrno bag_register_start() {
  counted();
  return YFW_OK;
}

cerrno bag_register(const bag_descriptor* /*descriptor*/) {
  counted();
  return YFW_OK;
}

cerrno bag_register_end() {
  counted();
  return YFW_OK;
}

void bag_register_abort() {
  counted();
}

// The probe for the data-store client's library, which is here.
int access(const char* /*path*/, int /*mode*/) noexcept {
  counted();
  return 0;
}

const char* cerr_strerror(cerrno /*status*/) {
  counted();
  return "";
}

int yfw_debug_should_log(const uintptr_t* /*filter*/, uint32_t /*level*/) {
  counted();
  return 0;
}

void dt_log_filter_adv(yfw_log_stream* /*stream*/, int /*zero1*/, int /*zero2*/, int /*zero3*/, int /*zero4*/,
                       int /*zero5*/, uint32_t* /*site*/, const char* /*format*/, ...) {
  counted();
}

uint32_t ret_nc_yfw_trace_index_incr() {
  counted();
  return 0;
}

void _lstrace(yfw_trace_buffer* /*buffer*/, uint64_t /*flags*/, const char* /*text*/) {
  counted();
}

char* yfw_strdup(const char* text, const char* /*allocation_tag*/) {
  counted();
  return strdup(text);
}

void named_free(void* memory) {
  counted();
  std::free(memory);
}

cerrno yfw_strcpy_s(const char* /*caller*/, char* destination, size_t size, const char* source) {
  counted();
  const size_t length = std::strlen(source);
  if (length >= size) return YFW_INVALID_ARGUMENTS;
  std::memcpy(destination, source, length + 1);
  return YFW_OK;
}

cerrno yfw_strncpy_s(const char* /*caller*/, char* destination, size_t size, const char* source, size_t count) {
  counted();
  const size_t length = strnlen(source, count);
  if (length >= size) return YFW_INVALID_ARGUMENTS;
  std::memcpy(destination, source, length);
  destination[length] = '\0';
  return YFW_OK;
}

cerrno yfw_strcmp_s(const char* /*caller*/, const char* text, size_t max, const char* other, int* difference) {
  counted();
  *difference = std::strncmp(text, other, max);
  return YFW_OK;
}

int yfw_map_do_these_match(const char* one, const char* other) {
  counted();
  return one != nullptr && other != nullptr && std::strcmp(one, other) == 0 ? 1 : 0;
}

int yfw_map_is_request_delete(const yfw_datatree* node) {
  counted();
  for (; node != nullptr; node = static_cast<const yfw_datatree*>(node->framework)) {
    if (node->operation != YFW_OPERATION_NONE) {
      return node->operation == YFW_OPERATION_DELETE || node->operation == YFW_OPERATION_REMOVE ? 1 : 0;
    }
  }
  return 0;
}

int yfw_map_is_request_add(yfw_map_ctx /*ctx*/, const yfw_datatree* node) {
  return yfw_map_is_request_delete(node) == 0 ? 1 : 0;
}

void yfw_oc_error_path(yfw_map_ctx /*ctx*/) {
  counted();
}

void yfw_map_add_to_node_hierarchy(yfw_map_ctx /*ctx*/, const yfw_datatree* /*node*/, int /*kind*/) {
  counted();
}

void yfw_map_remove_from_node_hierarchy(yfw_map_ctx /*ctx*/, const yfw_datatree* /*node*/) {
  counted();
}

cerrno yfw_map_update_current_list_node(yfw_map_ctx /*ctx*/, const char* /*list_path*/) {
  counted();
  return YFW_OK;
}

cerrno yfw_map_check_oc_leafref(yfw_map_ctx /*ctx*/, const char* /*list_path*/, const char* /*container*/,
                                const char* /*key*/, const yfw_datatree* /*entry*/) {
  counted();
  return YFW_OK;
}

cerrno yfw_map_datatree_add_path_flagged(yfw_map_ctx /*ctx*/, yfw_datatree* /*output*/, const char* /*path*/,
                                         const char* /*ns*/, const char* /*value*/, const yfw_datatree* /*source*/,
                                         uintptr_t /*word*/, int /*list_flag*/, int /*last_flag*/) {
  ++counted().additions;
  return YFW_OK;
}

// The native direction is not measured: what only native data asks for is not answered.
cerrno yfw_map_get_node_info(yfw_map_ctx /*ctx*/, const char* /*path*/, const char* /*leaf*/, const char** /*value*/) {
  std::abort();
}

cerrno yfw_map_search_or_add_list(yfw_map_ctx /*ctx*/, yfw_datatree* /*output*/, yfw_datatree** /*entry*/,
                                  const char* /*list_path*/, const char* /*key_value*/, const char* /*key_name*/,
                                  const char* /*ns*/) {
  std::abort();
}

void yfw_add_to_output_list_ctx(yfw_map_ctx /*ctx*/, yfw_datatree* /*output*/) {
  std::abort();
}

void yfw_remove_from_output_list_ctx(yfw_map_ctx /*ctx*/, yfw_datatree* /*output*/) {
  std::abort();
}

void yfw_map_copy_trim_path_list_ctx(yfw_map_ctx /*ctx*/, const char* /*list_path*/) {
  std::abort();
}

uint32_t get_intf_type_if_lacp_configured(const char* /*interface_name*/) {
  std::abort();
}

void yfw_map_util_itree_stack_push(yfw_map_ctx /*ctx*/, yfw_datatree* /*children*/, unsigned int /*child_count*/,
                                   yfw_itree_callback /*callback*/) {
  counted();
}

void yfw_map_util_itree_stack_pop(yfw_map_ctx /*ctx*/) {
  counted();
}

// Nothing is looked at between a push and its pop, so the stack always seems empty.
uint16_t yfw_map_util_itree_stack_size(yfw_map_ctx /*ctx*/) {
  counted();
  return 0;
}

void yfw_map_util_itree_stack_peak(yfw_map_ctx /*ctx*/, yfw_itree_entry* /*top*/) {
  std::abort();
}

cerrno _sysdb_bind(sysdb_handle* connection, const char* /*path*/, uint32_t /*flags*/) {
  *connection = reinterpret_cast<sysdb_handle>(&counted());
  return YFW_OK;
}

cerrno _sysdb_unbind(sysdb_handle /*connection*/) {
  counted();
  return YFW_OK;
}

cerrno sysdb_find(sysdb_handle /*connection*/, const char* /*pattern*/, const char* /*second_pattern*/, uint32_t* count,
                  sysdb_list_handle* list, uint32_t /*flags*/, uint32_t /*zero*/) {
  bench::CountingPlatform& platform = counted();
  platform.next_item = 0;
  *count = static_cast<uint32_t>(platform.store_items.size());
  *list = reinterpret_cast<sysdb_list_handle>(&platform);
  return YFW_OK;
}

cerrno sysdb_list_next(sysdb_list_handle /*list*/, char** path, uint32_t* /*item_type*/, uint32_t* /*item_size*/) {
  bench::CountingPlatform& platform = counted();
  platform.given_item = platform.store_items[platform.next_item++];
  *path = platform.given_item.data();
  return YFW_OK;
}

cerrno sysdb_list_free(sysdb_list_handle /*list*/) {
  counted();
  return YFW_OK;
}

cerrno imc_interface_find(imc_handle /*connection*/, uint32_t /*key_kind*/, const imc_interface_key* /*key*/,
                          uint32_t /*zero*/, const imc_interface_attributes* attributes) {
  counted();
  *attributes->attribute = IMC_ATTRIBUTE_VIRTUAL;
  return YFW_OK;
}

cerrno imc_s_interface_get_flags(imc_handle /*connection*/, uint32_t /*interface_handle*/, uint32_t /*zero*/,
                                 uint64_t* /*flags*/) {
  counted();
  return YFW_OK;
}

cerrno imc_ifname_parse(const char* /*name*/, uint32_t /*zero*/, imc_ifname_parse_result* /*result*/) {
  counted();
  return YFW_OK;
}

cerrno imc_display_namestring(const char* element, char* display_name, uint32_t size, uint32_t /*zero*/) {
  return yfw_strcpy_s("", display_name, size, element);
}

}  // extern "C"

// NOLINTEND(misc-unused-parameters)
