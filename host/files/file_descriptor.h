// A file descriptor with an owner.
#pragma once

#include <unistd.h>

namespace oclacp::host {

class FileDescriptor {
 public:
  // Takes what open() answered, a failure too.
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor() {
    if (is_open()) {
      close(number_);
    }
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  FileDescriptor(FileDescriptor&&) = delete;
  FileDescriptor& operator=(FileDescriptor&&) = delete;

  [[nodiscard]] bool is_open() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

}  // namespace oclacp::host
