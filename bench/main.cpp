// Times, in one run: what libyang needs to read the device's configuration and the request and to print the native edit
// (the floor), the whole translation by the host, and the module by itself over a platform that only counts; and for a
// get of configuration ("get") or of state too ("state", each interface a bundle with 16 members), what libyang needs
// to read the data as the device does and to print the answer, and the whole get. Prints them as ratios at the end,
// and the most memory that a get of state takes.
#include <benchmark/benchmark.h>
#include <libyang/libyang.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "counted_module.h"
#include "documents.h"
#include "host/devices/device.h"
#include "host/translation/translator.h"
#include "host/yang/libyang_ptr.h"

namespace bench {
namespace {

using Request = CountedModule::Request;
using oclacp::host::ContextPtr;
using oclacp::host::TreePtr;

constexpr std::array<std::size_t, 3> kSizes = {100, 1000, 10000};
constexpr std::array kRequests = {"create", "delete", "get", "state"};

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
class Device final : public oclacp::host::DeviceSnapshot {
 public:
  explicit Device(TreePtr running, TreePtr operational = nullptr)
      : running_(std::move(running)), operational_(std::move(operational)) {}

  [[nodiscard]] uint32_t router_type() const override { return 7; }
  [[nodiscard]] const std::vector<oclacp::host::Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }
  [[nodiscard]] const lyd_node* operational() const override { return operational_.get(); }

 private:
  TreePtr running_;
  TreePtr operational_;
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

// What a get reads, as files of a device.
struct DeviceTexts {
  DeviceTexts(std::size_t interfaces, bool with_state)
      : running(full_running_configuration(interfaces)),
        operational(with_state ? operational_state(interfaces) : "{}") {}

  // Read and judged as from a device's folder.
  [[nodiscard]] Device read(const ly_ctx* native) const {
    return Device(parse_valid(native, running, LYD_VALIDATE_NO_STATE),
                  parse_valid(native, operational, LYD_VALIDATE_PRESENT));
  }

  std::string running;
  std::string operational;

 private:
  static TreePtr parse_valid(const ly_ctx* native, const std::string& text, std::uint32_t validation) {
    lyd_node* tree = nullptr;
    const LY_ERR status = lyd_parse_data_mem(native, text.c_str(), LYD_JSON, LYD_PARSE_STRICT, validation, &tree);
    require(status == LY_SUCCESS, "libyang does not read a device's data");
    return TreePtr(tree);
  }
};

oclacp::host::GetOptions get_options(bool with_state) {
  oclacp::host::GetOptions options;
  options.kind = with_state ? oclacp::host::RequestKind::kReadState : oclacp::host::RequestKind::kReadConfig;
  return options;
}

void print_to_nowhere(const ly_ctx* context, const lyd_node* tree) {
  const std::unique_ptr<std::FILE, decltype(&std::fclose)> nowhere(std::fopen("/dev/null", "w"), &std::fclose);
  oclacp::host::write_tree(nowhere.get(), context, tree, LYD_JSON);
}

void floor_of_get(benchmark::State& state, bool with_state) {
  const DeviceTexts texts(static_cast<std::size_t>(state.range(0)), with_state);
  oclacp::host::Translator translator({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE);
  const oclacp::host::Answer answer = translator.get(texts.read(translator.native_context()), get_options(with_state));
  while (state.KeepRunning()) {
    const Device device = texts.read(translator.native_context());
    print_to_nowhere(translator.openconfig_context(), answer.data.get());
  }
}

void host_get(benchmark::State& state, bool with_state) {
  const DeviceTexts texts(static_cast<std::size_t>(state.range(0)), with_state);
  oclacp::host::Translator translator({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE);
  while (state.KeepRunning()) {
    const Device device = texts.read(translator.native_context());
    const oclacp::host::Answer answer = translator.get(device, get_options(with_state));
    print_to_nowhere(translator.openconfig_context(), answer.data.get());
  }
}

// The most memory that a piece of work takes, in a process of its own, in KiB.
template <typename Work>
long peak_memory(const Work& work) {
  std::fflush(nullptr);
  malloc_trim(0);  // what was given back before is not to be found there
  const pid_t process = fork();
  require(process >= 0, "no process can be made");
  if (process == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  rusage usage{};
  require(wait4(process, &status, 0, &usage) == process && status == 0, "a measured process fails");
  return usage.ru_maxrss;
}

// The floor holds the data as it is read, and then the answer.
void print_memory(std::size_t bundles) {
  const oclacp::host::SchemaDirectories schemas = {.shipped = OCLACP_SCHEMAS, .published = ""};
  const DeviceTexts texts(bundles, true);
  const std::unique_ptr<std::FILE, decltype(&std::fclose)> answer_file(std::tmpfile(), &std::fclose);
  {
    oclacp::host::Translator translator(schemas, OCLACP_MODULE);
    const oclacp::host::Answer answer = translator.get(texts.read(translator.native_context()), get_options(true));
    oclacp::host::write_tree(answer_file.get(), translator.openconfig_context(), answer.data.get(), LYD_JSON);
  }
  const long floor = peak_memory([&] {
    oclacp::host::Translator translator(schemas, OCLACP_MODULE);
    const Device device = texts.read(translator.native_context());
    lyd_node* answer = nullptr;
    require(lyd_parse_data_fd(translator.openconfig_context(), fileno(answer_file.get()), LYD_JSON, LYD_PARSE_ONLY, 0,
                              &answer) == LY_SUCCESS,
            "libyang does not read the answer");
    const TreePtr owner(answer);
    print_to_nowhere(translator.openconfig_context(), answer);
  });
  const long host = peak_memory([&] {
    oclacp::host::Translator translator(schemas, OCLACP_MODULE);
    const Device device = texts.read(translator.native_context());
    const oclacp::host::Answer answer = translator.get(device, get_options(true));
    print_to_nowhere(translator.openconfig_context(), answer.data.get());
  });
  std::printf("\nmost memory of a get of state, %zu bundles: floor %ld MiB, host %ld MiB, host/floor %.2f\n", bundles,
              floor / 1024, host / 1024, static_cast<double>(host) / static_cast<double>(floor));
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
      const double ten_times = times.of(what, request, kSizes[2]);
      if (base == 0 || ten_times == 0) continue;
      std::printf("%-8s %-8s %8.1f times the time\n", request, what, ten_times / base);
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
BENCHMARK_CAPTURE(floor_of_get, get, false)->Name("floor/get")->Apply(sizes);
BENCHMARK_CAPTURE(floor_of_get, state, true)->Name("floor/state")->Apply(sizes);
BENCHMARK_CAPTURE(host, create, Request::kCreate)->Apply(sizes);
BENCHMARK_CAPTURE(host, delete, Request::kDelete)->Apply(sizes);
BENCHMARK_CAPTURE(host_get, get, false)->Name("host/get")->Apply(sizes);
BENCHMARK_CAPTURE(host_get, state, true)->Name("host/state")->Apply(sizes);
BENCHMARK_CAPTURE(module, create, Request::kCreate)->Apply(sizes);
BENCHMARK_CAPTURE(module, delete, Request::kDelete)->Apply(sizes);

int run(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  Times times;
  benchmark::RunSpecifiedBenchmarks(&times);
  print_ratios(times);
  for (const std::size_t bundles : kSizes) {
    if (times.of("host", "state", bundles) != 0) print_memory(bundles);
  }
  return 0;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  return bench::run(argc, argv);
}
