// State that is read in pieces is answered and refused as if it were read whole.
#include <random>

#include "host/base/error.h"
#include "host/devices/open_device.h"
#include "host/present/answer_writer.h"
#include "host/translation/translator.h"
#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

// The same device without its state as a document, so that it is read whole.
class WholeSnapshot final : public DeviceSnapshot {
 public:
  explicit WholeSnapshot(const DeviceSnapshot& device) : device_(device) {}

  [[nodiscard]] uint32_t router_type() const override { return device_.router_type(); }
  [[nodiscard]] const std::vector<Interface>& interfaces() const override { return device_.interfaces(); }
  [[nodiscard]] const lyd_node* running() const override { return device_.running(); }
  [[nodiscard]] const lyd_node* operational() const override { return device_.operational(); }

 private:
  const DeviceSnapshot& device_;
};

std::string member(const std::string& name, int number) {
  return R"({"member-interface": ")" + name + R"(", "counters": {"lacpd-us-received": ")" + std::to_string(number) +
         R"("}, "link-data": {"actor-system-mac-address": "00:11:22:33:44:55", "actor-port-state": 61}})";
}

std::string bundle(int number) {
  const std::string name = "Bundle-Ether" + std::to_string(number);
  return R"({"bundle-interface": ")" + name + R"(", "data": {"bundle-system-id": {"system-prio": )" +
         std::to_string(number) + R"(}, "applied-lacp-mode": "bmd-mode-active"}, "members": {"member": [)" +
         member("Gig" + std::to_string(number), 1) + "," + member("Gig" + std::to_string(number) + "/1", number) +
         "]}}";
}

std::string bundles(const std::string& entries) {
  return R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + entries +
         R"(]}}, "Talvo-Brin-QD-bundlemgr-oper:lacp-data": {"global": {"system-id": {"system-id": {"system-prio": 7}}}}})";
}

std::string bundles(int count) {
  std::string entries;
  for (int number = 1; number <= count; ++number) {
    entries += (number == 1 ? "" : ", ") + bundle(number);
  }
  return bundles(entries);
}

class PiecesTest : public testing::Test {
 protected:
  PiecesTest() {
    folder_.write("platform.json", R"({"oclacp-platform:platform": {"router-type": 7}})");
    folder_.write("running.json", R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [
        {"active": "act", "interface-name": "Bundle-Ether1", "interface-virtual": [null],
         "Talvo-Brin-QD-bundlemgr-cfg:lacp": {"mode": "active", "period": 1000}}]}})");
  }

  // The answer, or what is refused.
  std::string outcome(const DeviceSnapshot& device, const std::string& path, bool keeps_going) {
    try {
      const Answer answer = translator_.get(device, {path}, {.content = Content::kAll, .keeps_going = keeps_going});
      std::string text = print_answer(answer.data, LYD_JSON) + std::to_string(answer.dropped_leaves);
      for (const Error& failure : answer.failures) text += std::string("\nfailure: ") + failure.what();
      for (const std::string& line : answer.valueless) text += "\nvalueless: " + line;
      return text;
    } catch (const Error& error) {
      return std::string("refused: ") + error.what();
    }
  }

  // Reads the state in pieces and whole, which say the same: what.
  std::string read(const std::string& operational, const std::string& path = "/lacp", bool keeps_going = false) {
    std::ofstream(folder_.path() + "/operational.json") << operational;
    // Opened for each, as a snapshot keeps what it has read.
    const std::string text = outcome(*open()->snapshot(), path, keeps_going);
    EXPECT_EQ(text, outcome(WholeSnapshot(*open()->snapshot()), path, keeps_going)) << operational;
    return text;
  }

  [[nodiscard]] std::unique_ptr<Device> open() const {
    return open_device(translator_.native_context(), folder_.path());
  }

  TemporaryFolder folder_;
  Translator translator_{{location::kSchemas, ""}, location::kModule};
};

TEST_F(PiecesTest, AnyNumberOfEntries_AsWhole) {
  for (const int count : {0, 1, 7, 8, 9, 16, 40}) {
    const std::string text = read(bundles(count));
    EXPECT_EQ(text.find("refused"), std::string::npos) << text;
    EXPECT_EQ(text.find("\"Gig" + std::to_string(count) + "/1\"") != std::string::npos, count != 0);
  }
}

TEST_F(PiecesTest, DocumentsWithoutTheList_AsWhole) {
  for (
      const char* text :
      {"{}", " {\n} ", R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {}})",
       R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {}}})",
       R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": []}}})",
       R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-data": {"global": {"system-id": {"system-id": {"system-prio": 7}}}}})"}) {
    EXPECT_EQ(read(text).find("refused"), std::string::npos) << text;
  }
}

TEST_F(PiecesTest, OneEntryByItsKey_AsWhole) {
  for (const char* path : {"/lacp/interfaces/interface[name='Bundle-Ether12']", "/lacp/interfaces/interface[name='no']",
                           "/lacp/interfaces/interface[name='Bundle-Ether3']/members/member[interface='Gig3']",
                           "/lacp/interfaces/interface/state/system-priority[.='5']", "/lacp/state"}) {
    read(bundles(20), path);
  }
  EXPECT_NE(read(bundles(20), "/lacp/interfaces/interface[name='Bundle-Ether12']").find("Gig12/1"), std::string::npos);
}

TEST_F(PiecesTest, KeysThatAreNotFirst_AsWhole) {
  const std::string entry = R"({"data": {"bundle-system-id": {"system-prio": 3}}, "bundle-interface": "late"})";
  const std::string text = read(bundles(bundle(1) + "," + entry), "/lacp/interfaces/interface[name='late']");
  EXPECT_NE(text.find("late"), std::string::npos) << text;
}

TEST_F(PiecesTest, EqualKeysFarApart_RefusedAsWhole) {
  std::string entries = bundle(1);
  for (int number = 2; number < 30; ++number) {
    entries += "," + bundle(number);
  }
  for (const char* path : {"/lacp", "/lacp/interfaces/interface[name='Bundle-Ether5']"}) {
    EXPECT_THAT(read(bundles(entries + "," + bundle(1)), path),
                testing::AllOf(testing::StartsWith("refused"), testing::HasSubstr("operational.json")));
  }
}

TEST_F(PiecesTest, DoubledMembers_AsWhole) {
  read(R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + bundle(1) + R"(], "bundle": [)" +
       bundle(2) + "]}}}");
  read(R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + bundle(1) +
       R"(]}}, "Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + bundle(2) + "]}}}");
}

TEST_F(PiecesTest, FaultInALaterEntry_RefusedAsWhole) {
  for (const std::string& fault :
       {std::string(R"({"bundle-interface": "x", "data": {"applied-lacp-mode": "no"}})"),
        std::string(R"({"data": {}})"), std::string(R"({"bundle-interface": 5})"), std::string("5"), std::string("{}"),
        std::string(R"({"bundle-interface": "x", "unknown": 1})"),
        std::string(R"({"bundle-interface": "x", "@": {"ietf-netconf:operation": "delete"}})"),
        R"({"bundle-interface": ")" + std::string(64, 'x') + R"("})",
        std::string(R"({"bundle-interface": "x", "members": {"member": [{"member-interface": "m"},)"
                    R"( {"member-interface": "m"}]}})"),
        std::string(R"({"bundle-interface": "x", "members": {"member": [{"member-interface": "m"}], "member": [)"
                    R"({"member-interface": "n"}, {"member-interface": "m"}]}})"),
        std::string(R"({"bundle-interface": "x", "data": {}, "members": {}, "data": {}})"),
        std::string(R"({"bundle-interface": "x", "data": {"applied-lacp-mode": "bmd-mode-off",)"
                    R"( "bundle-system-id": {}, "applied-lacp-mode": "bmd-mode-off"}})"),
        std::string(R"({"bundle-interface": "x", "bundle-interface": "x"})")}) {
    std::string entries = fault;
    for (int number = 1; number < 20; ++number) {
      entries = bundle(number) + "," + entries;
    }
    EXPECT_THAT(read(bundles(entries)), testing::StartsWith("refused")) << fault;
  }
}

TEST_F(PiecesTest, DocumentsChangedAtOnePlace_AsWhole) {
  const std::string sound = bundles(10);
  std::mt19937 random(1);
  constexpr std::string_view kWritten = "\"{}[],:\\ x0-@\n";
  size_t refused = 0;
  for (int round = 0; round < 400; ++round) {
    std::string text = sound;
    const size_t place = random() % text.size();
    const char character = kWritten[random() % kWritten.size()];
    switch (random() % 3) {
      case 0:
        text[place] = character;
        break;
      case 1:
        text.insert(place, 1, character);
        break;
      default:
        text.erase(place, 1 + random() % 30);
    }
    refused += read(text, "/lacp", round % 2 == 0).starts_with("refused") ? 1 : 0;
  }
  EXPECT_GT(refused, 100U);
  EXPECT_LT(refused, 400U);
}

}  // namespace
}  // namespace oclacp::host
