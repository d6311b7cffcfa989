#include "host/trees/request_parser.h"

#include <string>
#include <utility>

#include "host/base/error.h"
#include "host/yang/document_check.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

// libyang reads [null] and numbers in the place of a text as far as its type, and tells of an encoding.
std::string reworded(const std::string& complaint) {
  const size_t reason = complaint.find("Invalid non-string-encoded string value");
  return reason == std::string::npos ? complaint
                                     : complaint.substr(0, reason) + "takes a text in quotes, no number and no [null]";
}

TreePtr parse(const ly_ctx* context, const std::string& text, LYD_FORMAT format) {
  lyd_node* tree = nullptr;
  if (lyd_parse_data_mem(context, text.c_str(), format, LYD_PARSE_ONLY | LYD_PARSE_OPAQ, 0, &tree) != LY_SUCCESS) {
    throw Error(reworded(last_complaint(context, "the request")));
  }
  if (tree == nullptr) {
    throw Error("the request: names no node");
  }
  return TreePtr(tree);
}

}  // namespace

void require_served_top(RequestTree& tree) {
  const std::string top = node_path(tree.top());
  if (top != "/openconfig-lacp:lacp") {
    throw Error(top + ": no mapping serves this node");
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
    throw Error(top + ": a request has one top node, this one has more");
  }
  if (inspected.format == LYD_XML && tree.operations() != inspected.operations) {
    throw Error(top + ": an 'operation' attribute is not of the namespace " + operation_module(context)->ns);
  }
  return {inspected.format, std::move(tree)};
}

}  // namespace oclacp::host
