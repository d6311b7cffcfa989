// A log as a module would add to it.
#pragma once

#include <deque>
#include <string>

#include "host/trees/node.h"
#include "host/trees/output_log.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

inline constexpr const char* kEntry = "/interface-configurations/interface-configuration";

class OutputLogTest : public testing::Test {
 protected:
  // A source node with an operation of its own, that stands alone.
  const yfw_datatree* source(uint32_t operation) {
    infos_.push_back({nullptr, nullptr, nullptr});
    yfw_datatree& node = sources_.emplace_back();
    node.operation = operation;
    node.framework = &infos_.back();
    return &node;
  }

  // A source node without an operation, below one that has one.
  const yfw_datatree* source_below(uint32_t operation) {
    auto* above = const_cast<yfw_datatree*>(source(operation));
    auto* node = const_cast<yfw_datatree*>(source(YFW_OPERATION_NONE));
    infos_.back().parent = above;
    return node;
  }

  cerrno add(OutputLog& log, const std::string& path, const char* ns, const char* value, const yfw_datatree* source) {
    return log.add(path, ns, value, source, false);
  }

  void open(OutputLog& log, const yfw_datatree* source) {
    EXPECT_EQ(log.add(kEntry, kIfmgr, nullptr, source, true), YFW_OK);
  }

  // Opens an entry and gives it its keys.
  void open(OutputLog& log, const char* name, const yfw_datatree* source) {
    open(log, source);
    name_entry(log, name, source);
  }

  void name_entry(OutputLog& log, const char* name, const yfw_datatree* source) {
    EXPECT_EQ(add(log, std::string(kEntry) + "/interface-name", kIfmgr, name, source), YFW_OK);
    EXPECT_EQ(add(log, std::string(kEntry) + "/active", kIfmgr, "act", source), YFW_OK);
  }

  cerrno add_lacp(OutputLog& log, const std::string& leaf, const char* value, const yfw_datatree* source) {
    return add(log, std::string(kEntry) + "/lacp" + (leaf.empty() ? "" : "/" + leaf), kBundlemgr, value, source);
  }

  // The value of the name key of the entry that the last addition is in.
  static std::string last_entry_name(const OutputLog& log) {
    const int entry = log.additions().back().entry;
    if (entry == OutputLog::kNoEntry) {
      return "none";
    }
    const std::string_view name = log.entries()[static_cast<size_t>(entry)].keys.back();
    return name.data() == nullptr ? "unnamed" : std::string(name);
  }

  SchemaIndex paths_{schemas().native()};
  OutputLog edit_{paths_, true};
  std::deque<yfw_datatree> sources_;
  std::deque<NodeInfo> infos_;
  const yfw_datatree* merge_ = source(YFW_OPERATION_NONE);
};

}  // namespace oclacp::host
