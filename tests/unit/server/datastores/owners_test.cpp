// Ten owners who work with one device in turns, and a program that takes no lock.
#include <random>

#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

using host::Error;

constexpr size_t kOwners = 10;
constexpr size_t kInterfaces = 6;

class OwnersTest : public DatastoresTest, public testing::WithParamInterface<unsigned> {
 protected:
  void SetUp() override {
    device_.change(priorities({1, 2, 3, 4, 5, 6}));
    start();
    known_ = copy_of(datastores_->snapshot(Datastore::kRunning)->running());
  }

  size_t draw(size_t below) { return std::uniform_int_distribution<size_t>(0, below - 1)(random_); }
  [[nodiscard]] static Owner owner(size_t index) {
    return {index + 1, "user " + std::to_string(index), "session " + std::to_string(index + 1)};
  }
  Datastore draw_datastore() { return static_cast<Datastore>(draw(3)); }
  Plan draw_plan() { return setting(draw(kInterfaces), static_cast<unsigned>(draw(4)), kInterfaces); }
  CommitRequest draw_request() {
    CommitRequest request;
    if (draw(3) == 0) {
      request.confirmation = Confirmation{std::chrono::seconds(1 + draw(20)), draw(2) == 0 ? "" : "p"};
    }
    request.persist_id = draw(4) == 0 ? "p" : "";
    return request;
  }

  CommitResult take_turn(const Owner& who) {
    switch (draw(11)) {
      case 0:
        datastores_->lock(who, draw_datastore());
        break;
      case 1:
        datastores_->unlock(who, draw_datastore());
        break;
      case 2:
      case 3:
        return datastores_->edit(who, Datastore::kCandidate, draw_plan());
      case 4:
        return datastores_->edit(who, Datastore::kRunning, draw_plan(), draw_request());
      case 5:
      case 6:
        return datastores_->commit(who, draw_request());
      case 7:
        return datastores_->end(who);
      case 8:
        return datastores_->cancel(who, draw(2) == 0 ? "" : "p");
      case 9:
        return datastores_->copy(who, draw_datastore(), draw_datastore(), draw_request());
      default:
        datastores_->discard(who);
    }
    return {};
  }

  // What is known changes by nothing but what somebody was told.
  void expect_accounted(const CommitResult& result) {
    for (const Change& change : result.changes) {
      if (change.is_leaf) {
        ASSERT_EQ(shown_side(known_.get(), change), Shown::kBefore) << describe(change);
      }
    }
    if (result.number != 0) {
      ASSERT_EQ(datastores_->journal().read(result.number).changes, result.changes);
    }
    known_ = with_changes(schemas().native(), known_.get(), result.changes);
    const Changes lost = find_changes(known_.get(), datastores_->snapshot(Datastore::kRunning)->running());
    ASSERT_THAT(lost, testing::IsEmpty()) << describe(lost.front());
  }

  void change_outside() {
    const std::shared_ptr<const host::DeviceSnapshot> now = device_.snapshot();
    std::vector<unsigned> values = priorities_of(*now, kInterfaces);
    values[draw(kInterfaces)] = static_cast<unsigned>(10 + draw(4));
    device_.change(priorities(values));
    known_ = running(priorities(values));
  }

  std::mt19937 random_{GetParam()};
  host::TreePtr known_;
};

TEST_P(OwnersTest, InTurns_NothingIsLostAndNothingHalf) {
  size_t accepted = 0;
  size_t refused = 0;
  for (unsigned turn = 0; turn < 400; ++turn) {
    SCOPED_TRACE(turn);
    clock_.pass(std::chrono::seconds(1));
    if (draw(20) == 0) {
      change_outside();
    }
    if (const std::optional<CommitResult> expired = datastores_->expire()) {
      expect_accounted(*expired);
    }
    const size_t index = draw(kOwners);
    try {
      expect_accounted(take_turn(owner(index)));
      ++accepted;
    } catch (const Error&) {
      ++refused;
      expect_accounted({});
    }
    if (HasFatalFailure()) {
      return;
    }
  }
  // Both happen, so that both are tested.
  EXPECT_GT(accepted, 50U);
  EXPECT_GT(refused, 50U);
  for (size_t index = 0; index < kOwners; ++index) {
    expect_accounted(datastores_->end(owner(index)));
  }
  for (const Datastore datastore : {Datastore::kRunning, Datastore::kCandidate, Datastore::kStartup}) {
    EXPECT_THAT(datastores_->lock_holder(datastore), testing::IsNull());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, OwnersTest, testing::Range(1U, 9U));

}  // namespace
}  // namespace oclacp::server
