#include "host/yang/edit_envelope.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

const std::string kNetconf = "urn:ietf:params:xml:ns:netconf:base:1.0";

// What is inside, without the blanks around it; "bare" for a text without an envelope.
std::string opened(const std::string& text) {
  const std::optional<OpenedEdit> edit = open_edit_envelope(text);
  if (!edit) {
    return "bare";
  }
  const size_t begin = edit->text.find_first_not_of(" \n");
  return begin == std::string::npos ? "" : edit->text.substr(begin, edit->text.find_last_not_of(" \n") + 1 - begin);
}

std::string refused(const std::string& text) {
  return refusal_of([&] { open_edit_envelope(text); });
}

TEST(EditEnvelope, Bare_IsLeftAlone) {
  for (const char* text : {"<lacp/>", "", "  ", "{\"a\": \"<config>\"}", "<config xmlns=\"urn:x\"><a/></config>",
                           "<a:config xmlns:a=\"urn:x\"/>", "<!DOCTYPE config><config/>"}) {
    EXPECT_EQ(opened(text), "bare") << text;
  }
}

TEST(EditEnvelope, EachEnvelope_IsOpened) {
  const std::string config = "<config><a xmlns=\"urn:a\"><config/></a></config>";
  const std::string inner = "<a xmlns=\"urn:a\"><config/></a>";
  EXPECT_EQ(opened(config), inner);
  EXPECT_EQ(opened("<?xml version=\"1.0\"?><!-- x --><edit-config>" + config + "</edit-config>"), inner);
  EXPECT_EQ(opened("<rpc message-id=\"1\"><edit-config><target><running/></target>" + config + "</edit-config></rpc>"),
            inner);
  EXPECT_EQ(opened("<config/>"), "");
}

TEST(EditEnvelope, NamespacesAround_AreDeclaredOnTheData) {
  EXPECT_EQ(opened("<nc:config xmlns:nc=\"" + kNetconf + "\" xmlns:x=\"urn:x\"><a xmlns=\"urn:a\"/><x:b/></nc:config>"),
            "<a xmlns:nc=\"" + kNetconf + "\" xmlns:x=\"urn:x\" xmlns=\"urn:a\"/><x:b xmlns:nc=\"" + kNetconf +
                "\" xmlns:x=\"urn:x\"/>");
}

TEST(EditEnvelope, Lines_KeepTheirNumbers) {
  const std::optional<OpenedEdit> edit = open_edit_envelope("<config>\n\n<a xmlns=\"urn:a\"/>\n</config>");
  ASSERT_TRUE(edit);
  EXPECT_EQ(edit->text, "        \n\n<a xmlns=\"urn:a\"/>\n         ");
}

TEST(EditEnvelope, DefaultOperation_IsTold) {
  EXPECT_EQ(open_edit_envelope("<edit-config><default-operation> replace\n</default-operation><config/></edit-config>")
                ->default_operation,
            "replace");
  EXPECT_EQ(open_edit_envelope("<config/>")->default_operation, "");
}

TEST(EditEnvelope, WhatIsNotCarriedOut_IsRefusedWithItsLine) {
  for (const auto& [text, reason] : std::initializer_list<std::pair<std::string, std::string>>{
           {"<rpc>\n<get/></rpc>", " (line 2): <get> is not <edit-config>, the only operation that is taken here"},
           {"<rpc/>", " (line 1): <rpc> holds no <config>"},
           {"<rpc><config/></rpc>", " (line 1): <config> is not <edit-config>, the only operation that is taken here"},
           {"<edit-config><target><candidate/></target><config/></edit-config>",
            " (line 1): <target> says 'candidate', which is not supported here"},
           {"<edit-config><test-option>test-only</test-option><config/></edit-config>",
            " (line 1): <test-option> says 'test-only', which is not supported here"},
           {"<edit-config><error-option>continue-on-error</error-option><config/></edit-config>",
            " (line 1): <error-option> says 'continue-on-error', which is not supported here"},
           {"<edit-config><url>x</url></edit-config>", " (line 1): <url> is not understood in an edit"},
           {"<edit-config><config/><config/></edit-config>", " (line 1): <config> stands there twice"},
           {"<config>\n<a>", " (line 1): <config> has no end"},
           {"<config></konfig>", " (line 1): </konfig> stands where <config> should end"},
           {"<config/><config/>", " (line 1): text after the end of the document"}}) {
    EXPECT_EQ(refused(text), "the request" + reason) << text;
  }
}

TEST(EditEnvelope, TextAroundTheData_IsRefusedWithItsLine) {
  for (const auto& [text, reason] : std::initializer_list<std::pair<std::string, std::string>>{
           {"<!-- --> stray <config/>", " (line 1): the text 'stray'"},
           {"<rpc>\nstray words <edit-config><config/></edit-config></rpc>", " (line 2): the text 'stray words'"},
           {"<rpc><edit-config>\n\n<config/> stray</edit-config></rpc>", " (line 3): the text 'stray'"},
           {"<rpc><edit-config><config/></edit-config>\n<!-- --> stray</rpc>", " (line 2): the text 'stray'"},
           {"<config>stray <a/></config>", " (line 1): the text 'stray'"},
           {"<config><a>text</a>\n stray</config>", " (line 2): the text 'stray'"},
           {"<config/>\nstray", " (line 2): the text 'stray'"}}) {
    EXPECT_EQ(refused(text), "the request" + reason + " stands where only elements may") << text;
  }
  EXPECT_TRUE(
      open_edit_envelope("<?x y?><rpc> <!-- a --> <?x y?>\n<edit-config><config/> <!-- b --></edit-config></rpc>\n"
                         "<!-- c -->\n"));
}

}  // namespace
}  // namespace oclacp::host
