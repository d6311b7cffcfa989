// The handlers of the native interface configuration that have nothing to do.
#include "frame/native_handlers.h"
#include "frame/request_handlers.h"
#include "oclacp/native_config.h"

// clang-format off

// Containers: nothing to add
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdifmgrcfg_cont_lvla_interfaceconfigurations, ymap::accept_node)

// Known nodes without a mapping
YMAP_STAMP_CONTAINER(ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_container, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_list, ymap::kFrameSites, ymap::accept_unchecked)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_duck_map_leaf, ymap::kFrameSites, ymap::accept_unchecked)

// Children of foreign namespaces
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_parse_augments, ymap::kFrameSites, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening_parse_augments, ymap::kFrameSites, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus_parse_augments, ymap::kFrameSites, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_mtus_mtu_parse_augments, ymap::kFrameSites, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation_parse_augments, ymap::kFrameSites, ymap::accept_node)
YMAP_STAMP_PLAIN_NODE(ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_globalinterfaceconfiguration_parse_augments, ymap::kFrameSites, ymap::accept_node)

// clang-format on
