#include "host/devices/apply_edit.h"

#include "host/yang/tree_printer.h"
#include "tests/unit/host/devices/memory_device.h"
#include "tests/unit/host/trees/output_log_test.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;

constexpr const char* kNativeA =
    "native /Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
    "[interface-name='a']";

class EditApplicationTest : public OutputLogTest {
 protected:
  // A leaf of the request's entry "a" that carries an operation.
  const yfw_datatree* leaf(uint32_t operation) {
    yfw_datatree* node = find(request_, {"interfaces", "interface", "config", "interval"});
    node->operation = operation;
    return node;
  }

  void set(const std::string& name, const char* value, uint32_t operation = YFW_OPERATION_NONE) {
    EXPECT_EQ(add_lacp(edit_, name, value, leaf(operation)), YFW_OK) << edit_.complaint();
  }

  // What `device` holds after the edit, compared as libyang compares.
  void expect_result(const DeviceSnapshot& device, const std::string& expected) {
    const TreePtr result = apply_edit(schemas().native(), EditTree(edit_), device);
    const TreePtr wanted = running(expected);
    EXPECT_EQ(print_tree(schemas().native(), result.get(), LYD_JSON),
              print_tree(schemas().native(), wanted.get(), LYD_JSON));
  }

  void expect_refusal(const DeviceSnapshot& device, const std::string& part) {
    EXPECT_THAT(refusal_of([&] { apply_edit(schemas().native(), EditTree(edit_), device); }), HasSubstr(part));
  }

  RequestTree request_ = parse(interface(R"("name": "a", "config": {"interval": "FAST"})"));
  const yfw_datatree* entry_ = find(request_, {"interfaces", "interface"});
};

TEST_F(EditApplicationTest, SetLeaves_KeepTheRest) {
  open(edit_, "a", entry_);
  set("period", "1");
  set("mode", "passive");
  expect_result(MemorySnapshot(interface_a(R"("description": "x", "Talvo-Brin-QD-bundlemgr-cfg:lacp":
                                       {"mode": "active", "system-priority": 5})")),
                interface_a(R"("description": "x", "Talvo-Brin-QD-bundlemgr-cfg:lacp":
                            {"mode": "passive", "system-priority": 5, "period": 1})"));
}

TEST_F(EditApplicationTest, SetOfAnAbsentNode_CreatesIt) {
  open(edit_, "a", entry_);
  set("period", "1");
  expect_result(EmptySnapshot(), lacp_of_a(R"("period": 1)"));
}

TEST_F(EditApplicationTest, EntryWithoutLeaves_IsCreated) {
  open(edit_, "a", entry_);
  expect_result(MemorySnapshot("{}"), interface_a(""));
}

TEST_F(EditApplicationTest, DeleteOfAnAbsentLeaf_IsRefused) {
  open(edit_, "a", entry_);
  set("period", nullptr, YFW_OPERATION_DELETE);
  expect_result(MemorySnapshot(lacp_of_a(R"("period": 1, "mode": "active")")), lacp_of_a(R"("mode": "active")"));
  const std::string refusal = std::string(kNativeA) +
                              "/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: cannot be deleted, the device has no such "
                              "configuration";
  const std::string source = "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/interval: ";
  expect_refusal(MemorySnapshot(lacp_of_a(R"("mode": "active")")), source + refusal);
  expect_refusal(MemorySnapshot(interface_a("")), refusal);
  expect_refusal(MemorySnapshot("{}"), refusal);
  expect_refusal(EmptySnapshot(), refusal);
}

TEST_F(EditApplicationTest, RemoveOfAnAbsentLeaf_HasNoEffect) {
  open(edit_, "a", entry_);
  set("period", nullptr, YFW_OPERATION_REMOVE);
  expect_result(MemorySnapshot(lacp_of_a(R"("period": 1, "mode": "active")")), lacp_of_a(R"("mode": "active")"));
  expect_result(MemorySnapshot(interface_a("")), interface_a(""));
}

TEST_F(EditApplicationTest, AbsentEntryThatOnlyRemoves_IsNotCreated) {
  open(edit_, "a", entry_);
  add(edit_, std::string(kEntry) + "/interface-virtual", kIfmgr, nullptr,
      find(request_, {"interfaces", "interface", "name"}));
  set("period", nullptr, YFW_OPERATION_REMOVE);
  expect_result(MemorySnapshot("{}"), "{}");
}

TEST_F(EditApplicationTest, AbsentEntryThatSetsAndRemoves_IsCreated) {
  open(edit_, "a", entry_);
  set("period", nullptr, YFW_OPERATION_REMOVE);
  set("mode", "active");
  expect_result(MemorySnapshot("{}"), lacp_of_a(R"("mode": "active")"));
}

TEST_F(EditApplicationTest, CreateOfAPresentLeaf_IsRefused) {
  open(edit_, "a", entry_);
  set("period", "1", YFW_OPERATION_CREATE);
  expect_result(MemorySnapshot("{}"), lacp_of_a(R"("period": 1)"));
  expect_refusal(MemorySnapshot(lacp_of_a(R"("period": 1)")),
                 "/Talvo-Brin-QD-bundlemgr-cfg:lacp/period: is there already");
}

TEST_F(EditApplicationTest, RemoveOfAContainer_KeepsItsEntry) {
  open(edit_, "a", leaf(YFW_OPERATION_NONE));
  EXPECT_EQ(add_lacp(edit_, "", nullptr, leaf(YFW_OPERATION_REMOVE)), YFW_OK);
  expect_result(MemorySnapshot(lacp_of_a(R"("period": 1, "talvo-extensions": {"enable": [null]})")), interface_a(""));
}

TEST_F(EditApplicationTest, DeleteOfAnEmptyContainer_IsRefused) {
  open(edit_, "a", leaf(YFW_OPERATION_NONE));
  EXPECT_EQ(add_lacp(edit_, "", nullptr, leaf(YFW_OPERATION_DELETE)), YFW_OK);
  expect_refusal(MemorySnapshot(lacp_of_a("")), "/Talvo-Brin-QD-bundlemgr-cfg:lacp: cannot be deleted");
}

TEST_F(EditApplicationTest, SetInARemovedContainer_ReplacesTheContainer) {
  open(edit_, "a", leaf(YFW_OPERATION_NONE));
  EXPECT_EQ(add_lacp(edit_, "", nullptr, leaf(YFW_OPERATION_REMOVE)), YFW_OK);
  set("mode", "passive");
  expect_result(MemorySnapshot(lacp_of_a(R"("mode": "active", "period": 1)")), lacp_of_a(R"("mode": "passive")"));
}

TEST_F(EditApplicationTest, DeleteOfAGlobalLeaf_RemovesIt) {
  EXPECT_EQ(add(edit_, "/lacp/system-priority", kBundlemgr, nullptr, leaf(YFW_OPERATION_DELETE)), YFW_OK);
  expect_result(MemorySnapshot(R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {"system-priority": 5}})"), "{}");
  expect_refusal(EmptySnapshot(), "native /Talvo-Brin-QD-bundlemgr-cfg:lacp/system-priority: cannot be deleted");
}

TEST_F(EditApplicationTest, InvalidNativeValue_IsRefused) {
  open(edit_, "a", entry_);
  set("mode", "sometimes");
  const std::string refusal =
      std::string(kNativeA) + "/Talvo-Brin-QD-bundlemgr-cfg:lacp/mode: 'sometimes' is none of on, active, passive";
  expect_refusal(MemorySnapshot("{}"), refusal);
  expect_refusal(MemorySnapshot(lacp_of_a(R"("mode": "active")")), refusal);
}

TEST_F(EditApplicationTest, Snapshot_StaysUnchanged) {
  const MemorySnapshot device(lacp_of_a(R"("mode": "active")"));
  const std::string before = print_tree(schemas().native(), device.running(), LYD_JSON);
  open(edit_, "a", entry_);
  set("mode", "passive");
  apply_edit(schemas().native(), EditTree(edit_), device);
  EXPECT_EQ(print_tree(schemas().native(), device.running(), LYD_JSON), before);
}

class LoudDevice final : public MemorySnapshot {
 public:
  using MemorySnapshot::MemorySnapshot;
  [[nodiscard]] std::string normalized_value(const lysc_node& leaf, std::string_view value) const override {
    return std::string(leaf.name) == "period" ? std::string(value) + "000" : std::string(value);
  }
};

TEST_F(EditApplicationTest, Value_IsNormalizedByTheDevice) {
  open(edit_, "a", entry_);
  set("period", "7");
  set("system-priority", "7");
  expect_result(LoudDevice("{}"), lacp_of_a(R"("period": 7000, "system-priority": 7)"));
}

}  // namespace
}  // namespace oclacp::host
