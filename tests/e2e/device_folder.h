// A device of a test's own.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/native_json.h"
#include "tests/support/temporary_folder.h"

namespace support {

// A folder with a device of a type that is served, without interfaces and configuration.
class DeviceFolderTest : public testing::Test {
 protected:
  DeviceFolderTest();

  [[nodiscard]] const std::string& folder() const { return folder_.path(); }
  void write_file(const std::string& name, const std::string& content) const { folder_.write(name, content); }
  [[nodiscard]] std::string read_file(const std::string& name) const { return folder_.read(name); }
  void write_platform(const std::string& content) const { write_file("platform.json", content); }
  void write_running(const std::string& entries) const { write_file("running.json", native_interfaces(entries)); }

 private:
  TemporaryFolder folder_;
};

}  // namespace support
