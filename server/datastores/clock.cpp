#include "server/datastores/clock.h"

#include <array>
#include <ctime>
#include <fstream>

namespace oclacp::server {

std::string Clock::boot_id() const {
  std::string id;
  std::ifstream file("/proc/sys/kernel/random/boot_id");
  std::getline(file, id);
  return id;
}

std::string to_text(Clock::Wall time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::array<char, sizeof("-2147483648-01-01T00:00:00Z")> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

}  // namespace oclacp::server
