// Reading native data through the module, in parts and of what is wanted.
#include "host/translation/native_reader.h"

#include "host/services/current_device.h"
#include "host/trees/path_request.h"
#include "tests/support/locations.h"
#include "tests/unit/host/devices/memory_device.h"
#include "tests/unit/host/trees/answer_test.h"
#include "tests/unit/host/trees/native_test.h"

namespace oclacp::host {
namespace {

std::vector<std::string> wanted(const std::string& path) {
  RequestTree request = parse_paths(schemas().request(), {path});
  const EntryFilter entries = make_entry_filter(request.top());
  std::vector<std::string> keys(entries.keys.begin(), entries.keys.end());
  EXPECT_EQ(entries.list == nullptr, keys.empty());
  return keys;
}

TEST(EntryFilter, ReadOfNamedEntries_KeepsThose) {
  EXPECT_EQ(wanted("/lacp/interfaces/interface[name='a']/config"), std::vector<std::string>{"a"});
  EXPECT_EQ(wanted("/lacp/interfaces/interface[name='a']/members/member[interface='b']"),
            std::vector<std::string>{"a"});
}

TEST(EntryFilter, ReadWithoutEntries_KeepsAll) {
  for (const char* path : {"/lacp", "/lacp/config", "/lacp/interfaces", "/lacp/interfaces/interface",
                           "/lacp/interfaces/interface/members/member[interface='b']"}) {
    EXPECT_TRUE(wanted(path).empty()) << path;
  }
}

std::string bundle(const std::string& name) {
  return R"({"bundle-interface": ")" + name + R"(", "data": {"bundle-system-id": {"system-prio": 5}}})";
}

std::string bundles(const std::string& entries) {
  return R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + entries + "]}}}";
}

class NativeReaderTest : public testing::Test {
 protected:
  // What is read of native data, entry names and all, in JSON without blanks.
  std::string read(const std::string& native, const EntryFilter& wanted = {}) {
    const TreePtr data = parse_native(native);
    const CurrentDevice installed(device_);
    const RecordSinks sinks = {nullptr, &trace_};
    NativeReader reader(context_, YFW_REQUEST_READ_STATE, sinks);
    reader.use(module_, wanted);
    reader.read(data.get(), nullptr);
    Answer answer;
    reader.finish(answer);
    return squeezed_json(answer.data);
  }

  // How often a handler ran.
  [[nodiscard]] size_t runs_of(const std::string& handler) const {
    return static_cast<size_t>(std::count_if(trace_.begin(), trace_.end(), [&](const std::string& record) {
      return record.find(handler) != std::string::npos && record.find("Start") != std::string::npos;
    }));
  }

  static std::string entry(const std::string& name) {
    return R"({"name":")" + name + R"(","config":{"name":")" + name + R"("},"state":{"name":")" + name + R"("}})";
  }
  static std::string interfaces(const std::string& entries) {
    return R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[)" + entries + "]}}}";
  }

  MappingModule module_{read_module_manifest(location::kSchemas, location::kModule)};
  TreeContext context_{schemas().request()};
  MemorySnapshot device_{"{}"};
  std::vector<std::string> trace_;
};

TEST_F(NativeReaderTest, WithoutAFilter_ReadsAllEntries) {
  EXPECT_EQ(read(bundles(bundle("a") + "," + bundle("b"))), interfaces(entry("a") + "," + entry("b")));
}

TEST_F(NativeReaderTest, WithAFilter_WalksOnlyItsEntries) {
  const lysc_node* list = lys_find_path(schemas().request(), nullptr, "/openconfig-lacp:lacp/interfaces/interface", 0);
  EXPECT_EQ(read(bundles(bundle("a") + "," + bundle("b") + "," + bundle("c")), {list, {"b"}}), interfaces(entry("b")));
  EXPECT_EQ(runs_of("list_lvla_lacpbundles_bundles_bundle"), 1U);
}

TEST_F(NativeReaderTest, ManyEntries_AreWalkedInParts) {
  std::string native;
  std::string expected;
  for (int number = 0; number < 600; ++number) {
    const std::string name = "b" + std::to_string(number);
    native += (native.empty() ? "" : ",") + bundle(name);
    expected += (expected.empty() ? "" : ",") + entry(name);
  }
  EXPECT_EQ(read(bundles(native)), interfaces(expected));
  EXPECT_EQ(runs_of("cont_lvla_lacpbundles_bundles"), 3U);
}

TEST_F(NativeReaderTest, DataWithoutAMapping_IsEmpty) {
  EXPECT_EQ(read(R"({"Talvo-Brin-QD-ifmgr-cfg:global-interface-configuration": {}})"), "{}");
}

}  // namespace
}  // namespace oclacp::host
