// What holds for every exported function that runs in the handler frame.
#include <string>

#include "unit/module_test.h"
#include "unit/oc-lacp/nodes.h"

namespace {

using nodes::ContainerFunction;
using nodes::Named;
using nodes::NodeFunction;

class ExportedFunctions : public support::ModuleTest {
 protected:
  // The trace of what ran since the last look.
  std::vector<std::string> new_trace() {
    const std::vector<std::string> all = platform.trace();
    std::vector<std::string> fresh(all.begin() + static_cast<std::ptrdiff_t>(looked_at_), all.end());
    looked_at_ = all.size();
    return fresh;
  }

  static std::vector<std::string> refusal_by(const char* name) {
    const std::string level_and_name = std::string(" ") + name + ": ";
    return {"TRC" + level_and_name + "Start", "ERR" + level_and_name + "Invalid arguments passed!"};
  }

  support::Request request{support::leaf("leaf", "value")};

 private:
  std::size_t looked_at_ = 0;
};

using ExportedFunctionsDeathTest = ExportedFunctions;

TEST_F(ExportedFunctionsDeathTest, EndTheProcessOnANullContextUnderTheirOwnPrototype) {
  for (const Named<NodeFunction>& one : nodes::node_functions()) {
    EXPECT_DEATH(one.function(nullptr, request.root(), platform.output()),
                 std::string("mapping/oc-lacp/src/ymap_oclacp_openconfig_lacp_[a-z_]+\\.[a-z]+:[0-9]+: cerrno ") +
                     one.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*, yfw_datatree \\*\\): "
                     "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
  for (const Named<ContainerFunction>& one : nodes::container_functions()) {
    EXPECT_DEATH(one.function(nullptr, request.root(), 0, platform.output()),
                 std::string("cerrno ") + one.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*, unsigned int, yfw_datatree \\*\\): "
                     "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
}

TEST_F(ExportedFunctions, RefuseANullInputUnderTheirOwnName) {
  unsigned marked = 0;
  for (const Named<NodeFunction>& one : nodes::node_functions()) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
    EXPECT_EQ(new_trace(), refusal_by(one.name));
    EXPECT_EQ(platform.count("yfw_oc_error_path"), ++marked);
  }
  for (const Named<ContainerFunction>& one : nodes::container_functions()) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), nullptr, 0, platform.output()), YFW_INVALID_ARGUMENTS);
    EXPECT_EQ(new_trace(), refusal_by(one.name));
    EXPECT_EQ(platform.count("yfw_oc_error_path"), ++marked);
  }
}

TEST_F(ExportedFunctions, RefuseANullOutputUnderTheirOwnName) {
  for (const Named<NodeFunction>& one : nodes::node_functions()) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
    EXPECT_EQ(new_trace(), refusal_by(one.name));
  }
  for (const Named<ContainerFunction>& one : nodes::container_functions()) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(one.function(platform.ctx(), request.root(), 0, nullptr), YFW_INVALID_ARGUMENTS);
    EXPECT_EQ(new_trace(), refusal_by(one.name));
  }
  EXPECT_TRUE(platform.additions().empty());
}

TEST_F(ExportedFunctions, HaveSiteWordsOfTheirOwn) {
  std::map<const std::uint32_t*, std::string> owners;
  for (const Named<NodeFunction>& one : nodes::node_functions()) {
    const std::size_t before = platform.seen().records.size();
    one.function(platform.ctx(), nullptr, platform.output());
    for (std::size_t i = before; i < platform.seen().records.size(); ++i) {
      const support::Record& record = platform.seen().records[i];
      if (record.sink != support::Record::Sink::kDebugLog) continue;
      const auto [owner, fresh] = owners.emplace(record.site, one.name);
      EXPECT_TRUE(fresh) << one.name << " shares the word of \"" << record.text << "\" with " << owner->second;
    }
  }
}

}  // namespace
