#include "host/translation/translator.h"

#include <sstream>

#include "host/devices/folder_device.h"
#include "host/present/trace_tree.h"
#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;

class TranslatorTest : public testing::Test {
 protected:
  std::string translated(const std::string& request, const EditOptions& options = {}) {
    return translator_.translate_edit(request, device_, options).text;
  }

  std::string refused(const std::string& request, const EditOptions& options = {}) {
    return refusal_of([&] { translated(request, options); });
  }

  Translator translator_{{location::kSchemas, ""}, location::kModule};
  std::shared_ptr<const DeviceSnapshot> snapshot_ =
      FolderDevice(translator_.native_context(), std::string(location::kExamples) + "/device").snapshot();
  const DeviceSnapshot& device_ = *snapshot_;
};

TEST_F(TranslatorTest, Result_HasTheFormatOfTheRequestByDefault) {
  const std::string in_json = lacp(R"("config": {"system-priority": 5})");
  const std::string in_xml =
      R"(<lacp xmlns="http://openconfig.net/yang/lacp"><config><system-priority>5</system-priority></config></lacp>)";
  const std::string json = translated(in_json);
  const std::string xml = translated(in_xml);
  EXPECT_THAT(json, HasSubstr("\"system-priority\": 5"));
  EXPECT_THAT(xml, HasSubstr("<system-priority>5</system-priority>"));
  EditOptions options;
  options.format = Format::kXml;
  EXPECT_EQ(translated(in_json, options), xml);
  options.format = Format::kJson;
  EXPECT_EQ(translated(in_xml, options), json);
}

TEST_F(TranslatorTest, DefaultDelete_DeletesTheInnermostNodes) {
  EditOptions options;
  options.operation = DefaultOperation::kDelete;
  EXPECT_THAT(translated(interface(R"("name": "Bundle-Ether1", "config": {"interval": [null]})"), options),
              testing::AllOf(HasSubstr("\"@period\": {\n            \"ietf-netconf:operation\": \"delete\""),
                             testing::Not(HasSubstr("mode"))));
  EXPECT_THAT(translated(interface(R"("name": "Bundle-Ether1")"), options),
              HasSubstr("\"Talvo-Brin-QD-bundlemgr-cfg:lacp\": {\n          \"@\": {\n            "
                        "\"ietf-netconf:operation\": \"remove\""));
}

TEST_F(TranslatorTest, DefaultDelete_LeavesSubtreesWithAnOperation) {
  EditOptions options;
  options.operation = DefaultOperation::kDelete;
  const std::string request = lacp(R"("config": {"@": {"ietf-netconf:operation": "replace"}, "system-priority": 5})");
  EXPECT_EQ(translated(request, options), translated(request));
}

TEST_F(TranslatorTest, DefaultDelete_DoesNotDeleteTheNameOfAnEntry) {
  EditOptions options;
  options.operation = DefaultOperation::kDelete;
  EXPECT_EQ(translated(interface(R"("name": "Bundle-Ether1", "config": {"name": "Bundle-Ether1", "interval": [null]})"),
                       options),
            translated(interface(R"("name": "Bundle-Ether1", "config": {"interval": [null]})"), options));
  EXPECT_THAT(refused(interface(R"("name": "Bundle-Ether1", "config": {"name": "Bundle-Ether1"})"), options),
              testing::EndsWith("/config/name: goes with its list entry, and cannot be deleted alone"));
}

TEST_F(TranslatorTest, Strict_RefusesASubInterface) {
  EditOptions options;
  const std::string request = interface(R"("name": "Bundle-Ether1.10", "config": {"lacp-mode": "ACTIVE"})");
  EXPECT_EQ(refused(request, options), "accepted");
  options.is_strict = true;
  EXPECT_EQ(refused(request, options),
            "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether1.10']: is a sub-interface, whose LACP would "
            "not be read back");
  EXPECT_EQ(refused(interface(R"("name": "Bundle-Ether1.10", "config": {"interval": [null], "@interval":
                              {"ietf-netconf:operation": "remove"}})"),
                    options),
            "accepted");
}

TEST_F(TranslatorTest, DefaultReplace_ReplacesTheTopNode) {
  EditOptions options;
  options.operation = DefaultOperation::kReplace;
  const std::string request = lacp(R"("config": {"system-priority": 5})");
  EXPECT_EQ(translated(request, options),
            translated(lacp(R"("@": {"ietf-netconf:operation": "replace"}, "config": {"system-priority": 5})")));
  EXPECT_NE(translated(request, options), translated(request));
}

TEST_F(TranslatorTest, ReadWithAnOperation_IsRefused) {
  const std::string request = lacp(R"("config": {"@": {"ietf-netconf:operation": "delete"}})");
  EXPECT_EQ(refusal_of([&] { translator_.translate_read(request, device_, Content::kConfig); }),
            "/openconfig-lacp:lacp: a read carries no edit operations");
}

TEST_F(TranslatorTest, MissingValue_IsRefusedWithItsNode) {
  EXPECT_EQ(refused(lacp(R"("config": {"system-priority": [null]})")),
            "/openconfig-lacp:lacp/config/system-priority: native /lacp/system-priority: the leaf needs a value");
  EXPECT_EQ(refused(interface(R"("name": "a", "config": {"lacp-mode": [null]})")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/config: a value is missing (code 0x0c1a0006)");
}

TEST_F(TranslatorTest, RefusalOfTheModule_NamesTheNodeTagAndCode) {
  EXPECT_EQ(refused(interface(R"("name": "a", "state": {"system-priority": 1})")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/state: not supported by this mapping (error tag "
            "'state', code 0xaaf2ee00)");
  EXPECT_EQ(refused(interface("")),
            "/openconfig-lacp:lacp/interfaces/interface: the list entry names no keys (code 0xaaf29e00)");
  EXPECT_EQ(refused(interface(R"("@": {"ietf-netconf:operation": "delete"}, "name": "a", "config": {"name": "a"})")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']: nothing to delete: the device has no LACP "
            "configuration for this interface (code 0xaaf28000)");
  EXPECT_EQ(refused(interface(R"("name": "a", "config": {"@": {"ietf-netconf:operation": "delete"}, "name": "a"})")),
            "/openconfig-lacp:lacp/interfaces/interface[name='a']/config: a container that is deleted may not name "
            "children (code 0xaaf2a000)");
}

TEST_F(TranslatorTest, ErrorUnderAnExpansion_DoesNotFailTheRequest) {
  const auto read = [&](const std::string& request) {
    return translator_.translate_read(request, device_, Content::kAll);
  };
  // The whole entry includes state/interval, which alone is refused.
  EXPECT_THAT(read(interface(R"("name": "Bundle-Ether1")")), testing::Contains(HasSubstr("applied-lacp-mode")));
  EXPECT_THAT(refusal_of([&] { read(interface(R"("name": "Bundle-Ether1", "state": {"interval": [null]})")); }),
              HasSubstr("/state/interval: not supported by this mapping (error tag 'interval'"));
}

TEST_F(TranslatorTest, RefusedRequest_IsLoggedAndTraced) {
  std::ostringstream log;
  std::vector<std::string> trace;
  EditOptions options;
  options.records = {&log, &trace};
  EXPECT_NE(refused(interface(R"("name": "a", "state": {})"), options), "accepted");
  EXPECT_THAT(log.str(), HasSubstr("Unsupported tag is specified in the request."));
  EXPECT_THAT(draw_trace(trace),
              testing::AllOf(testing::Contains("ymap_oq_oclacp_openconfiglacp_lvla_lacp"),
                             testing::Contains(HasSubstr("! Unsupported tag is specified in the request."))));
}

TEST_F(TranslatorTest, RequestAfterARefusedOne_TranslatesTheSame) {
  const std::string request = lacp(R"("config": {"system-priority": 5})");
  const std::string first = translated(request);
  refused(interface(R"("name": "a", "state": {})"));
  EXPECT_EQ(translated(request), first);
}

TEST(TranslatorFiles, ModuleThatCannotBeLoaded_IsRefused) {
  const SchemaDirectories schemas = {location::kSchemas, ""};
  EXPECT_THAT(refusal_of([&] { const Translator ignored(schemas, "/no/such.so"); }),
              testing::StartsWith("the mapping module cannot be loaded: /no/such.so: "));
  EXPECT_THAT(refusal_of([&] { const Translator ignored(schemas, "no-such.so"); }),
              testing::StartsWith("the mapping module cannot be loaded: ./no-such.so: "));
}

}  // namespace
}  // namespace oclacp::host
