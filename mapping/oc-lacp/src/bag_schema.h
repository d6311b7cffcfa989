// The schema language of the typed-record registry (bag/bag.h), read at compile time: from the fields of record types,
// each written once, follow the sizes, the offsets and both schema texts.
//
// A wrong record type does not compile. What is wrong is the name of a function that the compiler says it cannot call.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>

namespace ymap {

// A record type: the number by which other types refer to it, its size in bytes, and its fields with their names.
struct RecordType {
  std::uint32_t number;
  std::uint64_t size;
  std::string_view fields;
};

// All of a module's record types, in ascending number.
using RecordTypes = std::span<const RecordType>;

// What can be wrong with record types. Nothing defines these functions: a call ends the evaluation.
namespace schema_error {
void unknown_field_type();
void field_name_expected_in_braces();
void closing_brace_missing();
void closing_bracket_missing();
void closing_parenthesis_missing();
void closing_angle_bracket_missing();
void name_is_empty_or_has_an_invalid_character();
void enumeration_needs_its_name_in_brackets();
void unknown_display_hint_for_this_field_type();
void number_expected();
void number_too_large();
void raw_bytes_need_a_length();
void record_type_number_expected();
void record_type_is_not_defined();
void record_type_embeds_itself();
void record_type_has_no_fields();
void union_needs_its_discriminator_in_angle_brackets();
void union_needs_an_arm();
void colon_expected_between_value_and_arm();
}  // namespace schema_error

// The room that a field or record takes, in bytes.
struct Extent {
  std::uint64_t size;
  std::uint64_t alignment;
};

// A union has its discriminator in front of the arm, and both are aligned to it.
inline constexpr std::uint64_t kDiscriminatorSize = 8;

constexpr std::uint64_t round_up(std::uint64_t size, std::uint64_t alignment) {
  return (size + alignment - 1) / alignment * alignment;
}

constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool is_name_character(char c) {
  return is_digit(c) || c == '_' || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Takes the number away that `text` begins with.
constexpr std::uint32_t take_number(std::string_view& text) {
  if (text.empty() || !is_digit(text.front())) schema_error::number_expected();
  std::uint64_t value = 0;
  for (; !text.empty() && is_digit(text.front()); text.remove_prefix(1)) {
    value = value * 10 + static_cast<std::uint64_t>(text.front() - '0');
    if (value > UINT32_MAX) schema_error::number_too_large();
  }
  return static_cast<std::uint32_t>(value);
}

constexpr const RecordType& record_type(RecordTypes types, std::uint32_t number) {
  const auto found = std::find_if(types.begin(), types.end(), [=](const auto& type) { return type.number == number; });
  if (found == types.end()) schema_error::record_type_is_not_defined();
  return *found;
}

constexpr Extent extent_of(RecordTypes types, std::uint32_t number, std::size_t depth);

// Reads the fields of one record type from left to right.
class FieldReader {
 public:
  // `depth` is the number of records that the type stands in.
  constexpr FieldReader(RecordTypes types, std::string_view fields, std::size_t depth)
      : types_(types), rest_(fields), depth_(depth) {}

  [[nodiscard]] constexpr bool at_end() const { return rest_.empty(); }
  [[nodiscard]] constexpr char next() const { return rest_.empty() ? '\0' : rest_.front(); }

  constexpr void field_name() {
    if (!skip('{')) schema_error::field_name_expected_in_braces();
    name();
    if (!skip('}')) schema_error::closing_brace_missing();
  }

  // Reads the type of one field with its hint.
  constexpr Extent field_type() {
    if (is_digit(next())) return raw_bytes();
    const char letter = next();
    if (!at_end()) rest_.remove_prefix(1);
    switch (letter) {
      case 'C':
        return {1, 1};
      case 'I':
        return {2, 2};
      case 'D':
        hint("hn");
        return {4, 4};
      case 'N':
        return {4, 4};
      case '[':
        return enumeration();
      case 'e':
        schema_error::enumeration_needs_its_name_in_brackets();
        return {};
      case 'H':
      case 's':
        return {8, 8};
      case 'p':
        return reference(8);
      case 'a':
        return reference(16);
      case '$':
        return extent_of(types_, number(), depth_ + 1);
      case '?':
        return one_of_several();
      default:
        schema_error::unknown_field_type();
        return {};
    }
  }

 private:
  constexpr bool skip(char expected) {
    if (next() != expected) return false;
    rest_.remove_prefix(1);
    return true;
  }

  constexpr void name() {
    if (!is_name_character(next())) schema_error::name_is_empty_or_has_an_invalid_character();
    while (is_name_character(next())) rest_.remove_prefix(1);
  }

  constexpr std::uint32_t number() { return take_number(rest_); }

  constexpr void hint(std::string_view allowed) {
    if (!skip('%')) return;
    if (at_end() || allowed.find(next()) == std::string_view::npos) {
      schema_error::unknown_display_hint_for_this_field_type();
    }
    rest_.remove_prefix(1);
  }

  constexpr Extent raw_bytes() {
    const std::uint32_t length = number();
    if (length == 0) schema_error::raw_bytes_need_a_length();
    if (!skip('x')) schema_error::unknown_field_type();
    hint(length == 6 ? "m" : length == 16 ? "s" : "");
    return {length, 1};
  }

  constexpr Extent enumeration() {
    name();
    if (!skip(']')) schema_error::closing_bracket_missing();
    if (!skip('e')) schema_error::unknown_field_type();
    return {4, 4};
  }

  constexpr Extent reference(std::uint64_t size) {
    if (!skip('(') || !skip('$')) schema_error::record_type_number_expected();
    record_type(types_, number());
    if (!skip(')')) schema_error::closing_parenthesis_missing();
    return {size, 8};
  }

  constexpr Extent one_of_several() {
    if (!skip('(') || !skip('<')) schema_error::union_needs_its_discriminator_in_angle_brackets();
    name();
    if (!skip(',')) schema_error::enumeration_needs_its_name_in_brackets();
    name();
    if (!skip('>')) schema_error::closing_angle_bracket_missing();
    if (next() != ',') schema_error::union_needs_an_arm();
    std::uint64_t largest = 0;
    while (skip(',')) {
      number();
      if (!skip(':')) schema_error::colon_expected_between_value_and_arm();
      field_name();
      largest = std::max(largest, field_type().size);
    }
    if (!skip(')')) schema_error::closing_parenthesis_missing();
    return {kDiscriminatorSize + round_up(largest, kDiscriminatorSize), kDiscriminatorSize};
  }

  RecordTypes types_;
  std::string_view rest_;
  std::size_t depth_;
};

// Lays out a record, calling `place` with the offset of each field. A record that is bare raw bytes has none; one that
// is a union has a single one, 0.
template <typename Place>
constexpr Extent lay_out(RecordTypes types, const RecordType& type, std::size_t depth, Place place) {
  FieldReader reader(types, type.fields, depth);
  if (reader.at_end()) schema_error::record_type_has_no_fields();
  if (reader.next() == '?' || is_digit(reader.next())) {
    if (reader.next() == '?') place(0);
    const Extent whole = reader.field_type();
    if (!reader.at_end()) schema_error::field_name_expected_in_braces();
    return whole;
  }
  Extent whole{0, 1};
  while (!reader.at_end()) {
    reader.field_name();
    const Extent field = reader.field_type();
    const std::uint64_t offset = round_up(whole.size, field.alignment);
    place(offset);
    whole = {offset + field.size, std::max(whole.alignment, field.alignment)};
  }
  return {round_up(whole.size, whole.alignment), whole.alignment};
}

// The extent of a type that stands in `depth` other records.
constexpr Extent extent_of(RecordTypes types, std::uint32_t number, std::size_t depth) {
  if (depth >= types.size()) schema_error::record_type_embeds_itself();
  return lay_out(types, record_type(types, number), depth, [](std::uint64_t) {});
}

// One function for each record type, so that the compiler's message about a wrong one names its number.
template <const auto& Types, std::uint32_t Number>
consteval bool is_valid() {
  constexpr Extent kExtent = extent_of(Types, Number, 0);
  static_assert(kExtent.size == record_type(Types, Number).size, "the size of a record type is not that of its fields");
  return true;
}

template <const auto& Types, std::size_t... Row>
consteval bool are_valid(std::index_sequence<Row...> /*rows*/) {
  static_assert(((Row == 0 || Types[Row - (Row > 0)].number < Types[Row].number) && ...),
                "record types stand in ascending number");
  return (is_valid<Types, Types[Row].number>() && ...);
}

// Whether every type can be laid out, has the size that it states and stands in its place. The answer is true, or there
// is none.
template <const auto& Types>
consteval bool are_valid() {
  return are_valid<Types>(std::make_index_sequence<std::size(Types)>());
}

// The fields without names of fields and enumerations, written to `put` character by character.
template <typename Put>
constexpr void write_without_names(std::string_view fields, Put put) {
  char before = '\0';
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const char c = fields[i];
    if (c == '{' || c == '[' || c == '<') {
      i = fields.find(c == '{' ? '}' : c == '[' ? ']' : '>', i);
      continue;
    }
    put(c);
    // An embedded record's number could run into what follows; one between parentheses cannot.
    if (c == '$' && before != '(') {
      for (; i + 1 < fields.size() && is_digit(fields[i + 1]); ++i) put(fields[i + 1]);
      put('.');
    }
    before = c;
  }
}

template <typename Put>
constexpr void write_number(std::uint32_t number, Put put) {
  if (number >= 10) write_number(number / 10, put);
  put(static_cast<char>('0' + number % 10));
}

// Marks the types that a record refers to, directly or not, by their place among `types`.
constexpr void mark_referred(RecordTypes types, const RecordType& type, std::span<bool> referred) {
  for (std::size_t at = type.fields.find('$'); at != std::string_view::npos; at = type.fields.find('$', at + 1)) {
    std::string_view behind = type.fields.substr(at + 1);
    const RecordType& other = record_type(types, take_number(behind));
    bool& mark = referred[static_cast<std::size_t>(&other - types.data())];
    if (mark) continue;
    mark = true;
    mark_referred(types, other, referred);
  }
}

}  // namespace ymap
