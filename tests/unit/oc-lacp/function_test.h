// What tests of exported functions share: whatever a function does, it runs in the frame under its own name.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace nodes {

class FunctionTest : public support::ModuleTest {
 protected:
  // The trace of what ran since the last look.
  std::vector<std::string> new_trace() {
    const std::vector<std::string> all = platform.trace();
    std::vector<std::string> fresh(all.begin() + static_cast<std::ptrdiff_t>(looked_at_), all.end());
    looked_at_ = all.size();
    return fresh;
  }

  static auto is_refusal_by(const std::string& name) {
    const std::string level_and_name = " " + name + ": ";
    return testing::ElementsAre("TRC" + level_and_name + "Start", "ERR" + level_and_name + "Invalid arguments passed!");
  }
  static auto is_run_of(const std::string& name) {
    const std::string level_and_name = "TRC " + name + ": ";
    return testing::ElementsAre(level_and_name + "Start", level_and_name + "End");
  }

  // That each refuses a null input, and marks the error path.
  template <typename Functions, typename Containers>
  void expect_refusals_of_null_input(const Functions& functions, const Containers& containers) {
    unsigned marked = 0;
    for (const Named<NodeFunction>& one : functions) {
      SCOPED_TRACE(one.name);
      EXPECT_EQ(one.function(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
      EXPECT_THAT(new_trace(), is_refusal_by(one.name));
      EXPECT_EQ(platform.count("yfw_oc_error_path"), ++marked);
    }
    for (const Named<ContainerFunction>& one : containers) {
      SCOPED_TRACE(one.name);
      EXPECT_EQ(one.function(platform.ctx(), nullptr, 0, platform.output()), YFW_INVALID_ARGUMENTS);
      EXPECT_THAT(new_trace(), is_refusal_by(one.name));
      EXPECT_EQ(platform.count("yfw_oc_error_path"), ++marked);
    }
  }

  // That each refuses a null output.
  template <typename Functions, typename Containers>
  void expect_refusals_of_null_output(const Functions& functions, const Containers& containers) {
    for (const Named<NodeFunction>& one : functions) {
      SCOPED_TRACE(one.name);
      EXPECT_EQ(one.function(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
      EXPECT_THAT(new_trace(), is_refusal_by(one.name));
    }
    for (const Named<ContainerFunction>& one : containers) {
      SCOPED_TRACE(one.name);
      EXPECT_EQ(one.function(platform.ctx(), request.root(), 0, nullptr), YFW_INVALID_ARGUMENTS);
      EXPECT_THAT(new_trace(), is_refusal_by(one.name));
    }
    EXPECT_TRUE(platform.additions().empty());
  }

  // That no two places that write to the debug log share a word of the log filter.
  template <typename Functions>
  void expect_own_call_site_ids(const Functions& functions) {
    std::map<const std::uint32_t*, std::string> owners;
    for (const Named<NodeFunction>& one : functions) {
      const std::size_t before = platform.seen().records.size();
      one.function(platform.ctx(), nullptr, platform.output());
      for (std::size_t i = before; i < platform.seen().records.size(); ++i) {
        const support::Record& record = platform.seen().records[i];
        if (record.sink != support::Record::Sink::kDebugLog) continue;
        const auto [owner, fresh] = owners.emplace(record.call_site_id, one.name);
        EXPECT_TRUE(fresh) << one.name << " shares the word of \"" << record.text << "\" with " << owner->second;
      }
    }
  }

  support::Request request{support::leaf("leaf", "value")};

 private:
  std::size_t looked_at_ = 0;
};

}  // namespace nodes
