// The record types that the descriptors define, field by field, against a list that was written on its own.
#include "unit/oc-lacp/record_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "oclacp/records.h"

namespace {

using Fields = std::vector<std::string>;

constexpr const bag_descriptor* kBags[] = {
#define OCLACP_BAG(OBJECT, ...) &OBJECT,
#include "bundlemgr_distrib_bags.inc"
};

std::vector<std::string> found_in(const std::string& text, const std::regex& pattern) {
  return {std::sregex_token_iterator(text.begin(), text.end(), pattern), std::sregex_token_iterator()};
}

// The bodies that a full schema defines, by the number of their type.
std::map<std::uint64_t, std::string> bodies(const bag_descriptor& bag) {
  static const std::regex kDefinition(R"([^;]+;)");
  std::map<std::uint64_t, std::string> all;
  for (const std::string& definition : found_in(bag.full_schema, kDefinition)) {
    const std::size_t equals = definition.find('=');
    all[std::stoull(definition.substr(1))] = definition.substr(equals + 1, definition.size() - equals - 2);
  }
  return all;
}

// The parts of a body, in the form of the list.
Fields parts_of(const std::string& body) {
  static const std::regex kField(R"(\{[^}]*\}[^{]+)");
  static const std::regex kUnionPart(R"(<[^>]*>|\d+:\{[^}]*\}[^,)]+)");
  if (body.front() == '?') return found_in(body, kUnionPart);
  return body.front() == '{' ? found_in(body, kField) : Fields{body};
}

// The listed fields, by the number of their type.
std::map<std::uint64_t, Fields> listed_types() {
  std::map<std::uint64_t, Fields> types;
  for (const support::ListedField& field : support::kListedFields) types[field.type].emplace_back(field.text);
  return types;
}

std::string joined(const Fields& parts, const char* separator) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : separator) + part;
  return text;
}

// The body that parts in the form of the list make up.
std::string body_of(const Fields& parts) {
  return parts.front().front() == '<' ? "?(" + joined(parts, ",") + ")" : joined(parts, "");
}

TEST(RecordTypes, EveryDescriptor_HasTheListedFieldsInOrder) {
  const std::map<std::uint64_t, Fields> types = listed_types();
  for (const bag_descriptor* bag : kBags) {
    for (const auto& [number, body] : bodies(*bag)) {
      SCOPED_TRACE(std::string(bag->name) + ", record type $" + std::to_string(number));
      const auto listed = types.find(number);
      ASSERT_NE(listed, types.end()) << "is not listed: " << body;
      ASSERT_EQ(body_of(parts_of(body)), body) << "was not read whole";
      EXPECT_EQ(joined(parts_of(body), "\n"), joined(listed->second, "\n"));
    }
  }
}

TEST(RecordTypes, ListedType_IsDefinedByADescriptor) {
  std::set<std::uint64_t> listed;
  for (const auto& [number, fields] : listed_types()) listed.insert(number);
  std::set<std::uint64_t> defined;
  for (const bag_descriptor* bag : kBags) {
    for (const auto& [number, body] : bodies(*bag)) defined.insert(number);
  }
  EXPECT_EQ(listed.size(), 40U);
  EXPECT_EQ(defined, listed);
}

}  // namespace
