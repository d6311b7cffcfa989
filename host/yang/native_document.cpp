#include "host/yang/native_document.h"

#include <algorithm>
#include <utility>

#include "host/base/error.h"
#include "host/yang/data_nodes.h"
#include "host/yang/document_check.h"
#include "host/yang/libyang_error.h"
#include "host/yang/piece_check.h"

namespace oclacp::host {
namespace {

// How many list entries libyang reads at a time. What is made of more of them leaves the caches of the processor.
constexpr size_t kEntriesInPiece = 2;
// Entries with nothing but their keys.
constexpr size_t kKeysInPiece = 64;

// Why a text is not taken. While libyang reads a text it names a node without what is around it yet, if it complains of
// more than the node itself; of a tree that it has read as it is, it knows all.
Error read_error(const ly_ctx* context, const std::string& file, const std::string& text, uint32_t validation) {
  LibyangError error = last_libyang_error(context);
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_STRICT | LYD_PARSE_ONLY, 0, &tree) == LY_SUCCESS &&
      lyd_validate_all(&tree, context, validation, nullptr) != LY_SUCCESS) {
    error = last_libyang_error(context);
  }
  lyd_free_all(tree);
  return {ErrorKind::kOperationFailed,
          file + ": " + error.sentence("not usable"),
          {.path = error.path, .file = file, .line = error.line}};
}

const lyd_node* find_top(const lyd_node* tops, const lysc_node* schema) {
  while (tops != nullptr && tops->schema != schema) {
    tops = tops->next;
  }
  return tops;
}

// The first entry of a list in a tree whose containers have nothing beside it.
const lyd_node* first_entry(const lyd_node* tops, const CutList& list) {
  const lyd_node* node = find_top(tops, list.top);
  while (node != nullptr && node->schema != list.list) {
    const lyd_node* below = lyd_child(node);
    while (below != nullptr && !is_explicit(below)) {
      below = below->next;
    }
    node = below;
  }
  return node;
}

void append_key_hashes(const lyd_node* tops, const CutList& list, std::vector<size_t>& hashes) {
  for (const lyd_node* entry = first_entry(tops, list); entry != nullptr && entry->schema == list.list;
       entry = entry->next) {
    hashes.push_back(hash_keys(entry));
  }
}

}  // namespace

NativeDocument::NativeDocument(const ly_ctx* context, std::string text, std::string subject, uint32_t validation,
                               DataKind kind)
    : context_(context), text_(std::move(text)), subject_(std::move(subject)), validation_(validation), kind_(kind) {
  // libyang takes an empty file for an empty configuration and does not look after the end of a document.
  brackets_ = check_json_document(text_, subject_);
}

const lyd_node* NativeDocument::whole() const {
  if (!whole_) {
    lyd_node* tree = nullptr;
    if (lyd_parse_data_mem(context_, text_.c_str(), LYD_JSON, LYD_PARSE_STRICT, validation_, &tree) != LY_SUCCESS) {
      throw read_error(context_, subject_, text_, validation_);
    }
    TreePtr data(tree);
    check_data(tree, kind_, subject_);
    whole_ = std::move(data);
    // Nothing is asked of the text any more.
    rest_.reset();
    cut_.reset();
    text_ = std::string();
  }
  return whole_->get();
}

TreePtr NativeDocument::take_whole() {
  static_cast<void>(whole());
  TreePtr data = std::move(*whole_);
  whole_.reset();
  return data;
}

// Null when libyang does not take it.
TreePtr NativeDocument::parse_piece(const std::string& text, uint32_t options) const {
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context_, text.c_str(), LYD_JSON, LYD_PARSE_STRICT | options, options == 0 ? validation_ : 0,
                         &tree) != LY_SUCCESS) {
    return nullptr;
  }
  TreePtr data(tree);
  try {
    check_data(tree, kind_, "");
  } catch (const Error&) {
    return nullptr;
  }
  return data;
}

const lyd_node* NativeDocument::without_lists() const {
  if (!is_cut_) {
    is_cut_ = true;
    cut_ = cut_document(context_, text_, brackets_);
    brackets_ = {};
    rest_ = cut_ ? parse_piece(cut_->rest, 0) : nullptr;
  }
  return whole_ ? nullptr : rest_.get();
}

bool NativeDocument::visit(const lysc_node* top, const Visitor& visitor) const {
  const lyd_node* rest = without_lists();
  if (rest == nullptr) {
    return false;
  }
  rest = find_top(rest, top);
  const auto list =
      std::find_if(cut_->lists.begin(), cut_->lists.end(), [top](const CutList& one) { return one.top == top; });
  if (list == cut_->lists.end()) {
    if (rest != nullptr) {
      visitor.visit(rest);
    }
    return true;
  }
  CutList chosen;
  if (visitor.choose && !choose_entries(*list, visitor, chosen)) {
    return false;
  }
  const CutList& visited = visitor.choose ? chosen : *list;
  // What stands beside the entries; nothing is a container that libyang added.
  if (rest != nullptr && (visited.entries.empty() || is_explicit(rest))) {
    visitor.visit(rest);
  }
  return visit_entries(visited, visitor);
}

bool NativeDocument::visit_entries(const CutList& list, const Visitor& visitor) const {
  std::vector<size_t> hashes;
  hashes.reserve(list.entries.size());
  std::string text;
  const bool is_valid = is_valid_when_parsed(list.list);
  for (size_t first = 0; first < list.entries.size(); first += kEntriesInPiece) {
    join_entries(list, first, kEntriesInPiece, text);
    const TreePtr piece = parse_piece(text, is_valid ? LYD_PARSE_ONLY : 0);
    if (piece == nullptr || (is_valid && may_be_doubled(piece.get()))) {
      return false;
    }
    append_key_hashes(piece.get(), list, hashes);
    visitor.visit(find_top(piece.get(), list.top));
  }
  return !has_equal(hashes);
}

// `chosen` gets the entries that are visited.
bool NativeDocument::choose_entries(const CutList& list, const Visitor& visitor, CutList& chosen) const {
  chosen = {list.top, list.list, {}, list.head, list.tail};
  std::vector<size_t> hashes;
  hashes.reserve(list.entries.size());
  std::string text;
  for (size_t first = 0; first < list.entries.size(); first += kKeysInPiece) {
    const TreePtr piece = join_keys(list, first, kKeysInPiece, text) ? parse_piece(text, LYD_PARSE_ONLY) : nullptr;
    if (piece == nullptr) {
      return false;
    }
    append_key_hashes(piece.get(), list, hashes);
    const std::vector<bool> is_chosen = visitor.choose(find_top(piece.get(), list.top));
    for (size_t entry = 0; entry < is_chosen.size(); ++entry) {
      if (is_chosen[entry]) {
        chosen.entries.push_back(list.entries[first + entry]);
      }
    }
  }
  return !has_equal(hashes);
}

}  // namespace oclacp::host
