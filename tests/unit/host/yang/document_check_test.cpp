#include "host/yang/document_check.h"

#include <chrono>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::string inspected(const std::string& text) {
  return refusal_of([&] { inspect_document(schemas().request(), text); });
}

TEST(DocumentInfo, FirstCharacter_DecidesTheFormat) {
  EXPECT_EQ(inspect_document(schemas().request(), " \n\t{}").format, LYD_JSON);
  EXPECT_EQ(inspect_document(schemas().request(), " \n<a/>").format, LYD_XML);
}

TEST(DocumentInfo, EmptyDocument_IsRefused) {
  EXPECT_EQ(inspected(""), "the request: empty");
  EXPECT_EQ(inspected(" \n\t \r\n"), "the request: empty");
}

TEST(DocumentInfo, DocumentLongerThanTheLimit_IsRefused) {
  EXPECT_EQ(inspected(std::string(kMaxRequestBytes - 2, ' ') + "{}"), "accepted");
  EXPECT_EQ(inspected(std::string(kMaxRequestBytes - 1, ' ') + "{}"), "the request: longer than 32 MiB");
}

TEST(DocumentInfo, NulCharacter_IsRefused) {
  EXPECT_EQ(inspected(std::string("{ \0}", 4)), "the request: holds a NUL character");
}

TEST(DocumentInfo, OtherEncoding_IsRefused) {
  for (const std::string& text : {std::string("\xff\xfe{\0}\0", 6), std::string("\xfe\xff\0<", 4),
                                  std::string("<\0a\0", 4), std::string("\0{\0}", 4)}) {
    EXPECT_EQ(inspected(text), "the request: is encoded in UTF-16, not in UTF-8");
  }
  EXPECT_EQ(inspected("\xef\xbb\xbf{}"), "the request: starts with a byte order mark");
}

TEST(DocumentInfo, DocumentType_IsRefused) {
  EXPECT_EQ(inspected("<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY b 'c'>]>\n<a/>"),
            "the request (line 2): holds a document type declaration, which is not accepted");
}

TEST(DocumentInfo, LongNameInAMessage_IsCut) {
  EXPECT_EQ(inspected("<a " + std::string(300, 'b') + "='c'/>"),
            "the request (line 1): attribute '" + std::string(200, 'b') +
                "... (300 characters)' is not understood, only 'operation' of the NETCONF base namespace is");
}

std::string repeated(const std::string& text, unsigned count) {
  std::string all;
  for (unsigned index = 0; index < count; ++index) {
    all += text;
  }
  return all;
}

TEST(DocumentInfo, JsonDeeperThanTheLimit_IsRefused) {
  const auto nested = [](unsigned depth) { return repeated("[", depth) + repeated("]", depth); };
  EXPECT_EQ(inspected(nested(kMaxRequestDepth)), "accepted");
  EXPECT_EQ(inspected(nested(kMaxRequestDepth + 1)), "the request (line 1): nested deeper than 100 levels");
  EXPECT_EQ(inspected(nested(10'000)), "the request (line 1): nested deeper than 100 levels");
}

TEST(DocumentInfo, XmlDeeperThanTheLimit_IsRefused) {
  const auto nested = [](unsigned depth) { return repeated("<a>\n", depth) + repeated("</a>", depth); };
  EXPECT_EQ(inspected(nested(kMaxRequestDepth)), "accepted");
  EXPECT_EQ(inspected(nested(kMaxRequestDepth + 1)), "the request (line 101): nested deeper than 100 levels");
  EXPECT_EQ(inspected(nested(10'000)), "the request (line 101): nested deeper than 100 levels");
}

TEST(DocumentInfo, Siblings_DoNotCountAsDepth) {
  EXPECT_EQ(inspected("[" + repeated("[],", 1000) + "[]]"), "accepted");
  EXPECT_EQ(inspected("<a>" + repeated("<b x='/>'/><c></c>", 1000) + "</a>"),
            "the request (line 1): attribute 'x' is not understood, only 'operation' of the NETCONF base namespace is");
  EXPECT_EQ(inspected("<a>" + repeated("<b /><c></c>", 1000) + "</a>"), "accepted");
}

TEST(DocumentInfo, BracketsInStringsAndMarkup_AreIgnored) {
  EXPECT_EQ(inspected(R"({"a": "]}\"{["})"), "accepted");
  EXPECT_EQ(inspected("<a><!-- <b> --><![CDATA[<b>]]><?x <b> ?></a>"), "accepted");
}

TEST(DocumentInfo, UnfinishedJson_IsRefused) {
  EXPECT_EQ(inspected("{\"a\": {\n"), "the request (line 2): the document ends early");
  EXPECT_EQ(inspected("{\"a"), "the request (line 1): a string without an end");
  EXPECT_EQ(inspected("{\"a\\\""), "the request (line 1): a string without an end");
  EXPECT_EQ(inspected("}"), "the request (line 1): a closing bracket without an opening one");
}

TEST(DocumentInfo, TextAfterTheJsonDocument_IsRefused) {
  EXPECT_EQ(inspected("{}\n{}"), "the request (line 2): text after the end of the document");
  EXPECT_EQ(inspected("{} \n"), "accepted");
}

TEST(DocumentInfo, UnfinishedXml_IsRefused) {
  EXPECT_EQ(inspected("<a>\n<b"), "the request (line 2): a tag without an end");
  EXPECT_EQ(inspected("<a b"), "the request (line 1): an attribute without a value");
  EXPECT_EQ(inspected("<a b='"),
            "the request (line 1): attribute 'b' is not understood, only 'operation' of the NETCONF "
            "base namespace is");
  EXPECT_EQ(inspected("<a xmlns='"), "the request (line 1): a tag without an end");
  EXPECT_EQ(inspected("<!-- "), "the request (line 1): markup without an end");
}

TEST(DocumentInfo, UnknownJsonAttribute_IsRefused) {
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

TEST(DocumentInfo, XmlOperations_AreCounted) {
  EXPECT_EQ(inspect_document(schemas().request(),
                             R"(<a xmlns="x" xmlns:n="y" n:operation="delete"><b n:operation='remove'/></a>)")
                .operations,
            2U);
  EXPECT_EQ(inspected(R"(<a operation="delete"/>)"),
            "the request (line 1): attribute 'operation' is not understood, only 'operation' of the NETCONF base "
            "namespace is");
}

const std::string kSecondEntry = "/openconfig-lacp:lacp/interfaces/interface[name='a'] (line 2): named twice";

std::string json_entries(const std::string& entries) {
  return lacp(R"("interfaces": {"interface": [)" + entries + "]}");
}

std::string xml_entries(const std::string& entries) {
  return "<lacp xmlns='http://openconfig.net/yang/lacp'><interfaces>" + entries + "</interfaces></lacp>";
}

TEST(DocumentInfo, NodesNamedTwiceInJson_AreRefusedWithTheirPath) {
  EXPECT_EQ(inspected(json_entries("{\"name\": \"a\"},\n{\"config\": {}, \"name\": \"a\"}")), kSecondEntry);
  EXPECT_EQ(inspected(lacp("\"config\": {\"system-priority\": 1,\n \"system-priority\": 2}")),
            "/openconfig-lacp:lacp/config/system-priority (line 2): named twice");
  EXPECT_EQ(inspected(lacp(R"("config": {}, "openconfig-lacp:config": {})")),
            "/openconfig-lacp:lacp/config (line 1): named twice");
  EXPECT_EQ(inspected(lacp(R"("interfaces": {"interface": [{"name": "a"}], "interface": [{"name": "b"}]})")),
            "/openconfig-lacp:lacp/interfaces/interface (line 1): named twice");
  EXPECT_EQ(inspected(R"({"openconfig-lacp:lacp": {}, "openconfig-lacp:lacp": {}})"),
            "/openconfig-lacp:lacp (line 1): named twice");
}

TEST(DocumentInfo, NodesNamedTwiceInXml_AreRefusedWithTheirPath) {
  EXPECT_EQ(inspected(xml_entries("<interface><name>a</name></interface>\n<interface><name>a</name></interface>")),
            kSecondEntry);
  EXPECT_EQ(inspected("<lacp xmlns='http://openconfig.net/yang/lacp'><config/>\n\n<config/></lacp>"),
            "/openconfig-lacp:lacp/config (line 3): named twice");
}

TEST(DocumentInfo, NodesNamedTwiceInOtherWords_AreRefused) {
  EXPECT_EQ(inspected(json_entries("{\"name\": \"a\"},\n{\"n\\u0061me\": \"\\u0061\"}")), kSecondEntry);
  EXPECT_EQ(inspected(xml_entries("<interface><name>a</name></interface>\n"
                                  "<interface><name>&#x61;<!-- a --></name></interface>")),
            kSecondEntry);
  EXPECT_EQ(inspected(xml_entries("<interface><name>a</name></interface>\n"
                                  "<o:interface xmlns:o='http&#58;//openconfig.net/yang/lacp'><o:name>a</o:name>"
                                  "</o:interface>")),
            kSecondEntry);
}

TEST(DocumentInfo, EqualNamesInDifferentPlaces_AreTaken) {
  EXPECT_EQ(
      inspected(json_entries(R"({"name": "a", "config": {"name": "a"}}, {"name": "b", "config": {"name": "b"}})")),
      "accepted");
  EXPECT_EQ(inspected(xml_entries("<interface><name>a</name></interface><interface><name>b</name></interface>"
                                  "<interface xmlns='urn:other'><name>a</name></interface>")),
            "accepted");
  EXPECT_EQ(inspected(lacp(R"("unknown": 1, "unknown": {"config": 1, "config": 2})")), "accepted");
}

// Of a list with two keys an entry is another when one key is.
TEST(DocumentInfo, EntriesWithTwoKeys_AreToldByBoth) {
  const auto entries = [](const std::string& first, const std::string& second) {
    const std::string text = R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [)" +
                             first + ", " + second + "]}}";
    return refusal_of([&] { inspect_document(schemas().native(), text); });
  };
  const std::string entry = R"({"active": "act", "interface-name": "a"})";
  EXPECT_EQ(entries(entry, R"({"active": "act", "interface-name": "b"})"), "accepted");
  EXPECT_EQ(entries(entry, R"({"interface-name": "a", "active": "pre"})"), "accepted");
  EXPECT_EQ(entries(entry, R"({"interface-name": "a", "active": "act"})"),
            "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
            "[interface-name='a'] (line 1): named twice");
}

// A hash table in which all entries are equal takes the square of their number: half a minute for these.
TEST(DocumentInfo, ManyEqualNodes_AreRefusedAtTheSecond) {
  const auto start = std::chrono::steady_clock::now();
  constexpr unsigned kEqual = 60'000;
  EXPECT_EQ(inspected(json_entries(repeated("{\"name\": \"a\"},", kEqual) + "{}")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a'] (line 1): named twice");
  EXPECT_EQ(inspected(xml_entries(repeated("<interface><name>a</name></interface>", kEqual))),
            "/openconfig-lacp:lacp/interfaces/interface[name='a'] (line 1): named twice");
  EXPECT_EQ(inspected(json_entries("{" + repeated("\"name\": \"a\",", kEqual) + "}")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/name (line 1): named twice");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

}  // namespace
}  // namespace oclacp::host
