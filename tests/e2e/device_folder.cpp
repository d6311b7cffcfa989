#include "tests/e2e/device_folder.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace support {

std::string native_entry(const std::string& name, const std::string& lacp, const std::string& more) {
  return R"({"active": "act", "interface-name": ")" + name + "\"" + (more.empty() ? "" : ", " + more) +
         R"(, "Talvo-Brin-QD-bundlemgr-cfg:lacp": {)" + lacp + "}}";
}

std::string native_interfaces(const std::string& entries) {
  return R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [)" + entries + "]}}";
}

DeviceFolderTest::DeviceFolderTest() {
  std::string name = std::filesystem::temp_directory_path() / "oclacp-device-XXXXXX";
  folder_ = mkdtemp(name.data());
  write_platform(R"({"oclacp-platform:platform": {"router-type": 7}})");
  write_file("running.json", "{}");
}

DeviceFolderTest::~DeviceFolderTest() {
  std::filesystem::remove_all(folder_);
}

void DeviceFolderTest::write_file(const std::string& name, const std::string& content) const {
  std::ofstream(folder_ + "/" + name) << content;
}

std::string DeviceFolderTest::read_file(const std::string& name) const {
  std::ostringstream text;
  text << std::ifstream(folder_ + "/" + name).rdbuf();
  return text.str();
}

}  // namespace support
