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
#include <map>
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
constexpr int kRounds = 5;
constexpr std::array kWorks = {"state", "one", "config", "create", "delete"};

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
// Ten times the interfaces take ten times the time, within this.
constexpr double kMostGrowth = 11.5;

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
  if (work == "create" || work == "delete") {
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
        request_(work_ == "create"   ? create_request(interfaces)
                 : work_ == "delete" ? delete_request()
                                     : ""),
        translator_({.shipped = OCLACP_SCHEMAS, .published = ""}, OCLACP_MODULE),
        openconfig_(new_context({"openconfig-lacp", "ietf-netconf"})),
        native_(new_context({"ietf-netconf", "Talvo-Brin-QD-ifmgr-cfg", "Talvo-Brin-QD-bundlemgr-cfg",
                             "Talvo-Brin-QD-bundlemgr-oper", "oclacp-platform"})) {}

  // Everything from the files to the printed result.
  void run_host() {
    const std::shared_ptr<const host::DeviceSnapshot> device = snapshot();
    if (is_edit()) {
      const std::string text = translator_.translate_edit(request_, *device, {}).text;
      std::fwrite(text.data(), 1, text.size(), nowhere_.get());
    } else {
      host::write_answer(nowhere_.get(), translator_.get(*device, {path()}, {.content = content()}).data, LYD_JSON);
    }
  }

  // What the floor prints.
  [[nodiscard]] std::string result() {
    const std::shared_ptr<const host::DeviceSnapshot> device = snapshot();
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
    require(lyd_print_file(nowhere_.get(), result_.get(), LYD_JSON, LYD_PRINT_WITHSIBLINGS) == LY_SUCCESS,
            "libyang does not print");
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

struct Times {
  double floor = 0;
  double host = 0;
};

// Small work is done several times, to be longer than the clock's steps.
Times measure_times(const std::string& work, std::size_t interfaces) {
  const DeviceFolder folder(work, interfaces);
  Subject subject(work, folder.path(), interfaces);
  subject.keep_result(subject.result());
  const std::size_t repeats = std::max<std::size_t>(1, 2000 / interfaces);
  const auto repeated = [repeats](const auto& run) {
    return time_of([&] {
             for (std::size_t count = 0; count < repeats; ++count) run();
           }) /
           static_cast<double>(repeats);
  };
  std::vector<double> floor;
  std::vector<double> host;
  for (int round = 0; round < kRounds; ++round) {
    floor.push_back(repeated([&] { subject.run_floor(); }));
    host.push_back(repeated([&] { subject.run_host(); }));
  }
  return {median(floor), median(host)};
}

// Walks of the module alone, over a platform that only counts.
double measure_module(CountedModule::Request request, std::size_t interfaces) {
  CountedModule counted(request, interfaces);
  std::vector<double> times;
  times.reserve(kRounds);
  for (int round = 0; round < kRounds; ++round) {
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

// Prints one figure beside what is required of it, if something is.
void print_figure(const char* what, double value, double most) {
  std::printf(" %s %.2f", what, value);
  if (most != 0) std::printf(" (required %.2f: %s)", most, value <= most ? "held" : "MISSED");
}

const Requirement* find_requirement(const std::string& work, std::size_t size) {
  const auto* const found = std::find_if(kRequirements.begin(), kRequirements.end(),
                                         [&](const Requirement& one) { return work == one.work && size == one.size; });
  return found == kRequirements.end() ? nullptr : found;
}

void measure_all_memory(std::size_t most) {
  for (const std::size_t size : kSizes) {
    if (size > most) continue;
    const double ratio = measure_memory(size);
    const Requirement* required = find_requirement("state", size);
    print_figure(" host/floor", ratio, required == nullptr ? 0 : required->memory);
    std::printf("\n");
  }
}

void measure_work(const char* work, std::size_t most) {
  std::map<std::size_t, Times> times;
  for (const std::size_t size : kSizes) {
    if (size > most) continue;
    times[size] = measure_times(work, size);
    const Requirement* required = find_requirement(work, size);
    std::printf("%-6s %6zu: floor %8.1f ms, host %8.1f ms;", work, size, times[size].floor * 1e3,
                times[size].host * 1e3);
    print_figure("host/floor", times[size].host / times[size].floor, required == nullptr ? 0 : required->time);
    std::printf("\n");
    std::fflush(stdout);
  }
  if (times.count(kSizes[2]) != 0) {
    std::printf("%-6s %zu against %zu:", work, kSizes[2], kSizes[1]);
    print_figure("floor", times[kSizes[2]].floor / times[kSizes[1]].floor, 0);
    print_figure("times the time, host", times[kSizes[2]].host / times[kSizes[1]].host, kMostGrowth);
    std::printf("\n");
  }
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

// oclacp_bench [INTERFACES]: up to so many interfaces, 10000 without it.
int main(int argc, char** argv) {
  if (argc > 2) {
    return bench::run_process(argv[1], argv[2], argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 0);
  }
  const std::size_t most = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : bench::kSizes.back();
  bench::measure_all_memory(most);  // before this process takes some itself
  for (const char* work : bench::kWorks) {
    bench::measure_work(work, most);
  }
  bench::measure_modules(most);
  return 0;
}
