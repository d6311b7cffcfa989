#include "host/yang/schemas.h"

#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::string loaded(const SchemaDirectories& directories) {
  return refusal_of([&] { const Schemas ignored(directories); });
}

TEST(SchemasTest, TheTwoSidesAreApart) {
  EXPECT_NE(ly_ctx_get_module_implemented(schemas().request(), "openconfig-lacp"), nullptr);
  EXPECT_EQ(ly_ctx_get_module_implemented(schemas().native(), "openconfig-lacp"), nullptr);
  EXPECT_EQ(ly_ctx_get_module_implemented(schemas().request(), "Talvo-Brin-QD-bundlemgr-cfg"), nullptr);
  EXPECT_NE(ly_ctx_get_module_implemented(schemas().native(), "Talvo-Brin-QD-bundlemgr-cfg"), nullptr);
  EXPECT_NE(operation_module(schemas().request()), nullptr);
  EXPECT_NE(operation_module(schemas().native()), nullptr);
}

TEST(SchemasTest, RefusesFoldersThatAreNotThere) {
  EXPECT_EQ(loaded({"/no/such", ""}), "/no/such: no such folder of schemas");
  EXPECT_EQ(loaded({location::kSchemas, "/no/such"}), "/no/such: no such folder of schemas");
}

TEST(SchemasTest, RefusesFoldersWithoutTheSchemas) {
  const TemporaryFolder empty;
  EXPECT_THAT(loaded({empty.path(), ""}), testing::StartsWith("schema ietf-netconf: "));
  EXPECT_THAT(loaded({location::kSchemas, empty.path()}), testing::StartsWith("schema openconfig-lacp: "));
}

TEST(SchemasTest, TakesPublishedSchemasInsteadOfTheShippedOnes) {
  const TemporaryFolder published;
  published.write("openconfig-lacp.yang", R"(module openconfig-lacp {
    namespace "http://openconfig.net/yang/lacp"; prefix l; revision 2030-01-01;
    container lacp { leaf newer { type string; } } })");
  const Schemas loaded_schemas({location::kSchemas, published.path()});
  const ParsedRequest request = parse_request(loaded_schemas.request(), R"({"openconfig-lacp:lacp": {"newer": "x"}})");
  EXPECT_EQ(request.format, Format::kJson);
}

}  // namespace
}  // namespace oclacp::host
