// oclacp records.
#include <algorithm>
#include <cstdio>

#include "tests/e2e/program.h"
#include "tests/support/locations.h"

namespace support {
namespace {

using testing::HasSubstr;

// What the C program wrote; empty when it failed.
std::string system_id_bytes() {
  const std::string command = std::string(location::kSystemIdProgram) + " " + location::kModule;
  FILE* pipe = popen(command.c_str(), "r");  // NOLINT(cert-env33-c): the command is the test's own
  std::string bytes(64, '\0');
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), pipe));
  return pclose(pipe) == 0 ? bytes : "";
}

TEST(Records, List_NamesAllBags) {
  const Outcome result = run({"records", "list"});
  expect_success(result);
  EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 21);
  EXPECT_THAT(result.out, HasSubstr("\nlacp_system_id                   $126      20  $43 (6), $91 (8)\n"));
}

TEST(Records, Show_PrintsFieldsWithOffsetSizeAndType) {
  const Outcome result = run({"records", "show", "lacp_system_id"});
  expect_success(result);
  EXPECT_EQ(result.out,
            "lacp_system_id, of libbundlemgr_distrib_bag_desc.dll\n"
            "\n"
            "record $126, 20 bytes\n"
            "OFFSET  SIZE  FIELD             TYPE\n"
            "     0     8  SystemID          record $91\n"
            "     0     2    SystemPrio      unsigned, 16 bits\n"
            "     2     6    SystemMacAddr   record $43\n"
            "     2     6      macaddr       6 bytes\n"
            "     8     4  ICCPGroupID       unsigned, 32 bits\n"
            "    12     2  SystemPriority    unsigned, 16 bits\n"
            "    14     6  SystemMACAddress  MAC address\n");
}

TEST(Records, Decode_PrintsTheFieldsOfAStruct) {
  const Outcome result = run({"records", "decode", "lacp_system_id", "-"}, system_id_bytes());
  expect_success(result);
  EXPECT_EQ(result.out,
            "OFFSET  SIZE  FIELD             VALUE\n"
            "     0     8  SystemID\n"
            "     0     2    SystemPrio      32768\n"
            "     2     6    SystemMacAddr\n"
            "     2     6      macaddr       001b21aabbcc\n"
            "     8     4  ICCPGroupID       7\n"
            "    12     2  SystemPriority    100\n"
            "    14     6  SystemMACAddress  02:00:00:00:00:09\n");
}

TEST(Records, DecodeInJson_PrintsJson) {
  const Outcome result = run({"records", "decode", "lacp_system_id", "-", "--format", "json"}, system_id_bytes());
  expect_success(result);
  EXPECT_EQ(result.out,
            "{\n"
            "  \"lacp_system_id\": {\n"
            "    \"SystemID\": {\n"
            "      \"SystemPrio\": 32768,\n"
            "      \"SystemMacAddr\": {\n"
            "        \"macaddr\": \"001b21aabbcc\"\n"
            "      }\n"
            "    },\n"
            "    \"ICCPGroupID\": 7,\n"
            "    \"SystemPriority\": 100,\n"
            "    \"SystemMACAddress\": \"02:00:00:00:00:09\"\n"
            "  }\n"
            "}\n");
}

TEST(Records, DecodeWithADevice_NamesItsInterfaces) {
  std::string bytes(24, '\0');
  bytes[0] = 3;
  const Outcome result = run({"records", "decode", "bm_rpl_state", "-", "-d", example("device")}, bytes);
  expect_success(result);
  EXPECT_THAT(result.out, HasSubstr("BundleInterfaceName  GigabitEthernet0/0/0/0\n"));
  EXPECT_THAT(run({"records", "decode", "bm_rpl_state", "-"}, bytes).out,
              HasSubstr("BundleInterfaceName  0x00000003\n"));
}

TEST(Records, WrongInput_IsRefused) {
  expect_refusal(run({"records", "show", "nothing"}), "nothing: no such bag");
  expect_refusal(run({"records", "decode", "nothing", "-"}), "nothing: no such bag");
  expect_refusal(run({"records", "decode", "lacp_system_id", "-"}, ""), "lacp_system_id: a record has 20 bytes, not 0");
  expect_refusal(run({"records", "decode", "lacp_system_id", "-"}, std::string(19, 'x')), "20 bytes, not 19");
  std::string far_too_long;
  far_too_long.resize(10000000, 'x');
  expect_refusal(run({"records", "decode", "lacp_system_id", "-"}, far_too_long), "20 bytes, not more");
  expect_refusal(run({"records", "decode", "lacp_system_id", "/nowhere"}), "/nowhere: No such file or directory");
  expect_refusal(run({"records", "decode", "lacp_system_id", "-", "-d", "/nowhere"}, std::string(20, 'x')), "/nowhere");
  expect_refusal(run({"records", "list", "--module", "/nowhere.so"}), "the mapping module cannot be loaded");
  expect_refusal(run({"records", "list", "--module", location::kHostLibrary}), "has no manifest beside it");
}

TEST(Records, WrongArguments_AreUsageErrors) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"records"},
                                             {"records", "forget"},
                                             {"records", "show"},
                                             {"records", "decode", "lacp_system_id"},
                                             {"records", "decode", "lacp_system_id", "-", "--format", "xml"}}) {
    const Outcome result = run(arguments);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(result.out, "") << testing::PrintToString(arguments);
  }
}

}  // namespace
}  // namespace support
