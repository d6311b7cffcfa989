#include "server/datastores/journal.h"

#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class JournalTest : public testing::Test {
 protected:
  static JournalEntry entry(const std::string& user) {
    return {
        0,      Clock::Wall(std::chrono::seconds(1'700'000'000)),
        user,   "by",
        "note", {{ChangeKind::kAdded, false, "/a[k='1\t2']", "", ""}, {ChangeKind::kChanged, true, "/b", "x\ny", ""}}};
  }
  void add(Journal& journal, const std::string& user) {
    journal.begin(entry(user));
    journal.finish();
  }

  TemporaryFolder path_;
  StateFolder folder_{path_.path()};
};

TEST_F(JournalTest, Entry_IsReadBackByALaterJournal) {
  Journal journal(folder_, 5);
  add(journal, "alice");
  const JournalEntry read = Journal(folder_, 5).read(1);
  EXPECT_EQ(read.number, 1U);
  EXPECT_EQ(read.when, entry("").when);
  EXPECT_EQ(read.user + read.by + read.note, "alicebynote");
  EXPECT_EQ(read.changes, entry("").changes);
}

TEST_F(JournalTest, OldestEntries_Go) {
  Journal journal(folder_, 2);
  for (const char* user : {"a", "b", "c"}) {
    add(journal, user);
  }
  EXPECT_THAT(journal.numbers(), ElementsAre(2, 3));
  EXPECT_THAT(Journal(folder_, 2).numbers(), ElementsAre(2, 3));
  EXPECT_EQ(kind_of_refusal([&] { static_cast<void>(journal.read(1)); }), host::ErrorKind::kDataMissing);
}

TEST_F(JournalTest, Abandoned_LeavesNothing) {
  Journal journal(folder_, 2);
  journal.begin(entry("a"));
  EXPECT_TRUE(journal.unfinished());
  journal.abandon();
  EXPECT_FALSE(journal.unfinished());
  EXPECT_THAT(journal.numbers(), testing::IsEmpty());
}

TEST_F(JournalTest, DamagedEntry_IsTold) {
  Journal journal(folder_, 2);
  add(journal, "a");
  std::filesystem::resize_file(folder_.file("journal-1"), 10);
  EXPECT_THAT(refusal_of([&] { static_cast<void>(journal.read(1)); }), HasSubstr("journal-1: is damaged"));
}

TEST_F(JournalTest, FolderOfAnotherJournal_IsRefused) {
  EXPECT_THAT(refusal_of([&] { const StateFolder second(path_.path()); }), HasSubstr("is busy"));
}

TEST(ParseChanges, NoChange_IsRefused) {
  for (const char* text : {"x\t/a\t\t\n", "added\t\t\t\n", "added\t/a\t1\t2\t3\n"}) {
    EXPECT_THAT(refusal_of([&] { parse_changes(text, "f"); }), HasSubstr("f: is damaged")) << text;
  }
}

}  // namespace
}  // namespace oclacp::server
