#include <cstddef>
#include <map>
#include <regex>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "oclacp/records.h"
#include "unit/module_test.h"
#include "unit/oc-lacp/compact_schema.h"

namespace {

using support::CompactSchema;
using support::RecordLayout;

// The memory form that the registry reads.
static_assert(offsetof(bag_descriptor, version) == 0);
static_assert(offsetof(bag_descriptor, name) == 8);
static_assert(offsetof(bag_descriptor, format) == 16);
static_assert(offsetof(bag_descriptor, owner_library) == 24);
static_assert(offsetof(bag_descriptor, layout) == 32);
static_assert(offsetof(bag_descriptor, full_schema) == 40);
static_assert(offsetof(bag_descriptor, compact_schema) == 48);
static_assert(sizeof(bag_descriptor) == 56);
static_assert(sizeof(bag_layout) == 24 && offsetof(bag_layout, size) == 8 && offsetof(bag_layout, offsets) == 16);
static_assert(sizeof(bag_further_record) == 24 && offsetof(bag_further_record, size) == 8);
static_assert(offsetof(bag_further_record, offsets) == 16);

using Sizes = std::map<std::uint64_t, std::uint64_t>;

struct Expected {
  const bag_descriptor* object;
  const bag_descriptor* (*accessor)();
  std::string name;
  std::uint64_t top;
  std::uint64_t size;
  Sizes further;
};

// What the device's own library says about its records.
// clang-format off
const std::vector<Expected>& expected() {
  static const Sizes kBundle = {{128, 6}, {136, 16}, {138, 24}, {139, 64}};
  static const Sizes kMember = {{127, 8}, {128, 6}, {142, 28}, {143, 64}, {144, 44}};
  static const std::vector<Expected> kBags = {
      {&bm_name_bag_bag, bm_name_bag_bag_getfn, "bm_name_bag", 125, 8, {}},
      {&lacp_system_id_bag, lacp_system_id_bag_getfn, "lacp_system_id", 126, 20, {{43, 6}, {91, 8}}},
      {&bm_mac_alloc_bag, bm_mac_alloc_bag_getfn, "bm_mac_alloc", 129, 16, {{128, 6}}},
      {&bm_member_data_bag, bm_member_data_bag_getfn, "bm_member_data", 145, 208, kMember},
      {&bm_bundle_data_bag, bm_bundle_data_bag_getfn, "bm_bundle_data", 152, 184, kBundle},
      {&bm_bundle_combined_data_bag, bm_bundle_combined_data_bag_getfn, "bm_bundle_combined_data", 153, 200,
       {{127, 8}, {128, 6}, {136, 16}, {138, 24}, {139, 64}, {142, 28}, {143, 64}, {144, 44}, {145, 208}, {152, 184}}},
      {&bm_node_combined_data_bag, bm_node_combined_data_bag_getfn, "bm_node_combined_data", 154, 16,
       {{127, 8}, {128, 6}, {142, 28}, {143, 64}, {144, 44}, {145, 208}}},
      {&lacp_bundle_data_bag, lacp_bundle_data_bag_getfn, "lacp_bundle_data", 155, 208,
       {{43, 6}, {91, 8}, {128, 6}, {136, 16}, {138, 24}, {139, 64}, {152, 184}}},
      {&lacp_last_changed_bag, lacp_last_changed_bag_getfn, "lacp_last_changed", 156, 8, {}},
      {&lacp_distrib_debug_data_bag, lacp_distrib_debug_data_bag_getfn, "lacp_distrib_debug_data", 157, 64,
       {{127, 8}, {142, 28}}},
      {&bm_rpl_state_bag, bm_rpl_state_bag_getfn, "bm_rpl_state", 159, 24, {{158, 24}}},
      {&lacp_mbr_data_bag, lacp_mbr_data_bag_getfn, "lacp_mbr_data", 167, 104,
       {{43, 6}, {91, 8}, {93, 4}, {100, 16}, {160, 20}, {162, 4}, {164, 16}, {166, 24}}},
      {&lacp_combined_data_bag, lacp_combined_data_bag_getfn, "lacp_combined_data", 168, 224,
       {{43, 6}, {91, 8}, {93, 4}, {100, 16}, {128, 6}, {136, 16}, {138, 24}, {139, 64}, {152, 184}, {155, 208},
        {160, 20}, {162, 4}, {164, 16}, {166, 24}, {167, 104}}},
      {&bmd_bag_mlacp_bdl_bag, bmd_bag_mlacp_bdl_bag_getfn, "bmd_bag_mlacp_bdl", 173, 48,
       {{128, 6}, {169, 24}, {171, 32}}},
      {&bmd_bag_mlacp_rg_bag, bmd_bag_mlacp_rg_bag_getfn, "bmd_bag_mlacp_rg", 176, 32, {{43, 6}, {91, 8}, {174, 28}}},
      {&bmd_bag_mlacp_data_bag, bmd_bag_mlacp_data_bag_getfn, "bmd_bag_mlacp_data", 177, 48,
       {{43, 6}, {91, 8}, {128, 6}, {169, 24}, {171, 32}, {173, 48}, {174, 28}, {176, 32}}},
      {&bmd_bag_mlacp_data_multiple_bag, bmd_bag_mlacp_data_multiple_bag_getfn, "bmd_bag_mlacp_data_multiple", 178, 16,
       {{43, 6}, {91, 8}, {128, 6}, {169, 24}, {171, 32}, {173, 48}, {174, 28}, {176, 32}, {177, 48}}},
      {&bmd_bag_mlacp_act_data_bag, bmd_bag_mlacp_act_data_bag_getfn, "bmd_bag_mlacp_act_data", 179, 20, {}},
      {&bmd_bag_mlacp_act_data_multiple_bag, bmd_bag_mlacp_act_data_multiple_bag_getfn,
       "bmd_bag_mlacp_act_data_multiple", 180, 16, {{179, 20}}},
      {&bm_bundle_applied_lacp_mode_bag, bm_bundle_applied_lacp_mode_bag_getfn, "bm_bundle_applied_lacp_mode", 181, 4,
       {}},
  };
  return kBags;
}
// clang-format on

std::span<const bag_further_record> further(const bag_layout& layout) {
  return {reinterpret_cast<const bag_further_record*>(&layout + 1), layout.further_count};
}

// Offsets in memory against those that the compact schema gives. The one type of bare raw bytes has none.
void expect_layout(std::uint64_t number, std::uint64_t size, const std::uint64_t* offsets, const RecordLayout& wanted) {
  SCOPED_TRACE("$" + std::to_string(number));
  EXPECT_EQ(size, wanted.size);
  if (number == 136) {
    EXPECT_EQ(offsets, nullptr);
    return;
  }
  ASSERT_NE(offsets, nullptr);
  EXPECT_THAT(std::span(offsets, wanted.offsets.size()), testing::ElementsAreArray(wanted.offsets));
}

TEST(Bags, Accessor_ReturnsTheExportedObject) {
  for (const Expected& bag : expected()) EXPECT_EQ(bag.accessor(), bag.object) << bag.name;
}

TEST(Bags, EveryBag_HasItsNameAndTheSameVersionFormatAndOwner) {
  for (const Expected& bag : expected()) {
    EXPECT_EQ(bag.object->name, bag.name);
    EXPECT_EQ(bag.object->version, 1U) << bag.name;
    EXPECT_EQ(bag.object->format, 9U) << bag.name;
    EXPECT_STREQ(bag.object->owner_library, "libbundlemgr_distrib_bag_desc.dll") << bag.name;
  }
}

TEST(Bags, LayoutTable_HasTheExpectedTypesAndSizes) {
  for (const Expected& bag : expected()) {
    Sizes sizes;
    std::vector<std::uint64_t> order;
    for (const bag_further_record& record : further(*bag.object->layout)) {
      sizes[record.type_number] = record.size;
      order.push_back(record.type_number);
    }
    EXPECT_EQ(bag.object->layout->size, bag.size) << bag.name;
    EXPECT_EQ(sizes, bag.further) << bag.name;
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << bag.name;
  }
}

TEST(Bags, Schema_DefinesTheTopRecordThenFurtherTypesInOrder) {
  for (const Expected& bag : expected()) {
    std::vector<std::uint64_t> wanted{bag.top};
    for (const auto& [number, size] : bag.further) wanted.push_back(number);
    EXPECT_EQ(CompactSchema(bag.object->compact_schema).numbers(), wanted) << bag.name;
  }
}

TEST(Bags, LayoutTable_AgreesWithTheCompactSchema) {
  for (const Expected& bag : expected()) {
    SCOPED_TRACE(bag.name);
    const CompactSchema schema(bag.object->compact_schema);
    const bag_layout& layout = *bag.object->layout;
    expect_layout(bag.top, layout.size, layout.offsets, schema.layout(bag.top));
    for (const bag_further_record& record : further(layout)) {
      expect_layout(record.type_number, record.size, record.offsets, schema.layout(record.type_number));
    }
  }
}

TEST(Bags, CompactSchema_IsTheFullOneWithoutNames) {
  static const std::regex kNames(R"(\{[^}]*\}|\[[^\]]*\]|<[^>]*>)");
  static const std::regex kRecord(R"((\$\d+)(?![\d=]))");
  static const std::regex kReferredRecord(R"(([pa]\(\$\d+)\.)");
  for (const Expected& bag : expected()) {
    const std::string nameless = std::regex_replace(bag.object->full_schema, kNames, "");
    const std::string dotted = std::regex_replace(nameless, kRecord, "$1.");
    EXPECT_EQ(bag.object->compact_schema, std::regex_replace(dotted, kReferredRecord, "$1")) << bag.name;
  }
}

TEST(Bags, TypeNumber_HasOneLayoutInEveryBag) {
  std::map<std::string, std::set<std::string>> bodies;
  static const std::regex kDefinition(R"((\$\d+)=([^;]*);)");
  for (const Expected& bag : expected()) {
    const std::string text = bag.object->full_schema;
    for (std::sregex_iterator found(text.begin(), text.end(), kDefinition), none; found != none; ++found) {
      bodies[(*found)[1]].insert((*found)[2]);
    }
  }
  EXPECT_EQ(bodies.size(), 40U);
  for (const auto& [number, variants] : bodies) EXPECT_EQ(variants.size(), 1U) << number;
}

TEST(Bags, SystemId_HasTheExpectedSchemas) {
  EXPECT_STREQ(lacp_system_id_bag.full_schema,
               "$126={SystemID}$91{ICCPGroupID}D{SystemPriority}I{SystemMACAddress}6x%m;$43={macaddr}6x;"
               "$91={SystemPrio}I{SystemMacAddr}$43;");
  EXPECT_STREQ(lacp_system_id_bag.compact_schema, "$126=$91.DI6x%m;$43=6x;$91=I$43.;");
}

TEST(Bags, SystemId_HasTheExpectedLayout) {
  const bag_layout& layout = *lacp_system_id_bag.layout;
  ASSERT_EQ(layout.further_count, 2U);
  EXPECT_THAT(std::span(layout.offsets, 4), testing::ElementsAre(0, 8, 12, 14));
  EXPECT_EQ(further(layout)[0].type_number, 43U);
  EXPECT_THAT(std::span(further(layout)[0].offsets, 1), testing::ElementsAre(0));
  EXPECT_EQ(further(layout)[1].type_number, 91U);
  EXPECT_THAT(std::span(further(layout)[1].offsets, 2), testing::ElementsAre(0, 2));
}

TEST(Bags, BundleData_HasTheExpectedCompactSchema) {
  EXPECT_STREQ(bm_bundle_data_bag.compact_schema,
               "$152=D%hp($128)HHHCCeHD%ha($139)eIIIeD%hCCeeeeesIIIICCDIIeDHeIC;$128=6x%m;$136=16x%s;"
               "$138=?(,1136568623:N,1136568624:$136.);$139=eDDIDDC$138.D;");
}

TEST(Bags, FullSchemaOfUnion_NamesItsDiscriminatorInAngleBrackets) {
  EXPECT_THAT(bm_bundle_data_bag.full_schema,
              testing::HasSubstr("$138=?(<AF,bm_af_id_enum>,1136568623:{IPV4}N,1136568624:{IPV6}$136);"));
  EXPECT_THAT(lacp_mbr_data_bag.full_schema,
              testing::HasSubstr("$166=?(<MbrType,bmd_member_type_enum>,0:{Local}$162,1:{Foreign}$164);"));
}

TEST(Bags, ActivityData_HasTwentyBytes) {
  const bag_layout& layout = *bmd_bag_mlacp_act_data_bag.layout;
  EXPECT_STREQ(bmd_bag_mlacp_act_data_bag.compact_schema, "$179=DeeIIN;");
  EXPECT_THAT(std::span(layout.offsets, 6), testing::ElementsAre(0, 4, 8, 12, 14, 16));
  EXPECT_EQ(layout.size, 20U);
}

class BagRegistration : public support::ModuleTest {
 protected:
  static constexpr cerrno kRefusal = 0x12345678;

  // The calls of a registration that offers the first `count` bags and then does `last`.
  static std::vector<std::string> calls_offering(std::size_t count, const std::string& last) {
    std::vector<std::string> wanted{"bag_register_start"};
    for (std::size_t i = 0; i < count; ++i) wanted.push_back("bag_register \"" + expected()[i].name + '"');
    wanted.push_back(last);
    return wanted;
  }

  std::vector<std::string> calls() {
    std::vector<std::string> made;
    for (const support::Call& call : platform.calls()) {
      made.push_back(call.arguments.empty() ? call.function : call.function + " " + call.arguments);
    }
    return made;
  }

  void TearDown() override {
    EXPECT_FALSE(platform.seen().registration_is_open);
    ModuleTest::TearDown();
  }
};

TEST_F(BagRegistration, Success_OffersAllInOrderInOneTransaction) {
  EXPECT_EQ(bag_register_all_bundlemgr_distrib_bags(), YFW_OK);
  EXPECT_EQ(calls(), calls_offering(20, "bag_register_end"));
}

TEST_F(BagRegistration, FailedStart_IsReturnedAtOnce) {
  platform.script("bag_register_start", 1, kRefusal);
  EXPECT_EQ(bag_register_all_bundlemgr_distrib_bags(), kRefusal);
  EXPECT_EQ(calls(), std::vector<std::string>{"bag_register_start"});
}

TEST_F(BagRegistration, FailedEnd_IsReturned) {
  platform.script("bag_register_end", 1, kRefusal);
  EXPECT_EQ(bag_register_all_bundlemgr_distrib_bags(), kRefusal);
  EXPECT_EQ(calls(), calls_offering(20, "bag_register_end"));
}

class RefusedBag : public BagRegistration, public testing::WithParamInterface<unsigned> {};

TEST_P(RefusedBag, AnyPosition_AbortsTheTransactionWithItsCode) {
  platform.script("bag_register", GetParam(), kRefusal);
  EXPECT_EQ(bag_register_all_bundlemgr_distrib_bags(), kRefusal);
  EXPECT_EQ(calls(), calls_offering(GetParam(), "bag_register_abort"));
}

INSTANTIATE_TEST_SUITE_P(EveryPosition, RefusedBag, testing::Range(1U, 21U));

}  // namespace
