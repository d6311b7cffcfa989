#include "server/datastores/startup_file.h"

#include <string_view>

#include "host/base/error.h"
#include "host/yang/native_document.h"
#include "host/yang/tree_printer.h"
#include "server/datastores/kept_file.h"

namespace oclacp::server {
namespace {

constexpr std::string_view kKind = "oclacp-startup";
constexpr unsigned kFormat = 1;
constexpr const char* kName = "startup";

}  // namespace

std::string StartupFile::text() const {
  std::optional<std::string> text = folder_.read(kName);
  if (!text) {
    throw host::file_error(host::ErrorKind::kDataMissing, folder_.file(kName), "there is no startup configuration");
  }
  return *std::move(text);
}

host::TreePtr StartupFile::read() const {
  const std::string file = folder_.file(kName);
  const KeptFile kept = parse_kept_file(text(), kKind, kFormat, 1, file);
  return host::NativeDocument(native_, kept.sections[0], file, LYD_VALIDATE_NO_STATE, host::DataKind::kNative)
      .take_whole();
}

void StartupFile::write(const lyd_node* configuration) {
  folder_.write(kName, print_kept_file({{}, {host::print_tree(native_, configuration, LYD_JSON)}}, kKind, kFormat));
}

void StartupFile::remove() {
  static_cast<void>(text());
  folder_.remove(kName);
}

}  // namespace oclacp::server
