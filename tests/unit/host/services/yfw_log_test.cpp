#include <sstream>

#include "host/services/log_sinks.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

TEST(LogSinks, ShouldLog_FollowsTheLevelsOfTheFilter) {
  const uintptr_t only_errors = 1U << YFW_LOG_ERROR;
  EXPECT_NE(yfw_debug_should_log(&only_errors, YFW_LOG_ERROR), 0);
  EXPECT_EQ(yfw_debug_should_log(&only_errors, YFW_LOG_TRACE), 0);
  EXPECT_EQ(yfw_debug_should_log(&kLogNothing, YFW_LOG_ERROR), 0);
  EXPECT_NE(yfw_debug_should_log(&kLogEverything, YFW_LOG_TRACE), 0);
}

TEST(LogSinks, LogRecord_IsOneLine) {
  std::ostringstream out;
  yfw_log_stream stream{&out};
  uint32_t site = 0xFFFFFFFF;
  dt_log_filter_adv(&stream, 0, 0, 0, 0, 0, &site, "ERR: ctx=%p,tag '%s'", nullptr, "state");
  dt_log_filter_adv(&stream, 0, 0, 0, 0, 0, &site, "%s", std::string(5000, 'x').c_str());
  EXPECT_EQ(out.str(), "ERR: ctx=(nil),tag 'state'\n" + std::string(1023, 'x') + "\n");
}

TEST(LogSinks, TraceRecords_AreKeptInOrder) {
  yfw_trace_buffer buffer;
  _lstrace(&buffer, YFW_TRACE_FLAGS, "one");
  _lstrace(&buffer, YFW_TRACE_FLAGS, "two");
  EXPECT_THAT(buffer.records, testing::ElementsAre("one", "two"));
}

TEST(LogSinks, TraceIndex_GrowsByOne) {
  const uint32_t first = ret_nc_yfw_trace_index_incr();
  EXPECT_EQ(ret_nc_yfw_trace_index_incr(), first + 1);
}

}  // namespace
}  // namespace oclacp::host
