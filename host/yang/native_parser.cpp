#include "host/yang/native_parser.h"

#include <cstdlib>
#include <memory>
#include <utility>

#include "host/refusal.h"
#include "host/yang/request_text.h"

namespace oclacp::host {
namespace {

// What an edit deletes would be taken for data.
void refuse_operations(const lyd_node* top) {
  for (; top != nullptr; top = top->next) {
    const lyd_node* node = nullptr;
    LYD_TREE_DFS_BEGIN(top, node) {
      if (node->meta != nullptr) {
        const std::unique_ptr<char, decltype(&std::free)> path(lyd_path(node, LYD_PATH_STD, nullptr, 0), &std::free);
        throw Refusal(std::string(path.get()) + ": carries the attribute '" + node->meta->name +
                      "', which data has not");
      }
      LYD_TREE_DFS_END(top, node);
    }
  }
}

}  // namespace

ParsedNative parse_native(const ly_ctx* context, const std::string& text, bool takes_state) {
  const std::string subject = "the native data";
  const LYD_FORMAT format = inspect_request(text, subject).format;
  lyd_node* tree = nullptr;
  const uint32_t validation = takes_state ? 0 : LYD_VALIDATE_NO_STATE;
  if (lyd_parse_data_mem(context, text.c_str(), format, LYD_PARSE_STRICT, validation | LYD_VALIDATE_PRESENT, &tree) !=
      LY_SUCCESS) {
    throw Refusal(last_complaint(context, subject));
  }
  TreePtr data(tree);
  refuse_operations(tree);
  return {format, std::move(data)};
}

}  // namespace oclacp::host
