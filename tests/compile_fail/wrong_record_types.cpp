// Wrong record types, and the message that each one leads to: the function of bag_schema.h that the compiler says it
// cannot call, or the text of the assertion that fails. The wrong one is always type 5.
#include "bag_descriptor.h"

#define WRONG(NAME, SIZE, FIELDS, MESSAGE)                                                           \
  constexpr ymap::RecordType NAME[] = {{1, 4, "{number}D"}, {5, SIZE, FIELDS}, {9, 8, "{number}H"}}; \
  static_assert(ymap::are_valid<NAME>());
#define WRONG_ORDER(NAME, MESSAGE)                                                \
  constexpr ymap::RecordType NAME[] = {{5, 4, "{number}D"}, {1, 4, "{number}D"}}; \
  static_assert(ymap::are_valid<NAME>());

// clang-format off
WRONG_ORDER(out_of_order, record types stand in ascending number)
WRONG(unknown_letter, 4, "{a}Q", unknown_field_type)
WRONG(type_missing, 4, "{a}", unknown_field_type)
WRONG(letter_missing_behind_length, 6, "{a}6", unknown_field_type)
WRONG(letter_missing_behind_enumeration, 4, "{a}[hue]D", unknown_field_type)
WRONG(dangling_type, 4, "{a}$2", record_type_is_not_defined)
WRONG(dangling_reference, 8, "{a}p($2)", record_type_is_not_defined)
WRONG(dangling_array, 16, "{a}a($2)", record_type_is_not_defined)
WRONG(dangling_arm, 16, "?(<tag,hue>,0:{a}$2)", record_type_is_not_defined)
WRONG(number_of_type_missing, 4, "{a}$", number_expected)
WRONG(number_of_arm_missing, 16, "?(<tag,hue>,{a}D)", number_expected)
WRONG(dollar_missing, 8, "{a}p(1)", record_type_number_expected)
WRONG(parenthesis_missing, 8, "{a}p($1", closing_parenthesis_missing)
WRONG(parenthesis_of_union_missing, 16, "?(<tag,hue>,0:{a}D", closing_parenthesis_missing)
WRONG(name_missing, 8, "{a}DI", field_name_expected_in_braces)
WRONG(name_of_arm_missing, 16, "?(<tag,hue>,0:D)", field_name_expected_in_braces)
WRONG(raw_bytes_before_fields, 8, "4x{a}D", field_name_expected_in_braces)
WRONG(brace_missing, 4, "{aD", closing_brace_missing)
WRONG(name_is_empty, 4, "{}D", name_is_empty_or_has_an_invalid_character)
WRONG(enumeration_without_name, 4, "{a}e", enumeration_needs_its_name_in_brackets)
WRONG(discriminator_without_enumeration, 16, "?(<tag>,0:{a}D)", enumeration_needs_its_name_in_brackets)
WRONG(bracket_missing, 4, "{a}[huee", closing_bracket_missing)
WRONG(hint_of_another_type, 4, "{a}D%m", unknown_display_hint_for_this_field_type)
WRONG(mac_address_of_four_bytes, 4, "{a}4x%m", unknown_display_hint_for_this_field_type)
WRONG(hint_missing, 4, "{a}D%", unknown_display_hint_for_this_field_type)
WRONG(no_raw_bytes, 4, "{a}0x", raw_bytes_need_a_length)
WRONG(length_too_large, 4, "{a}4294967296x", number_too_large)
WRONG(embedded_in_itself, 4, "{a}$5", record_type_embeds_itself)
WRONG(no_fields, 0, "", record_type_has_no_fields)
WRONG(no_discriminator, 16, "?(0:{a}D)", union_needs_its_discriminator_in_angle_brackets)
WRONG(angle_bracket_missing, 16, "?(<tag,hue,0:{a}D)", closing_angle_bracket_missing)
WRONG(no_arms, 8, "?(<tag,hue>)", union_needs_an_arm)
WRONG(colon_missing, 16, "?(<tag,hue>,0{a}D)", colon_expected_between_value_and_arm)
WRONG(another_size, 4, "{a}D{b}C", the size of a record type is not that of its fields)
// clang-format on
