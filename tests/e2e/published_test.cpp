// The program over the published openconfig-lacp, which knows nodes that the mapping does not.
#include <cstdlib>
#include <regex>

#include "tests/e2e/program.h"

namespace support {
namespace {

class Published : public testing::Test {
 protected:
  void SetUp() override {
    const char* folder = std::getenv("OCLACP_PUBLISHED_YANG_DIR");
    if (folder == nullptr) {
      GTEST_SKIP() << "OCLACP_PUBLISHED_YANG_DIR names no directory of published modules";
    }
    folder_ = folder;
  }

  [[nodiscard]] std::vector<std::string> with_models(std::vector<std::string> arguments) const {
    arguments.insert(arguments.end(), {"--yang-dir", folder_});
    return arguments;
  }

 private:
  std::string folder_;
};

std::string request(const char* fallback) {
  return interface(std::string(R"("name": "Bundle-Ether1", "config": {"fallback": )") + fallback + "}");
}

TEST_F(Published, NewerNodeInAnEdit_IsRefusedAsUnsupported) {
  expect_refusal(translate(request("true"), with_models({})),
                 "/config/fallback: not supported by this mapping (error tag 'fallback', code 0xaaf2ee00)");
}

TEST_F(Published, NewerNodeInARead_IsSkipped) {
  expect_success(translate(request("[null]"), with_models({"--read", "config"})));
}

TEST_F(Published, Edit_IsThatOfTheShippedModel) {
  const std::vector<std::string> edit = {"translate", "--to", "native", example("requests/create-interface.json")};
  EXPECT_EQ(run(with_models(edit)).out, run(edit).out);
}

TEST_F(Published, Answer_AddsTheConfigOfMembersOnly) {
  const std::vector<std::string> get = {"get", "--all", "-d", example("device")};
  const Outcome answer = run(with_models(get));
  expect_success(answer);
  const std::regex member_config(R"x("config":\{"interface":"[^"]*"\},)x");
  EXPECT_EQ(std::regex_replace(squeezed(answer.out), member_config, ""), squeezed(run(get).out));
}

}  // namespace
}  // namespace support
