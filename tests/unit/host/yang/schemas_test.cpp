#include "host/yang/schemas.h"

#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::string loaded(const SchemaDirectories& directories) {
  return refusal_of([&] { const Schemas ignored(directories, mapped_schemas()); });
}

TEST(SchemasTest, RequestAndNativeModules_AreInSeparateContexts) {
  EXPECT_NE(ly_ctx_get_module_implemented(schemas().request(), "openconfig-lacp"), nullptr);
  EXPECT_EQ(ly_ctx_get_module_implemented(schemas().native(), "openconfig-lacp"), nullptr);
  EXPECT_EQ(ly_ctx_get_module_implemented(schemas().request(), "Talvo-Brin-QD-bundlemgr-cfg"), nullptr);
  EXPECT_NE(ly_ctx_get_module_implemented(schemas().native(), "Talvo-Brin-QD-bundlemgr-cfg"), nullptr);
  EXPECT_NE(operation_module(schemas().request()), nullptr);
  EXPECT_NE(operation_module(schemas().native()), nullptr);
}

TEST(SchemasTest, MissingFolder_IsRefused) {
  EXPECT_EQ(loaded({"/no/such", ""}), "/no/such: no such folder of schemas");
  EXPECT_EQ(loaded({location::kSchemas, "/no/such"}), "/no/such: no such folder of schemas");
}

TEST(SchemasTest, FolderWithoutTheSchemas_IsRefused) {
  const TemporaryFolder empty;
  EXPECT_EQ(loaded({empty.path(), ""}), empty.path() + ": has no module ietf-netconf");
  EXPECT_EQ(loaded({location::kSchemas, empty.path()}), empty.path() + ": has no module openconfig-lacp");
}

constexpr const char* kHead = R"(module openconfig-lacp { namespace "http://openconfig.net/yang/lacp"; prefix l;)";

TEST(SchemasTest, SchemaThatCannotBeParsed_IsToldWithFileAndLine) {
  const TemporaryFolder published;
  published.write("openconfig-lacp@2030-01-01.yang", std::string(kHead) + "\n revision 2030-01-01;\n broken {} }");
  EXPECT_THAT(
      loaded({location::kSchemas, published.path()}),
      testing::StartsWith(published.path() + "/openconfig-lacp@2030-01-01.yang (line 3): module openconfig-lacp: "));
}

TEST(SchemasTest, MissingImport_IsToldWithTheModuleThatImportsIt) {
  const TemporaryFolder published;
  published.write("openconfig-lacp.yang", std::string(kHead) + "\n import middle { prefix m; } }");
  published.write("middle.yang", R"(module middle { namespace "urn:m"; prefix m; import absent { prefix a; } })");
  EXPECT_EQ(loaded({location::kSchemas, published.path()}),
            published.path() + "/middle.yang: module middle: imports module absent, which " + published.path() +
                " does not have");
}

TEST(SchemasTest, SchemaThatCannotBeCompiled_IsToldWithTheNode) {
  const TemporaryFolder published;
  published.write("openconfig-lacp.yang", std::string(kHead) + " leaf a { type no-such; } }");
  EXPECT_THAT(loaded({location::kSchemas, published.path()}),
              testing::AllOf(testing::HasSubstr("/openconfig-lacp:a"), testing::HasSubstr("no-such")));
}

TEST(SchemasTest, PublishedSchemas_ReplaceTheShippedOnes) {
  const TemporaryFolder published;
  published.write("openconfig-lacp.yang", R"(module openconfig-lacp {
    namespace "http://openconfig.net/yang/lacp"; prefix l; revision 2030-01-01;
    container lacp { leaf newer { type string; } } })");
  const Schemas loaded_schemas({location::kSchemas, published.path()}, mapped_schemas());
  const ParsedRequest request = parse_request(loaded_schemas.request(), R"({"openconfig-lacp:lacp": {"newer": "x"}})");
  EXPECT_EQ(request.format, Format::kJson);
}

}  // namespace
}  // namespace oclacp::host
