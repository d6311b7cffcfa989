#include "host/yang/path_text.h"

#include <gtest/gtest.h>

namespace oclacp::host {
namespace {

struct Case {
  const char* value;
  const char* predicate;
};

TEST(AppendPredicate, AnyValue_IsQuotedAsXPathReadsIt) {
  for (const Case& one : {
           Case{"Bundle-Ether1", "[name='Bundle-Ether1']"},
           Case{"", "[name='']"},
           Case{"it's", R"([name="it's"])"},
           Case{R"(a "b")", R"([name='a "b"'])"},
           Case{R"(a'b"c)", R"([name=concat("a'b", '"c')])"},
           Case{R"("'")", R"([name=concat('"', "'", '"')])"},
       }) {
    std::string path;
    append_predicate(path, "name", one.value);
    EXPECT_EQ(path, one.predicate);
  }
}

}  // namespace
}  // namespace oclacp::host
