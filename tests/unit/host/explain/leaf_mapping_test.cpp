#include "host/explain/leaf_mapping.h"

#include <functional>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;

LeafMapping mapping(bool is_complete, std::vector<Conversion> conversions) {
  return {nullptr, nullptr, std::move(conversions), is_complete};
}

LeafMapping of_eight_bits(const std::function<std::string(int)>& convert) {
  std::vector<Conversion> conversions(256);
  for (int number = 0; number < 256; ++number) {
    conversions[static_cast<size_t>(number)] = {std::to_string(number), convert(number), std::nullopt};
  }
  return mapping(true, conversions);
}

TEST(Conversion, KeptValues_AreDescribedInOneLine) {
  EXPECT_THAT(describe(mapping(true, {{"a", "a", {}}, {"b", "b", {}}})), ElementsAre("as it is"));
  EXPECT_THAT(describe(mapping(false, {{"5", "5", {}}})), ElementsAre("as it is, such as \"5\""));
}

TEST(Conversion, ConditionalMapping_IsDescribedWithItsCondition) {
  LeafMapping conditional = mapping(true, {{"a", "a", {}}});
  conditional.needs_lacp = true;
  EXPECT_THAT(describe(conditional), ElementsAre("as it is", "(only where LACP is configured on the interface)"));
}

TEST(Conversion, OtherValues_AreDescribedOneByOne) {
  EXPECT_THAT(describe(mapping(true, {{"a", "a", {}}, {"b", "x", {}}, {"c", {}, {}}, {"d", {}, "too late"}})),
              ElementsAre("\"a\" -> \"a\"", "\"b\" -> \"x\"", "\"c\" -> nothing", "\"d\" -> refused: too late"));
  EXPECT_THAT(describe(mapping(false, {{"a", "", {}}})),
              ElementsAre("\"a\" -> set, without a value", "(other values were not tried)"));
}

TEST(Conversion, ValuesDecidedByOneBit_AreDescribedByTheBit) {
  EXPECT_THAT(describe(of_eight_bits([](int number) { return (number & 8) != 0 ? "in" : "out"; })),
              ElementsAre("bit 3: 0 -> \"out\", 1 -> \"in\""));
}

TEST(Conversion, ValuesDecidedBySeveralBits_AreDescribedOneByOne) {
  EXPECT_EQ(describe(of_eight_bits([](int number) { return (number & 3) == 3 ? "x" : "y"; })).size(), 256U);
  EXPECT_EQ(describe(of_eight_bits([](int number) {
              return number == 77 ? "x" : (number & 1) != 0 ? "1" : "0";
            })).size(),
            256U);
}

}  // namespace
}  // namespace oclacp::host
