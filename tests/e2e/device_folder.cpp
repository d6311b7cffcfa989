#include "tests/e2e/device_folder.h"

namespace support {

DeviceFolderTest::DeviceFolderTest() {
  write_platform(R"({"oclacp-platform:platform": {"router-type": 7}})");
  write_file("running.json", "{}");
}

}  // namespace support
