#include "frame/handler.h"

#include <array>
#include <set>
#include <string>
#include <utility>

#include "messages.h"
#include "unit/module_test.h"
#include "yfw/log.h"

namespace {

namespace message = ymap::message;

using support::Record;
using testing::ElementsAre;
using testing::SizeIs;
using ymap::Activation;
using ymap::Handler;

// Handlers whose work is the test's.
using Work = void (*)(const Activation& run);
Work probe_work = nullptr;
cerrno probe_status = YFW_OK;

cerrno run_probe(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [](const Activation& run) {
    if (probe_work != nullptr) probe_work(run);
    return probe_status;
  });
}

cerrno leave_at_once(const Handler& handler, yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* out) {
  return ymap::run_in_frame(handler, ctx, in, out, [] { return ymap::Outcome::without_end(YFW_MALFORMED_TREE); });
}

YMAP_DEFINE_SIMPLE_HANDLER(leaves_at_once, leave_at_once)
YMAP_DEFINE_SIMPLE_HANDLER(probe_node, run_probe)
YMAP_DEFINE_SIMPLE_HANDLER(other_node, run_probe)
YMAP_DEFINE_CONTAINER_HANDLER(probe_container, run_probe)

class HandlerFrame : public support::ModuleTest {
 protected:
  void SetUp() override {
    probe_work = nullptr;
    probe_status = YFW_OK;
  }

  cerrno run(Work work = nullptr) {
    probe_work = work;
    return probe_node(platform.ctx(), request.root(), platform.output());
  }

  [[nodiscard]] std::vector<Record> records_in(Record::Sink sink) const {
    std::vector<Record> records;
    for (const Record& record : platform.seen().records) {
      if (record.sink == sink) records.push_back(record);
    }
    return records;
  }
  [[nodiscard]] std::vector<Record> debug_log() const { return records_in(Record::Sink::kDebugLog); }
  [[nodiscard]] std::vector<Record> trace_buffer() const { return records_in(Record::Sink::kTraceBuffer); }

  support::Request request{support::leaf("leaf")};
};

using HandlerFrameDeathTest = HandlerFrame;

TEST_F(HandlerFrameDeathTest, NullContext_AbortsWithFileLineAndPrototype) {
  EXPECT_DEATH(probe_node(nullptr, request.root(), platform.output()),
               "handler_test.cpp:[0-9]+: cerrno probe_node\\(yfw_map_ctx, const yfw_datatree \\*, yfw_datatree \\*\\): "
               "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
}

TEST_F(HandlerFrameDeathTest, NullContextOfContainerHandler_NamesTheChildCount) {
  EXPECT_DEATH(probe_container(nullptr, request.root(), 0, platform.output()),
               "cerrno probe_container\\(yfw_map_ctx, const yfw_datatree \\*, unsigned int, yfw_datatree \\*\\): "
               "Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
}

TEST_F(HandlerFrameDeathTest, EveryArgumentNull_AbortsForTheContext) {
  EXPECT_DEATH(probe_node(nullptr, nullptr, nullptr), "\\(\\(void \\*\\)0\\) != ctx");
}

TEST_F(HandlerFrame, Run_RecordsStartAndEndInBothSinks) {
  EXPECT_EQ(run(), YFW_OK);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC probe_node: Start", "TRC probe_node: End"));
  const std::vector<Record> lines = debug_log();
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].level + lines[0].text, "TRCStart");
  EXPECT_EQ(lines[1].level + lines[1].text, "TRCEnd");
}

TEST_F(HandlerFrame, Record_AsksForItsLevelBeforeLogging) {
  run([](const Activation& run) { run.record(oclacp::message::kBindFailed, "path", "error"); });
  EXPECT_EQ(platform.count("yfw_debug_should_log", "3"), 2U);
  EXPECT_EQ(platform.count("yfw_debug_should_log", "0"), 1U);
  EXPECT_EQ(platform.count("dt_log_filter_adv"), 3U);
}

TEST_F(HandlerFrame, FailingWork_ReturnsItsStatusAndRecordsEnd) {
  probe_status = YFW_UNSUPPORTED_NODE;
  EXPECT_EQ(run(), YFW_UNSUPPORTED_NODE);
  EXPECT_EQ(platform.traced("probe_node", "End"), 1U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U) << "the frame marks the error path for null arguments only";
}

TEST_F(HandlerFrame, NullInput_IsInvalidWithoutEndRecord) {
  EXPECT_EQ(probe_node(platform.ctx(), nullptr, platform.output()), YFW_INVALID_ARGUMENTS);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC probe_node: Start", "ERR probe_node: Invalid arguments passed!"));
  EXPECT_THAT(debug_log(), SizeIs(2));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
}

TEST_F(HandlerFrame, NullOutput_IsInvalidWithoutEndRecord) {
  EXPECT_EQ(probe_node(platform.ctx(), request.root(), nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC probe_node: Start", "ERR probe_node: Invalid arguments passed!"));
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
}

TEST_F(HandlerFrame, TwoNullArguments_AreOneError) {
  EXPECT_EQ(probe_node(platform.ctx(), nullptr, nullptr), YFW_INVALID_ARGUMENTS);
  EXPECT_EQ(platform.traced("probe_node", "Invalid arguments passed!"), 1U);
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 1U);
}

TEST_F(HandlerFrame, InvalidArguments_AreRecordedBeforeTheErrorPathIsMarked) {
  probe_node(platform.ctx(), nullptr, platform.output());
  EXPECT_LT(position("_lstrace", "Invalid arguments passed!"), position("yfw_oc_error_path"));
}

TEST_F(HandlerFrame, ContainerHandler_RunsInTheSameFrame) {
  EXPECT_EQ(probe_container(platform.ctx(), request.root(), 5, platform.output()), YFW_OK);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC probe_container: Start", "TRC probe_container: End"));
}

TEST_F(HandlerFrame, TraceRecord_TakesOneSequenceNumber) {
  run([](const Activation& run) { run.record(message::kTagMissing); });
  std::vector<std::uint32_t> numbers;
  for (const Record& record : trace_buffer()) numbers.push_back(record.sequence);
  EXPECT_THAT(numbers, ElementsAre(1U, 2U, 3U));
  EXPECT_EQ(platform.count("ret_nc_yfw_trace_index_incr"), 3U);
}

TEST_F(HandlerFrame, TracingOff_LogsWithoutSequenceNumbers) {
  platform.set_tracing(false);
  run();
  EXPECT_EQ(platform.count("ret_nc_yfw_trace_index_incr"), 0U);
  EXPECT_EQ(platform.count("_lstrace"), 0U);
  EXPECT_THAT(debug_log(), SizeIs(2));
}

TEST_F(HandlerFrame, FilterClosed_TracesWithoutLogging) {
  platform.set_logging(false);
  run();
  EXPECT_EQ(platform.count("dt_log_filter_adv"), 0U);
  EXPECT_THAT(trace_buffer(), SizeIs(2));
}

TEST_F(HandlerFrame, FilterClosedForTraces_LogsErrorsOnly) {
  platform.script("yfw_debug_should_log", 0, 0, "3");
  run([](const Activation& run) { run.record(message::kTagMissing); });
  const std::vector<Record> lines = debug_log();
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_EQ(lines[0].level, "ERR");
}

TEST_F(HandlerFrame, ErrorsAndTraces_HaveSeparateStreams) {
  run([](const Activation& run) { run.record(message::kTagMissing); });
  const std::vector<Record> lines = debug_log();
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_EQ(lines[0].stream, platform.ctx()->trace_log);
  EXPECT_EQ(lines[1].stream, platform.ctx()->error_log);
}

TEST_F(HandlerFrame, CallSite_HasItsOwnConstantId) {
  const Work work = [](const Activation& run) { run.record(message::kTagMissing); };
  run(work);
  run(work);
  other_node(platform.ctx(), request.root(), platform.output());
  const std::vector<Record> lines = debug_log();
  ASSERT_THAT(lines, SizeIs(9));
  std::set<const std::uint32_t*> ids;
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(lines[i].call_site_id, lines[i + 3].call_site_id)
        << "the call-site id of \"" << lines[i].text << "\" changed";
    ids.insert(lines[i].call_site_id);
    ids.insert(lines[i + 6].call_site_id);
  }
  EXPECT_THAT(ids, SizeIs(6)) << "two call sites share an id";
}

TEST_F(HandlerFrame, CallSite_HasItsOwnConstantLineNumber) {
  const Work work = [](const Activation& run) {
    run.record(message::kTagMissing);
    run.record(message::kSubtreesMissing);
  };
  run(work);
  run(work);
  const std::vector<Record> records = trace_buffer();
  ASSERT_THAT(records, SizeIs(8));
  std::set<int> lines;
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(records[i].line, records[i + 4].line);
    lines.insert(records[i].line);
  }
  EXPECT_THAT(lines, SizeIs(4));
}

TEST_F(HandlerFrame, LineNumber_LeadsToTheRowOfTheHandler) {
  run();
  other_node(platform.ctx(), request.root(), platform.output());
  const std::vector<Record> records = trace_buffer();
  ASSERT_THAT(records, SizeIs(4));
  EXPECT_EQ(records[0].line / 100, records[1].line / 100);
  EXPECT_EQ(records[0].line / 100 + 1, records[2].line / 100) << "the rows stand on neighbouring lines";
}

TEST_F(HandlerFrame, FailedCall_IsRecordedWithHandlerNameAndTextOfCode) {
  run([](const Activation& run) { run.record_failed_call(message::kCopyFailed, 0x12); });
  EXPECT_EQ(platform.traced("probe_node", " probe_node yfw_strcpy_s failed with error : status 0x00000012\n"), 1U);
}

TEST_F(HandlerFrame, OutcomeWithoutEnd_IsReturnedWithoutEndRecord) {
  EXPECT_EQ(leaves_at_once(platform.ctx(), request.root(), platform.output()), YFW_MALFORMED_TREE);
  EXPECT_THAT(platform.trace(), ElementsAre("TRC leaves_at_once: Start"));
}

TEST_F(HandlerFrame, LongMessage_IsCutInTheTraceOnly) {
  static const std::string kLong(300, 'x');
  run([](const Activation& run) { run.record(message::kProcessingTag, kLong.c_str()); });
  const std::vector<Record> records = trace_buffer();
  const std::vector<Record> lines = debug_log();
  ASSERT_THAT(records, SizeIs(3));
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_EQ(records[1].length, std::size_t{YFW_TRACE_CAPACITY - 1});
  EXPECT_EQ(records[1].text.substr(0, 17), "Processing tag 'x");
  EXPECT_EQ(lines[1].text, "Processing tag '" + kLong + "'");
}

struct Wording {
  Work record;
  const char* level;
  const char* text;  // with 'A' and 'B' for its arguments
};

constexpr Wording kWordings[] = {
    {[](const Activation& run) { run.record(message::kStart); }, "TRC", "Start"},
    {[](const Activation& run) { run.record(message::kEnd); }, "TRC", "End"},
    {[](const Activation& run) { run.record(message::kInvalidArguments); }, "ERR", "Invalid arguments passed!"},
    {[](const Activation& run) { run.record(message::kSubtreesMissing); }, "ERR", "Failed to get subtrees!"},
    {[](const Activation& run) { run.record(message::kTagMissing); }, "ERR", "Tag name is not available!"},
    {[](const Activation& run) { run.record(message::kProcessingTag, "A"); }, "TRC", "Processing tag 'A'"},
    {[](const Activation& run) { run.record(message::kUnsupportedTag); }, "ERR",
     "Unsupported tag is specified in the request."},
    {[](const Activation& run) { run.record(message::kTagIgnored); }, "TRC", "Unsupported tag. Ignoring."},
    {[](const Activation& run) { run.record(message::kDeleteWithSubtree); }, "TRC",
     "Delete request with subtree present"},
    {[](const Activation& run) { run.record(message::kKeysMissing); }, "ERR", "No keys specified with a list node."},
    {[](const Activation& run) { run.record(message::kKeyEmpty); }, "ERR", "Empty list key specified."},
    {[](const Activation& run) { run.record(message::kKeyInvalid); }, "ERR", "List key node error."},
    {[](const Activation& run) { run.record(message::kKeyDeleted); }, "ERR",
     "The key node should not have delete operation."},
    {[](const Activation& run) { run.record(message::kLeafrefRefused); }, "ERR", "leafref value check fail"},
    {[](const Activation& run) { run.record(message::kXpathErrorNode); }, "TRC", "got xpath error node"},
    {[](const Activation& run) { run.record(message::kNothingToEvaluate); }, "TRC",
     "No valid input to validate when statement "},
    {[](const Activation& run) { run.record(oclacp::message::kInterfaceNameMissing); }, "ERR",
     "Data interface name does not exists"},
    {[](const Activation& run) { run.record(oclacp::message::kBindFailed, "A", "B"); }, "ERR",
     "Unable to bind to Sysdb: path:A, error:B"},
    {[](const Activation& run) { run.record(oclacp::message::kFindFailed, "A", "B"); }, "ERR",
     "Unable to find items in Sysdb: path:A, error:B"},
    {[](const Activation& run) { run.record(oclacp::message::kIterationFailed, "A"); }, "ERR",
     "Unable to iterate the sysdb list: error:A"},
    {[](const Activation& run) { run.record(oclacp::message::kIntervalRefused); }, "ERR",
     "\nValue of interval other than 1s and 30s is not supported in high model"},
    {[](const Activation& run) { run.record(message::kCopyFailed, "A", "B"); }, "TRC",
     " A yfw_strcpy_s failed with error : B\n"},
    {[](const Activation& run) { run.record(oclacp::message::kIntervalCopyFailed, "A", "B"); }, "TRC",
     " A  yfw_strcpy_s failed with error : B\n"},
    {[](const Activation& run) { run.record(message::kBoundedCopyFailed, "A", "B"); }, "TRC",
     " A yfw_strncpy_s failed with error : B\n"},
    {[](const Activation& run) { run.record(message::kCompareFailed, "A", "B"); }, "TRC",
     " A yfw_strcmp_s failed with error : B\n"},
    {[](const Activation& run) { run.record(oclacp::message::kBundleNameMissing, "A", "B"); }, "TRC",
     " A Unable to get bundle name from lacp-bundle tree : B\n"},
    {[](const Activation& run) { run.record(oclacp::message::kBundleNameFailed, "A", "B"); }, "TRC",
     "A: Unable to get bundle name. Returning from here. rc B\n"},
    {[](const Activation& run) { run.record(oclacp::message::kModeIsOn, "A"); }, "TRC",
     "A: Configured LACP Mode is ON. Returning from here\n"},
};

TEST_F(HandlerFrame, EveryMessage_HasTheSameTextAndLevelInBothSinks) {
  std::set<int> call_sites;
  for (const Wording& wording : kWordings) {
    SCOPED_TRACE(wording.text);
    run(wording.record);
    const Record line = debug_log().at(debug_log().size() - 2);
    const Record record = trace_buffer().at(trace_buffer().size() - 2);
    EXPECT_EQ(line.level, wording.level);
    EXPECT_EQ(line.text, wording.text);
    EXPECT_EQ(record.level, wording.level);
    EXPECT_EQ(record.text, wording.text);
    EXPECT_EQ(record.handler, "probe_node");
    call_sites.insert(record.line % 100);
  }
  EXPECT_THAT(call_sites, SizeIs(std::size(kWordings))) << "each message has a call site of its own";
}

}  // namespace
