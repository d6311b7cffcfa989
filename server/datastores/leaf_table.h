// Answers as leaves, for telling one from the next.
#pragma once

#include <string>
#include <vector>

#include "host/trees/answer_data.h"
#include "server/datastores/change.h"

namespace oclacp::server {

struct Leaf {
  std::string path;   // as those of Change
  std::string value;  // in canonical form

  bool operator==(const Leaf&) const = default;
};

// In the order of their paths.
using LeafTable = std::vector<Leaf>;

// All leaves of an answer, keys of entries too.
LeafTable leaves_of(const host::AnswerData& answer);

// What changes one table into another one, leaf by leaf. Linear in both.
Changes find_changes(const LeafTable& before, const LeafTable& after);

}  // namespace oclacp::server
