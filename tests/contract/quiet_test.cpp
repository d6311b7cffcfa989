// With the debug log's filter closed and tracing off, the module formats nothing, and at no time does it allocate
// memory of its own. The C library's functions are replaced by ones that count; what happens inside the platform's
// calls is the platform's and does not count.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "oclacp/lifecycle.h"
#include "support/platform.h"
#include "support/registrations.h"
#include "support/scenario.h"
#include "tests/support/locations.h"

namespace {

struct Counts {
  unsigned formatted = 0;
  unsigned allocated = 0;
  unsigned traced = 0;
};

bool counting = false;
Counts counts;

bool counts_now() {
  return counting && !support::inside_platform();
}

int format_uncounted(char* buffer, size_t size, const char* format, va_list arguments) {
  using Function = int (*)(char*, size_t, const char*, va_list);
  static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "vsnprintf"));
  return next(buffer, size, format, arguments);
}

}  // namespace

// The C library's own names.
// NOLINTBEGIN(readability-*,bugprone-reserved-identifier)

int snprintf(char* buffer, size_t size, const char* format, ...) noexcept {
  if (counts_now()) ++counts.formatted;
  va_list arguments;
  va_start(arguments, format);
  const int length = format_uncounted(buffer, size, format, arguments);
  va_end(arguments);
  return length;
}

int vsnprintf(char* buffer, size_t size, const char* format, va_list arguments) noexcept {
  if (counts_now()) ++counts.formatted;
  return format_uncounted(buffer, size, format, arguments);
}

// The sanitizers have allocation to themselves.
#ifndef OCLACP_SANITIZED

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
}

void* malloc(size_t size) noexcept {
  if (counts_now()) ++counts.allocated;
  return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) noexcept {
  if (counts_now()) ++counts.allocated;
  return __libc_calloc(count, size);
}

void* realloc(void* memory, size_t size) noexcept {
  if (counts_now()) ++counts.allocated;
  return __libc_realloc(memory, size);
}

#endif

// NOLINTEND(readability-*,bugprone-reserved-identifier)

namespace {

std::vector<std::string> scenario_files() {
  std::vector<std::string> files;
  for (const auto& folder : std::filesystem::directory_iterator(std::string(location::kSources) + "/tests/golden")) {
    if (folder.is_directory()) files.push_back(folder.path() / "request");
  }
  return files;
}

struct Sinks {
  bool logging;
  bool tracing;
};

Counts counts_of(const std::string& file, Sinks sinks) {
  const support::Scenario scenario = support::read_scenario(file);
  const yfw_map_walker walk = support::entry_walker(
      support::registered({yfw_map_reg_oclacp_lacpbundles_conf, yfw_map_reg_oclacp_lacpbundles_oper,
                           yfw_map_reg_oclacp_lacpbundles_global_conf, yfw_map_reg_oclacp_lacpglobaldata_oper}),
      scenario.root);
  support::Platform platform;
  platform.set_logging(sinks.logging);
  platform.set_tracing(sinks.tracing);
  scenario.apply(platform);
  support::Request request(scenario.root);
  counts = {};
  counting = true;
  walk(platform.ctx(), request.root(), platform.output());
  counting = false;
  counts.traced = platform.count("_lstrace");
  EXPECT_EQ(counts.traced != 0, sinks.tracing);
  EXPECT_EQ(platform.count("dt_log_filter_adv") != 0, sinks.logging);
  EXPECT_EQ(platform.count("ret_nc_yfw_trace_index_incr"), counts.traced);
  return counts;
}

TEST(QuietModule, BothSinksClosed_FormatsNothing) {
  ASSERT_FALSE(scenario_files().empty());
  for (const std::string& file : scenario_files()) {
    SCOPED_TRACE(file);
    EXPECT_EQ(counts_of(file, {.logging = false, .tracing = false}).formatted, 0U);
  }
}

TEST(QuietModule, DebugLogOnly_FormatsNothing) {
  for (const std::string& file : scenario_files()) {
    SCOPED_TRACE(file);
    EXPECT_EQ(counts_of(file, {.logging = true, .tracing = false}).formatted, 0U);
  }
}

TEST(QuietModule, TraceOnly_FormatsEachRecordOnce) {
  for (const std::string& file : scenario_files()) {
    SCOPED_TRACE(file);
    const Counts counted = counts_of(file, {.logging = false, .tracing = true});
    EXPECT_EQ(counted.formatted, counted.traced);
  }
}

#ifndef OCLACP_SANITIZED

TEST(QuietModule, AnySinks_AllocateNothing) {
  counting = true;
  std::string control(1000, 'x');
  counting = false;
  ASSERT_GT(counts.allocated, 0U) << "the allocations of this program are not counted";
  for (const std::string& file : scenario_files()) {
    SCOPED_TRACE(file);
    EXPECT_EQ(counts_of(file, {.logging = false, .tracing = false}).allocated, 0U);
    EXPECT_EQ(counts_of(file, {.logging = true, .tracing = true}).allocated, 0U);
  }
}

#endif

}  // namespace
