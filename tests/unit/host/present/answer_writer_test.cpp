// Documents are what libyang would write, byte for byte.
#include "host/present/answer_writer.h"

#include "host/yang/tree_printer.h"
#include "tests/unit/host/trees/answer_test.h"
#include "tests/unit/host/trees/generated_data.h"

namespace oclacp::host {
namespace {

// Says where two texts part, as whole documents are too long to look at.
void expect_same(const std::string& written, const std::string& expected, const std::string& what) {
  if (written == expected) {
    return;
  }
  const auto [ours, theirs] = std::mismatch(written.begin(), written.end(), expected.begin(), expected.end());
  const auto from = std::max<std::ptrdiff_t>(0, ours - written.begin() - 200);
  ADD_FAILURE() << what << ": written\n"
                << written.substr(static_cast<size_t>(from), 400) << "\nlibyang writes\n"
                << expected.substr(static_cast<size_t>(from), 400);
}

void expect_same_documents(const TreePtr& tree, NodeShapes& shapes, const ly_ctx* context, const std::string& what) {
  const AnswerData answer = answer_of(tree, shapes);
  for (const LYD_FORMAT format : {LYD_JSON, LYD_XML}) {
    expect_same(print_answer(answer, format), print_tree(context, tree.get(), format),
                what + (format == LYD_JSON ? " in JSON" : " in XML"));
  }
}

TEST(AnswerWriter, GeneratedDataOfEveryType_AsLibyang) {
  NodeShapes shapes;
  size_t bytes = 0;
  for (unsigned seed = 1; seed <= 400; ++seed) {
    const TreePtr tree = DataGenerator(every_type(), seed).make();
    bytes += print_tree(every_type(), tree.get(), LYD_JSON).size();
    expect_same_documents(tree, shapes, every_type(), "seed " + std::to_string(seed));
  }
  EXPECT_GT(bytes, 500'000U) << "the generated data is too small to tell anything";
}

TEST(AnswerWriter, GeneratedDataOfTheServedModel_AsLibyang) {
  NodeShapes shapes;
  for (unsigned seed = 1; seed <= 100; ++seed) {
    expect_same_documents(DataGenerator(schemas().request(), seed).make(), shapes, schemas().request(),
                          "seed " + std::to_string(seed));
  }
}

TEST(AnswerWriter, Nothing_AsLibyang) {
  NodeShapes shapes;
  expect_same_documents(nullptr, shapes, every_type(), "nothing");
}

TEST(AnswerWriter, EmptyContainers_AsLibyang) {
  NodeShapes shapes;
  for (const char* text : {R"({"every-type:all": {}})", R"({"every-type:all": {"hollow": {"inner": {}, "other": {}}}})",
                           R"({"every-type:all": {"here": {}}})", R"({"every-type:all": {"here": {"hollow": {}}}})",
                           R"({"every-type:all": {"hollow": {"inner": {}}, "at-the-end": "x"}})",
                           R"({"every-type:all": {"hollow": {"inner": {}, "other": {"text": ""}}}})",
                           R"({"every-type:all": {"entry": [{"major": "", "minor": 1, "inner": {}, "after": {}}]}})"}) {
    expect_same_documents(parse_answer(text, every_type()), shapes, every_type(), text);
  }
}

TEST(AnswerWriter, TextsLongerThanTheBuffer_AsLibyang) {
  NodeShapes shapes;
  for (const size_t size : {65'535U, 65'536U, 65'537U, 200'000U}) {
    const TreePtr tree =
        parse_answer(R"({"every-type:all": {"text": ")" + std::string(size, '<') + R"(", "u8": 1}})", every_type());
    expect_same_documents(tree, shapes, every_type(), std::to_string(size) + " characters");
  }
}

TEST(AnswerWriter, FileThatTakesNothing_Refused) {
  NodeShapes shapes;
  const AnswerData answer = answer_of(parse_answer(R"({"every-type:all": {"u8": 1}})", every_type()), shapes);
  const std::unique_ptr<std::FILE, decltype(&std::fclose)> full(std::fopen("/dev/full", "w"), &std::fclose);
  EXPECT_EQ(refusal_of([&] { write_answer(full.get(), answer, LYD_JSON); }),
            "the result cannot be written: No space left on device");
}

}  // namespace
}  // namespace oclacp::host
