/* The smallest framework: it loads the installed module and gives it the two services that one helper needs. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "imc/imc.h"
#include "oclacp/interface_helpers.h"
#include "oclacp/openconfig_lacp.h"
#include "sysdb/sysdb.h"
#include "yfw/strings.h"

imc_handle yfw_ocifmgr_im_conn;
sysdb_handle yfw_intf_mgbl_connid;

cerrno yfw_strncpy_s(const char* caller, char* destination, size_t size, const char* source, size_t count) {
  (void)caller;
  const size_t length = strnlen(source, count);
  if (length >= size) return YFW_INVALID_ARGUMENTS;
  memcpy(destination, source, length);
  destination[length] = '\0';
  return YFW_OK;
}

int main(void) {
  void* module = dlopen(MODULE, RTLD_LAZY | RTLD_LOCAL);
  if (module == NULL) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  if (dlsym(module, "ymap_oq_oclacp_openconfiglacp_lvla_lacp") == NULL) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  void (*to_entry)(char*, const char*, yfw_map_ctx);
  *(void**)&to_entry = dlsym(module, "convert_oc_ifname_ifentry");
  if (to_entry == NULL) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  char entry[65];
  to_entry(entry, "GigabitEthernet0/0/0/1", NULL);
  printf("%s\n", entry);
  return strcmp(entry, "GigabitEthernet0_0_0_1") == 0 ? 0 : 1;
}
