#include "host/yang/path_parser.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

// The steps of a path: "module|name|child=value,...".
std::vector<std::string> steps_of(const std::string& path) {
  std::vector<std::string> texts;
  for (const PathStep& step : parse_path_steps(path)) {
    std::string text = step.module + "|" + step.name + "|";
    for (const auto& [child, value] : step.predicates) {
      text.append(child).append("=").append(value).append(",");
    }
    texts.push_back(text);
  }
  return texts;
}

TEST(PathSteps, PrefixesAndPredicates_AreKept) {
  EXPECT_THAT(steps_of("/a:b/c[d='e'][ f = \"g'h\" ]/i[.='j']//"),
              testing::ElementsAre("a|b|", "|c|d=e,f=g'h,", "|i|.=j,"));
}

TEST(PathSteps, QuotedValueWithSeparators_IsTakenWhole) {
  EXPECT_THAT(steps_of("/a[b='c/d:[e]=']"), testing::ElementsAre("|a|b=c/d:[e]=,"));
}

TEST(PathSteps, InvalidPath_IsRefusedWithThePath) {
  EXPECT_EQ(refusal_of([] { parse_path_steps("/a:/b"); }),
            "the path '/a:/b': the name of a node is missing after '/a:'");
}

TEST(PathSteps, WithoutTheFirstSlash_IsTheSamePath) {
  EXPECT_EQ(steps_of("a:b/c"), steps_of("/a:b/c"));
}

TEST(PathSteps, ValueWithoutQuotes_EndsAtTheBracket) {
  EXPECT_THAT(steps_of("/a[b=c/d:e f=']/g"), testing::ElementsAre("|a|b=c/d:e f=',", "|g|"));
}

TEST(PathSteps, BackslashInABareValue_TakesAwayTheMeaningOfTheNextCharacter) {
  EXPECT_THAT(steps_of(R"(/a[b=c\]d\\e])"), testing::ElementsAre(R"(|a|b=c]d\e,)"));
  EXPECT_THAT(steps_of(R"(/a[b='c\d'])"), testing::ElementsAre(R"(|a|b=c\d,)")) << "in quotes it is a character";
}

TEST(PathSteps, AsteriskAsAValue_SaysNothing) {
  EXPECT_THAT(steps_of("/a[b=*][c=d]"), testing::ElementsAre("|a|c=d,"));
  EXPECT_THAT(steps_of(R"(/a[b=\*][c='*'])"), testing::ElementsAre("|a|b=*,c=*,")) << "escaped or quoted it is a value";
}

TEST(PathSteps, ModuleInAPredicate_IsSkipped) {
  EXPECT_THAT(steps_of("/a[m:b='c'][m:d=e]"), testing::ElementsAre("|a|b=c,d=e,"));
}

TEST(PathSteps, BareValueWithoutAnEnd_IsRefused) {
  EXPECT_EQ(refusal_of([] { parse_path_steps("/a[b=c"); }), "the path '/a[b=c': ']' is missing after '/a[b=c'");
  EXPECT_EQ(refusal_of([] { parse_path_steps("/a[b=]"); }), "the path '/a[b=]': 'b' is given no value");
}

TEST(PathSteps, LongPath_IsRefusedWithItsLength) {
  EXPECT_EQ(refusal_of([] { parse_path_steps("/" + std::string(100000, 'a')); }),
            "the path '/" + std::string(31, 'a') + "...': has 100001 bytes, more than the 8192 that are taken");
}

}  // namespace
}  // namespace oclacp::host
