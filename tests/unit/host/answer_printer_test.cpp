#include "host/yang/answer_printer.h"

#include <sstream>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::string table(const std::string& content) {
  lyd_node* data = nullptr;
  EXPECT_EQ(lyd_parse_data_mem(schemas().request(), lacp(content).c_str(), LYD_JSON, LYD_PARSE_ONLY | LYD_PARSE_STRICT,
                               0, &data),
            LY_SUCCESS);
  const TreePtr answer(data);
  return print_table(schemas().request(), answer.get());
}

std::string interfaces(const std::string& entries) {
  return table(R"("interfaces": {"interface": [)" + entries + "]}");
}

TEST(AnswerPrinter, NothingIsAnEmptyDocument) {
  EXPECT_EQ(print_answer(schemas().request(), nullptr, LYD_JSON), "{}\n");
  EXPECT_EQ(print_answer(schemas().request(), nullptr, LYD_XML), "");
}

TEST(Table, HasARowForEachInterface) {
  EXPECT_EQ(interfaces(R"({"name": "Bundle-Ether1", "config": {"interval": "FAST", "system-priority": 5}},
                          {"name": "b"})"),
            "interface      interval  lacp-mode  system-id-mac  system-priority\n"
            "Bundle-Ether1  FAST      -          -              5\n"
            "b              -         -          -              -\n");
}

TEST(Table, BeginsWithTheSettingsOfTheSystem) {
  EXPECT_EQ(table(R"("config": {"system-priority": 5})"),
            "system-priority: 5\ninterface  interval  lacp-mode  system-id-mac  system-priority\n");
}

TEST(Table, OfNothingIsItsHeader) {
  EXPECT_EQ(print_table(schemas().request(), nullptr),
            "interface  interval  lacp-mode  system-id-mac  system-priority\n");
}

TEST(Table, FitsInto80ColumnsWhateverTheNames) {
  const std::string config = R"("config": {"interval": "FAST", "lacp-mode": "PASSIVE",
      "system-id-mac": "00:11:22:33:44:55", "system-priority": 65535}})";
  const std::string long_name(63, 'x');
  const std::string text =
      interfaces(R"({"name": "GigabitEthernet0/0/0/0", )" + config + R"(, {"name": ")" + long_name + "\", " + config);
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80U) << line;
  }
  EXPECT_EQ(text,
            "interface               interval  lacp-mode  system-id-mac      system-priority\n"
            "GigabitEthernet0/0/0/0  FAST      PASSIVE    00:11:22:33:44:55  65535\n" +
                long_name + "\n" + std::string(24, ' ') + "FAST      PASSIVE    00:11:22:33:44:55  65535\n");
}

}  // namespace
}  // namespace oclacp::host
