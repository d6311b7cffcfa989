#include "host/files/file_lock.h"

#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using std::chrono::milliseconds;
using testing::HasSubstr;

// What the system calls the program that runs, which under a tool such as valgrind is not the name of its file.
std::string this_program() {
  std::string name;
  std::getline(std::ifstream("/proc/self/comm"), name);
  return name;
}

std::string refusal_to_lock(const std::string& path) {
  return refusal_of([&] { const FileLock second(path, {.longest_wait = milliseconds(0), .owner = ""}); });
}

TEST(FileLock, HeldByAnOwnerOfThisProcess_RefusesAndNamesIt) {
  const TemporaryFolder folder;
  const FileLock first(folder.path(), {.longest_wait = milliseconds(0), .owner = "session 7 of alice"});
  EXPECT_EQ(refusal_to_lock(folder.path()),
            folder.path() + ": the device is busy: session 7 of alice has held it for 0 seconds");
}

TEST(FileLock, HeldWithoutAnOwner_NamesTheProcess) {
  const TemporaryFolder folder;
  const FileLock first(folder.path());
  EXPECT_THAT(refusal_to_lock(folder.path()), HasSubstr("of process " + std::to_string(getpid()) + " ("));
}

TEST(FileLock, HeldByAnotherProcess_NamesItAndItsProgram) {
  const TemporaryFolder folder;
  std::array<int, 2> ready{};
  ASSERT_EQ(pipe(ready.data()), 0);
  const pid_t holder = fork();
  if (holder == 0) {
    const FileLock lock(folder.path());
    static_cast<void>(write(ready[1], "x", 1));
    pause();
    _exit(0);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  EXPECT_THAT(refusal_to_lock(folder.path()), HasSubstr("another edit, of process " + std::to_string(holder) + " (" +
                                                        this_program() + "), has held it"));
  kill(holder, SIGKILL);
  waitpid(holder, nullptr, 0);
  EXPECT_EQ(refusal_to_lock(folder.path()), "accepted") << "the lock outlived its process";
  close(ready[0]);
  close(ready[1]);
}

TEST(FileLock, Released_IsFree) {
  const TemporaryFolder folder;
  { const FileLock first(folder.path()); }
  EXPECT_EQ(refusal_to_lock(folder.path()), "accepted");
}

TEST(FileLock, HeldTooLong_WaitsAsLongAsItIsTold) {
  const TemporaryFolder folder;
  const FileLock first(folder.path());
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THAT(
      refusal_of([&] { const FileLock second(folder.path(), {.longest_wait = milliseconds(60), .owner = ""}); }),
      HasSubstr("has held it for 0.06 seconds"));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(60));
}

TEST(FileLock, NoSuchFolder_IsRefused) {
  EXPECT_EQ(refusal_to_lock("/no/such"), "/no/such: no such device directory");
}

}  // namespace
}  // namespace oclacp::host
