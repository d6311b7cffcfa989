#include "host/present/text_table.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using Align = TextTable::Align;

TextTable sizes() {
  TextTable table({{"name"}, {"size", Align::kRight}, {"note"}});
  table.add({{"a"}, {"5"}, {"x"}});
  table.add({{"longer"}, {"12345"}, {""}});
  return table;
}

TEST(TextTable, Columns_AreAlignedWithoutTrailingBlanks) {
  EXPECT_EQ(sizes().text({}),
            "name     size  note\n"
            "a           5  x\n"
            "longer  12345\n");
}

TEST(TextTable, Indent_AppliesToEachLine) {
  EXPECT_EQ(sizes().text({.width = 80, .indent = 2}),
            "  name     size  note\n"
            "  a           5  x\n"
            "  longer  12345\n");
}

TEST(TextTable, ColumnsThatDoNotFit_FollowBelow) {
  EXPECT_EQ(sizes().text({.width = 16}),
            "name     size\n"
            "a           5\n"
            "longer  12345\n"
            "\n"
            "name    note\n"
            "a       x\n"
            "longer\n");
}

TEST(TextTable, NameThatLeavesNoRoom_HasALineOfItsOwn) {
  TextTable table({{"name"}, {"size"}});
  const std::string name(30, 'n');
  table.add({{name}, {"1"}});
  table.add({{"n"}, {"2"}});
  EXPECT_EQ(table.text({.width = 28}), "name  size\n" + name + "\n      1\nn     2\n");
}

TEST(TextTable, Width_CountsCharactersAndNotBytes) {
  TextTable table({{"name"}, {"size"}});
  table.add({{"\u00e9\u00e9\u00e9\u00e9\u00e9"}, {"1"}});
  EXPECT_EQ(table.text({}), "name   size\n\u00e9\u00e9\u00e9\u00e9\u00e9  1\n");
}

TEST(TextTable, Colours_DoNotCountAsWidth) {
  TextTable table({{"name"}, {"state"}, {"more"}});
  table.add({{"a"}, {"no", CellStyle::kBad}, {"x"}});
  EXPECT_EQ(table.text({.has_colours = true}),
            "\x1b[1mname\x1b[0m  \x1b[1mstate\x1b[0m  \x1b[1mmore\x1b[0m\na     \x1b[31mno\x1b[0m     x\n");
}

TEST(TextTable, ColumnsShowingTheValueInEveryRow_AreDropped) {
  TextTable table({{"name"}, {"a"}, {"b"}});
  table.add({{"-"}, {"-"}, {"-"}});
  table.add({{"-"}, {"-"}, {"1"}});
  EXPECT_EQ(table.drop_columns_showing("-"), 2U);
  EXPECT_EQ(table.text({}), "name  b\n-     -\n-     1\n");
}

TEST(TextTable, TextThatActsOnATerminal_IsEscaped) {
  TextTable table({{"name"}, {"value"}});
  table.add({{"a\x1b[2J"}, {"b\nc"}});
  EXPECT_EQ(table.text({}), "name      value\na\\x1b[2J  b\\nc\n");
}

}  // namespace
}  // namespace oclacp::host
