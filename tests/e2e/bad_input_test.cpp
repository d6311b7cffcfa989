// Everything that is refused: one sentence, status 1, nothing on the standard output.
#include <unistd.h>

#include <cctype>
#include <filesystem>

#include "tests/e2e/edit_program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

struct BadExample {
  std::string file;
  std::string sentence;
  int status = kFailed;
};

class BadExamples : public testing::TestWithParam<BadExample> {};

TEST_P(BadExamples, Translated_IsRefused) {
  expect_refusal(run({"translate", "--to", "native", "-d", example("device"), example("bad/" + GetParam().file)}),
                 "oclacp: " + GetParam().sentence, GetParam().status);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Shipped, BadExamples, testing::Values(
    BadExample{"bad-interval.json", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether3']/config/interval: 'MEDIUM' is none of FAST, SLOW\n"},
    BadExample{"bad-priority.json", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether3']/config/system-priority: Value \"65536\" is out of type uint16 min/max bounds\n"},
    BadExample{"delete-interface-without-lacp.json", "/openconfig-lacp:lacp/interfaces/interface[name='GigabitEthernet0/0/0/4']: nothing to delete: the device has no LACP configuration for this interface (code 0xaaf28000)\n", kDataMissing},
    BadExample{"delete-key.json", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether1']/name: a list key cannot be deleted; the list entry can (error tag 'name', code 0xaaf2f200)\n"},
    BadExample{"delete-lacp-with-children.json", "/openconfig-lacp:lacp: a container that is deleted may not name children (code 0xaaf2a000)\n"},
    BadExample{"empty.json", example("bad/empty.json") + ": empty\n"},
    BadExample{"key-disagrees.json", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether3']/config/name: 'Bundle-Ether4' differs from the list key that refers to it\n"},
    BadExample{"long-name.json", "/openconfig-lacp:lacp/interfaces/interface/name: an interface name has at most 63 bytes\n"},
    BadExample{"malformed.json", example("bad/malformed.json") + " (line 2): the document ends early\n"},
    BadExample{"malformed.xml", "/openconfig-lacp:lacp/config (line 1): Opening (\"config\") and closing (\"lacp\") elements tag mismatch\n"},
    BadExample{"no-key.json", "/openconfig-lacp:lacp/interfaces/interface/name: the list entry must name its key exactly once, with a value (error tag 'name', code 0xaaf2f000)\n"},
    BadExample{"read-unsupported.xml", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether1']/state: not supported by this mapping (error tag 'state', code 0xaaf2ee00)\n"},
    BadExample{"two-keys.xml", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether3']/name: the list entry must name its key exactly once, with a value (error tag 'name', code 0xaaf2f000)\n"},
    BadExample{"unknown-module.json", "/openconfig-vlan:vlans: unknown module 'openconfig-vlan'\n"},
    BadExample{"unknown-node.json", "/openconfig-lacp:lacp/interfaces/interface[name='Bundle-Ether3']/config/colour: no such node\n"}),
    [](const testing::TestParamInfo<BadExample>& shown) {
      std::string name;
      for (const char character : shown.param.file) {
        name += std::isalnum(static_cast<unsigned char>(character)) != 0 ? character : '_';
      }
      return name;
    });
// clang-format on

// A shipped example that no test knows would be a promise that nobody keeps.
TEST(BadExamplesFolder, Files_AreAllCoveredByTests) {
  const auto& files = std::filesystem::directory_iterator(example("bad"));
  EXPECT_EQ(std::distance(begin(files), end(files)), 15);
}

TEST(BadInput, DocumentOf50Megabytes_IsRefused) {
  std::string blanks;
  blanks.resize(50'000'000, ' ');
  expect_refusal(translate(R"({"openconfig-lacp:lacp": {)" + blanks + "}}"), "the request: longer than 32 MiB");
}

TEST(BadInput, DocumentOf10000Levels_IsRefused) {
  std::string json;
  std::string xml;
  for (int level = 0; level < 10'000; ++level) {
    json += R"({"openconfig-lacp:lacp": )";
    xml += "<lacp xmlns='http://openconfig.net/yang/lacp'>";
  }
  for (const std::string& document : {json, xml, std::string(10'000, '['), json + "1" + std::string(10'000, '}')}) {
    expect_refusal(translate(document), "the request (line 1): nested deeper than 100 levels");
  }
}

// Each would take libyang half a minute.
TEST(BadInput, SixtyThousandEqualNodes_AreRefusedAtOnce) {
  std::string entries;
  std::string leaves;
  std::string elements;
  for (int index = 0; index < 60'000; ++index) {
    entries += R"({"name":"a"},)";
    leaves += R"("interval":"FAST",)";
    elements += "<interface><name>a</name></interface>";
  }
  const auto start = std::chrono::steady_clock::now();
  const std::string entry = "/openconfig-lacp:lacp/interfaces/interface[name='a']";
  expect_refusal(translate(R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[)" + entries + "{}]}}}"),
                 entry + " (line 1): named twice\n");
  expect_refusal(translate(interface(R"("name": "a", "config": {)" + leaves + R"("name": "a"})")),
                 entry + "/config/interval (line 1): named twice\n");
  expect_refusal(
      translate("<lacp xmlns='http://openconfig.net/yang/lacp'><interfaces>" + elements + "</interfaces></lacp>"),
      entry + " (line 1): named twice\n");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << "three starts of the program";
}

TEST(BadInput, NameOf300Characters_IsRefused) {
  expect_refusal(translate(interface(R"("name": ")" + std::string(300, 'x') + "\"")),
                 "/openconfig-lacp:lacp/interfaces/interface/name: an interface name has at most 63 bytes");
}

TEST(BadInput, EmptyEntry_IsRefused) {
  expect_refusal(translate(interface("")), "/openconfig-lacp:lacp/interfaces/interface: the list entry names no keys");
}

TEST(BadInput, OperationWithoutTheNetconfNamespace_IsRefused) {
  expect_refusal(translate(interface(R"("name": "a", "@": {"nc:operation": "delete"})")), "'nc:operation'");
  expect_refusal(translate(R"(<lacp xmlns="http://openconfig.net/yang/lacp" operation="delete"/>)"), "'operation'");
}

TEST(BadInput, RequestCutOrExtended_IsRefused) {
  const std::string request = interface(R"("name": "Bundle-Ether1", "config": {"interval": "FAST"})");
  ASSERT_EQ(translate(request).status, 0);
  for (size_t length = 0; length < request.size(); ++length) {
    const Outcome cut = translate(request.substr(0, length));
    EXPECT_EQ(cut.status, 1) << length;
    EXPECT_EQ(cut.out, "") << length;
  }
  expect_refusal(translate(request + "}"), "text after the end of the document");
}

TEST(BadFiles, RequestThatCannotBeRead_IsRefused) {
  expect_refusal(run({"translate", "--to", "native", "/no/such"}), "/no/such: No such file or directory");
  expect_refusal(run({"translate", "--to", "native", "/"}), "/: Is a directory");
}

TEST(BadFiles, MissingDeviceOrFile_IsRefused) {
  expect_refusal(translate("{}", {"-d", "/no/such"}), "/no/such: no such device directory");
  expect_refusal(translate("{}", {"-d", example("requests")}), "/requests/platform.json: No such file or directory");
}

TEST(BadFiles, FolderInPlaceOfAFile_IsRefused) {
  // A folder in the place of the file: not even root can read that.
  const auto folder = std::filesystem::temp_directory_path() / ("oclacp-" + std::to_string(getpid()));
  std::filesystem::create_directories(folder / "platform.json");
  expect_refusal(translate("{}", {"-d", folder}), "/platform.json: is not a regular file");
  std::filesystem::remove_all(folder);
}

TEST(BadFiles, UnusableModule_IsRefused) {
  expect_refusal(translate("{}", {"--module", "/no/such.so"}), "the mapping module cannot be loaded: /no/such.so");
  expect_refusal(translate("{}", {"--module", example("bad/two-keys.xml")}), "has no manifest beside it");
  expect_refusal(translate("{}", {"--module", location::kHostLibrary}), "has no manifest beside it");
}

// As it is while it is being copied. A page after the end of a file that was mapped ends a process.
TEST(BadFiles, AModuleThatIsCutOff_IsRefused) {
  const CopiedDevice folder;
  std::ostringstream whole;
  whole << std::ifstream(location::kModule).rdbuf();
  std::ostringstream manifest;
  manifest << std::ifstream(std::filesystem::path(location::kModule).replace_extension(".json")).rdbuf();
  std::string named = manifest.str();
  constexpr std::string_view kLibrary = "libymap_oclacp.so";
  folder.write(named.replace(named.find(kLibrary), kLibrary.size(), "cut.so"), "cut.json");
  const size_t size = whole.str().size();
  for (const size_t length : {size_t{1}, size_t{63}, size_t{64}, size_t{1000}, size_t{4096}, size_t{8192}, size / 4,
                              size / 2, size - 5000, size - 1}) {
    folder.write(whole.str().substr(0, length), "cut.so");
    const bool has_header = length >= 64;
    expect_refusal(translate("{}", {"--module", folder.path() + "/cut.so"}),
                   has_header ? "/cut.so: is not a whole shared library: it has " + std::to_string(length) + " bytes"
                              : "/cut.so: file too short");
  }
}

TEST(BadFiles, UnreadableSchemas_AreRefused) {
  expect_refusal(translate("{}", {"--yang-dir", "/no/such"}), "/no/such: no such folder of schemas");
  expect_refusal(translate("{}", {"--yang-dir", example("device")}),
                 example("device") + ": has no module openconfig-lacp\n");
}

}  // namespace
}  // namespace support
