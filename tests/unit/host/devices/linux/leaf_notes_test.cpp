#include "host/devices/linux/leaf_notes.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "host/devices/linux/native_bonds.h"
#include "tests/unit/host/devices/linux/replayed_links.h"
#include "tests/unit/host/host_test.h"

namespace oclacp::host {
namespace {

// The paths of the leaves that a recorded kernel tells, without modules and keys.
std::set<std::string> told_paths(const std::string& folder) {
  std::set<std::string> paths;
  const TreePtr data = make_operational(schemas().native(), replayed_links(folder));
  const lyd_node* node = nullptr;
  LYD_TREE_DFS_BEGIN(data.get(), node) {
    std::string path;
    for (const lysc_node* at = node->schema; at != nullptr; at = at->parent) {
      path.insert(0, std::string("/") + at->name);
    }
    if ((node->schema->nodetype & LYD_NODE_TERM) != 0) {
      paths.insert(path);
    }
    LYD_TREE_DFS_END(data.get(), node);
  }
  return paths;
}

const std::string kMember = "/lacp-bundles/bundles/bundle/members/member/";

TEST(LeafNotes, LeavesThatAreNeverThere_AreSaidToBe) {
  const std::string leaf = kMember + "counters/excess-lacpd-us-received";
  EXPECT_STREQ(linux_note(leaf), "always absent, since the kernel does not tell it");
  EXPECT_EQ(told_paths("pair").count(leaf), 0U);
}

TEST(LeafNotes, LeavesThatAreSeen_AreSaidToBe) {
  for (const char* leaf : {"counters/last-change", "counters/lacp-timeout-transitions"}) {
    EXPECT_STREQ(linux_note(kMember + leaf),
                 "what was seen since somebody watches the bonds, and absent when nobody does");
    EXPECT_EQ(told_paths("pair").count(kMember + leaf), 0U) << leaf;
  }
}

TEST(LeafNotes, LeavesThatAreWithheld_AreSaidToBe) {
  const std::set<std::string> told = told_paths("unprivileged");
  for (const std::string& path : told_paths("pair")) {
    const char* note = linux_note(path);
    const bool is_said = note != nullptr && std::string(note).starts_with("absent without CAP_NET_ADMIN");
    EXPECT_EQ(is_said, told.count(path) == 0) << path;
  }
}

TEST(LeafNotes, OtherLeaves_HaveNone) {
  EXPECT_EQ(linux_note(kMember + "counters/lacpd-us-received"), nullptr);
  EXPECT_STREQ(linux_note("/lacp/system-priority"),
               "always absent, and refused in edits, since the kernel has no settings for all bonds");
}

}  // namespace
}  // namespace oclacp::host
