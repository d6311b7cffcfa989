// Measures a read of the bonds of a Linux kernel beside the parsing of the kernel's answers alone, over answers that a
// kernel with 64 bonds of two ports each gave: oclacp_bonds_bench. Processor time of the reading thread, medians of
// several rounds in turns.
#include <linux/rtnetlink.h>
#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/base/error.h"
#include "host/devices/device.h"
#include "host/devices/linux/native_bonds.h"
#include "host/files/read_file.h"
#include "host/present/answer_writer.h"
#include "host/translation/translator.h"
#include "tests/support/locations.h"
#include "tests/unit/host/devices/linux/replayed_links.h"

namespace bench {
namespace {

namespace host = oclacp::host;

constexpr const char* kRecording = "many";
constexpr size_t kBonds = 64;
constexpr size_t kPorts = 128;
constexpr int kRounds = 9;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

// What was read of the links once.
class BondsSnapshot final : public host::DeviceSnapshot {
 public:
  BondsSnapshot(const ly_ctx* native, const host::LinkSnapshot& links)
      : interfaces_(host::list_interfaces(links)),
        running_(host::make_running(native, links)),
        operational_(host::make_operational(native, links)) {}

  [[nodiscard]] uint32_t router_type() const override { return 8; }
  [[nodiscard]] const std::vector<host::Interface>& interfaces() const override { return interfaces_; }
  [[nodiscard]] const lyd_node* running() const override { return running_.get(); }
  [[nodiscard]] const lyd_node* operational() const override { return operational_.get(); }

 private:
  std::vector<host::Interface> interfaces_;
  host::TreePtr running_;
  host::TreePtr operational_;
};

// The answers as they are before anybody parses them.
struct Replies {
  std::vector<host::Datagram> links;
  std::vector<host::Datagram> statistics;
  std::vector<std::string> texts;  // about bonds
};

Replies load_replies() {
  Replies replies;
  const std::string folder = kRecording;
  replies.links = host::messages_of(host::recorded(folder + "/links"));
  replies.statistics = host::messages_of(host::recorded(folder + "/statistics"));
  for (const auto& file : std::filesystem::directory_iterator(host::bonding_folder(folder))) {
    replies.texts.push_back(host::read_text_file(file.path().string()));
  }
  require(replies.texts.size() == kBonds, "the recording is not of as many bonds as it should be");
  return replies;
}

// The floor: the messages and texts become structures, and nothing is done with these.
void parse_replies(const Replies& replies) {
  size_t bonds = 0;
  size_t ports = 0;
  for (const host::Datagram& datagram : replies.links) {
    if (const std::optional<host::Link> link = host::parse_link(host::header_of(datagram))) {
      bonds += link->is_lacp_bond() ? 1 : 0;
      ports += link->bond_port ? 1 : 0;
    }
  }
  size_t statistics = 0;
  for (const host::Datagram& datagram : replies.statistics) {
    statistics += host::parse_lacp_statistics(host::header_of(datagram)) ? 1 : 0;
  }
  size_t ends = 0;
  for (const std::string& text : replies.texts) {
    ends += host::parse_bonding_text(text).ports.size();
  }
  require(bonds == kBonds && ports == kPorts && statistics == kPorts && ends == kPorts,
          "the recording is not of as many ports as it should be");
}

// Milliseconds of the calling thread. The other end of the socket is another thread, as the kernel is another's time.
double thread_milliseconds(const std::function<void()>& work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  };
  const double begin = now();
  work();
  return now() - begin;
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void run() {
  host::Translator translator({.shipped = location::kSchemas, .published = ""}, location::kModule);
  const Replies replies = load_replies();
  std::vector<double> parsing;
  std::vector<double> links;
  std::vector<double> answer;
  size_t bytes = 0;
  for (int round = 0; round < kRounds; ++round) {
    parsing.push_back(thread_milliseconds([&] { parse_replies(replies); }));
    host::LinkSnapshot snapshot;
    links.push_back(thread_milliseconds([&] { snapshot = host::replayed_links(kRecording); }));
    answer.push_back(thread_milliseconds([&] {
      const BondsSnapshot device(translator.native_context(), snapshot);
      bytes =
          host::print_answer(translator.get(device, {"/lacp"}, {.content = host::Content::kAll}).data, LYD_JSON).size();
    }));
  }
  const double floor = median(parsing);
  std::printf("64 bonds with 2 ports each, milliseconds of the processor, medians of %d\n\n", kRounds);
  std::printf("%-44s %8.2f\n", "parsing of the kernel's answers alone", floor);
  std::printf("%-44s %8.2f  %5.1f times the parsing\n", "a read of the links, answers received", median(links),
              median(links) / floor);
  std::printf("%-44s %8.2f  %5.1f times the parsing\n", "native data, translation, the answer in JSON", median(answer),
              median(answer) / floor);
  std::printf("%-44s %8.2f  %5.1f times the parsing\n", "all of a read", median(links) + median(answer),
              (median(links) + median(answer)) / floor);
  std::printf("\nthe answer has %zu bytes\n", bytes);
}

}  // namespace
}  // namespace bench

int main() {
  try {
    bench::run();
  } catch (const oclacp::host::Error& error) {
    std::fprintf(stderr, "oclacp_bonds_bench: %s\n", error.what());
    return 1;
  }
  return 0;
}
