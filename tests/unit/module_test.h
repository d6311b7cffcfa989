// What the unit tests of the module share.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/left_behind.h"
#include "support/platform.h"
#include "support/request.h"

namespace support {

// Where a record was emitted: the id of its call site in the debug log, and its line in the trace buffer.
struct Place {
  const std::uint32_t* call_site_id = nullptr;
  int line = 0;
};

// The place of the last record of a text.
inline Place place_of(const Platform& platform, std::string_view text) {
  Place place;
  for (const Record& record : platform.seen().records) {
    if (record.text != text) continue;
    if (record.sink == Record::Sink::kDebugLog) place.call_site_id = record.call_site_id;
    if (record.sink == Record::Sink::kTraceBuffer) place.line = record.line;
  }
  EXPECT_NE(place.line, 0) << "\"" << text << "\" is not recorded";
  return place;
}

inline void expect_two_places(const Place& one, const Place& other) {
  EXPECT_NE(one.call_site_id, other.call_site_id);
  EXPECT_NE(one.line, other.line);
}

// A test with a platform. Whatever it does, the module keeps to the contract.
class ModuleTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_THAT(platform.seen().misuses, testing::IsEmpty()); }

  // The added paths, each as "path" or "path=value".
  [[nodiscard]] std::vector<std::string> added() const {
    std::vector<std::string> paths;
    for (const Addition& addition : platform.additions()) {
      paths.push_back(addition.value ? addition.path + "=" + *addition.value : addition.path);
    }
    return paths;
  }

  // The one path that was added.
  [[nodiscard]] const Addition& only_addition() const {
    static const Addition kNone{};
    EXPECT_EQ(platform.additions().size(), 1U);
    return platform.additions().size() == 1 ? platform.additions().front() : kNone;
  }

  // The position of the first call of an operation, for saying what comes before what.
  [[nodiscard]] std::size_t position(std::string_view function, std::string_view arguments = "") const {
    const std::vector<Call>& calls = platform.calls();
    for (std::size_t i = 0; i < calls.size(); ++i) {
      if (calls[i].function == function && calls[i].arguments.find(arguments) != std::string::npos) return i;
    }
    ADD_FAILURE() << function << " is not called";
    return calls.size();
  }

  Platform platform;
};

}  // namespace support
