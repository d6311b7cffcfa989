// List entries of state, judged without libyang's validation, which takes as long as a quarter of its parser.
#pragma once

#include <libyang/libyang.h>

#include <cstddef>
#include <vector>

namespace oclacp::host {

// Whether a list is of a kind whose entries are valid when libyang parses them and nothing in them is doubled: no node
// in it is mandatory, has a default, belongs to a choice, is counted, unique or extended. The list is of a schema that
// judges no node by others (document_cut.h).
bool is_valid_when_parsed(const lysc_node* list);

// Whether a leaf, a container or a list entry may stand there twice. `tops` were parsed and not validated, so that
// nodes of one schema stand side by side. Nothing that is doubled passes; texts that hash alike may be taken for equal.
bool may_be_doubled(const lyd_node* tops);

// The same for the entries of a list that are not in one tree: a hash of an entry's keys, and whether two are equal
// among those of all. Sorts `hashes`.
std::size_t hash_keys(const lyd_node* entry);
bool has_equal(std::vector<std::size_t>& hashes);

}  // namespace oclacp::host
