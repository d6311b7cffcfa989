#include "host/explain/sample_values.h"

#include <algorithm>
#include <string_view>

namespace oclacp::host {
namespace {

// Fast_Periodic_Time and Slow_Periodic_Time, which are one second and thirty.
constexpr const char* kPeriodsInMilliseconds[] = {"1000", "30000"};
// One of these is taken by each type that leaves of the mapped models have: interface names, addresses, numbers.
constexpr const char* kTexts[] = {kSampleInterface, "00:11:22:33:44:55", "1"};

const lysc_type* type_of(const lysc_node* leaf) {
  const lysc_type* type = reinterpret_cast<const lysc_node_leaf*>(leaf)->type;
  return type->basetype == LY_TYPE_LEAFREF ? reinterpret_cast<const lysc_type_leafref*>(type)->realtype : type;
}

// That what a reference names is not there makes no difference.
bool takes(const lysc_node* leaf, const std::string& value) {
  const LY_ERR status =
      lyd_value_validate(leaf->module->ctx, leaf, value.c_str(), value.size(), nullptr, nullptr, nullptr);
  return status == LY_SUCCESS || status == LY_EINCOMPLETE;
}

// The candidates among which are all values of a finite type; for any other type none, and false is answered.
bool append_all(const lysc_type* type, std::vector<std::string>& values) {
  switch (type->basetype) {
    case LY_TYPE_ENUM: {
      const auto* enumeration = reinterpret_cast<const lysc_type_enum*>(type);
      LY_ARRAY_COUNT_TYPE index = 0;
      LY_ARRAY_FOR(enumeration->enums, index) {
        values.emplace_back(enumeration->enums[index].name);
      }
      return true;
    }
    case LY_TYPE_BOOL:
      values.insert(values.end(), {"true", "false"});
      return true;
    case LY_TYPE_UINT8:
      for (int number = 0; number <= UINT8_MAX; ++number) {
        values.push_back(std::to_string(number));
      }
      return true;
    case LY_TYPE_UNION: {
      const auto* members = reinterpret_cast<const lysc_type_union*>(type);
      bool is_finite = true;
      LY_ARRAY_COUNT_TYPE index = 0;
      LY_ARRAY_FOR(members->types, index) {
        is_finite = append_all(members->types[index], values) && is_finite;
      }
      return is_finite;
    }
    default:
      return false;
  }
}

bool is_in_milliseconds(const lysc_node* leaf) {
  const char* units = reinterpret_cast<const lysc_node_leaf*>(leaf)->units;
  return units != nullptr && std::string_view(units) == "milliseconds";
}

}  // namespace

SampleValues sample_values(const lysc_node* leaf) {
  SampleValues samples;
  samples.is_complete = append_all(type_of(leaf), samples.values);
  std::erase_if(samples.values, [&](const std::string& value) { return !takes(leaf, value); });
  if (samples.is_complete) {
    return samples;
  }
  if (is_in_milliseconds(leaf)) {
    samples.values.insert(samples.values.end(), std::begin(kPeriodsInMilliseconds), std::end(kPeriodsInMilliseconds));
  }
  const auto* text =
      std::find_if(std::begin(kTexts), std::end(kTexts), [&](const char* one) { return takes(leaf, one); });
  if (text != std::end(kTexts)) {
    samples.values.emplace_back(*text);
  }
  return samples;
}

}  // namespace oclacp::host
