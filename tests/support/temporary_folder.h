// A folder of a test's own, which goes with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace support {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = std::filesystem::temp_directory_path() / "oclacp-XXXXXX";
    path_ = mkdtemp(name.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  TemporaryFolder(TemporaryFolder&&) = delete;
  TemporaryFolder& operator=(TemporaryFolder&&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

  void write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ + "/" + name) << content;
  }
  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream file(path_ + "/" + name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace support
