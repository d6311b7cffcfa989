#include "host/records/record_printer.h"

#include "host/base/status_text.h"
#include "tests/unit/host/records/records_test.h"

namespace oclacp::host {
namespace {

constexpr const char* kSchema =
    "$1={number}I{hue}[hue]e{wide}H{text}s{mac}6x%m{port}D%h{many}a($3){one}$2;"
    "$2=?(<tag,hue>,0:{small}C,1:{next}p($3));$3={value}$4;$4=16x%s;";

// The numbers are 5, 2 and 1, the text is at 0x40, the MAC address ends in 9, and all else is zero.
std::string record_bytes() {
  std::string bytes(72, '\0');
  bytes[0] = 5;
  bytes[4] = 2;
  bytes[8] = 1;
  bytes[16] = 0x40;
  bytes[29] = 9;
  return bytes;
}

TEST(RecordPrinter, ListBags_ShowsRecordsAndSizes) {
  RecordRegistry registry;
  const TestDescriptor one("one", "$9={a}$3;$3={a}D;", "$9=$3.;$3=D;", {{9, 4, {0}}, {3, 4, {0}}});
  const TestDescriptor other("another", "$8={a}p($8){b}16x;", "$8=p($8)16x;", {{8, 24, {0, 8}}});
  ASSERT_EQ(registry.start(), YFW_OK);
  ASSERT_EQ(registry.add(&one.descriptor), YFW_OK);
  ASSERT_EQ(registry.add(&other.descriptor), YFW_OK);
  ASSERT_EQ(registry.end(), YFW_OK);
  EXPECT_EQ(list_bags(registry),
            "BAG      RECORD  SIZE  FURTHER RECORDS (SIZE)\n"
            "one      $9         4  $3 (4)\n"
            "another  $8        24\n");
}

TEST(RecordPrinter, ShowBag_ShowsFieldsWithOffsetSizeAndType) {
  EXPECT_EQ(show_bag(bag_of(kSchema)),
            "test, of owner.so\n"
            "\n"
            "record $1, 72 bytes\n"
            "OFFSET  SIZE  FIELD    TYPE\n"
            "     0     2  number   unsigned, 16 bits\n"
            "     4     4  hue      enum hue\n"
            "     8     8  wide     unsigned, 64 bits\n"
            "    16     8  text     reference to text\n"
            "    24     6  mac      MAC address\n"
            "    32     4  port     interface handle\n"
            "    40    16  many     array of $3\n"
            "    56    16  one      one of 2, chosen by tag\n"
            "    56     4    tag    enum hue\n"
            "    64     1    small  unsigned, 8 bits, if tag is 0\n"
            "    64     8    next   reference to $3, if tag is 1\n"
            "\n"
            "record $3, 16 bytes\n"
            "OFFSET  SIZE  FIELD  TYPE\n"
            "     0    16  value  IPv6 address\n");
}

TEST(RecordPrinter, DecodedRecord_IsPrintedAsATable) {
  EXPECT_EQ(record_as_table(decode_record(bag_of("$1={id}$2{hue}[hue]e{text}s{ref}p($1){many}a($2);$2={a}I{b}6x;"),
                                          std::string(48, '\1'), [](std::uint32_t) { return ""; })),
            "OFFSET  SIZE  FIELD  VALUE\n"
            "     0     8  id\n"
            "     0     2    a    257\n"
            "     2     6    b    010101010101\n"
            "     8     4  hue    16843009 (hue)\n"
            "    16     8  text   text at 0x0101010101010101\n"
            "    24     8  ref    $1 at 0x0101010101010101\n"
            "    32    16  many   array of $2: 0x0101010101010101 0x0101010101010101\n");
}

TEST(RecordPrinter, RecordThatIsAUnion_IsPrinted) {
  const Bag bag = bag_of("$1=?(<tag,hue>,0:{small}C);");
  const DecodedField record = decode_record(bag, std::string(16, '\0'), [](std::uint32_t) { return ""; });
  EXPECT_EQ(record_as_table(record),
            "OFFSET  SIZE  FIELD  VALUE\n"
            "     0     4  tag    0 (hue)\n"
            "     8     1  small  0\n");
  EXPECT_EQ(show_bag(bag),
            "test, of owner.so\n"
            "\n"
            "record $1, 16 bytes\n"
            "OFFSET  SIZE  FIELD        TYPE\n"
            "     0    16  (the value)  one of 1, chosen by tag\n"
            "     0     4    tag        enum hue\n"
            "     8     1    small      unsigned, 8 bits, if tag is 0\n");
}

TEST(RecordPrinter, DecodedRecord_IsPrintedAsJson) {
  const Bag bag = bag_of(kSchema);
  const auto names = [](std::uint32_t /*handle*/) { return "a \"b\"\\\n"; };
  EXPECT_EQ(record_as_json(bag, decode_record(bag, record_bytes(), names)),
            "{\n"
            "  \"test\": {\n"
            "    \"number\": 5,\n"
            "    \"hue\": 2,\n"
            "    \"wide\": \"1\",\n"
            "    \"text\": {\"reference\": \"0x0000000000000040\"},\n"
            "    \"mac\": \"00:00:00:00:00:09\",\n"
            "    \"port\": \"a \\\"b\\\"\\\\\\u000a\",\n"
            "    \"many\": {\"array\": [\"0x0000000000000000\", \"0x0000000000000000\"]},\n"
            "    \"one\": {\n"
            "      \"tag\": 0,\n"
            "      \"small\": 0\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST(RecordPrinter, NullReference_IsNullInJson) {
  const Bag bag = bag_of("$1={text}s;");
  const DecodedField record = decode_record(bag, std::string(8, '\0'), [](std::uint32_t) { return ""; });
  EXPECT_EQ(record_as_json(bag, record), "{\n  \"test\": {\n    \"text\": null\n  }\n}\n");
  EXPECT_THAT(record_as_table(record), testing::HasSubstr("text   no text\n"));
}

}  // namespace
}  // namespace oclacp::host
