// Every path of the model, read by itself: the answer is what the answer for the whole has at this path.
#include <libyang/libyang.h>

#include <cstdlib>
#include <memory>
#include <unordered_set>

#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

using testing::EndsWith;

struct FreeTree {
  void operator()(lyd_node* tree) const { lyd_free_all(tree); }
};
using Tree = std::unique_ptr<lyd_node, FreeTree>;

// The parts of an answer that a path leads to: each with all that is in it, below the nodes around it and their keys.
class CutOut {
 public:
  CutOut(const lyd_node* answer, const std::string& path) {
    ly_set* found = nullptr;
    EXPECT_EQ(lyd_find_xpath(answer, path.c_str(), &found), LY_SUCCESS) << path;
    const std::unique_ptr<ly_set, void (*)(ly_set*)> owner(found, [](ly_set* set) { ly_set_free(set, nullptr); });
    for (uint32_t index = 0; index < found->count; ++index) {
      whole_.insert(found->dnodes[index]);
      for (const lyd_node* above = lyd_parent(found->dnodes[index]); above != nullptr; above = lyd_parent(above)) {
        around_.insert(above);
      }
    }
  }

  // Takes away what is not part of it; `node` is a top node of the answer or a node around a part of it.
  void cut(lyd_node* node) const {
    lyd_node* next = nullptr;
    for (; node != nullptr; node = next) {
      next = node->next;
      if (around_.count(node) != 0) {
        cut(lyd_child(node));
      } else if (whole_.count(node) == 0 && !lysc_is_key(node->schema)) {
        lyd_free_tree(node);
      }
    }
  }

  [[nodiscard]] bool is_empty() const { return whole_.empty(); }

 private:
  std::unordered_set<const lyd_node*> whole_;
  std::unordered_set<const lyd_node*> around_;
};

class GetPath : public testing::TestWithParam<const char*> {
 protected:
  GetPath() {
    ly_log_options(LY_LOSTORE_LAST);
    ly_ctx* context = nullptr;
    EXPECT_EQ(ly_ctx_new(location::kSchemas, LY_CTX_NO_YANGLIBRARY, &context), LY_SUCCESS);
    context_.reset(context);
    model_ = ly_ctx_load_module(context, "openconfig-lacp", nullptr, nullptr);
    EXPECT_NE(model_, nullptr);
  }

  [[nodiscard]] static Outcome get(const std::string& path) {
    return run({"get", GetParam(), path, "-d", example("device")});
  }

  [[nodiscard]] Tree parse(const std::string& answer) const {
    lyd_node* tree = nullptr;
    EXPECT_EQ(lyd_parse_data_mem(context_.get(), answer.c_str(), LYD_JSON, LYD_PARSE_ONLY | LYD_PARSE_STRICT, 0, &tree),
              LY_SUCCESS)
        << ly_errmsg(context_.get()) << "\n"
        << answer;
    return Tree(tree);
  }

  [[nodiscard]] static std::string print(const lyd_node* tree) {
    char* text = nullptr;
    EXPECT_EQ(lyd_print_mem(&text, tree, LYD_JSON, LYD_PRINT_WITHSIBLINGS | LYD_PRINT_SHRINK), LY_SUCCESS);
    const std::unique_ptr<char, void (*)(void*)> owner(text, &std::free);
    return text;
  }

  // What `path` has of the answer for the whole.
  [[nodiscard]] std::string cut_out(const std::string& path) const {
    Tree tree = parse(whole_);
    const CutOut part(tree.get(), path);
    if (part.is_empty()) {
      return "{}";
    }
    part.cut(tree.get());
    return print(tree.get());
  }

  // The paths of the children of a schema node, with all that is below them.
  std::vector<std::string> paths_below(const lysc_node* above, const std::string& prefix) const {
    std::vector<std::string> paths;
    const lysc_node* child = nullptr;
    while ((child = lys_getnext(child, above, model_->compiled, 0)) != nullptr) {
      for (const std::string& path :
           with_keys(*child, prefix + "/" + (above == nullptr ? "openconfig-lacp:" : "") + child->name)) {
        paths.push_back(path);
        const std::vector<std::string> deeper =
            (child->nodetype & LYD_NODE_INNER) == 0 ? std::vector<std::string>() : paths_below(child, path);
        paths.insert(paths.end(), deeper.begin(), deeper.end());
      }
    }
    return paths;
  }

  // A list is named without its key, with that of an entry that is there, and of one that is not.
  static std::vector<std::string> with_keys(const lysc_node& node, const std::string& path) {
    if (node.nodetype != LYS_LIST) {
      return {path};
    }
    const bool is_member = std::string(node.name) == "member";
    const std::string key = std::string("[") + lysc_node_child(&node)->name + "='";
    return {path, path + key + (is_member ? "GigabitEthernet0/0/0/3" : "Bundle-Ether2") + "']",
            path + key + (is_member ? "GigabitEthernet9" : "Bundle-Ether9") + "']"};
  }

  // The two leaves that the mapping does not serve say so when they are read by themselves.
  [[nodiscard]] static bool is_unserved(const std::string& path) {
    return GetParam() == std::string("--all") &&
           (ends_with(path, "/state/interval") || ends_with(path, "/lacp-tx-errors"));
  }

 private:
  static bool ends_with(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
  }

  struct FreeContext {
    void operator()(ly_ctx* context) const { ly_ctx_destroy(context); }
  };
  std::unique_ptr<ly_ctx, FreeContext> context_;
  const lys_module* model_ = nullptr;
  std::string whole_ = get("/lacp").out;
};

TEST_P(GetPath, AnyOfTheModel_GivesItsPartOfTheWhole) {
  const std::vector<std::string> paths = paths_below(nullptr, "");
  EXPECT_GT(paths.size(), 200U);
  for (const std::string& path : paths) {
    const Outcome result = get(path);
    if (is_unserved(path)) {
      const std::string tag = path.substr(path.rfind('/') + 1);
      EXPECT_EQ(cut_out(path), "{}") << path << " within a container";
      EXPECT_EQ(result.status, 1) << path;
      EXPECT_THAT(result.err, EndsWith("not supported by this mapping (error tag '" + tag + "', code 0xaaf2ee00)\n"));
      continue;
    }
    EXPECT_EQ(result.status, 0) << path << "\n" << result.err;
    EXPECT_EQ(print(parse(result.out).get()), cut_out(path)) << path;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, GetPath, testing::Values("--config", "--all"), [](const auto& kind) {
  return kind.param == std::string("--all") ? "ConfigurationAndState" : "Configuration";
});

}  // namespace
}  // namespace support
