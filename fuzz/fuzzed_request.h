// From bytes to a request and the device that it meets. Every byte string is a request, and each byte decides one
// thing, so that a small change of the bytes is a small change of the request.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <vector>

#include "model.h"
#include "support/platform.h"
#include "yfw/datatree.h"

namespace fuzz {

// What is left of the input. An exhausted input gives zeros.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  std::uint8_t take();

  // One of the entries of a table.
  template <typename T>
  const T& pick(std::span<const T> table) {
    return table[take() % table.size()];
  }

  [[nodiscard]] bool exhausted() const { return rest_.empty(); }

 private:
  std::span<const std::uint8_t> rest_;
};

// A data tree as a framework may hand it over, or might by mistake: nodes without tag, subtrees that are announced and
// not there, stray flags and operations. Only the memory is always sound: a child count never exceeds the array.
class FuzzedTree {
 public:
  FuzzedTree(const Model& model, Bytes& bytes);
  FuzzedTree(const FuzzedTree&) = delete;
  FuzzedTree& operator=(const FuzzedTree&) = delete;

  yfw_datatree* root() { return &root_; }

  // A node whose operation, children or flag that announces them are not as they were at first; null when there is
  // none. A node that deletes may be left with the working operation, or with none.
  [[nodiscard]] const yfw_datatree* disturbed() const;

 private:
  struct Found {
    const yfw_datatree* node;
    yfw_datatree as_built;
    bool deletes;
  };

  void fill(yfw_datatree& node, yfw_datatree* parent, Bytes& bytes, unsigned depth);

  const Model& model_;
  yfw_datatree root_{};
  std::deque<std::vector<yfw_datatree>> arrays_;
  std::vector<Found> nodes_;
};

// Gives the platform a request operation, a device, and perhaps a call that fails.
void set_up(support::Platform& platform, Bytes& bytes);

}  // namespace fuzz
