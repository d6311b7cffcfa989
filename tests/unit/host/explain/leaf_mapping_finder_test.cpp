#include "host/explain/leaf_mapping_finder.h"

#include "host/devices/folder_device.h"
#include "host/explain/sample_values.h"
#include "host/translation/translator.h"
#include "host/yang/tree_printer.h"
#include "tests/support/locations.h"
#include "tests/unit/host/explain/explain_test.h"

namespace oclacp::host {
namespace {

// An instance of a leaf with a value, as a document in JSON. All interfaces in it are Bundle-Ether1, which the example
// device has with LACP.
std::string document(const lysc_node* leaf, const std::string& value) {
  std::string path;
  for (const lysc_node* node = lysc_is_key(leaf) ? leaf->parent : leaf; node != nullptr; node = node->parent) {
    std::string step = std::string("/") + node->module->name + ":" + node->name;
    if (node->nodetype == LYS_LIST) {
      for (const lysc_node* key = lysc_node_child(node); key != nullptr && lysc_is_key(key); key = key->next) {
        const bool is_class = std::strcmp(key->name, "active") == 0;
        step.append("[").append(key->name).append(is_class ? "='act']" : "='Bundle-Ether1']");
      }
    }
    path.insert(0, step);
  }
  const ly_ctx* context = leaf->module->ctx;
  lyd_node* made = nullptr;
  const char* text = lysc_is_key(leaf) ? nullptr : value.c_str();
  EXPECT_EQ(lyd_new_path(nullptr, context, path.c_str(), text, 0, &made), LY_SUCCESS) << path;
  const TreePtr data(made);
  return print_tree(context, data.get(), LYD_JSON);
}

// The values of a leaf's instances in a tree.
std::vector<std::string> values_in(const lyd_node* top, const lysc_node* leaf) {
  std::vector<std::string> values;
  for (; top != nullptr; top = top->next) {
    const lyd_node* node = nullptr;
    LYD_TREE_DFS_BEGIN(top, node) {
      if (node->schema == leaf) {
        values.emplace_back(lyd_get_value(node));
      }
      LYD_TREE_DFS_END(top, node);
    }
  }
  return values;
}

std::vector<std::string> values_in(AnswerNode node, const lysc_node* leaf) {
  std::vector<std::string> values;
  for (; node; node = node.next()) {
    if (node.schema() == leaf) {
      values.emplace_back(node.value());
    }
    std::ranges::move(values_in(node.first_child(), leaf), std::back_inserter(values));
  }
  return values;
}

class LeafMappingFinderTest : public testing::Test {
 protected:
  // What the translator makes of a value of a leaf of openconfig-lacp, in the native leaf.
  std::vector<std::string> edited(const LeafMapping& mapping, const std::string& value) {
    const std::string edit = translator_.translate_edit(document(mapping.from, value), EmptySnapshot(), {}).text;
    lyd_node* data = nullptr;
    EXPECT_EQ(lyd_parse_data_mem(explained_.mapping.schemas.native(), edit.c_str(), LYD_JSON,
                                 LYD_PARSE_ONLY | LYD_PARSE_STRICT, 0, &data),
              LY_SUCCESS);
    const TreePtr owner(data);
    return values_in(data, mapping.to);
  }

  // What it makes of a value of a native leaf. The schema nodes of the translator are others than those of the mapping.
  std::vector<std::string> reported(const LeafMapping& mapping, const std::string& value,
                                    const DeviceSnapshot& device) {
    const Answer answer = translator_.to_openconfig(document(mapping.from, value), &device, Content::kAll);
    const lysc_node* leaf =
        lys_find_path(translator_.openconfig_context(), nullptr, schema_path(mapping.to).c_str(), 0);
    return values_in(answer.data.top(), leaf);
  }

  // Compares a conversion with what `translate` gives.
  template <typename Translate>
  void expect_as_told(const LeafMapping& mapping, const Conversion& conversion, Translate translate) {
    const std::string what = schema_path(mapping.from) + " = " + conversion.from + " to " + schema_path(mapping.to);
    std::vector<std::string> values;
    const std::string refusal = refusal_of([&] { values = translate(mapping, conversion.from); });
    if (conversion.refusal) {
      EXPECT_THAT(refusal, testing::HasSubstr(*conversion.refusal)) << what;
      return;
    }
    EXPECT_EQ(refusal, "accepted") << what;
    EXPECT_EQ(values, conversion.to ? std::vector{*conversion.to} : std::vector<std::string>()) << what;
  }

  Explained explained_;
  Translator translator_{{location::kSchemas, ""}, location::kModule};
  std::shared_ptr<const DeviceSnapshot> snapshot_ =
      FolderDevice(translator_.native_context(), std::string(location::kExamples) + "/device").snapshot();
  const DeviceSnapshot& device_ = *snapshot_;
};

TEST_F(LeafMappingFinderTest, MappingsOfEditedLeaves_AgreeWithTheTranslator) {
  size_t told = 0;
  for (const LeafRow& row : explained_.tables.openconfig()) {
    const LeafMappings& outgoing = explained_.mappings.from(row.schema);
    if (outgoing.refusal) {
      const std::string request = document(row.schema, sample_values(row.schema).values.front());
      EXPECT_THAT(refusal_of([&] { translator_.translate_edit(request, device_, {}); }),
                  testing::HasSubstr(*outgoing.refusal))
          << row.leaf->node;
      ++told;
    }
    for (const LeafMapping& mapping : outgoing.mappings) {
      for (const Conversion& conversion : mapping.conversions) {
        expect_as_told(mapping, conversion,
                       [&](const LeafMapping& one, const std::string& value) { return edited(one, value); });
        ++told;
      }
    }
  }
  EXPECT_GE(told, explained_.tables.openconfig().size());
}

TEST_F(LeafMappingFinderTest, MappingsOfNativeLeaves_AgreeWithTheTranslator) {
  size_t told = 0;
  for (const LeafRow& row : explained_.tables.native()) {
    const LeafMappings& outgoing = explained_.mappings.from(row.schema);
    std::vector<const lysc_node*> reached;
    for (const LeafMapping& mapping : outgoing.mappings) {
      reached.push_back(mapping.to);
      for (const Conversion& conversion : mapping.conversions) {
        expect_as_told(mapping, conversion,
                       [&](const LeafMapping& one, const std::string& value) { return reported(one, value, device_); });
        ++told;
      }
    }
    EXPECT_THAT(reached, testing::IsSupersetOf(row.targets)) << row.leaf->node;
  }
  EXPECT_GE(told, 6U * 256U);
}

TEST_F(LeafMappingFinderTest, KeyOfABundleInState_MapsToTheKeyAndTheStateName) {
  const lysc_node* bundle = explained_.node("/lacp-bundles/bundles/bundle/bundle-interface");
  const std::string entry = kOcEntry;
  std::vector<const lysc_node*> reached;
  for (const LeafMapping& mapping : explained_.mappings.from(bundle).mappings) {
    reached.push_back(mapping.to);
  }
  EXPECT_THAT(reached,
              testing::UnorderedElementsAre(explained_.node(entry + "name"), explained_.node(entry + "state/name")));
}

TEST_F(LeafMappingFinderTest, MappingThatNeedsLacp_IsNotReportedWithoutConfiguration) {
  std::vector<std::string> conditional;
  for (const LeafRow& row : explained_.tables.native()) {
    if ((row.schema->flags & LYS_CONFIG_W) != 0) {
      continue;
    }
    for (const LeafMapping& mapping : explained_.mappings.from(row.schema).mappings) {
      const auto made = std::find_if(mapping.conversions.begin(), mapping.conversions.end(),
                                     [](const Conversion& conversion) { return conversion.to.has_value(); });
      ASSERT_NE(made, mapping.conversions.end()) << row.leaf->node;
      EXPECT_EQ(reported(mapping, made->from, EmptySnapshot()).empty(), mapping.needs_lacp) << row.leaf->node;
      if (mapping.needs_lacp) {
        conditional.emplace_back(mapping.to->name);
      }
    }
  }
  EXPECT_THAT(conditional, testing::UnorderedElementsAre("lacp-mode", "system-id-mac", "system-priority"));
}

TEST_F(LeafMappingFinderTest, NeedsLacp_IsSetForTheInterfaceAndNotForItsLacp) {
  const std::string entry = kEntry;
  for (const LeafMapping& mapping : explained_.mappings.from(explained_.node(entry + "interface-name")).mappings) {
    EXPECT_TRUE(mapping.needs_lacp) << bare_path(mapping.to);
  }
  for (const LeafMapping& mapping : explained_.mappings.from(explained_.node(entry + "lacp/mode")).mappings) {
    EXPECT_FALSE(mapping.needs_lacp) << bare_path(mapping.to);
  }
}

TEST_F(LeafMappingFinderTest, LeafThatIsNotAKey_MapsToNoKey) {
  for (const LeafRow& row : explained_.tables.native()) {
    for (const LeafMapping& mapping : explained_.mappings.from(row.schema).mappings) {
      EXPECT_TRUE(lysc_is_key(row.schema) || !lysc_is_key(mapping.to)) << row.leaf->node;
    }
  }
}

TEST_F(LeafMappingFinderTest, EditedLeaf_MapsToAllTargetsOfItsRow) {
  for (const LeafRow& row : explained_.tables.openconfig()) {
    const bool is_edited = (row.schema->flags & LYS_CONFIG_W) != 0;
    const LeafMappings& outgoing = explained_.mappings.from(row.schema);
    EXPECT_EQ(outgoing.refusal.has_value(), !is_edited) << row.leaf->node;
    for (const lysc_node* target : row.targets) {
      const bool is_reached = std::any_of(outgoing.mappings.begin(), outgoing.mappings.end(),
                                          [&](const LeafMapping& mapping) { return mapping.to == target; });
      EXPECT_EQ(is_reached, is_edited) << row.leaf->node;
    }
  }
}

TEST_F(LeafMappingFinderTest, TargetsOfARow_AreAmongItsSources) {
  for (const LeafRow& row : explained_.tables.openconfig()) {
    std::vector<const lysc_node*> sources;
    for (const LeafMapping& mapping : explained_.mappings.to(row.schema)) {
      sources.push_back(mapping.from);
    }
    // A read of state reports an interface's name in the entry's state too, which is asked for elsewhere.
    EXPECT_THAT(sources, testing::IsSupersetOf(row.targets)) << row.leaf->node;
  }
}

TEST_F(LeafMappingFinderTest, KeyReferringTo_FindsTheKeyOfALeaf) {
  const std::string entry = kOcEntry;
  EXPECT_EQ(explained_.mappings.key_referring_to(explained_.node(entry + "config/name")),
            explained_.node(entry + "name"));
  EXPECT_EQ(explained_.mappings.key_referring_to(explained_.node(entry + "config/interval")), nullptr);
  EXPECT_EQ(explained_.mappings.key_referring_to(explained_.node("/lacp/config/system-priority")), nullptr);
}

}  // namespace
}  // namespace oclacp::host
