#include "host/yang/value_check.h"

#include <libyang/plugins_types.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <memory>
#include <type_traits>

#include "host/yang/libyang_error.h"

namespace oclacp::host {
namespace {

constexpr size_t kMemos = 4096;
// Longer texts are not worth the memory of a memo.
constexpr size_t kLongestKept = 256;

const lysc_type* real_type(const lysc_node* leaf) {
  const lysc_type* type = reinterpret_cast<const lysc_node_leaf*>(leaf)->type;
  while (type->basetype == LY_TYPE_LEAFREF) {
    type = reinterpret_cast<const lysc_type_leafref*>(type)->realtype;
  }
  return type;
}

template <typename Number>
bool is_canonical_number(std::string_view text) {
  const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
  if (digits.empty() || digits.front() < '0' || digits.front() > '9' || (digits.front() == '0' && text.size() > 1)) {
    return false;
  }
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

template <typename Number>
bool is_plain_number(const lysc_type* type, std::string_view text) {
  return reinterpret_cast<const lysc_type_num*>(type)->range == nullptr && is_canonical_number<Number>(text);
}

// One byte a character, so that both lengths are the same.
bool is_printable_ascii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char character) { return character >= ' ' && character <= '~'; });
}

bool is_plain_string(const lysc_type* type, std::string_view text) {
  const auto* string = reinterpret_cast<const lysc_type_str*>(type);
  // Types that are made of strings may have a plugin of their own, such as that of IP addresses.
  if (type->plugin->store != &lyplg_type_store_string || string->patterns != nullptr || !is_printable_ascii(text)) {
    return false;
  }
  const lysc_range* length = string->length;
  return length == nullptr || (LY_ARRAY_COUNT(length->parts) == 1 && text.size() >= length->parts[0].min_u64 &&
                               text.size() <= length->parts[0].max_u64);
}

// Whether a value is of its type and canonical beyond doubt; what is not may be so all the same.
bool is_plain(const lysc_type* type, std::string_view text) {
  switch (type->basetype) {
    case LY_TYPE_UINT8:
      return is_plain_number<uint8_t>(type, text);
    case LY_TYPE_UINT16:
      return is_plain_number<uint16_t>(type, text);
    case LY_TYPE_UINT32:
      return is_plain_number<uint32_t>(type, text);
    case LY_TYPE_UINT64:
      return is_plain_number<uint64_t>(type, text);
    case LY_TYPE_INT8:
      return is_plain_number<int8_t>(type, text);
    case LY_TYPE_INT16:
      return is_plain_number<int16_t>(type, text);
    case LY_TYPE_INT32:
      return is_plain_number<int32_t>(type, text);
    case LY_TYPE_INT64:
      return is_plain_number<int64_t>(type, text);
    case LY_TYPE_BOOL:
      return text == "true" || text == "false";
    case LY_TYPE_STRING:
      return is_plain_string(type, text);
    default:
      return false;
  }
}

ValueForm form_of(LY_DATA_TYPE type) {
  switch (type) {
    case LY_TYPE_UINT8:
    case LY_TYPE_UINT16:
    case LY_TYPE_UINT32:
    case LY_TYPE_INT8:
    case LY_TYPE_INT16:
    case LY_TYPE_INT32:
    case LY_TYPE_BOOL:
      return ValueForm::kBare;
    case LY_TYPE_EMPTY:
      return ValueForm::kEmpty;
    case LY_TYPE_IDENT:
    case LY_TYPE_INST:
      return ValueForm::kQualified;
    default:
      return ValueForm::kText;
  }
}

// A value as libyang stores it.
class StoredValue {
 public:
  StoredValue(const lysc_node* leaf, const std::string& text)
      : context_(leaf->module->ctx), type_(reinterpret_cast<const lysc_node_leaf*>(leaf)->type) {
    ly_err_item* error = nullptr;
    status_ = type_->plugin->store(context_, type_, text.c_str(), text.size(), 0, LY_VALUE_JSON, nullptr, LYD_HINT_DATA,
                                   leaf, &value_, nullptr, &error);
    if (error != nullptr) {
      reason_ = error->msg == nullptr ? "" : error->msg;
      ly_err_free(error);
    }
  }
  ~StoredValue() {
    if (is_taken()) {
      type_->plugin->free(context_, &value_);
    }
  }
  StoredValue(const StoredValue&) = delete;
  StoredValue& operator=(const StoredValue&) = delete;
  StoredValue(StoredValue&&) = delete;
  StoredValue& operator=(StoredValue&&) = delete;

  // A reference is complete only within a tree.
  [[nodiscard]] bool is_taken() const { return status_ == LY_SUCCESS || status_ == LY_EINCOMPLETE; }
  [[nodiscard]] const std::string& reason() const { return reason_; }

  [[nodiscard]] ValueForm form() const {
    const lyd_value* value = &value_;
    while (value->realtype->basetype == LY_TYPE_UNION) {
      value = &value->subvalue->value;
    }
    return form_of(value->realtype->basetype);
  }

  [[nodiscard]] std::string canonical() const { return lyd_value_get_canonical(context_, &value_); }

  // As XML shows it. The modules that its names are of are added to `modules`.
  std::string xml_text(ly_set& modules) const {
    ly_bool is_made = 0;
    const void* text = type_->plugin->print(context_, &value_, LY_VALUE_XML, &modules, &is_made, nullptr);
    std::string copy = text == nullptr ? "" : static_cast<const char*>(text);
    if (is_made != 0) {
      std::free(const_cast<void*>(text));
    }
    return copy;
  }

 private:
  const ly_ctx* context_;
  const lysc_type* type_;
  lyd_value value_{};
  LY_ERR status_;
  std::string reason_;
};

}  // namespace

ValueCheck::ValueCheck() : memos_(kMemos) {}

const CheckedValue* ValueCheck::check(const lysc_node* leaf, std::string_view text) {
  const lysc_type* type = real_type(leaf);
  if (is_plain(type, text)) {
    plain_ = {form_of(type->basetype), text, {}, {}};
    return &plain_;
  }
  const size_t hash = std::hash<std::string_view>{}(text) ^ (std::hash<const void*>{}(leaf)*31);
  Memo& memo = memos_[hash % kMemos];
  if (memo.leaf == leaf && memo.text == text) {
    return &memo.value;
  }
  memo.leaf = leaf;
  memo.text = text;
  const bool is_taken = ask_libyang(memo);
  if (!is_taken || text.size() > kLongestKept) {
    memo.leaf = nullptr;
  }
  return is_taken ? &memo.value : nullptr;
}

bool ValueCheck::ask_libyang(Memo& memo) {
  const StoredValue stored(memo.leaf, memo.text);
  if (!stored.is_taken()) {
    reason_ = value_reason(memo.leaf, stored.reason());
    return false;
  }
  memo.canonical = stored.canonical();
  memo.value = {stored.form(), memo.canonical, {}, {}};
  if (memo.value.form == ValueForm::kQualified) {
    ly_set modules{};
    // The place of the module that needs no prefix; there is none.
    ly_set_add(&modules, nullptr, 0, nullptr);
    memo.xml_text = stored.xml_text(modules);
    memo.xml_names.clear();
    for (uint32_t index = 1; index < modules.count; ++index) {
      const auto* module = static_cast<const lys_module*>(modules.objs[index]);
      memo.xml_names.append(" xmlns:").append(module->prefix).append("=\"").append(module->ns).append("\"");
    }
    ly_set_erase(&modules, nullptr);
    memo.value.xml_names = memo.xml_names;
    memo.value.xml_text = memo.xml_text;
  }
  return true;
}

}  // namespace oclacp::host
