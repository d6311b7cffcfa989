// oclacp explain and oclacp coverage.
#include <libyang/libyang.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>

#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct DestroyContext {
  void operator()(ly_ctx* context) const { ly_ctx_destroy(context); }
};
using Context = std::unique_ptr<ly_ctx, DestroyContext>;

std::string explained(const std::string& path) {
  const Outcome result = run({"explain", path});
  expect_success(result);
  return result.out;
}

std::string coverage(const std::string& format) {
  const Outcome result = run({"coverage", "--format", format});
  expect_success(result);
  return result.out;
}

// openconfig-lacp from a folder, deviated by a module.
Context deviated(const std::string& folder, const std::string& deviations) {
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx* made = nullptr;
  EXPECT_EQ(ly_ctx_new(folder.c_str(), LY_CTX_DISABLE_SEARCHDIR_CWD | LY_CTX_NO_YANGLIBRARY, &made), LY_SUCCESS);
  Context context(made);
  EXPECT_NE(ly_ctx_load_module(made, "openconfig-lacp", nullptr, nullptr), nullptr) << ly_errmsg(made);
  EXPECT_EQ(lys_parse_mem(made, deviations.c_str(), LYS_IN_YANG, nullptr), LY_SUCCESS) << ly_errmsg(made);
  return context;
}

bool has(const Context& context, const std::string& path) {
  return lys_find_path(context.get(), nullptr, path.c_str(), 0) != nullptr;
}

constexpr const char* kState = "/openconfig-lacp:lacp/interfaces/interface/state/";
constexpr const char* kConfig = "/openconfig-lacp:lacp/interfaces/interface/config/";

TEST(Explain, Leaf_IsExplainedAsTranslateTranslatesIt) {
  const std::string text = explained("/lacp/interfaces/interface[name='Bundle-Ether1']/config/interval");
  EXPECT_THAT(text, HasSubstr("\n    \"SLOW\" -> \"30000\"\n"));
  const Outcome result = translate(interface(R"("name": "Bundle-Ether1", "config": {"interval": "SLOW"})"));
  expect_success(result);
  EXPECT_THAT(squeezed(result.out), HasSubstr("\"period\":30000"));
}

TEST(Explain, NativePath_IsExplained) {
  EXPECT_THAT(explained("/interface-configurations/interface-configuration/lacp/period"),
              HasSubstr("\nIt is read as\n  /openconfig-lacp:lacp/interfaces/interface/config/interval\n"));
  EXPECT_THAT(explained("/Talvo-Brin-QD-bundlemgr-oper:lacp-bundles"),
              StartsWith("/Talvo-Brin-QD-bundlemgr-oper:lacp-bundles\n\nbundles/bundle/bundle-interface\n  -> "));
}

TEST(Explain, UnknownNodeOrFile_IsRefused) {
  expect_refusal(run({"explain", "/lacp/colour"}),
                 "/lacp/colour: neither openconfig-lacp nor a native model has such a node");
  expect_refusal(run({"explain", ""}), "the path '': names no node");
  expect_refusal(run({"explain", "colour"}), "colour: neither openconfig-lacp nor a native model has such a node");
  expect_refusal(run({"explain", "/lacp/interfaces/interface[name='a"}), "a text in quotes has no end");
  expect_refusal(run({"explain", "/lacp", "--module", "/no/such.so"}), "the mapping module cannot be loaded");
  expect_refusal(run({"explain", "/lacp", "--yang-dir", "/no/such"}), "/no/such: no such folder of schemas");
}

TEST(Explain, WrongArguments_AreUsageErrors) {
  EXPECT_EQ(run({"explain"}).status, 2);
  EXPECT_EQ(run({"explain", "/lacp", "/lacp"}).status, 2);
  EXPECT_EQ(run({"coverage", "--format", "csv"}).status, 2);
  EXPECT_EQ(run({"coverage", "/lacp"}).status, 2);
}

TEST(Coverage, Markdown_IsThePageInTheDocuments) {
  std::ifstream file(std::string(location::kSources) + "/docs/coverage.md");
  std::ostringstream page;
  page << file.rdbuf();
  EXPECT_EQ(coverage("markdown"), page.str());
}

TEST(Coverage, WithoutAFormat_IsATable) {
  const Outcome result = run({"coverage"});
  expect_success(result);
  EXPECT_EQ(result.out, coverage("table"));
  EXPECT_THAT(result.out, HasSubstr("\n  lacp-tx-errors            -      -      refused, has no source\n"));
}

TEST(Coverage, Deviations_RemoveOnlyWhatIsNotServed) {
  const Context context = deviated(location::kSchemas, coverage("yang"));
  EXPECT_FALSE(has(context, std::string(kState) + "interval"));
  EXPECT_TRUE(has(context, std::string(kState) + "lacp-mode"));
  EXPECT_TRUE(has(context, std::string(kConfig) + "interval"));
}

TEST(Coverage, PublishedModel_ListsNodesUnknownToTheMapping) {
  const char* published = std::getenv("OCLACP_PUBLISHED_YANG_DIR");
  if (published == nullptr) {
    GTEST_SKIP() << "OCLACP_PUBLISHED_YANG_DIR names no directory of published modules";
  }
  const Outcome yang = run({"coverage", "--format", "yang", "--yang-dir", published});
  expect_success(yang);
  const Context context = deviated(published, yang.out);
  EXPECT_FALSE(has(context, std::string(kState) + "interval"));
  EXPECT_FALSE(has(context, std::string(kConfig) + "fallback"));
  EXPECT_TRUE(has(context, std::string(kConfig) + "interval"));
  const Outcome unknown = run({"explain", "/lacp/interfaces/interface/config/fallback", "--yang-dir", published});
  expect_success(unknown);
  EXPECT_THAT(unknown.out, testing::AllOf(HasSubstr("\nNo handler serves it.\n"),
                                          HasSubstr("\nAn edit of it is refused: not supported by this mapping"),
                                          HasSubstr("\nIt has no source: nothing native is read back as it.\n")));
  const Outcome table = run({"coverage", "--yang-dir", published});
  EXPECT_THAT(table.out, HasSubstr("\n  fallback          -      -      unknown to the mapping\n"));
}

}  // namespace
}  // namespace support
