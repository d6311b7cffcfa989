#include "host/devices/folder_device.h"

#include <grp.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <thread>

#include "host/files/atomic_file.h"
#include "host/files/read_file.h"
#include "host/yang/tree_printer.h"
#include "tests/unit/host/devices/memory_device.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class FolderDeviceTest : public testing::Test {
 protected:
  FolderDeviceTest() { write_device(R"("router-type": 7)", lacp_of_a(R"("mode": "active")")); }

  void write_device(const std::string& platform, const std::string& running) const {
    folder_.write("platform.json", R"({"oclacp-platform:platform": {)" + platform + "}}");
    folder_.write("running.json", running);
  }

  void commit(const std::string& configuration) const {
    FolderDevice device(schemas().native(), folder_.path());
    const auto lock = device.lock({});
    device.commit(*lock, *device.snapshot(), running(configuration), {});
  }

  [[nodiscard]] std::string period_kept() const {
    const lysc_node* leaf = lys_find_path(schemas().native(), nullptr,
                                          "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/"
                                          "Talvo-Brin-QD-bundlemgr-cfg:lacp/period",
                                          0);
    const auto snapshot = FolderDevice(schemas().native(), folder_.path()).snapshot();
    return snapshot->normalized_value(*leaf, "1") + " " + snapshot->normalized_value(*leaf, "1000") + " " +
           snapshot->normalized_value(*leaf->next, "1");
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.path() + "/running.json";
};

TEST_F(FolderDeviceTest, CommittedConfiguration_IsReadBack) {
  const std::string after = lacp_of_a(R"("mode": "passive", "period": true)");
  commit(after);
  FolderDevice device(schemas().native(), folder_.path());
  EXPECT_EQ(lyd_compare_siblings(device.snapshot()->running(), running(after).get(), LYD_COMPARE_FULL_RECURSION),
            LY_SUCCESS);
}

TEST_F(FolderDeviceTest, EmptyConfiguration_IsReadBack) {
  commit("{}");
  EXPECT_EQ(refusal_of([&] { FolderDevice(schemas().native(), folder_.path()).snapshot(); }), "accepted");
}

TEST_F(FolderDeviceTest, Commit_KeepsTheModeOfTheFile) {
  fs::permissions(file_, fs::perms(0640));
  commit("{}");
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms(0640));
}

TEST_F(FolderDeviceTest, CommitThroughALink_KeepsTheLink) {
  const TemporaryFolder elsewhere;
  fs::rename(file_, elsewhere.path() + "/configuration");
  fs::create_symlink(elsewhere.path() + "/configuration", file_);
  commit("{}");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_THAT(read_text_file(elsewhere.path() + "/configuration"), testing::Not(HasSubstr("active")));
}

TEST_F(FolderDeviceTest, FileSharedByALink_IsLockedForBothDevices) {
  const TemporaryFolder elsewhere;
  fs::rename(file_, elsewhere.path() + "/running.json");
  fs::create_symlink(elsewhere.path() + "/running.json", file_);
  FolderDevice first(schemas().native(), folder_.path());
  FolderDevice second(schemas().native(), elsewhere.path());
  const auto lock = first.lock({});
  EXPECT_THAT(refusal_of([&] { second.lock({.longest_wait = std::chrono::milliseconds(0), .owner = ""}); }),
              HasSubstr("the device is busy"));
}

TEST_F(FolderDeviceTest, FileThatBecameALink_IsNotReplaced) {
  const TemporaryFolder elsewhere;
  FolderDevice device(schemas().native(), folder_.path());
  const auto lock = device.lock({});
  const auto base = device.snapshot();
  fs::rename(file_, elsewhere.path() + "/running.json");
  fs::create_symlink(elsewhere.path() + "/running.json", file_);
  EXPECT_EQ(refusal_of([&] { device.commit(*lock, *base, running("{}"), {}); }),
            file_ + ": became a link to another file meanwhile, and stays as it is");
  EXPECT_THAT(read_text_file(file_), HasSubstr("active"));
}

TEST_F(FolderDeviceTest, NewFileLeftByACrash_IsOverwritten) {
  folder_.write("running.json.new", std::string(100000, 'x'));
  commit("{}");
  EXPECT_THAT(read_text_file(file_), testing::Not(HasSubstr("x")));
  EXPECT_FALSE(fs::exists(file_ + ".new"));
}

TEST_F(FolderDeviceTest, HardLinkOfTheFile_IsNotWrittenTo) {
  fs::create_hard_link(file_, file_ + ".new");
  const TemporaryFolder elsewhere;
  const std::string kept = elsewhere.path() + "/kept";
  fs::create_hard_link(file_, kept);
  const std::string before = read_text_file(file_);
  commit("{}");
  EXPECT_EQ(read_text_file(kept), before);
}

TEST_F(FolderDeviceTest, ObstacleToTheNewFile_IsNamedAndKept) {
  const std::string before = read_text_file(file_);
  const std::string aside = file_ + ".new";
  const std::array<void (*)(const std::string&), 3> obstacles = {
      [](const std::string& name) { fs::create_directory(name); },
      [](const std::string& name) { fs::create_symlink("/no/such", name); },
      [](const std::string& name) { ASSERT_EQ(mkfifo(name.c_str(), 0600), 0); }};
  for (const auto obstacle : obstacles) {
    obstacle(aside);
    EXPECT_EQ(
        refusal_of([&] { commit("{}"); }),
        aside + ": is not a regular file, and in the way of the new content of " + file_ + ", which stays as it is");
    EXPECT_EQ(read_text_file(file_), before);
    EXPECT_TRUE(fs::remove(aside));
  }
}

TEST_F(FolderDeviceTest, FileOfAnotherUser_KeepsItsGroupIfTheWriterIsAMember) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "only root can give a file to another user";
  }
  constexpr uid_t kOther = 12345;
  constexpr gid_t kShared = 23456;
  ASSERT_EQ(chown(file_.c_str(), kOther, kShared), 0);
  fs::permissions(file_, fs::perms(0664));
  fs::permissions(folder_.path(), fs::perms(0777));
  const pid_t writer = fork();
  if (writer == 0) {
    constexpr uid_t kWriter = 34567;
    const bool is_writer = setgroups(1, &kShared) == 0 && setgid(kWriter) == 0 && setuid(kWriter) == 0;
    _exit(is_writer && refusal_of([&] { replace_file(file_, "{}"); }) == "accepted" ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(writer, &status, 0), writer);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  struct stat replaced {};
  ASSERT_EQ(stat(file_.c_str(), &replaced), 0);
  EXPECT_EQ(replaced.st_gid, kShared);
  EXPECT_EQ(replaced.st_uid, 34567U);
  EXPECT_EQ(replaced.st_mode & ALLPERMS, 0664U);
}

TEST_F(FolderDeviceTest, MissingFolder_IsRefused) {
  FolderDevice missing(schemas().native(), "/no/such");
  EXPECT_EQ(refusal_of([&] { missing.snapshot(); }), "/no/such: no such device directory");
  EXPECT_EQ(refusal_of([&] { missing.lock({}); }), "/no/such: no such device directory");
}

TEST_F(FolderDeviceTest, Period_IsNormalizedOnlyByACanonicalDevice) {
  EXPECT_EQ(period_kept(), "1 1000 1");
  write_device(R"("router-type": 7, "period": "as-written")", "{}");
  EXPECT_EQ(period_kept(), "1 1000 1");
  write_device(R"("router-type": 7, "period": "canonical")", "{}");
  EXPECT_EQ(period_kept(), "true 1000 1");
}

TEST_F(FolderDeviceTest, FileThatIsNotOneDocument_IsRefused) {
  for (const auto& [content, reason] : std::initializer_list<std::pair<std::string, std::string>>{
           {"", ": empty"},
           {"{}\n{}", " (line 2): text after the end of the document"},
           {"{\n\"a\": {", " (line 2): the document ends early"},
           {std::string(200, '['), " (line 1): nested deeper than 100 levels"}}) {
    folder_.write("running.json", content);
    EXPECT_EQ(refusal_of([&] { FolderDevice(schemas().native(), folder_.path()).snapshot(); }), file_ + reason);
  }
}

// ---- What is read again --------------------------------------------------------------------------------------------

class FolderSnapshotTest : public FolderDeviceTest {
 protected:
  FolderSnapshotTest() { folder_.write("operational.json", "{}"); }

  // A file that was touched lately is looked at once more.
  static void settle() { std::this_thread::sleep_for(std::chrono::milliseconds(30)); }

  // Puts a file in the place of another.
  void replace(const std::string& name, const std::string& content) const {
    folder_.write("aside", content);
    fs::rename(folder_.path() + "/aside", folder_.path() + "/" + name);
  }

  FolderDevice device_{schemas().native(), folder_.path()};
};

TEST_F(FolderSnapshotTest, NothingTouched_IsTheSameObject) {
  const auto first = device_.snapshot();
  EXPECT_EQ(first->operational() == nullptr, device_.snapshot()->operational() == nullptr);
  settle();
  const auto second = device_.snapshot();
  second->operational();
  settle();
  EXPECT_EQ(device_.snapshot(), second);
}

TEST_F(FolderSnapshotTest, TouchedWithTheSameText_IsNotParsedAgain) {
  const auto first = device_.snapshot();
  replace("running.json", read_text_file(file_));
  EXPECT_EQ(device_.snapshot()->running(), first->running());
}

TEST_F(FolderSnapshotTest, WrittenTwiceWithinATick_ShowsTheLastText) {
  for (const char* mode : {"passive", "active_", "passive"}) {
    const std::string real = mode == std::string("active_") ? "active" : mode;
    folder_.write("running.json", lacp_of_a(R"("mode": ")" + real + "\"") + std::string(7 - real.size(), ' '));
    EXPECT_THAT(json_of(*device_.snapshot()), HasSubstr(real));
  }
}

TEST_F(FolderSnapshotTest, ConfigurationReplaced_IsReadAgainAndTheOldSnapshotStays) {
  const auto first = device_.snapshot();
  replace("running.json", lacp_of_a(R"("mode": "passive")"));
  const auto second = device_.snapshot();
  EXPECT_THAT(json_of(*second), HasSubstr("passive"));
  EXPECT_THAT(json_of(*first), HasSubstr("active"));
  EXPECT_NE(first->version().configuration, second->version().configuration);
}

TEST_F(FolderSnapshotTest, StateReplaced_IsReadAgainAndTheConfigurationIsNot) {
  const auto first = device_.snapshot();
  EXPECT_THAT(print_tree(schemas().native(), first->operational(), LYD_JSON), testing::Not(HasSubstr("77")));
  replace(
      "operational.json",
      R"({"Talvo-Brin-QD-bundlemgr-oper:lacp-data": {"global": {"system-id": {"system-id": {"system-prio": 77}}}}})");
  const auto second = device_.snapshot();
  EXPECT_THAT(print_tree(schemas().native(), second->operational(), LYD_JSON), HasSubstr("77"));
  EXPECT_EQ(second->running(), first->running());
  EXPECT_EQ(second->version().configuration, first->version().configuration);
  EXPECT_NE(second->version().state, first->version().state);
}

TEST_F(FolderSnapshotTest, Committed_IsKnownWithoutBeingParsed) {
  const auto lock = device_.lock({});
  TreePtr after = running(lacp_of_a(R"("mode": "passive")"));
  const lyd_node* kept = after.get();
  device_.commit(*lock, *device_.snapshot(), std::move(after), {});
  EXPECT_EQ(device_.snapshot()->running(), kept);
  settle();
  EXPECT_EQ(device_.snapshot()->running(), kept);
  FolderDevice other(schemas().native(), folder_.path());
  EXPECT_EQ(json_of(*other.snapshot()), json_of(*device_.snapshot()));
}

// ---- Locks and commits ---------------------------------------------------------------------------------------------

TEST_F(FolderSnapshotTest, Locked_IsRefusedToOthersAndServesSeveralCommits) {
  FolderDevice other(schemas().native(), folder_.path());
  std::unique_ptr<DeviceLock> lock = device_.lock({.longest_wait = std::chrono::milliseconds(0), .owner = "session 7"});
  for (const char* mode : {"passive", "active"}) {
    device_.commit(*lock, *device_.snapshot(), running(lacp_of_a(R"("mode": ")" + std::string(mode) + "\"")), {});
    EXPECT_THAT(json_of(*other.snapshot()), HasSubstr(mode));
    EXPECT_THAT(refusal_of([&] { other.lock({.longest_wait = std::chrono::milliseconds(0), .owner = ""}); }),
                HasSubstr("session 7"));
  }
  lock.reset();
  EXPECT_EQ(refusal_of([&] { other.lock({.longest_wait = std::chrono::milliseconds(0), .owner = ""}); }), "accepted");
}

TEST_F(FolderSnapshotTest, ChangedWithoutTheLock_IsNotOverwritten) {
  const auto lock = device_.lock({});
  const auto base = device_.snapshot();
  const std::string by_hand = lacp_of_a(R"("mode": "passive")");
  replace("running.json", by_hand);
  EXPECT_EQ(refusal_of([&] { device_.commit(*lock, *base, running("{}"), {}); }),
            file_ + ": was changed by another program meanwhile, and stays as it is");
  EXPECT_EQ(read_text_file(file_), by_hand);
}

TEST_F(FolderSnapshotTest, LockOfAnotherDevice_IsRefused) {
  MemoryDevice other("{}");
  EXPECT_EQ(refusal_of([&] { device_.commit(*other.lock({}), *device_.snapshot(), running("{}"), {}); }),
            folder_.path() + ": cannot be changed under the lock of another device");
  EXPECT_THAT(read_text_file(file_), HasSubstr("active"));
}

TEST_F(FolderSnapshotTest, Changed_IsSignalled) {
  pollfd waited = {device_.change_descriptor(), POLLIN, 0};
  EXPECT_EQ(poll(&waited, 1, 0), 0);
  replace("operational.json", "{ }");
  EXPECT_EQ(poll(&waited, 1, 1000), 1);
  EXPECT_TRUE(device_.take_changes());
  EXPECT_EQ(poll(&waited, 1, 0), 0);
}

TEST(ReplaceFile, MissingFile_IsRefusedAndNotCreated) {
  const TemporaryFolder folder;
  EXPECT_THAT(refusal_of([&] { replace_file(folder.path() + "/none", "x"); }),
              HasSubstr("/none: cannot be replaced and stays as it is: No such file or directory"));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

}  // namespace
}  // namespace oclacp::host
