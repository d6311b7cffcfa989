// Answers made of libyang's trees, and a schema with everything.
#pragma once

#include <string>
#include <string_view>

#include "host/present/answer_writer.h"
#include "host/trees/answer_data.h"
#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

// The schemas in trees/schemas, loaded once.
inline const ly_ctx* every_type() {
  static const ContextPtr loaded = [] {
    ly_log_options(LY_LOSTORE_LAST);
    ly_ctx* context = nullptr;
    EXPECT_EQ(ly_ctx_new((std::string(location::kSources) + "/tests/unit/host/trees/schemas").c_str(),
                         LY_CTX_NO_YANGLIBRARY, &context),
              LY_SUCCESS);
    EXPECT_EQ(ly_ctx_set_searchdir(context, location::kSchemas), LY_SUCCESS);
    for (const char* module : {"ietf-netconf", "every-type", "other-names", "augmenting"}) {
      EXPECT_NE(ly_ctx_load_module(context, module, nullptr, nullptr), nullptr) << ly_errmsg(context);
    }
    return ContextPtr(context);
  }();
  return loaded.get();
}

// An answer's tree from JSON, not validated.
inline TreePtr parse_answer(const std::string& text, const ly_ctx* context = schemas().request()) {
  lyd_node* tree = nullptr;
  EXPECT_EQ(lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_ONLY | LYD_PARSE_STRICT, 0, &tree),
            LY_SUCCESS)
      << ly_errmsg(context);
  return TreePtr(tree);
}

// In JSON without blanks.
inline std::string squeezed_json(const AnswerData& answer) {
  std::string text = print_answer(answer, LYD_JSON);
  std::erase_if(text, [](char character) { return character == ' ' || character == '\n'; });
  return text;
}

inline void copy_children(const lyd_node* from, AnswerData& answer, AnswerData::Index above, ValueCheck& values) {
  for (const lyd_node* node = from; node != nullptr; node = node->next) {
    const NodeShape& shape = answer.shapes().of(node->schema);
    AnswerData::Index made = answer.find_or_add(above, shape);
    if (shape.is_list) {
      made = answer.append(made);
    }
    if (shape.is_leaf) {
      const CheckedValue* value = values.check(node->schema, lyd_get_value(node));
      ASSERT_NE(value, nullptr) << lyd_get_value(node);
      answer.set_value(made, answer.keep(*value));
    } else {
      copy_children(lyd_child(node), answer, made, values);
    }
  }
}

// The same data as an answer. The nodes are made in the order of the tree.
inline AnswerData answer_of(const TreePtr& tree, NodeShapes& shapes) {
  ValueCheck values;
  AnswerData answer(shapes);
  copy_children(tree.get(), answer, AnswerData::kRoot, values);
  return answer;
}

}  // namespace oclacp::host
