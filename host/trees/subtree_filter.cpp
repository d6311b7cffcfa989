#include "host/trees/subtree_filter.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/trees/node.h"
#include "host/trees/request_tree.h"

namespace oclacp::host {
namespace {

using Index = AnswerData::Index;

bool is_match(const yfw_datatree& node) {
  return requested_value(&node) != nullptr;
}

// Whether it asks for something. A leaf may do both.
bool is_selection(const yfw_datatree& node) {
  return node.value == nullptr;
}

// The nodes that a request asks for.
class Selection {
 public:
  Selection(AnswerData& answer, ValueCheck& values) : answer_(answer), values_(values), marks_(answer.size()) {}

  // Whether `wanted` asks for this node, of the same schema, or for something in it, which is noted.
  bool take(Index node, const yfw_datatree& wanted) {
    bool names_content = false;
    for (unsigned index = 0; index < wanted.child_count; ++index) {
      const yfw_datatree& below = wanted.children[index];
      names_content |= is_selection(below);
      if (is_match(below) && !holds(node, below)) {
        return false;
      }
    }
    if (!names_content) {
      marks_[node] = kWhole;
      return true;
    }
    const bool is_asked_for = take_below(node, wanted);
    if (is_asked_for && marks_[node] == kNothing) {
      marks_[node] = kPart;
    }
    return is_asked_for;
  }

  // Takes away what is not asked for below a node that is; keys stay.
  void cut(Index node) {
    if (marks_[node] == kWhole) {
      return;
    }
    answer_.keep_children(node, [this](Index child) { return keeps(child); });
  }

 private:
  enum Mark : char { kNothing, kPart, kWhole };

  bool keeps(Index child) {
    if (answer_.is_group(child)) {
      answer_.keep_children(child, [this](Index entry) { return keeps(entry); });
      return answer_.first(child) != AnswerData::kRoot;
    }
    if (marks_[child] == kNothing) {
      return lysc_is_key(answer_.shape(child).schema);
    }
    if (!answer_.is_leaf(child)) {
      cut(child);
    }
    return true;
  }

  // The value of a key selects the entry, and asks for nothing.
  bool take_below(Index node, const yfw_datatree& wanted) {
    bool is_asked_for = false;
    for (unsigned index = 0; index < wanted.child_count; ++index) {
      const yfw_datatree& below = wanted.children[index];
      const NodeShape& shape = answer_.shapes().of(info_of(&below).schema);
      const Index child =
          lysc_is_key(shape.schema) && !is_selection(below) ? AnswerData::kRoot : answer_.find(node, shape);
      if (child == AnswerData::kRoot || !answer_.is_group(child)) {
        is_asked_for |= child != AnswerData::kRoot && take(child, below);
        continue;
      }
      for (Index entry = answer_.first(child); entry != AnswerData::kRoot; entry = answer_.next(entry)) {
        is_asked_for |= take(entry, below);
      }
    }
    return is_asked_for;
  }

  bool holds(Index node, const yfw_datatree& match) {
    const Index leaf =
        answer_.is_leaf(node) ? AnswerData::kRoot : answer_.find(node, answer_.shapes().of(info_of(&match).schema));
    return leaf != AnswerData::kRoot && answer_.is_leaf(leaf) && answer_.value(leaf).text == meaning_of(match);
  }

  // The canonical form of a match's value: 04096 is 4096.
  const std::string& meaning_of(const yfw_datatree& match) {
    const char* text = requested_value(&match);
    const auto [place, is_new] = meanings_.emplace(&match, text);
    if (is_new) {
      if (const CheckedValue* value = values_.check(info_of(&match).schema, text); value != nullptr) {
        place->second = std::string(value->text);
      }
    }
    return place->second;
  }

  AnswerData& answer_;
  ValueCheck& values_;
  std::vector<Mark> marks_;  // by node
  std::unordered_map<const yfw_datatree*, std::string> meanings_;
};

}  // namespace

void apply_subtree_filter(AnswerData& answer, const std::vector<const yfw_datatree*>& requests, ValueCheck& values) {
  Selection selection(answer, values);
  std::vector<Index> asked_for;
  for (const yfw_datatree* request : requests) {
    const Index top = answer.find(AnswerData::kRoot, answer.shapes().of(info_of(request).schema));
    if (top != AnswerData::kRoot && selection.take(top, *request)) {
      asked_for.push_back(top);
    }
  }
  answer.keep_children(AnswerData::kRoot, [&](Index node) {
    return std::find(asked_for.begin(), asked_for.end(), node) != asked_for.end();
  });
  for (const Index top : asked_for) {
    selection.cut(top);
  }
}

}  // namespace oclacp::host
