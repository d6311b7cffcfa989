// What the host makes up for, in one place: where the module's answer to a request is not the one that RFC 6241 gives.
//
// The module walks a request node by node and keeps nothing of it, so it cannot always tell what its user meant by it.
// What it does is fixed; another framework may make up for it in another way.
#pragma once

#include "host/trees/request_tree.h"

namespace oclacp::host {

// A read of a list without a key means all entries with all that is in them (RFC 6241, 6.2.4). The module takes such an
// entry for one of which only the keys are asked, because it expands an entry only when this names its key. It is
// therefore handed the entry with everything named that the schema has in it.
void name_contents_of_bare_entries(RequestTree& read);

}  // namespace oclacp::host
