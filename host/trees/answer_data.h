// OpenConfig data that a module made of native data, in little memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "host/base/export.h"
#include "host/yang/node_shapes.h"
#include "host/yang/value_check.h"

namespace oclacp::host {

// Texts one after the other, each found by a number. Those that fit stand in one chunk with others.
class TextStore {
 public:
  static constexpr size_t kChunkBytes = size_t{1} << 16;

  // Keeps a copy with a terminator. Throws Error when all numbers are used up, at 4 GiB.
  uint32_t add(std::string_view text);

  [[nodiscard]] const char* at(uint32_t number) const { return chunks_[number / kChunkBytes] + number % kChunkBytes; }

  // How much is used, and giving back what was added since.
  [[nodiscard]] uint64_t end() const { return end_; }
  void roll_back(uint64_t end);

 private:
  void add_chunks(size_t bytes);

  std::vector<std::unique_ptr<char[]>> owned_;  // null where a longer text goes on
  std::vector<char*> chunks_;
  uint64_t end_ = 0;
};

class AnswerNode;

// A tree of containers, list entries and leaves. The entries of a list, or of a leaf-list, hang below a node of their
// own, its group, so that a node has no more children than its schema.
class OCLACP_HOST_API AnswerData {
 public:
  // A node's number. kRoot is above the top nodes and stands for none where there may be none.
  using Index = uint32_t;
  static constexpr Index kRoot = 0;

  // Nothing, for good.
  AnswerData() { make(0, 0); }
  // Nothing yet. `shapes` outlives this.
  explicit AnswerData(NodeShapes& shapes) : shapes_(&shapes) { make(0, 0); }

  [[nodiscard]] NodeShapes& shapes() const { return *shapes_; }

  [[nodiscard]] bool is_empty() const { return first(kRoot) == kRoot; }

  // The first of the top nodes; none when there are none.
  [[nodiscard]] AnswerNode top() const;

  // The nodes as they are kept: what the files that build, cut and write an answer work with.
  [[nodiscard]] size_t size() const { return size_; }
  [[nodiscard]] const NodeShape& shape(Index node) const { return shapes_->at(shape_number(node)); }
  [[nodiscard]] Index next(Index node) const { return at(node).next; }
  // The first node below a container, group or entry.
  [[nodiscard]] Index first(Index node) const { return at(node).first; }
  [[nodiscard]] Index last(Index node) const { return at(node).last; }
  [[nodiscard]] bool is_group(Index node) const { return (kind(node) & kGroup) != 0; }
  [[nodiscard]] bool is_leaf(Index node) const { return shape(node).is_leaf && !is_group(node); }
  // Of a leaf.
  [[nodiscard]] CheckedValue value(Index leaf) const;

  // The only child of `above` with this shape, or a new one in its place. For a list: its group.
  Index find_or_add(Index above, const NodeShape& shape);
  [[nodiscard]] Index find(Index above, const NodeShape& shape) const;
  // A new node after the last of a group.
  Index append(Index group);
  // What a leaf holds: texts of the store.
  struct StoredValue {
    ValueForm form = ValueForm::kText;
    uint32_t text = 0;
    uint32_t size = 0;
  };
  StoredValue keep(const CheckedValue& value);
  [[nodiscard]] std::string_view text(const StoredValue& value) const { return {texts_.at(value.text), value.size}; }
  void set_value(Index leaf, const StoredValue& value);
  [[nodiscard]] StoredValue stored_value(Index leaf) const {
    return {static_cast<ValueForm>(kind(leaf)), at(leaf).first, at(leaf).last};
  }

  [[nodiscard]] TextStore& texts() { return texts_; }

  // Takes away the children of a node of which `is_kept` does not say so.
  template <typename IsKept>
  void keep_children(Index above, const IsKept& is_kept) {
    Index kept = kRoot;
    Index following = kRoot;
    for (Index child = first(above); child != kRoot; child = following) {
      following = next(child);
      if (is_kept(child)) {
        (kept == kRoot ? at(above).first : at(kept).next) = child;
        kept = child;
      }
    }
    (kept == kRoot ? at(above).first : at(kept).next) = kRoot;
    at(above).last = kept;
  }

 private:
  static constexpr unsigned kKindShift = 24;
  static constexpr uint32_t kMostShapes = (uint32_t{1} << kKindShift) - 1;
  static constexpr uint32_t kGroup = 0x80;
  static constexpr size_t kNodesInChunk = 4096;

  struct Node {
    Index next;
    uint32_t first;           // of a leaf: its text
    uint32_t last;            // of a leaf: its text's length
    uint32_t shape_and_kind;  // the shape's number; in the highest byte kGroup, or the ValueForm of a leaf
  };
  static_assert(sizeof(Node) == 16);

  [[nodiscard]] const Node& at(Index node) const { return chunks_[node / kNodesInChunk][node % kNodesInChunk]; }
  [[nodiscard]] Node& at(Index node) { return chunks_[node / kNodesInChunk][node % kNodesInChunk]; }
  [[nodiscard]] uint32_t shape_number(Index node) const { return at(node).shape_and_kind & kMostShapes; }
  [[nodiscard]] uint32_t kind(Index node) const { return at(node).shape_and_kind >> kKindShift; }
  Index make(uint32_t shape, uint32_t kind);
  [[nodiscard]] bool stands_before(const NodeShape& one, const NodeShape& other) const;

  NodeShapes* shapes_ = nullptr;
  std::vector<std::unique_ptr<Node[]>> chunks_;
  size_t size_ = 0;
  TextStore texts_;
};

// A node of an answer as libyang has it: the entries of a list stand beside the other children. Lives no longer than
// the answer.
class OCLACP_HOST_API AnswerNode {
 public:
  AnswerNode() = default;

  explicit operator bool() const { return node_ != AnswerData::kRoot; }
  bool operator==(const AnswerNode&) const = default;

  // Of a node that there is.
  [[nodiscard]] const lysc_node* schema() const { return data_->shape(node_).schema; }
  // Of a leaf, in canonical form and with a terminator after it.
  [[nodiscard]] std::string_view value() const { return data_->value(node_).text; }

  // Of none: none.
  [[nodiscard]] AnswerNode first_child() const;
  [[nodiscard]] AnswerNode next() const;
  // The first child with a name.
  [[nodiscard]] AnswerNode child(std::string_view name) const;

 private:
  friend class AnswerData;
  AnswerNode(const AnswerData* data, AnswerData::Index node);

  const AnswerData* data_ = nullptr;
  AnswerData::Index group_ = AnswerData::kRoot;  // that the node is in
  AnswerData::Index node_ = AnswerData::kRoot;
};

}  // namespace oclacp::host
