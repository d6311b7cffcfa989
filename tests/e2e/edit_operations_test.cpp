// Edit operations on what is there, and on what is not.
#include "tests/e2e/edit_program.h"

namespace support {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::string operation(const std::string& name) {
  return R"("@": {"ietf-netconf:operation": ")" + name + "\"}";
}

// An entry of a request's list of interfaces; `content` are further members in JSON.
std::string entry(const std::string& name, const std::string& content) {
  return R"({"name": ")" + name + "\", " + content + "}";
}

std::string entries(const std::string& list) {
  return R"({"openconfig-lacp:lacp": {"interfaces": {"interface": [)" + list + "]}}}";
}

std::string xml_entry(const std::string& name, const std::string& attributes) {
  return R"(<lacp xmlns="http://openconfig.net/yang/lacp" xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0">)"
         "<interfaces><interface " +
         attributes + "><name>" + name + "</name></interface></interfaces></lacp>";
}

class EditOperation : public testing::Test, protected CopiedDevice {
 protected:
  void expect_unchanged(const Outcome& outcome, const std::string& part) const {
    expect_refusal(outcome, part);
    EXPECT_EQ(read(), before_);
  }

  // Refused by the translation and by the edit alike.
  void expect_refused(const std::string& request, const std::string& part) const {
    expect_refusal(translate(request, {"-d", path()}), part);
    expect_unchanged(edit(request), part);
  }

  std::string before_ = read();
};

TEST_F(EditOperation, NamedTwice_IsRefused) {
  const std::string twice = "/interface[name='Bundle-Ether1']: its operation is named twice\n";
  expect_refused(entries(entry("Bundle-Ether1", R"("@": {"ietf-netconf:operation": "delete",
                                                         "ietf-netconf:operation": "remove"})")),
                 twice);
  expect_refused(entries(entry("Bundle-Ether1", operation("delete") + ", " + operation("delete"))),
                 "the request (line 1): '@' is named twice\n");
  for (const char* value : {"\"SLOW\"", "[null]"}) {
    expect_refused(config_of("Bundle-Ether1", R"("interval": )" + std::string(value) + R"(,
                             "@interval": {"ietf-netconf:operation": "remove"},
                             "@interval": {"ietf-netconf:operation": "delete"})"),
                   "the request (line 3): '@interval' is named twice\n");
  }
  expect_refused(xml_entry("Bundle-Ether1", "nc:operation='delete' nc:operation='merge'"),
                 "the request (line 1): attribute 'nc:operation' is named twice\n");
  expect_refused(xml_entry("Bundle-Ether1",
                           "xmlns:also='urn:ietf:params:xml:ns:netconf:base:1.0' "
                           "nc:operation='delete' also:operation='merge'"),
                 twice);
}

}  // namespace
}  // namespace support
