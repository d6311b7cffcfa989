#include "tests/unit/host/trees/generated_data.h"

#include <array>
#include <map>

#include "host/yang/path_text.h"

namespace oclacp::host {
namespace {

constexpr std::array kTexts = {"",
                               "0",
                               "-0",
                               "00",
                               "1",
                               "+1",
                               "-1",
                               "007",
                               "5",
                               "11",
                               "200",
                               "127",
                               "128",
                               "-128",
                               "-129",
                               "255",
                               "256",
                               "65535",
                               "65536",
                               "2147483647",
                               "4294967295",
                               "4294967296",
                               "-9223372036854775808",
                               "9223372036854775807",
                               "18446744073709551615",
                               "18446744073709551616",
                               "0x10",
                               "1.5",
                               "1.500",
                               "-1.250",
                               "1.2345",
                               " 1",
                               "1 ",
                               "true",
                               "false",
                               "TRUE",
                               "A",
                               "b c",
                               "a<b&c>\"d\"",
                               "x",
                               "z x",
                               "x x",
                               "QUI=",
                               "QQ==",
                               "not base64",
                               "red",
                               "every-type:red",
                               "blue",
                               "augmenting:blue",
                               "square",
                               "other-names:square",
                               "other-names:red",
                               "zip",
                               "zap",
                               "ab",
                               "abc",
                               "abcd",
                               "abcde",
                               "abcdef",
                               "00:11:22:aa:bb:cc",
                               "00:11:22:AA:BB:CC",
                               "/every-type:all/text",
                               "/every-type:all/entry[minor='1'][major='x']/augmenting:more-text",
                               "/every-type:nowhere",
                               "it's",
                               "say \"it\"",
                               "back\\slash",
                               "<&>\"'",
                               "]]>",
                               "\t",
                               "\n",
                               "a\r\nb",
                               "\xc3\xa9",
                               "\xe2\x82\xac",
                               "\xf0\x9f\x98\x80",
                               "\xc3",
                               "\x01",
                               "\xef\xbf\xbf",
                               "ACTIVE",
                               "SHORT",
                               "FAST",
                               "IN_SYNC",
                               "null",
                               "[null]",
                               "{}"};

std::string every_character() {
  std::string text = "\t\n\r";
  for (char character = ' '; character < 0x7f; ++character) {
    text += character;
  }
  text.append({'\xe2', '\x80', '\xae'});  // writes from right to left
  return text + "\x7f\xc2\x80\xc2\x9f\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80";
}

}  // namespace

const std::vector<std::string>& telling_texts() {
  static const std::vector<std::string> texts = [] {
    std::vector<std::string> all(kTexts.begin(), kTexts.end());
    all.push_back(every_character());
    all.emplace_back(70'000, 'q');
    all.emplace_back(300, '7');
    return all;
  }();
  return texts;
}

const std::string& draw_value(std::mt19937& random, const lysc_node* leaf) {
  static std::map<const lysc_node*, std::vector<const std::string*>> taken;  // by the leaf
  std::vector<const std::string*>& texts = taken[leaf];
  if (texts.empty()) {
    for (const std::string& text : telling_texts()) {
      const LY_ERR status =
          lyd_value_validate(leaf->module->ctx, leaf, text.c_str(), text.size(), nullptr, nullptr, nullptr);
      if (status == LY_SUCCESS || status == LY_EINCOMPLETE) {
        texts.push_back(&text);
      }
    }
  }
  if (texts.empty()) {
    return telling_texts().front();  // and libyang refuses the leaf
  }
  const std::string* drawn = nullptr;
  do {
    drawn = texts.at(random() % texts.size());
  } while (drawn->size() > 1000 && !std::bernoulli_distribution(0.05)(random));
  return *drawn;
}

TreePtr DataGenerator::make() {
  top_.reset();
  uint32_t index = 0;
  for (const lys_module* module = ly_ctx_get_module_iter(context_, &index); module != nullptr;
       module = ly_ctx_get_module_iter(context_, &index)) {
    if (module->implemented != 0 && module->compiled != nullptr && module->compiled->data != nullptr) {
      add_children(nullptr, module, nullptr, 0);
    }
  }
  return std::move(top_);
}

void DataGenerator::add_children(const lysc_node* schema, const lys_module* module, lyd_node* parent, unsigned level) {
  const lysc_node* child = nullptr;
  while ((child = lys_getnext(child, schema, module->compiled, 0)) != nullptr) {
    if (!lysc_is_key(child) && happens(level == 0 ? 0.9 : 0.4)) {
      add(child, parent, level);
    }
  }
}

void DataGenerator::add(const lysc_node* schema, lyd_node* parent, unsigned level) {
  lyd_node* made = nullptr;
  switch (schema->nodetype) {
    case LYS_CONTAINER:
      if (lyd_new_inner(parent, schema->module, schema->name, 0, &made) == LY_SUCCESS) {
        keep_top(parent == nullptr ? made : nullptr);
        add_children(schema, schema->module, made, level + 1);
      }
      return;
    case LYS_LIST:
      while (happens(0.7)) {
        add_entry(schema, parent, level);
      }
      return;
    case LYS_LEAFLIST:
      while (happens(0.7)) {
        add_leaf(schema, parent);
      }
      return;
    case LYS_LEAF:
      add_leaf(schema, parent);
      return;
    default:
      return;
  }
}

void DataGenerator::add_entry(const lysc_node* schema, lyd_node* parent, unsigned level) {
  // A value with both kinds of quotes has no predicate, and the entry is left out.
  std::string keys;
  for (const lysc_node* key = lysc_node_child(schema); key != nullptr && lysc_is_key(key); key = key->next) {
    append_predicate(keys, key->name, draw_value(random_, key));
  }
  lyd_node* made = nullptr;
  if (lyd_new_list2(parent, schema->module, schema->name, keys.c_str(), 0, &made) == LY_SUCCESS) {
    add_children(schema, schema->module, made, level + 1);
  }
}

void DataGenerator::add_leaf(const lysc_node* schema, lyd_node* parent) {
  lyd_node* made = nullptr;
  if (lyd_new_term(parent, schema->module, schema->name, draw_value(random_, schema).c_str(), 0, &made) == LY_SUCCESS) {
    keep_top(parent == nullptr ? made : nullptr);
  }
}

void DataGenerator::keep_top(lyd_node* made) {
  if (made != nullptr) {
    lyd_node* first = top_.release();
    lyd_insert_sibling(first, made, &first);
    top_.reset(first);
  }
}

}  // namespace oclacp::host
