#include "host/yang/delete_request.h"

#include "host/contract.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

RequestTree request_for(const std::string& path) {
  return parse(make_delete_request(schemas().request(), path));
}

// The paths of the nodes that carry a delete.
std::vector<std::string> deleted_by(const std::string& path) {
  RequestTree tree = request_for(path);
  std::vector<std::string> deleted;
  for (const yfw_datatree& node : tree.nodes()) {
    if (node.operation == YFW_OPERATION_DELETE) {
      deleted.push_back(node_path(&node));
    }
  }
  return deleted;
}

std::string refusal(const std::string& path) {
  return refusal_of([&] { make_delete_request(schemas().request(), path); });
}

TEST(DeleteRequestTest, DeletesTheLastNodeOfThePath) {
  for (const char* path :
       {"/lacp", "/lacp/config", "/lacp/config/system-priority", "/lacp/interfaces",
        "/lacp/interfaces/interface[name='Bundle-Ether1']", "/lacp/interfaces/interface[name='Bundle-Ether1']/config",
        "/lacp/interfaces/interface[name='Bundle-Ether1']/config/interval"}) {
    const std::string full = "/openconfig-lacp:" + std::string(path).substr(1);
    EXPECT_THAT(deleted_by(path), testing::ElementsAre(full));
    EXPECT_THAT(deleted_by(full), testing::ElementsAre(full));
  }
}

TEST(DeleteRequestTest, ADeletedLeafHasNoValue) {
  RequestTree tree = request_for("/lacp/config/system-priority");
  EXPECT_EQ(find(tree, {"config", "system-priority"})->flags & YFW_FLAG_VALUE, 0U);
}

TEST(DeleteRequestTest, AKeyMayHoldSlashesColonsAndQuotes) {
  EXPECT_THAT(deleted_by("/lacp/interfaces/interface[name='Gig0/0/0/0:1']/config"),
              testing::ElementsAre("/openconfig-lacp:lacp/interfaces/interface[name='Gig0/0/0/0:1']/config"));
  EXPECT_THAT(deleted_by(R"(/lacp/interfaces/interface[name="it's"])"),
              testing::ElementsAre(R"(/openconfig-lacp:lacp/interfaces/interface[name="it's"])"));
}

TEST(DeleteRequestTest, WhatIsNoPathOfANodeIsRefused) {
  EXPECT_EQ(refusal(""), "'': a path begins with a slash and names a node");
  EXPECT_EQ(refusal("/"), "'/': a path begins with a slash and names a node");
  EXPECT_EQ(refusal("lacp/config"), "'lacp/config': a path begins with a slash and names a node");
  EXPECT_EQ(refusal("/lacp/foo"), "/lacp/foo: Not found node \"foo\" in path");
  EXPECT_THAT(refusal("/other:lacp"),
              testing::StartsWith("/other:lacp: No module connected with the prefix \"other\""));
  for (const char* path : {"//lacp", "/lacp//interval", "/lacp/", "/lacp/*", "/lacp/interfaces/interface[name='a'",
                           "/lacp/interfaces/interface[1]/config", "/lacp/interfaces/interface/config",
                           "/lacp/interfaces/interface[other='a']", "/lacp or /lacp"}) {
    EXPECT_THAT(refusal(path), testing::StartsWith(std::string(path) + ": ")) << path;
  }
}

}  // namespace
}  // namespace oclacp::host
