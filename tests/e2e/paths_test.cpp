// The ways in which nodes are named, and the envelopes of requests, through the program.
#include <chrono>

#include "tests/e2e/edit_program.h"

namespace support {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kNetconf = "urn:ietf:params:xml:ns:netconf:base:1.0";
const std::string kList = "/lacp/interfaces/interface";

std::string got(const CopiedDevice& device, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"get", "-d", device.path()});
  const Outcome result = run(arguments);
  expect_success(result);
  return squeezed(result.out);
}

std::string lacp_in_xml(const std::string& content) {
  return "<lacp xmlns=\"http://openconfig.net/yang/lacp\">" + content + "</lacp>";
}

TEST(GetPaths, OfSeveralNodes_GiveOneAnswer) {
  const CopiedDevice device;
  const std::string answer = got(
      device, {"lacp/config", kList + "[name=Bundle-Ether1]/config/interval", kList + "[name='Bundle-Ether2']/name"});
  EXPECT_EQ(answer, R"({"openconfig-lacp:lacp":{"config":{"system-priority":4096},"interfaces":{"interface":[)"
                    R"({"name":"Bundle-Ether1","config":{"interval":"FAST"}},{"name":"Bundle-Ether2"}]}}})");
}

TEST(GetPaths, WithAsteriskOrWithoutAKey_GiveAllEntries) {
  const CopiedDevice device;
  EXPECT_EQ(got(device, {kList + "[name=*]/config/interval"}), got(device, {kList + "/config/interval"}));
}

TEST(GetPaths, LongPath_IsRefusedAtOnce) {
  const CopiedDevice device;
  const auto begin = std::chrono::steady_clock::now();
  expect_refusal(run({"get", "-d", device.path(), "/" + std::string(100000, 'a')}), "has 100001 bytes");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST(DeletePaths, OfSeveralNodes_AreOneEdit) {
  const CopiedDevice device;
  const std::string before = device.read();
  EXPECT_NE(run({"delete", "-d", device.path(), kList + "[name=Bundle-Ether1]/config/interval",
                 kList + "[name=Bundle-Ether1]/config/interval/", "/lacp/config/colour"})
                .status,
            0);
  EXPECT_EQ(device.read(), before);
  expect_success(run(
      {"delete", "-d", device.path(), kList + "[name=Bundle-Ether1]/config/interval", "/lacp/config/system-priority"}));
  EXPECT_THAT(got(device, {}), Not(HasSubstr("4096")));
  EXPECT_THAT(got(device, {kList + "[name=Bundle-Ether1]"}), Not(HasSubstr("interval")));
}

TEST(DeletePaths, OfWhatIsNotThere_AreRefusedOrFine) {
  const CopiedDevice device;
  expect_success(device.erase("/lacp/config/system-priority"));
  EXPECT_NE(device.erase("/lacp/config/system-priority").status, 0);
  expect_success(device.erase("/lacp/config/system-priority", {"--if-present"}));
}

TEST(EditEnvelopes, OfNetconf_AreOpened) {
  const std::string data =
      lacp_in_xml("<config><system-priority nc:operation=\"replace\">77</system-priority></config>");
  const std::string config = "<nc:config xmlns:nc=\"" + kNetconf + "\">" + data + "</nc:config>";
  const std::string edit =
      "<edit-config xmlns=\"" + kNetconf + "\"><target><running/></target>" + config + "</edit-config>";
  for (const std::string& request :
       {config, edit, "<?xml version=\"1.0\"?>\n<rpc message-id=\"1\" xmlns=\"" + kNetconf + "\">" + edit + "</rpc>"}) {
    const CopiedDevice device;
    expect_success(device.edit(request));
    EXPECT_THAT(got(device, {"/lacp/config"}), HasSubstr(R"("system-priority":77)")) << request;
  }
}

TEST(EditEnvelopes, DefaultOperation_Counts) {
  const CopiedDevice device;
  const auto edit = [&](const std::string& operation) {
    return device.edit("<edit-config><default-operation>" + operation + "</default-operation><config>" +
                       lacp_in_xml("<config><system-priority>77</system-priority></config>") +
                       "</config></edit-config>");
  };
  expect_refusal(edit("none"), "the default operation 'none' is not supported");
  expect_success(edit("merge"));
  EXPECT_THAT(got(device, {}), HasSubstr("interval"));
  expect_success(edit("replace"));
  EXPECT_THAT(got(device, {}), Not(HasSubstr("interval")));
}

TEST(EditParts, OfTheTree_AreTheNodeItselfOrItsChildren) {
  for (const std::string& path : {kList + "[name=Bundle-Ether1]", kList + "[name=Bundle-Ether1]/config"}) {
    for (const char* part : {R"({"openconfig-lacp:config": {"interval": "SLOW"}})",
                             R"(<config xmlns="http://openconfig.net/yang/lacp"><interval>SLOW</interval></config>)"}) {
      const CopiedDevice device;
      expect_success(device.edit(part, {"--at", path}));
      EXPECT_THAT(got(device, {kList + "[name=Bundle-Ether1]/config"}), HasSubstr(R"("interval":"SLOW")"));
    }
  }
}

TEST(EditParts, OfAnotherEntry_AreRefused) {
  const CopiedDevice device;
  expect_refusal(device.edit(R"({"openconfig-lacp:interface": [{"name": "Bundle-Ether2"}]})",
                             {"--at", kList + "[name=Bundle-Ether1]"}),
                 "is another entry than the path names");
}

std::string repeated(const std::string& text, unsigned count) {
  std::string all;
  for (unsigned index = 0; index < count; ++index) {
    all += text;
  }
  return all;
}

TEST(LongPaths, LongerThanTheLimit_AreRefusedAtOnce) {
  const CopiedDevice device;
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& path : {"/lacp/" + std::string(100'000, 'x'), "/lacp" + repeated("/config", 14'000),
                                  kList + repeated("[name=a]", 12'000)}) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"get", path}, {"delete", path}, {"edit", "-", "--at", path}}) {
      std::vector<std::string> all = arguments;
      all.insert(all.end(), {"-d", device.path()});
      expect_refusal(run(all, "{}"), " bytes, more than the 8192 that are taken\n");
    }
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(9)) << "nine starts of the program";
}

TEST(LongPaths, OfManyPredicates_AreRefusedAtOnce) {
  const CopiedDevice device;
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& path : {kList + repeated("[name=a]", 1000), kList + repeated("[x=1]", 1600)}) {
    expect_refusal(run({"get", path, "-d", device.path()}), "/openconfig-lacp:lacp/interfaces/interface");
    expect_refusal(device.erase(path), "/openconfig-lacp:lacp/interfaces/interface");
    expect_refusal(device.edit("{}", {"--at", path}), "/openconfig-lacp:lacp/interfaces/interface");
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6)) << "six starts of the program";
}

}  // namespace
}  // namespace support
