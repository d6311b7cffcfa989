// Ten times the interfaces take about ten times as long.
#include <sys/resource.h>

#include <algorithm>
#include <sstream>

#include "tests/e2e/device_folder.h"
#include "tests/e2e/program.h"

namespace support {
namespace {

std::string interfaces(int count, const std::string& content) {
  std::string entries;
  for (int number = 1; number <= count; ++number) {
    entries += (number == 1 ? "" : ",") + std::string(R"({"name": "Bundle-Ether)") + std::to_string(number) + "\"" +
               content + "}";
  }
  return R"({"openconfig-lacp:lacp": {"interfaces": {"interface": [)" + entries + "]}}}";
}

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// What the programs that have ended have used, in seconds. Time on the clock would count what else the machine does.
double processor_time() {
  rusage used{};
  EXPECT_EQ(getrusage(RUSAGE_CHILDREN, &used), 0);
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

// The shortest of three runs, in seconds: what shares the caches only makes a run longer.
double time_of(const std::string& request, const std::vector<std::string>& arguments) {
  double shortest = 1e9;
  for (int attempt = 0; attempt < 3; ++attempt) {
    const double begin = processor_time();
    const Outcome result = translate(request, arguments);
    const double taken = processor_time() - begin;
    EXPECT_EQ(result.status, 0) << result.err.substr(0, 1000);
    shortest = std::min(shortest, taken);
  }
  return shortest;
}

// A quadratic step would show as a factor near 100. The bound leaves room for caches that are too small for the larger
// request, and for a busy machine.
void expect_linear(const std::string& content, const std::vector<std::string>& arguments) {
  const double one = time_of(interfaces(1'000, content), arguments);
  const double ten = time_of(interfaces(10'000, content), arguments);
  EXPECT_LT(ten / one, 25) << one << " s for 1,000, " << ten << " s for 10,000 interfaces";
}

TEST(Scaling, Merge_IsLinear) {
  expect_linear(R"(, "config": {"interval": "FAST", "lacp-mode": "ACTIVE", "system-priority": 5})", {});
}

TEST(Scaling, Delete_IsLinear) {
  expect_linear(R"(, "config": {"@": {"ietf-netconf:operation": "delete"}})", {});
}

TEST(Scaling, Read_IsLinear) {
  expect_linear("", {"--read", "all"});
}

// Runs on a device with so many interfaces.
class ScalingOnADevice : public DeviceFolderTest {
 protected:
  void fill(int count) const {
    std::string entries;
    for (int number = 1; number <= count; ++number) {
      entries += (number == 1 ? "" : ",") +
                 native_entry("Bundle-Ether" + std::to_string(number), R"("mode": "active", "period": 1000)");
    }
    write_running(entries);
  }

  // The shortest of three runs, in seconds.
  [[nodiscard]] static double time_of(const std::vector<std::string>& arguments) {
    double shortest = 1e9;
    for (int attempt = 0; attempt < 3; ++attempt) {
      const double begin = processor_time();
      const Outcome result = run(arguments);
      const double taken = processor_time() - begin;
      EXPECT_EQ(result.status, 0) << result.err.substr(0, 1000);
      shortest = std::min(shortest, taken);
    }
    return shortest;
  }

  // A dry run of an edit of all interfaces does all that an edit does, and leaves the device as it is for the next.
  [[nodiscard]] double time_of_edit(int count, const std::string& content) const {
    fill(count);
    write_file("request.json", interfaces(count, content));
    return time_of({"edit", folder() + "/request.json", "-d", folder(), "--dry-run"});
  }

  void expect_linear_edit(const std::string& content) const {
    const double one = time_of_edit(1'000, content);
    const double ten = time_of_edit(10'000, content);
    EXPECT_LT(ten / one, 25) << one << " s for 1,000, " << ten << " s for 10,000 interfaces";
  }
};

TEST_F(ScalingOnADevice, Get_IsLinear) {
  for (const std::vector<std::string>& further :
       {std::vector<std::string>{}, {"--keep-going"}, {"--unmapped"}, {"--format", "table"}}) {
    std::vector<std::string> arguments = {"get", "-d", folder()};
    arguments.insert(arguments.end(), further.begin(), further.end());
    fill(1'000);
    const double one = time_of(arguments);
    fill(10'000);
    const double ten = time_of(arguments);
    EXPECT_LT(ten / one, 25) << testing::PrintToString(further) << ": " << one << " s for 1,000, " << ten
                             << " s for 10,000 interfaces";
  }
}

TEST_F(ScalingOnADevice, GetOfState_IsLinearAndOneEntryCostsLess) {
  const auto fill_state = [this](int count) {
    fill(count);
    std::ostringstream bundles;
    for (int number = 1; number <= count; ++number) {
      bundles << (number == 1 ? "" : ",") << R"({"bundle-interface": "Bundle-Ether)" << number
              << R"(", "members": {"member": [{"member-interface": "p)" << number
              << R"(", "counters": {"lacpd-us-received": "1"}, "link-data": {"actor-port-state": 61}}]}})";
    }
    write_file("operational.json",
               R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-bundles": {"bundles": {"bundle": [)" + bundles.str() + "]}}}");
  };
  const std::vector<std::string> all = {"get", "--all", "-d", folder()};
  fill_state(1'000);
  const double one = time_of(all);
  fill_state(10'000);
  const double ten = time_of(all);
  EXPECT_LT(ten / one, 25) << one << " s for 1,000, " << ten << " s for 10,000 bundles";
  const double entry = time_of({"get", "--all", "-d", folder(), "/lacp/interfaces/interface[name='Bundle-Ether77']"});
  EXPECT_LT(entry, ten) << entry << " s for one of 10,000, " << ten << " s for all";
}

TEST_F(ScalingOnADevice, Merge_IsLinear) {
  expect_linear_edit(R"(, "config": {"interval": "SLOW", "lacp-mode": "PASSIVE"})");
}

TEST_F(ScalingOnADevice, Replace_IsLinear) {
  expect_linear_edit(R"(, "@": {"ietf-netconf:operation": "replace"}, "config": {"interval": "SLOW"})");
}

TEST_F(ScalingOnADevice, RemoveOfConfig_IsLinear) {
  expect_linear_edit(R"(, "config": {"@": {"ietf-netconf:operation": "remove"}})");
}

// The module compares each name with those of the data store one after the other, which is no more than one comparison
// each. What the store does for each search must not grow with the interfaces.
TEST_F(ScalingOnADevice, DeletesOfEntries_AreNearlyLinear) {
  const std::string content = R"(, "@": {"ietf-netconf:operation": "delete"})";
  const double one = time_of_edit(300, content);
  const double ten = time_of_edit(3'000, content);
  // Twenty times is usual, since the module goes over all names for each entry; the host's own part is linear.
  EXPECT_LT(ten / one, 60) << one << " s for 300, " << ten << " s for 3,000 interfaces";
}

}  // namespace
}  // namespace support
