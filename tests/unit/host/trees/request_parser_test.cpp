#include "host/trees/request_parser.h"

#include "host/trees/node.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

constexpr const char* kXmlHead = R"(<lacp xmlns="http://openconfig.net/yang/lacp"
    xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0">)";

std::string xml_interface(const std::string& content) {
  return kXmlHead + ("<interfaces><interface>" + content) + "</interface></interfaces></lacp>";
}

std::string parsed(const std::string& text) {
  return refusal_of([&] { parse(text); });
}

TEST(RequestParser, Nodes_HaveTheFieldsOfTheContract) {
  RequestTree tree = parse(interface(R"("name": "a", "config": {"system-priority": 7})"));
  EXPECT_STREQ(tree.top()->tag, "lacp");
  EXPECT_STREQ(tree.top()->ns, "http://openconfig.net/yang/lacp");
  EXPECT_EQ(tree.top()->value, nullptr);
  EXPECT_EQ(tree.top()->flags, static_cast<uint32_t>(YFW_FLAG_SUBTREE));
  EXPECT_EQ(tree.top()->child_count, 1U);
  const yfw_datatree* leaf = find(tree, {"interfaces", "interface", "config", "system-priority"});
  ASSERT_NE(leaf, nullptr);
  EXPECT_STREQ(leaf->value, "7");
  EXPECT_EQ(leaf->flags, static_cast<uint32_t>(YFW_FLAG_VALUE));
  EXPECT_EQ(leaf->child_count, 0U);
  EXPECT_EQ(leaf->operation, static_cast<uint32_t>(YFW_OPERATION_NONE));
  EXPECT_EQ(info_of(leaf).parent, find(tree, {"interfaces", "interface", "config"}));
}

TEST(RequestParser, Children_AreInTheOrderOfTheDocument) {
  RequestTree tree = parse(lacp(R"("interfaces": {"interface": [{"name": "a"}, {"name": "b"}, {"name": "c"}]})"));
  const yfw_datatree* interfaces = find(tree, {"interfaces"});
  ASSERT_EQ(interfaces->child_count, 3U);
  EXPECT_STREQ(interfaces->children[0].children[0].value, "a");
  EXPECT_STREQ(interfaces->children[1].children[0].value, "b");
  EXPECT_STREQ(interfaces->children[2].children[0].value, "c");
}

TEST(RequestParser, JsonAndXml_MakeTheSameTree) {
  RequestTree from_json = parse(interface(
      R"("name": "a", "config": {"interval": "FAST", "lacp-mode": [null], "@lacp-mode": {"ietf-netconf:operation": "remove"}})"));
  RequestTree from_xml = parse(
      xml_interface(R"(<name>a</name><config><interval>FAST</interval><lacp-mode nc:operation="remove"/></config>)"));
  ASSERT_EQ(from_json.nodes().size(), from_xml.nodes().size());
  for (size_t index = 0; index < from_json.nodes().size(); ++index) {
    const yfw_datatree& one = from_json.nodes()[index];
    const yfw_datatree& other = from_xml.nodes()[index];
    EXPECT_STREQ(one.tag, other.tag);
    EXPECT_STREQ(one.value, other.value) << one.tag;
    EXPECT_STREQ(one.ns, other.ns) << one.tag;
    EXPECT_EQ(one.operation, other.operation) << one.tag;
    EXPECT_EQ(one.flags, other.flags) << one.tag;
    EXPECT_EQ(one.child_count, other.child_count) << one.tag;
  }
}

TEST(RequestParser, Operations_BecomeTheCodesOfTheContract) {
  const std::vector<std::pair<std::string, uint32_t>> operations = {{"merge", YFW_OPERATION_NONE},
                                                                    {"replace", YFW_OPERATION_REPLACE},
                                                                    {"create", YFW_OPERATION_CREATE},
                                                                    {"delete", YFW_OPERATION_DELETE},
                                                                    {"remove", YFW_OPERATION_REMOVE}};
  for (const auto& [name, code] : operations) {
    RequestTree in_json = parse(lacp(R"("config": {"@": {"ietf-netconf:operation": ")" + name + "\"}}"));
    EXPECT_EQ(find(in_json, {"config"})->operation, code) << name;
    RequestTree in_xml = parse(kXmlHead + ("<config nc:operation='" + name) + "'/></lacp>");
    EXPECT_EQ(find(in_xml, {"config"})->operation, code) << name;
    EXPECT_EQ(in_xml.operations(), 1U) << name;
    // A leaf without value is kept by libyang in another form.
    RequestTree leaf_in_json = parse(lacp(
        R"("config": {"system-priority": [null], "@system-priority": {"ietf-netconf:operation": ")" + name + "\"}}"));
    EXPECT_EQ(find(leaf_in_json, {"config", "system-priority"})->operation, code) << name;
    RequestTree leaf_in_xml =
        parse(kXmlHead + ("<config><system-priority nc:operation='" + name) + "'/></config></lacp>");
    EXPECT_EQ(find(leaf_in_xml, {"config", "system-priority"})->operation, code) << name;
  }
}

TEST(RequestParser, UnknownOperation_IsRefused) {
  EXPECT_EQ(parsed(lacp(R"("@": {"ietf-netconf:operation": "destroy"})")),
            "the request (line 1): operation 'destroy' is none of merge, replace, create, delete, remove");
  EXPECT_EQ(parsed(interface(R"("name": "a", "config": {"interval": [null],
                                "@interval": {"ietf-netconf:operation": "destroy"}})")),
            "the request (line 2): operation 'destroy' is none of merge, replace, create, delete, remove");
}

TEST(RequestParser, OperationOfAnotherNamespace_IsRefused) {
  EXPECT_EQ(parsed(R"(<lacp xmlns="http://openconfig.net/yang/lacp" xmlns:x="urn:x" x:operation="delete"/>)"),
            "/openconfig-lacp:lacp: an 'operation' attribute is not of the namespace "
            "urn:ietf:params:xml:ns:netconf:base:1.0");
  EXPECT_EQ(parsed(R"(<lacp xmlns="http://openconfig.net/yang/lacp" xmlns:x="urn:x"><config>
                      <system-priority x:operation="delete"/></config></lacp>)"),
            "/openconfig-lacp:lacp/config/system-priority: attribute 'operation' is not understood");
}

TEST(RequestParser, LeafWithoutAValue_IsAccepted) {
  RequestTree in_json = parse(interface(R"("name": "a", "config": {"interval": [null]})"));
  RequestTree in_xml = parse(xml_interface("<name>a</name><config><interval/></config>"));
  RequestTree empty_text = parse(interface(R"("name": "a", "config": {"name": ""})"));
  for (const yfw_datatree* leaf : {find(in_json, {"interfaces", "interface", "config", "interval"}),
                                   find(in_xml, {"interfaces", "interface", "config", "interval"}),
                                   find(empty_text, {"interfaces", "interface", "config", "name"})}) {
    ASSERT_NE(leaf, nullptr);
    EXPECT_EQ(leaf->value, nullptr);
    EXPECT_EQ(leaf->flags & YFW_FLAG_VALUE, 0U);
  }
}

TEST(RequestParser, EntryWithoutItsKey_IsAccepted) {
  RequestTree tree = parse(interface(R"("config": {"interval": "FAST", "lacp-mode": [null]})"));
  EXPECT_EQ(find(tree, {"interfaces", "interface", "name"}), nullptr);
  const yfw_datatree* interval = find(tree, {"interfaces", "interface", "config", "interval"});
  ASSERT_NE(interval, nullptr);
  EXPECT_STREQ(interval->value, "FAST");
  EXPECT_STREQ(interval->ns, "http://openconfig.net/yang/lacp");
  EXPECT_EQ(find(tree, {"interfaces", "interface", "config", "lacp-mode"})->value, nullptr);
}

TEST(RequestParser, KeyNamedTwice_IsPassedToTheModule) {
  RequestTree tree = parse(interface(R"("name": "a", "name": "b")"));
  EXPECT_EQ(find(tree, {"interfaces", "interface"})->child_count, 2U);
}

TEST(RequestParser, NodeNamedTwice_IsRefused) {
  EXPECT_EQ(parsed(lacp(R"("config": {"system-priority": 1, "system-priority": 2})")),
            "/openconfig-lacp:lacp/config/system-priority (line 1): named twice");
  EXPECT_EQ(parsed(lacp(R"("config": {}, "config": {})")), "/openconfig-lacp:lacp/config (line 1): named twice");
}

TEST(RequestParser, TwoOperationsOnOneNode_AreRefused) {
  const std::string entry = "/openconfig-lacp:lacp/interfaces/interface[name='a']";
  EXPECT_EQ(parsed(interface(R"("name": "a", "@": {"ietf-netconf:operation": "create",
                                                   "ietf-netconf:operation": "create"})")),
            entry + ": its operation is named twice");
  EXPECT_EQ(parsed(interface(R"("name": "a", "config": {"interval": "FAST",
                                "@interval": {"ietf-netconf:operation": "create"},
                                "@openconfig-lacp:interval": {"ietf-netconf:operation": "merge"}})")),
            entry + "/config/interval: its operation is named twice");
  EXPECT_EQ(parsed(xml_interface(R"(<name>a</name><config xmlns:also="urn:ietf:params:xml:ns:netconf:base:1.0"
                                    nc:operation="create" also:operation="delete"/>)")),
            entry + "/config: its operation is named twice");
}

TEST(RequestParser, UnknownNode_IsRefusedWithItsPath) {
  EXPECT_EQ(parsed(interface(R"("name": "a", "config": {"colour": 1})")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/colour: no such node");
  EXPECT_EQ(parsed(xml_interface("<name>a</name><config><colour/></config>")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/colour: no such node");
  EXPECT_EQ(parsed(R"({"openconfig-lacp:colour": 1})"), "/openconfig-lacp:colour: no such node");
}

TEST(RequestParser, UnknownModule_IsRefusedWithThePath) {
  EXPECT_EQ(parsed(R"({"no-such:lacp": {}})"), "/no-such:lacp: unknown module 'no-such'");
  EXPECT_EQ(parsed(R"(<lacp xmlns="urn:no-such"/>)"), "/lacp: unknown module 'urn:no-such'");
  EXPECT_EQ(parsed(R"({"lacp": {}})"),
            "the request (line 1): Top-level JSON object member \"lacp\" must be namespace-qualified");
  EXPECT_EQ(parsed("<lacp/>"), "the request (line 1): Missing XML namespace");
  EXPECT_EQ(parsed(lacp(R"("no-such:config": {})")), "/openconfig-lacp:lacp/no-such:config: unknown module 'no-such'");
}

TEST(RequestParser, NativeNode_IsRefused) {
  EXPECT_EQ(parsed(R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {}})"),
            "/Talvo-Brin-QD-bundlemgr-cfg:lacp: unknown module 'Talvo-Brin-QD-bundlemgr-cfg'");
}

TEST(RequestParser, InvalidValue_IsRefusedWithItsPath) {
  EXPECT_EQ(parsed(interface(R"("name": "a", "config": {"interval": "MEDIUM"})")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/interval: 'MEDIUM' is none of "
            "FAST, SLOW");
  EXPECT_EQ(parsed(xml_interface("<name>a</name><config><interval>MEDIUM</interval></config>")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/config/interval: 'MEDIUM' is none of "
            "FAST, SLOW");
  // In an entry without its key libyang judges nothing.
  EXPECT_EQ(parsed(interface(R"("config": {"interval": "MEDIUM"})")),
            "/openconfig-lacp:lacp/interfaces/interface/config/interval: 'MEDIUM' is none of FAST, SLOW");
  EXPECT_EQ(parsed(interface(R"("config": {"interval": {"name": "a"}})")),
            "/openconfig-lacp:lacp/interfaces/interface/config/interval: a leaf has nothing below it");
  EXPECT_EQ(parsed(interface(R"("config": "x")")), "/openconfig-lacp:lacp/interfaces/interface/config: takes no value");
  EXPECT_EQ(parsed(lacp(R"("config": {"system-priority": "100"})")),
            "/openconfig-lacp:lacp/config/system-priority (line 1): Invalid non-number-encoded uint16 value \"100\"");
}

TEST(RequestParser, MalformedText_IsRefusedWithItsLine) {
  EXPECT_THAT(parsed("{\"openconfig-lacp:lacp\":\n{]}"), testing::HasSubstr("(line 2): "));
  EXPECT_THAT(parsed("<lacp xmlns=\"http://openconfig.net/yang/lacp\">\n</config>"), testing::HasSubstr("(line 2): "));
  EXPECT_THAT(parsed("[]"), testing::StartsWith("the request (line 1): "));
  EXPECT_THAT(parsed("nonsense"), testing::StartsWith("the request (line 1): "));
}

TEST(RequestParser, RequestWithoutNodes_IsRefused) {
  EXPECT_EQ(parsed("{}"), "the request: names no node");
  EXPECT_EQ(parsed("<!-- nothing -->"), "the request: names no node");
}

TEST(RequestParser, SecondTopNode_IsRefused) {
  EXPECT_EQ(parsed(R"({"openconfig-lacp:lacp": {}, "openconfig-lacp:lacp": {}})"),
            "/openconfig-lacp:lacp (line 1): named twice");
  EXPECT_EQ(parsed(R"({"openconfig-lacp:lacp": {}, "openconfig-interfaces:interfaces": {}})"),
            "/openconfig-lacp:lacp: a request has one top node, this one has more");
}

TEST(RequestParser, NumberOrNullForAString_IsRefused) {
  for (const char* value : {"[null]", "5"}) {
    EXPECT_THAT(parsed(interface(R"("name": "a", "config": {"name": )" + std::string(value) + "}")),
                testing::EndsWith("/config/name (line 1): takes a text in quotes, no number and no [null]"));
  }
}

TEST(RequestParser, InterfaceNameLongerThan63Bytes_IsRefused) {
  EXPECT_EQ(parsed(interface(R"("name": ")" + std::string(63, 'x') + "\"")), "accepted");
  for (const size_t length : {64U, 300U}) {
    EXPECT_EQ(parsed(interface(R"("name": ")" + std::string(length, 'x') + "\"")),
              "/openconfig-lacp:lacp/interfaces/interface/name: an interface name has at most 63 bytes");
  }
}

TEST(RequestParser, KeyWithAnApostrophe_IsQuotedInThePath) {
  RequestTree tree = parse(interface(R"("name": "it's", "config": {})"));
  EXPECT_EQ(node_path(find(tree, {"interfaces", "interface", "config"})),
            "/openconfig-lacp:lacp/interfaces/interface[name=\"it's\"]/config");
}

}  // namespace
}  // namespace oclacp::host
