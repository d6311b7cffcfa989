#include "host/present/trace_tree.h"

#include <algorithm>
#include <string_view>

namespace oclacp::host {
namespace {

// The parts of "#7: TRC: handler:42 ctx=0x1234,Start".
struct Record {
  std::string_view level;
  std::string_view handler;
  std::string_view text;
};

std::string_view cut_before(std::string_view& rest, std::string_view separator) {
  const size_t end = rest.find(separator);
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + separator.size());
  return part;
}

Record parse(std::string_view record) {
  Record parts;
  cut_before(record, ": ");
  parts.level = cut_before(record, ": ");
  parts.handler = cut_before(record, ":");
  cut_before(record, ",");
  parts.text = record;
  return parts;
}

std::string trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

class Drawing {
 public:
  void add(const Record& record) {
    if (record.text == "Start") {
      // No handler runs inside itself.
      close(record.handler);
      lines_.push_back(std::string(2 * open_.size(), ' ') + std::string(record.handler));
      open_.push_back(record.handler);
    } else if (record.text == "End") {
      close(record.handler);
    } else {
      close_inside(record.handler);
      lines_.push_back(std::string(2 * open_.size(), ' ') + (record.level == "ERR" ? "! " : "- ") +
                       trimmed(record.text));
    }
  }

  std::vector<std::string> take() { return std::move(lines_); }

 private:
  // Ends the handler and what is still open inside of it, if it is open.
  void close(std::string_view handler) {
    const auto found = std::find(open_.begin(), open_.end(), handler);
    open_.erase(found, open_.end());
  }

  // Ends what is still open inside of the handler.
  void close_inside(std::string_view handler) {
    const auto found = std::find(open_.begin(), open_.end(), handler);
    if (found != open_.end()) {
      open_.erase(found + 1, open_.end());
    }
  }

  std::vector<std::string_view> open_;
  std::vector<std::string> lines_;
};

}  // namespace

std::vector<std::string> draw_trace(const std::vector<std::string>& records) {
  Drawing drawing;
  for (const std::string& record : records) {
    drawing.add(parse(record));
  }
  return drawing.take();
}

}  // namespace oclacp::host
