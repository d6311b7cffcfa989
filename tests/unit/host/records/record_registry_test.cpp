#include "host/records/record_registry.h"

#include "host/base/status_text.h"
#include "host/translation/record_registration.h"
#include "tests/support/locations.h"
#include "tests/unit/host/records/records_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kFull = "$9={id}$3{count}D{hue}[hue]e{where}$4;$3={mac}6x%m{prio}I;$4=16x%s;";
constexpr const char* kCompact = "$9=$3.De$4.;$3=6x%mI;$4=16x%s;";

std::vector<LayoutRow> rows() {
  return {{9, 32, {0, 8, 12, 16}}, {3, 8, {0, 6}}, {4, 16, {}}};
}

class Registry : public testing::Test {
 protected:
  std::vector<std::string> names() {
    std::vector<std::string> all;
    for (const Bag& bag : registry.bags()) {
      all.push_back(bag.name);
    }
    return all;
  }

  // The reason why a descriptor is refused by a registry that holds what `registry` holds, or "accepted".
  std::string judge(const bag_descriptor* descriptor) {
    EXPECT_EQ(registry.start(), YFW_OK);
    const cerrno status = registry.add(descriptor);
    registry.abort();
    EXPECT_THAT(status, testing::AnyOf(YFW_OK, kBadDescriptor));
    return status == YFW_OK ? "accepted" : registry.reason();
  }

  std::string judge_rows(std::vector<LayoutRow> rows) {
    const TestDescriptor bag("bag", kFull, kCompact, std::move(rows));
    return judge(&bag.descriptor);
  }

  std::string judge_schemas(const std::string& full, const std::string& compact) {
    const TestDescriptor bag("bag", full, compact, rows());
    return judge(&bag.descriptor);
  }

  void put_in_force(const TestDescriptor& bag) {
    ASSERT_EQ(registry.start(), YFW_OK);
    ASSERT_EQ(registry.add(&bag.descriptor), YFW_OK) << registry.reason();
    ASSERT_EQ(registry.end(), YFW_OK);
  }

  RecordRegistry registry;
  TestDescriptor good{"bag", kFull, kCompact, rows()};
  TestDescriptor other{"other", "$5={a}D;", "$5=D;", {{5, 4, {0}}}};
};

TEST_F(Registry, EndOfATransaction_RegistersItsDescriptors) {
  EXPECT_EQ(registry.start(), YFW_OK);
  EXPECT_EQ(registry.add(&good.descriptor), YFW_OK);
  EXPECT_EQ(registry.add(&other.descriptor), YFW_OK);
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(registry.end(), YFW_OK);
  EXPECT_THAT(names(), ElementsAre("bag", "other"));
  ASSERT_NE(registry.find("bag"), nullptr);
  EXPECT_EQ(registry.find("bag")->schema.top().size, 32U);
  EXPECT_EQ(registry.find("bag")->owner_library, "owner.so");
  EXPECT_EQ(registry.find("nothing"), nullptr);
}

TEST_F(Registry, AbortedTransaction_RegistersNothing) {
  put_in_force(other);
  EXPECT_EQ(registry.start(), YFW_OK);
  EXPECT_EQ(registry.add(&good.descriptor), YFW_OK);
  registry.abort();
  EXPECT_THAT(names(), ElementsAre("other"));
  put_in_force(good);
  EXPECT_THAT(names(), ElementsAre("other", "bag"));
}

TEST_F(Registry, Bag_OutlivesItsDescriptor) {
  {
    const TestDescriptor short_lived("short", kFull, kCompact, rows());
    put_in_force(short_lived);
  }
  EXPECT_EQ(registry.find("short")->full_schema, kFull);
}

TEST_F(Registry, TransactionWithARefusedDescriptor_CannotBeEnded) {
  bag_descriptor wrong = other.descriptor;
  wrong.version = 2;
  EXPECT_EQ(registry.start(), YFW_OK);
  EXPECT_EQ(registry.add(&good.descriptor), YFW_OK);
  EXPECT_EQ(registry.add(&wrong), kBadDescriptor);
  EXPECT_EQ(registry.end(), kRegistryMisused);
  EXPECT_EQ(registry.reason(), "a registration with a refused descriptor cannot be ended");
  EXPECT_THAT(names(), IsEmpty());
  put_in_force(good);
}

TEST_F(Registry, StepsOutOfOrder_AreRefused) {
  EXPECT_EQ(registry.add(&good.descriptor), kRegistryMisused);
  EXPECT_EQ(registry.reason(), "no registration of records has started");
  EXPECT_EQ(registry.end(), kRegistryMisused);
  registry.abort();
  EXPECT_EQ(registry.start(), YFW_OK);
  EXPECT_EQ(registry.start(), kRegistryMisused);
  EXPECT_EQ(registry.reason(), "a registration of records has started and not ended");
}

TEST_F(Registry, IncompleteOrUnsupportedDescriptor_IsRefused) {
  const auto judge_with = [this](auto change) {
    bag_descriptor descriptor = good.descriptor;
    change(descriptor);
    return judge(&descriptor);
  };
  EXPECT_EQ(judge(&good.descriptor), "accepted");
  EXPECT_EQ(judge(nullptr), "descriptor: no name of letters, digits and underscores");
  EXPECT_EQ(judge_with([](auto& d) { d.name = nullptr; }), "descriptor: no name of letters, digits and underscores");
  EXPECT_EQ(judge_with([](auto& d) { d.name = ""; }), "descriptor: no name of letters, digits and underscores");
  EXPECT_EQ(judge_with([](auto& d) { d.name = "a b"; }), "descriptor: no name of letters, digits and underscores");
  EXPECT_EQ(judge_with([](auto& d) { d.version = 2; }), "bag: descriptor version 2 is not supported");
  EXPECT_EQ(judge_with([](auto& d) { d.format = 8; }), "bag: descriptor format 8 is not supported");
  EXPECT_EQ(judge_with([](auto& d) { d.owner_library = nullptr; }), "bag: no owner library");
  EXPECT_EQ(judge_with([](auto& d) { d.owner_library = ""; }), "bag: no owner library");
  EXPECT_EQ(judge_with([](auto& d) { d.layout = nullptr; }), "bag: no layout table");
  EXPECT_EQ(judge_with([](auto& d) { d.full_schema = nullptr; }), "bag: no full schema");
  EXPECT_EQ(judge_with([](auto& d) { d.compact_schema = nullptr; }), "bag: no compact schema");
}

TEST_F(Registry, InvalidSchema_IsRefused) {
  EXPECT_EQ(judge_schemas("$9={a}Q;", kCompact), "bag: full schema: character 7: this is not a type of field");
  EXPECT_EQ(judge_schemas(kFull, "$9=De$4.;$4=16x%s"),
            "bag: compact schema: character 18: this is not a type of field");
  EXPECT_EQ(judge_schemas(kFull, "$9=De$4.;"), "bag: compact schema: $4 is used and not defined");
}

TEST_F(Registry, SchemasThatDiffer_AreRefused) {
  EXPECT_EQ(judge_schemas(kFull, "$9=$3.He$4.;$3=6x%mI;$4=16x%s;"), "bag: $9 differs between the two schemas");
  EXPECT_EQ(judge_schemas(kFull, "$9=$3.De$4.;$3=6xI;$4=16x%s;"), "bag: $3 differs between the two schemas");
  EXPECT_EQ(judge_schemas("$9={a}D;", "$9=$4.;$4=16x%s;"), "bag: $9 differs between the two schemas");
  EXPECT_EQ(judge_schemas("$9={a}p($9);", "$9=p($9);"),
            "bag: the layout table has 2 further record types, while the schemas have 0");
}

TEST_F(Registry, LayoutThatDiffersFromTheSchemas_IsRefused) {
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, 16}}, {3, 8, {0, 6}}}),
            "bag: the layout table has 1 further record types, while the schemas have 2");
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, 16}}, {4, 16, {}}, {3, 8, {0, 6}}}),
            "bag: the layout table has $4 where the schemas have $3");
  EXPECT_EQ(judge_rows({{9, 36, {0, 8, 12, 16}}, {3, 8, {0, 6}}, {4, 16, {}}}),
            "bag: layout of $9: 36 bytes, while its fields take 32");
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, 16}}, {3, 9, {0, 6}}, {4, 16, {}}}),
            "bag: layout of $3: 9 bytes, while its fields take 8");
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, 16}}, {3, 8, {}}, {4, 16, {}}}), "bag: layout of $3: it has no offsets");
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, 16}}, {3, 8, {0, 6}}, {4, 16, {0}}}),
            "bag: layout of $4: raw bytes have no offsets");
  EXPECT_EQ(judge_rows({{9, 32, {0, 4, 12, 16}}, {3, 8, {0, 6}}, {4, 16, {}}}),
            "bag: layout of $9: field 2 at offset 4, while its fields put it at 8");
}

TEST_F(Registry, OffsetOutsideOfTheRecord_IsRefused) {
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, 17}}, {3, 8, {0, 6}}, {4, 16, {}}}),
            "bag: layout of $9: field 4 at offset 17 lies outside of the record's 32 bytes");
  EXPECT_EQ(judge_rows({{9, 32, {0, 8, 12, UINT64_MAX}}, {3, 8, {0, 6}}, {4, 16, {}}}),
            "bag: layout of $9: field 4 at offset 18446744073709551615 lies outside of the record's 32 bytes");
}

TEST_F(Registry, NameRegisteredTwice_IsRefused) {
  put_in_force(good);
  EXPECT_EQ(judge(&good.descriptor), "bag: registered already");
  EXPECT_EQ(registry.start(), YFW_OK);
  EXPECT_EQ(registry.add(&other.descriptor), YFW_OK);
  EXPECT_EQ(registry.add(&other.descriptor), kBadDescriptor);
  EXPECT_EQ(registry.reason(), "other: registered already");
}

TEST_F(Registry, RecordNumberInAnotherBag_MustBeTheSameRecord) {
  put_in_force(good);
  const TestDescriptor same("same", "$3={address}6x%m{priority}I;", "$3=6x%mI;", {{3, 8, {0, 6}}});
  EXPECT_EQ(judge(&same.descriptor), "accepted");
  const TestDescriptor different("different", "$3={mac}6x{prio}I;", "$3=6xI;", {{3, 8, {0, 6}}});
  EXPECT_EQ(judge(&different.descriptor), "different: $3 is another record than in bag");
}

// The contract's functions, and the module's twenty descriptors.
TEST(ProcessRegistry, Module_RegistersItsRecordsOnce) {
  const RecordRegistry& registry = register_records_of(location::kSchemas, {location::kModule});
  EXPECT_EQ(&registry, &RecordRegistry::of_process());
  EXPECT_EQ(registry.bags().size(), 20U);
  EXPECT_EQ(registry.bags().front().name, "bm_name_bag");
  EXPECT_EQ(registry.bags().back().name, "bm_bundle_applied_lacp_mode");
  EXPECT_EQ(refusal_of([] { register_records_of(location::kSchemas, {location::kModule}); }),
            "bm_name_bag: registered already");
  EXPECT_EQ(registry.bags().size(), 20U);
}

TEST(ProcessRegistry, MissingModule_IsRefused) {
  EXPECT_THAT(refusal_of([] { register_records_of(location::kSchemas, {"/nowhere.so"}); }),
              HasSubstr("the mapping module cannot be loaded"));
}

}  // namespace
}  // namespace oclacp::host
