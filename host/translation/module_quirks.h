// What the host makes up for, in one place: where the module's answer to a request is not the one that RFC 6241 gives.
//
// The module walks a request node by node and keeps nothing of it, so it cannot always tell what its user meant by it.
// What it does is fixed; another framework may make up for it in another way.
#pragma once

#include <vector>

#include "host/services/current_device.h"
#include "host/translation/mapping_module.h"
#include "host/trees/output_log.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {

// Whether a mapping is of the configuration of interfaces: what is said of entries below holds for its alone.
bool maps_interfaces(const MappingModule& module);

// A read of a list without a key means all entries with all that is in them (RFC 6241, 6.2.4). The module takes such an
// entry for one of which only the keys are asked, because it expands an entry only when this names its key. It is
// therefore handed the entry with everything named that the schema has in it.
void name_contents_of_bare_entries(RequestTree& read);

// The module looks for the interface of a deleted entry among the elements of the data store, by a part of the entry's
// name. It finds a name with slashes only when the name is in the form of an element, too.
void use_entry_form_keys(RequestTree& edit, CurrentDevice& device);

// The module does not look below a list entry that it deletes, so that what is created or replaced there would be
// dropped without a word. Throws Error for the first such node.
void check_nothing_added_below_deletes(RequestTree& edit);

// The list entries of an edit that are deleted or removed, and the nodes in entries that are removed, although the
// entry's interface has no LACP configuration.
//
// The module goes through the interfaces that have some, and takes the first whose name is a part of the entry's name:
// instead of an interface that has none it comes upon another one. When it comes upon none, it goes on with the
// children of the entry and adds native nodes for them, with the interface's name in the place of the class of
// configuration. For a node in such an entry it adds the native entry, which a native edit would make.
class AbsentNodes {
 public:
  // To be made before the walk, which changes operations. An entry that is removed is handed to the module with its key
  // alone, as it does not look below an entry that it deletes, but refuses what it finds below another. `edit` outlives
  // this.
  AbsentNodes(RequestTree& edit, CurrentDevice& device);

  // An entry that is deleted must be there (RFC 6241, 7.2). Throws Error for the first that is not. To be called after
  // the walk, so that what the module refuses comes first. Of a node in an entry the native edit's application tells.
  void check_deleted() const;

  // To remove what is not there changes nothing: drops what the module added for such nodes.
  void drop_additions(OutputLog& log) const;

 private:
  std::vector<const yfw_datatree*> deleted_;
  std::vector<const yfw_datatree*> removed_;
};

}  // namespace oclacp::host
