// The schemas in yang/ load cleanly, the examples fit them, and openconfig-lacp here agrees with the published module.

#include <gtest/gtest.h>
#include <libyang/libyang.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/locations.h"

namespace support {
namespace {

namespace fs = std::filesystem;

fs::path source(const char* path) {
  return fs::path(location::kSources) / path;
}

struct DestroyContext {
  void operator()(ly_ctx* context) const { ly_ctx_destroy(context); }
};
struct FreeData {
  void operator()(lyd_node* tree) const { lyd_free_all(tree); }
};
using Context = std::unique_ptr<ly_ctx, DestroyContext>;
using Data = std::unique_ptr<lyd_node, FreeData>;

Context new_context(const fs::path& search_dir) {
  ly_log_options(LY_LOSTORE_LAST);
  ly_ctx* context = nullptr;
  EXPECT_EQ(LY_SUCCESS, ly_ctx_new(search_dir.c_str(), LY_CTX_DISABLE_SEARCHDIR_CWD | LY_CTX_NO_YANGLIBRARY, &context));
  return Context(context);
}

// In the order of their names, so that a failure reads the same everywhere.
std::vector<fs::path> files_in(const fs::path& dir) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(dir)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

Context context_with_all_schemas() {
  Context context = new_context(source("yang"));
  for (const fs::path& file : files_in(source("yang"))) {
    EXPECT_NE(nullptr, ly_ctx_load_module(context.get(), file.stem().c_str(), nullptr, nullptr)) << file;
  }
  return context;
}

LYD_FORMAT format_of(const fs::path& file) {
  return file.extension() == ".xml" ? LYD_XML : LYD_JSON;
}

// Reads a file into a tree; the test fails with libyang's message when it cannot.
Data parse(const Context& context, const fs::path& file, uint32_t parse_options, uint32_t validation_options) {
  lyd_node* tree = nullptr;
  const LY_ERR status =
      lyd_parse_data_path(context.get(), file.c_str(), format_of(file), parse_options, validation_options, &tree);
  EXPECT_EQ(LY_SUCCESS, status) << file << ": " << ly_errmsg(context.get());
  return Data(tree);
}

bool is_read(const fs::path& request) {
  return request.stem().string().starts_with("read-");
}

// A selection names a leaf without a value, which no leaf type accepts; such a node stays opaque.
void expect_only_selections_are_opaque(const lyd_node* tree, const fs::path& file) {
  const lyd_node* node = nullptr;
  LYD_TREE_DFS_BEGIN(tree, node) {
    if (node->schema == nullptr) {
      EXPECT_STREQ("", lyd_get_value(node)) << file << " holds the unknown node " << LYD_NAME(node);
    }
    LYD_TREE_DFS_END(tree, node);
  }
}

TEST(Schemas, EachSchemaAlone_LoadsWithoutWarning) {
  const auto files = files_in(source("yang"));
  ASSERT_FALSE(files.empty());
  for (const fs::path& file : files) {
    const Context context = new_context(source("yang"));
    EXPECT_NE(nullptr, ly_ctx_load_module(context.get(), file.stem().c_str(), nullptr, nullptr)) << file;
    EXPECT_EQ(nullptr, ly_err_last(context.get())) << file << ": " << ly_errmsg(context.get());
  }
}

TEST(Schemas, NetconfModuleLoaded_KnowsTheEditOperation) {
  const Context context = context_with_all_schemas();
  const Data tree = parse(context, source("examples/requests/delete-lacp.json"), LYD_PARSE_ONLY | LYD_PARSE_STRICT, 0);
  ASSERT_NE(nullptr, tree);
  const lyd_meta* operation = lyd_find_meta(tree->meta, nullptr, "ietf-netconf:operation");
  ASSERT_NE(nullptr, operation);
  EXPECT_STREQ("delete", lyd_get_meta_value(operation));
}

TEST(Schemas, Period_AcceptsTheTextsThatTheMappingWrites) {
  const Context context = context_with_all_schemas();
  const std::string leaf =
      "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act'][interface-name='b']/"
      "Talvo-Brin-QD-bundlemgr-cfg:lacp/period";
  for (const char* value : {"1", "30000", "1000", "true"}) {
    lyd_node* tree = nullptr;
    EXPECT_EQ(LY_SUCCESS, lyd_new_path(nullptr, context.get(), leaf.c_str(), value, 0, &tree)) << value;
    lyd_free_all(tree);
  }
  lyd_node* tree = nullptr;
  EXPECT_NE(LY_SUCCESS, lyd_new_path(nullptr, context.get(), leaf.c_str(), "FAST", 0, &tree));
  lyd_free_all(tree);
}

TEST(Examples, Device_IsValid) {
  const Context context = context_with_all_schemas();
  EXPECT_NE(nullptr, parse(context, source("examples/device/running.json"), LYD_PARSE_STRICT | LYD_PARSE_NO_STATE,
                           LYD_VALIDATE_NO_STATE));
  EXPECT_NE(nullptr, parse(context, source("examples/device/platform.json"), LYD_PARSE_STRICT, 0));
  EXPECT_NE(nullptr,
            parse(context, source("examples/device/operational.json"), LYD_PARSE_STRICT, LYD_VALIDATE_PRESENT));
}

TEST(Examples, EveryRequest_FitsTheSchema) {
  const Context context = context_with_all_schemas();
  const auto requests = files_in(source("examples/requests"));
  ASSERT_FALSE(requests.empty());
  for (const fs::path& file : requests) {
    const uint32_t options = LYD_PARSE_ONLY | (is_read(file) ? LYD_PARSE_OPAQ : LYD_PARSE_STRICT);
    const Data tree = parse(context, file, options, 0);
    ASSERT_NE(nullptr, tree) << file;
    EXPECT_STREQ("lacp", LYD_NAME(tree.get())) << file;
    expect_only_selections_are_opaque(tree.get(), file);
  }
}

// The published module's counterpart of a node of ours, or null.
const lysc_node* published_node(const Context& published, const lysc_node* ours) {
  char* path = lysc_path(ours, LYSC_PATH_DATA, nullptr, 0);
  const lysc_node* node = lys_find_path(published.get(), nullptr, path, 0);
  std::free(path);
  return node;
}

// The type behind references and unions is a matter of the modules that only the published one imports.
LY_DATA_TYPE base_type(const lysc_node* leaf) {
  const lysc_type* type = reinterpret_cast<const lysc_node_leaf*>(leaf)->type;
  return type->basetype == LY_TYPE_LEAFREF ? reinterpret_cast<const lysc_type_leafref*>(type)->realtype->basetype
                                           : type->basetype;
}

LY_ERR compare_with_published(lysc_node* ours, void* data, ly_bool* /*skip_children*/) {
  const Context& published = *static_cast<const Context*>(data);
  const lysc_node* theirs = published_node(published, ours);
  EXPECT_NE(nullptr, theirs) << "the published module has no " << ours->name;
  if (theirs == nullptr) return LY_SUCCESS;
  EXPECT_EQ(theirs->nodetype, ours->nodetype) << ours->name;
  EXPECT_EQ(theirs->flags & LYS_KEY, ours->flags & LYS_KEY) << ours->name;
  EXPECT_STREQ(theirs->module->ns, ours->module->ns) << ours->name;
  if (ours->nodetype == LYS_LEAF) {
    EXPECT_EQ(base_type(theirs), base_type(ours)) << ours->name;
  }
  return LY_SUCCESS;
}

TEST(Schemas, OpenconfigLacp_AgreesWithThePublishedModule) {
  const char* published_dir = std::getenv("OCLACP_PUBLISHED_YANG_DIR");
  if (published_dir == nullptr) GTEST_SKIP() << "OCLACP_PUBLISHED_YANG_DIR names no directory of published modules";
  const Context published = new_context(published_dir);
  ASSERT_NE(nullptr, ly_ctx_load_module(published.get(), "openconfig-lacp", nullptr, nullptr));
  const Context ours = new_context(source("yang"));
  const lys_module* module = ly_ctx_load_module(ours.get(), "openconfig-lacp", nullptr, nullptr);
  ASSERT_NE(nullptr, module);
  EXPECT_EQ(LY_SUCCESS, lysc_module_dfs_full(module, compare_with_published, const_cast<Context*>(&published)));
}

}  // namespace
}  // namespace support
