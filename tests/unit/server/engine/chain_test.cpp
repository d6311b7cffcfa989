// A chain of edits in the candidate, and its commit.
#include <ctime>

#include "server/engine/served_device.h"
#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

constexpr size_t kInterfaces = 100;

// Of this process, in seconds. Time on the clock would count what else the machine does.
double processor_time() {
  timespec time{};
  EXPECT_EQ(clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time), 0);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

class ChainTest : public testing::Test {
 protected:
  ChainTest() {
    device_.write("platform.json", R"({"oclacp-platform:platform": {"router-type": 7}})");
    device_.write("running.json", priorities(std::vector<unsigned>(kInterfaces, 1)));
  }

  static std::string edit(size_t index, size_t value) {
    const std::string name = "i" + std::to_string(index);
    return host::interface(R"("name": ")" + name + R"(", "config": {"name": ")" + name + R"(", "system-priority": )" +
                           std::to_string(value) + "}");
  }

  // The time of so many edits, each of which changes something, and of their commit.
  double time_of(size_t edits) {
    const TemporaryFolder state;
    ServedDevice served({.schemas = {location::kSchemas, ""},
                         .module_file = location::kModule,
                         .device = device_.path(),
                         .state_folder = state.path()});
    const double begin = processor_time();
    for (size_t number = 0; number < edits; ++number) {
      served.edit(alice(), Datastore::kCandidate, edit(number % kInterfaces, ++last_), {});
    }
    // The mapping marks each interface of the first commit as virtual, too.
    EXPECT_GE(served.datastores().commit(alice()).changes.size(), std::min(edits, kInterfaces));
    return processor_time() - begin;
  }

  TemporaryFolder device_;
  size_t last_ = 1;
};

TEST_F(ChainTest, TenTimesTheEdits_TakeAboutTenTimesTheTime) {
  const double one = std::min(time_of(100), time_of(100));
  const double ten = time_of(1000);
  EXPECT_LT(ten / one, 20) << one << " s for 100, " << ten << " s for 1,000 edits";
  RecordProperty("growth", std::to_string(ten / one));
}

}  // namespace
}  // namespace oclacp::server
