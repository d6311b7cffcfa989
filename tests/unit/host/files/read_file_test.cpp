#include "host/files/read_file.h"

#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

TEST(ReadTextFile, LongFile_IsReadWhole) {
  const TemporaryFolder folder;
  const std::string content = std::string(200'000, 'x') + "\n";
  folder.write("file", content);
  EXPECT_EQ(read_text_file(folder.path() + "/file"), content);
}

TEST(ReadTextFile, FileLongerThanTheLimit_IsReadSlightlyBeyondIt) {
  const TemporaryFolder folder;
  folder.write("file", std::string(1'000'000, 'x'));
  const std::string text = read_text_file(folder.path() + "/file", 10);
  EXPECT_GT(text.size(), 10U);
  EXPECT_LT(text.size(), 100'000U);
}

// A signal that is handled ends a call that waits, unless its handler was set up otherwise.
TEST(ReadTextFile, FromAPipe_IsReadInSpiteOfSignals) {
  const TemporaryFolder folder;
  const std::string pipe = folder.path() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  struct sigaction handled {};
  struct sigaction before {};
  handled.sa_handler = [](int) {};
  ASSERT_EQ(sigaction(SIGUSR1, &handled, &before), 0);
  const pthread_t reader = pthread_self();
  std::thread writer([&] {
    const auto interrupt = [&] {
      for (int count = 0; count < 5; ++count) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        pthread_kill(reader, SIGUSR1);
      }
    };
    interrupt();
    std::ofstream stream(pipe);
    stream << "first " << std::flush;
    interrupt();
    stream << "second";
  });
  std::string text;
  EXPECT_EQ(refusal_of([&] { text = read_text_file(pipe); }), "accepted");
  EXPECT_EQ(text, "first second");
  if (text.empty()) {
    std::ifstream(pipe).get();  // lets the writer go on
  }
  writer.join();
  sigaction(SIGUSR1, &before, nullptr);
}

TEST(ReadTextFile, MissingFileOrFolder_IsRefused) {
  const TemporaryFolder folder;
  EXPECT_EQ(refusal_of([] { read_text_file("/no/such"); }), "/no/such: No such file or directory");
  EXPECT_EQ(refusal_of([&] { read_text_file(folder.path()); }), folder.path() + ": Is a directory");
}

TEST(ReadRegularFile, FileOrLink_IsReadWhole) {
  const TemporaryFolder folder;
  folder.write("file", "content");
  std::filesystem::create_symlink("file", folder.path() + "/link");
  EXPECT_EQ(read_regular_file(folder.path() + "/file"), "content");
  EXPECT_EQ(read_regular_file(folder.path() + "/link"), "content");
  EXPECT_EQ(refusal_of([] { read_regular_file("/no/such"); }), "/no/such: No such file or directory");
}

TEST(ReadRegularFile, PipeDeviceOrFolder_IsRefused) {
  const TemporaryFolder folder;
  const std::string pipe = folder.path() + "/pipe";
  const std::string link = folder.path() + "/link";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/zero", link);
  for (const std::string& file : {pipe, link, folder.path()}) {
    EXPECT_EQ(refusal_of([&] { read_regular_file(file); }), file + ": is not a regular file");
    EXPECT_EQ(refusal_of([&] { read_stable_file(file); }), file + ": is not a regular file");
  }
}

TEST(ReadStableFile, UnchangedFile_IsReadWhole) {
  const TemporaryFolder folder;
  folder.write("file", "content");
  EXPECT_EQ(read_stable_file(folder.path() + "/file"), "content");
  EXPECT_EQ(refusal_of([] { read_stable_file("/no/such"); }), "/no/such: No such file or directory");
}

TEST(ReadStableFile, FileReplacedMeanwhile_IsTheOldOrTheNew) {
  const TemporaryFolder folder;
  const std::string file = folder.path() + "/file";
  folder.write("file", std::string(100'000, 'a'));
  std::atomic<bool> is_ending = false;
  std::thread replacer([&] {
    for (char content = 'b'; !is_ending; content = content == 'z' ? 'a' : static_cast<char>(content + 1)) {
      folder.write("new", std::string(100'000, content));
      std::filesystem::rename(folder.path() + "/new", file);
    }
  });
  for (int turn = 0; turn < 10; ++turn) {
    const std::string text = read_stable_file(file);
    EXPECT_EQ(text, std::string(100'000, text.front()));
  }
  is_ending = true;
  replacer.join();
}

}  // namespace
}  // namespace oclacp::host
