#include "host/text_file.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

TEST(TextFile, ReadsAllOfIt) {
  const TemporaryFolder folder;
  const std::string content = std::string(200'000, 'x') + "\n";
  folder.write("file", content);
  EXPECT_EQ(read_text_file(folder.path() + "/file"), content);
}

TEST(TextFile, ReadsALittleMoreThanTheLimit) {
  const TemporaryFolder folder;
  folder.write("file", std::string(1'000'000, 'x'));
  const std::string text = read_text_file(folder.path() + "/file", 10);
  EXPECT_GT(text.size(), 10U);
  EXPECT_LT(text.size(), 100'000U);
}

TEST(TextFile, RefusesWhatCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_EQ(refusal_of([] { read_text_file("/no/such"); }), "/no/such: No such file or directory");
  EXPECT_EQ(refusal_of([&] { read_text_file(folder.path()); }), folder.path() + ": Is a directory");
}

}  // namespace
}  // namespace oclacp::host
