/* The smallest mapping module: one setting and one measurement of a clock. */
#include <stdint.h>
#include <string.h>

#include "bag/bag.h"
#include "oclacp/leaves.h"
#include "yfw/context.h"
#include "yfw/datatree.h"
#include "yfw/map.h"
#include "yfw/registration.h"
#include "yfw/status.h"
#include "yfw/strings.h"

#define EXPORT __attribute__((visibility("default")))

#define CLOCK_NS "urn:example:clock"
#define NATIVE_NS "urn:example:native-time"

EXPORT cerrno clock_start(void);
EXPORT void clock_stop(void);
EXPORT void clock_register_configuration(yfw_map_registration* registration);
EXPORT void clock_register_state(yfw_map_registration* registration);
EXPORT cerrno clock_register_records(void);
EXPORT oclacp_leaf_table clock_published_leaves(void);
EXPORT oclacp_leaf_table clock_native_configuration_leaves(void);
EXPORT oclacp_leaf_table clock_native_state_leaves(void);

static int reads_state(yfw_map_ctx ctx) {
  return ctx->request->descriptor->operation == YFW_REQUEST_READ_STATE;
}

static int is_read(yfw_map_ctx ctx) {
  return reads_state(ctx) || ctx->request->descriptor->operation == YFW_REQUEST_READ_CONFIG;
}

/* Asks for, sets or deletes one native leaf, for the request's node that stands for it or is around it. */
static cerrno add_native(yfw_map_ctx ctx, const yfw_datatree* node, yfw_datatree* output, const char* path) {
  return yfw_map_datatree_add_path_flagged(ctx, output, path, NATIVE_NS, node->value, is_read(ctx) ? NULL : node, 0, 0,
                                           0);
}

/* The child with a tag; null when only others are named. A node that names no child names all, and stands for each. */
static const yfw_datatree* named(const yfw_datatree* node, const char* tag) {
  for (unsigned int index = 0; index < node->child_count; ++index) {
    if (strcmp(node->children[index].tag, tag) == 0) {
      return &node->children[index];
    }
  }
  return node->child_count == 0 ? node : NULL;
}

static cerrno serve_config(yfw_map_ctx ctx, const yfw_datatree* clock, yfw_datatree* output) {
  const yfw_datatree* config = named(clock, "config");
  const yfw_datatree* zone = config == NULL ? NULL : named(config, "zone");
  if (zone == NULL || (!is_read(ctx) && zone->value == NULL && yfw_map_is_request_delete(zone) == 0)) {
    return YFW_OK;
  }
  return add_native(ctx, zone, output, "/time/timezone");
}

static cerrno serve_request(yfw_map_ctx ctx, const yfw_datatree* clock, yfw_datatree* output) {
  yfw_map_add_to_node_hierarchy(ctx, clock, YFW_HIERARCHY_CONTAINER);
  cerrno status = serve_config(ctx, clock, output);
  const yfw_datatree* state = named(clock, "state");
  if (status == YFW_OK && state != NULL && reads_state(ctx)) {
    if (named(state, "zone") != NULL) {
      status = add_native(ctx, named(state, "zone"), output, "/time/timezone");
    }
    if (status == YFW_OK && named(state, "drift") != NULL) {
      status = add_native(ctx, named(state, "drift"), output, "/time-data/drift");
    }
  }
  yfw_map_remove_from_node_hierarchy(ctx, clock);
  return status;
}

static cerrno report(yfw_map_ctx ctx, const char* value, yfw_datatree* output, const char* path) {
  return yfw_map_datatree_add_path_flagged(ctx, output, path, CLOCK_NS, value, NULL, 0, 0, 0);
}

static cerrno report_time(yfw_map_ctx ctx, const yfw_datatree* time, yfw_datatree* output) {
  cerrno status = YFW_OK;
  for (unsigned int index = 0; index < time->child_count && status == YFW_OK; ++index) {
    status = report(ctx, time->children[index].value, output, "/clock/config/zone");
    if (status == YFW_OK && reads_state(ctx)) {
      status = report(ctx, time->children[index].value, output, "/clock/state/zone");
    }
  }
  return status;
}

static cerrno report_data(yfw_map_ctx ctx, const yfw_datatree* data, yfw_datatree* output) {
  return data->child_count == 0 ? YFW_OK : report(ctx, data->children[0].value, output, "/clock/state/drift");
}

cerrno clock_start(void) {
  return YFW_OK;
}

void clock_stop(void) {}

static void fill(yfw_map_registration* registration, const char* native_root, yfw_map_walker native_walker) {
  const size_t size = YFW_REGISTRATION_TEXT_CAPACITY;
  yfw_strncpy_s("clock", registration->native_ns, size, NATIVE_NS, size);
  yfw_strncpy_s("clock", registration->openconfig_ns, size, CLOCK_NS, size);
  yfw_strncpy_s("clock", registration->native_root, size, native_root, size);
  yfw_strncpy_s("clock", registration->openconfig_root, size, "clock", size);
  registration->openconfig_walker = serve_request;
  registration->native_walker = native_walker;
}

void clock_register_configuration(yfw_map_registration* registration) {
  fill(registration, "time", report_time);
}

void clock_register_state(yfw_map_registration* registration) {
  fill(registration, "time-data", report_data);
}

cerrno clock_register_records(void) {
  static const uint64_t offsets[] = {0};
  static const bag_layout layout = {0, 4, offsets};
  static const bag_descriptor clock = {BAG_DESCRIPTOR_VERSION, "clock",   BAG_DESCRIPTOR_FORMAT, "libclock.so", &layout,
                                       "$4001={drift}D;",      "$4001=D;"};
  cerrno status = bag_register_start();
  if (status == YFW_OK) status = bag_register(&clock);
  return status == YFW_OK ? bag_register_end() : status;
}

oclacp_leaf_table clock_published_leaves(void) {
  static const oclacp_leaf leaves[] = {
      {"/clock/config/zone",
       CLOCK_NS,
       OCLACP_LEAF_COPIED,
       "serve_config",
       "add_native",
       NULL,
       serve_config,
       {{"/time/timezone", NATIVE_NS}},
       1},
      {"/clock/state/drift",
       CLOCK_NS,
       OCLACP_LEAF_ASKED_FOR,
       "serve_request",
       "add_native",
       NULL,
       serve_request,
       {{"/time-data/drift", NATIVE_NS}},
       1},
  };
  return (oclacp_leaf_table){leaves, sizeof leaves / sizeof *leaves};
}

oclacp_leaf_table clock_native_configuration_leaves(void) {
  static const oclacp_leaf leaves[] = {{"/time/timezone",
                                        NATIVE_NS,
                                        OCLACP_LEAF_COPIED,
                                        NULL,
                                        "report_time",
                                        NULL,
                                        report_time,
                                        {{"/clock/config/zone", CLOCK_NS}},
                                        1}};
  return (oclacp_leaf_table){leaves, 1};
}

oclacp_leaf_table clock_native_state_leaves(void) {
  static const oclacp_leaf leaves[] = {{"/time-data/drift",
                                        NATIVE_NS,
                                        OCLACP_LEAF_COPIED,
                                        NULL,
                                        "report_data",
                                        NULL,
                                        report_data,
                                        {{"/clock/state/drift", CLOCK_NS}},
                                        1}};
  return (oclacp_leaf_table){leaves, 1};
}
