#include "host/yang/native_parser.h"

#include "host/base/error.h"
#include "host/yang/data_check.h"
#include "host/yang/document_check.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

constexpr const char* kSubject = "the native data";

}  // namespace

LYD_FORMAT inspect_native(const ly_ctx* context, const std::string& text) {
  return inspect_document(context, text, kSubject).format;
}

TreePtr parse_native(const ly_ctx* context, const std::string& text, LYD_FORMAT format, bool takes_state) {
  lyd_node* tree = nullptr;
  const uint32_t validation = takes_state ? 0 : LYD_VALIDATE_NO_STATE;
  if (lyd_parse_data_mem(context, text.c_str(), format, LYD_PARSE_STRICT, validation | LYD_VALIDATE_PRESENT, &tree) !=
      LY_SUCCESS) {
    throw libyang_error(context, kSubject);
  }
  TreePtr data(tree);
  check_data(tree, DataKind::kNative, "");
  return data;
}

}  // namespace oclacp::host
