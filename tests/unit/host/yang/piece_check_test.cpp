#include "host/yang/piece_check.h"

#include <gtest/gtest.h>

#include <string>

#include "host/yang/libyang_ptr.h"

namespace oclacp::host {
namespace {

// State in a list, of which each test says what an entry holds.
class PieceCheckTest : public testing::Test {
 protected:
  PieceCheckTest() {
    ly_ctx* context = nullptr;
    ly_ctx_new(nullptr, LY_CTX_NO_YANGLIBRARY, &context);
    context_.reset(context);
  }

  const lysc_node* list_of(const std::string& contents) {
    const std::string name = "m" + std::to_string(++modules_);
    const std::string text = "module " + name + " { yang-version 1.1; namespace \"urn:" + name +
                             "\"; prefix m; list entry { config false; key k; leaf k { type string; } " + contents +
                             " } }";
    lys_module* module = nullptr;
    EXPECT_EQ(lys_parse_mem(context_.get(), text.c_str(), LYS_IN_YANG, &module), LY_SUCCESS) << text;
    return module == nullptr ? nullptr : module->compiled->data;
  }

  // Whether nodes of entries in JSON may be doubled; entries are of the list that list_of() made last.
  bool is_doubled(const std::string& entries) {
    const std::string text = "{\"m" + std::to_string(modules_) + ":entry\": [" + entries + "]}";
    lyd_node* tree = nullptr;
    EXPECT_EQ(lyd_parse_data_mem(context_.get(), text.c_str(), LYD_JSON, LYD_PARSE_STRICT | LYD_PARSE_ONLY, 0, &tree),
              LY_SUCCESS)
        << text;
    const TreePtr owner(tree);
    return may_be_doubled(tree);
  }

  ContextPtr context_;
  int modules_ = 0;
};

TEST_F(PieceCheckTest, WhatParsingJudges_IsValidWhenParsed) {
  EXPECT_TRUE(is_valid_when_parsed(list_of("")));
  EXPECT_TRUE(is_valid_when_parsed(list_of(
      "leaf a { type uint8 { range 1..5; } } container c { list l { key k; leaf k { type string; } } leaf-list s "
      "{ type string; } } list keyless { leaf k { type string; } }")));
}

TEST_F(PieceCheckTest, WhatValidationJudges_IsNot) {
  for (const char* contents :
       {"leaf a { type uint8; mandatory true; }", "leaf a { type uint8; default 1; }",
        "choice a { leaf b { type uint8; } }", "list l { min-elements 1; key k; leaf k { type string; } }",
        "container c { list l { max-elements 3; key k; leaf k { type string; } } }",
        "list l { key k; unique a; leaf k { type string; } leaf a { type string; } }",
        "leaf-list s { type string; max-elements 2; }", "leaf-list s { type string; default x; }", "anydata a;",
        "container c { leaf a { type string; mandatory true; } }"}) {
    EXPECT_FALSE(is_valid_when_parsed(list_of(contents))) << contents;
  }
}

TEST_F(PieceCheckTest, Doubles_AreFoundOnEveryLevel) {
  list_of("leaf a { type uint8; } container c { list l { key k; leaf k { type string; } leaf v { type string; } } }");
  for (const char* entries : {R"({"k": "x"}, {"k": "x"})", R"({"k": "x", "k": "x"})", R"({"k": "x", "a": 1, "a": 2})",
                              R"({"k": "x", "a": 1, "c": {}, "a": 1})", R"({"k": "x", "c": {}, "a": 1, "c": {}})",
                              R"({"k": "x"}, {"k": "y", "c": {"l": [{"k": "1"}, {"k": "2"}, {"k": "1", "v": "z"}]}})",
                              R"({"k": "x", "c": {"l": [{"k": "1"}], "l": [{"k": "1"}]}})",
                              R"({"k": "x", "c": {"l": [{"k": "1", "v": "2", "v": "2"}]}})"}) {
    EXPECT_TRUE(is_doubled(entries)) << entries;
  }
}

TEST_F(PieceCheckTest, Different_IsNotDoubled) {
  list_of("leaf a { type uint8; } leaf-list s { type string; } list keyless { leaf v { type string; } }");
  for (const char* entries : {"", R"({"a": 1, "k": "x"}, {"k": "y", "a": 1}, {"k": ""})",
                              R"({"k": "x", "s": ["1", "1"], "keyless": [{"v": "1"}, {"v": "1"}]})"}) {
    EXPECT_FALSE(is_doubled(entries)) << entries;
  }
}

}  // namespace
}  // namespace oclacp::host
