#include "tests/e2e/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

extern char** environ;

namespace support {
namespace {

struct CloseFile {
  void operator()(FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using File = std::unique_ptr<FILE, CloseFile>;

// Files instead of pipes: no output is too long, and nobody waits for the other.
File temporary(const std::string& content = "") {
  File file(std::tmpfile());
  EXPECT_NE(file, nullptr);
  EXPECT_EQ(std::fwrite(content.data(), 1, content.size(), file.get()), content.size());
  std::rewind(file.get());
  return file;
}

std::string content_of(FILE* file) {
  std::rewind(file);
  std::string content;
  std::array<char, 1 << 16> buffer{};
  for (size_t count = 0; (count = std::fread(buffer.data(), 1, buffer.size(), file)) != 0;) {
    content.append(buffer.data(), count);
  }
  return content;
}

}  // namespace

Outcome run(const std::vector<std::string>& arguments, const std::string& input) {
  std::vector<std::string> words = {OCLACP_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                 [](std::string& word) { return word.data(); });
  pointers.push_back(nullptr);

  const File in = temporary(input);
  const File out = temporary();
  const File err = temporary();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in.get()), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(out.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(err.get()), STDERR_FILENO);
  pid_t process = 0;
  EXPECT_EQ(posix_spawn(&process, OCLACP_PROGRAM, &actions, nullptr, pointers.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  EXPECT_EQ(waitpid(process, &status, 0), process);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), content_of(out.get()),
          content_of(err.get())};
}

Outcome translate(const std::string& request, const std::vector<std::string>& further_arguments) {
  std::vector<std::string> arguments = {"translate", "--to", "native", "-"};
  arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
  return run(arguments, request);
}

std::string example(const std::string& name) {
  return OCLACP_EXAMPLES "/" + name;
}

std::vector<std::string> with_device() {
  return {"-d", example("device")};
}

std::string squeezed(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(), [](char character) { return std::isspace(character) != 0; }),
             text.end());
  return text;
}

void expect_refusal(const Outcome& run, const std::string& part) {
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, testing::StartsWith("oclacp: "));
  EXPECT_THAT(run.err, testing::HasSubstr(part));
  EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
}

void expect_success(const Outcome& run) {
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
}

std::string interface(const std::string& content) {
  return R"({"openconfig-lacp:lacp": {"interfaces": {"interface": [{)" + content + "}]}}}";
}

}  // namespace support
