// A model for tests of the walker engine, that has nothing to do with LACP: a container and a list entry, each with two
// leaves and a node of operational state. What the engine calls is written down, and answers what a test wants.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "frame/request_walker.h"
#include "unit/module_test.h"

namespace model {

inline constexpr char kNs[] = "urn:model";
inline constexpr char kListPath[] = "/top/entry";

// One call that the engine made, and what held at that time.
struct Visit {
  std::string name;
  const yfw_datatree* node;
  unsigned int child_count;  // as passed to a container handler
  std::uint32_t operation;   // of the node
  unsigned int children;     // of the node
  std::uint32_t flags;       // of the node
  yfw_request_state marks;
};

struct Log {
  std::vector<Visit> visits;
  std::map<std::string, std::vector<cerrno>> answers;  // in order; 0 when they are used up
  std::map<std::string, void (*)(yfw_map_ctx ctx)> actions;
};
inline Log log;

inline cerrno visit(const char* name, yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count = 0) {
  log.visits.push_back({name, in, child_count, in->operation, in->child_count, in->flags, *ctx->request});
  if (const auto action = log.actions.find(name); action != log.actions.end()) action->second(ctx);
  std::vector<cerrno>& answers = log.answers[name];
  if (answers.empty()) return YFW_OK;
  const cerrno answer = answers.front();
  answers.erase(answers.begin());
  return answer;
}

inline cerrno first(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("first", ctx, in);
}
inline cerrno second(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("second", ctx, in);
}
inline cerrno third(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("third", ctx, in);
}
inline cerrno status(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("status", ctx, in);
}
inline cerrno augments(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("augments", ctx, in);
}
inline cerrno key(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("key", ctx, in);
}
inline cerrno further(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("further", ctx, in);
}
inline cerrno handler(yfw_map_ctx ctx, const yfw_datatree* in, unsigned int child_count, yfw_datatree* /*out*/) {
  return visit("handler", ctx, in, child_count);
}
inline cerrno list_handler(yfw_map_ctx ctx, const yfw_datatree* in, yfw_datatree* /*out*/) {
  return visit("handler", ctx, in);
}

inline constexpr ymap::RequestChild kChildren[] = {
    {.tag = "first", .walk = first},
    {.tag = "status", .walk = status, .availability = ymap::Availability::kStateRead},
    {.tag = "second", .walk = second},
};
inline constexpr ymap::RequestContainer kContainer{
    .node = {.ns = kNs, .children = kChildren, .parse_augments = augments}, .handler = handler};
inline constexpr ymap::RequestChild kExpansion[] = {kChildren[2], kChildren[0], kChildren[1]};
inline constexpr ymap::RequestContainer kContainerExpandedInOrder{
    .node = {.ns = kNs, .children = kChildren, .parse_augments = augments, .expansion = kExpansion},
    .handler = handler};
inline constexpr ymap::RequestContainer kStrictContainer{
    .node = {.ns = kNs, .children = kChildren, .parse_augments = augments},
    .handler = handler,
    .refuses_delete_with_subtree = true};
inline constexpr ymap::RequestList kList{.node = {.ns = kNs, .children = kChildren, .parse_augments = augments},
                                         .path = kListPath,
                                         .key = "id",
                                         .handler = list_handler,
                                         .key_leaf = key};

class WalkerTest : public support::ModuleTest {
 protected:
  void SetUp() override { log = {}; }

  // The names of what the engine called, in order.
  [[nodiscard]] static std::vector<std::string> visited() {
    std::vector<std::string> names;
    for (const Visit& one : log.visits) names.push_back(one.name);
    return names;
  }

  // Everything is as it was found.
  void expect_nothing_left(const support::Request& request) {
    EXPECT_THAT(support::left_behind(platform, request), testing::IsEmpty());
  }
};

}  // namespace model
