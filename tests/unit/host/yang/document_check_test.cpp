#include "host/yang/document_check.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::string inspected(const std::string& text) {
  return refusal_of([&] { inspect_document(text); });
}

TEST(DocumentInfo, TheFirstCharacterTellsTheFormat) {
  EXPECT_EQ(inspect_document(" \n\t{}").format, LYD_JSON);
  EXPECT_EQ(inspect_document(" \n<a/>").format, LYD_XML);
}

TEST(DocumentInfo, RefusesEmptyDocuments) {
  EXPECT_EQ(inspected(""), "the request: empty");
  EXPECT_EQ(inspected(" \n\t \r\n"), "the request: empty");
}

TEST(DocumentInfo, RefusesLongDocumentsOnly) {
  EXPECT_EQ(inspected(std::string(kMaxRequestBytes - 2, ' ') + "{}"), "accepted");
  EXPECT_EQ(inspected(std::string(kMaxRequestBytes - 1, ' ') + "{}"), "the request: longer than 32 MiB");
}

TEST(DocumentInfo, RefusesNulCharacters) {
  EXPECT_EQ(inspected(std::string("{\0}", 3)), "the request: holds a NUL character");
}

std::string repeated(const std::string& text, unsigned count) {
  std::string all;
  for (unsigned index = 0; index < count; ++index) {
    all += text;
  }
  return all;
}

TEST(DocumentInfo, BoundsTheDepthOfJson) {
  const auto nested = [](unsigned depth) { return repeated("[", depth) + repeated("]", depth); };
  EXPECT_EQ(inspected(nested(kMaxRequestDepth)), "accepted");
  EXPECT_EQ(inspected(nested(kMaxRequestDepth + 1)), "the request (line 1): nested deeper than 100 levels");
  EXPECT_EQ(inspected(nested(10'000)), "the request (line 1): nested deeper than 100 levels");
}

TEST(DocumentInfo, BoundsTheDepthOfXml) {
  const auto nested = [](unsigned depth) { return repeated("<a>\n", depth) + repeated("</a>", depth); };
  EXPECT_EQ(inspected(nested(kMaxRequestDepth)), "accepted");
  EXPECT_EQ(inspected(nested(kMaxRequestDepth + 1)), "the request (line 101): nested deeper than 100 levels");
  EXPECT_EQ(inspected(nested(10'000)), "the request (line 101): nested deeper than 100 levels");
}

TEST(DocumentInfo, SiblingsAreNotDepth) {
  EXPECT_EQ(inspected("[" + repeated("[],", 1000) + "[]]"), "accepted");
  EXPECT_EQ(inspected("<a>" + repeated("<b x='/>'/><c></c>", 1000) + "</a>"),
            "the request (line 1): attribute 'x' is not understood, only 'operation' of the NETCONF base namespace is");
  EXPECT_EQ(inspected("<a>" + repeated("<b /><c></c>", 1000) + "</a>"), "accepted");
}

TEST(DocumentInfo, BracketsInsideOfTextsAreText) {
  EXPECT_EQ(inspected(R"({"a": "]}\"{["})"), "accepted");
  EXPECT_EQ(inspected("<a><!-- <b> --><![CDATA[<b>]]><?x <b> ?></a>"), "accepted");
}

TEST(DocumentInfo, RefusesUnfinishedJson) {
  EXPECT_EQ(inspected("{\"a\": {\n"), "the request (line 2): the document ends early");
  EXPECT_EQ(inspected("{\"a"), "the request (line 1): a string without an end");
  EXPECT_EQ(inspected("{\"a\\\""), "the request (line 1): a string without an end");
  EXPECT_EQ(inspected("}"), "the request (line 1): a closing bracket without an opening one");
}

TEST(DocumentInfo, RefusesTextBehindJson) {
  EXPECT_EQ(inspected("{}\n{}"), "the request (line 2): text behind the end of the document");
  EXPECT_EQ(inspected("{} \n"), "accepted");
}

TEST(DocumentInfo, RefusesUnfinishedXml) {
  EXPECT_EQ(inspected("<a>\n<b"), "the request (line 2): a tag without an end");
  EXPECT_EQ(inspected("<a b"), "the request (line 1): an attribute without a value");
  EXPECT_EQ(inspected("<a b='"),
            "the request (line 1): attribute 'b' is not understood, only 'operation' of the NETCONF "
            "base namespace is");
  EXPECT_EQ(inspected("<a xmlns='"), "the request (line 1): a tag without an end");
  EXPECT_EQ(inspected("<!-- "), "the request (line 1): markup without an end");
}

TEST(DocumentInfo, RefusesJsonAttributesThatWouldBeDropped) {
  EXPECT_EQ(inspected(R"({"a": {"@": {"nc:operation": "delete"}}})"),
            "the request (line 1): attribute 'nc:operation' is not understood, only 'ietf-netconf:operation' is");
  EXPECT_EQ(inspected(R"({"b": 1, "@b": {"operation": "delete"}})"),
            "the request (line 1): attribute 'operation' is not understood, only 'ietf-netconf:operation' is");
  EXPECT_EQ(inspected(R"({"@": "delete"})"), "the request (line 1): '@' is not followed by an object of attributes");
  EXPECT_EQ(inspected(R"({"a": {"@": {"ietf-netconf:operation": "delete"}, "operation": "x"}, "b": "@"})"), "accepted");
}

TEST(DocumentInfo, AttributesNamedTwice_AreRefused) {
  EXPECT_EQ(inspected(R"({"b": 1, "@b": {}, "c": {"@b": {}},
                          "@b": {}})"),
            "the request (line 2): '@b' is named twice");
  EXPECT_EQ(inspected(R"({"@": {}, "a": [{"@": {}}, {"@": {}}]})"), "accepted");
  EXPECT_EQ(inspected("<a xmlns:n='y'>\n<b n:operation='merge' n:operation='merge'/></a>"),
            "the request (line 2): attribute 'n:operation' is named twice");
  EXPECT_EQ(inspected("<a xmlns:n='y' xmlns:n='z'/>"), "the request (line 1): attribute 'xmlns:n' is named twice");
  EXPECT_EQ(inspected("<a xmlns:n='y' n:operation='merge'><b xmlns:n='z' n:operation='merge'/></a>"), "accepted");
}

TEST(DocumentInfo, CountsXmlOperations) {
  EXPECT_EQ(
      inspect_document(R"(<a xmlns="x" xmlns:n="y" n:operation="delete"><b n:operation='remove'/></a>)").operations,
      2U);
  EXPECT_EQ(inspected(R"(<a operation="delete"/>)"),
            "the request (line 1): attribute 'operation' is not understood, only 'operation' of the NETCONF base "
            "namespace is");
}

}  // namespace
}  // namespace oclacp::host
