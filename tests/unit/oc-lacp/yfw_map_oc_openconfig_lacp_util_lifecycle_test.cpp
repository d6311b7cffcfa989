// Loading, registering and unloading. The module's variables are those of a freshly loaded one in each test, so it is
// loaded from its file here and not linked.
#include <cstring>
#include <string>

#include "imc/imc.h"
#include "support/module.h"
#include "support/registrations.h"
#include "sysdb/sysdb.h"
#include "tests/support/locations.h"
#include "unit/module_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Lifecycle : public support::ModuleTest {
 protected:
  cerrno init() { return module_.symbol<cerrno()>("yfw_oclacp_init")(); }
  void cleanup() { module_.symbol<void()>("yfw_oclacp_cleanup")(); }
  [[nodiscard]] imc_handle& connection() const { return *module_.symbol<imc_handle>("yfw_oclacp_im_conn"); }
  [[nodiscard]] std::uint32_t disables(const char* ns) const {
    return module_.symbol<std::uint32_t(const char*)>("yfw_map_lacp_disable_cabability_cb")(ns);
  }
  [[nodiscard]] void* address(const char* name) const {
    return reinterpret_cast<void*>(module_.symbol<cerrno()>(name));
  }

  [[nodiscard]] std::vector<std::string> calls() const {
    std::vector<std::string> names;
    for (const support::Call& call : platform.calls()) names.push_back(call.text());
    return names;
  }

  support::Module module_{location::kModule};
};

class Initialisation : public Lifecycle {};
class Cleanup : public Lifecycle {};
class Capability : public Lifecycle {};
class Registration : public Lifecycle {};

constexpr char kProbe[] = "access \"/pkg/lib/libsysdb.so\" -> 0";
constexpr char kFailedProbe[] = "access \"/pkg/lib/libsysdb.so\" -> -1";

TEST_F(Initialisation, FirstCall_BindsTheSharedConnectionThenItsOwn) {
  EXPECT_EQ(connection(), nullptr);
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_THAT(calls(), ElementsAre(kProbe, "_sysdb_bind \"/oper/intf_mgbl/gl/\" flags=0", "imc_db_bind"));
  EXPECT_NE(yfw_intf_mgbl_connid, nullptr);
  EXPECT_NE(connection(), nullptr);
  EXPECT_NE(connection(), yfw_ocifmgr_im_conn) << "the helpers' connection is another one";
}

TEST_F(Initialisation, SecondCall_BindsNothing) {
  EXPECT_EQ(init(), YFW_OK);
  const std::size_t before = platform.calls().size();
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_EQ(platform.calls().size(), before);
}

TEST_F(Initialisation, BoundSharedConnection_IsKeptWithoutProbing) {
  char bound = 0;
  yfw_intf_mgbl_connid = reinterpret_cast<sysdb_handle>(&bound);
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_THAT(calls(), ElementsAre("imc_db_bind"));
  EXPECT_EQ(yfw_intf_mgbl_connid, reinterpret_cast<sysdb_handle>(&bound));
}

TEST_F(Initialisation, BoundOwnConnection_IsKept) {
  char bound = 0;
  connection() = reinterpret_cast<imc_handle>(&bound);
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_EQ(platform.count("imc_db_bind"), 0U);
  EXPECT_EQ(connection(), reinterpret_cast<imc_handle>(&bound));
}

TEST_F(Initialisation, MissingLibrary_IsProbedAgain) {
  platform.store_library_present = false;
  EXPECT_EQ(init(), SYSDB_LIBRARY_MISSING);
  EXPECT_EQ(init(), SYSDB_LIBRARY_MISSING);
  EXPECT_THAT(calls(), ElementsAre(kFailedProbe, kFailedProbe)) << "nothing is bound";
  platform.store_library_present = true;
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_EQ(platform.count("access"), 3U);
}

TEST_F(Initialisation, FoundLibrary_IsRemembered) {
  platform.script("_sysdb_bind", 1, 0x77);
  EXPECT_EQ(init(), 0x77U);
  platform.store_library_present = false;
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_EQ(platform.count("access"), 1U);
  EXPECT_EQ(platform.count("_sysdb_bind"), 2U);
}

TEST_F(Initialisation, FailedBind_ReturnsItsCode) {
  platform.script("_sysdb_bind", 1, 0x77);
  platform.script("imc_db_bind", 1, 0x78);
  EXPECT_EQ(init(), 0x77U);
  EXPECT_EQ(platform.count("imc_db_bind"), 0U) << "the second bind is not tried";
  EXPECT_EQ(init(), 0x78U);
  EXPECT_EQ(connection(), nullptr);
  EXPECT_EQ(init(), YFW_OK);
  EXPECT_EQ(platform.count("_sysdb_bind"), 2U) << "what is bound is not bound again";
}

TEST_F(Cleanup, BothBound_UnbindsBothAndKeepsTheHandles) {
  EXPECT_EQ(init(), YFW_OK);
  const auto* const shared = yfw_intf_mgbl_connid;
  const auto* const own = connection();
  cleanup();
  EXPECT_EQ(platform.count("_sysdb_unbind"), 1U);
  EXPECT_EQ(platform.count("imc_db_unbind"), 1U);
  EXPECT_EQ(platform.count("access"), 1U) << "the library is known to be there";
  EXPECT_EQ(yfw_intf_mgbl_connid, shared);
  EXPECT_EQ(connection(), own);
  EXPECT_THAT(platform.seen().connections, IsEmpty());
}

TEST_F(Cleanup, NothingBound_UnbindsNothing) {
  cleanup();
  EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(Cleanup, LibraryNotKnown_IsProbed) {
  EXPECT_EQ(_sysdb_bind(&yfw_intf_mgbl_connid, SYSDB_INTERFACE_GLOBALS, SYSDB_GLOBALS_BIND_FLAGS), YFW_OK);
  platform.store_library_present = false;
  cleanup();
  EXPECT_EQ(platform.count("access"), 1U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 0U) << "without the library the data store is not touched";
  platform.store_library_present = true;
  cleanup();
  EXPECT_EQ(platform.count("access"), 2U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 1U);
  EXPECT_EQ(platform.count("imc_db_unbind"), 0U);
}

TEST_F(Cleanup, OwnConnectionOnly_IsUnbound) {
  char bound = 0;
  yfw_intf_mgbl_connid = reinterpret_cast<sysdb_handle>(&bound);
  EXPECT_EQ(init(), YFW_OK);
  yfw_intf_mgbl_connid = nullptr;
  cleanup();
  EXPECT_EQ(platform.count("imc_db_unbind"), 1U);
  EXPECT_EQ(platform.count("access"), 0U);
}

TEST_F(Cleanup, FailedUnbind_StillUnbindsTheOther) {
  EXPECT_EQ(init(), YFW_OK);
  platform.script("_sysdb_unbind", 1, 0x77);
  cleanup();
  EXPECT_EQ(platform.count("imc_db_unbind"), 1U);
}

TEST_F(Capability, OtherPlatform_DisablesEveryNamespace) {
  for (const std::uint32_t type : {0U, 1U, 6U, 9U, 17U, 19U, 0xFFFFFFFFU}) {
    platform.router_type = type;
    EXPECT_EQ(disables(support::kOpenconfigLacp), 1U) << "type " << type;
    EXPECT_EQ(disables("urn:other"), 1U) << "type " << type;
  }
  EXPECT_EQ(platform.count("yfw_map_do_these_match"), 0U);
}

TEST_F(Capability, SupportedPlatform_OffersOneNamespaceOnly) {
  for (const std::uint32_t type : {7U, 8U, 18U}) {
    platform.router_type = type;
    EXPECT_EQ(disables(support::kOpenconfigLacp), 0U) << "type " << type;
    for (const char* ns : {"urn:other", "", support::kIfmgrCfg, "http://openconfig.net/yang/lacp/"}) {
      EXPECT_EQ(disables(ns), 1U) << "type " << type << ", " << ns;
    }
    EXPECT_EQ(disables(nullptr), 1U) << "type " << type;
  }
}

TEST_F(Capability, PlatformType_IsQueriedForEachComparison) {
  const std::pair<std::uint32_t, unsigned> asked[] = {{7, 1}, {18, 2}, {8, 3}, {1, 3}};
  unsigned total = 0;
  for (const auto& [type, times] : asked) {
    platform.router_type = type;
    static_cast<void>(disables(support::kOpenconfigLacp));
    EXPECT_EQ(platform.count("platform_get_router_type"), total += times) << "type " << type;
  }
}

struct Expected {
  const char* function;
  const char* native_ns;
  const char* native_root;
  const char* native_walker;
  std::uint32_t second_flag;
  const char* callback;  // null: left alone
};

const Expected kExpected[] = {
    {"yfw_map_reg_oclacp_lacpbundles_conf", support::kIfmgrCfg, "interface-configurations",
     "ymap_qo_oclacp_talvobrinqdifmgrcfg_lvla_interfaceconfigurations", 1, "yfw_map_lacp_disable_cabability_cb"},
    {"yfw_map_reg_oclacp_lacpbundles_oper", support::kBundlemgrOper, "lacp-bundles",
     "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpbundles", 0, nullptr},
    {"yfw_map_reg_oclacp_lacpbundles_global_conf", support::kBundlemgrCfg, "lacp",
     "ymap_qo_oclacp_talvobrinqdbundlemgrcfg_lvla_lacp", 0, nullptr},
    {"yfw_map_reg_oclacp_lacpglobaldata_oper", support::kBundlemgrOper, "lacp-data",
     "ymap_qo_oclacp_talvobrinqdbundlemgroper_lvla_lacpdata", 0, nullptr},
};

TEST_F(Registration, Record_IsFilledExceptReservedFields) {
  for (const Expected& expected : kExpected) {
    SCOPED_TRACE(expected.function);
    yfw_map_registration filled;
    std::memset(&filled, 0xa5, sizeof filled);
    const yfw_map_registration untouched = filled;
    module_.symbol<void(yfw_map_registration*)>(expected.function)(&filled);
    EXPECT_STREQ(filled.description, "OC LACP tree");
    EXPECT_STREQ(filled.native_ns, expected.native_ns);
    EXPECT_STREQ(filled.openconfig_ns, support::kOpenconfigLacp);
    EXPECT_STREQ(filled.native_root, expected.native_root);
    EXPECT_STREQ(filled.openconfig_root, "lacp");
    EXPECT_EQ(reinterpret_cast<void*>(filled.openconfig_walker), address(support::kEntryWalker));
    EXPECT_EQ(reinterpret_cast<void*>(filled.native_walker), address(expected.native_walker));
    EXPECT_EQ(filled.first_flag, 0U);
    EXPECT_EQ(filled.second_flag, expected.second_flag);
    EXPECT_EQ(std::memcmp(static_cast<const void*>(filled.reserved_walkers), untouched.reserved_walkers,
                          sizeof filled.reserved_walkers),
              0);
    EXPECT_EQ(filled.reserved, untouched.reserved);
    if (expected.callback != nullptr) {
      EXPECT_EQ(reinterpret_cast<void*>(filled.disables_mapping), address(expected.callback));
    } else {
      EXPECT_EQ(std::memcmp(&filled.disables_mapping, &untouched.disables_mapping, sizeof filled.disables_mapping), 0);
    }
  }
}

TEST_F(Registration, Texts_AreCopiedInOrderUnderTheFunctionsName) {
  for (const Expected& expected : kExpected) {
    SCOPED_TRACE(expected.function);
    const std::size_t before = platform.calls().size();
    yfw_map_registration filled{};
    module_.symbol<void(yfw_map_registration*)>(expected.function)(&filled);
    const auto copy = [&](const char* text) {
      return std::string("yfw_strncpy_s \"") + expected.function + "\" size=81 \"" + text + "\" count=81";
    };
    const std::vector<std::string> all = calls();
    EXPECT_EQ(std::vector<std::string>(all.begin() + static_cast<std::ptrdiff_t>(before), all.end()),
              (std::vector<std::string>{copy(expected.native_ns), copy(support::kOpenconfigLacp), copy("OC LACP tree"),
                                        copy(expected.native_root), copy("lacp")}));
  }
}

TEST_F(Registration, FailedCopies_AreIgnored) {
  platform.script("yfw_strncpy_s", 0, 0x77);
  for (const Expected& expected : kExpected) {
    yfw_map_registration filled{};
    module_.symbol<void(yfw_map_registration*)>(expected.function)(&filled);
    EXPECT_EQ(reinterpret_cast<void*>(filled.native_walker), address(expected.native_walker)) << expected.function;
  }
  EXPECT_EQ(platform.count("yfw_strncpy_s"), 20U);
}

TEST_F(Registration, Uninitialised_BindsAndRecordsNothing) {
  yfw_map_registration filled{};
  for (const Expected& expected : kExpected) module_.symbol<void(yfw_map_registration*)>(expected.function)(&filled);
  EXPECT_THAT(platform.seen().records, IsEmpty());
  EXPECT_EQ(platform.count("_sysdb_bind") + platform.count("imc_db_bind") + platform.count("access"), 0U);
}

}  // namespace
