#include "host/devices/staged_device.h"

#include "tests/unit/host/devices/memory_device.h"

namespace oclacp::host {
namespace {

using testing::HasSubstr;

class StagedDeviceTest : public testing::Test {
 protected:
  void stage(const std::string& configuration) {
    staged_.commit(*staged_.lock({}), *staged_.snapshot(), running(configuration), {});
  }

  MemoryDevice below_{lacp_of_a(R"("mode": "active")")};
  StagedDevice staged_{below_};
};

TEST_F(StagedDeviceTest, NothingStaged_ShowsTheDeviceBelowAndAppliesNothing) {
  EXPECT_EQ(staged_.snapshot(), below_.snapshot());
  EXPECT_FALSE(staged_.is_changed());
  staged_.apply(*below_.lock({}), {});
  EXPECT_EQ(below_.commits(), 0U);
}

TEST_F(StagedDeviceTest, Staged_IsSeenHereAndNotBelow) {
  stage(lacp_of_a(R"("mode": "passive")"));
  EXPECT_THAT(json_of(*staged_.snapshot()), HasSubstr("passive"));
  EXPECT_THAT(json_of(*below_.snapshot()), HasSubstr("active"));
  EXPECT_EQ(below_.commits(), 0U);
}

TEST_F(StagedDeviceTest, StagedTwice_IsAppliedAsOneCommit) {
  stage(lacp_of_a(R"("mode": "passive")"));
  stage(lacp_of_a(R"("mode": "passive", "period": true)"));
  staged_.apply(*below_.lock({}), {});
  EXPECT_EQ(below_.commits(), 1U);
  EXPECT_THAT(json_of(*below_.snapshot()), HasSubstr(R"("period":true)"));
  EXPECT_FALSE(staged_.is_changed());
  EXPECT_EQ(staged_.snapshot(), below_.snapshot());
}

TEST_F(StagedDeviceTest, MadeFromAnEarlierConfiguration_IsRefused) {
  const auto before = staged_.snapshot();
  stage(lacp_of_a(R"("mode": "passive")"));
  EXPECT_THAT(refusal_of([&] { staged_.commit(*staged_.lock({}), *before, running("{}"), {}); }),
              HasSubstr("made from an earlier configuration"));
  EXPECT_THAT(json_of(*staged_.snapshot()), HasSubstr("passive"));
}

TEST_F(StagedDeviceTest, DeviceBelowChangedMeanwhile_IsNotOverwrittenAndKeepsWhatWasStaged) {
  stage(lacp_of_a(R"("mode": "passive")"));
  below_.change(lacp_of_a(R"("mode": "active", "period": true)"));
  EXPECT_THAT(refusal_of([&] { staged_.apply(*below_.lock({}), {}); }), HasSubstr("was changed"));
  EXPECT_THAT(json_of(*below_.snapshot()), HasSubstr(R"("period":true)"));
  EXPECT_THAT(json_of(*staged_.snapshot()), HasSubstr("passive"));
}

TEST_F(StagedDeviceTest, LockOfAnotherDevice_IsRefused) {
  EXPECT_THAT(refusal_of([&] { staged_.commit(*below_.lock({}), *staged_.snapshot(), running("{}"), {}); }),
              HasSubstr("the lock of another device"));
}

TEST_F(StagedDeviceTest, OverAStagedDevice_ChainsFurther) {
  stage(lacp_of_a(R"("mode": "passive")"));
  Device& below = staged_;
  StagedDevice upper(below);
  upper.commit(*upper.lock({}), *upper.snapshot(), running("{}"), {});
  upper.apply(*staged_.lock({}), {});
  EXPECT_THAT(json_of(*staged_.snapshot()), testing::Not(HasSubstr("passive")));
  EXPECT_EQ(below_.commits(), 0U);
}

}  // namespace
}  // namespace oclacp::host
