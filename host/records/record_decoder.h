// Bytes of a record, told apart by the record's schema.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/export.h"
#include "host/records/record_registry.h"

namespace oclacp::host {

// One field of a decoded record.
struct DecodedField {
  enum class Form {
    kNumber,     // `value` is decimal
    kText,       // `value` is what is shown: an address, an interface, a node, raw bytes in hexadecimal
    kNothing,    // a reference that is null
    kReference,  // `value` is an address of the process that wrote the record; what is there is not in the bytes
    kArray,      // `value` and `second` are the two words that stand for the array
    kRecord      // has members
  };

  std::string name;
  std::uint64_t offset = 0;  // from the start of the bytes
  std::uint64_t size = 0;
  Form form = Form::kRecord;
  bool is_wide = false;  // a number of 64 bits
  std::string value;
  std::string second;
  std::string of;  // of a reference or array: what it holds; of an enumeration: its name
  std::vector<DecodedField> members;
};

// The name of the interface with a handle; empty when it is not known.
using InterfaceNames = std::function<std::string(std::uint32_t handle)>;

// Decodes one record of a bag. The bytes are as in the memory of the machine that runs this: numbers in its byte order,
// addresses (MAC, IPv4, IPv6) in network order. Of a union, the arm that its discriminator chooses is decoded; none
// when there is no such arm. Throws Error when `bytes` are not exactly one record.
OCLACP_HOST_API DecodedField decode_record(const Bag& bag, std::string_view bytes, const InterfaceNames& interfaces);

}  // namespace oclacp::host
