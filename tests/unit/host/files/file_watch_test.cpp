#include "host/files/file_watch.h"

#include <poll.h>

#include <filesystem>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;

class FileWatchTest : public testing::Test {
 protected:
  FileWatchTest() {
    folder_.write("one", "1");
    watch_.emplace(std::vector<std::string>{file_, folder_.path() + "/two"});
  }

  // Whether the descriptor is readable within a second.
  [[nodiscard]] bool is_signalled(int milliseconds = 1000) const {
    pollfd waited = {watch_->descriptor(), POLLIN, 0};
    return poll(&waited, 1, milliseconds) == 1;
  }

  void expect_change() {
    EXPECT_TRUE(is_signalled());
    EXPECT_TRUE(watch_->take_changes());
    EXPECT_FALSE(is_signalled(0)) << "a change is still signalled after it was taken";
    EXPECT_FALSE(watch_->take_changes()) << "a change is reported twice";
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.path() + "/one";
  std::optional<FileWatch> watch_;
};

TEST_F(FileWatchTest, NothingHappened_IsQuiet) {
  EXPECT_FALSE(is_signalled(0));
  EXPECT_FALSE(watch_->take_changes());
}

TEST_F(FileWatchTest, WrittenInPlace_IsTold) {
  folder_.write("one", "2");
  expect_change();
}

TEST_F(FileWatchTest, ReplacedByRename_IsToldAgainAndAgain) {
  for (const char* content : {"2", "3"}) {
    folder_.write("aside", content);
    static_cast<void>(watch_->take_changes());
    fs::rename(folder_.path() + "/aside", file_);
    expect_change();
  }
}

TEST_F(FileWatchTest, MadeAndRemoved_IsTold) {
  folder_.write("two", "2");
  expect_change();
  fs::remove(folder_.path() + "/two");
  expect_change();
}

TEST_F(FileWatchTest, AnotherFileInTheFolder_IsNotToldAsAChange) {
  folder_.write("aside", "x");
  EXPECT_FALSE(watch_->take_changes());
}

TEST_F(FileWatchTest, LinkTurnedToAnotherFile_IsToldWithWhatHappensThere) {
  const TemporaryFolder elsewhere;
  elsewhere.write("real", "x");
  fs::create_symlink(elsewhere.path() + "/real", folder_.path() + "/link");
  fs::rename(folder_.path() + "/link", file_);
  expect_change();
  elsewhere.write("real", "y");
  expect_change();
}

TEST_F(FileWatchTest, FolderReplaced_IsToldAndWatchedFurther) {
  const std::string old = folder_.path() + ".old";
  fs::rename(folder_.path(), old);
  expect_change();
  fs::create_directory(folder_.path());
  EXPECT_FALSE(watch_->take_changes());
  folder_.write("one", "new");
  expect_change();
  fs::remove_all(old);
}

}  // namespace
}  // namespace oclacp::host
