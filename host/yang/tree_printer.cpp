#include "host/yang/tree_printer.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

#include "host/base/error.h"
#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

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

void write_tree(std::FILE* stream, const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format) {
  const LY_ERR status = lyd_print_file(stream, tree, format, LYD_PRINT_WITHSIBLINGS);
  if (std::fflush(stream) != 0 || std::ferror(stream) != 0) {
    throw Error(system_error_kind(errno), std::string("the result cannot be written: ") + std::strerror(errno));
  }
  if (status != LY_SUCCESS) {
    throw libyang_error(context, "the result");
  }
}

std::string print_tree(const ly_ctx* context, const lyd_node* tree, LYD_FORMAT format) {
  MemoryStream stream;
  write_tree(stream.get(), context, tree, format);
  return stream.text();
}

}  // namespace oclacp::host
