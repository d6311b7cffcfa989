// Edits of a device without memory: each allocation of the host fails once, counted up until all are had.
#include <cstdlib>
#include <new>

#include "host/devices/folder_device.h"
#include "host/files/read_file.h"
#include "host/translation/translator.h"
#include "tests/unit/host/host_test.h"

namespace {

long allocations_left = -1;  // below 0: as many as there are

void* allocate(size_t size) {
  if (allocations_left == 0) {
    allocations_left = -1;
    throw std::bad_alloc();
  }
  allocations_left -= allocations_left > 0 ? 1 : 0;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

}  // namespace

// In the place of the library's: all of them, since a sanitizer's own are not freed by these.
void* operator new(size_t size) {
  return allocate(size);
}
void* operator new(size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, size_t /*size*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, size_t /*size*/) noexcept {
  std::free(memory);
}

namespace oclacp::host {
namespace {

constexpr const char* kEmpty = R"({"Talvo-Brin-QD-ifmgr-cfg:interface-configurations": {}})";

class OutOfMemory : public testing::Test {
 protected:
  OutOfMemory() {
    folder_.write("platform.json",
                  R"({"oclacp-platform:platform": {"router-type": 7,
                      "interface": [{"name": "Bundle-Ether1", "type": "bundle"}]}})");
    folder_.write("running.json", kEmpty);
  }

  // Whether the edit was carried out; else memory was told to be missing.
  bool edit() {
    try {
      FolderDevice device(translator_.native_context(), folder_.path());
      const std::unique_ptr<DeviceLock> lock = device.lock({});
      const std::shared_ptr<const DeviceSnapshot> before = device.snapshot();
      EditPlan plan = translator_.plan_edit(kRequest, *before, {});
      device.commit(*lock, *before, std::move(plan.running), {});
      return true;
    } catch (const std::bad_alloc&) {
      return false;
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::kOutOfMemory) << error.what();
      return false;
    }
  }

  [[nodiscard]] std::string running() const { return read_text_file(folder_.path() + "/running.json"); }

  const std::string kRequest =
      interface(R"("name": "Bundle-Ether1", "config": {"name": "Bundle-Ether1", "interval": "FAST"})");
  TemporaryFolder folder_;
  Translator translator_{{location::kSchemas, ""}, location::kModule};
};

// Tools such as valgrind put an operator new of their own in the place of this one.
bool is_counting() {
  allocations_left = 1;
  const std::unique_ptr<int> any(static_cast<int*>(operator new(sizeof(int))));
  const bool has_counted = allocations_left == 0;
  allocations_left = -1;
  return has_counted;
}

TEST_F(OutOfMemory, AtAnyAllocation_LeavesTheDeviceAsItWas) {
  if (!is_counting()) {
    GTEST_SKIP() << "another operator new is in the place of the test's";
  }
  constexpr long kMost = 20'000;
  long failing = 0;
  bool is_done = false;
  for (; !is_done && failing < kMost; ++failing) {
    allocations_left = failing;
    is_done = edit();
    const bool was_reached = allocations_left == -1;
    allocations_left = -1;
    if (!is_done) {
      ASSERT_TRUE(was_reached);
      ASSERT_EQ(running(), kEmpty) << "allocation " << failing;
      ASSERT_FALSE(std::filesystem::exists(folder_.path() + "/running.json.new")) << "allocation " << failing;
    }
  }
  EXPECT_TRUE(is_done) << "an edit takes less than " << kMost << " allocations";
  EXPECT_GT(failing, 100) << "the edit allocates";
  EXPECT_THAT(running(), testing::HasSubstr("Bundle-Ether1"));
}

}  // namespace
}  // namespace oclacp::host
