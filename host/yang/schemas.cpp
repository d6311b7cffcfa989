#include "host/yang/schemas.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "host/base/error.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

constexpr const char* kOperationModule = "ietf-netconf";

ContextPtr make_context(const std::string& directory) {
  if (!std::filesystem::is_directory(directory)) {
    throw file_error(ErrorKind::kOperationFailed, directory, "no such folder of schemas");
  }
  // Complaints are kept for last_libyang_error() and printed nowhere else.
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx* context = nullptr;
  if (ly_ctx_new(directory.c_str(), LY_CTX_NO_YANGLIBRARY | LY_CTX_DISABLE_SEARCHDIR_CWD, &context) != LY_SUCCESS) {
    throw file_error(ErrorKind::kOperationFailed, directory, "the schemas cannot be read");
  }
  return ContextPtr(context);
}

// The text in quotes behind `begin`, with which a message begins; empty for another message.
std::string quoted_in(std::string_view message, std::string_view begin) {
  if (!message.starts_with(begin)) {
    return {};
  }
  message.remove_prefix(begin.size());
  return std::string(message.substr(0, message.find('"')));
}

// The file of a module, "a.yang" or "a@2024-01-31.yang"; the folder when there is none.
std::string find_file(const std::string& directory, const std::string& module) {
  std::error_code trouble;
  for (const auto& entry : std::filesystem::directory_iterator(directory, trouble)) {
    const std::string name = entry.path().filename();
    if (name == module + ".yang" || (name.starts_with(module + "@") && name.ends_with(".yang"))) {
      return entry.path();
    }
  }
  return directory;
}

// libyang tells the cause first, and then which modules could not be read because of it, the innermost first.
[[noreturn]] void refuse(const ly_ctx* context, const std::string& directory, const std::string& module) {
  const LibyangError cause = first_libyang_error(context);
  std::string unread;
  for (const ly_err_item* item = ly_err_first(context); item != nullptr && unread.empty(); item = item->next) {
    unread = quoted_in(item->msg, "Parsing module \"");
  }
  const std::string missing = quoted_in(cause.reason, "Data model \"");
  if (!missing.empty() && unread.empty()) {
    throw file_error(ErrorKind::kOperationFailed, directory, "has no module " + missing);
  }
  if (unread.empty()) {
    throw Error(ErrorKind::kOperationFailed, cause.sentence("module " + module), {.path = cause.path, .file = {}});
  }
  const std::string file = find_file(directory, unread);
  const std::string reason =
      missing.empty() ? cause.reason : "imports module " + missing + ", which " + directory + " does not have";
  throw Error(ErrorKind::kOperationFailed,
              file + (cause.line == 0 ? "" : " (line " + std::to_string(cause.line) + ")") + ": module " + unread +
                  ": " + reason,
              {.path = {}, .file = file, .line = cause.line});
}

void load(ly_ctx* context, const std::string& directory, const char* module) {
  ly_log_options(LY_LOSTORE);
  const lys_module* loaded = ly_ctx_load_module(context, module, nullptr, nullptr);
  ly_log_options(LY_LOSTORE_LAST);
  if (loaded == nullptr) {
    refuse(context, directory, module);
  }
  ly_err_clean(context, nullptr);
}

}  // namespace

Schemas::Schemas(const SchemaDirectories& directories)
    : request_(make_context(directories.shipped)), native_(make_context(directories.shipped)) {
  load(request_.get(), directories.shipped, kOperationModule);
  if (!directories.published.empty()) {
    if (!std::filesystem::is_directory(directories.published)) {
      throw file_error(ErrorKind::kOperationFailed, directories.published, "no such folder of schemas");
    }
    ly_ctx_unset_searchdir(request_.get(), nullptr);
    ly_ctx_set_searchdir(request_.get(), directories.published.c_str());
  }
  load(request_.get(), directories.published.empty() ? directories.shipped : directories.published, "openconfig-lacp");

  for (const char* module : {kOperationModule, "Talvo-Brin-QD-ifmgr-cfg", "Talvo-Brin-QD-bundlemgr-cfg",
                             "Talvo-Brin-QD-bundlemgr-oper", "oclacp-platform"}) {
    load(native_.get(), directories.shipped, module);
  }
}

const lys_module* operation_module(const ly_ctx* context) {
  return ly_ctx_get_module_implemented(context, kOperationModule);
}

}  // namespace oclacp::host
