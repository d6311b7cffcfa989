#include "host/yang/key_reference.h"

#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

const lysc_node* node(const ly_ctx* context, const char* path) {
  const lysc_node* found = lys_find_path(context, nullptr, path, 0);
  EXPECT_NE(found, nullptr) << path;
  return found;
}

TEST(KeyReference, Leafref_LeadsToTheLeafOfTheSameEntry) {
  const ly_ctx* context = schemas().request();
  EXPECT_EQ(leaf_of_key(node(context, "/openconfig-lacp:lacp/interfaces/interface/name")),
            node(context, "/openconfig-lacp:lacp/interfaces/interface/config/name"));
  EXPECT_EQ(leaf_of_key(node(context, "/openconfig-lacp:lacp/interfaces/interface/members/member/interface")),
            node(context, "/openconfig-lacp:lacp/interfaces/interface/members/member/state/interface"));
}

TEST(KeyReference, KeyOfAnotherType_HasNoLeaf) {
  EXPECT_EQ(
      leaf_of_key(node(schemas().native(),
                       "/Talvo-Brin-QD-ifmgr-cfg:interface-configurations/interface-configuration/interface-name")),
      nullptr);
}

}  // namespace
}  // namespace oclacp::host
