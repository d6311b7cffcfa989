#include "cli/locations.h"

#include <filesystem>
#include <system_error>

namespace oclacp::cli {
namespace {

namespace fs = std::filesystem;

fs::path beside_program(const char* relative) {
  std::error_code unreadable;
  return (fs::read_symlink("/proc/self/exe", unreadable).parent_path() / relative).lexically_normal();
}

}  // namespace

std::string default_module() {
  return beside_program(OCLACP_LIBRARIES "/libymap_oclacp.so");
}

std::string shipped_schemas() {
  return beside_program(OCLACP_DATA "/oclacp/yang");
}

}  // namespace oclacp::cli
