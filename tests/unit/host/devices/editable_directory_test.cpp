#include "host/devices/editable_directory.h"

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "host/files/atomic_file.h"
#include "host/files/directory_lock.h"
#include "host/files/read_file.h"
#include "tests/unit/host/devices/kept_device.h"

namespace oclacp::host {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class EditableDirectoryTest : public testing::Test {
 protected:
  EditableDirectoryTest() { write_device(R"("router-type": 7)", lacp_of_a(R"("mode": "active")")); }

  void write_device(const std::string& platform, const std::string& running) const {
    folder_.write("platform.json", R"({"oclacp-platform:platform": {)" + platform + "}}");
    folder_.write("running.json", running);
  }

  void commit(const std::string& configuration) const {
    EditableDirectory directory(schemas().native(), folder_.path());
    directory.commit(running(configuration).get());
  }

  [[nodiscard]] std::string period_kept() const {
    const lysc_node* leaf = lys_find_path(schemas().native(), nullptr,
                                          "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/"
                                          "Talvo-Brin-QD-bundlemgr-cfg:lacp/period",
                                          0);
    const DirectoryDevice device(schemas().native(), folder_.path());
    return device.normalized_value(*leaf, "1") + " " + device.normalized_value(*leaf, "1000") + " " +
           device.normalized_value(*leaf->next, "1");
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.path() + "/running.json";
};

TEST_F(EditableDirectoryTest, WhatIsCommittedIsReadBack) {
  const std::string after = lacp_of_a(R"("mode": "passive", "period": true)");
  commit(after);
  const DirectoryDevice device(schemas().native(), folder_.path());
  EXPECT_EQ(lyd_compare_siblings(device.running(), running(after).get(), LYD_COMPARE_FULL_RECURSION), LY_SUCCESS);
}

TEST_F(EditableDirectoryTest, AnEmptyConfigurationIsReadBack) {
  commit("{}");
  EXPECT_EQ(refusal_of([&] { const DirectoryDevice device(schemas().native(), folder_.path()); }), "accepted");
}

TEST_F(EditableDirectoryTest, TheFileKeepsItsMode) {
  fs::permissions(file_, fs::perms(0640));
  commit("{}");
  EXPECT_EQ(fs::status(file_).permissions(), fs::perms(0640));
}

TEST_F(EditableDirectoryTest, ALinkStaysALink) {
  const TemporaryFolder elsewhere;
  fs::rename(file_, elsewhere.path() + "/configuration");
  fs::create_symlink(elsewhere.path() + "/configuration", file_);
  commit("{}");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_THAT(read_text_file(elsewhere.path() + "/configuration"), testing::Not(HasSubstr("active")));
}

TEST_F(EditableDirectoryTest, DevicesThatShareAFileByALinkAreEditedOneAtATime) {
  const TemporaryFolder elsewhere;
  fs::rename(file_, elsewhere.path() + "/running.json");
  fs::create_symlink(elsewhere.path() + "/running.json", file_);
  const EditableDirectory first(schemas().native(), folder_.path());
  EXPECT_THAT(refusal_of([&] { const DirectoryLock second(elsewhere.path(), std::chrono::seconds(0)); }),
              HasSubstr("the device is busy"));
}

TEST_F(EditableDirectoryTest, AFileThatBecomesALinkMeanwhileIsNotReplaced) {
  const TemporaryFolder elsewhere;
  EditableDirectory directory(schemas().native(), folder_.path());
  fs::rename(file_, elsewhere.path() + "/running.json");
  fs::create_symlink(elsewhere.path() + "/running.json", file_);
  EXPECT_EQ(refusal_of([&] { directory.commit(running("{}").get()); }),
            file_ + ": became a link to another file meanwhile, and stays as it is");
  EXPECT_THAT(read_text_file(file_), HasSubstr("active"));
}

TEST_F(EditableDirectoryTest, WhatACrashLeftAsideIsOverwritten) {
  folder_.write("running.json.new", std::string(100000, 'x'));
  commit("{}");
  EXPECT_THAT(read_text_file(file_), testing::Not(HasSubstr("x")));
  EXPECT_FALSE(fs::exists(file_ + ".new"));
}

TEST_F(EditableDirectoryTest, ASecondNameOfTheFileIsNotWrittenTo) {
  fs::create_hard_link(file_, file_ + ".new");
  const TemporaryFolder elsewhere;
  const std::string kept = elsewhere.path() + "/kept";
  fs::create_hard_link(file_, kept);
  const std::string before = read_text_file(file_);
  commit("{}");
  EXPECT_EQ(read_text_file(kept), before);
}

TEST_F(EditableDirectoryTest, WhatIsInTheWayOfTheNewFileIsNamedAndLeftAlone) {
  const std::string before = read_text_file(file_);
  const std::string aside = file_ + ".new";
  const std::array<void (*)(const std::string&), 3> obstacles = {
      [](const std::string& name) { fs::create_directory(name); },
      [](const std::string& name) { fs::create_symlink("/no/such", name); },
      [](const std::string& name) { ASSERT_EQ(mkfifo(name.c_str(), 0600), 0); }};
  for (const auto obstacle : obstacles) {
    obstacle(aside);
    EXPECT_EQ(refusal_of([&] { commit("{}"); }),
              aside + ": is no regular file, and in the way of the new content of " + file_ + ", which stays as it is");
    EXPECT_EQ(read_text_file(file_), before);
    EXPECT_TRUE(fs::remove(aside));
  }
}

TEST_F(EditableDirectoryTest, TheFileOfAnotherUserKeepsItsGroupWhenTheWriterIsOfIt) {
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

TEST_F(EditableDirectoryTest, OneEditsAtATime) {
  const EditableDirectory first(schemas().native(), folder_.path());
  EXPECT_EQ(refusal_of([&] { const DirectoryLock second(folder_.path(), std::chrono::seconds(0)); }),
            folder_.path() + ": the device is busy: another edit has held it for 0 seconds");
}

TEST_F(EditableDirectoryTest, TheNextOneEditsAfterwards) {
  { const EditableDirectory first(schemas().native(), folder_.path()); }
  EXPECT_EQ(refusal_of([&] { const DirectoryLock second(folder_.path(), std::chrono::seconds(0)); }), "accepted");
}

TEST_F(EditableDirectoryTest, AMissingFolderIsRefused) {
  EXPECT_EQ(refusal_of([] { const EditableDirectory missing(schemas().native(), "/no/such"); }),
            "/no/such: no such device directory");
}

TEST_F(EditableDirectoryTest, ThePeriodIsKeptAsWrittenUnlessTheDeviceIsCanonical) {
  EXPECT_EQ(period_kept(), "1 1000 1");
  write_device(R"("router-type": 7, "period": "as-written")", "{}");
  EXPECT_EQ(period_kept(), "1 1000 1");
  write_device(R"("router-type": 7, "period": "canonical")", "{}");
  EXPECT_EQ(period_kept(), "true 1000 1");
}

TEST_F(EditableDirectoryTest, AFileThatIsNotOneWholeDocumentIsRefused) {
  for (const auto& [content, reason] : std::initializer_list<std::pair<std::string, std::string>>{
           {"", ": empty"},
           {"{}\n{}", " (line 2): text behind the end of the document"},
           {"{\n\"a\": {", " (line 2): the document ends early"},
           {std::string(200, '['), " (line 1): nested deeper than 100 levels"}}) {
    folder_.write("running.json", content);
    EXPECT_EQ(refusal_of([&] { const DirectoryDevice device(schemas().native(), folder_.path()); }), file_ + reason);
  }
}

TEST(DurableFileTest, AFileThatIsNotThereIsNotReplaced) {
  const TemporaryFolder folder;
  EXPECT_THAT(refusal_of([&] { replace_file(folder.path() + "/none", "x"); }),
              HasSubstr("/none: cannot be replaced and stays as it is: No such file or directory"));
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

}  // namespace
}  // namespace oclacp::host
