// From what a module adds for native data to the OpenConfig answer.
#include "host/trees/answer_builder.h"

#include "host/services/mapping_context.h"
#include "tests/unit/host/trees/answer_test.h"

namespace oclacp::host {
namespace {

constexpr const char* kOpenconfig = "http://openconfig.net/yang/lacp";
constexpr const char* kInterface = "/lacp/interfaces/interface";
constexpr const char* kNativeList = "/interface-configurations/interface-configuration";

class AnswerBuilderTest : public testing::Test {
 protected:
  // The next native entry, for which the module finds or makes an interface.
  void enter(const char* name) {
    request_.enter_list(kNativeList);
    yfw_datatree* entry = nullptr;
    EXPECT_EQ(
        yfw_map_search_or_add_list(&request_, request_.output_root(), &entry, kInterface, name, "name", kOpenconfig),
        YFW_OK);
    EXPECT_NE(entry, nullptr);
  }

  void enter_skipped() { request_.enter_list(kNativeList); }

  void add(const std::string& below_interface, const char* value) {
    EXPECT_EQ(
        yfw_map_datatree_add_path_flagged(&request_, request_.output_root(), (kInterface + below_interface).c_str(),
                                          kOpenconfig, value, nullptr, 0, 0, 0),
        YFW_OK);
  }

  // What another walk says of the interface "a" begins so.
  static void name_a(OutputLog& log) {
    EXPECT_EQ(log.add(kInterface, kOpenconfig, nullptr, nullptr, true), YFW_OK);
    EXPECT_EQ(log.add("/lacp/interfaces/interface/name", kOpenconfig, "a", nullptr, false), YFW_OK);
  }

  std::string answer() {
    tree_.add(log_);
    return squeezed_json(tree_.take());
  }

  static std::string interfaces(const std::string& entries) {
    return R"({"openconfig-lacp:lacp":{"interfaces":{"interface":[)" + entries + "]}}}";
  }

  TreeContext context_{schemas().request()};
  OutputLog log_{context_.index, false};
  MappingContext request_{YFW_REQUEST_READ_CONFIG, log_};
  AnswerBuilder tree_{context_};
};

TEST_F(AnswerBuilderTest, NothingAdded_IsAnEmptyDocument) {
  EXPECT_EQ(answer(), "{}");
}

TEST_F(AnswerBuilderTest, Leaves_AreAddedToTheCurrentEntry) {
  enter("a");
  add("/config/interval", "FAST");
  enter("b");
  add("/config/interval", "SLOW");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a","interval":"FAST"}},)"
                                 R"({"name":"b","config":{"name":"b","interval":"SLOW"}})"));
}

TEST_F(AnswerBuilderTest, Key_AddsTheLeafThatItRefersTo) {
  enter("a");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a"}})"));
}

TEST_F(AnswerBuilderTest, LeafAfterASkippedEntry_IsDropped) {
  enter("a");
  enter_skipped();
  add("/config/interval", "FAST");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a"}})"));
  EXPECT_EQ(tree_.dropped_leaves(), 1U);
}

TEST_F(AnswerBuilderTest, KeyLeafAddedAgain_HasNoEffect) {
  enter("a");
  add("/name", "a");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a"}})"));
  EXPECT_EQ(tree_.dropped_leaves(), 0U);
}

TEST_F(AnswerBuilderTest, EntryEnteredAgain_IsReused) {
  enter("a");
  add("/config/interval", "FAST");
  enter("b");
  enter("a");
  add("/config/interval", "SLOW");
  add("/config/lacp-mode", "ACTIVE");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a","interval":"SLOW","lacp-mode":"ACTIVE"}},)"
                                 R"({"name":"b","config":{"name":"b"}})"));
}

TEST_F(AnswerBuilderTest, InnerList_BelongsToTheOuterEntry) {
  enter("a");
  request_.enter_list("/interface-configurations/interface-configuration/x");
  EXPECT_EQ(
      yfw_map_datatree_add_path_flagged(&request_, request_.output_root(), "/lacp/interfaces/interface/members/member",
                                        kOpenconfig, nullptr, nullptr, 0, 1, 0),
      YFW_OK);
  add("/members/member/interface", "m");
  add("/members/member/state/activity", "ACTIVE");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a"},"members":{"member":[)"
                                 R"({"interface":"m","state":{"activity":"ACTIVE"}}]}})"));
}

TEST_F(AnswerBuilderTest, TrimToAList_ClosesItsInnerLists) {
  enter("a");
  add("/members/member/interface", "m");
  yfw_map_copy_trim_path_list_ctx(&request_, kInterface);
  add("/members/member/state/activity", "ACTIVE");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a"},"members":{"member":[{"interface":"m"}]}})"));
  EXPECT_EQ(tree_.dropped_leaves(), 1U);
}

TEST_F(AnswerBuilderTest, SeveralWalks_AreMerged) {
  enter("a");
  add("/config/interval", "FAST");
  tree_.add(log_);
  OutputLog second(context_.index, false);
  name_a(second);
  EXPECT_EQ(second.add("/lacp/interfaces/interface/state/interval", kOpenconfig, "SLOW", nullptr, false), YFW_OK);
  EXPECT_EQ(second.add("/lacp/config/system-priority", kOpenconfig, "5", nullptr, false), YFW_OK);
  tree_.add(second);
  const AnswerData made = tree_.take();
  EXPECT_EQ(squeezed_json(made),
            R"({"openconfig-lacp:lacp":{"config":{"system-priority":5},"interfaces":{"interface":[{"name":"a",)"
            R"("config":{"name":"a","interval":"FAST"},"state":{"interval":"SLOW"}}]}}})");
}

TEST_F(AnswerBuilderTest, InvalidValue_IsRefusedAndItsEntryDropped) {
  enter("a");
  add("/config/system-id-mac", "nonsense");
  EXPECT_THAT(refusal_of([this] { tree_.add(log_); }),
              testing::StartsWith("/openconfig-lacp:lacp/interfaces/interface[name='a']/config/system-id-mac: "));
  const AnswerData made = tree_.take();
  EXPECT_EQ(squeezed_json(made), "{}");
}

TEST_F(AnswerBuilderTest, UnknownPath_FailsTheWalk) {
  EXPECT_NE(yfw_map_datatree_add_path_flagged(&request_, request_.output_root(), "/lacp/colour", kOpenconfig, "red",
                                              nullptr, 0, 0, 0),
            YFW_OK);
  EXPECT_TRUE(request_.refused());
}

TEST_F(AnswerBuilderTest, EmptyValue_IsLeftOutAndListed) {
  enter("b");
  add("/state/lacp-mode", "");
  add("/state/system-priority", "5");
  EXPECT_EQ(answer(), interfaces(R"({"name":"b","config":{"name":"b"},"state":{"system-priority":5}})"));
  EXPECT_EQ(tree_.valueless(),
            std::vector<std::string>{"/openconfig-lacp:lacp/interfaces/interface[name='b']/state/lacp-mode"});
}

TEST_F(AnswerBuilderTest, FailedWalk_LeavesTheEarlierAnswerUnchanged) {
  enter("a");
  add("/config/interval", "FAST");
  tree_.add(log_);
  OutputLog second(context_.index, false);
  name_a(second);
  EXPECT_EQ(second.add("/lacp/interfaces/interface/state/system-id-mac", kOpenconfig, "nonsense", nullptr, false),
            YFW_OK);
  EXPECT_EQ(second.add("/lacp/interfaces/interface/state/interval", kOpenconfig, "SLOW", nullptr, false), YFW_OK);
  EXPECT_NE(refusal_of([&] { tree_.add(second); }), "accepted");
  const AnswerData made = tree_.take();
  EXPECT_EQ(squeezed_json(made), interfaces(R"({"name":"a","config":{"name":"a","interval":"FAST"}})"));
}

TEST_F(AnswerBuilderTest, NonCanonicalNumber_BecomesCanonical) {
  enter("a");
  add("/config/system-priority", "007");
  EXPECT_EQ(answer(), interfaces(R"({"name":"a","config":{"name":"a","system-priority":7}})"));
}

TEST_F(AnswerBuilderTest, NumberOutOfRange_IsRefused) {
  enter("a");
  add("/config/system-priority", "65536");
  EXPECT_THAT(refusal_of([this] { tree_.add(log_); }), testing::HasSubstr("/config/system-priority: "));
}

}  // namespace
}  // namespace oclacp::host
