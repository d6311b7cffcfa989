// A device of a test's own.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace support {

// An entry with LACP of the native interface configuration; `lacp` are the members of its container in JSON, `more`
// those of the entry.
std::string native_entry(const std::string& name, const std::string& lacp, const std::string& more = "");

// The document that holds native interface configuration; `entries` are those of its list in JSON.
std::string native_interfaces(const std::string& entries);

// A folder with a device of a type that is served, without interfaces and configuration.
class DeviceFolderTest : public testing::Test {
 protected:
  DeviceFolderTest();
  ~DeviceFolderTest() override;
  DeviceFolderTest(const DeviceFolderTest&) = delete;
  DeviceFolderTest& operator=(const DeviceFolderTest&) = delete;
  DeviceFolderTest(DeviceFolderTest&&) = delete;
  DeviceFolderTest& operator=(DeviceFolderTest&&) = delete;

  [[nodiscard]] const std::string& folder() const { return folder_; }
  void write_file(const std::string& name, const std::string& content) const;
  [[nodiscard]] std::string read_file(const std::string& name) const;
  void write_platform(const std::string& content) const { write_file("platform.json", content); }
  void write_running(const std::string& entries) const { write_file("running.json", native_interfaces(entries)); }

 private:
  std::string folder_;
};

}  // namespace support
