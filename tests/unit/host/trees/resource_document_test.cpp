#include "host/trees/resource_document.h"

#include "host/trees/request_parser.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;

const std::string kEntry = "/lacp/interfaces/interface[name='x']";

std::string framed(const std::string& path, const std::string& text) {
  return frame_resource(schemas().request(), path, text);
}

std::string refused(const std::string& path, const std::string& text = "{}") {
  return refusal_of([&] { parse_resource(schemas().request(), path, text); });
}

TEST(ResourceDocument, TheNodeItselfInJson_StandsBelowWhatIsAbove) {
  EXPECT_EQ(framed(kEntry + "/config", R"({"openconfig-lacp:config": {"interval": "FAST"}})"),
            R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[{"name":"x",)"
            R"("openconfig-lacp:config": {"interval": "FAST"}}]}}})");
}

TEST(ResourceDocument, ChildrenOfTheNodeInJson_StandBelowIt) {
  EXPECT_EQ(framed(kEntry, R"({"config": {"interval": "FAST"}})"),
            R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[{"name":"x","config": {"interval": "FAST"}}]}}})");
}

TEST(ResourceDocument, Top_IsTheWholeDocument) {
  EXPECT_EQ(framed("/lacp", R"({"openconfig-lacp:lacp": {}})"), R"({"openconfig-lacp:lacp": {}})");
}

TEST(ResourceDocument, InXml_TakesTheNamespaceOfWhatIsAbove) {
  EXPECT_EQ(framed(kEntry + "/config", "<?xml version=\"1.0\"?>\n<config><interval>FAST</interval></config>"),
            "\n<lacp xmlns=\"http://openconfig.net/yang/lacp\"><interfaces><interface><name>x</name>"
            "<config><interval>FAST</interval></config></interface></interfaces></lacp>");
}

TEST(ResourceDocument, KeysWithSpecialCharacters_AreEscaped) {
  EXPECT_THAT(framed(R"(/lacp/interfaces/interface[name='a"b\c'])", R"({"config": {}})"), HasSubstr(R"("a\"b\\c")"));
  EXPECT_THAT(framed("/lacp/interfaces/interface[name='a<&b']", "<config/>"), HasSubstr("<name>a&lt;&amp;b</name>"));
}

TEST(ResourceDocument, EmptyPart_IsTheEntryAlone) {
  EXPECT_EQ(framed(kEntry, "{}"), R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[{"name":"x"}]}}})");
}

TEST(ResourceDocument, PathThatLeadsNowhere_IsRefused) {
  EXPECT_EQ(refused("/lacp/colour"), "/openconfig-lacp:lacp/colour: no such node");
  EXPECT_EQ(refused("/lacp/interfaces/interface/config"),
            "/openconfig-lacp:lacp/interfaces/interface: the path of a part of it needs the key 'name'");
  EXPECT_EQ(refused(kEntry + "[colour='x']"),
            "/openconfig-lacp:lacp/interfaces/interface: 'colour' is not one of its keys");
  EXPECT_EQ(refused("/lacp/config[system-priority='5']"),
            "/openconfig-lacp:lacp/config: is not a list, and has no keys");
}

TEST(ResourceDocument, AnotherEntryThanThePathNames_IsRefused) {
  EXPECT_EQ(refused(kEntry, R"({"openconfig-lacp:interface": [{"name": "y"}]})"),
            "/openconfig-lacp:lacp/interfaces/interface[name='y']: is another entry than the path names");
}

TEST(ResourceDocument, WhatIsNoObject_IsRefused) {
  EXPECT_EQ(refused(kEntry, "[1]"), "the request: a part of a tree is an object with the node as its member");
}

}  // namespace
}  // namespace oclacp::host
