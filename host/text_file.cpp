#include "host/text_file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "host/refusal.h"

namespace oclacp::host {
namespace {

[[noreturn]] void refuse(const std::string& file) {
  throw Refusal(file + ": " + std::strerror(errno));
}

}  // namespace

std::string read_text_file(const std::string& file, std::size_t limit) {
  const auto close = [](FILE* stream) {
    if (stream != stdin) {
      static_cast<void>(std::fclose(stream));
    }
  };
  const std::unique_ptr<FILE, decltype(close)> stream(file == "-" ? stdin : std::fopen(file.c_str(), "rb"), close);
  if (stream == nullptr) {
    refuse(file);
  }
  std::string text;
  std::array<char, 1 << 16> buffer{};
  while (text.size() <= limit) {
    const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stream.get());
    if (count == 0) {
      break;
    }
    text.append(buffer.data(), count);
  }
  if (std::ferror(stream.get()) != 0) {
    refuse(file);
  }
  return text;
}

}  // namespace oclacp::host
