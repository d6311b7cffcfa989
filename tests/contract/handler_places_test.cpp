// Where a handler stands: the file and the line that its assertion names are of one place, and whoever opens the file
// there sees the handler. Every handler that the headers declare is called without a context on the built library.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <csetjmp>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "tests/support/locations.h"
#include "yfw/context.h"
#include "yfw/datatree.h"

namespace {

struct Assertion {
  std::string expression;
  std::string file;
  unsigned int line = 0;
  std::string function;
};

Assertion last_assertion;
std::jmp_buf after_assertion;

}  // namespace

// The module takes this one instead of the C library's, so that a failed assertion can be looked at.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" [[noreturn, gnu::visibility("default")]] void __assert_fail(const char* expression, const char* file,
                                                                       unsigned int line,
                                                                       const char* function) noexcept;
void __assert_fail(const char* expression, const char* file, unsigned int line, const char* function) noexcept {
  last_assertion = {expression, file, line, function};
  std::longjmp(after_assertion, 1);  // NOLINT(cert-err52-cpp): nothing has to be destroyed on the way
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

namespace {

std::string text_of(const std::string& path) {
  std::ifstream file(path);
  EXPECT_TRUE(file) << path << " cannot be read";
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Declared {
  std::string name;
  bool is_container;
};

// The functions that the headers declare with a context and a node.
std::vector<Declared> declared_handlers() {
  std::vector<Declared> handlers;
  const std::regex declaration(
      R"(OCLACP_EXPORT\s+cerrno\s+(\w+)\(\s*yfw_map_ctx ctx,\s*const yfw_datatree\* \w+([^;]*);)");
  for (const char* header : {"openconfig_lacp.h", "native_config.h", "native_oper.h"}) {
    const std::string text = text_of(std::string(location::kSources) + "/include/oclacp/" + header);
    for (std::sregex_iterator at(text.begin(), text.end(), declaration), end; at != end; ++at) {
      handlers.push_back({(*at)[1], (*at)[2].str().find("child_count") != std::string::npos});
    }
  }
  return handlers;
}

void call_without_context(void* function, bool is_container) {
  using Node = cerrno(yfw_map_ctx, const yfw_datatree*, yfw_datatree*);
  using Container = cerrno(yfw_map_ctx, const yfw_datatree*, unsigned int, yfw_datatree*);
  last_assertion = {};
  if (setjmp(after_assertion) != 0) return;  // NOLINT(cert-err52-cpp)
  if (is_container) {
    reinterpret_cast<Container*>(function)(nullptr, nullptr, 0, nullptr);
  } else {
    reinterpret_cast<Node*>(function)(nullptr, nullptr, nullptr);
  }
}

// The lines of a file from `line`, from 1, on: those that are seen there.
std::string lines_from(const std::string& path, unsigned int line) {
  constexpr unsigned int kSeen = 6;
  std::ifstream file(path);
  std::string seen;
  std::string text;
  for (unsigned int at = 1; std::getline(file, text) && at < line + kSeen; ++at) {
    if (at >= line) seen += text + '\n';
  }
  return seen;
}

TEST(HandlerPlaces, EveryHandler_IsShownAtItsPlace) {
  void* const module = dlopen(location::kModule, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  const std::vector<Declared> handlers = declared_handlers();
  ASSERT_GT(handlers.size(), 250U) << "the declarations are not found";
  for (const Declared& handler : handlers) {
    SCOPED_TRACE(handler.name);
    void* const function = dlsym(module, handler.name.c_str());
    if (function == nullptr) {
      ADD_FAILURE() << dlerror();
      continue;
    }
    call_without_context(function, handler.is_container);
    EXPECT_EQ(last_assertion.expression, "((void *)0) != ctx");
    EXPECT_EQ(last_assertion.function.find("cerrno " + handler.name + "(yfw_map_ctx, "), 0U) << last_assertion.function;
    // Files are named from the project on; a compiler cache may lead there from the build folder.
    const std::size_t from_project = last_assertion.file.find("mapping/");
    ASSERT_NE(from_project, std::string::npos) << last_assertion.file;
    const std::string file = std::string(location::kSources) + "/" + last_assertion.file.substr(from_project);
    const std::string seen = lines_from(file, last_assertion.line);
    EXPECT_NE(seen.find(handler.name), std::string::npos)
        << last_assertion.file << ":" << last_assertion.line << " shows\n"
        << seen;
  }
  dlclose(module);
}

}  // namespace
