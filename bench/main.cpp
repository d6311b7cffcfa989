// Times, in one run: what libyang needs to read the device's configuration and the request and to print the native edit
// (the floor), the whole translation by the host, and the module by itself over a platform that only counts; and for a
// get, what libyang needs to read the configuration as the device does and to print the answer, and the whole get.
// Prints them as ratios at the end.
#include <benchmark/benchmark.h>
#include <libyang/libyang.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "counted_module.h"
#include "documents.h"
#include "host/datastore/device.h"
#include "host/translator.h"
#include "host/yang/libyang.h"

namespace bench {
namespace {

using Request = CountedModule::Request;
using oclacp::host::ContextPtr;
using oclacp::host::TreePtr;

constexpr std::array<std::size_t, 3> kSizes = {100, 1000, 10000};
constexpr std::array kRequests = {"create", "delete", "get"};

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

std::string request_text(Request request, std::size_t interfaces) {
  return request == Request::kCreate ? create_request(interfaces) : delete_request();
}

TreePtr parse(const ly_ctx* context, const std::string& text) {
  lyd_node* tree = nullptr;
  const LY_ERR status = lyd_parse_data_mem(context, text.c_str(), LYD_JSON, LYD_PARSE_ONLY | LYD_PARSE_OPAQ, 0, &tree);
  require(status == LY_SUCCESS, "libyang does not read a document");
  return TreePtr(tree);
}

// What the device holds before the request: a create finds nothing, a delete finds LACP on every interface.
std::string running_text(Request request, std::size_t interfaces) {
  return running_configuration(request == Request::kCreate ? 0 : interfaces);
}

// A device that is read when the request comes, as the program does it.
class Device final : public oclacp::host::Device {
 public:
  explicit Device(TreePtr running) : running_(std::move(running)) {}

  [[nodiscard]] uint32_t router_type() const override { return 7; }
  [[nodiscard]] const std::vector<oclacp::host::Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }

 private:
  TreePtr running_;
  std::vector<oclacp::host::Interface> interfaces_;
};

ContextPtr new_context(const std::vector<const char*>& modules) {
  ly_ctx* context = nullptr;
  require(ly_ctx_new(OCLACP_SCHEMAS, LY_CTX_NO_YANGLIBRARY, &context) == LY_SUCCESS, "libyang does not start");
  for (const char* module : modules) {
    require(ly_ctx_load_module(context, module, nullptr, nullptr) != nullptr, module);
  }
  return ContextPtr(context);
}

void floor(benchmark::State& state, Request request) {
  const auto interfaces = static_cast<std::size_t>(state.range(0));
  const ContextPtr request_side = new_context({"openconfig-lacp", "ietf-netconf"});
  const ContextPtr native_side = new_context({"Talvo-Brin-QD-bundlemgr-cfg", "ietf-netconf"});
  const std::string input = request_text(request, interfaces);
  const std::string running = running_text(request, interfaces);
  oclacp::host::Translator translator({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE);
  const Device device(parse(translator.native_context(), running));
  const TreePtr edit = parse(native_side.get(), translator.translate(input, device, {}).text);
  while (state.KeepRunning()) {
    const TreePtr device_read = parse(native_side.get(), running);
    const TreePtr request_read = parse(request_side.get(), input);
    char* printed = nullptr;
    lyd_print_mem(&printed, edit.get(), LYD_JSON, LYD_PRINT_WITHSIBLINGS);
    benchmark::DoNotOptimize(printed);
    std::free(printed);
  }
}

void host(benchmark::State& state, Request request) {
  const auto interfaces = static_cast<std::size_t>(state.range(0));
  oclacp::host::Translator translator({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE);
  const std::string input = request_text(request, interfaces);
  const std::string running = running_text(request, interfaces);
  while (state.KeepRunning()) {
    const Device device(parse(translator.native_context(), running));
    benchmark::DoNotOptimize(translator.translate(input, device, {}));
  }
}

void module(benchmark::State& state, Request request) {
  CountedModule counted(request, static_cast<std::size_t>(state.range(0)));
  while (state.KeepRunning()) {
    counted.walk();
  }
  state.counters["calls"] = static_cast<double>(counted.calls());
  state.counters["additions"] = static_cast<double>(counted.additions());
}

// The configuration of a device, read and judged as from its folder.
TreePtr read_running(const ly_ctx* native, const std::string& text) {
  lyd_node* tree = nullptr;
  const LY_ERR status =
      lyd_parse_data_mem(native, text.c_str(), LYD_JSON, LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE, &tree);
  require(status == LY_SUCCESS, "libyang does not read the configuration");
  return TreePtr(tree);
}

void floor_of_get(benchmark::State& state) {
  const std::string running = full_running_configuration(static_cast<std::size_t>(state.range(0)));
  oclacp::host::Translator translator({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE);
  const Device device(read_running(translator.native_context(), running));
  const oclacp::host::Answer answer = translator.get(device, {});
  while (state.KeepRunning()) {
    const TreePtr device_read = read_running(translator.native_context(), running);
    char* printed = nullptr;
    lyd_print_mem(&printed, answer.data.get(), LYD_JSON, LYD_PRINT_WITHSIBLINGS);
    benchmark::DoNotOptimize(printed);
    std::free(printed);
  }
}

void host_get(benchmark::State& state) {
  const std::string running = full_running_configuration(static_cast<std::size_t>(state.range(0)));
  oclacp::host::Translator translator({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE);
  while (state.KeepRunning()) {
    const Device device(read_running(translator.native_context(), running));
    benchmark::DoNotOptimize(translator.get(device, {}));
  }
}

// Prints as usual and keeps the times.
class Times final : public benchmark::ConsoleReporter {
 public:
  Times() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      times_[run.run_name.function_name + "/" + run.run_name.args] = run.GetAdjustedCPUTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }

  // 0 when it was not measured.
  [[nodiscard]] double of(const char* what, const char* request, std::size_t interfaces) const {
    const auto found = times_.find(std::string(what) + "/" + request + "/" + std::to_string(interfaces));
    return found == times_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> times_;
};

void print_ratios(const Times& times) {
  std::printf("\n%-8s %10s %12s %14s\n", "request", "interfaces", "host/floor", "module/floor");
  for (const char* request : kRequests) {
    for (const std::size_t interfaces : kSizes) {
      const double floor = times.of("floor", request, interfaces);
      if (floor == 0) continue;
      std::printf("%-8s %10zu %12.2f", request, interfaces, times.of("host", request, interfaces) / floor);
      if (const double module = times.of("module", request, interfaces); module != 0) {
        std::printf(" %14.2f", module / floor);
      }
      std::printf("\n");
    }
  }
  std::printf("\nten times the interfaces, %zu against %zu:\n", kSizes[2], kSizes[1]);
  for (const char* request : kRequests) {
    for (const char* what : {"floor", "host", "module"}) {
      const double base = times.of(what, request, kSizes[1]);
      if (base == 0) continue;
      std::printf("%-8s %-8s %8.1f times the time\n", request, what, times.of(what, request, kSizes[2]) / base);
    }
  }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  for (const std::size_t interfaces : kSizes) benchmark->Arg(static_cast<std::int64_t>(interfaces));
  benchmark->Unit(benchmark::kMicrosecond);
}

// Runs are named "floor/create/100" and so on.
BENCHMARK_CAPTURE(floor, create, Request::kCreate)->Apply(sizes);
BENCHMARK_CAPTURE(floor, delete, Request::kDelete)->Apply(sizes);
BENCHMARK(floor_of_get)->Name("floor/get")->Apply(sizes);
BENCHMARK_CAPTURE(host, create, Request::kCreate)->Apply(sizes);
BENCHMARK_CAPTURE(host, delete, Request::kDelete)->Apply(sizes);
BENCHMARK(host_get)->Name("host/get")->Apply(sizes);
BENCHMARK_CAPTURE(module, create, Request::kCreate)->Apply(sizes);
BENCHMARK_CAPTURE(module, delete, Request::kDelete)->Apply(sizes);

int run(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Times times;
  benchmark::RunSpecifiedBenchmarks(&times);
  print_ratios(times);
  return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  return bench::run(argc, argv);
}
