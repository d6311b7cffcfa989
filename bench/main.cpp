// Measures, in one run and in turns, the host beside its floor: libyang reading and validating the device's files (and
// reading the request of an edit), and printing the finished result. Processor time, medians of several rounds; and the
// most memory of a read, each in a process of its own. Prints ratios with what is required of them.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "counted_module.h"
#include "documents.h"
#include "host/devices/open_device.h"
#include "host/files/read_file.h"
#include "host/present/answer_writer.h"
#include "host/translation/translator.h"
#include "host/yang/libyang_ptr.h"
#include "host/yang/tree_printer.h"

namespace bench {
namespace {

namespace host = oclacp::host;

constexpr std::array<std::size_t, 3> kSizes = {100, 1000, 10000};
constexpr std::size_t kRounds = 5;
// Reads of all state, of one interface's and of configuration; translations of an edit that creates all interfaces and
// of one that deletes LACP; an edit of all interfaces up to the configuration that a device would keep.
constexpr std::array kWorks = {"state", "one", "config", "create", "delete", "edit"};

// What is required of a ratio to the floor.
struct Requirement {
  const char* work;
  std::size_t size;
  double time;
  double memory;  // 0: nothing
};
constexpr std::array kRequirements = {Requirement{"state", 1000, 0.95, 0.3}, Requirement{"state", 10000, 1.0, 0.3},
                                      Requirement{"one", 10000, 0.10, 0},    Requirement{"create", 1000, 1.25, 0},
                                      Requirement{"create", 10000, 1.45, 0}, Requirement{"delete", 1000, 1.35, 0},
                                      Requirement{"delete", 10000, 1.6, 0}};
// Ten times the interfaces take ten times the time, within this; or as much longer than that as the floor takes, whose
// trees leave the processor's caches.
constexpr double kMostGrowth = 1.15;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

void write_file(const std::string& folder, const char* name, const std::string& text) {
  std::ofstream(folder + "/" + name) << text;
}

// A device of so many interfaces, for one kind of work; none for no work.
void write_device(const std::string& folder, const std::string& work, std::size_t interfaces) {
  if (work.empty()) return;
  write_file(folder, "platform.json", R"({"oclacp-platform:platform": {"router-type": 7}})");
  if (work == "create" || work == "delete" || work == "edit") {
    write_file(folder, "running.json", running_configuration(work == "create" ? 0 : interfaces));
  } else {
    write_file(folder, "running.json", full_running_configuration(interfaces));
    write_file(folder, "operational.json", operational_state(interfaces));
  }
}

// A folder that goes at the end.
class DeviceFolder {
 public:
  DeviceFolder(const std::string& work, std::size_t interfaces) {
    std::string name = std::filesystem::temp_directory_path() / "oclacp-bench-XXXXXX";
    require(mkdtemp(name.data()) != nullptr, "no folder can be made");
    path_ = name;
    write_device(path_, work, interfaces);
  }
  ~DeviceFolder() { std::filesystem::remove_all(path_); }
  DeviceFolder(const DeviceFolder&) = delete;
  DeviceFolder& operator=(const DeviceFolder&) = delete;
  DeviceFolder(DeviceFolder&&) = delete;
  DeviceFolder& operator=(DeviceFolder&&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

host::ContextPtr new_context(const std::vector<const char*>& modules) {
  ly_ctx* context = nullptr;
  require(ly_ctx_new(OCLACP_SCHEMAS, LY_CTX_NO_YANGLIBRARY, &context) == LY_SUCCESS, "libyang does not start");
  for (const char* module : modules) {
    require(ly_ctx_load_module(context, module, nullptr, nullptr) != nullptr, module);
  }
  return host::ContextPtr(context);
}

host::TreePtr parse(const ly_ctx* context, const std::string& text, std::uint32_t options, std::uint32_t validation) {
  lyd_node* tree = nullptr;
  require(lyd_parse_data_mem(context, text.c_str(), LYD_JSON, options, validation, &tree) == LY_SUCCESS,
          "libyang does not read a document");
  return host::TreePtr(tree);
}

void print(const lyd_node* tree, std::FILE* file) {
  require(lyd_print_file(file, tree, LYD_JSON, LYD_PRINT_WITHSIBLINGS) == LY_SUCCESS, "libyang does not print");
}

std::string text_of(const lyd_node* tree) {
  char* text = nullptr;
  require(lyd_print_mem(&text, tree, LYD_JSON, LYD_PRINT_WITHSIBLINGS) == LY_SUCCESS, "libyang does not print");
  const std::unique_ptr<char, decltype(&std::free)> owner(text, &std::free);
  return text;
}

class NullFile {
 public:
  NullFile() : file_(std::fopen("/dev/null", "w"), &std::fclose) {}
  [[nodiscard]] std::FILE* get() const { return file_.get(); }

 private:
  std::unique_ptr<std::FILE, decltype(&std::fclose)> file_;
};

// One kind of work on one device.
class Subject {
 public:
  // `folder` holds such a device.
  Subject(std::string work, std::string folder, std::size_t interfaces)
      : work_(std::move(work)),
        folder_(std::move(folder)),
        request_(work_ == "create" || work_ == "edit" ? create_request(interfaces)
                 : work_ == "delete"                  ? delete_request()
                                                      : ""),
        translator_({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE),
        openconfig_(new_context({"openconfig-lacp", "ietf-netconf"})),
        native_(new_context({"ietf-netconf", "Talvo-Brin-QD-ifmgr-cfg", "Talvo-Brin-QD-bundlemgr-cfg",
                             "Talvo-Brin-QD-bundlemgr-oper", "oclacp-platform"})) {}

  // Everything from the files to the printed result.
  void run_host() {
    const std::shared_ptr<const host::DeviceSnapshot> device = snapshot();
    if (work_ == "edit") {
      print(translator_.plan_edit(request_, *device, {}).running.get(), nowhere_.get());
    } else if (is_edit()) {
      const std::string text = translator_.translate_edit(request_, *device, {}).text;
      std::fwrite(text.data(), 1, text.size(), nowhere_.get());
    } else {
      host::write_answer(nowhere_.get(), translator_.get(*device, {path()}, {.content = content()}).data, LYD_JSON);
    }
  }

  // What the floor prints.
  [[nodiscard]] std::string result() {
    const std::shared_ptr<const host::DeviceSnapshot> device = snapshot();
    if (work_ == "edit") {
      return text_of(translator_.plan_edit(request_, *device, {}).running.get());
    }
    return is_edit() ? translator_.translate_edit(request_, *device, {}).text
                     : host::print_answer(translator_.get(*device, {path()}, {.content = content()}).data, LYD_JSON);
  }
  void keep_result(const std::string& text) {
    result_ = parse(is_edit() ? native_.get() : openconfig_.get(), text, LYD_PARSE_ONLY | LYD_PARSE_OPAQ, 0);
  }

  void run_floor() {
    const host::TreePtr platform = read("platform.json", LYD_VALIDATE_NO_STATE);
    const host::TreePtr running = read("running.json", LYD_VALIDATE_NO_STATE);
    const bool has_state = work_ == "state" || work_ == "one";
    const host::TreePtr operational = has_state ? read("operational.json", LYD_VALIDATE_PRESENT) : nullptr;
    const host::TreePtr request =
        is_edit() ? parse(openconfig_.get(), request_, LYD_PARSE_ONLY | LYD_PARSE_OPAQ, 0) : nullptr;
    print(result_.get(), nowhere_.get());
  }

 private:
  // Of a device that was not read before.
  [[nodiscard]] std::shared_ptr<const host::DeviceSnapshot> snapshot() const {
    return host::open_device(translator_.native_context(), folder_)->snapshot();
  }

  [[nodiscard]] bool is_edit() const { return !request_.empty(); }

  [[nodiscard]] std::string path() const {
    return work_ == "one" ? "/lacp/interfaces/interface[name='Bundle-Ether7']" : "/lacp";
  }
  [[nodiscard]] host::Content content() const {
    return work_ == "config" ? host::Content::kConfig : host::Content::kAll;
  }

  [[nodiscard]] host::TreePtr read(const char* name, std::uint32_t validation) const {
    return parse(native_.get(), host::read_text_file(folder_ + "/" + name), LYD_PARSE_STRICT, validation);
  }

  std::string work_;
  std::string folder_;
  std::string request_;
  host::Translator translator_;
  host::ContextPtr openconfig_;
  host::ContextPtr native_;
  host::TreePtr result_;
  NullFile nowhere_;
};

double processor_seconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double time_of(const std::function<void()>& work) {
  const double before = processor_seconds();
  work();
  return processor_seconds() - before;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// What one round took, in seconds.
struct Round {
  double floor;
  double host;
};

// One kind of work on a device of so many interfaces. Small work is done several times, to be longer than the clock's
// steps.
class Contest {
 public:
  Contest(const std::string& work, std::size_t interfaces)
      : interfaces_(interfaces), folder_(work, interfaces), subject_(work, folder_.path(), interfaces) {
    subject_.keep_result(subject_.result());
  }

  [[nodiscard]] std::size_t interfaces() const { return interfaces_; }
  [[nodiscard]] const std::vector<Round>& rounds() const { return rounds_; }

  void run() {
    const double floor = repeated([this] { subject_.run_floor(); });
    rounds_.push_back({floor, repeated([this] { subject_.run_host(); })});
  }

 private:
  [[nodiscard]] double repeated(const std::function<void()>& work) const {
    const std::size_t repeats = std::max<std::size_t>(1, 2000 / interfaces_);
    return time_of([&] {
             for (std::size_t count = 0; count < repeats; ++count) work();
           }) /
           static_cast<double>(repeats);
  }

  std::size_t interfaces_;
  DeviceFolder folder_;
  Subject subject_;
  std::vector<Round> rounds_;
};

// The median of a figure over the rounds. What is compared was measured in the same round, as a machine that others
// use, too, is not as fast in each.
template <typename Figure>
double median_of(const Figure& figure) {
  std::vector<double> values;
  for (std::size_t round = 0; round < kRounds; ++round) values.push_back(figure(round));
  return median(values);
}

// Walks of the module alone, over a platform that only counts.
double measure_module(CountedModule::Request request, std::size_t interfaces) {
  CountedModule counted(request, interfaces);
  std::vector<double> times;
  times.reserve(kRounds);
  for (std::size_t round = 0; round < kRounds; ++round) {
    times.push_back(time_of([&] { counted.walk(); }));
  }
  return median(times);
}

// The most memory in KiB that this program takes when it is started with such arguments.
long memory_of(const std::vector<std::string>& arguments) {
  const pid_t process = fork();
  require(process >= 0, "no process can be made");
  if (process == 0) {
    std::vector<char*> words = {const_cast<char*>("oclacp_bench")};
    words.reserve(arguments.size() + 2);
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    execv("/proc/self/exe", words.data());
    _exit(1);
  }
  int status = 0;
  rusage usage{};
  require(wait4(process, &status, 0, &usage) == process && status == 0, "a measured process fails");
  return usage.ru_maxrss;
}

// The floor holds the data as it is read, and then the answer.
double measure_memory(std::size_t interfaces) {
  const DeviceFolder folder("", 0);
  memory_of({"--prepare", folder.path(), std::to_string(interfaces)});
  const long floor = memory_of({"--floor", folder.path()});
  const long host = memory_of({"--host", folder.path()});
  std::printf("memory of a read of state, %zu bundles: floor %ld MiB, host %ld MiB\n", interfaces, floor / 1024,
              host / 1024);
  return static_cast<double>(host) / static_cast<double>(floor);
}

// The other processes: one writes the files of a device, the others work on them. A process starts with the most memory
// of the one that starts it, so that this must have been small all the time.
int run_process(const std::string& side, const std::string& folder, std::size_t interfaces) {
  if (side == "--prepare") {
    write_device(folder, "state", interfaces);
  }
  Subject subject("state", folder, 0);
  if (side == "--prepare") {
    write_file(folder, "answer.json", subject.result());
  } else if (side == "--floor") {
    subject.keep_result(host::read_text_file(folder + "/answer.json"));
    subject.run_floor();
  } else {
    subject.run_host();
  }
  return 0;
}

// Prints figures, each beside what is required of it, if something is, and remembers those that are missed.
class Figures {
 public:
  // A requirement is treated as missed when the figure is more than `slack` times as large.
  explicit Figures(double slack) : slack_(slack) {}

  [[nodiscard]] bool are_held() const { return missed_ == 0; }

  void print(const char* what, double value, double most) {
    std::printf(" %s %.2f", what, value);
    if (most == 0) return;
    const bool is_missed = value > most * slack_;
    missed_ += is_missed ? 1 : 0;
    std::printf(" (required %.2f: %s)", most,
                value <= most ? "held"
                : is_missed   ? "MISSED"
                              : "missed within the slack");
  }

 private:
  double slack_;
  int missed_ = 0;
};

const Requirement* find_requirement(const std::string& work, std::size_t size) {
  const auto* const found = std::find_if(kRequirements.begin(), kRequirements.end(),
                                         [&](const Requirement& one) { return work == one.work && size == one.size; });
  return found == kRequirements.end() ? nullptr : found;
}

void measure_all_memory(std::size_t most, Figures& figures) {
  for (const std::size_t size : kSizes) {
    if (size > most) continue;
    const double ratio = measure_memory(size);
    const Requirement* required = find_requirement("state", size);
    figures.print(" host/floor", ratio, required == nullptr ? 0 : required->memory);
    std::printf("\n");
  }
}

void print_ratio(const char* work, const Contest& contest, Figures& figures) {
  const std::vector<Round>& rounds = contest.rounds();
  std::printf("%-6s %6zu: floor %8.1f ms, host %8.1f ms;", work, contest.interfaces(),
              median_of([&](std::size_t round) { return rounds[round].floor; }) * 1e3,
              median_of([&](std::size_t round) { return rounds[round].host; }) * 1e3);
  const Requirement* required = find_requirement(work, contest.interfaces());
  figures.print("host/floor", median_of([&](std::size_t round) { return rounds[round].host / rounds[round].floor; }),
                required == nullptr ? 0 : required->time);
  std::printf("\n");
}

void print_growth(const char* work, const Contest& small, const Contest& large, Figures& figures) {
  const auto growth = [&](double Round::*side) {
    return median_of([&](std::size_t round) { return large.rounds()[round].*side / (small.rounds()[round].*side); });
  };
  std::printf("%-6s %6zu against %zu:", work, large.interfaces(), small.interfaces());
  const double floor = growth(&Round::floor);
  const double more = static_cast<double>(large.interfaces()) / static_cast<double>(small.interfaces());
  figures.print("floor", floor, 0);
  figures.print("times the time, host", growth(&Round::host), kMostGrowth * std::max(more, floor));
  std::printf("\n");
}

void measure_work(const char* work, std::size_t most, Figures& figures) {
  std::vector<std::unique_ptr<Contest>> contests;
  for (const std::size_t size : kSizes) {
    if (size <= most) contests.push_back(std::make_unique<Contest>(work, size));
  }
  for (std::size_t round = 0; round < kRounds; ++round) {
    for (const std::unique_ptr<Contest>& contest : contests) contest->run();
  }
  for (const std::unique_ptr<Contest>& contest : contests) print_ratio(work, *contest, figures);
  for (std::size_t index = 1; index < contests.size(); ++index) {
    print_growth(work, *contests[index - 1], *contests[index], figures);
  }
  std::fflush(stdout);
}

void print_load(const char* when) {
  double load = 0;
  if (getloadavg(&load, 1) == 1) std::printf("load of the machine %s: %.1f\n", when, load);
}

void measure_modules(std::size_t most) {
  for (const std::size_t size : kSizes) {
    if (size > most) continue;
    std::printf("the module alone, %zu interfaces: create %.2f ms, delete %.2f ms\n", size,
                measure_module(CountedModule::Request::kCreate, size) * 1e3,
                measure_module(CountedModule::Request::kDelete, size) * 1e3);
  }
}

}  // namespace
}  // namespace bench

// oclacp_bench [INTERFACES [SLACK]]: up to so many interfaces, 10000 without it. Ends with 1 when a figure is more than
// SLACK times what is required of it; 1 without it.
int main(int argc, char** argv) {
  if (argc > 1 && argv[1][0] == '-') {
    return bench::run_process(argv[1], argv[2], argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 0);
  }
  const std::size_t most = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : bench::kSizes.back();
  bench::Figures figures(argc > 2 ? std::strtod(argv[2], nullptr) : 1);
  bench::print_load("before");
  bench::measure_all_memory(most, figures);  // before this process takes some itself
  for (const char* work : bench::kWorks) {
    bench::measure_work(work, most, figures);
  }
  bench::measure_modules(most);
  bench::print_load("afterwards");
  return figures.are_held() ? 0 : 1;
}
