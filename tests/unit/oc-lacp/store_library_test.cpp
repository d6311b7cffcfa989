// Whether the data-store client's library is there is remembered for the life of the module, so this one test has a
// program of its own.
#include "oclacp/openconfig_lacp.h"
#include "unit/module_test.h"

namespace {

using support::container;
using support::Request;

class StoreLibrary : public support::ModuleTest {
 protected:
  cerrno run() { return oclacp_to_qd_bundle_lacp_config_delete(platform.ctx(), request.root(), platform.output()); }

  Request request{container("lacp").with(YFW_OPERATION_REMOVE)};
};

TEST_F(StoreLibrary, Presence_IsTestedUntilFoundAndThenRemembered) {
  constexpr char kMissing[] = "Unable to bind to Sysdb: path:/cfg/if/act/, error:status 0x8081c200";
  platform.store_library_present = false;
  run();
  run();
  EXPECT_EQ(platform.count("access", "\"/pkg/lib/libsysdb.so\""), 2U) << "a miss is not remembered";
  EXPECT_EQ(platform.count("_sysdb_bind"), 0U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 0U);
  EXPECT_EQ(platform.traced("oclacp_to_qd_bundle_lacp_config_delete", kMissing), 2U);

  platform.store_library_present = true;
  run();
  EXPECT_EQ(platform.count("access"), 3U);
  EXPECT_EQ(platform.count("_sysdb_bind"), 1U);
  EXPECT_EQ(platform.count("_sysdb_unbind"), 1U);

  platform.store_library_present = false;
  run();
  EXPECT_EQ(platform.count("access"), 3U) << "what was found is not asked for again";
  EXPECT_EQ(platform.count("_sysdb_bind"), 2U);
  EXPECT_EQ(platform.traced("oclacp_to_qd_bundle_lacp_config_delete", kMissing), 2U);
}

}  // namespace
