// The layers of host/: what each may include, read from the sources.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/support/locations.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

using Layers = std::map<std::string, std::set<std::string>>;

// Each layer with those below it that it may use.
const Layers& layers() {
  static const Layers kLayers = {
      {"base", {}},
      {"files", {"base"}},
      {"yang", {"base", "files"}},
      {"present", {"base", "yang", "trees"}},
      {"trees", {"base", "yang"}},
      {"devices", {"base", "files", "yang", "trees"}},
      {"records", {"base", "present"}},
      {"services", {"base", "yang", "trees", "devices", "records"}},
      {"translation", {"base", "files", "yang", "trees", "devices", "records", "services"}},
      {"explain", {"base", "files", "yang", "trees", "devices", "records", "services", "translation", "present"}},
  };
  return kLayers;
}

fs::path host_sources() {
  return fs::path(location::kSources) / "host";
}

std::string layer_of(const fs::path& source) {
  return *fs::relative(source, host_sources()).begin();
}

// Calls `visit` with each source of the host and each of its lines.
template <typename Visit>
void visit_lines(const Visit& visit) {
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(host_sources())) {
    const fs::path& file = entry.path();
    if (file.extension() != ".h" && file.extension() != ".cpp") {
      continue;
    }
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
      visit(file, line);
    }
  }
}

TEST(Layers, EverySource_IsInOne) {
  std::set<std::string> found;
  visit_lines([&](const fs::path& file, const std::string& /*line*/) { found.insert(layer_of(file)); });
  std::set<std::string> known;
  for (const auto& [layer, below] : layers()) {
    known.insert(layer);
  }
  EXPECT_EQ(found, known);
}

TEST(Layers, Include_NeverRunsUpwards) {
  const std::regex include("#include \"host/([a-z]+)/.*");
  std::vector<std::string> upwards;
  visit_lines([&](const fs::path& file, const std::string& line) {
    std::smatch match;
    const std::string from = layer_of(file);
    if (std::regex_match(line, match, include) && match[1] != from && layers().at(from).count(match[1]) == 0) {
      upwards.push_back(file.string() + ": " + line);
    }
  });
  EXPECT_THAT(upwards, testing::IsEmpty());
}

TEST(Layers, ProgramAndDaemon_AreUnknownToTheHost) {
  std::vector<std::string> upwards;
  visit_lines([&](const fs::path& file, const std::string& line) {
    if (line.starts_with("#include \"server/") || line.starts_with("#include \"cli/")) {
      upwards.push_back(file.string() + ": " + line);
    }
  });
  EXPECT_THAT(upwards, testing::IsEmpty());
}

// The contract's operations are for the module: the host below and above the services uses what they are built on.
TEST(Layers, ContractOperation_IsNotUsedByTheHost) {
  const std::regex call(
      "\\b(yfw_\\w+|cerr_strerror|named_free|platform_get_\\w+|_?sysdb_\\w+|imc_\\w+|bag_register\\w*)\\(");
  std::vector<std::string> calls;
  visit_lines([&](const fs::path& file, const std::string& line) {
    const size_t comment = line.find("//");
    if (layer_of(file) != "services" && std::regex_search(line.substr(0, comment), call)) {
      calls.push_back(file.string() + ": " + line);
    }
  });
  EXPECT_THAT(calls, testing::IsEmpty());
}

}  // namespace
}  // namespace oclacp::host
