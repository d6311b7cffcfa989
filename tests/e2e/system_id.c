/*
 * A C program that has a system id in a plain struct: system_id MODULE
 *
 * Compares the struct with the layout that the module describes, and writes its bytes to the standard output.
 */
#include <dlfcn.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#include "imc/imc.h"
#include "oclacp/records.h"
#include "sysdb/sysdb.h"

/* The variables that the module takes from its platform. */
imc_handle yfw_ocifmgr_im_conn;
sysdb_handle yfw_intf_mgbl_connid;

struct mac_record {
  uint8_t macaddr[6];
};

struct system_record {
  uint16_t system_prio;
  struct mac_record system_mac_addr;
};

struct lacp_system_id {
  struct system_record system_id;
  uint32_t iccp_group_id;
  uint16_t system_priority;
  uint8_t system_mac_address[6];
};

static int is_laid_out_as_described(const bag_layout* layout) {
  const bag_further_record* mac = (const bag_further_record*)(layout + 1);
  const bag_further_record* system = mac + 1;
  return layout->further_count == 2 && layout->size == sizeof(struct lacp_system_id) &&
         layout->offsets[0] == offsetof(struct lacp_system_id, system_id) &&
         layout->offsets[1] == offsetof(struct lacp_system_id, iccp_group_id) &&
         layout->offsets[2] == offsetof(struct lacp_system_id, system_priority) &&
         layout->offsets[3] == offsetof(struct lacp_system_id, system_mac_address) &&
         mac->size == sizeof(struct mac_record) && mac->offsets[0] == offsetof(struct mac_record, macaddr) &&
         system->size == sizeof(struct system_record) &&
         system->offsets[0] == offsetof(struct system_record, system_prio) &&
         system->offsets[1] == offsetof(struct system_record, system_mac_addr);
}

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  void* module = dlopen(argv[1], RTLD_LAZY | RTLD_LOCAL);
  const bag_descriptor* (*descriptor)(void) = NULL;
  if (module != NULL) *(void**)&descriptor = dlsym(module, "lacp_system_id_bag_getfn");
  if (descriptor == NULL) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  if (!is_laid_out_as_described(descriptor()->layout)) {
    fprintf(stderr, "%s is laid out in another way than a plain struct\n", descriptor()->name);
    return 1;
  }
  const struct lacp_system_id id = {.system_id = {32768, {{0x00, 0x1b, 0x21, 0xaa, 0xbb, 0xcc}}},
                                    .iccp_group_id = 7,
                                    .system_priority = 100,
                                    .system_mac_address = {0x02, 0x00, 0x00, 0x00, 0x00, 0x09}};
  return fwrite(&id, sizeof id, 1, stdout) == 1 ? 0 : 1;
}
