#include "host/yang/native_parser.h"

#include <utility>

#include "host/base/error.h"
#include "host/yang/data_check.h"
#include "host/yang/document_check.h"

namespace oclacp::host {
ParsedNative parse_native(const ly_ctx* context, const std::string& text, bool takes_state) {
  const std::string subject = "the native data";
  const LYD_FORMAT format = inspect_document(text, subject).format;
  lyd_node* tree = nullptr;
  const uint32_t validation = takes_state ? 0 : LYD_VALIDATE_NO_STATE;
  if (lyd_parse_data_mem(context, text.c_str(), format, LYD_PARSE_STRICT, validation | LYD_VALIDATE_PRESENT, &tree) !=
      LY_SUCCESS) {
    throw Error(last_complaint(context, subject));
  }
  TreePtr data(tree);
  check_data(tree, DataKind::kNative, "");
  return {format, std::move(data)};
}

}  // namespace oclacp::host
