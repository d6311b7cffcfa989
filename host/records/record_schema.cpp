#include "host/records/record_schema.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace oclacp::host {
namespace {

// Records in records, and unions in unions.
constexpr unsigned kDeepestNesting = 16;

// Reads the definitions of a schema from left to right.
class SchemaReader {
 public:
  SchemaReader(std::string_view text, RecordSchema::Form form)
      : text_(text), has_names_(form == RecordSchema::Form::kFull) {}

  std::vector<RecordType> definitions() {
    std::vector<RecordType> types;
    do {
      types.push_back(definition());
    } while (at_ < text_.size());
    return types;
  }

 private:
  [[noreturn]] void refuse(const std::string& what) const {
    throw Error(ErrorKind::kInternal, "character " + std::to_string(at_ + 1) + ": " + what);
  }

  [[nodiscard]] char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  [[nodiscard]] bool at_digit() const { return next() >= '0' && next() <= '9'; }

  bool skip(char c) {
    if (next() != c || at_ == text_.size()) {
      return false;
    }
    ++at_;
    return true;
  }

  void expect(char c) {
    if (!skip(c)) {
      refuse(std::string("'") + c + "' is missing");
    }
  }

  std::uint32_t number() {
    if (!at_digit()) {
      refuse("a number is missing");
    }
    std::uint64_t value = 0;
    for (; at_digit(); ++at_) {
      value = value * 10 + static_cast<std::uint64_t>(next() - '0');
      if (value > UINT32_MAX) {
        refuse("the number is too large");
      }
    }
    return static_cast<std::uint32_t>(value);
  }

  std::string name() {
    const std::size_t start = at_;
    while (std::isalnum(static_cast<unsigned char>(next())) != 0 || next() == '_') {
      ++at_;
    }
    if (at_ == start) {
      refuse("a name is missing");
    }
    return std::string(text_.substr(start, at_ - start));
  }

  RecordType definition() {
    RecordType record;
    expect('$');
    record.number = number();
    expect('=');
    do {
      record.fields.push_back(field(record.fields.empty()));
    } while (next() != ';' && !(has_names_ && record.is_bare()));
    expect(';');
    return record;
  }

  // A record of one field may leave its name out when it is raw bytes or a union.
  RecordField field(bool is_first) {
    RecordField field;
    const bool is_bare = is_first && (at_digit() || next() == '?');
    if (has_names_ && !is_bare) {
      field.name = braced_name();
    }
    field.type = type();
    return field;
  }

  std::string braced_name() {
    expect('{');
    std::string text = name();
    expect('}');
    return text;
  }

  FieldType type() {
    if (at_digit()) {
      return raw_bytes();
    }
    const char letter = next();
    ++at_;
    switch (letter) {
      case 'C':
        return plain(FieldKind::kUnsigned, 1);
      case 'I':
        return plain(FieldKind::kUnsigned, 2);
      case 'D':
        return with_hint(plain(FieldKind::kUnsigned, 4));
      case 'H':
        return plain(FieldKind::kUnsigned, 8);
      case 'N':
        return plain(FieldKind::kIpv4, 4);
      case 's':
        return plain(FieldKind::kText, 8);
      case '$':
        return embedded();
      case 'p':
        return referred(FieldKind::kReference, 8);
      case 'a':
        return referred(FieldKind::kArray, 16);
      case '?':
        return one_of_several();
      case '[':
        if (has_names_) {
          return named_enumeration();
        }
        break;
      case 'e':
        if (!has_names_) {
          return plain(FieldKind::kEnumeration, 4);
        }
        break;
      default:
        break;
    }
    --at_;
    refuse("this is not a type of field");
  }

  static FieldType plain(FieldKind kind, std::uint64_t size) {
    FieldType type;
    type.kind = kind;
    type.size = size;
    type.alignment = size;
    return type;
  }

  FieldType named_enumeration() {
    FieldType type = plain(FieldKind::kEnumeration, 4);
    type.enumeration = name();
    expect(']');
    expect('e');
    return type;
  }

  FieldType raw_bytes() {
    FieldType type;
    type.kind = FieldKind::kBytes;
    type.size = number();
    if (type.size == 0 || type.size > kLargestRecord) {
      refuse("raw bytes of this length are not supported");
    }
    expect('x');
    return with_hint(type);
  }

  FieldType with_hint(FieldType type) {
    if (!skip('%')) {
      return type;
    }
    const bool is_number = type.kind == FieldKind::kUnsigned;
    if (is_number && skip('h')) {
      type.hint = DisplayHint::kInterface;
    } else if (is_number && skip('n')) {
      type.hint = DisplayHint::kNode;
    } else if (!is_number && type.size == 6 && skip('m')) {
      type.hint = DisplayHint::kMac;
    } else if (!is_number && type.size == 16 && skip('s')) {
      type.hint = DisplayHint::kIpv6;
    } else {
      refuse("this is not a hint for the type of field before it");
    }
    return type;
  }

  FieldType embedded() {
    FieldType type;
    type.kind = FieldKind::kRecord;
    type.record = number();
    if (!has_names_) {
      expect('.');
    }
    return type;
  }

  FieldType referred(FieldKind kind, std::uint64_t size) {
    FieldType type;
    type.kind = kind;
    type.size = size;
    type.alignment = 8;
    expect('(');
    expect('$');
    type.record = number();
    expect(')');
    return type;
  }

  FieldType one_of_several() {
    if (++unions_ > kDeepestNesting) {
      refuse("unions are nested too deep");
    }
    FieldType type;
    type.kind = FieldKind::kUnion;
    type.alignment = kUnionTagSize;
    expect('(');
    if (has_names_) {
      expect('<');
      type.tag = name();
      expect(',');
      type.enumeration = name();
      expect('>');
    }
    do {
      expect(',');
      type.arms.push_back(arm());
    } while (next() == ',');
    expect(')');
    --unions_;
    return type;
  }

  UnionArm arm() {
    UnionArm arm;
    arm.value = number();
    expect(':');
    if (has_names_) {
      arm.field.name = braced_name();
    }
    arm.field.type = type();
    arm.field.offset = kUnionTagSize;
    return arm;
  }

  std::string_view text_;
  bool has_names_;
  std::size_t at_ = 0;
  unsigned unions_ = 0;
};

std::uint64_t round_up(std::uint64_t size, std::uint64_t alignment) {
  return (size + alignment - 1) / alignment * alignment;
}

// The first type is the top record, the others stand in ascending number.
template <typename Types>
auto* find(Types& types, std::uint32_t number) {
  if (types.front().number == number) {
    return &types.front();
  }
  const auto found =
      std::lower_bound(types.begin() + 1, types.end(), number,
                       [](const RecordType& type, std::uint32_t wanted) { return type.number < wanted; });
  return found != types.end() && found->number == number ? &*found : nullptr;
}

// Gives every record that the top record uses its size, and every field of it its offset.
class Layout {
 public:
  explicit Layout(std::vector<RecordType>& types) : types_(types) {
    lay_out(types_.front(), 0);
    while (!referred_.empty()) {
      RecordType& record = known(referred_.back());
      referred_.pop_back();
      lay_out(record, 0);
    }
  }

 private:
  void lay_out(RecordType& record, unsigned depth) {
    if (record.size != 0) {
      return;
    }
    if (depth > kDeepestNesting) {
      throw Error(ErrorKind::kInternal, type_name(record.number) + " is embedded too deep, or in itself");
    }
    std::uint64_t size = 0;
    for (RecordField& field : record.fields) {
      settle(field.type, depth);
      field.offset = round_up(size, field.type.alignment);
      size = field.offset + field.type.size;
      if (size > kLargestRecord) {
        throw Error(ErrorKind::kInternal, type_name(record.number) + " is too large");
      }
      record.alignment = std::max(record.alignment, field.type.alignment);
    }
    record.size = round_up(size, record.alignment);
  }

  // The sizes that the text alone does not tell.
  void settle(FieldType& type, unsigned depth) {
    if (type.kind == FieldKind::kReference || type.kind == FieldKind::kArray) {
      known(type.record);
      referred_.push_back(type.record);
    } else if (type.kind == FieldKind::kRecord) {
      RecordType& record = known(type.record);
      lay_out(record, depth + 1);
      type.size = record.size;
      type.alignment = record.alignment;
    } else if (type.kind == FieldKind::kUnion) {
      std::uint64_t largest = 0;
      for (UnionArm& arm : type.arms) {
        settle(arm.field.type, depth);
        largest = std::max(largest, arm.field.type.size);
      }
      type.size = kUnionTagSize + round_up(largest, type.alignment);
    }
  }

  RecordType& known(std::uint32_t number) {
    RecordType* record = find(types_, number);
    if (record == nullptr) {
      throw Error(ErrorKind::kInternal, type_name(number) + " is used and not defined");
    }
    return *record;
  }

  std::vector<RecordType>& types_;
  std::vector<std::uint32_t> referred_;
};

void check_order(const std::vector<RecordType>& types) {
  for (std::size_t i = 1; i < types.size(); ++i) {
    const std::uint32_t number = types[i].number;
    if (number == types.front().number) {
      throw Error(ErrorKind::kInternal, type_name(number) + " is defined twice");
    }
    if (i > 1 && number <= types[i - 1].number) {
      throw Error(ErrorKind::kInternal, type_name(number) + " is not in ascending order");
    }
  }
}

// Two values of one record could not be told apart.
void check_names(const RecordType& record) {
  std::set<std::string_view> names;
  for (const RecordField& field : record.fields) {
    if (!names.insert(field.name).second) {
      throw Error(ErrorKind::kInternal, type_name(record.number) + " has two fields " + field.name);
    }
  }
}

bool same_but_for_names(const FieldType& one, const FieldType& other) {
  return one.kind == other.kind && one.hint == other.hint && one.size == other.size && one.record == other.record &&
         std::equal(one.arms.begin(), one.arms.end(), other.arms.begin(), other.arms.end(),
                    [](const UnionArm& arm, const UnionArm& other_arm) {
                      return arm.value == other_arm.value && same_but_for_names(arm.field.type, other_arm.field.type);
                    });
}

}  // namespace

std::string type_name(std::uint64_t number) {
  return "$" + std::to_string(number);
}

RecordSchema::RecordSchema(std::string_view text, Form form) : types_(SchemaReader(text, form).definitions()) {
  check_order(types_);
  const Layout layout(types_);
  for (const RecordType& type : types_) {
    if (type.size == 0) {
      throw Error(ErrorKind::kInternal, type_name(type.number) + " is defined and not used");
    }
    if (form == Form::kFull) {
      check_names(type);
    }
  }
}

const RecordType* RecordSchema::find(std::uint32_t number) const {
  return host::find(types_, number);
}

bool same_but_for_names(const RecordType& one, const RecordType& other) {
  return one.number == other.number &&
         std::equal(one.fields.begin(), one.fields.end(), other.fields.begin(), other.fields.end(),
                    [](const RecordField& field, const RecordField& other_field) {
                      return same_but_for_names(field.type, other_field.type);
                    });
}

}  // namespace oclacp::host
