// Reading: native data becomes an OpenConfig answer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/framework/answer_tree.h"
#include "host/framework/native_paths.h"
#include "host/framework/native_selection.h"
#include "host/framework/native_tree.h"
#include "host/module.h"
#include "host/translator.h"
#include "host/walk.h"

namespace oclacp::host {

// Walks native trees one after the other and collects what they come to. Used with a device installed.
class Reading {
 public:
  // `operation` is the code of a read; `paths` are those of the OpenConfig side. All outlive this.
  Reading(const Module& module, NativePaths& paths, uint32_t operation, const RecordSinks& sinks)
      : module_(module), paths_(paths), operation_(operation), sinks_(sinks), answer_(paths.context()) {}

  // Reads one native top node, or what is selected of it; a tree that no mapping serves comes to nothing. Throws
  // Refusal when something in it cannot be translated, which ends the walk of the whole tree.
  void read(const lyd_node* data, const NativeSelection::Node* selected);

  // The same entry by entry, so that one that cannot be translated costs no other. Answers why each of them could not.
  std::vector<std::string> read_by_entry(const lyd_node* data, const NativeSelection::Node* selected);

  // Hands over what was read. Called once.
  void finish(Answer& answer);

 private:
  std::optional<std::string> walk(const yfw_datatree* top, const lyd_node* data);

  const Module& module_;
  NativePaths& paths_;
  uint32_t operation_;
  const RecordSinks& sinks_;
  AnswerTree answer_;
};

// Calls `visit` with each child of `parent` in turn being its only one beside its keys, and puts all of them back.
void visit_alone(yfw_datatree& parent, const std::function<void(yfw_datatree& child)>& visit);

// How many of a node's children, the first ones, are its keys.
unsigned count_keys(const yfw_datatree& node);

}  // namespace oclacp::host
