#include "server/engine/served_device.h"

#include <poll.h>

#include "host/files/read_file.h"
#include "server/engine/engine.h"
#include "tests/unit/server/datastores/server_test.h"

namespace oclacp::server {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kInterval = "/lacp/interfaces/interface[name='Bundle-Ether1']/config/interval";

class ServedDeviceTest : public testing::Test {
 protected:
  ServedDeviceTest() {
    for (const char* file : {"platform.json", "running.json", "operational.json"}) {
      std::filesystem::copy_file(std::string(location::kExamples) + "/device/" + file, device_.path() + "/" + file);
    }
  }

  [[nodiscard]] ServedDeviceSettings settings() const {
    return {.schemas = {location::kSchemas, ""},
            .module_file = location::kModule,
            .device = device_.path(),
            .state_folder = state_.path()};
  }
  static std::string interval(const char* value) {
    return host::interface(
        std::string(R"("name": "Bundle-Ether1", "config": {"name": "Bundle-Ether1", "interval": ")") + value + R"("})");
  }

  TemporaryFolder device_;
  TemporaryFolder state_;
};

TEST_F(ServedDeviceTest, ReadOfWhatHasNotChanged_IsNotReadAgain) {
  ServedDevice served(settings());
  const auto first = served.read(Datastore::kRunning, {"/lacp"}, {});
  EXPECT_EQ(served.read(Datastore::kRunning, {"/lacp"}, {}), first);
  EXPECT_NE(served.read(Datastore::kRunning, {kInterval}, {}), first);
  EXPECT_EQ(served.read(Datastore::kCandidate, {"/lacp"}, {}), first);
  served.edit(alice(), Datastore::kRunning, interval("SLOW"), {});
  EXPECT_NE(served.read(Datastore::kRunning, {"/lacp"}, {}), first);
}

TEST_F(ServedDeviceTest, EditOfTheCandidate_IsSeenThereAndCommitted) {
  ServedDevice served(settings());
  served.edit(alice(), Datastore::kCandidate, interval("SLOW"), {});
  EXPECT_THAT(served.get(Datastore::kCandidate, {kInterval}, {}, host::Format::kJson), HasSubstr("SLOW"));
  EXPECT_THAT(served.get(Datastore::kRunning, {kInterval}, {}, host::Format::kJson), Not(HasSubstr("SLOW")));
  served.datastores().commit(alice());
  EXPECT_THAT(served.get(Datastore::kRunning, {kInterval}, {}, host::Format::kJson), HasSubstr("SLOW"));
}

TEST_F(ServedDeviceTest, ChangeByAnotherProgram_IsToldLeafByLeafOnBothSides) {
  ServedDevice served(settings());
  Changes native;
  Changes openconfig;
  served.on_outside_changes([&](const Changes& changes) { native = changes; });
  served.watch().add({"/lacp", host::Content::kConfig},
                     {[&](const Changes& changes) { openconfig = changes; }, [](const host::Error&) {}});
  const std::string file = device_.path() + "/running.json";
  std::string text = host::read_text_file(file);
  constexpr std::string_view kPriority = R"("system-priority": 100)";
  text.replace(text.find(kPriority), kPriority.size(), R"("system-priority": 101)");
  std::ofstream(file) << text;
  pollfd signal = {served.descriptor(), POLLIN, 0};
  ASSERT_EQ(poll(&signal, 1, 10'000), 1);
  served.take_signal();
  ASSERT_EQ(native.size(), 1U);
  EXPECT_THAT(describe(native[0]), HasSubstr("system-priority: changed from '100' to '101'"));
  ASSERT_EQ(openconfig.size(), 1U);
  EXPECT_THAT(describe(openconfig[0]), HasSubstr("/config/system-priority: changed from '100' to '101'"));
}

TEST_F(ServedDeviceTest, InAnEngine_AnswersOtherThreads) {
  Engine<ServedDevice> engine([this] { return std::make_unique<ServedDevice>(settings()); }, {});
  EXPECT_EQ(engine.call([](ServedDevice& served) {
    return served.edit(alice(), Datastore::kRunning, interval("SLOW"), {}).changes.size();
  }),
            1U);
  EXPECT_THAT(engine.call([](ServedDevice& served) {
    return served.get(Datastore::kRunning, {kInterval}, {}, host::Format::kJson);
  }),
              HasSubstr("SLOW"));
}

TEST_F(ServedDeviceTest, DeviceThatIsNotThere_CannotBeServed) {
  ServedDeviceSettings missing = settings();
  missing.device = device_.path() + "/none";
  EXPECT_THAT(refusal_of([&] { const ServedDevice served(missing); }), HasSubstr("no such device directory"));
}

}  // namespace
}  // namespace oclacp::server
