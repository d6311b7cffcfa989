// Any bytes as a record. The first byte chooses one of the module's bags, and the rest is a record of it; or it says
// that the rest up to a newline is a full schema, which is read, and what is after the newline a record of that.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "host/base/error.h"
#include "host/records/record_printer.h"
#include "oclacp/records.h"

namespace {

using oclacp::host::Bag;
using oclacp::host::DecodedField;
using oclacp::host::Error;
using oclacp::host::RecordRegistry;
using oclacp::host::RecordSchema;

const RecordRegistry& registry() {
  static const bool kRegistered = bag_register_all_bundlemgr_distrib_bags() == YFW_OK;
  if (!kRegistered) std::abort();
  return RecordRegistry::of_process();
}

// Every field stands inside of what it is a part of.
void check_extent(const DecodedField& field, std::uint64_t start, std::uint64_t end) {
  if (field.offset < start || field.size > end || field.offset > end - field.size) std::abort();
  for (const DecodedField& member : field.members) check_extent(member, field.offset, field.offset + field.size);
}

void decode(const Bag& bag, std::string bytes) {
  bytes.resize(bag.schema.top().size);
  const DecodedField record = oclacp::host::decode_record(bag, bytes, [](std::uint32_t) { return std::string(); });
  check_extent(record, 0, bytes.size());
  oclacp::host::record_as_table(record);
  oclacp::host::record_as_json(bag, record);
}

void decode_by_own_schema(const std::string& input) {
  const std::size_t newline = input.find('\n');
  const std::string text = input.substr(0, newline);
  try {
    const Bag bag{"fuzzed", "owner", text, "", RecordSchema(text, RecordSchema::Form::kFull)};
    oclacp::host::show_bag(bag);
    decode(bag, newline == std::string::npos ? std::string() : input.substr(newline + 1));
  } catch (const Error&) {
    // Most texts are not schemas.
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string input(reinterpret_cast<const char*>(data) + 1, size - 1);
  const auto& bags = registry().bags();
  if (data[0] < bags.size()) {
    decode(bags[data[0]], input);
  } else {
    decode_by_own_schema(input);
  }
  return 0;
}
