// Scripts, folded and printed. Every printed edit is read back by libyang against the native schemas.
#include "host/trees/edit_printer.h"

#include <algorithm>

#include "host/trees/node.h"
#include "tests/unit/host/trees/answer_test.h"
#include "tests/unit/host/trees/edit_by_libyang.h"
#include "tests/unit/host/trees/generated_data.h"
#include "tests/unit/host/trees/output_log_test.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;

// One line for each node: its path with keys, its operation in brackets, its value.
void describe(const lyd_node* first, const std::string& above, std::vector<std::string>& lines) {
  for (const lyd_node* node = first; node != nullptr; node = node->next) {
    std::string line;
    if (node->schema == nullptr) {
      const auto* opaque = reinterpret_cast<const lyd_node_opaq*>(node);
      line = above + "/" + opaque->name.name;
      lines.push_back(line + " [" + opaque->attr->value + "]" + opaque->value);
      EXPECT_EQ(opaque->attr->next, nullptr) << line;
    } else {
      if (lysc_is_key(node->schema)) {
        continue;
      }
      line = above + "/" + node->schema->name;
      for (const lyd_node* key = lyd_child(node); node->schema->nodetype == LYS_LIST && key != nullptr;
           key = key->next) {
        line += lysc_is_key(key->schema) ? std::string("[") + lyd_get_value(key) + "]" : "";
      }
      std::string text = line + (node->meta == nullptr ? "" : std::string(" [") + lyd_get_meta_value(node->meta) + "]");
      if ((node->schema->nodetype & LYD_NODE_TERM) != 0) {
        text += std::string(" = ") + lyd_get_value(node);
      }
      lines.push_back(text);
    }
    describe(lyd_child(node), line, lines);
  }
}

class EditPrinterTest : public OutputLogTest {
 protected:
  // Prints the edit in both formats and reads it back: both say the same.
  std::vector<std::string> printed() {
    std::vector<std::string> lines = read_back(LYD_JSON);
    EXPECT_EQ(read_back(LYD_XML), lines);
    return lines;
  }

  // That the same document validates strictly, as an edit that only sets things must.
  void expect_valid() {
    for (const LYD_FORMAT format : {LYD_JSON, LYD_XML}) {
      const std::string text = print_edit(context_, EditTree(edit_), format);
      lyd_node* tree = nullptr;
      EXPECT_EQ(
          lyd_parse_data_mem(schemas().native(), text.c_str(), format, LYD_PARSE_STRICT, LYD_VALIDATE_PRESENT, &tree),
          LY_SUCCESS)
          << ly_errmsg(schemas().native()) << "\n"
          << text;
      lyd_free_all(tree);
    }
  }

  std::vector<std::string> read_back(LYD_FORMAT format) {
    const std::string text = print_edit(context_, EditTree(edit_), format);
    EXPECT_EQ(text, print_by_libyang(schemas().native(), EditTree(edit_), format));
    lyd_node* tree = nullptr;
    EXPECT_EQ(lyd_parse_data_mem(schemas().native(), text.c_str(), format, LYD_PARSE_ONLY | LYD_PARSE_OPAQ, 0, &tree),
              LY_SUCCESS)
        << text;
    const TreePtr owner(tree);
    std::vector<std::string> lines;
    describe(tree, "", lines);
    return lines;
  }

  TreeContext context_{schemas().native()};
};

const std::string kTop = "/interface-configurations";
const std::string kA = kTop + "/interface-configuration[act][a]";
const std::string kB = kTop + "/interface-configuration[act][b]";

TEST_F(EditPrinterTest, EmptyLog_PrintsAnEmptyDocument) {
  EXPECT_EQ(print_edit(context_, EditTree(edit_), LYD_JSON), "{}\n");
  EXPECT_EQ(print_edit(context_, EditTree(edit_), LYD_XML), "");
}

TEST_F(EditPrinterTest, SetLeaves_ArePrintedAsInstanceData) {
  add(edit_, "/lacp/system-priority", kBundlemgr, "7", merge_);
  open(edit_, "a", merge_);
  add(edit_, std::string(kEntry) + "/interface-virtual", kIfmgr, nullptr, merge_);
  add_lacp(edit_, "mode", "active", merge_);
  add_lacp(edit_, "period", "1", merge_);
  EXPECT_THAT(printed(), testing::ElementsAre("/lacp", "/lacp/system-priority = 7", kTop, kA,
                                              kA + "/interface-virtual = ", kA + "/lacp", kA + "/lacp/mode = active",
                                              kA + "/lacp/period = 1"));
  expect_valid();
}

TEST_F(EditPrinterTest, DeletedLeaves_HaveAnOperationAndNoValue) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", nullptr, source(YFW_OPERATION_DELETE));
  add_lacp(edit_, "mode", nullptr, source(YFW_OPERATION_REMOVE));
  EXPECT_THAT(printed(),
              testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/period [delete]", kA + "/lacp/mode [remove]"));
  EXPECT_THAT(print_edit(context_, EditTree(edit_), LYD_JSON),
              HasSubstr("\"period\": [null],\n          \"@period\": {\n            \"ietf-netconf:operation\": "
                        "\"delete\""));
}

TEST_F(EditPrinterTest, DeletedEmptyContainer_IsPrinted) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "", nullptr, source(YFW_OPERATION_REMOVE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp [remove]"));
}

TEST_F(EditPrinterTest, ReplacedAndCreatedLeaves_HaveAnOperationAndAValue) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", "1", source(YFW_OPERATION_REPLACE));
  add_lacp(edit_, "mode", "active", source(YFW_OPERATION_CREATE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/mode [create] = active",
                                              kA + "/lacp/period [replace] = 1"));
}

TEST_F(EditPrinterTest, EntriesWithTheSameKeys_AreMerged) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "mode", "active", merge_);
  open(edit_, "b", merge_);
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", "1", merge_);
  EXPECT_THAT(printed(),
              testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/mode = active", kA + "/lacp/period = 1", kB));
}

TEST_F(EditPrinterTest, SetAfterDeleteOfTheLeaf_IsASet) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", nullptr, source(YFW_OPERATION_DELETE));
  add_lacp(edit_, "period", "1", merge_);
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/period = 1"));
}

TEST_F(EditPrinterTest, CreateAfterDeleteOfTheLeaf_IsASet) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", nullptr, source(YFW_OPERATION_REMOVE));
  add_lacp(edit_, "period", "1", source(YFW_OPERATION_CREATE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/period = 1"));
}

TEST_F(EditPrinterTest, SetInADeletedContainer_ReplacesTheContainer) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "mode", "active", merge_);
  add_lacp(edit_, "", nullptr, source(YFW_OPERATION_REMOVE));
  add_lacp(edit_, "period", "1", merge_);
  add_lacp(edit_, "system-priority", "9", source(YFW_OPERATION_CREATE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp [replace]", kA + "/lacp/period = 1",
                                              kA + "/lacp/system-priority = 9"));
}

TEST_F(EditPrinterTest, DeletedContainerNamedAgain_IsReplacedByAnEmptyOne) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "", nullptr, source(YFW_OPERATION_REMOVE));
  add_lacp(edit_, "", nullptr, merge_);
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp [replace]"));
}

TEST_F(EditPrinterTest, DeleteAfterSetOfTheLeaf_Removes) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", "1", merge_);
  add_lacp(edit_, "period", nullptr, source(YFW_OPERATION_DELETE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/period [remove]"));
}

TEST_F(EditPrinterTest, DeleteOfAContainer_DropsWhatWasSetInIt) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", "1", merge_);
  add_lacp(edit_, "mode", nullptr, source(YFW_OPERATION_DELETE));
  add_lacp(edit_, "", nullptr, source(YFW_OPERATION_DELETE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp [remove]"));
}

TEST_F(EditPrinterTest, DeleteInADeletedContainer_HasNoEffect) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "", nullptr, source(YFW_OPERATION_DELETE));
  add_lacp(edit_, "period", nullptr, source(YFW_OPERATION_DELETE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp [delete]"));
}

TEST_F(EditPrinterTest, DeleteInAReplacedContainer_UndoesTheSet) {
  open(edit_, "a", merge_);
  add_lacp(edit_, "", nullptr, source(YFW_OPERATION_REMOVE));
  add_lacp(edit_, "period", "1", merge_);
  add_lacp(edit_, "mode", "active", merge_);
  add_lacp(edit_, "period", nullptr, source(YFW_OPERATION_DELETE));
  add_lacp(edit_, "system-mac", nullptr, source(YFW_OPERATION_DELETE));
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp [replace]", kA + "/lacp/mode = active"));
}

TEST_F(EditPrinterTest, DeleteThenRemoveOfALeaf_IsADelete) {
  add(edit_, "/lacp/system-priority", kBundlemgr, nullptr, source(YFW_OPERATION_DELETE));
  add(edit_, "/lacp/system-priority", kBundlemgr, nullptr, source(YFW_OPERATION_REMOVE));
  EXPECT_THAT(printed(), testing::ElementsAre("/lacp", "/lacp/system-priority [delete]"));
}

TEST_F(EditPrinterTest, DeletedEntryOpenedAgain_IsReplaced) {
  open(edit_, "a", source(YFW_OPERATION_REMOVE));
  open(edit_, "a", merge_);
  add_lacp(edit_, "period", "1", merge_);
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA + " [replace]", kA + "/lacp", kA + "/lacp/period = 1"));
}

TEST_F(EditPrinterTest, EntriesWithoutKeys_AreDroppedAndCounted) {
  open(edit_, merge_);
  add_lacp(edit_, "period", "1", merge_);
  add(edit_, std::string(kEntry) + "/interface-name", kIfmgr, "half", merge_);
  open(edit_, "a", merge_);
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA));
  EXPECT_EQ(EditTree(edit_).dropped_entries(), 1U);
}

TEST_F(EditPrinterTest, EntryBelowARemove_IsPrintedOnlyForWhatItRemoves) {
  const yfw_datatree* inside = source_below(YFW_OPERATION_REMOVE);
  name_entry(edit_, "a", inside);
  EXPECT_THAT(printed(), testing::ElementsAre());
  EXPECT_EQ(EditTree(edit_).dropped_entries(), 0U);
  add_lacp(edit_, "period", nullptr, inside);
  EXPECT_THAT(printed(), testing::ElementsAre(kTop, kA, kA + "/lacp", kA + "/lacp/period [remove]"));
}

TEST_F(EditPrinterTest, InvalidNativeValue_IsRefusedWithItsSource) {
  RequestTree tree = parse(lacp(R"("config": {"system-priority": 1})"));
  const yfw_datatree* from = find(tree, {"config", "system-priority"});
  open(edit_, "a", merge_);
  add_lacp(edit_, "mode", "loud", from);
  EXPECT_EQ(refusal_of([&] { print_edit(context_, EditTree(edit_), LYD_JSON); }),
            "/openconfig-lacp:lacp/config/system-priority: native "
            "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
            "[interface-name='a']/Talvo-Brin-QD-bundlemgr-cfg:lacp/mode: 'loud' is none of on, active, passive");
}

TEST_F(EditPrinterTest, InvalidNativeKey_IsRefusedWithItsSource) {
  RequestTree tree = parse(interface(R"("name": "a")"));
  open(edit_, std::string(64, 'x').c_str(), find(tree, {"interfaces", "interface"}));
  EXPECT_THAT(
      refusal_of([&] { print_edit(context_, EditTree(edit_), LYD_JSON); }),
      testing::StartsWith("/openconfig-lacp:lacp/interfaces/interface[name='a']: native "
                          "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration[active='act']"
                          "[interface-name='xxx"));
}

// Edits of a schema with every type, drawn by chance, which set leaves and name containers and entries.
class GeneratedEdit {
 public:
  GeneratedEdit(SchemaIndex& index, unsigned seed) : log_(index, true), random_(seed) {
    for (const char* top : {"/every-type:all", "/every-type:alone", "/other-names:other"}) {
      add(lys_find_path(index.context(), nullptr, top, 0), "");
    }
  }

  [[nodiscard]] const OutputLog& log() const { return log_; }

 private:
  bool happens(double chance) { return std::bernoulli_distribution(chance)(random_); }

  const yfw_datatree* source(const lysc_node* schema) {
    static constexpr uint32_t kOperations[] = {YFW_OPERATION_NONE, YFW_OPERATION_NONE, YFW_OPERATION_NONE,
                                               YFW_OPERATION_REPLACE, YFW_OPERATION_CREATE};
    infos_.push_back({nullptr, nullptr, schema});
    yfw_datatree& node = sources_.emplace_back();
    node.framework = &infos_.back();
    node.operation = kOperations[random_() % std::size(kOperations)];
    return &node;
  }

  void add(const lysc_node* schema, const std::string& above) {
    const std::string path = above + "/" + schema->name;
    if ((schema->nodetype & LYS_LEAF) != 0) {
      log_.add(path, schema->module->ns, draw_value(random_, schema).c_str(), source(schema), false);
      return;
    }
    if (schema->nodetype == LYS_CONTAINER) {
      log_.add(path, schema->module->ns, nullptr, source(schema), false);
      add_children(schema, path);
    }
    while (schema->nodetype == LYS_LIST && happens(0.6)) {
      log_.add(path, schema->module->ns, nullptr, source(schema), true);
      for (const lysc_node* key = lysc_node_child(schema); key != nullptr && lysc_is_key(key); key = key->next) {
        add(key, path);
      }
      add_children(schema, path);
    }
  }

  void add_children(const lysc_node* schema, const std::string& path) {
    std::vector<const lysc_node*> children;
    for (const lysc_node* child = nullptr; (child = lys_getnext(child, schema, nullptr, 0)) != nullptr;) {
      if (!lysc_is_key(child) && happens(0.3)) {
        children.push_back(child);
      }
    }
    std::shuffle(children.begin(), children.end(), random_);
    for (const lysc_node* child : children) {
      add(child, path);
    }
  }

  OutputLog log_;
  std::mt19937 random_;
  std::deque<yfw_datatree> sources_;
  std::deque<NodeInfo> infos_;
};

TEST(EditPrinter, GeneratedEditsOfEveryType_AsLibyang) {
  TreeContext context(every_type());
  size_t bytes = 0;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    const GeneratedEdit generated(context.index, seed);
    for (const LYD_FORMAT format : {LYD_JSON, LYD_XML}) {
      const std::string expected = print_by_libyang(every_type(), EditTree(generated.log()), format);
      bytes += expected.size();
      ASSERT_EQ(print_edit(context, EditTree(generated.log()), format), expected) << "seed " << seed;
    }
  }
  EXPECT_GT(bytes, 100'000U) << "the generated edits are too small to tell anything";
}

}  // namespace
}  // namespace oclacp::host
