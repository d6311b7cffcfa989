#include "host/records/record_decoder.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <utility>

#include "host/base/error.h"

namespace oclacp::host {
namespace {

using Form = DecodedField::Form;

std::string hexadecimal(std::uint64_t value, int digits) {
  std::array<char, 24> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "0x%0*llx", digits, static_cast<unsigned long long>(value));
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string hexadecimal_bytes(std::string_view bytes, const char* separator) {
  std::string text;
  for (const char byte : bytes) {
    std::array<char, 3> digits{};
    std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    if (!text.empty()) {
      text += separator;
    }
    text += digits.data();
  }
  return text;
}

std::string address(int family, std::string_view bytes) {
  std::array<char, INET6_ADDRSTRLEN> text{};
  inet_ntop(family, bytes.data(), text.data(), text.size());
  return text.data();
}

class Decoder {
 public:
  Decoder(const RecordSchema& schema, std::string_view bytes, const InterfaceNames& interfaces)
      : schema_(schema), bytes_(bytes), interfaces_(interfaces) {}

  // The record that starts at an offset.
  DecodedField record(const RecordType& type, std::uint64_t offset) {
    if (type.is_bare()) {
      return value(type.fields.front().type, offset);
    }
    DecodedField decoded;
    decoded.offset = offset;
    decoded.size = type.size;
    for (const RecordField& field : type.fields) {
      decoded.members.push_back(this->field(field, offset));
    }
    return decoded;
  }

 private:
  DecodedField field(const RecordField& field, std::uint64_t start) {
    DecodedField decoded = value(field.type, start + field.offset);
    decoded.name = field.name;
    return decoded;
  }

  DecodedField value(const FieldType& type, std::uint64_t offset) {
    DecodedField decoded;
    decoded.offset = offset;
    decoded.size = type.size;
    switch (type.kind) {
      case FieldKind::kRecord:
        return record(*schema_.find(type.record), offset);
      case FieldKind::kUnion:
        add_union(decoded, type);
        break;
      case FieldKind::kUnsigned:
      case FieldKind::kEnumeration:
        set_number(decoded, type);
        break;
      case FieldKind::kIpv4:
        set_text(decoded, address(AF_INET, part(decoded)));
        break;
      case FieldKind::kBytes:
        set_text(decoded, shown_bytes(type.hint, part(decoded)));
        break;
      case FieldKind::kText:
        set_reference(decoded, "text");
        break;
      case FieldKind::kReference:
        set_reference(decoded, type_name(type.record));
        break;
      case FieldKind::kArray:
        set_array(decoded, type);
        break;
    }
    return decoded;
  }

  // The field's own bytes. The caller of the decoder made sure that the record has all of them.
  [[nodiscard]] std::string_view part(const DecodedField& field) const {
    return bytes_.substr(field.offset, field.size);
  }

  [[nodiscard]] std::uint64_t number(std::uint64_t offset, std::uint64_t size) const {
    switch (size) {
      case 1:
        return number_as<std::uint8_t>(offset);
      case 2:
        return number_as<std::uint16_t>(offset);
      case 4:
        return number_as<std::uint32_t>(offset);
      default:
        return number_as<std::uint64_t>(offset);
    }
  }

  template <typename Number>
  [[nodiscard]] std::uint64_t number_as(std::uint64_t offset) const {
    Number number{};
    std::memcpy(&number, bytes_.data() + offset, sizeof number);
    return number;
  }

  void add_union(DecodedField& decoded, const FieldType& type) {
    FieldType tag_type;
    tag_type.kind = FieldKind::kEnumeration;
    tag_type.size = sizeof(std::uint32_t);
    tag_type.enumeration = type.enumeration;
    DecodedField tag = value(tag_type, decoded.offset);
    tag.name = type.tag;
    decoded.members.push_back(std::move(tag));
    const std::uint64_t chosen = number(decoded.offset, tag_type.size);
    const auto arm = std::find_if(type.arms.begin(), type.arms.end(),
                                  [chosen](const UnionArm& candidate) { return candidate.value == chosen; });
    if (arm != type.arms.end()) {
      decoded.members.push_back(field(arm->field, decoded.offset));
    }
  }

  void set_number(DecodedField& decoded, const FieldType& type) {
    const std::uint64_t value = number(decoded.offset, decoded.size);
    if (type.hint == DisplayHint::kNone) {
      decoded.form = Form::kNumber;
      decoded.is_wide = decoded.size == sizeof value;
      decoded.value = std::to_string(value);
      decoded.of = type.enumeration;
      return;
    }
    const std::string name =
        type.hint == DisplayHint::kInterface ? interfaces_(static_cast<std::uint32_t>(value)) : std::string();
    set_text(decoded, name.empty() ? hexadecimal(value, 8) : name);
  }

  static std::string shown_bytes(DisplayHint hint, std::string_view bytes) {
    if (hint == DisplayHint::kIpv6) {
      return address(AF_INET6, bytes);
    }
    return hexadecimal_bytes(bytes, hint == DisplayHint::kMac ? ":" : "");
  }

  static void set_text(DecodedField& decoded, std::string text) {
    decoded.form = Form::kText;
    decoded.value = std::move(text);
  }

  void set_reference(DecodedField& decoded, std::string of) {
    const std::uint64_t address = number(decoded.offset, decoded.size);
    decoded.form = address == 0 ? Form::kNothing : Form::kReference;
    decoded.value = hexadecimal(address, 16);
    decoded.of = std::move(of);
  }

  void set_array(DecodedField& decoded, const FieldType& type) {
    decoded.form = Form::kArray;
    decoded.value = hexadecimal(number(decoded.offset, 8), 16);
    decoded.second = hexadecimal(number(decoded.offset + 8, 8), 16);
    decoded.of = type_name(type.record);
  }

  const RecordSchema& schema_;
  std::string_view bytes_;
  const InterfaceNames& interfaces_;
};

}  // namespace

DecodedField decode_record(const Bag& bag, std::string_view bytes, const InterfaceNames& interfaces) {
  const RecordType& top = bag.schema.top();
  if (bytes.size() != top.size) {
    throw Error(ErrorKind::kInvalidValue, bag.name + ": a record has " + std::to_string(top.size) + " bytes, not " +
                                              (bytes.size() < top.size ? std::to_string(bytes.size()) : "more"));
  }
  return Decoder(bag.schema, bytes, interfaces).record(top, 0);
}

}  // namespace oclacp::host
