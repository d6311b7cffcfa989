#include "host/yang/document_cut.h"

#include <algorithm>
#include <array>

namespace oclacp::host {
namespace {

// ---- What schemas allow

bool refers_elsewhere(const lysc_type* type) {
  if (type->basetype == LY_TYPE_LEAFREF || type->basetype == LY_TYPE_INST) {
    return true;
  }
  if (type->basetype == LY_TYPE_UNION) {
    const lysc_type* const* types = reinterpret_cast<const lysc_type_union*>(type)->types;
    return std::any_of(types, types + LY_ARRAY_COUNT(types), refers_elsewhere);
  }
  return false;
}

LY_ERR find_reference(lysc_node* node, void* found, ly_bool* /*skips_children*/) {
  if (lysc_node_musts(node) != nullptr || lysc_node_when(node) != nullptr ||
      ((node->nodetype & LYD_NODE_TERM) != 0 &&
       refers_elsewhere(reinterpret_cast<const lysc_node_leaf*>(node)->type))) {
    *static_cast<bool*>(found) = true;
  }
  return LY_SUCCESS;
}

// Whether a schema judges one node of data by others.
bool judges_across(const ly_ctx* context) {
  bool found = false;
  uint32_t index = 0;
  for (const lys_module* module = ly_ctx_get_module_iter(context, &index); module != nullptr;
       module = ly_ctx_get_module_iter(context, &index)) {
    for (const lysc_node* top = module->compiled == nullptr ? nullptr : module->compiled->data; top != nullptr;
         top = top->next) {
      lysc_tree_dfs_full(top, find_reference, &found);
    }
  }
  return found;
}

// Whether a container is valid with any number of the entries that are in it.
bool takes_parts(const lysc_node* container) {
  for (const lysc_node* child = lysc_node_child(container); child != nullptr; child = child->next) {
    if (child->nodetype == LYS_CHOICE || (child->flags & LYS_MAND_TRUE) != 0) {
      return false;
    }
  }
  return (container->flags & LYS_MAND_TRUE) == 0;
}

bool is_cut(const lysc_node* node) {
  const auto* list = reinterpret_cast<const lysc_node_list*>(node);
  return (node->flags & LYS_CONFIG_R) != 0 && (node->flags & (LYS_KEYLESS | LYS_MAND_TRUE)) == 0 &&
         list->uniques == nullptr && list->min == 0 && list->max == UINT32_MAX;
}

// The first list below a top node that is cut, with what is above it from the top node on; empty when there is none.
std::vector<const lysc_node*> path_to_list(const lysc_node* node) {
  if (node->nodetype == LYS_LIST) {
    return is_cut(node) ? std::vector{node} : std::vector<const lysc_node*>();
  }
  if (node->nodetype != LYS_CONTAINER || !takes_parts(node)) {
    return {};
  }
  for (const lysc_node* child = lysc_node_child(node); child != nullptr; child = child->next) {
    if (std::vector<const lysc_node*> path = path_to_list(child); !path.empty()) {
      path.insert(path.begin(), node);
      return path;
    }
  }
  return {};
}

std::string qualified_name(const lysc_node* node) {
  return std::string(node->module->name) + ":" + node->name;
}

// ---- The text

constexpr std::string_view kBlanks = " \t\r\n";

// Which characters matter while a value is skipped.
constexpr std::array<bool, 256> kBrackets = [] {
  std::array<bool, 256> brackets{};
  for (const char character : {'"', '{', '}', '[', ']'}) {
    brackets[static_cast<unsigned char>(character)] = true;
  }
  return brackets;
}();

// Goes through a text. Once something is not as it should be, it has failed and stays so.
class Cursor {
 public:
  // `brackets`: some of the text's, in its order; what is between them need not be looked at.
  explicit Cursor(std::string_view text, std::span<const JsonBrackets> brackets = {})
      : text_(text), brackets_(brackets) {}

  [[nodiscard]] bool has_failed() const { return has_failed_; }
  [[nodiscard]] size_t position() const { return position_; }

  // Takes the next character when it is this one, with the blanks in front of it.
  bool take(char character) {
    position_ = std::min(text_.find_first_not_of(kBlanks, position_), text_.size());
    const bool is_there = position_ < text_.size() && text_[position_] == character;
    position_ += is_there ? 1 : 0;
    return is_there;
  }

  void require(char character) { has_failed_ |= !take(character); }

  // A member's name up to the colon. One with escapes fails.
  std::string_view take_name() {
    require('"');
    const size_t begin = position_;
    pass_string();
    const std::string_view name = text_.substr(begin, position_ - begin - 1);
    require(':');
    has_failed_ |= name.find('\\') != std::string_view::npos;
    return has_failed_ ? std::string_view() : name;
  }

  // The text of a value.
  std::string_view take_value() {
    position_ = std::min(text_.find_first_not_of(kBlanks, position_), text_.size());
    const size_t begin = position_;
    if (take('"')) {
      pass_string();
    } else if (take('{') || take('[')) {
      pass_brackets();
    } else {
      position_ = std::min(text_.find_first_of(",]} \t\r\n", position_), text_.size());
      has_failed_ |= position_ == begin;
    }
    return text_.substr(begin, position_ - begin);
  }

  // Calls `visit` in front of the value of each member of an object that begins here.
  template <typename Visit>
  void take_members(const Visit& visit) {
    require('{');
    if (take('}')) {
      return;
    }
    do {
      const std::string_view name = take_name();
      if (!has_failed_) {
        visit(name);
      }
    } while (!has_failed_ && take(','));
    require('}');
  }

 private:
  // After the opening quote, to after the closing one.
  void pass_string() {
    while (position_ < text_.size() && text_[position_] != '"') {
      position_ += text_[position_] == '\\' ? 2 : 1;
    }
    has_failed_ |= position_ >= text_.size();
    position_ = std::min(position_ + 1, text_.size());
  }

  // After an opening bracket, to after the one that closes it.
  void pass_brackets() {
    while (!brackets_.empty() && brackets_.front().open + 1 < position_) {
      brackets_ = brackets_.subspan(1);
    }
    if (!brackets_.empty() && brackets_.front().open + 1 == position_) {
      position_ = brackets_.front().close + 1;
      return;
    }
    for (size_t depth = 1; depth != 0 && !has_failed_;) {
      while (position_ < text_.size() && !kBrackets[static_cast<unsigned char>(text_[position_])]) {
        ++position_;
      }
      has_failed_ |= position_ == text_.size();
      if (has_failed_) {
        return;
      }
      const char character = text_[position_++];
      if (character == '"') {
        pass_string();
      } else {
        depth += character == '{' || character == '[' ? 1 : static_cast<size_t>(-1);
      }
    }
  }

  std::string_view text_;
  std::span<const JsonBrackets> brackets_;
  size_t position_ = 0;
  bool has_failed_ = false;
};

class Cutter {
 public:
  Cutter(const ly_ctx* context, std::string_view text, std::span<const JsonBrackets> brackets)
      : context_(context), text_(text), cursor_(text, brackets) {}

  std::optional<CutDocument> cut() {
    cursor_.take_members([this](std::string_view name) { take_top(name); });
    if (cursor_.has_failed() || is_doubled_) {
      return std::nullopt;
    }
    document_.rest.append(text_.substr(kept_));
    return std::move(document_);
  }

 private:
  void take_top(std::string_view name) {
    const size_t colon = name.find(':');
    const std::string module(name.substr(0, colon));
    const lys_module* owner =
        colon == std::string_view::npos ? nullptr : ly_ctx_get_module_implemented(context_, module.c_str());
    const lysc_node* top = owner == nullptr
                               ? nullptr
                               : lys_find_child(nullptr, owner, name.data() + colon + 1, name.size() - colon - 1, 0, 0);
    const std::vector<const lysc_node*> path = top == nullptr ? std::vector<const lysc_node*>() : path_to_list(top);
    if (path.empty()) {
      cursor_.take_value();
    } else {
      take_path(path, 1);
    }
  }

  // In front of the value of a node of the path: skips it, and cuts the list in it.
  void take_path(const std::vector<const lysc_node*>& path, size_t next) {
    if (next == path.size()) {
      take_entries(path);
      return;
    }
    cursor_.take_members([&](std::string_view name) {
      if (name == path[next]->name || name == qualified_name(path[next])) {
        take_path(path, next + 1);
      } else {
        cursor_.take_value();
      }
    });
  }

  void take_entries(const std::vector<const lysc_node*>& path) {
    for (const CutList& other : document_.lists) {
      is_doubled_ |= other.list == path.back();
    }
    CutList& list = document_.lists.emplace_back();
    list.top = path.front();
    list.list = path.back();
    for (const lysc_node* node : path) {
      list.head += "{\"" + qualified_name(node) + "\":";
      list.tail += '}';
    }
    list.head += '[';
    list.tail.insert(0, 1, ']');
    cursor_.require('[');
    document_.rest.append(text_.substr(kept_, cursor_.position() - kept_));
    if (!cursor_.take(']')) {
      do {
        list.entries.push_back(cursor_.take_value());
      } while (!cursor_.has_failed() && list.entries.back().front() == '{' && cursor_.take(','));
      cursor_.require(']');
    }
    kept_ = cursor_.position() - 1;
  }

  const ly_ctx* context_;
  std::string_view text_;
  Cursor cursor_;
  CutDocument document_;
  size_t kept_ = 0;  // from where the text belongs to the rest
  bool is_doubled_ = false;
};

// The keys of an entry as an object; empty when it does not have each.
std::string keys_of(const lysc_node* list, std::string_view entry) {
  size_t missing = 0;
  for (const lysc_node* key = lysc_node_child(list); key != nullptr && lysc_is_key(key); key = key->next) {
    ++missing;
  }
  std::string keys;
  Cursor cursor(entry);
  cursor.require('{');
  while (!cursor.has_failed() && missing != 0) {
    const std::string_view name = cursor.take_name();
    const std::string_view value = cursor.take_value();
    const std::string_view local = name.substr(name.find(':') + 1);
    const lysc_node* leaf = lys_find_child(list, list->module, local.data(), local.size(), 0, 0);
    if (leaf != nullptr && lysc_is_key(leaf)) {
      keys.append(keys.empty() ? "{\"" : ",\"").append(name).append("\":").append(value);
      --missing;
    }
    if (missing != 0 && !cursor.take(',')) {
      return "";
    }
  }
  return cursor.has_failed() ? "" : keys + "}";
}

}  // namespace

std::optional<CutDocument> cut_document(const ly_ctx* context, std::string_view text,
                                        std::span<const JsonBrackets> brackets) {
  return judges_across(context) ? std::nullopt : Cutter(context, text, brackets).cut();
}

void join_entries(const CutList& list, size_t first, size_t count, std::string& text) {
  text = list.head;
  const size_t end = std::min(first + count, list.entries.size());
  for (size_t entry = first; entry < end; ++entry) {
    text.append(entry == first ? "" : ",").append(list.entries[entry]);
  }
  text.append(list.tail);
}

bool join_keys(const CutList& list, size_t first, size_t count, std::string& text) {
  text = list.head;
  const size_t end = std::min(first + count, list.entries.size());
  for (size_t entry = first; entry < end; ++entry) {
    const std::string keys = keys_of(list.list, list.entries[entry]);
    if (keys.empty()) {
      return false;
    }
    text.append(entry == first ? "" : ",").append(keys);
  }
  text.append(list.tail);
  return true;
}

}  // namespace oclacp::host
