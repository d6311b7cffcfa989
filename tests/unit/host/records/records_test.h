// Descriptors of records, made for tests.
#pragma once

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "host/base/contract.h"
#include "host/records/record_registry.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {

// What a layout table says about one record. No offsets: a null pointer.
struct LayoutRow {
  std::uint64_t number;
  std::uint64_t size;
  std::vector<std::uint64_t> offsets;
};

// A descriptor with all that it points to. Fields of `descriptor` may be changed before it is used.
class TestDescriptor {
 public:
  TestDescriptor(std::string name, std::string full, std::string compact, std::vector<LayoutRow> rows)
      : name_(std::move(name)), full_(std::move(full)), compact_(std::move(compact)), rows_(std::move(rows)) {
    words_ = {rows_.size() - 1, rows_[0].size, address(rows_[0])};
    for (std::size_t i = 1; i < rows_.size(); ++i) {
      words_.insert(words_.end(), {rows_[i].number, rows_[i].size, address(rows_[i])});
    }
    descriptor = {.version = 1,
                  .name = name_.c_str(),
                  .format = 9,
                  .owner_library = "owner.so",
                  .layout = reinterpret_cast<const bag_layout*>(words_.data()),
                  .full_schema = full_.c_str(),
                  .compact_schema = compact_.c_str()};
  }
  TestDescriptor(const TestDescriptor&) = delete;
  TestDescriptor& operator=(const TestDescriptor&) = delete;
  TestDescriptor(TestDescriptor&&) = delete;
  TestDescriptor& operator=(TestDescriptor&&) = delete;
  ~TestDescriptor() = default;

  bag_descriptor descriptor{};

 private:
  static std::uint64_t address(const LayoutRow& row) {
    return row.offsets.empty() ? 0 : reinterpret_cast<std::uint64_t>(row.offsets.data());
  }

  std::string name_;
  std::string full_;
  std::string compact_;
  std::vector<LayoutRow> rows_;
  std::vector<std::uint64_t> words_;  // the layout table as it is in memory
};

// A bag that the registry need not judge.
inline Bag bag_of(const std::string& full_schema) {
  return {"test", "owner.so", full_schema, "", RecordSchema(full_schema, RecordSchema::Form::kFull)};
}

}  // namespace oclacp::host
