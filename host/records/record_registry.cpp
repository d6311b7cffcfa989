#include "host/records/record_registry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "host/base/error.h"
#include "host/base/status_text.h"

namespace oclacp::host {
namespace {

// Reads one of a descriptor's schemas; a refusal says which.
RecordSchema read_schema(const char* text, RecordSchema::Form form) {
  const char* which = form == RecordSchema::Form::kFull ? "full schema" : "compact schema";
  if (text == nullptr) {
    throw Error(ErrorKind::kInternal, std::string("no ") + which);
  }
  try {
    return {text, form};
  } catch (const Error& error) {
    throw Error(ErrorKind::kInternal, std::string(which) + ": " + error.what());
  }
}

void check_same_records(const RecordSchema& full, const RecordSchema& compact) {
  const auto& one = full.types();
  const auto& other = compact.types();
  const auto [difference, end] =
      std::mismatch(one.begin(), one.end(), other.begin(), other.end(),
                    [](const auto& type, const auto& same) { return same_but_for_names(type, same); });
  if (difference != one.end()) {
    throw Error(ErrorKind::kInternal, type_name(difference->number) + " differs between the two schemas");
  }
  if (end != other.end()) {
    throw Error(ErrorKind::kInternal, type_name(end->number) + " is in the compact schema only");
  }
}

// Compares one record of the layout table with what its schema says. A record of bare raw bytes has no offsets.
void check_record(std::uint64_t size, const std::uint64_t* offsets, const RecordType& type) {
  const std::string where = "layout of " + type_name(type.number) + ": ";
  if (size != type.size) {
    throw Error(ErrorKind::kInternal,
                where + std::to_string(size) + " bytes, while its fields take " + std::to_string(type.size));
  }
  const bool has_offsets = !type.is_bare() || type.fields.front().type.kind != FieldKind::kBytes;
  if (has_offsets != (offsets != nullptr)) {
    throw Error(ErrorKind::kInternal, where + (has_offsets ? "it has no offsets" : "raw bytes have no offsets"));
  }
  for (std::size_t i = 0; has_offsets && i < type.fields.size(); ++i) {
    const RecordField& field = type.fields[i];
    if (offsets[i] == field.offset) {
      continue;
    }
    const std::string which = "field " + std::to_string(i + 1) + " at offset " + std::to_string(offsets[i]);
    if (offsets[i] >= size || field.type.size > size - offsets[i]) {
      throw Error(ErrorKind::kInternal,
                  where + which + " lies outside of the record's " + std::to_string(size) + " bytes");
    }
    throw Error(ErrorKind::kInternal, where + which + ", while its fields put it at " + std::to_string(field.offset));
  }
}

void check_layout(const bag_layout* layout, const RecordSchema& schema) {
  if (layout == nullptr) {
    throw Error(ErrorKind::kInternal, "no layout table");
  }
  const std::uint64_t further_count = schema.types().size() - 1;
  if (layout->further_count != further_count) {
    throw Error(ErrorKind::kInternal, "the layout table has " + std::to_string(layout->further_count) +
                                          " further record types, while the schemas have " +
                                          std::to_string(further_count));
  }
  check_record(layout->size, layout->offsets, schema.top());
  const auto* further = reinterpret_cast<const bag_further_record*>(layout + 1);
  for (std::size_t i = 0; i < further_count; ++i) {
    const RecordType& type = schema.types()[i + 1];
    if (further[i].type_number != type.number) {
      throw Error(ErrorKind::kInternal, "the layout table has " + type_name(further[i].type_number) +
                                            " where the schemas have " + type_name(type.number));
    }
    check_record(further[i].size, further[i].offsets, type);
  }
}

bool is_name(const char* text) {
  constexpr const char* kCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
  return *text != '\0' && text[std::strspn(text, kCharacters)] == '\0';
}

// Reads a descriptor whose name is known to be one.
Bag read_descriptor(const bag_descriptor& descriptor) {
  if (descriptor.version != BAG_DESCRIPTOR_VERSION) {
    throw Error(ErrorKind::kInternal, "descriptor version " + std::to_string(descriptor.version) + " is not supported");
  }
  if (descriptor.format != BAG_DESCRIPTOR_FORMAT) {
    throw Error(ErrorKind::kInternal, "descriptor format " + std::to_string(descriptor.format) + " is not supported");
  }
  if (descriptor.owner_library == nullptr || *descriptor.owner_library == '\0') {
    throw Error(ErrorKind::kInternal, "no owner library");
  }
  RecordSchema full = read_schema(descriptor.full_schema, RecordSchema::Form::kFull);
  check_same_records(full, read_schema(descriptor.compact_schema, RecordSchema::Form::kCompact));
  check_layout(descriptor.layout, full);
  return {descriptor.name, descriptor.owner_library, descriptor.full_schema, descriptor.compact_schema,
          std::move(full)};
}

}  // namespace

cerrno RecordRegistry::fail(cerrno status, std::string reason) {
  reason_ = std::move(reason);
  return status;
}

RecordRegistry& RecordRegistry::of_process() {
  static RecordRegistry registry;
  return registry;
}

cerrno RecordRegistry::start() {
  if (is_open_) {
    return fail(kRegistryMisused, "a registration of records has started and not ended");
  }
  is_open_ = true;
  is_spoilt_ = false;
  return YFW_OK;
}

cerrno RecordRegistry::add(const bag_descriptor* descriptor) {
  if (!is_open_) {
    return fail(kRegistryMisused, "no registration of records has started");
  }
  const bool is_named = descriptor != nullptr && descriptor->name != nullptr && is_name(descriptor->name);
  try {
    if (!is_named) {
      throw Error(ErrorKind::kInternal, "no name of letters, digits and underscores");
    }
    Bag bag = read_descriptor(*descriptor);
    check_against_known(bag);
    added_.push_back(std::move(bag));
    return YFW_OK;
  } catch (const Error& error) {
    is_spoilt_ = true;
    const std::string name = is_named ? descriptor->name : "descriptor";
    return fail(kBadDescriptor, name + ": " + error.what());
  }
}

// A name stands for one bag, and a number for one record type, whoever registers it.
void RecordRegistry::check_against_known(const Bag& bag) const {
  for (const auto* known : {&bags_, &added_}) {
    for (const Bag& other : *known) {
      if (other.name == bag.name) {
        throw Error(ErrorKind::kInternal, "registered already");
      }
      for (const RecordType& type : bag.schema.types()) {
        const RecordType* same = other.schema.find(type.number);
        if (same != nullptr && !same_but_for_names(type, *same)) {
          throw Error(ErrorKind::kInternal, type_name(type.number) + " is another record than in " + other.name);
        }
      }
    }
  }
}

cerrno RecordRegistry::end() {
  if (!is_open_) {
    return fail(kRegistryMisused, "no registration of records has started");
  }
  const bool is_spoilt = is_spoilt_;
  if (!is_spoilt) {
    std::move(added_.begin(), added_.end(), std::back_inserter(bags_));
  }
  abort();
  return is_spoilt ? fail(kRegistryMisused, "a registration with a refused descriptor cannot be ended") : YFW_OK;
}

void RecordRegistry::abort() {
  added_.clear();
  is_open_ = false;
}

const Bag* RecordRegistry::find(std::string_view name) const {
  const auto found = std::find_if(bags_.begin(), bags_.end(), [name](const Bag& bag) { return bag.name == name; });
  return found == bags_.end() ? nullptr : &*found;
}

}  // namespace oclacp::host
