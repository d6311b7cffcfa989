#include "server/datastores/datastores.h"

#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

using host::ErrorKind;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr Datastore kRunning = Datastore::kRunning;
constexpr Datastore kCandidate = Datastore::kCandidate;
constexpr Datastore kStartup = Datastore::kStartup;

TEST_F(DatastoresTest, EditOfRunning_IsOneCommitAndJournalled) {
  const CommitResult result = datastores_->edit(alice(), kRunning, setting(0, 9, 3));
  EXPECT_EQ(values(), "9 2 3");
  EXPECT_EQ(device_.commits(), 1U);
  ASSERT_THAT(result.changes, SizeIs(1));
  EXPECT_EQ(result.changes[0].before + ">" + result.changes[0].after, "1>9");
  const JournalEntry entry = datastores_->journal().read(result.number);
  EXPECT_EQ(entry.user + ", " + entry.by, "alice, session 1");
  EXPECT_EQ(entry.changes, result.changes);
}

TEST_F(DatastoresTest, EditThatChangesNothing_DoesNotTouchTheDevice) {
  const CommitResult result = datastores_->edit(alice(), kRunning, setting(0, 1, 3));
  EXPECT_EQ(device_.commits(), 0U);
  EXPECT_EQ(result.number, 0U);
  EXPECT_THAT(datastores_->journal().numbers(), IsEmpty());
}

TEST_F(DatastoresTest, EditsOfCandidate_ReachTheDeviceAsOneCommit) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  datastores_->edit(alice(), kCandidate, setting(1, 8, 3));
  EXPECT_EQ(values(), "1 2 3");
  EXPECT_EQ(values(kCandidate), "9 8 3");
  EXPECT_THAT(datastores_->commit(alice()).changes, SizeIs(2));
  EXPECT_EQ(values(), "9 8 3");
  EXPECT_EQ(device_.commits(), 1U);
  EXPECT_EQ(datastores_->snapshot(kCandidate), datastores_->snapshot(kRunning));
}

TEST_F(DatastoresTest, Candidate_WithoutEditsFollowsRunning) {
  device_.change(priorities({4, 5, 6}));
  EXPECT_EQ(values(kCandidate), "4 5 6");
}

TEST_F(DatastoresTest, Commit_AfterAChangeElsewhereMakesTheEditsAgain) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  device_.change(priorities({1, 2, 7}));
  datastores_->commit(alice());
  EXPECT_EQ(values(), "9 2 7");
}

TEST_F(DatastoresTest, Commit_AfterAChangeOfTheSameIsRefusedAndKeepsTheCandidate) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  device_.change(priorities({5, 2, 3}));
  EXPECT_THAT(refusal_of([&] { datastores_->commit(alice()); }),
              HasSubstr("system-priority: changed from '1' to '5' in running since the candidate was made"));
  EXPECT_EQ(values(), "5 2 3");
  EXPECT_EQ(values(kCandidate), "9 2 3");
}

TEST_F(DatastoresTest, Commit_OfAnEntryThatIsGoneIsRefused) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  device_.change(priorities({0, 2, 3}));
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(alice()); }), ErrorKind::kInUse);
  EXPECT_EQ(values(), "0 2 3");
}

TEST_F(DatastoresTest, DeleteOfAnEntry_InWhichAnotherChangedSomethingIsRefused) {
  datastores_->edit(alice(), kCandidate, setting(0, 0, 3));
  device_.change(priorities({7, 2, 3}));
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(alice()); }), ErrorKind::kInUse);
  EXPECT_EQ(values(), "7 2 3");
}

TEST_F(DatastoresTest, ChangeElsewhereWhileTheFirstEditIsPlanned_IsNotOverwritten) {
  const auto slowly = [this](unsigned value, size_t index) {
    return [this, value, index](const host::DeviceSnapshot& current) {
      const std::vector<unsigned> now = priorities_of(current, 3);
      device_.change(priorities({now[0], now[1], now[2] + 1}));
      return setting(index, value, 3)(current);
    };
  };
  datastores_->edit(alice(), kCandidate, slowly(9, 0));
  datastores_->commit(alice());
  EXPECT_EQ(values(), "9 2 4");
  datastores_->edit(alice(), kCandidate, slowly(9, 2));
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(alice()); }), ErrorKind::kInUse);
  EXPECT_EQ(values(), "9 2 5");
}

TEST_F(DatastoresTest, FirstEditThatIsRefused_LeavesACandidateThatFollows) {
  EXPECT_EQ(kind_of_refusal([&] {
              datastores_->edit(alice(), kCandidate,
                                [](const host::DeviceSnapshot& /*current*/) -> std::optional<host::TreePtr> {
                                  throw host::Error(ErrorKind::kDataMissing, "x");
                                });
            }),
            ErrorKind::kDataMissing);
  device_.change(priorities({4, 5, 6}));
  EXPECT_EQ(values(kCandidate), "4 5 6");
}

TEST_F(DatastoresTest, Discard_MakesTheCandidateRunning) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  datastores_->discard(alice());
  EXPECT_EQ(values(kCandidate), "1 2 3");
}

TEST_F(DatastoresTest, Startup_IsCopiedSetAndDeleted) {
  EXPECT_EQ(kind_of_refusal([&] { datastores_->snapshot(kStartup); }), ErrorKind::kDataMissing);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->delete_startup(alice()); }), ErrorKind::kDataMissing);
  datastores_->copy(alice(), kRunning, kStartup);
  datastores_->edit(alice(), kRunning, setting(0, 9, 3));
  start();
  EXPECT_EQ(values(kStartup), "1 2 3");
  EXPECT_EQ(datastores_->journal().read(datastores_->copy(alice(), kStartup, kRunning).number).note, "copy of startup");
  EXPECT_EQ(values(), "1 2 3");
  datastores_->delete_startup(alice());
  EXPECT_EQ(kind_of_refusal([&] { datastores_->snapshot(kStartup); }), ErrorKind::kDataMissing);
}

TEST_F(DatastoresTest, Copy_ToTheCandidateIsAnEditOfIt) {
  datastores_->copy(alice(), kRunning, kStartup);
  datastores_->edit(alice(), kRunning, setting(0, 9, 3));
  datastores_->copy(alice(), kStartup, kCandidate);
  EXPECT_EQ(values(kCandidate), "1 2 3");
  datastores_->copy(alice(), kRunning, kCandidate);
  EXPECT_EQ(values(kCandidate), "9 2 3");
  EXPECT_EQ(kind_of_refusal([&] { datastores_->copy(alice(), kRunning, kRunning); }), ErrorKind::kInvalidValue);
}

TEST_F(DatastoresTest, DamagedStartup_IsToldByItsName) {
  datastores_->copy(alice(), kRunning, kStartup);
  std::ofstream(state_.path() + "/startup", std::ios::app) << "x";
  EXPECT_THAT(refusal_of([&] { datastores_->snapshot(kStartup); }), HasSubstr("/startup: is damaged: its checksum"));
  EXPECT_THAT(refusal_of([&] { datastores_->validate(kStartup); }), HasSubstr("is damaged"));
}

TEST_F(DatastoresTest, Lock_KeepsOthersOffAndIsHadOnce) {
  for (const Datastore datastore : {kRunning, kCandidate, kStartup}) {
    datastores_->lock(alice(), datastore);
    EXPECT_EQ(kind_of_refusal([&] { datastores_->lock(bob(), datastore); }), ErrorKind::kLockDenied);
    EXPECT_EQ(kind_of_refusal([&] { datastores_->lock(alice(), datastore); }), ErrorKind::kLockDenied);
    EXPECT_EQ(kind_of_refusal([&] { datastores_->unlock(bob(), datastore); }), ErrorKind::kOperationFailed);
  }
  EXPECT_EQ(kind_of_refusal([&] { datastores_->edit(bob(), kRunning, setting(0, 9, 3)); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->edit(bob(), kCandidate, setting(0, 9, 3)); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->copy(bob(), kRunning, kStartup); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->discard(bob()); }), ErrorKind::kInUse);
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  datastores_->commit(alice());
  EXPECT_EQ(values(), "9 2 3");
  for (const Datastore datastore : {kRunning, kCandidate, kStartup}) {
    datastores_->unlock(alice(), datastore);
    EXPECT_THAT(datastores_->lock_holder(datastore), testing::IsNull());
  }
}

TEST_F(DatastoresTest, LockDenied_NamesTheSessionThatHoldsIt) {
  datastores_->lock(alice(), kRunning);
  try {
    datastores_->lock(bob(), kRunning);
    FAIL() << "a second owner has the lock";
  } catch (const LockDenied& denied) {
    EXPECT_EQ(denied.holder(), alice().id);
  }
}

TEST_F(DatastoresTest, LockOnRunning_IsThatOfTheDevice) {
  datastores_->lock(alice(), kRunning);
  EXPECT_EQ(kind_of_refusal([&] { device_.lock({}); }), ErrorKind::kLockDenied);
  datastores_->unlock(alice(), kRunning);
  const std::unique_ptr<host::DeviceLock> held = device_.lock({});
  try {
    datastores_->lock(alice(), kRunning);
    FAIL() << "two have the lock";
  } catch (const LockDenied& denied) {
    EXPECT_EQ(denied.holder(), 0U);
  }
  EXPECT_EQ(kind_of_refusal([&] { datastores_->edit(alice(), kRunning, setting(0, 9, 3)); }), ErrorKind::kInUse);
}

TEST_F(DatastoresTest, LockOnAChangedCandidate_IsDenied) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  EXPECT_EQ(kind_of_refusal([&] { datastores_->lock(alice(), kCandidate); }), ErrorKind::kLockDenied);
  datastores_->edit(alice(), kCandidate, setting(0, 1, 3));
  datastores_->lock(alice(), kCandidate);
}

TEST_F(DatastoresTest, EndOfAnOwner_FreesItsLocksAndTheCandidateThatItHadLocked) {
  datastores_->lock(alice(), kRunning);
  datastores_->lock(alice(), kCandidate);
  datastores_->lock(bob(), kStartup);
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  datastores_->end(alice());
  EXPECT_EQ(values(kCandidate), "1 2 3");
  EXPECT_THAT(datastores_->lock_holder(kStartup), testing::NotNull());
  datastores_->lock(bob(), kRunning);
  datastores_->lock(bob(), kCandidate);
}

TEST_F(DatastoresTest, EndOfAnOwner_LeavesACandidateThatItHadNotLocked) {
  datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
  datastores_->end(alice());
  EXPECT_EQ(values(kCandidate), "9 2 3");
}

TEST_F(DatastoresTest, Validate_SaysWhetherADatastoreIsValid) {
  datastores_->copy(alice(), kRunning, kStartup);
  for (const Datastore datastore : {kRunning, kCandidate, kStartup}) {
    EXPECT_EQ(refusal_of([&] { datastores_->validate(datastore); }), "accepted");
  }
}

TEST_F(DatastoresTest, Undo_IsACommitOfTheReverse) {
  const uint64_t first = datastores_->edit(alice(), kRunning, to(priorities({0, 9, 3}))).number;
  datastores_->edit(bob(), kRunning, setting(2, 7, 3));
  const CommitResult undone = datastores_->undo(alice(), first);
  EXPECT_EQ(values(), "1 2 7");
  EXPECT_EQ(datastores_->journal().read(undone.number).note, "undo of commit 1");
  EXPECT_EQ(values(), "1 2 7");
  datastores_->undo(alice(), undone.number);
  EXPECT_EQ(values(), "0 9 7");
}

TEST_F(DatastoresTest, Undo_OfWhatHasChangedSinceIsRefused) {
  const uint64_t first = datastores_->edit(alice(), kRunning, setting(0, 9, 3)).number;
  datastores_->edit(bob(), kRunning, setting(0, 8, 3));
  EXPECT_THAT(refusal_of([&] { datastores_->undo(alice(), first); }), HasSubstr("has changed since commit 1"));
  EXPECT_EQ(values(), "8 2 3");
}

TEST_F(DatastoresTest, UndoOfAnAddedEntry_InWhichSomethingWasPutSinceIsRefused) {
  device_.change(priorities({0, 2, 3}));
  const uint64_t first = datastores_->edit(alice(), kRunning, setting(0, 9, 3)).number;
  device_.change(R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {"interface-configuration": [
      {"active": "act", "interface-name": "i0", "Talvo-Brin-QD-bundlemgr-cfg:lacp":
          {"mode": "active", "system-priority": 9, "period": true}}]}})");
  EXPECT_THAT(refusal_of([&] { datastores_->undo(alice(), first); }), HasSubstr("/period: has changed since"));
}

TEST_F(DatastoresTest, OutsideChanges_AreToldOnceAndThoseOfCommitsAreNot) {
  EXPECT_THAT(datastores_->take_outside_changes(), IsEmpty());
  device_.change(priorities({1, 8, 0}));
  datastores_->edit(alice(), kRunning, setting(0, 9, 3));
  const Changes changes = datastores_->take_outside_changes();
  ASSERT_THAT(changes, SizeIs(4));  // a priority; an entry with its two leaves
  EXPECT_THAT(changes[0].path, HasSubstr("'i1'"));
  EXPECT_EQ(changes[1].kind, ChangeKind::kDeleted);
  EXPECT_THAT(datastores_->take_outside_changes(), IsEmpty());
}

class ConfirmedCommitTest : public DatastoresTest {
 protected:
  static CommitRequest confirmed(int seconds, const std::string& persist = "", const std::string& persist_id = "") {
    return {.may_interrupt = false,
            .confirmation = Confirmation{std::chrono::seconds(seconds), persist},
            .persist_id = persist_id};
  }
  static CommitRequest with_id(const std::string& persist_id) {
    return {.may_interrupt = false, .confirmation = std::nullopt, .persist_id = persist_id};
  }

  void commit_confirmed(const CommitRequest& request) {
    datastores_->edit(alice(), kCandidate, setting(0, 9, 3));
    datastores_->commit(alice(), request);
    ASSERT_EQ(values(), "9 2 3");
  }
};

TEST_F(ConfirmedCommitTest, NotConfirmedInTime_RestoresTheEarlierConfiguration) {
  commit_confirmed(confirmed(60));
  clock_.pass(std::chrono::seconds(59));
  EXPECT_FALSE(datastores_->expire());
  clock_.pass(std::chrono::seconds(1));
  EXPECT_THAT(datastores_->expire()->changes, SizeIs(1));
  EXPECT_EQ(values(), "1 2 3");
  EXPECT_THAT(datastores_->pending(), testing::IsNull());
  start();
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(ConfirmedCommitTest, Confirmed_StaysForGood) {
  commit_confirmed(confirmed(60));
  datastores_->edit(alice(), kCandidate, setting(1, 8, 3));
  datastores_->commit(alice());
  EXPECT_FALSE(datastores_->deadline());
  datastores_->end(alice());
  start();
  EXPECT_EQ(values(), "9 8 3");
}

TEST_F(ConfirmedCommitTest, SecondOne_KeepsWhatTheFirstCameFrom) {
  commit_confirmed(confirmed(60));
  clock_.pass(std::chrono::seconds(50));
  datastores_->edit(alice(), kCandidate, setting(1, 8, 3));
  datastores_->commit(alice(), confirmed(60));
  clock_.pass(std::chrono::seconds(50));
  EXPECT_FALSE(datastores_->expire());
  clock_.pass(std::chrono::seconds(10));
  EXPECT_THAT(datastores_->expire()->changes, SizeIs(2));
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, Cancelled_ComesBackAtOnce) {
  commit_confirmed(confirmed(60));
  EXPECT_EQ(kind_of_refusal([&] { datastores_->cancel(bob(), ""); }), ErrorKind::kInUse);
  datastores_->cancel(alice(), "");
  EXPECT_EQ(values(), "1 2 3");
  EXPECT_EQ(kind_of_refusal([&] { datastores_->cancel(alice(), ""); }), ErrorKind::kInvalidValue);
}

TEST_F(ConfirmedCommitTest, WhilePending_OthersAreKeptOff) {
  commit_confirmed(confirmed(60));
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(bob()); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->edit(bob(), kRunning, setting(2, 7, 3)); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(bob(), confirmed(60)); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->lock(bob(), kRunning); }), ErrorKind::kLockDenied);
  datastores_->lock(alice(), kRunning);
}

TEST_F(ConfirmedCommitTest, WithoutPersistId_ComesBackWithTheEndOfItsOwner) {
  commit_confirmed(confirmed(60));
  EXPECT_THAT(datastores_->end(bob()).changes, IsEmpty());
  EXPECT_THAT(datastores_->end(alice()).changes, SizeIs(1));
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, WithPersistId_IsConfirmedByAnyoneWhoKnowsIt) {
  commit_confirmed(confirmed(60, "p"));
  datastores_->end(alice());
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(bob()); }), ErrorKind::kInUse);
  EXPECT_EQ(kind_of_refusal([&] { datastores_->commit(bob(), with_id("q")); }), ErrorKind::kInvalidValue);
  datastores_->commit(bob(), with_id("p"));
  clock_.pass(std::chrono::seconds(60));
  EXPECT_FALSE(datastores_->expire());
  EXPECT_EQ(values(), "9 2 3");
}

TEST_F(ConfirmedCommitTest, AfterARestart_ComesBackAtOnce) {
  commit_confirmed(confirmed(60));
  start();
  EXPECT_EQ(values(), "1 2 3");
  EXPECT_THAT(told_, testing::ElementsAre(HasSubstr("taken back: its session has ended")));
}

TEST_F(ConfirmedCommitTest, WithPersistId_KeepsItsDeadlineOverARestart) {
  commit_confirmed(confirmed(60, "p"));
  clock_.pass(std::chrono::seconds(40));
  start();
  EXPECT_EQ(values(), "9 2 3");
  clock_.pass(std::chrono::seconds(19));
  EXPECT_FALSE(datastores_->expire());
  clock_.pass(std::chrono::seconds(1));
  EXPECT_TRUE(datastores_->expire());
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, WithPersistId_ComesBackWhenTheTimeCannotBeTold) {
  commit_confirmed(confirmed(60, "p"));
  clock_.set_wall(std::chrono::seconds(1'600'000'000));
  start();
  EXPECT_THAT(told_, testing::ElementsAre(HasSubstr("the clock was set back")));
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, WithPersistId_ComesBackAfterAStartOfTheMachine) {
  commit_confirmed(confirmed(60, "p"));
  clock_.start_machine();
  start();
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, ComingBack_LeavesWhatOthersChangedElsewhere) {
  commit_confirmed(confirmed(60));
  device_.change(priorities({9, 2, 7}));
  datastores_->cancel(alice(), "");
  EXPECT_EQ(values(), "1 2 7");
}

TEST_F(ConfirmedCommitTest, ComingBack_WhereOthersChangedTheSameBringsAllBack) {
  commit_confirmed(confirmed(60));
  device_.change(priorities({5, 2, 7}));
  datastores_->cancel(alice(), "");
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, ThatCannotComeBack_IsTriedAgain) {
  commit_confirmed(confirmed(60));
  clock_.pass(std::chrono::seconds(60));
  {
    const std::unique_ptr<host::DeviceLock> held = device_.lock({});
    EXPECT_EQ(kind_of_refusal([&] { datastores_->expire(); }), ErrorKind::kInUse);
    EXPECT_FALSE(datastores_->expire());
  }
  clock_.pass(std::chrono::seconds(10));
  EXPECT_TRUE(datastores_->expire());
  EXPECT_EQ(values(), "1 2 3");
}

TEST_F(ConfirmedCommitTest, DamagedFile_IsToldByItsName) {
  commit_confirmed(confirmed(60));
  const std::string file = state_.path() + "/confirmed-commit";
  std::filesystem::resize_file(file, std::filesystem::file_size(file) - 1);
  EXPECT_THAT(refusal_of([&] { start(); }), HasSubstr("/confirmed-commit: is damaged"));
}

}  // namespace
}  // namespace oclacp::server
