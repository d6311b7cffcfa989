// Values are judged as libyang judges them.
#include "host/yang/value_check.h"

#include "host/yang/libyang_error.h"
#include "host/yang/text_sink.h"
#include "host/yang/tree_printer.h"
#include "tests/unit/host/trees/answer_test.h"
#include "tests/unit/host/trees/generated_data.h"

namespace oclacp::host {
namespace {

// What libyang makes of a value for a leaf of /every-type:all.
struct Judged {
  bool is_taken = false;
  std::string text;     // the canonical value, or the reason
  std::string in_json;  // the whole document
  std::string in_xml;
};

Judged judge_by_libyang(const lysc_node* leaf, const std::string& text) {
  lyd_node* top = nullptr;
  EXPECT_EQ(lyd_new_inner(nullptr, lysc_data_parent(leaf)->module, lysc_data_parent(leaf)->name, 0, &top), LY_SUCCESS);
  const TreePtr tree(top);
  lyd_node* made = nullptr;
  if (lyd_new_term(top, leaf->module, leaf->name, text.c_str(), 0, &made) != LY_SUCCESS) {
    return {false, last_libyang_error(every_type()).reason, "", ""};
  }
  return {true, lyd_get_value(made), print_tree(every_type(), top, LYD_JSON), print_tree(every_type(), top, LYD_XML)};
}

std::string json_of(const lysc_node* leaf, const CheckedValue& value) {
  std::string text = "{\n  \"every-type:all\": {\n    \"" + std::string(leaf->name) + "\": ";
  StringSink sink(text);
  if (value.form == ValueForm::kBare) {
    sink.put(value.text);
  } else if (value.form == ValueForm::kEmpty) {
    sink.put("[null]");
  } else {
    sink.put("\"");
    sink.put_json(value.text);
    sink.put("\"");
  }
  sink.put("\n  }\n}\n");
  sink.flush();
  return text;
}

std::string xml_of(const lysc_node* leaf, const CheckedValue& value) {
  std::string text = "<all xmlns=\"urn:every-type\">\n  <" + std::string(leaf->name) + std::string(value.xml_names);
  StringSink sink(text);
  const std::string_view content = value.form == ValueForm::kQualified ? value.xml_text : value.text;
  sink.put(content.empty() ? "/>\n" : ">");
  if (!content.empty()) {
    sink.put_xml(content);
    sink.put("</" + std::string(leaf->name) + ">\n");
  }
  sink.put("</all>\n");
  sink.flush();
  return text;
}

std::vector<const lysc_node*> leaves_of_all() {
  std::vector<const lysc_node*> leaves;
  const lysc_node* all = lys_find_path(every_type(), nullptr, "/every-type:all", 0);
  const lysc_node* child = nullptr;
  while ((child = lys_getnext(child, all, nullptr, 0)) != nullptr) {
    if (child->nodetype == LYS_LEAF && std::string_view(child->module->name) == "every-type") {
      leaves.push_back(child);
    }
  }
  return leaves;
}

std::string shortened(const std::string& text) {
  return text.size() < 100 ? text : text.substr(0, 100) + "...";
}

TEST(ValueCheck, EveryTextForEveryType_AsLibyang) {
  ValueCheck values;
  // Twice: what is known is answered alike.
  for (int round = 0; round < 2; ++round) {
    for (const lysc_node* leaf : leaves_of_all()) {
      for (const std::string& text : telling_texts()) {
        SCOPED_TRACE(std::string(leaf->name) + " = '" + shortened(text) + "'");
        const Judged expected = judge_by_libyang(leaf, text);
        const CheckedValue* value = values.check(leaf, text);
        ASSERT_EQ(value != nullptr, expected.is_taken) << shortened(expected.text);
        if (value == nullptr) {
          EXPECT_EQ(shortened(values.reason()), shortened(expected.text));
          continue;
        }
        EXPECT_EQ(shortened(std::string(value->text)), shortened(expected.text));
        EXPECT_EQ(json_of(leaf, *value), expected.in_json);
        EXPECT_EQ(xml_of(leaf, *value), expected.in_xml);
      }
    }
  }
}

TEST(ValueCheck, MoreValuesThanAreKept_StayApart) {
  ValueCheck values;
  const lysc_node* mac = lys_find_path(every_type(), nullptr, "/every-type:all/mac", 0);
  for (int round = 0; round < 2; ++round) {
    for (int number = 0; number < 10'000; ++number) {
      char text[sizeof "00:00:00:00:00:00"];
      std::snprintf(text, sizeof text, "00:00:00:00:%02x:%02x", number / 256, number % 256);
      const CheckedValue* value = values.check(mac, text);
      ASSERT_NE(value, nullptr) << text;
      ASSERT_EQ(value->text, text);
    }
  }
}

}  // namespace
}  // namespace oclacp::host
