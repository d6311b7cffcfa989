// Devices that the program edits.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/e2e/program.h"
#include "tests/support/temporary_folder.h"

namespace support {

// A device in a folder of its own, a copy of the shipped one.
class CopiedDevice {
 public:
  CopiedDevice() {
    for (const char* file : {"platform.json", "running.json"}) {
      std::filesystem::copy(example("device") + "/" + file, path());
    }
  }

  [[nodiscard]] const std::string& path() const { return folder_.path(); }

  [[nodiscard]] std::string read(const std::string& file = "running.json") const { return folder_.read(file); }
  void write(const std::string& content, const std::string& file = "running.json") const {
    folder_.write(file, content);
  }

  // The names of the files that it is kept in.
  [[nodiscard]] std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  // `oclacp edit` of a request on the standard input.
  [[nodiscard]] Outcome edit(const std::string& request, std::vector<std::string> further = {}) const {
    further.insert(further.begin(), {"edit", "-", "-d", path()});
    return run(further, request);
  }
  // `oclacp delete` of a path.
  [[nodiscard]] Outcome erase(const std::string& node, std::vector<std::string> further = {}) const {
    further.insert(further.begin(), {"delete", node, "-d", path()});
    return run(further);
  }

 private:
  TemporaryFolder folder_;
};

// A request for the configuration of one interface; `config` are the members of its config container.
inline std::string config_of(const std::string& name, const std::string& config) {
  return interface(R"("name": ")" + name + R"(", "config": {"name": ")" + name + R"(")" +
                   (config.empty() ? "" : ", " + config) + "}");
}

}  // namespace support
