#include "host/yang/schemas.h"

#include <filesystem>

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

void load(ly_ctx* context, const char* module) {
  if (ly_ctx_load_module(context, module, nullptr, nullptr) == nullptr) {
    throw Error(ErrorKind::kOperationFailed, last_libyang_error(context).sentence(std::string("schema ") + module));
  }
}

}  // namespace

Schemas::Schemas(const SchemaDirectories& directories)
    : request_(make_context(directories.shipped)), native_(make_context(directories.shipped)) {
  load(request_.get(), kOperationModule);
  if (!directories.published.empty()) {
    if (!std::filesystem::is_directory(directories.published)) {
      throw file_error(ErrorKind::kOperationFailed, directories.published, "no such folder of schemas");
    }
    ly_ctx_unset_searchdir(request_.get(), nullptr);
    ly_ctx_set_searchdir(request_.get(), directories.published.c_str());
  }
  load(request_.get(), "openconfig-lacp");

  for (const char* module : {kOperationModule, "Talvo-Brin-QD-ifmgr-cfg", "Talvo-Brin-QD-bundlemgr-cfg",
                             "Talvo-Brin-QD-bundlemgr-oper", "oclacp-platform"}) {
    load(native_.get(), module);
  }
}

const lys_module* operation_module(const ly_ctx* context) {
  return ly_ctx_get_module_implemented(context, kOperationModule);
}

}  // namespace oclacp::host
