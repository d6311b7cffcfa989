// Edits, from the request to the native edit.
#include <libyang/libyang.h>

#include <cstring>
#include <memory>

#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string wrapped(const std::string& entry) {
  return R"({
  "Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {
    "interface-configuration": [
      {
)" + entry +
         R"(      }
    ]
  }
}
)";
}

Outcome translate_example(const std::string& name, const std::vector<std::string>& further = {}) {
  std::vector<std::string> arguments = {"translate", "--to", "native", example("requests/" + name)};
  for (const auto& more : {with_device(), further}) {
    arguments.insert(arguments.end(), more.begin(), more.end());
  }
  return run(arguments);
}

TEST(Edit, NewInterface_HasAllItsSettings) {
  const Outcome result = translate_example("create-interface.json");
  expect_success(result);
  EXPECT_EQ(result.out, wrapped(R"(        "active": "act",
        "interface-name": "Bundle-Ether3",
        "interface-virtual": [null],
        "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "mode": "active",
          "period": 1,
          "system-priority": 200,
          "system-mac": "00:11:22:33:44:66"
        }
)"));
}

TEST(Edit, XmlRequest_GivesXmlWithTheSameContent) {
  const Outcome xml = translate_example("create-interface.xml");
  expect_success(xml);
  EXPECT_THAT(xml.out, HasSubstr("<period>1</period>"));
  EXPECT_EQ(xml.out, translate_example("create-interface.json", {"--format", "xml"}).out);
  EXPECT_EQ(translate_example("create-interface.xml", {"--format", "json"}).out,
            translate_example("create-interface.json").out);
}

TEST(Edit, PhysicalInterface_IsNotVirtual) {
  const std::string content = R"("name": "GigabitEthernet0/0/0/0", "config": {"lacp-mode": "PASSIVE"})";
  for (const std::vector<std::string>& device : {with_device(), std::vector<std::string>{}}) {
    const Outcome result = translate(interface(content), device);
    expect_success(result);
    EXPECT_EQ(result.out, wrapped(R"(        "active": "act",
        "interface-name": "GigabitEthernet0/0/0/0",
        "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "mode": "passive"
        }
)"));
  }
}

TEST(Edit, TwoInterfaces_KeepTheirOwnSettings) {
  const Outcome result = translate_example("merge-two-interfaces.json");
  expect_success(result);
  const size_t second = result.out.find("Bundle-Ether2");
  ASSERT_NE(second, std::string::npos);
  EXPECT_THAT(result.out.substr(0, second), testing::AllOf(HasSubstr("\"period\": 30000"), Not(HasSubstr("mode"))));
  EXPECT_THAT(result.out.substr(second), testing::AllOf(HasSubstr("\"mode\": \"active\""), Not(HasSubstr("period"))));
}

TEST(Edit, DeleteOfALeaf_IsDeletedNatively) {
  const Outcome result = translate_example("delete-leaf.json");
  expect_success(result);
  EXPECT_THAT(result.out, HasSubstr(R"("period": [null],
          "@period": {
            "ietf-netconf:operation": "delete"
          })"));
}

TEST(Edit, DeleteOfAnInterface_RemovesItsLacpOnly) {
  const Outcome result = translate_example("delete-interface.json");
  expect_success(result);
  EXPECT_EQ(result.out, wrapped(R"(        "active": "act",
        "interface-name": "Bundle-Ether1",
        "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "@": {
            "ietf-netconf:operation": "remove"
          }
        }
)"));
}

TEST(Edit, DeleteOfLacp_RemovesAllLacp) {
  const Outcome result = translate_example("delete-lacp.json");
  expect_success(result);
  EXPECT_EQ(result.out, R"({
  "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
    "system-priority": [null],
    "@system-priority": {
      "ietf-netconf:operation": "remove"
    }
  },
  "Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {
    "interface-configuration": [
      {
        "active": "act",
        "interface-name": "Bundle-Ether1",
        "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "@": {
            "ietf-netconf:operation": "remove"
          }
        }
      },
      {
        "active": "act",
        "interface-name": "Bundle-Ether2",
        "Talvo-Brin-QD-bundlemgr-cfg:lacp": {
          "@": {
            "ietf-netconf:operation": "remove"
          }
        }
      }
    ]
  }
}
)");
}

TEST(Edit, ReplaceOfLacp_RemovesInterfacesNotNamed) {
  const Outcome result = translate_example("replace-lacp.json");
  expect_success(result);
  EXPECT_THAT(result.out, HasSubstr("\"system-priority\": 32768"));
  const size_t second = result.out.find("Bundle-Ether2");
  ASSERT_NE(second, std::string::npos);
  EXPECT_THAT(result.out.substr(0, second),
              testing::AllOf(HasSubstr("\"ietf-netconf:operation\": \"replace\""), HasSubstr("\"mode\": \"active\"")));
  EXPECT_THAT(result.out.substr(second), HasSubstr("\"ietf-netconf:operation\": \"remove\""));
}

TEST(Edit, OperationOption_IsTheDefaultOperation) {
  const std::string request = R"({"openconfig-lacp:lacp": {}})";
  EXPECT_EQ(translate(request).out, "{}\n");
  EXPECT_EQ(translate(request, {"--operation", "merge"}).out, "{}\n");
  std::vector<std::string> arguments = with_device();
  arguments.insert(arguments.end(), {"--operation", "delete"});
  EXPECT_EQ(translate(request, arguments).out, translate_example("delete-lacp.json").out);
  arguments.back() = "replace";
  EXPECT_THAT(translate(request, arguments).out, HasSubstr("\"remove\""));
}

TEST(Edit, EditThatOnlySets_IsValidNativeData) {
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx* context = nullptr;
  ASSERT_EQ(ly_ctx_new(location::kSchemas, LY_CTX_NO_YANGLIBRARY, &context), LY_SUCCESS);
  const std::unique_ptr<ly_ctx, decltype(&ly_ctx_destroy)> owner(context, &ly_ctx_destroy);
  ASSERT_NE(ly_ctx_load_module(context, "Talvo-Brin-QD-bundlemgr-cfg", nullptr, nullptr), nullptr);
  ASSERT_NE(ly_ctx_load_module(context, "Talvo-Brin-QD-ifmgr-cfg", nullptr, nullptr), nullptr);
  for (const char* format : {"json", "xml"}) {
    for (const char* request : {"create-interface.json", "merge-two-interfaces.json"}) {
      const Outcome result = translate_example(request, {"--format", format});
      lyd_node* tree = nullptr;
      EXPECT_EQ(lyd_parse_data_mem(context, result.out.c_str(), std::strcmp(format, "xml") == 0 ? LYD_XML : LYD_JSON,
                                   LYD_PARSE_STRICT, LYD_VALIDATE_PRESENT, &tree),
                LY_SUCCESS)
          << ly_errmsg(context) << "\n"
          << result.out;
      lyd_free_all(tree);
    }
  }
}

TEST(Edit, Trace_ShowsTheHandlersApartFromTheResult) {
  const Outcome plain = translate_example("create-interface.json");
  const Outcome traced = translate_example("create-interface.json", {"--trace"});
  EXPECT_EQ(traced.status, 0);
  EXPECT_EQ(traced.out, plain.out);
  EXPECT_THAT(traced.err, testing::StartsWith("ymap_oq_oclacp_openconfiglacp_lvla_lacp\n"));
  EXPECT_THAT(traced.err, HasSubstr("\n            oc2qd_cfginterval\n"));
}

TEST(Edit, RefusedRequest_HasATrace) {
  const Outcome traced = translate(interface(R"("name": "a", "state": {})"), {"--trace"});
  EXPECT_EQ(traced.status, 1);
  EXPECT_EQ(traced.out, "");
  EXPECT_THAT(traced.err, HasSubstr("! Unsupported tag is specified in the request.\noclacp: /openconfig-lacp:lacp"));
}

TEST(Edit, DebugLog_ShowsEveryRecord) {
  const Outcome logged = translate_example("create-interface.json", {"-v"});
  EXPECT_EQ(logged.status, 0);
  EXPECT_EQ(logged.out, translate_example("create-interface.json").out);
  EXPECT_THAT(logged.err, testing::AllOf(HasSubstr("TRC: YFW: ctx=0x"), HasSubstr(",Start\n"), HasSubstr(",End\n")));
}

}  // namespace
}  // namespace support
