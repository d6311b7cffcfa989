// The registry of typed records: what modules have registered, and whether it can be trusted.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/base/contract.h"
#include "host/base/export.h"
#include "host/records/record_schema.h"

namespace oclacp::host {

// A registered bag. A copy: it does not depend on the module that registered it.
struct Bag {
  std::string name;
  std::string owner_library;
  std::string full_schema;
  std::string compact_schema;
  RecordSchema schema;  // the full one
};

// Registers bags in transactions; see bag/bag.h. Used by one thread at a time.
class OCLACP_HOST_API RecordRegistry {
 public:
  // The one that loaded modules register with.
  static RecordRegistry& of_process();

  // Opens a transaction; kRegistryMisused when one is open.
  cerrno start();

  // Takes a descriptor into the open transaction: kBadDescriptor when it is malformed, kRegistryMisused when there is
  // no transaction. The transaction can then only be dropped.
  cerrno add(const bag_descriptor* descriptor);

  // Puts the open transaction in force. kRegistryMisused when there is none, or when it has a refused descriptor; it is
  // then dropped.
  cerrno end();

  // Drops the open transaction, if there is one.
  void abort();

  // All bags in force, in the order in which they were registered.
  [[nodiscard]] const std::vector<Bag>& bags() const { return bags_; }
  // Null when there is none.
  [[nodiscard]] const Bag* find(std::string_view name) const;

  // Why the last operation that failed did so: one sentence that begins with the bag's name. Empty when none did.
  [[nodiscard]] const std::string& reason() const { return reason_; }

 private:
  cerrno fail(cerrno status, std::string reason);
  void check_against_known(const Bag& bag) const;

  std::vector<Bag> bags_;
  std::vector<Bag> added_;  // of the open transaction
  bool is_open_ = false;
  bool is_spoilt_ = false;  // a descriptor of the open transaction was refused
  std::string reason_;
};

}  // namespace oclacp::host
