#include "tests/e2e/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <thread>

extern char** environ;

namespace support {

Process::File Process::temporary(const std::string& content) {
  File file(std::tmpfile());
  EXPECT_NE(file, nullptr);
  EXPECT_EQ(std::fwrite(content.data(), 1, content.size(), file.get()), content.size());
  std::rewind(file.get());
  return file;
}

// Reads beside the position that the process writes at.
std::string Process::content_of(FILE* file) {
  std::string content;
  std::array<char, 1 << 16> buffer{};
  ssize_t count = 0;
  while ((count = pread(fileno(file), buffer.data(), buffer.size(), static_cast<off_t>(content.size()))) > 0) {
    content.append(buffer.data(), static_cast<size_t>(count));
  }
  return content;
}

Process::Process(const std::vector<std::string>& arguments, const std::string& input)
    : in_(temporary(input)), out_(temporary()), err_(temporary()) {
  std::vector<std::string> words = {OCLACP_PROGRAM};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                 [](std::string& word) { return word.data(); });
  pointers.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(in_.get()), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(out_.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(err_.get()), STDERR_FILENO);
  EXPECT_EQ(posix_spawn(&process_, OCLACP_PROGRAM, &actions, nullptr, pointers.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
}

Process::~Process() {
  if (process_ != 0) {
    end(SIGKILL);
  }
}

bool Process::has_printed(const std::string& text, std::chrono::seconds time) {
  const auto deadline = std::chrono::steady_clock::now() + time;
  while (content_of(out_.get()).find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > deadline) {
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

Outcome Process::wait() {
  int status = 0;
  EXPECT_EQ(waitpid(process_, &status, 0), process_);
  process_ = 0;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), content_of(out_.get()),
          content_of(err_.get())};
}

Outcome Process::end(int signal) {
  EXPECT_EQ(kill(process_, signal), 0);
  return wait();
}

Outcome run(const std::vector<std::string>& arguments, const std::string& input) {
  return Process(arguments, input).wait();
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
