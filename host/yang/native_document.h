// Native data as its text, which libyang reads as far as somebody asks.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/yang/data_check.h"
#include "host/yang/document_check.h"
#include "host/yang/document_cut.h"
#include "host/yang/libyang_ptr.h"

namespace oclacp::host {

// A document in JSON (RFC 7951). Used by one thread at a time.
class NativeDocument {
 public:
  // `subject` is what an Error is about, such as the file; `validation` are libyang's options for it. `context`
  // outlives this. Throws Error when the text is not one whole document.
  NativeDocument(const ly_ctx* context, std::string text, std::string subject, uint32_t validation, DataKind kind);

  // All of it, valid: the first of the top nodes, or null. Throws Error.
  [[nodiscard]] const lyd_node* whole() const;

  // The same, handed over.
  TreePtr take_whole();

  // Takes a top node in pieces, each of them a valid tree from the top node down that is gone afterwards.
  struct Visitor {
    // Which entries of a list are visited: a tree with some of them, with their keys alone, and an answer for each in
    // turn. The others are not judged beyond their keys. Without this all are visited.
    std::function<std::vector<bool>(const lyd_node* top)> choose;
    std::function<void(const lyd_node* top)> visit;
  };

  // Visits a top node a few list entries at a time, which takes little memory and stays within the processor's caches.
  // Whether that was possible. When not, pieces may have been visited all the same, and whole() has the data, or says
  // what is wrong with it. What whole() refuses is refused here, but for what is in entries that are not visited.
  bool visit(const lysc_node* top, const Visitor& visitor) const;

  // What is read at once when the rest is read in pieces: the document without the entries of its long lists of state.
  // Null when it cannot be read in pieces.
  [[nodiscard]] const lyd_node* without_lists() const;

 private:
  [[nodiscard]] TreePtr parse_piece(const std::string& text, uint32_t options) const;
  bool visit_entries(const CutList& list, const Visitor& visitor) const;
  bool choose_entries(const CutList& list, const Visitor& visitor, CutList& chosen) const;

  const ly_ctx* context_;
  mutable std::string text_;  // empty once all of it was read
  std::string subject_;
  uint32_t validation_;
  DataKind kind_;
  mutable std::optional<TreePtr> whole_;
  // Of the document in pieces, once it was asked for.
  mutable std::vector<JsonBrackets> brackets_;  // empty afterwards
  mutable bool is_cut_ = false;
  mutable std::optional<CutDocument> cut_;
  mutable TreePtr rest_;
};

}  // namespace oclacp::host
