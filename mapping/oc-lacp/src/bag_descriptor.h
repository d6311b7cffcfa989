// Builds the descriptor of a bag at compile time, as constant data, from the fields of its record types.
//
// `Types` is the table of record types and has static storage; `Top` is the number of the bag's top record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "bag/bag.h"
#include "bag_schema.h"

namespace ymap {

// A layout as it is in memory: the top record, and behind it the further types.
template <std::size_t Further>
struct LayoutTable {
  bag_layout top;
  bag_further_record further[Further];
};

template <>
struct LayoutTable<0> {
  bag_layout top;
};

static_assert(sizeof(LayoutTable<2>) == sizeof(bag_layout) + 2 * sizeof(bag_further_record),
              "the further types follow the layout without a gap");

// Which of `Types` the top record refers to, directly or not, besides itself.
template <const auto& Types, std::uint32_t Top>
consteval auto mark_further() {
  std::array<bool, std::size(Types)> marks{};
  const RecordType& top = record_type(Types, Top);
  mark_referred(Types, top, marks);
  marks[static_cast<std::size_t>(&top - std::data(Types))] = false;
  return marks;
}

// The numbers of the further types, ascending.
template <const auto& Types, std::uint32_t Top>
consteval auto further_types() {
  constexpr auto kMarks = mark_further<Types, Top>();
  std::array<std::uint32_t, std::count(kMarks.begin(), kMarks.end(), true)> numbers{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < kMarks.size(); ++i) {
    if (kMarks[i]) numbers[count++] = Types[i].number;
  }
  return numbers;
}

template <const auto& Types, std::uint32_t Top>
inline constexpr auto kFurtherTypes = further_types<Types, Top>();

// The offsets of a record's fields.
template <const auto& Types, std::uint32_t Number>
consteval auto field_offsets() {
  constexpr auto kCount = [] {
    std::size_t count = 0;
    lay_out(Types, record_type(Types, Number), 0, [&](std::uint64_t) { ++count; });
    return count;
  }();
  std::array<std::uint64_t, kCount> offsets{};
  std::size_t count = 0;
  lay_out(Types, record_type(Types, Number), 0, [&](std::uint64_t offset) { offsets[count++] = offset; });
  return offsets;
}

template <const auto& Types, std::uint32_t Number>
inline constexpr auto kFieldOffsets = field_offsets<Types, Number>();

template <const auto& Types, std::uint32_t Number>
consteval const std::uint64_t* offsets_or_null() {
  if constexpr (kFieldOffsets<Types, Number>.empty()) {
    return nullptr;
  } else {
    return kFieldOffsets<Types, Number>.data();
  }
}

template <const auto& Types, std::uint32_t Top, std::size_t... Further>
consteval LayoutTable<sizeof...(Further)> layout_table(std::index_sequence<Further...> /*further*/) {
  constexpr bag_layout kTop{sizeof...(Further), extent_of(Types, Top, 0).size, offsets_or_null<Types, Top>()};
  constexpr auto& kNumbers = kFurtherTypes<Types, Top>;
  if constexpr (sizeof...(Further) == 0) {
    return {kTop};
  } else {
    return {kTop,
            {{kNumbers[Further], extent_of(Types, kNumbers[Further], 0).size,
              offsets_or_null<Types, kNumbers[Further]>()}...}};
  }
}

template <const auto& Types, std::uint32_t Top>
inline constexpr auto kLayout = layout_table<Types, Top>(std::make_index_sequence<kFurtherTypes<Types, Top>.size()>());

// Writes a bag's schema: the top record, then the further types.
template <const auto& Types, std::uint32_t Top, typename Put>
constexpr void write_schema(bool with_names, Put put) {
  const auto define = [&](const RecordType& type) {
    put('$');
    write_number(type.number, put);
    put('=');
    if (with_names) {
      for (const char c : type.fields) put(c);
    } else {
      write_without_names(type.fields, put);
    }
    put(';');
  };
  define(record_type(Types, Top));
  for (const std::uint32_t number : kFurtherTypes<Types, Top>) define(record_type(Types, number));
}

// A schema as text with its terminator.
template <const auto& Types, std::uint32_t Top, bool WithNames>
consteval auto schema_text() {
  constexpr auto kLength = [] {
    std::size_t length = 0;
    write_schema<Types, Top>(WithNames, [&](char) { ++length; });
    return length;
  }();
  std::array<char, kLength + 1> text{};
  std::size_t length = 0;
  write_schema<Types, Top>(WithNames, [&](char c) { text[length++] = c; });
  return text;
}

template <const auto& Types, std::uint32_t Top, bool WithNames>
inline constexpr auto kSchema = schema_text<Types, Top, WithNames>();

template <const auto& Types, std::uint32_t Top>
consteval bag_descriptor describe_bag(const char* name, const char* owner_library) {
  return {.version = BAG_DESCRIPTOR_VERSION,
          .name = name,
          .format = BAG_DESCRIPTOR_FORMAT,
          .owner_library = owner_library,
          .layout = &kLayout<Types, Top>.top,
          .full_schema = kSchema<Types, Top, true>.data(),
          .compact_schema = kSchema<Types, Top, false>.data()};
}

}  // namespace ymap
