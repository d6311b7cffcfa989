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

TEST(PathSteps, HaveTheModulesAndPredicatesThatAreWritten) {
  EXPECT_THAT(steps_of("/a:b/c[d='e'][ f = \"g'h\" ]/i[.='j']//"),
              testing::ElementsAre("a|b|", "|c|d=e,f=g'h,", "|i|.=j,"));
}

TEST(PathSteps, AValueMayHoldWhatSeparatesSteps) {
  EXPECT_THAT(steps_of("/a[b='c/d:[e]=']"), testing::ElementsAre("|a|b=c/d:[e]=,"));
}

TEST(PathSteps, WhatIsNoPathIsRefusedWithTheWholeOfIt) {
  EXPECT_EQ(refusal_of([] { parse_path_steps("/a:/b"); }),
            "the path '/a:/b': the name of a node is missing behind '/a:'");
  EXPECT_EQ(refusal_of([] { parse_path_steps("a"); }), "the path 'a': '/' is missing behind ''");
}

}  // namespace
}  // namespace oclacp::host
