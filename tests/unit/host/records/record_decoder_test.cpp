#include "host/records/record_decoder.h"

#include "host/devices/interface_table.h"
#include "tests/unit/host/records/records_test.h"

namespace oclacp::host {
namespace {

using Form = DecodedField::Form;

// The bytes of a number as this machine holds it.
template <typename Number>
std::string bytes_of(Number number) {
  return {reinterpret_cast<const char*>(&number), sizeof number};
}

std::string no_interface(std::uint32_t /*handle*/) {
  return {};
}

DecodedField decode(const std::string& schema, const std::string& bytes) {
  return decode_record(bag_of(schema), bytes, no_interface);
}

// The record's only field.
DecodedField decode_one(const std::string& type, const std::string& bytes) {
  const DecodedField record = decode("$1={only}" + type + ";", bytes);
  EXPECT_EQ(record.members.size(), 1U);
  return record.members.front();
}

TEST(RecordDecoder, Numbers_AreInTheByteOrderOfTheMachine) {
  EXPECT_EQ(decode_one("C", "\xfe").value, "254");
  EXPECT_EQ(decode_one("I", bytes_of<std::uint16_t>(0x1234)).value, "4660");
  EXPECT_EQ(decode_one("D", bytes_of<std::uint32_t>(4294967295)).value, "4294967295");
  const DecodedField wide = decode_one("H", bytes_of<std::uint64_t>(UINT64_MAX));
  EXPECT_EQ(wide.value, "18446744073709551615");
  EXPECT_EQ(wide.form, Form::kNumber);
  EXPECT_TRUE(wide.is_wide);
  EXPECT_FALSE(decode_one("D", bytes_of<std::uint32_t>(0)).is_wide);
}

TEST(RecordDecoder, Fields_HaveNameOffsetAndSize) {
  const DecodedField record = decode("$1={a}C{b}I{c}D;", std::string("\x01\0\x02\0\x03\0\0\0", 8));
  ASSERT_EQ(record.members.size(), 3U);
  EXPECT_EQ(record.members[2].name, "c");
  EXPECT_EQ(record.members[2].offset, 4U);
  EXPECT_EQ(record.members[2].size, 4U);
  EXPECT_EQ(record.members[1].offset, 2U);
}

TEST(RecordDecoder, Enumeration_IsANumberWithItsName) {
  const DecodedField field = decode_one("[hue]e", bytes_of<std::uint32_t>(3));
  EXPECT_EQ(field.form, Form::kNumber);
  EXPECT_EQ(field.value, "3");
  EXPECT_EQ(field.of, "hue");
}

TEST(RecordDecoder, Addresses_AreFormattedAsAddresses) {
  EXPECT_EQ(decode_one("N", "\xc0\xa8\x01\x02").value, "192.168.1.2");
  EXPECT_EQ(decode_one("6x%m", std::string("\x02\x00\xab\xcd\xef\x01", 6)).value, "02:00:ab:cd:ef:01");
  EXPECT_EQ(decode_one("16x%s", std::string("\x20\x01\x0d\xb8\0\0\0\0\0\0\0\0\0\0\0\x01", 16)).value, "2001:db8::1");
  EXPECT_EQ(decode_one("6x", std::string("\x02\x00\xab\xcd\xef\x01", 6)).value, "0200abcdef01");
  EXPECT_EQ(decode_one("6x", std::string(6, '\0')).form, Form::kText);
}

TEST(RecordDecoder, InterfaceHandle_IsShownAsTheInterface) {
  const Bag bag = bag_of("$1={known}D%h{unknown}D%h{node}D%n;");
  const auto names = [](std::uint32_t handle) { return handle == 7 ? "Bundle-Ether1" : ""; };
  const std::string bytes = bytes_of<std::uint32_t>(7) + bytes_of<std::uint32_t>(0x80) + bytes_of<std::uint32_t>(7);
  const DecodedField record = decode_record(bag, bytes, names);
  EXPECT_EQ(record.members[0].value, "Bundle-Ether1");
  EXPECT_EQ(record.members[1].value, "0x00000080");
  EXPECT_EQ(record.members[2].value, "0x00000007");
  EXPECT_EQ(record.members[2].form, Form::kText);
}

TEST(RecordDecoder, Handles_CountFromOneInTheInventory) {
  class TwoInterfaces final : public DeviceSnapshot {
   public:
    [[nodiscard]] uint32_t router_type() const override { return 0; }
    [[nodiscard]] const std::vector<Interface>& interfaces() const override { return interfaces_; }
    [[nodiscard]] const lyd_node* running() const override { return nullptr; }

   private:
    std::vector<Interface> interfaces_ = {{"first", InterfaceType::kPhysical}, {"second", InterfaceType::kBundle}};
  };
  const InterfaceNames names = interface_names(TwoInterfaces());
  EXPECT_EQ(names(0), "");
  EXPECT_EQ(names(1), "first");
  EXPECT_EQ(names(2), "second");
  EXPECT_EQ(names(3), "");
}

TEST(RecordDecoder, References_AreNotFollowed) {
  const std::uint64_t address = 0x7f0012345678;
  const DecodedField text = decode_one("s", bytes_of(address));
  EXPECT_EQ(text.form, Form::kReference);
  EXPECT_EQ(text.value, "0x00007f0012345678");
  EXPECT_EQ(text.of, "text");
  const DecodedField record = decode_one("p($1)", bytes_of(address));
  EXPECT_EQ(record.form, Form::kReference);
  EXPECT_EQ(record.of, "$1");
  EXPECT_EQ(decode_one("s", std::string(8, '\0')).form, Form::kNothing);
  EXPECT_EQ(decode_one("p($1)", std::string(8, '\0')).form, Form::kNothing);
}

TEST(RecordDecoder, Array_IsShownByItsTwoWords) {
  const DecodedField field = decode_one("a($1)", bytes_of<std::uint64_t>(2) + bytes_of<std::uint64_t>(0x1000));
  EXPECT_EQ(field.form, Form::kArray);
  EXPECT_EQ(field.value, "0x0000000000000002");
  EXPECT_EQ(field.second, "0x0000000000001000");
  EXPECT_EQ(field.of, "$1");
}

TEST(RecordDecoder, EmbeddedRecord_HasItsFieldsAsMembers) {
  const DecodedField record = decode("$1={a}D{b}$2;$2={c}I{d}I;", std::string("\1\0\0\0\2\0\3\0", 8));
  const DecodedField& embedded = record.members[1];
  EXPECT_EQ(embedded.name, "b");
  EXPECT_EQ(embedded.form, Form::kRecord);
  ASSERT_EQ(embedded.members.size(), 2U);
  EXPECT_EQ(embedded.members[1].name, "d");
  EXPECT_EQ(embedded.members[1].value, "3");
  EXPECT_EQ(embedded.members[1].offset, 6U);
}

TEST(RecordDecoder, RecordOfRawBytes_IsItsValue) {
  const DecodedField record = decode("$1={a}$2;$2=6x%m;", std::string(6, '\1'));
  EXPECT_EQ(record.members[0].name, "a");
  EXPECT_EQ(record.members[0].form, Form::kText);
  EXPECT_EQ(record.members[0].value, "01:01:01:01:01:01");
}

class DecodedUnion : public testing::Test {
 protected:
  static DecodedField decode_with(std::uint32_t tag) {
    const std::string bytes = std::string(8, '\x55') + bytes_of(tag) + "\x66\x66\x66\x66" + "\x0a\1\2\3\4\5\6\7" +
                              "\x08\x09\x0a\x0b\x0c\x0d\x0e\x0f";
    const DecodedField record = decode("$1={a}H{where}$2;$2=?(<AF,af>,11:{v4}N,12:{v6}$3);$3=16x%s;", bytes);
    EXPECT_EQ(record.members.size(), 2U);
    EXPECT_EQ(record.members[1].name, "where");
    return record.members[1];
  }
};

TEST_F(DecodedUnion, KnownDiscriminator_ChoosesItsArm) {
  const DecodedField v4 = decode_with(11);
  ASSERT_EQ(v4.members.size(), 2U);
  EXPECT_EQ(v4.members[0].name, "AF");
  EXPECT_EQ(v4.members[0].value, "11");
  EXPECT_EQ(v4.members[0].of, "af");
  EXPECT_EQ(v4.members[0].offset, 8U);
  EXPECT_EQ(v4.members[1].name, "v4");
  EXPECT_EQ(v4.members[1].value, "10.1.2.3");
  EXPECT_EQ(v4.members[1].offset, 16U);
  const DecodedField v6 = decode_with(12);
  EXPECT_EQ(v6.members[1].name, "v6");
  EXPECT_EQ(v6.members[1].value, "a01:203:405:607:809:a0b:c0d:e0f");
}

TEST_F(DecodedUnion, UnknownDiscriminator_HasNoArm) {
  const DecodedField unknown = decode_with(13);
  ASSERT_EQ(unknown.members.size(), 1U);
  EXPECT_EQ(unknown.members[0].value, "13");
}

TEST(RecordDecoder, OtherSizeThanOneRecord_IsRefused) {
  EXPECT_EQ(refusal_of([] { decode("$1={a}D;", ""); }), "test: a record has 4 bytes, not 0");
  EXPECT_EQ(refusal_of([] { decode("$1={a}D;", "abc"); }), "test: a record has 4 bytes, not 3");
  EXPECT_EQ(refusal_of([] { decode("$1={a}D;", "abcdabcd"); }), "test: a record has 4 bytes, not more");
}

}  // namespace
}  // namespace oclacp::host
