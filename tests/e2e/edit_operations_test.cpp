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
  void expect_unchanged(const Outcome& outcome, const std::string& part, int status = kFailed) const {
    expect_refusal(outcome, part, status);
    EXPECT_EQ(read(), before_);
  }

  // Refused by the translation and by the edit alike.
  void expect_refused(const std::string& request, const std::string& part, int status = kFailed) const {
    expect_refusal(translate(request, {"-d", path()}), part, status);
    expect_unchanged(edit(request), part, status);
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

// An interface without LACP, one that is not configured at all, and two of which a part is the name of one with LACP.
const std::vector<std::string> kAbsent = {"GigabitEthernet0/0/0/4", "Bundle-Ether9", "Bundle-Ether10",
                                          "Bundle-Ether2.100"};

TEST_F(EditOperation, RemoveOfEntryThatIsNotThere_ChangesNothing) {
  for (const std::string& name : kAbsent) {
    SCOPED_TRACE(name);
    for (const std::string& content : {operation("remove"), operation("remove") + R"(, "config": {"name": ")" + name +
                                                                R"(", "interval": "FAST"})"}) {
      const std::string request = entries(entry(name, content));
      const Outcome translated = translate(request, {"-d", path()});
      expect_success(translated);
      EXPECT_EQ(translated.out, "{}\n");
      const Outcome planned = edit(request, {"--dry-run"});
      expect_success(planned);
      EXPECT_EQ(planned.out, "{}\n{}\n");
      expect_success(edit(request, {"--expect-no-change"}));
      expect_success(edit(request));
      EXPECT_EQ(read(), before_);
    }
    expect_success(edit(xml_entry(name, "nc:operation='remove'")));
    EXPECT_EQ(read(), before_);
    EXPECT_EQ(translate(entries(entry(name, operation("remove")))).out, "{}\n");
  }
}

TEST_F(EditOperation, RemoveInEntryThatIsNotThere_ChangesNothing) {
  const std::vector<std::string> contents = {
      R"("config": {"@": {"ietf-netconf:operation": "remove"}})",
      R"("config": {"interval": [null], "@interval": {"ietf-netconf:operation": "remove"},
                    "lacp-mode": [null], "@lacp-mode": {"ietf-netconf:operation": "remove"}})",
  };
  for (const std::string& name : kAbsent) {
    for (const std::string& content : contents) {
      SCOPED_TRACE(name + ": " + content);
      const Outcome planned = edit(entries(entry(name, content)), {"--dry-run"});
      expect_success(planned);
      EXPECT_EQ(planned.out, "{}\n{}\n");
      EXPECT_EQ(planned.err, "");
      expect_success(edit(entries(entry(name, content)), {"--expect-no-change"}));
    }
  }
}

TEST_F(EditOperation, RemoveInEntryThatIsNotThere_LeavesWhatIsSetBesideIt) {
  const std::string content = R"("config": {"lacp-mode": "ACTIVE", "interval": [null],
                                            "@interval": {"ietf-netconf:operation": "remove"}})";
  const Outcome planned = edit(entries(entry("Bundle-Ether9", content)), {"--dry-run"});
  expect_success(planned);
  EXPECT_THAT(planned.out, AllOf(HasSubstr(R"("mode": "active")"), Not(HasSubstr("period"))));
}

TEST_F(EditOperation, RemoveOfEntryThatIsNotThere_LeavesTheRestOfTheRequest) {
  std::string list;
  for (const std::string& name : kAbsent) {
    list += entry(name, operation("remove")) + ",";
  }
  list += entry("Bundle-Ether1", operation("remove")) + ",";
  list += entry("Bundle-Ether2", R"("config": {"name": "Bundle-Ether2", "lacp-mode": "ACTIVE"})");
  expect_success(edit(entries(list)));
  EXPECT_THAT(read(), AllOf(Not(HasSubstr("00:11:22:33:44:55")), HasSubstr(R"("mode": "active")"),
                            Not(HasSubstr(R"("mode": "passive")")), Not(HasSubstr("Bundle-Ether10"))));
}

TEST_F(EditOperation, DeleteOfEntryThatIsNotThere_NamesItAndChangesNothing) {
  for (const std::string& name : kAbsent) {
    SCOPED_TRACE(name);
    const std::string reason = "oclacp: /openconfig-lacp:lacp/interfaces/interface[name='" + name +
                               "']: nothing to delete: the device has no LACP configuration for this interface";
    expect_refused(entries(entry(name, operation("delete"))), reason, kDataMissing);
    expect_refused(entries(entry("Bundle-Ether1", operation("remove")) + "," + entry(name, operation("delete"))),
                   reason, kDataMissing);
    expect_refused(xml_entry(name, "nc:operation='delete'"), reason, kDataMissing);
    expect_unchanged(erase("/lacp/interfaces/interface[name='" + name + "']"), reason, kDataMissing);
    expect_unchanged(edit(entries(R"({"name": ")" + name + "\"}"), {"--operation", "delete"}), reason, kDataMissing);
  }
}

TEST_F(EditOperation, CreateWithoutSettings_IsRefused) {
  const std::string reason = ": cannot be created without a setting in it, the device would not have it\n";
  const std::string of_config = "/config" + reason;
  const std::string create = operation("create") + ", ";
  const std::string removed = R"("config": {"interval": [null],
                                            "@interval": {"ietf-netconf:operation": "remove"}})";
  for (const char* name : {"Bundle-Ether9", "GigabitEthernet0/0/0/4"}) {
    const std::string path = "/interface[name='" + std::string(name) + "']";
    const std::string config = R"("config": {"name": ")" + std::string(name) + "\"}";
    expect_refused(entries(entry(name, operation("create"))), path + reason);
    expect_refused(entries(entry(name, create + config)), path + reason);
    expect_refused(entries(entry(name, create + removed)), path + reason);
    expect_refused(entries(entry(name, R"("config": {)" + operation("create") + "}")), path + of_config);
    expect_refused(xml_entry(name, "nc:operation='create'"), path + reason);
    // So it is not there afterwards either.
    EXPECT_EQ(run({"get", "/lacp/interfaces" + path, "-d", this->path()}).out, "{}\n");
    expect_unchanged(erase("/lacp/interfaces" + path), "nothing to delete", kDataMissing);
  }
}

TEST_F(EditOperation, CreateWithASetting_IsThereAfterwards) {
  const std::string path = "/lacp/interfaces/interface[name='Bundle-Ether9']";
  const std::string request = entries(
      entry("Bundle-Ether9", operation("create") + R"(, "config": {"name": "Bundle-Ether9", "interval": "SLOW"})"));
  expect_success(edit(request));
  EXPECT_THAT(squeezed(run({"get", path, "-d", this->path()}).out), HasSubstr(R"("interval":"SLOW")"));
  before_ = read();
  expect_unchanged(edit(request), ": cannot be created, the device has it already", kDataExists);
  expect_unchanged(edit(entries(entry("Bundle-Ether9", operation("create")))),
                   ": cannot be created, the device has it already", kDataExists);
  expect_success(erase(path));
  EXPECT_EQ(run({"get", path, "-d", this->path()}).out, "{}\n");
}

TEST_F(EditOperation, MergeWithoutSettings_WarnsAndIsRefusedWhenStrict) {
  const std::string reason =
      "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether9']: names no setting, the device will not have "
      "it\n";
  expect_unchanged(edit(config_of("Bundle-Ether9", ""), {"--strict"}), "oclacp: " + reason);
  const Outcome outcome = edit(config_of("Bundle-Ether9", ""));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "oclacp: warning: " + reason);
  EXPECT_EQ(run({"get", "/lacp/interfaces/interface[name='Bundle-Ether9']", "-d", path()}).out, "{}\n");
  // One that is there already has its settings.
  expect_success(edit(config_of("Bundle-Ether1", ""), {"--strict"}));
}

TEST_F(EditOperation, AdditionsBelowADeletedEntry_AreRefused) {
  const std::string path = "/interface[name='Bundle-Ether1']/config";
  const std::string interval = path + "/interval";
  const std::string created = ": cannot be created in a list entry that the request deletes\n";
  const std::string replaced = ": cannot be replaced in a list entry that the request deletes\n";
  const auto deleted = [](const std::string& name, const std::string& config) {
    return entries(entry("Bundle-Ether1", operation(name) + R"(, "config": {)" + config + "}"));
  };
  for (const char* name : {"delete", "remove"}) {
    expect_refused(deleted(name, R"("interval": "SLOW", "@interval": {"ietf-netconf:operation": "create"})"),
                   interval + created);
    expect_refused(deleted(name, R"("interval": "SLOW", "@interval": {"ietf-netconf:operation": "replace"})"),
                   interval + replaced);
    expect_refused(deleted(name, operation("create") + R"(, "interval": "SLOW")"), path + created);
  }
  expect_refused(R"(<lacp xmlns="http://openconfig.net/yang/lacp" xmlns:nc="urn:ietf:params:xml:ns:netconf:base:1.0">
      <interfaces><interface nc:operation="delete"><name>Bundle-Ether1</name>
      <config nc:operation="create"><interval>SLOW</interval></config></interface></interfaces></lacp>)",
                 path + ": cannot be created");
  expect_success(
      edit(entries(entry("Bundle-Ether1", operation("delete") + R"(, "config": {"name": "Bundle-Ether1"})"))));
}

}  // namespace
}  // namespace support
