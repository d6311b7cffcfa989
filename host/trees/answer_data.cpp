#include "host/trees/answer_data.h"

#include <cstring>
#include <limits>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

[[noreturn]] void refuse_size() {
  throw Error(ErrorKind::kTooBig, "the answer is larger than 4 GiB");
}

}  // namespace

uint32_t TextStore::add(std::string_view text) {
  const size_t bytes = text.size() + 1;
  if (chunks_.size() * kChunkBytes - end_ < bytes) {
    add_chunks(bytes);
  }
  const auto number = static_cast<uint32_t>(end_);
  char* copy = chunks_[number / kChunkBytes] + number % kChunkBytes;
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  end_ += bytes;
  return number;
}

// Behind the last one, whose rest stays unused.
void TextStore::add_chunks(size_t bytes) {
  const size_t count = (bytes + kChunkBytes - 1) / kChunkBytes;
  if ((chunks_.size() + count) * kChunkBytes > std::numeric_limits<uint32_t>::max()) {
    refuse_size();
  }
  end_ = chunks_.size() * kChunkBytes;
  owned_.push_back(std::make_unique_for_overwrite<char[]>(count * kChunkBytes));
  for (size_t chunk = 0; chunk < count; ++chunk) {
    chunks_.push_back(owned_.back().get() + chunk * kChunkBytes);
    if (chunk != 0) {
      owned_.insert(owned_.end() - 1, nullptr);
    }
  }
}

void TextStore::roll_back(uint64_t end) {
  const size_t kept = (end + kChunkBytes - 1) / kChunkBytes;
  end_ = end;
  // A chunk that a longer text begins in goes with the last of them, which owns them all.
  while (chunks_.size() > kept) {
    chunks_.pop_back();
    owned_.pop_back();
  }
}

AnswerNode AnswerData::top() const {
  return {this, first(kRoot)};
}

CheckedValue AnswerData::value(Index leaf) const {
  const Node& node = at(leaf);
  CheckedValue value{static_cast<ValueForm>(kind(leaf)), {texts_.at(node.first), node.last}, {}, {}};
  if (value.form == ValueForm::kQualified) {
    value.xml_names = value.text.data() + value.text.size() + 1;
    value.xml_text = value.xml_names.data() + value.xml_names.size() + 1;
  }
  return value;
}

AnswerData::Index AnswerData::make(uint32_t shape, uint32_t kind) {
  if (size_ == std::numeric_limits<Index>::max() || shape > kMostShapes) {
    refuse_size();
  }
  if (size_ == chunks_.size() * kNodesInChunk) {
    chunks_.push_back(std::make_unique_for_overwrite<Node[]>(kNodesInChunk));
  }
  const auto node = static_cast<Index>(size_++);
  at(node) = {kRoot, kRoot, kRoot, shape | (kind << kKindShift)};
  return node;
}

// Top nodes of different modules have no order, and stay in that in which they came.
bool AnswerData::stands_before(const NodeShape& one, const NodeShape& other) const {
  const bool is_ordered = one.parent != NodeShape::kTop || one.schema->module == other.schema->module;
  return is_ordered && one.place < other.place;
}

AnswerData::Index AnswerData::find(Index above, const NodeShape& shape) const {
  Index child = first(above);
  while (child != kRoot && shape_number(child) != shape.number) {
    child = next(child);
  }
  return child;
}

AnswerData::Index AnswerData::find_or_add(Index above, const NodeShape& shape) {
  Index before = kRoot;
  Index child = first(above);
  // Mostly after all that is there.
  if (const Index last_child = last(above);
      last_child != kRoot && shape.parent != NodeShape::kTop && stands_before(this->shape(last_child), shape)) {
    before = last_child;
    child = kRoot;
  }
  for (; child != kRoot && !stands_before(shape, this->shape(child)); child = next(child)) {
    if (shape_number(child) == shape.number) {
      return child;
    }
    before = child;
  }
  const Index made = make(shape.number, shape.is_list ? kGroup : 0);
  at(made).next = child;
  (before == kRoot ? at(above).first : at(before).next) = made;
  if (child == kRoot) {
    at(above).last = made;
  }
  return made;
}

AnswerData::Index AnswerData::append(Index group) {
  const Index made = make(shape_number(group), 0);
  const Index before = last(group);
  (before == kRoot ? at(group).first : at(before).next) = made;
  at(group).last = made;
  return made;
}

AnswerData::StoredValue AnswerData::keep(const CheckedValue& value) {
  if (value.form != ValueForm::kQualified) {
    return {value.form, texts_.add(value.text), static_cast<uint32_t>(value.text.size())};
  }
  // Its three texts stand one after the other.
  std::string all(value.text);
  all.append(1, '\0').append(value.xml_names).append(1, '\0').append(value.xml_text);
  return {value.form, texts_.add(all), static_cast<uint32_t>(value.text.size())};
}

void AnswerData::set_value(Index leaf, const StoredValue& value) {
  Node& node = at(leaf);
  node.shape_and_kind = shape_number(leaf) | (static_cast<uint32_t>(value.form) << kKindShift);
  node.first = value.text;
  node.last = value.size;
}

AnswerNode::AnswerNode(const AnswerData* data, AnswerData::Index node) : data_(data), node_(node) {
  if (node != AnswerData::kRoot && data->is_group(node)) {
    group_ = node;
    node_ = data->first(node);
  }
}

AnswerNode AnswerNode::first_child() const {
  const bool has_children = node_ != AnswerData::kRoot && !data_->is_leaf(node_);
  return has_children ? AnswerNode(data_, data_->first(node_)) : AnswerNode();
}

AnswerNode AnswerNode::next() const {
  if (node_ == AnswerData::kRoot) {
    return {};
  }
  AnswerNode following = *this;
  following.node_ = data_->next(node_);
  if (following.node_ != AnswerData::kRoot || group_ == AnswerData::kRoot) {
    return following.group_ == AnswerData::kRoot ? AnswerNode(data_, following.node_) : following;
  }
  return {data_, data_->next(group_)};
}

AnswerNode AnswerNode::child(std::string_view name) const {
  AnswerNode found = first_child();
  while (found && name != found.schema()->name) {
    found = found.next();
  }
  return found;
}

}  // namespace oclacp::host
