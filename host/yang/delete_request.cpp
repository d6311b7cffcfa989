#include "host/yang/delete_request.h"

#include "host/refusal.h"
#include "host/yang/schemas.h"

namespace oclacp::host {
namespace {

constexpr const char* kModule = "openconfig-lacp:";

std::string with_prefix(const std::string& path) {
  const size_t end_of_top = path.find_first_of("/[", 1);
  const bool has_prefix = path.substr(0, end_of_top).find(':') != std::string::npos;
  return path.front() != '/' || has_prefix ? path : "/" + (kModule + path.substr(1));
}

[[noreturn]] void refuse(const ly_ctx* context, const std::string& path) {
  const char* message = ly_errmsg(context);
  const std::string reason = message == nullptr ? "no path of a node" : message;
  throw Refusal(path + ": " + reason.substr(0, reason.find_last_not_of('.') + 1));
}

}  // namespace

std::string make_delete_request(const ly_ctx* context, const std::string& path) {
  if (path.size() < 2 || path.front() != '/') {
    throw Refusal("'" + path + "': a path begins with a slash and names a node");
  }
  lyd_node* top = nullptr;
  lyd_node* named = nullptr;
  const std::string absolute = with_prefix(path);
  ly_err_clean(const_cast<ly_ctx*>(context), nullptr);
  if (lyd_new_path2(nullptr, context, absolute.c_str(), nullptr, 0, LYD_ANYDATA_STRING, LYD_NEW_PATH_OPAQ, &top,
                    &named) != LY_SUCCESS) {
    refuse(context, path);
  }
  const TreePtr owner(top);
  const lys_module* module = operation_module(context);
  LY_ERR status = LY_SUCCESS;
  if (named->schema != nullptr) {
    status = lyd_new_meta(context, named, module, "operation", "delete", 1, nullptr);
  } else {
    // A leaf without value and an entry without keys are kept without their schema. The leaf is printed as [null].
    reinterpret_cast<lyd_node_opaq*>(named)->hints |= LYD_VALHINT_EMPTY;
    status = lyd_new_attr(named, module->name, "ietf-netconf:operation", "delete", nullptr);
  }
  if (status != LY_SUCCESS) {
    refuse(context, path);
  }
  return print_tree(context, top, LYD_JSON);
}

}  // namespace oclacp::host
