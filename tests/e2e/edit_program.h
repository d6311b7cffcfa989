// Devices that the program edits.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/e2e/program.h"

namespace support {

// A device in a folder of its own, a copy of the shipped one.
class CopiedDevice {
 public:
  CopiedDevice() {
    std::string name = std::filesystem::temp_directory_path() / "oclacp-XXXXXX";
    path_ = mkdtemp(name.data());
    for (const char* file : {"platform.json", "running.json"}) {
      std::filesystem::copy(example("device") + "/" + file, path_);
    }
  }
  ~CopiedDevice() { std::filesystem::remove_all(path_); }
  CopiedDevice(const CopiedDevice&) = delete;
  CopiedDevice& operator=(const CopiedDevice&) = delete;
  CopiedDevice(CopiedDevice&&) = delete;
  CopiedDevice& operator=(CopiedDevice&&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

  [[nodiscard]] std::string read(const std::string& file = "running.json") const {
    std::ostringstream text;
    text << std::ifstream(path_ + "/" + file).rdbuf();
    return text.str();
  }
  void write(const std::string& content, const std::string& file = "running.json") const {
    std::ofstream(path_ + "/" + file) << content;
  }

  // The names of the files that it is kept in.
  [[nodiscard]] std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  // `oclacp edit` of a request on the standard input.
  [[nodiscard]] Outcome edit(const std::string& request, std::vector<std::string> further = {}) const {
    further.insert(further.begin(), {"edit", "-", "-d", path_});
    return run(further, request);
  }
  // `oclacp delete` of a path.
  [[nodiscard]] Outcome erase(const std::string& path, std::vector<std::string> further = {}) const {
    further.insert(further.begin(), {"delete", path, "-d", path_});
    return run(further);
  }

 private:
  std::string path_;
};

// A request for the configuration of one interface; `config` are the members of its config container.
inline std::string config_of(const std::string& name, const std::string& config) {
  return interface(R"("name": ")" + name + R"(", "config": {"name": ")" + name + R"(")" +
                   (config.empty() ? "" : ", " + config) + "}");
}

}  // namespace support
