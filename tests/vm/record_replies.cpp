// Records what the kernel answers to a read of the links: record_replies FOLDER
//
// A read goes through a relay between it and the kernel, which writes the answers to FOLDER/links and
// FOLDER/statistics: netlink messages one behind the other, as they came. The kernel's texts about bonds are copied to
// FOLDER/bonding.
#include <linux/rtnetlink.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "host/base/error.h"
#include "host/devices/linux/link_snapshot.h"

namespace {

namespace fs = std::filesystem;

class Relay {
 public:
  explicit Relay(fs::path folder) : folder_(std::move(folder)), kernel_(socket(AF_NETLINK, SOCK_RAW, NETLINK_ROUTE)) {
    if (kernel_ < 0 || socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends_.data()) != 0) {
      throw oclacp::host::Error(oclacp::host::ErrorKind::kOperationFailed, "no sockets");
    }
    thread_ = std::thread([this] { run(); });
  }
  // The other end has been closed by then.
  ~Relay() {
    thread_.join();
    close(kernel_);
    close(ends_[1]);
  }
  Relay(const Relay&) = delete;
  Relay& operator=(const Relay&) = delete;
  Relay(Relay&&) = delete;
  Relay& operator=(Relay&&) = delete;

  [[nodiscard]] int reader_end() const { return ends_[0]; }

 private:
  void run() {
    std::array<pollfd, 2> descriptors = {{{kernel_, POLLIN, 0}, {ends_[1], POLLIN, 0}}};
    while (poll(descriptors.data(), descriptors.size(), -1) > 0) {
      if ((descriptors[0].revents & POLLIN) != 0) {
        const ssize_t size = recv(kernel_, buffer_.data(), buffer_.size(), 0);
        std::ofstream(folder_ / file_, std::ios::app | std::ios::binary).write(buffer_.data(), size);
        send(ends_[1], buffer_.data(), static_cast<size_t>(size), 0);
      } else {
        const ssize_t size = recv(ends_[1], buffer_.data(), buffer_.size(), 0);
        if (size <= 0) {
          return;
        }
        file_ = reinterpret_cast<const nlmsghdr*>(buffer_.data())->nlmsg_type == RTM_GETLINK ? "links" : "statistics";
        fs::remove(folder_ / file_);  // What an earlier try recorded.
        send(kernel_, buffer_.data(), static_cast<size_t>(size), 0);
      }
    }
  }

  fs::path folder_;
  const char* file_ = "links";
  int kernel_;
  std::array<int, 2> ends_{};
  alignas(nlmsghdr) std::array<char, 65536> buffer_{};
  std::thread thread_;
};

void record(const fs::path& folder) {
  fs::create_directories(folder / "bonding");
  Relay relay(folder);
  oclacp::host::NetlinkSocket socket(relay.reader_end());
  for (const oclacp::host::Link& link : oclacp::host::read_links(socket).links) {
    if (link.is_lacp_bond()) {
      std::ifstream text(std::string(oclacp::host::kBondingTexts) + "/" + link.name);
      std::ofstream(folder / "bonding" / link.name) << text.rdbuf();
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: record_replies FOLDER\n", stderr);
    return 2;
  }
  try {
    record(argv[1]);
  } catch (const oclacp::host::Error& error) {
    std::fprintf(stderr, "record_replies: %s\n", error.what());
    return 1;
  }
  return 0;
}
