#include "host/devices/linux/bonding_text.h"

#include <charconv>
#include <system_error>

namespace oclacp::host {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr const char* kBlanks = " \t\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<std::uint16_t> parse_number(std::string_view text) {
  std::uint16_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

class Parser {
 public:
  void read_line(std::string_view line) {
    const std::size_t colon = line.find(": ");
    const std::string_view label = trimmed(line.substr(0, colon));
    const std::string_view value =
        colon == std::string_view::npos ? std::string_view() : trimmed(line.substr(colon + 2));
    // Only what belongs to one end is indented by blanks.
    if (line.starts_with(' ')) {
      read_detail(label, value);
      return;
    }
    end_ = nullptr;
    if (label == "Slave Interface") {
      text_.ports.push_back({std::string(value), {}, {}});
    } else if (label == "System priority") {
      text_.system_priority = parse_number(value);
    } else if (label == "System MAC address") {
      text_.system = parse_mac_address(value);
    } else if (label == "details actor lacp pdu:" && !text_.ports.empty()) {
      end_ = &text_.ports.back().actor;
    } else if (label == "details partner lacp pdu:" && !text_.ports.empty()) {
      end_ = &text_.ports.back().partner;
    }
  }

  BondingText take() { return std::move(text_); }

 private:
  void read_detail(std::string_view label, std::string_view value) {
    if (end_ == nullptr) {
      return;
    }
    if (label == "system mac address") {
      end_->system = parse_mac_address(value);
    } else if (label == "port key" || label == "oper key") {  // the actor's and the partner's
      end_->key = parse_number(value);
    } else if (label == "port number") {
      end_->port_number = parse_number(value);
    }
  }

  BondingText text_;
  LacpEnd* end_ = nullptr;  // whose details are being read
};

}  // namespace

BondingText parse_bonding_text(std::string_view text) {
  Parser parser;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    parser.read_line(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return parser.take();
}

}  // namespace oclacp::host
