#include "host/yang/libyang_ptr.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

// The part of `where` in quotes behind `label`; empty when there is none.
std::string_view quoted_after(std::string_view where, std::string_view label) {
  const size_t found = where.find(label);
  if (found == std::string_view::npos) {
    return {};
  }
  const size_t begin = found + label.size();
  return where.substr(begin, where.find('"', begin) - begin);
}

// libyang's own text buffer is reallocated and its parts are allocated with every few bytes; this one grows in steps.
class MemoryStream {
 public:
  MemoryStream() : stream_(open_memstream(&text_, &size_)) {
    if (stream_ == nullptr) {
      throw std::bad_alloc();
    }
  }
  ~MemoryStream() {
    static_cast<void>(std::fclose(stream_));
    std::free(text_);
  }
  MemoryStream(const MemoryStream&) = delete;
  MemoryStream& operator=(const MemoryStream&) = delete;
  MemoryStream(MemoryStream&&) = delete;
  MemoryStream& operator=(MemoryStream&&) = delete;

  [[nodiscard]] std::FILE* get() const { return stream_; }
  // What was flushed.
  [[nodiscard]] std::string text() const { return {text_, size_}; }

 private:
  char* text_ = nullptr;
  size_t size_ = 0;
  std::FILE* stream_;
};

}  // namespace

const lyd_node* child_named(const lyd_node* above, std::string_view name) {
  const lyd_node* child = lyd_child(above);
  while (child != nullptr && (child->schema == nullptr || name != child->schema->name)) {
    child = child->next;
  }
  return child;
}

std::string last_reason(const ly_ctx* context) {
  const char* message = ly_errmsg(context);
  std::string reason = message == nullptr ? "unusable" : message;
  if (reason.ends_with('.')) {
    reason.pop_back();
  }
  return reason;
}

std::string last_complaint(const ly_ctx* context, const std::string& what) {
  const char* place = ly_errpath(context);
  const std::string_view where = place == nullptr ? "" : place;
  // libyang's place is "Schema location "/a:b", data location "/a:b", line number 3." with any part missing.
  std::string_view node = quoted_after(where, "ata location \"");
  if (node.empty()) {
    node = quoted_after(where, "chema location \"");
  }
  constexpr std::string_view kLine = "ine number ";
  const size_t line = where.find(kLine);
  std::string sentence = node.empty() ? what : std::string(node);
  if (line != std::string_view::npos) {
    const size_t begin = line + kLine.size();
    sentence += " (line " + std::string(where.substr(begin, where.find('.', begin) - begin)) + ")";
  }
  return sentence + ": " + last_reason(context);
}

void write_tree(std::FILE* stream, const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format) {
  const LY_ERR status = lyd_print_file(stream, tree, format, LYD_PRINT_WITHSIBLINGS);
  if (std::fflush(stream) != 0 || std::ferror(stream) != 0) {
    throw Error(std::string("the result cannot be written: ") + std::strerror(errno));
  }
  if (status != LY_SUCCESS) {
    throw Error(last_complaint(context, "the result"));
  }
}

std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format) {
  MemoryStream stream;
  write_tree(stream.get(), context, tree, format);
  return stream.text();
}

}  // namespace oclacp::host
