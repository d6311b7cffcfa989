// The when-handlers of the bundle information: all 59 do the same.
#include <iterator>
#include <string>

#include "oclacp/native_oper.h"
#include "unit/module_test.h"

namespace {

using support::Request;
using testing::ElementsAre;
using testing::IsEmpty;

struct WhenHandler {
  const char* name;
  cerrno (*function)(yfw_map_ctx ctx, const yfw_datatree* node);
};

// The names follow a rule: a level's letter and one of its guarded containers.
#define WHEN_NAME(LEVEL, CONTAINER) \
  ymap_qo_oclacp_talvobrinqdbundlemgroper_cont_lvl##LEVEL##_bundleinformation_##CONTAINER##_handle_when
#define WHEN_TEXT(NAME) #NAME
#define WHEN_ROW(NAME) \
  { WHEN_TEXT(NAME), NAME }
#define WHEN_EVENTS(LEVEL)                                                                          \
  WHEN_ROW(WHEN_NAME(LEVEL, items_memberevtinfo)), WHEN_ROW(WHEN_NAME(LEVEL, items_bundleevtinfo)), \
      WHEN_ROW(WHEN_NAME(LEVEL, items_rgevtinfo))
#define WHEN_ALL(LEVEL)                                                 \
  WHEN_EVENTS(LEVEL), WHEN_ROW(WHEN_NAME(LEVEL, additionalinfo_local)), \
      WHEN_ROW(WHEN_NAME(LEVEL, additionalinfo_foreign))

const WhenHandler kHandlers[] = {WHEN_ALL(a),    WHEN_ALL(b),    WHEN_ALL(c),    WHEN_ALL(d),    WHEN_EVENTS(e),
                                 WHEN_EVENTS(f), WHEN_EVENTS(g), WHEN_EVENTS(h), WHEN_EVENTS(i), WHEN_EVENTS(j),
                                 WHEN_EVENTS(k), WHEN_EVENTS(l), WHEN_EVENTS(m), WHEN_EVENTS(n), WHEN_EVENTS(o),
                                 WHEN_EVENTS(p), WHEN_EVENTS(q)};
static_assert(std::size(kHandlers) == 59);

class WhenHandlers : public support::ModuleTest {};
using WhenHandlersDeathTest = WhenHandlers;

TEST_F(WhenHandlers, AnyNode_IsAccepted) {
  Request container(support::container("bundle-information", {support::leaf("type", "member")}));
  Request leaf(support::leaf("other", "value").in("urn:other").with(YFW_OPERATION_DELETE));
  Request tagless(support::Node{.tag = std::nullopt, .value = std::nullopt, .ns = "", .children = {}});
  Request broken(support::container("node", {support::leaf("leaf")}));
  broken.root()->children = nullptr;
  for (const WhenHandler& handler : kHandlers) {
    SCOPED_TRACE(handler.name);
    for (Request* request : {&container, &leaf, &tagless, &broken}) {
      EXPECT_EQ(handler.function(platform.ctx(), request->root()), YFW_OK);
    }
    EXPECT_EQ(platform.traced(handler.name, "Start"), 4U);
    EXPECT_EQ(platform.traced(handler.name, "End"), 4U);
  }
  EXPECT_EQ(platform.trace().size(), 8 * std::size(kHandlers)) << "nothing but starts and ends";
  EXPECT_THAT(support::left_behind(platform, container), IsEmpty());
}

TEST_F(WhenHandlers, NullNode_IsTracedAndReturnsOne) {
  std::size_t looked_at = 0;
  for (const WhenHandler& handler : kHandlers) {
    SCOPED_TRACE(handler.name);
    EXPECT_EQ(handler.function(platform.ctx(), nullptr), 1U);
    const std::vector<std::string> all = platform.trace();
    const std::vector<std::string> trace(all.begin() + static_cast<std::ptrdiff_t>(looked_at), all.end());
    looked_at = all.size();
    const std::string start = std::string("TRC ") + handler.name + ": ";
    EXPECT_THAT(trace,
                ElementsAre(start + "Start", start + "No valid input to validate when statement ", start + "End"));
  }
  EXPECT_EQ(platform.count("yfw_oc_error_path"), 0U);
  EXPECT_EQ(platform.count("dt_log_filter_adv", "TRC \"No valid input to validate when statement \""),
            std::size(kHandlers))
      << "the debug log has it too";
}

TEST_F(WhenHandlers, MissingRequestState_IsAccepted) {
  platform.take_request_state_away();
  for (const WhenHandler& handler : kHandlers) EXPECT_EQ(handler.function(platform.ctx(), nullptr), 1U);
}

TEST_F(WhenHandlersDeathTest, NullContext_AbortsWithTheFunctionsPrototype) {
  Request request(support::container("node"));
  for (const WhenHandler& handler : kHandlers) {
    EXPECT_DEATH(handler.function(nullptr, request.root()),
                 std::string("cerrno ") + handler.name +
                     "\\(yfw_map_ctx, const yfw_datatree \\*\\): Assertion `\\(\\(void \\*\\)0\\) != ctx' failed");
  }
}

}  // namespace
