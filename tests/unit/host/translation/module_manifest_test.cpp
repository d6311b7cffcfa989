#include "host/translation/module_manifest.h"

#include "tests/support/locations.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

using testing::ElementsAre;

class ModuleManifestTest : public testing::Test {
 protected:
  ModuleManifestTest() { folder_.write("libclock.so", ""); }

  // The manifest with `content` as the members of its only node.
  ModuleManifest read(const std::string& content) {
    folder_.write("libclock.json", R"({"oclacp-module:module": {)" + content + "}}");
    return read_module_manifest(location::kSchemas, folder_.path() + "/libclock.so");
  }

  TemporaryFolder folder_;
  const std::string least_ = R"("library": "libclock.so", "initialisation": "start", "cleanup": "stop",
      "registration": ["one", "two"], "entry-path": ["/clock:clock"],
      "schema": [{"name": "clock", "side": "published", "feature": ["drift", "tide"]},
                 {"name": "time", "side": "native"}])";
};

TEST_F(ModuleManifestTest, LeastManifest_NamesWhatIsLoaded) {
  const ModuleManifest manifest = read(least_);
  EXPECT_EQ(manifest.initialisation, "start");
  EXPECT_EQ(manifest.cleanup, "stop");
  EXPECT_THAT(manifest.registrations, ElementsAre("one", "two"));
  EXPECT_THAT(manifest.entry_paths, ElementsAre("/clock:clock"));
  ASSERT_EQ(manifest.schemas.published.size(), 1U);
  EXPECT_EQ(manifest.schemas.published[0].name, "clock");
  EXPECT_THAT(manifest.schemas.published[0].features, ElementsAre("drift", "tide"));
  ASSERT_EQ(manifest.schemas.native.size(), 1U);
  EXPECT_EQ(manifest.schemas.native[0].name, "time");
  EXPECT_EQ(manifest.record_registration, "");
  EXPECT_FALSE(manifest.leaf_tables);
}

TEST_F(ModuleManifestTest, SchemaDirectories_AreRelativeToTheManifest) {
  const ModuleManifest manifest = read(least_ + R"(, "schema-directory": ["../yang", "/usr/share/yang"])");
  EXPECT_THAT(manifest.schemas.directories,
              ElementsAre(std::filesystem::path(folder_.path()).parent_path().string() + "/yang", "/usr/share/yang"));
}

TEST_F(ModuleManifestTest, ManifestWithoutAPart_IsRefusedWithItsFile) {
  for (const char* part : {"library", "initialisation", "cleanup", "registration", "entry-path", "schema"}) {
    std::string content = least_;
    const std::string name = "\"" + std::string(part) + "\"";
    content.replace(content.find(name), name.size(), "\"odd\"");
    EXPECT_THAT(refusal_of([&] { read(content); }), testing::StartsWith(folder_.path() + "/libclock.json: ")) << part;
  }
}

TEST_F(ModuleManifestTest, MappingOfOneSide_IsRefused) {
  std::string content = least_;
  content.replace(content.find("native"), 6, "published");
  EXPECT_THAT(refusal_of([&] { read(content); }), testing::HasSubstr("a mapping has a schema on either side"));
}

}  // namespace
}  // namespace oclacp::host
