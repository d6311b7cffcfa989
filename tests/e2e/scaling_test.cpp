// Ten times the interfaces take about ten times as long.
#include <algorithm>
#include <chrono>

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

// The shortest of three runs, in seconds: what else runs on the machine only makes a run longer.
double time_of(const std::string& request, const std::vector<std::string>& arguments) {
  double shortest = 1e9;
  for (int attempt = 0; attempt < 3; ++attempt) {
    const auto begin = std::chrono::steady_clock::now();
    const Outcome result = translate(request, arguments);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(result.status, 0) << result.err.substr(0, 1000);
    shortest = std::min(shortest, taken.count());
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

TEST(Scaling, OfAMergeIsLinear) {
  expect_linear(R"(, "config": {"interval": "FAST", "lacp-mode": "ACTIVE", "system-priority": 5})", {});
}

TEST(Scaling, OfADeleteIsLinear) {
  expect_linear(R"(, "config": {"@": {"ietf-netconf:operation": "delete"}})", {});
}

TEST(Scaling, OfAReadIsLinear) {
  expect_linear("", {"--read", "all"});
}

// The shortest of three runs of a get from a device with so many interfaces, in seconds.
class ScalingOfGet : public DeviceFolderTest {
 protected:
  double time_of(int count, const std::vector<std::string>& further_arguments) {
    std::string entries;
    for (int number = 1; number <= count; ++number) {
      entries += (number == 1 ? "" : ",") +
                 native_entry("Bundle-Ether" + std::to_string(number), R"("mode": "active", "period": 1000)");
    }
    write_running(entries);
    std::vector<std::string> arguments = {"get", "-d", folder()};
    arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
    double shortest = 1e9;
    for (int attempt = 0; attempt < 3; ++attempt) {
      const auto begin = std::chrono::steady_clock::now();
      const Outcome result = run(arguments);
      const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
      EXPECT_EQ(result.status, 0) << result.err.substr(0, 1000);
      shortest = std::min(shortest, taken.count());
    }
    return shortest;
  }
};

TEST_F(ScalingOfGet, IsLinear) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{}, {"--keep-going"}, {"--unmapped"}, {"--format", "table"}}) {
    const double one = time_of(1'000, arguments);
    const double ten = time_of(10'000, arguments);
    EXPECT_LT(ten / one, 25) << testing::PrintToString(arguments) << ": " << one << " s for 1,000, " << ten
                             << " s for 10,000 interfaces";
  }
}

}  // namespace
}  // namespace support
