#include "host/present/trace_tree.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

std::string record(const std::string& level, const std::string& handler, const std::string& text) {
  return "#12: " + level + ": " + handler + ":345 ctx=0x7ffe1234," + text;
}

std::vector<std::string> drawn(const std::vector<std::pair<std::string, std::string>>& records) {
  std::vector<std::string> lines;
  lines.reserve(records.size());
  for (const auto& [handler, text] : records) {
    lines.push_back(record("TRC", handler, text));
  }
  return draw_trace(lines);
}

TEST(TraceTree, Handlers_AreIndentedUnderTheirCallers) {
  EXPECT_THAT(drawn({{"a", "Start"},
                     {"b", "Start"},
                     {"b", "End"},
                     {"c", "Start"},
                     {"c", "End"},
                     {"a", "End"},
                     {"d", "Start"},
                     {"d", "End"}}),
              testing::ElementsAre("a", "  b", "  c", "d"));
}

TEST(TraceTree, OtherRecords_AreUnderTheirHandler) {
  EXPECT_THAT(draw_trace({record("TRC", "a", "Start"), record("TRC", "a", " a yfw_strcpy_s failed with error : x\n"),
                          record("TRC", "b", "Start"), record("ERR", "b", "Invalid arguments passed!"),
                          record("ERR", "a", "Empty list key specified."), record("TRC", "a", "End")}),
              testing::ElementsAre("a", "  - a yfw_strcpy_s failed with error : x", "  b",
                                   "    ! Invalid arguments passed!", "  ! Empty list key specified."));
}

TEST(TraceTree, HandlerWithoutAnEnd_IsClosedByTheEndOfItsCaller) {
  EXPECT_THAT(drawn({{"a", "Start"}, {"skipped", "Start"}, {"a", "End"}, {"b", "Start"}}),
              testing::ElementsAre("a", "  skipped", "b"));
}

TEST(TraceTree, HandlerWithoutAnEnd_IsClosedByItsNextStart) {
  EXPECT_THAT(drawn({{"a", "Start"}, {"skipped", "Start"}, {"b", "Start"}, {"b", "End"}, {"skipped", "Start"}}),
              testing::ElementsAre("a", "  skipped", "    b", "  skipped"));
}

TEST(TraceTree, RecordsOutsideOfHandlers_AreDrawn) {
  EXPECT_THAT(drawn({{"a", "End"}, {"a", "lost"}}), testing::ElementsAre("- lost"));
  EXPECT_THAT(draw_trace({"nonsense"}), testing::ElementsAre("- "));
}

}  // namespace
}  // namespace oclacp::host
