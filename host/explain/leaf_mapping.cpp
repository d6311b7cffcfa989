#include "host/explain/leaf_mapping.h"

#include <algorithm>

namespace oclacp::host {
namespace {

constexpr size_t kNumbersOfEightBits = 256;

std::string quoted(const std::string& value) {
  return '"' + value + '"';
}

std::string result_of(const Conversion& conversion) {
  if (conversion.refusal) {
    return "refused: " + *conversion.refusal;
  }
  if (!conversion.to) {
    return "nothing";
  }
  return conversion.to->empty() ? "set, without a value" : quoted(*conversion.to);
}

bool is_kept(const Conversion& conversion) {
  return conversion.to == conversion.from;
}

// The bit of an 8-bit number that alone decides the result; returns nothing when there is none.
std::optional<size_t> deciding_bit(const LeafMapping& mapping) {
  const std::vector<Conversion>& by_number = mapping.conversions;
  if (!mapping.is_complete || by_number.size() != kNumbersOfEightBits) {
    return std::nullopt;
  }
  for (size_t bit = 0; bit < 8; ++bit) {
    const size_t mask = size_t{1} << bit;
    bool decides = result_of(by_number[0]) != result_of(by_number[mask]);
    for (size_t number = 0; decides && number < by_number.size(); ++number) {
      decides = by_number[number].from == std::to_string(number) &&
                result_of(by_number[number]) == result_of(by_number[number & mask]);
    }
    if (decides) {
      return bit;
    }
  }
  return std::nullopt;
}

std::vector<std::string> describe_values(const LeafMapping& mapping) {
  if (std::all_of(mapping.conversions.begin(), mapping.conversions.end(), is_kept)) {
    return {mapping.is_complete ? "as it is" : "as it is, such as " + quoted(mapping.conversions.front().from)};
  }
  if (const std::optional<size_t> bit = deciding_bit(mapping); bit) {
    return {"bit " + std::to_string(*bit) + ": 0 -> " + result_of(mapping.conversions[0]) + ", 1 -> " +
            result_of(mapping.conversions[size_t{1} << *bit])};
  }
  std::vector<std::string> lines;
  for (const Conversion& conversion : mapping.conversions) {
    lines.push_back(quoted(conversion.from) + " -> " + result_of(conversion));
  }
  if (!mapping.is_complete) {
    lines.emplace_back("(other values were not tried)");
  }
  return lines;
}

}  // namespace

std::vector<std::string> describe(const LeafMapping& mapping) {
  std::vector<std::string> lines = describe_values(mapping);
  if (mapping.needs_lacp) {
    lines.emplace_back("(only where LACP is configured on the interface)");
  }
  return lines;
}

}  // namespace oclacp::host
