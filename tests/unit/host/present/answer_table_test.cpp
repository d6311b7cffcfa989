#include "host/present/answer_table.h"

#include <sstream>

#include "tests/unit/host/trees/answer_test.h"

namespace oclacp::host {
namespace {

AnswerData answer(const std::string& text) {
  static NodeShapes shapes;
  return answer_of(parse_answer(text), shapes);
}

std::string table(const std::string& content, const TableLayout& layout = {.width = 80}) {
  const AnswerData data = answer(lacp(content));
  return answer_table(schemas().request(), data.top(), layout);
}

std::string interfaces(const std::string& entries) {
  return table(R"("interfaces": {"interface": [)" + entries + "]}");
}

TEST(AnswerTable, Interfaces_HaveARowEach) {
  EXPECT_EQ(interfaces(R"({"name": "Bundle-Ether1", "config": {"interval": "FAST", "system-priority": 5}},
                          {"name": "b"})"),
            "interface      interval  lacp-mode  system-id-mac  system-priority\n"
            "Bundle-Ether1  FAST      -          -              5\n"
            "b              -         -          -              -\n");
}

TEST(AnswerTable, SystemSettings_AreAboveTheTable) {
  EXPECT_EQ(table(R"("config": {"system-priority": 5})"),
            "system-priority: 5\ninterface  interval  lacp-mode  system-id-mac  system-priority\n");
}

TEST(AnswerTable, EmptyAnswer_IsTheHeaderOnly) {
  EXPECT_EQ(answer_table(schemas().request(), {}, {.width = 80}),
            "interface  interval  lacp-mode  system-id-mac  system-priority\n");
}

TEST(AnswerTable, LongNames_FitInto80Columns) {
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

constexpr const char* kMembers = R"("members": {"member": [
    {"interface": "p1", "state": {"interface": "p1", "activity": "ACTIVE", "timeout": "LONG",
      "synchronization": "IN_SYNC", "aggregatable": true, "collecting": true, "distributing": false,
      "system-id": "00:00:00:00:00:01", "oper-key": 1, "partner-id": "00:00:00:00:00:02", "partner-key": 20000,
      "port-num": 3, "partner-port-num": 4, "last-change": "1700000000000000000",
      "counters": {"lacp-in-pkts": "100", "lacp-out-pkts": "7", "lacp-rx-errors": "0"}}},
    {"interface": "p2", "state": {"interface": "p2", "synchronization": "OUT_SYNC"}}]})";

std::string bundle(const std::string& members) {
  return interfaces(R"({"name": "b", )" + members + "}");
}

TEST(StateTable, ConfigurationAndState_AreShownInTwoRows) {
  EXPECT_EQ(table(R"("config": {"system-priority": 5}, "state": {"system-priority": 6}, "interfaces": {"interface": [
                     {"name": "b", "config": {"name": "b", "interval": "FAST", "lacp-mode": "PASSIVE"},
                      "state": {"name": "b", "lacp-mode": "ACTIVE"}}]})"),
            "LACP        system-priority\n"
            "configured  5\n"
            "in use      6\n"
            "\n"
            "b           interval  lacp-mode\n"
            "configured  FAST      PASSIVE\n"
            "in use      -         ACTIVE\n");
}

TEST(StateTable, Members_AreShownWithStateBothEndsAndCounters) {
  EXPECT_EQ(bundle(kMembers),
            "b\n"
            "\n"
            "  member  activity  timeout  sync      aggr  coll  dist  last-change\n"
            "  p1      ACTIVE    LONG     IN_SYNC   yes   yes   no    2023-11-14 22:13:20Z\n"
            "  p2      -         -        OUT_SYNC  -     -     -     -\n"
            "\n"
            "  member  end      system-id            key  port\n"
            "  p1      actor    00:00:00:00:00:01      1     3\n"
            "          partner  00:00:00:00:00:02  20000     4\n"
            "  p2      actor    -                      -     -\n"
            "          partner  -                      -     -\n"
            "\n"
            "  member   in  out  rx-err\n"
            "  p1      100    7       0\n"
            "  p2        -    -       -\n");
}

TEST(StateTable, ColumnWithoutAValue_IsLeftOut) {
  EXPECT_EQ(bundle(R"("members": {"member": [{"interface": "p1", "state": {"timeout": "SHORT"}}]})"),
            "b\n\n  member  timeout\n  p1      SHORT\n");
}

TEST(StateTable, LargestLastChange_IsShownAsADate) {
  EXPECT_THAT(
      bundle(R"("members": {"member": [{"interface": "p1", "state": {"last-change": "18446744073709551615"}}]})"),
      testing::HasSubstr("2554-07-21 23:34:33Z"));
}

TEST(StateTable, WithColours_GoodIsGreenAndBadIsRed) {
  const std::string text = table(std::string(R"("interfaces": {"interface": [{"name": "b", )") + kMembers + "}]}",
                                 {.width = 80, .has_colours = true});
  EXPECT_THAT(text, testing::HasSubstr("\x1b[32mIN_SYNC\x1b[0m"));
  EXPECT_THAT(text, testing::HasSubstr("\x1b[31mOUT_SYNC\x1b[0m"));
  EXPECT_THAT(text, testing::HasSubstr("\x1b[31mno\x1b[0m"));
}

TEST(StateTable, EarlierAnswer_ShowsCountersPerSecond) {
  const std::string before_text = lacp(R"("interfaces": {"interface": [{"name": "b", "members": {"member": [
      {"interface": "p1", "state": {"counters": {"lacp-in-pkts": "90", "lacp-out-pkts": "8"}}}]}}]})");
  const std::string now_text = lacp(R"("interfaces": {"interface": [{"name": "b", "members": {"member": [
      {"interface": "p1", "state": {"counters": {"lacp-in-pkts": "100", "lacp-out-pkts": "7"}}},
      {"interface": "p2", "state": {"counters": {"lacp-in-pkts": "5"}}}]}}]})");
  const AnswerData before = answer(before_text);
  const AnswerData now = answer(now_text);
  const EarlierAnswer earlier = {before.top(), 4};
  EXPECT_THAT(answer_table(schemas().request(), now.top(), {.width = 80}, &earlier),
              testing::HasSubstr("  per second   in  out\n"
                                 "  p1          2.5    -\n"
                                 "  p2            -\n"));
}

}  // namespace
}  // namespace oclacp::host
