// Edits that are interrupted, that meet each other, and that find the device broken.
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <cstring>
#include <functional>
#include <iterator>
#include <thread>

#include "tests/e2e/edit_program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

using testing::AnyOf;
using testing::Eq;
using testing::HasSubstr;

// Starts `oclacp edit` of a request file in a process that is prepared first. What it says goes to `messages`.
pid_t start_edit(const std::string& device, const std::string& request, const std::function<void()>& prepare,
                 const std::string& messages = "/dev/null") {
  const pid_t process = fork();
  if (process == 0) {
    const int output = open(messages.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    dup2(output, STDERR_FILENO);
    prepare();
    execl(location::kProgram, location::kProgram, "edit", request.c_str(), "-d", device.c_str(), nullptr);
    _exit(127);
  }
  return process;
}

int wait_for(pid_t process) {
  int status = 0;
  EXPECT_EQ(waitpid(process, &status, 0), process);
  return status;
}

// A folder with a request beside a device.
class Faults : public testing::Test, protected CopiedDevice {
 protected:
  Faults() { other_.write(config_of("Bundle-Ether9", R"("lacp-mode": "PASSIVE")"), "request.json"); }

  // What an edit in a prepared process says; the device must be as it was.
  std::string complaint(const std::function<void()>& prepare) {
    const std::string before = read();
    const int status = wait_for(start_edit(path(), request_, prepare, other_.path() + "/messages"));
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
    EXPECT_EQ(read(), before);
    return other_.read("messages");
  }

  CopiedDevice other_;
  std::string request_ = other_.path() + "/request.json";
};

// ---- Killed at every step ------------------------------------------------------------------------------------------

// Runs the edit under trace and kills it when it is about to make its `step`th system call after taking the lock.
// Whether it got that far.
bool kill_at(const std::string& device, const std::string& request, int step) {
  const pid_t process = start_edit(device, request, [] {
    // The leak checker of a sanitized build cannot run in a traced process.
    setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    raise(SIGSTOP);
  });
  int status = wait_for(process);
  ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  bool has_lock = false;
  int calls = 0;
  while (ptrace(PTRACE_SYSCALL, process, nullptr, nullptr) == 0) {
    status = wait_for(process);
    if (!WIFSTOPPED(status)) {
      break;
    }
    __ptrace_syscall_info call{};
    if (WSTOPSIG(status) != (SIGTRAP | 0x80) || ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof(call), &call) <= 0 ||
        call.op != PTRACE_SYSCALL_INFO_ENTRY) {
      continue;
    }
    if (has_lock && calls++ == step) {
      kill(process, SIGKILL);
      wait_for(process);
      return true;
    }
    has_lock |= call.entry.nr == SYS_flock;
  }
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  return false;
}

TEST_F(Faults, KilledAtAnyStep_LeavesTheOldOrTheNewConfiguration) {
  const std::string before = read();
  ASSERT_EQ(run({"edit", request_, "-d", path()}).status, 0);
  const std::string after = read();
  ASSERT_NE(before, after);
  int kept = 0;
  int replaced = 0;
  for (int step = 0;; ++step) {
    write(before);
    const bool killed = kill_at(path(), request_, step);
    const std::string left = read();
    ASSERT_THAT(left, AnyOf(Eq(before), Eq(after))) << "killed at step " << step;
    if (!killed) {
      break;
    }
    (left == before ? kept : replaced) += 1;
  }
  // Both sides of the change were seen, or it was not killed where it counts.
  EXPECT_GT(kept, 5);
  EXPECT_GT(replaced, 0);
  // What the killed ones left behind is in nobody's way.
  write(before);
  expect_success(run({"edit", request_, "-d", path()}));
  EXPECT_EQ(read(), after);
  EXPECT_EQ(files().size(), 2U);
}

// ---- Several at once -----------------------------------------------------------------------------------------------

TEST_F(Faults, EightWriters_LoseNoEdit) {
  constexpr int kWriters = 8;
  constexpr int kEdits = 25;
  const auto name = [](int writer, int number) {
    return "Bundle-Ether" + std::to_string(1000 + writer * kEdits + number);
  };
  std::vector<pid_t> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.push_back(fork());
    if (writers.back() != 0) {
      continue;
    }
    int failed = 0;
    for (int number = 0; number < kEdits; ++number) {
      const std::string request =
          config_of(name(writer, number), "\"system-priority\": " + std::to_string(writer * kEdits + number));
      failed += edit(request).status == 0 ? 0 : 1;
    }
    _exit(failed);
  }
  for (const pid_t writer : writers) {
    const int status = wait_for(writer);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "edits that failed: " << WEXITSTATUS(status);
  }
  const std::string text = read();
  for (int number = 0; number < kWriters * kEdits; ++number) {
    EXPECT_THAT(text, HasSubstr("\"interface-name\": \"" + name(0, number) + "\""));
    EXPECT_THAT(text, HasSubstr("\"system-priority\": " + std::to_string(number) + "\n"));
  }
}

TEST_F(Faults, EditOfALockedDevice_Waits) {
  const int folder = open(path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_EQ(flock(folder, LOCK_EX), 0);
  const pid_t process = start_edit(path(), request_, [] {});
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_EQ(waitpid(process, nullptr, WNOHANG), 0);
  close(folder);
  EXPECT_EQ(wait_for(process), 0);
  EXPECT_THAT(read(), HasSubstr("Bundle-Ether9"));
}

// ---- No room, no permission ----------------------------------------------------------------------------------------

// From here on a system call fails in this process.
void fail_call(unsigned number, int error) {
  sock_filter program[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, number, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<unsigned>(error)),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog filter = {static_cast<unsigned short>(std::size(program)), program};
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0) {
    _exit(126);
  }
}

TEST_F(Faults, FileSizeLimit_KeepsTheOldConfiguration) {
  const std::string said = complaint([] {
    const rlimit limit = {1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
  });
  EXPECT_EQ(said, "oclacp: " + path() + "/running.json: cannot be replaced and stays as it is: File too large\n");
  EXPECT_EQ(files().size(), 2U);
}

TEST_F(Faults, FolderThatCannotBeWrittenTo_IsReported) {
  std::filesystem::permissions(path(), std::filesystem::perms(0555));
  const std::string said = complaint([] {
    // Root writes everywhere unless it gives that up.
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
  });
  std::filesystem::permissions(path(), std::filesystem::perms(0755));
  EXPECT_EQ(said, "oclacp: " + path() + "/running.json: cannot be replaced and stays as it is: Permission denied\n");
}

TEST_F(Faults, FolderThatCannotBeRead_IsReported) {
  std::filesystem::permissions(path(), std::filesystem::perms(0333));
  const pid_t process = start_edit(
      path(), request_,
      [] {
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
      },
      other_.path() + "/messages");
  const int status = wait_for(process);
  std::filesystem::permissions(path(), std::filesystem::perms(0755));
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  EXPECT_EQ(other_.read("messages"), "oclacp: " + path() + ": cannot be opened: Permission denied\n");
}

TEST_F(Faults, FailingDisk_IsReported) {
  const std::string said = complaint([] { fail_call(SYS_fsync, EIO); });
  EXPECT_EQ(said, "oclacp: " + path() + "/running.json: cannot be replaced and stays as it is: Input/output error\n");
  EXPECT_EQ(files().size(), 2U);
}

TEST_F(Faults, FolderThatCannotBeLocked_IsReported) {
  EXPECT_EQ(complaint([] { fail_call(SYS_flock, ENOLCK); }),
            "oclacp: " + path() + ": cannot be locked: No locks available\n");
}

// ---- A device that is broken ---------------------------------------------------------------------------------------

TEST_F(Faults, InvalidConfiguration_IsRefusedAndKept) {
  struct Broken {
    std::string content;
    std::string part;
  };
  for (const auto& [content, part] : {
           Broken{"", "/running.json: empty"},
           Broken{"{", "/running.json (line 1): the document ends early"},
           Broken{"{}\n{}", "/running.json (line 2): text after the end"},
           Broken{"nonsense", "/running.json: "},
           Broken{"{\n\"no-such-module:lacp\": {}}", "no-such-module"},
           Broken{R"({"Talvo-Brin-QD-bundlemgr-cfg:lacp": {
"system-priority": 70000}})",
                  "/running.json: /Talvo-Brin-QD-bundlemgr-cfg:lacp/system-priority (line 2): "},
           Broken{R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [
{"interface-name": "a"}]}})",
                  "interface-configuration"},
       }) {
    write(content);
    for (const Outcome& outcome :
         {run({"edit", request_, "-d", path()}), run({"edit", request_, "-d", path(), "--dry-run"}),
          run({"delete", "/lacp", "-d", path()})}) {
      expect_refusal(outcome, part);
      EXPECT_THAT(outcome.err, HasSubstr(path() + "/running.json"));
    }
    EXPECT_EQ(read(), content);
  }
}

TEST_F(Faults, FileThatIsNotRegular_IsRefused) {
  for (const char* file : {"running.json", "platform.json"}) {
    const std::string named = path() + "/" + file;
    const std::string content = read(file);
    std::filesystem::remove(named);
    ASSERT_EQ(mkfifo(named.c_str(), 0600), 0);
    expect_refusal(run({"edit", request_, "-d", path()}), named + ": is not a regular file");
    expect_refusal(run({"get", "-d", path(), "--config"}), named + ": is not a regular file");
    std::filesystem::remove(named);
    std::filesystem::create_symlink("/dev/zero", named);
    expect_refusal(run({"edit", request_, "-d", path()}), named + ": is not a regular file");
    std::filesystem::remove(named);
    write(content, file);
  }
}

TEST_F(Faults, MissingDevice_IsRefused) {
  expect_refusal(run({"edit", request_, "-d", "/no/such"}), "/no/such: no such device directory");
  expect_refusal(run({"edit", request_, "-d", request_}), request_ + ": no such device directory");
  std::filesystem::remove(path() + "/running.json");
  expect_refusal(run({"edit", request_, "-d", path()}), path() + "/running.json: No such file or directory");
  EXPECT_EQ(files().size(), 1U);
}

// While another has the device a request that cannot be carried out anyway does not wait for it.
TEST(EditFaults, WrongRequest_IsRefusedWithoutTheLock) {
  const CopiedDevice device;
  const int folder = open(device.path().c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(flock(folder, LOCK_EX), 0);
  const auto start = std::chrono::steady_clock::now();
  expect_refusal(device.edit("{"), "the request (line 1): the document ends early");
  expect_refusal(device.erase("/lacp/none"), "/openconfig-lacp:lacp/none: no such node");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << "the lock is waited for 10 seconds";
  close(folder);
}

}  // namespace
}  // namespace support
