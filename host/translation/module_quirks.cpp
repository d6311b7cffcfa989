#include "host/translation/module_quirks.h"

namespace oclacp::host {

void name_contents_of_bare_entries(RequestTree& read) {
  for (yfw_datatree& node : read.nodes()) {
    if (info_of(&node).schema->nodetype == LYS_LIST && node.child_count == 0) {
      read.add_schema_children(node);
    }
  }
}

}  // namespace oclacp::host
