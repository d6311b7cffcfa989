#include "server/datastores/kept_file.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::server {
namespace {

using host::refusal_of;
using testing::HasSubstr;

const KeptFile& sample() {
  static const KeptFile kSample = {{{"user", "a\nb\\c\td"}, {"note", ""}}, {"first\n", "", "third"}};
  return kSample;
}

TEST(KeptFile, Printed_IsReadBack) {
  const KeptFile read = parse_kept_file(print_kept_file(sample(), "oclacp-test", 1), "oclacp-test", 1, 3, "f");
  EXPECT_EQ(read.fields, sample().fields);
  EXPECT_EQ(read.sections, sample().sections);
}

TEST(KeptFile, CutAnywhere_IsDamaged) {
  const std::string text = print_kept_file(sample(), "oclacp-test", 1);
  for (size_t size = 0; size < text.size(); ++size) {
    EXPECT_THAT(refusal_of([&] { parse_kept_file(text.substr(0, size), "oclacp-test", 1, 3, "f"); }),
                HasSubstr("f: is damaged"))
        << size;
  }
}

TEST(KeptFile, AnyOtherByte_IsToldOrTheFormatIsAnotherOne) {
  const std::string text = print_kept_file(sample(), "oclacp-test", 1);
  for (size_t index = 0; index < text.size(); ++index) {
    std::string changed = text;
    changed[index] = changed[index] == '7' ? '8' : '7';
    EXPECT_NE(refusal_of([&] { parse_kept_file(changed, "oclacp-test", 1, 3, "f"); }), "accepted") << index;
  }
}

TEST(KeptFile, NewerFormat_IsToldAsSuch) {
  EXPECT_EQ(refusal_of([&] { parse_kept_file(print_kept_file(sample(), "oclacp-test", 2), "oclacp-test", 1, 3, "f"); }),
            "f: is of format 2, and this program knows format 1");
}

TEST(KeptFile, MissingField_IsNamed) {
  EXPECT_EQ(refusal_of([&] { static_cast<void>(sample().field("when", "f")); }), "f: is damaged: it has no 'when'");
}

}  // namespace
}  // namespace oclacp::server
