// A JSON document of state, cut between the entries of its long lists, to be read a few at a time.
#pragma once

#include <libyang/libyang.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/yang/document_check.h"

namespace oclacp::host {

// A list whose entries were taken out of a document.
struct CutList {
  const lysc_node* top;   // the top node that it is in
  const lysc_node* list;  // below the top node there are only containers around it
  // The entries as they are written. The text outlives this.
  std::vector<std::string_view> entries;
  // What makes a document of entries with commas between them.
  std::string head;
  std::string tail;
};

struct CutDocument {
  std::string rest;  // the document without the entries
  std::vector<CutList> lists;
};

// Cuts a document, whose outer brackets are known (document_check.h), at the first list of state below each top node.
// Nothing where pieces could not be judged like the whole: when a schema of the context judges across the tree (must,
// when, references), or when the document is not written in the plainest way. Linear in the text.
std::optional<CutDocument> cut_document(const ly_ctx* context, std::string_view text,
                                        std::span<const JsonBrackets> brackets);

// Makes `text` a document of some of a list's entries.
void join_entries(const CutList& list, size_t first, size_t count, std::string& text);

// The same with nothing but their keys. False when an entry does not have them all.
bool join_keys(const CutList& list, size_t first, size_t count, std::string& text);

}  // namespace oclacp::host
