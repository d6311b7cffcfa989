#include "host/yang/escapes.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace oclacp::host {
namespace {

using Cases = std::vector<std::pair<const char*, const char*>>;  // as written, and what is meant

TEST(Escapes, OfJson_StandForTheirCharacters) {
  std::string buffer;
  for (const auto& [written, meant] : Cases{{"", ""},
                                            {"plain", "plain"},
                                            {R"(\\ \" \/ \b \f \n \r \t)", "\\ \" / \b \f \n \r \t"},
                                            {R"(a\u0041b)", "aAb"},
                                            {R"(\u00e9\u20AC)", "\u00e9\u20ac"},
                                            {R"(\ud83d\ude00)", "\U0001f600"}}) {
    EXPECT_EQ(unescape_json(written, buffer), meant);
  }
}

TEST(Escapes, OfXml_StandForTheirCharacters) {
  std::string buffer;
  for (const auto& [written, meant] : Cases{{"", ""},
                                            {"plain", "plain"},
                                            {"&lt;&gt;&amp;&quot;&apos;", "<>&\"'"},
                                            {"a&#65;b&#x42;", "aAbB"},
                                            {"&#x20AC;&#x1f600;", "\u20ac\U0001f600"}}) {
    EXPECT_EQ(unescape_xml(written, buffer), meant);
  }
}

TEST(Escapes, ThatAreNone_StayAsWritten) {
  std::string buffer;
  for (const char* written : {"\\", "\\x", "\\u12", "\\u12g4"}) {
    EXPECT_EQ(unescape_json(written, buffer), written);
  }
  for (const char* written : {"&", "&;", "&#;", "&#x;", "&#12", "&#1114112;", "&unknown;"}) {
    EXPECT_EQ(unescape_xml(written, buffer), written);
  }
}

}  // namespace
}  // namespace oclacp::host
