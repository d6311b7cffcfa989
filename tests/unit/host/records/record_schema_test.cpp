#include "host/records/record_schema.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;

RecordSchema full(const std::string& text) {
  return {text, RecordSchema::Form::kFull};
}

std::vector<std::uint64_t> offsets(const RecordType& type) {
  std::vector<std::uint64_t> all;
  for (const RecordField& field : type.fields) {
    all.push_back(field.offset);
  }
  return all;
}

std::string refusal_of_full(const std::string& text) {
  return refusal_of([&] { full(text); });
}

std::string refusal_of_compact(const std::string& text) {
  return refusal_of([&] { RecordSchema(text, RecordSchema::Form::kCompact); });
}

TEST(RecordSchema, Fields_AreAlignedNaturally) {
  const RecordSchema schema = full("$1={a}C{b}I{c}C{d}D{e}C{f}H{g}3x{h}N{i}C{j}[hue]e{k}C{l}s;");
  EXPECT_THAT(offsets(schema.top()), ElementsAre(0, 2, 4, 8, 12, 16, 24, 28, 32, 36, 40, 48));
  EXPECT_EQ(schema.top().size, 56U);
  EXPECT_EQ(schema.top().alignment, 8U);
}

TEST(RecordSchema, EmbeddedTypes_HaveTheirOwnSizeAndAlignment) {
  const RecordSchema schema = full("$1={a}C{b}$3{c}C{d}$4{e}C;$3={a}I{b}C;$4=?(<tag,hue>,0:{x}C,1:{y}16x%s);");
  EXPECT_THAT(offsets(schema.top()), ElementsAre(0, 2, 6, 8, 32));
  EXPECT_EQ(schema.top().size, 40U);
  EXPECT_EQ(schema.find(4)->size, 24U);
  EXPECT_TRUE(schema.find(4)->is_bare());
  EXPECT_FALSE(schema.find(3)->is_bare());
}

TEST(RecordSchema, References_HaveAFixedSize) {
  const RecordSchema schema = full("$1={a}p($2){b}a($2);$2={a}H{b}H{c}H{d}H;");
  EXPECT_EQ(schema.top().size, 24U);
  EXPECT_EQ(schema.find(2)->size, 32U);
}

TEST(RecordSchema, RecordThatRefersToItself_IsAccepted) {
  EXPECT_EQ(full("$1={next}p($1){value}D;").top().size, 16U);
}

TEST(RecordSchema, NamedUnionField_HasItsTagAndArms) {
  const RecordSchema schema = full("$1={a}D{b}?(<tag,hue>,7:{x}D,9:{y}C);");
  const FieldType& type = schema.top().fields[1].type;
  EXPECT_EQ(schema.top().fields[1].offset, 8U);
  EXPECT_EQ(type.kind, FieldKind::kUnion);
  EXPECT_EQ(type.tag, "tag");
  EXPECT_EQ(type.enumeration, "hue");
  ASSERT_EQ(type.arms.size(), 2U);
  EXPECT_EQ(type.arms[1].value, 9U);
  EXPECT_EQ(type.arms[1].field.name, "y");
  EXPECT_EQ(type.arms[1].field.offset, 8U);
}

TEST(RecordSchema, DisplayHints_AreRead) {
  const RecordSchema schema = full("$1={a}D%h{b}D%n{c}6x%m{d}16x%s{e}D;");
  std::vector<DisplayHint> hints;
  for (const RecordField& field : schema.top().fields) {
    hints.push_back(field.type.hint);
  }
  EXPECT_THAT(hints, ElementsAre(DisplayHint::kInterface, DisplayHint::kNode, DisplayHint::kMac, DisplayHint::kIpv6,
                                 DisplayHint::kNone));
}

TEST(RecordSchema, FullAndCompactForms_GiveTheSameRecords) {
  const RecordSchema names = full("$5={a}[hue]e{b}$2{c}p($2){d}$4;$2={a}6x%m;$4=?(<t,hue>,0:{x}N,1:{y}$2);");
  const RecordSchema compact("$5=e$2.p($2)$4.;$2=6x%m;$4=?(,0:N,1:$2.);", RecordSchema::Form::kCompact);
  ASSERT_EQ(names.types().size(), compact.types().size());
  for (std::size_t i = 0; i < names.types().size(); ++i) {
    EXPECT_TRUE(same_but_for_names(names.types()[i], compact.types()[i])) << i;
    EXPECT_EQ(offsets(names.types()[i]), offsets(compact.types()[i])) << i;
  }
}

TEST(RecordSchema, SameButForNames_IgnoresOnlyNames) {
  const RecordType type = full("$1={a}D{b}6x;").top();
  EXPECT_TRUE(same_but_for_names(type, full("$1={x}D{y}6x;").top()));
  for (const char* other : {"$2={a}D{b}6x;", "$1={a}D;", "$1={a}D{b}7x;", "$1={a}D%h{b}6x;", "$1={a}N{b}6x;",
                            "$1={a}D{b}6x%m;", "$1={a}D{b}6x{c}C;"}) {
    EXPECT_FALSE(same_but_for_names(type, full(other).top())) << other;
  }
  const RecordType one_of = full("$1=?(<t,e>,0:{a}D);").top();
  for (const char* other : {"$1=?(<t,e>,1:{a}D);", "$1=?(<t,e>,0:{a}I);", "$1=?(<t,e>,0:{a}D,1:{b}D);"}) {
    EXPECT_FALSE(same_but_for_names(one_of, full(other).top())) << other;
  }
}

TEST(RecordSchema, InvalidText_IsRefusedWithItsPosition) {
  EXPECT_EQ(refusal_of_full(""), "character 1: '$' is missing");
  EXPECT_EQ(refusal_of_full("1={a}D;"), "character 1: '$' is missing");
  EXPECT_EQ(refusal_of_full("$={a}D;"), "character 2: a number is missing");
  EXPECT_EQ(refusal_of_full("$1{a}D;"), "character 3: '=' is missing");
  EXPECT_EQ(refusal_of_full("$1=;"), "character 4: '{' is missing");
  EXPECT_EQ(refusal_of_full("$1={a}D"), "character 8: '{' is missing");
  EXPECT_EQ(refusal_of_full("$1={a}DI;"), "character 8: '{' is missing");
  EXPECT_EQ(refusal_of_full("$1={}D;"), "character 5: a name is missing");
  EXPECT_EQ(refusal_of_full("$1={a-b}D;"), "character 6: '}' is missing");
  EXPECT_EQ(refusal_of_full("$1={a}Q;"), "character 7: this is not a type of field");
  EXPECT_EQ(refusal_of_full("$1={a}e;"), "character 7: this is not a type of field");
  EXPECT_EQ(refusal_of_full("$1={a}[hue]D;"), "character 12: 'e' is missing");
  EXPECT_EQ(refusal_of_full("$1={a}D%m;"), "character 9: this is not a hint for the type of field before it");
  EXPECT_EQ(refusal_of_full("$1={a}5x%m;"), "character 10: this is not a hint for the type of field before it");
  EXPECT_EQ(refusal_of_full("$1={a}0x;"), "character 8: raw bytes of this length are not supported");
  EXPECT_EQ(refusal_of_full("$1={a}65537x;"), "character 12: raw bytes of this length are not supported");
  EXPECT_EQ(refusal_of_full("$1={a}4294967296x;"), "character 16: the number is too large");
  EXPECT_EQ(refusal_of_full("$1=4x{a}D;"), "character 6: ';' is missing");
  EXPECT_EQ(refusal_of_full("$1=?(<t,e>);"), "character 11: ',' is missing");
  EXPECT_EQ(refusal_of_full("$1=?(,0:{a}D);"), "character 6: '<' is missing");
  EXPECT_EQ(refusal_of_full("$1={a}D;garbage"), "character 9: '$' is missing");
  EXPECT_EQ(refusal_of_compact("$1={a}D;"), "character 4: this is not a type of field");
  EXPECT_EQ(refusal_of_compact("$1=$2;$2=D;"), "character 6: '.' is missing");
  EXPECT_EQ(refusal_of_compact("$1=[hue]e;"), "character 4: this is not a type of field");
  EXPECT_EQ(refusal_of_compact("$1=D"), "character 5: this is not a type of field");
}

TEST(RecordSchema, InconsistentTypes_AreRefused) {
  EXPECT_EQ(refusal_of_full("$1={a}$2;"), "$2 is used and not defined");
  EXPECT_EQ(refusal_of_full("$1={a}p($2);"), "$2 is used and not defined");
  EXPECT_EQ(refusal_of_full("$1={a}a($2);$3={a}D;"), "$2 is used and not defined");
  EXPECT_EQ(refusal_of_full("$1=?(<t,e>,0:{a}$2);"), "$2 is used and not defined");
  EXPECT_EQ(refusal_of_full("$1={a}D;$2={a}D;"), "$2 is defined and not used");
  EXPECT_EQ(refusal_of_full("$5={a}$1{b}$2;$2={a}D;$1={a}D;"), "$1 is not in ascending order");
  EXPECT_EQ(refusal_of_full("$5={a}$1;$1={a}D;$1={a}D;"), "$1 is not in ascending order");
  EXPECT_EQ(refusal_of_full("$5={a}$1;$1={a}D;$5={a}D;"), "$5 is defined twice");
  EXPECT_EQ(refusal_of_full("$1={a}D{a}D;"), "$1 has two fields a");
}

TEST(RecordSchema, RecursiveOrTooLargeRecord_IsRefused) {
  EXPECT_EQ(refusal_of_full("$1={a}$1;"), "$1 is embedded too deep, or in itself");
  EXPECT_EQ(refusal_of_full("$1={a}$2;$2={a}$1;"), "$2 is embedded too deep, or in itself");
  EXPECT_EQ(refusal_of_full("$1={a}65536x;"), "accepted");
  EXPECT_EQ(refusal_of_full("$1={a}65536x{b}C;"), "$1 is too large");
  std::string doubling;
  for (unsigned i = 1; i <= 15; ++i) {
    const std::string next = "$" + std::to_string(i + 1);
    doubling.append("$").append(std::to_string(i)).append("={a}").append(next).append("{b}").append(next).append(";");
  }
  EXPECT_EQ(refusal_of_full(doubling + "$16={a}C;"), "accepted");
  EXPECT_EQ(refusal_of_full(doubling + "$16={a}H;"), "$2 is too large");
}

TEST(RecordSchema, UnionsNestedTooDeep_AreRefused) {
  std::string text = "$1=";
  for (unsigned i = 0; i < 100000; ++i) {
    text += "?(<t,e>,0:{a}";
  }
  EXPECT_THAT(refusal_of_full(text), testing::EndsWith("unions are nested too deep"));
}

}  // namespace
}  // namespace oclacp::host
