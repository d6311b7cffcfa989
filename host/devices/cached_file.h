// What was made of a file, kept as long as the file stays the same.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "host/files/file_version.h"
#include "host/files/read_file.h"

namespace oclacp::host {

template <typename Content>
class CachedFile {
 public:
  using Parse = std::function<std::shared_ptr<const Content>(const std::string& text)>;

  explicit CachedFile(std::string file) : file_(std::move(file)) {}

  [[nodiscard]] const std::string& file() const { return file_; }

  // What `parse` makes of the file as it is now. The file is read only when it was touched, and parsed only when its
  // text is another one. Throws Error.
  std::shared_ptr<const Content> get(const Parse& parse) {
    const std::optional<FileVersion> now = file_version(file_);
    if (content_ != nullptr && now && version_ && now->is_unchanged_since(*version_)) {
      return content_;
    }
    const std::string text = read_regular_file(file_);
    if (const size_t hash = hash_of(text); content_ == nullptr || hash != hash_) {
      content_ = parse(text);
      hash_ = hash;
    }
    version_ = now;
    return content_;
  }

  // Takes what a text that was just written to the file says.
  void set(std::shared_ptr<const Content> content, std::string_view text, const std::optional<FileVersion>& version) {
    content_ = std::move(content);
    hash_ = hash_of(text);
    version_ = version;
  }

 private:
  static size_t hash_of(std::string_view text) { return std::hash<std::string_view>()(text); }

  std::string file_;
  std::shared_ptr<const Content> content_;  // null before the first time
  size_t hash_ = 0;                         // of the text
  std::optional<FileVersion> version_;      // nothing when it could not be told
};

}  // namespace oclacp::host
