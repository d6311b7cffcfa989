#include "fuzzed_request.h"

#include <algorithm>
#include <iterator>

namespace fuzz {
namespace {

constexpr unsigned kMaxDepth = 8;
constexpr std::size_t kMaxNodes = 200;

// Tags that do not belong where they stand, or anywhere.
constexpr const char* kMisplacedTags[] = {
    "lacp",      "config",
    "state",     "interfaces",
    "interface", "members",
    "member",    "name",
    "fallback",  "interface-configuration",
    "%s%n",      "Lacp",
    "",          "a tag that is longer than any that a model has, for whatever copies it",
    nullptr};

const char* take_tag(const Model& model, const yfw_datatree* parent, Bytes& bytes) {
  const std::uint8_t byte = bytes.take();
  if (byte >= 0xF0) return kMisplacedTags[byte % std::size(kMisplacedTags)];
  const ModelNode* const known = parent == nullptr ? nullptr : model.find(parent->tag);
  return known == nullptr ? model.root : known->children[byte % known->children.size()];
}

// The namespace that a node has where it belongs.
const char* namespace_of(const Model& model, const yfw_datatree& node, const yfw_datatree* parent) {
  if (const ModelNode* const inner = model.find(node.tag); inner != nullptr) return inner->ns;
  const ModelNode* const around = parent == nullptr ? nullptr : model.find(parent->tag);
  return around == nullptr ? model.ns : around->ns;
}

constexpr const char* kNamespaces[] = {support::kOpenconfigLacp, support::kBundlemgrCfg, "urn:foreign", nullptr};

constexpr std::uint32_t kOperations[] = {
    YFW_OPERATION_NONE,   YFW_OPERATION_NONE,   YFW_OPERATION_REPLACE, YFW_OPERATION_CREATE,
    YFW_OPERATION_DELETE, YFW_OPERATION_REMOVE, YFW_OPERATION_DELETE,  0xFFFFFFFF};

constexpr std::uint32_t kRequests[] = {YFW_REQUEST_EDIT, YFW_REQUEST_READ_CONFIG, YFW_REQUEST_READ_STATE, 8, 15, 2};

constexpr const char* kStoreItems[] = {"Bundle-Ether1/lacp/", "GigabitEthernet0_0_0_1/lacp/", "/lacp/", "Bundle-Ether1",
                                       ""};

// Bits of the byte that says how a node is out of order.
enum : std::uint8_t {
  kValueFlagFlipped = 0x1,
  kSubtreeFlagFlipped = 0x2,
  kArrayMissing = 0x4,
  kTypedValue = 0x8,
  kOperationChanged = 0x10,
  kUsedAsKey = 0x20
};

void disorder(yfw_datatree& node, std::uint8_t how) {
  if ((how & kValueFlagFlipped) != 0) node.flags ^= YFW_FLAG_VALUE;
  if ((how & kSubtreeFlagFlipped) != 0) node.flags ^= YFW_FLAG_SUBTREE;
  if ((how & kArrayMissing) != 0) node.children = nullptr;
  if ((how & kTypedValue) != 0) node.flags |= YFW_FLAG_TYPED_VALUE;
  if ((how & kOperationChanged) != 0) node.flags |= YFW_FLAG_OPERATION_CHANGED;
  if ((how & kUsedAsKey) != 0) node.key_mark = 1;
}

}  // namespace

std::uint8_t Bytes::take() {
  if (rest_.empty()) return 0;
  const std::uint8_t byte = rest_.front();
  rest_ = rest_.subspan(1);
  return byte;
}

FuzzedTree::FuzzedTree(const Model& model, Bytes& bytes) : model_(model) {
  fill(root_, nullptr, bytes, 0);
}

void FuzzedTree::fill(yfw_datatree& node, yfw_datatree* parent, Bytes& bytes, unsigned depth) {
  node.tag = take_tag(model_, parent, bytes);
  node.value = bytes.pick(model_.values);
  node.operation = bytes.pick(std::span<const std::uint32_t>(kOperations));
  node.framework = parent;
  if (node.value != nullptr) node.flags |= YFW_FLAG_VALUE;

  // One byte for the number of children and for whether anything is out of order.
  const std::uint8_t shape = bytes.take();
  const bool in_order = shape < 0xC0;
  node.ns = in_order ? namespace_of(model_, node, parent) : bytes.pick(std::span<const char* const>(kNamespaces));
  const std::uint8_t how = in_order ? std::uint8_t{0} : bytes.take();

  const std::size_t wanted = shape % 6;
  const bool has_room = depth < kMaxDepth && nodes_.size() + wanted < kMaxNodes && !bytes.exhausted();
  if (wanted != 0 && has_room) {
    std::vector<yfw_datatree>& children = arrays_.emplace_back(wanted);
    node.children = children.data();
    node.child_count = static_cast<unsigned int>(wanted);
    node.flags |= YFW_FLAG_SUBTREE;
    for (yfw_datatree& child : children) fill(child, &node, bytes, depth + 1);
  }
  disorder(node, how);
  nodes_.push_back({&node, node, support::deletes(&node)});
}

const yfw_datatree* FuzzedTree::disturbed() const {
  for (const auto& [node, as_built, deletes] : nodes_) {
    const bool same_children = node->children == as_built.children && node->child_count == as_built.child_count &&
                               ((node->flags ^ as_built.flags) & YFW_FLAG_SUBTREE) == 0;
    const bool worked_off =
        deletes && (node->operation == YFW_OPERATION_REMOVE || node->operation == YFW_OPERATION_NONE);
    if (!same_children || (node->operation != as_built.operation && !worked_off)) return node;
  }
  return nullptr;
}

void set_up(support::Platform& platform, Bytes& bytes) {
  platform.set_operation(bytes.pick(std::span<const std::uint32_t>(kRequests)));

  const std::uint8_t sinks = bytes.take();
  platform.set_logging((sinks & 1) != 0);
  platform.set_tracing((sinks & 2) != 0);

  platform.state().key_gate.word = bytes.take() % 2;
  platform.state().key_gate.level = bytes.take() % 4;

  platform.add_virtual("Bundle-Ether1");
  platform.add_physical("GigabitEthernet0_0_0_1");
  platform.store_library_present = bytes.take() % 8 != 7;
  for (std::size_t items = bytes.take() % 4; items > 0; --items) {
    platform.store_items.emplace_back(bytes.pick(std::span<const char* const>(kStoreItems)));
  }

  if (const unsigned nth = bytes.take(); nth != 0) platform.inject_fault(nth, 0x0b0000ff);
}

}  // namespace fuzz
