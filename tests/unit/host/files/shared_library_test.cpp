#include "host/files/shared_library.h"

#include "host/files/read_file.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

TEST(SharedLibrary, ThatIsWhole_IsAccepted) {
  EXPECT_EQ(refusal_of([] { check_shared_library_is_whole(location::kModule); }), "accepted");
}

TEST(SharedLibrary, ThatIsCut_IsRefusedWithItsLength) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/cut.so";
  const std::string whole = read_text_file(location::kModule);
  // From after the header, which dlopen() itself asks for, to the last byte.
  for (const size_t length : {size_t{64}, size_t{100}, size_t{4096}, whole.size() / 2, whole.size() - 1}) {
    folder.write("cut.so", whole.substr(0, length));
    EXPECT_THAT(refusal_of([&] { check_shared_library_is_whole(file); }),
                testing::StartsWith(file + ": is not a whole shared library: it has " + std::to_string(length) +
                                    " bytes, and its tables say that there are "));
  }
}

TEST(SharedLibrary, WithTablesThatLeadAnywhere_IsRefused) {
  const TemporaryFolder folder;
  std::string library = read_text_file(location::kModule);
  library.replace(0x20, 8, 8, '\xff');  // where the program headers are
  folder.write("odd.so", library);
  EXPECT_THAT(refusal_of([&] { check_shared_library_is_whole(folder.path() + "/odd.so"); }),
              testing::HasSubstr("is not a whole shared library"));
}

TEST(SharedLibrary, OfNoKnownForm_IsLeftToTheLoader) {
  const TemporaryFolder folder;
  folder.write("text", "text");
  folder.write("empty", "");
  for (const char* name : {"/text", "/empty", "/none", ""}) {
    EXPECT_EQ(refusal_of([&] { check_shared_library_is_whole(folder.path() + name); }), "accepted") << name;
  }
}

}  // namespace
}  // namespace oclacp::host
