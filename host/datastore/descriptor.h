// A file descriptor with an owner.
#pragma once

#include <unistd.h>

namespace oclacp::host {

class Descriptor {
 public:
  // Takes what open() answered, a failure too.
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (is_open()) {
      close(number_);
    }
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;

  [[nodiscard]] bool is_open() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

}  // namespace oclacp::host
