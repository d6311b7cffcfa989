#include "host/trees/request_parser.h"

#include <string>
#include <utility>

#include "host/base/error.h"
#include "host/trees/node.h"
#include "host/yang/document_check.h"
#include "host/yang/libyang_error.h"
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

void require_served_top(RequestTree& tree) {
  const std::string top = node_path(tree.top());
  if (top != "/openconfig-lacp:lacp") {
    throw node_error(ErrorKind::kUnknownElement, top, "no mapping serves this node");
  }
}

ParsedRequest parse_request(const ly_ctx* context, const std::string& text) {
  const DocumentInfo inspected = inspect_document(text);
  TreePtr data = parse(context, text, inspected.format);
  const bool alone = data->next == nullptr;
  RequestTree tree(context, std::move(data));
  require_served_top(tree);
  const std::string top = node_path(tree.top());
  if (!alone) {
    throw node_error(ErrorKind::kBadElement, top, "a request has one top node, this one has more");
  }
  if (inspected.format == LYD_XML && tree.operations() != inspected.operations) {
    throw node_error(ErrorKind::kUnknownAttribute, top,
                     std::string("an 'operation' attribute is not of the namespace ") + operation_module(context)->ns);
  }
  return {inspected.format, std::move(tree)};
}

}  // namespace oclacp::host
