#include "host/files/atomic_file.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <functional>
#include <vector>

#include "host/files/read_file.h"
#include "tests/unit/host/host_test.h"

namespace {

// What the next calls of the system come to, instead of what it would do; none for the system's own work.
struct Call {
  long result;
  int error;
};
struct Script {
  std::vector<Call> write;
  std::vector<Call> fsync;
  std::vector<Call> set_attribute;
};
Script script;

// Takes the next call of a script, or the system's own.
template <typename System>
auto next_call(std::vector<Call>& calls, const System& system) {
  if (calls.empty()) {
    return system();
  }
  const Call call = calls.front();
  calls.erase(calls.begin());
  errno = call.error;
  return static_cast<decltype(system())>(call.result);
}

}  // namespace

// In the place of the system's.
extern "C" ssize_t write(int descriptor, const void* data, size_t size) {
  return next_call(script.write, [=] { return static_cast<ssize_t>(syscall(SYS_write, descriptor, data, size)); });
}
extern "C" int fsync(int descriptor) {
  return next_call(script.fsync, [=] { return static_cast<int>(syscall(SYS_fsync, descriptor)); });
}
extern "C" int fsetxattr(int descriptor, const char* name, const void* value, size_t size, int flags) noexcept {
  return next_call(script.set_attribute,
                   [=] { return static_cast<int>(syscall(SYS_fsetxattr, descriptor, name, value, size, flags)); });
}

namespace oclacp::host {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default";

// An access control list as the kernel takes it (linux/posix_acl_xattr.h): one user beside the owner.
std::string access_list(uint16_t owner, uint16_t other_user, uint16_t group, uint16_t mask) {
  std::string list("\2\0\0\0", 4);
  const auto put = [&list](uint64_t value, int bytes) {
    for (int index = 0; index < bytes; ++index) {
      list.push_back(static_cast<char>(value >> 8 * index));
    }
  };
  const auto entry = [&put](uint16_t tag, uint16_t rights, uint32_t id) {
    put(tag, 2);
    put(rights, 2);
    put(id, 4);
  };
  constexpr uint32_t kNobody = 0xffffffff;
  entry(0x01, owner, kNobody);
  entry(0x02, other_user, 12345);
  entry(0x04, group, kNobody);
  entry(0x10, mask, kNobody);
  entry(0x20, 0, kNobody);
  return list;
}

class AtomicFile : public testing::Test {
 protected:
  AtomicFile() { folder_.write("file", "old"); }
  ~AtomicFile() override { script = {}; }
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  AtomicFile(AtomicFile&&) = delete;
  AtomicFile& operator=(AtomicFile&&) = delete;

  [[nodiscard]] std::string replacing() const {
    return refusal_of([this] { replace_file(file_, "new content"); });
  }
  [[nodiscard]] std::string content() const { return read_text_file(file_); }
  [[nodiscard]] bool set_attribute(const char* name, const std::string& value) const {
    return setxattr(file_.c_str(), name, value.data(), value.size(), 0) == 0;
  }
  // "none" when there is none.
  [[nodiscard]] std::string attribute(const char* name) const {
    std::array<char, 1000> value{};
    const ssize_t size = getxattr(file_.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : std::string(value.data(), static_cast<size_t>(size));
  }
  [[nodiscard]] unsigned mode() const {
    struct stat status {};
    return stat(file_.c_str(), &status) == 0 ? status.st_mode & ALLPERMS : 0;
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.path() + "/file";
};

TEST_F(AtomicFile, InterruptedCalls_AreMadeAgain) {
  script.write = {{-1, EINTR}, {-1, EINTR}};
  script.fsync = {{-1, EINTR}};
  EXPECT_EQ(replacing(), "accepted");
  EXPECT_EQ(content(), "new content");
  EXPECT_TRUE(script.write.empty() && script.fsync.empty()) << "the calls that fail were made";
}

TEST_F(AtomicFile, WriteOfNothing_IsAFailure) {
  script.write = {{0, 0}};
  EXPECT_EQ(replacing(),
            file_ + ": cannot be replaced and stays as it is: the system takes no more of the new content");
  EXPECT_EQ(content(), "old");
  EXPECT_FALSE(std::filesystem::exists(file_ + ".new"));
}

TEST_F(AtomicFile, FailedWrite_LeavesTheOldFile) {
  script.write = {{-1, ENOSPC}};
  EXPECT_EQ(replacing(), file_ + ": cannot be replaced and stays as it is: No space left on device");
  EXPECT_EQ(content(), "old");
  EXPECT_FALSE(std::filesystem::exists(file_ + ".new"));
}

TEST_F(AtomicFile, AccessControlListAndAttributes_Stay) {
  const std::string list = access_list(6, 6, 4, 6);
  if (!set_attribute(kAccessList, list) || !set_attribute("user.note", "kept")) {
    GTEST_SKIP() << "the file system takes no access control lists or attributes: " << std::strerror(errno);
  }
  ASSERT_EQ(mode(), 0660U) << "the group bits are the mask";
  ASSERT_EQ(replacing(), "accepted");
  EXPECT_EQ(content(), "new content");
  EXPECT_EQ(attribute(kAccessList), list);
  EXPECT_EQ(attribute("user.note"), "kept");
  EXPECT_EQ(mode(), 0660U);
}

TEST_F(AtomicFile, AccessControlListThatCannotStay_IsAFailure) {
  if (!set_attribute(kAccessList, access_list(6, 6, 4, 6))) {
    GTEST_SKIP() << "the file system takes no access control lists: " << std::strerror(errno);
  }
  script.set_attribute = {{-1, EPERM}};
  EXPECT_EQ(replacing(), file_ + ": cannot be replaced and stays as it is: its attribute " + kAccessList +
                             " cannot be kept: Operation not permitted");
  EXPECT_EQ(content(), "old");
}

TEST_F(AtomicFile, AttributeOutOfReach_IsLeftOut) {
  if (!set_attribute("user.note", "kept")) {
    GTEST_SKIP() << "the file system takes no attributes: " << std::strerror(errno);
  }
  script.set_attribute = {{-1, EPERM}};
  EXPECT_EQ(replacing(), "accepted");
  EXPECT_EQ(attribute("user.note"), "none");
}

TEST_F(AtomicFile, ListOfTheFolder_DoesNotComeIn) {
  const std::string list = access_list(6, 6, 6, 6);
  if (setxattr(folder_.path().c_str(), kDefaultList, list.data(), list.size(), 0) != 0) {
    GTEST_SKIP() << "the file system takes no access control lists: " << std::strerror(errno);
  }
  std::filesystem::permissions(file_, std::filesystem::perms(0640));
  ASSERT_EQ(attribute(kAccessList), "none");
  ASSERT_EQ(replacing(), "accepted");
  EXPECT_EQ(attribute(kAccessList), "none") << "the other user of the folder's list would read the file";
  EXPECT_EQ(mode(), 0640U);
}

TEST_F(AtomicFile, HardLink_KeepsTheOldContent) {
  std::filesystem::create_hard_link(file_, folder_.path() + "/other");
  ASSERT_EQ(replacing(), "accepted");
  EXPECT_EQ(content(), "new content");
  EXPECT_EQ(read_text_file(folder_.path() + "/other"), "old");
}

}  // namespace
}  // namespace oclacp::host
