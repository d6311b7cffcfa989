// Cutting an answer back to what was asked for.
#pragma once

#include <vector>

#include "host/base/contract.h"
#include "host/trees/answer_data.h"

namespace oclacp::host {

// Takes away of an answer what the request does not ask for, as NETCONF's subtree filter has it (RFC 6241, 6.2): a node
// that the request names without anything below it is wanted whole; a leaf with a value, a key among them, only lets
// what holds this value pass; with nothing but such leaves in a container or list entry all of its content is wanted,
// else what is named. `requests` are the top nodes of
// requests, each for another top node of the answer.
void apply_subtree_filter(AnswerData& answer, const std::vector<const yfw_datatree*>& requests, ValueCheck& values);

}  // namespace oclacp::host
