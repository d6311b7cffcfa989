#include "server/datastores/path_watch.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::server {
namespace {

using host::Content;
using testing::ElementsAre;
using testing::IsEmpty;

class PathWatchTest : public testing::Test {
 protected:
  PathWatch::Subscriber collecting(std::vector<std::string>& told) {
    return {[&told](const Changes& changes) {
              for (const Change& change : changes) {
                told.push_back(describe(change));
              }
            },
            [&told](const host::Error& error) { told.emplace_back(error.what()); }};
  }

  LeafTable leaves_ = {{"/a", "1"}, {"/b", "2"}};
  size_t reads_ = 0;
  bool fails_ = false;
  PathWatch watch_{[this](const PathWatch::Path& /*path*/) {
    ++reads_;
    if (fails_) {
      throw host::Error(host::ErrorKind::kOperationFailed, "the device is gone");
    }
    return leaves_;
  }};
  std::vector<std::string> one_;
  std::vector<std::string> other_;
};

TEST_F(PathWatchTest, Changes_AreToldLeafByLeafWithDeletes) {
  EXPECT_EQ(watch_.add({"/", Content::kAll}, collecting(one_)).second, leaves_);
  leaves_ = {{"/a", "9"}, {"/c", "3"}};
  watch_.update();
  EXPECT_THAT(one_, ElementsAre("/a: changed from '1' to '9'", "/b: deleted '2'", "/c: added '3'"));
  one_.clear();
  watch_.update();
  EXPECT_THAT(one_, IsEmpty());
}

TEST_F(PathWatchTest, SubscribersOfOnePath_ShareOneRead) {
  for (int count = 0; count < 100; ++count) {
    watch_.add({"/", Content::kAll}, collecting(one_));
  }
  watch_.add({"/", Content::kConfig}, collecting(other_));
  reads_ = 0;
  leaves_[0].value = "9";
  watch_.update();
  EXPECT_EQ(reads_, 2U);
  EXPECT_EQ(one_.size(), 100U);
  EXPECT_EQ(other_.size(), 1U);
}

TEST_F(PathWatchTest, SecondSubscriber_BeginsWhereTheFirstHasBeenTold) {
  watch_.add({"/", Content::kAll}, collecting(one_));
  leaves_[0].value = "9";
  EXPECT_EQ(watch_.add({"/", Content::kAll}, collecting(other_)).second, leaves_);
  watch_.update();
  EXPECT_THAT(one_, ElementsAre("/a: changed from '1' to '9'"));
  EXPECT_THAT(other_, IsEmpty());
}

TEST_F(PathWatchTest, Removed_IsToldNothingAndReadNoMore) {
  const PathWatch::Id id = watch_.add({"/", Content::kAll}, collecting(one_)).first;
  watch_.remove(id);
  watch_.remove(id);
  reads_ = 0;
  leaves_.clear();
  watch_.update();
  EXPECT_EQ(reads_, 0U);
  EXPECT_THAT(one_, IsEmpty());
}

TEST_F(PathWatchTest, FailedRead_IsToldOnceAndNothingIsForgotten) {
  watch_.add({"/", Content::kAll}, collecting(one_));
  fails_ = true;
  watch_.update();
  watch_.update();
  fails_ = false;
  leaves_[1].value = "3";
  watch_.update();
  EXPECT_THAT(one_, ElementsAre("the device is gone", "/b: changed from '2' to '3'"));
}

}  // namespace
}  // namespace oclacp::server
