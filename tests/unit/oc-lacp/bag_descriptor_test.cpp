#include "bag_descriptor.h"

#include <gmock/gmock.h>

#include <span>
#include <string>

namespace {

// Every type of field, each behind a byte, so that its alignment shows.
// clang-format off
constexpr ymap::RecordType kTypes[] = {
    {1, 104, "{a}C{b}I{c}C{d}D{e}C{f}H{g}C{h}[hue]e{i}C{j}N{k}C{l}s{m}C{n}3x{o}C{p}$3{q}C{r}p($20){s}C{t}a($4)"},
    {3, 4, "{a}I{b}C"},
    {4, 24, "?(<tag,hue>,0:{small}C,7:{large}$5)"},
    {5, 16, "{a}H{b}C"},
    {7, 32, "{a}C{b}$4"},
    {8, 16, "16x%s"},
    {9, 16, "{a}$8"},
    {11, 16, "{a}a($11)"},
    {20, 16, "{a}D%h{b}D%n{c}6x%m"},
};
// clang-format on
static_assert(ymap::are_valid<kTypes>());

template <std::uint32_t Top>
const bag_descriptor kBag = ymap::describe_bag<kTypes, Top>("bag", "library.so");

const bag_further_record* further(const bag_layout* layout) {
  return reinterpret_cast<const bag_further_record*>(layout + 1);
}

std::vector<std::uint64_t> further_types(const bag_descriptor& bag) {
  std::vector<std::uint64_t> numbers;
  for (std::uint64_t i = 0; i < bag.layout->further_count; ++i) numbers.push_back(further(bag.layout)[i].type_number);
  return numbers;
}

TEST(BagDescriptor, Fields_AreAlignedNaturally) {
  const std::uint64_t* offsets = kBag<1>.layout->offsets;
  EXPECT_THAT(std::span(offsets, 20),
              testing::ElementsAre(0, 2, 4, 8, 12, 16, 24, 28, 32, 36, 40, 48, 56, 57, 60, 62, 66, 72, 80, 88));
  EXPECT_EQ(kBag<1>.layout->size, 104U);
}

TEST(BagDescriptor, EmbeddedRecord_HasItsOwnAlignment) {
  EXPECT_THAT(std::span(kBag<7>.layout->offsets, 2), testing::ElementsAre(0, 8));
  EXPECT_EQ(kBag<7>.layout->size, 32U);
}

TEST(BagDescriptor, UnionRecord_HasOneOffset) {
  EXPECT_EQ(kBag<4>.layout->offsets[0], 0U);
  EXPECT_EQ(kBag<4>.layout->size, 24U);
}

TEST(BagDescriptor, RecordOfRawBytes_HasNoOffsets) {
  EXPECT_EQ(kBag<8>.layout->offsets, nullptr);
  EXPECT_EQ(kBag<8>.layout->size, 16U);
  ASSERT_EQ(kBag<9>.layout->further_count, 1U);
  EXPECT_EQ(further(kBag<9>.layout)->offsets, nullptr);
  EXPECT_EQ(further(kBag<9>.layout)->size, 16U);
}

TEST(BagDescriptor, FurtherTypes_AreThoseReferredToInAscendingNumber) {
  EXPECT_THAT(further_types(kBag<1>), testing::ElementsAre(3, 4, 5, 20));
  EXPECT_THAT(further_types(kBag<7>), testing::ElementsAre(4, 5));
  EXPECT_THAT(further_types(kBag<5>), testing::IsEmpty());
}

TEST(BagDescriptor, RecordReferringToItself_IsDescribedOnce) {
  EXPECT_STREQ(kBag<11>.full_schema, "$11={a}a($11);");
}

TEST(BagDescriptor, Union_HasFullAndCompactSchema) {
  EXPECT_STREQ(kBag<7>.full_schema, "$7={a}C{b}$4;$4=?(<tag,hue>,0:{small}C,7:{large}$5);$5={a}H{b}C;");
  EXPECT_STREQ(kBag<7>.compact_schema, "$7=C$4.;$4=?(,0:C,7:$5.);$5=HC;");
}

TEST(BagDescriptor, CompactSchema_MarksTheEndOfEmbeddedRecordsOnly) {
  EXPECT_STREQ(kBag<1>.compact_schema,
               "$1=CICDCHCeCNCsC3xC$3.Cp($20)Ca($4);$3=IC;$4=?(,0:C,7:$5.);$5=HC;$20=D%hD%n6x%m;");
}

TEST(BagDescriptor, Names_AreTheGivenOnes) {
  EXPECT_STREQ(kBag<3>.name, "bag");
  EXPECT_STREQ(kBag<3>.owner_library, "library.so");
}

}  // namespace
