#include "host/trees/request_parser.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/base/error.h"
#include "host/trees/node.h"
#include "host/trees/resource_document.h"
#include "host/yang/document_check.h"
#include "host/yang/edit_envelope.h"
#include "host/yang/libyang_error.h"
#include "host/yang/path_parser.h"
#include "host/yang/schema_nodes.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

// libyang reads [null] and numbers in the place of a text as far as its type, and tells of an encoding.
Error parse_error(const ly_ctx* context) {
  LibyangError error = last_libyang_error(context);
  if (error.reason.starts_with("Invalid non-string-encoded string value")) {
    error.reason = "takes a text in quotes, no number and no [null]";
  }
  return {error.kind, error.sentence("the request"), {.path = error.path, .file = {}, .line = error.line}};
}

TreePtr parse(const ly_ctx* context, const std::string& text, LYD_FORMAT format) {
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), format, LYD_PARSE_ONLY | LYD_PARSE_OPAQ, 0, &tree) != LY_SUCCESS) {
    throw parse_error(context);
  }
  if (tree == nullptr) {
    throw Error(ErrorKind::kMissingElement, "the request: names no node");
  }
  return TreePtr(tree);
}

}  // namespace

void require_one_top(RequestTree& tree, bool is_alone) {
  if (!is_alone) {
    throw node_error(ErrorKind::kBadElement, node_path(tree.top()), "a request has one top node, this one has more");
  }
}

namespace {

ParsedRequest parse_bare(const ly_ctx* context, const std::string& text) {
  const DocumentInfo inspected = inspect_document(context, text);
  TreePtr data = parse(context, text, inspected.format);
  const bool is_alone = data->next == nullptr;
  RequestTree tree(context, std::move(data));
  const std::string top = node_path(tree.top());
  require_one_top(tree, is_alone);
  if (inspected.format == LYD_XML && tree.operations() != inspected.operations) {
    throw node_error(ErrorKind::kUnknownAttribute, top,
                     std::string("an 'operation' attribute is not of the namespace ") + operation_module(context)->ns);
  }
  return {format_of(inspected.format), std::move(tree)};
}

// The entry that a path ends at; the name of its key says which.
void check_entry(const ly_ctx* context, const std::string& path, RequestTree& tree) {
  const lysc_node* schema = nullptr;
  std::vector<PathStep> steps = parse_path_steps(path);
  for (const PathStep& step : steps) {
    schema = find_step(context, schema, step);
  }
  if (schema == nullptr || schema->nodetype != LYS_LIST || steps.back().predicates.empty()) {
    return;
  }
  for (const yfw_datatree& node : tree.nodes()) {
    const char* key = info_of(&node).schema == schema ? key_value(&node) : nullptr;
    if (key != nullptr && steps.back().predicates.front().second != key) {
      throw node_error(ErrorKind::kInvalidValue, node_path(&node), "is another entry than the path names");
    }
  }
}

}  // namespace

ParsedRequest parse_request(const ly_ctx* context, const std::string& text) {
  const std::optional<OpenedEdit> opened = open_edit_envelope(text);
  if (!opened) {
    return parse_bare(context, text);
  }
  ParsedRequest request = parse_bare(context, opened->text);
  request.default_operation = opened->default_operation;
  return request;
}

ParsedRequest parse_resource(const ly_ctx* context, const std::string& path, const std::string& text) {
  ParsedRequest request = parse_bare(context, frame_resource(context, path, text));
  check_entry(context, path, request.tree);
  return request;
}

}  // namespace oclacp::host
