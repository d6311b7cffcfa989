// What the host's tests share.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "host/base/error.h"
#include "host/translation/module_manifest.h"
#include "host/trees/request_parser.h"
#include "host/yang/libyang_ptr.h"
#include "host/yang/schemas.h"
#include "host/yang/tree_printer.h"
#include "tests/support/locations.h"
#include "tests/support/temporary_folder.h"

namespace oclacp::host {

inline constexpr const char* kIfmgr = "urn:talvo-brin:yang:Talvo-Brin-QD-ifmgr-cfg";
inline constexpr const char* kBundlemgr = "urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-cfg";
inline constexpr const char* kBundlemgrOper = "urn:talvo-brin:yang:Talvo-Brin-QD-bundlemgr-oper";

// What the module's manifest asks for.
inline std::vector<MappedSchemas> mapped_schemas() {
  return {read_module_manifest(location::kSchemas, location::kModule).schemas};
}

// The schemas of the project, loaded once.
inline const Schemas& schemas() {
  static const Schemas loaded({location::kSchemas, ""}, mapped_schemas());
  return loaded;
}

// A request that holds `content` as the members of /openconfig-lacp:lacp, in JSON.
inline std::string lacp(const std::string& content) {
  return R"({"openconfig-lacp:lacp": {)" + content + "}}";
}

// A request for one interface.
inline std::string interface(const std::string& content) {
  return lacp(R"("interfaces": {"interface": [{)" + content + "}]}");
}

inline RequestTree parse(const std::string& text) {
  return parse_request(schemas().request(), text).tree;
}

// The first child with each tag in turn, from the top node down; null when there is none.
inline yfw_datatree* find(RequestTree& tree, std::initializer_list<const char*> tags) {
  yfw_datatree* node = tree.top();
  for (const char* tag : tags) {
    yfw_datatree* found = nullptr;
    for (unsigned index = 0; index < node->child_count && found == nullptr; ++index) {
      if (std::strcmp(node->children[index].tag, tag) == 0) {
        found = &node->children[index];
      }
    }
    if (found == nullptr) {
      return nullptr;
    }
    node = found;
  }
  return node;
}

// Data of the OpenConfig side in JSON, without blanks.
inline std::string squeezed_json(const TreePtr& data) {
  std::string text = print_tree(schemas().request(), data.get(), LYD_JSON);
  std::erase_if(text, [](char character) { return character == ' ' || character == '\n'; });
  return text;
}

// What is refused, or "accepted".
template <typename Action>
std::string refusal_of(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const Error& error) {
    return error.what();
  }
  return "accepted";
}

using support::TemporaryFolder;

}  // namespace oclacp::host
