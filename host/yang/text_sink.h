// Where documents are written to: a buffer in front of a file or a text.
#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

namespace oclacp::host {

class TextSink {
 public:
  TextSink() = default;
  virtual ~TextSink() = default;
  TextSink(const TextSink&) = delete;
  TextSink& operator=(const TextSink&) = delete;
  TextSink(TextSink&&) = delete;
  TextSink& operator=(TextSink&&) = delete;

  void put(char character) {
    if (used_ == buffer_.size()) {
      empty_buffer();
    }
    buffer_[used_++] = character;
  }

  void put(std::string_view text) {
    if (text.size() > buffer_.size() - used_) {
      put_long(text);
      return;
    }
    text.copy(buffer_.data() + used_, text.size());
    used_ += text.size();
  }

  // Two blanks for each level.
  void indent(unsigned level);

  // A text as the inside of a JSON string, and as the content of an XML element: escaped as libyang does.
  void put_json(std::string_view text);
  void put_xml(std::string_view text);

  // Hands on what is in the buffer. Called at the end; throws Error when something could not be written.
  void flush() { empty_buffer(); }

 private:
  // Takes some text. Throws Error when it cannot be written.
  virtual void write(std::string_view text) = 0;

  void empty_buffer();
  void put_long(std::string_view text);
  template <typename Escape>
  void put_escaped(std::string_view text, const Escape& escape);

  std::array<char, 1 << 16> buffer_;
  size_t used_ = 0;
};

// Writes to an open file; flush() flushes it too.
class FileSink final : public TextSink {
 public:
  // `file` outlives this.
  explicit FileSink(std::FILE* file) : file_(file) {}

 private:
  void write(std::string_view text) override;

  std::FILE* file_;
};

// Writes after the end of a text.
class StringSink final : public TextSink {
 public:
  // `text` outlives this.
  explicit StringSink(std::string& text) : text_(text) {}

 private:
  void write(std::string_view text) override { text_.append(text); }

  std::string& text_;
};

}  // namespace oclacp::host
