// The mapping module over a platform that only counts: what the module costs by itself.
#pragma once

#include <cstddef>
#include <memory>

namespace bench {

class __attribute__((visibility("default"))) CountedModule {
 public:
  enum class Request {
    kCreate,  // every configuration leaf of each interface
    kDelete,  // /lacp, on a device on which each interface has LACP
  };

  CountedModule(Request request, std::size_t interfaces);
  ~CountedModule();
  CountedModule(const CountedModule&) = delete;
  CountedModule& operator=(const CountedModule&) = delete;

  // Walks the request once. Ends the process when the module refuses it.
  void walk();

  // What the last walk asked of the platform, and how many nodes it added to the output.
  [[nodiscard]] std::size_t calls() const;
  [[nodiscard]] std::size_t additions() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace bench
