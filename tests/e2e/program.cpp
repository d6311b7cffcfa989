#include "tests/e2e/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <thread>
#include <utility>

#include "tests/support/locations.h"

extern char** environ;

namespace support {
namespace {

// Starts the program with these streams; -1 leaves the test's own.
pid_t start(const std::vector<std::string>& arguments, int in, int out, int err) {
  std::vector<std::string> words = {location::kProgram};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                 [](std::string& word) { return word.data(); });
  pointers.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const auto& [stream, number] : {std::pair(in, STDIN_FILENO), {out, STDOUT_FILENO}, {err, STDERR_FILENO}}) {
    if (stream != -1) {
      posix_spawn_file_actions_adddup2(&actions, stream, number);
    }
  }
  pid_t process = 0;
  EXPECT_EQ(posix_spawn(&process, location::kProgram, &actions, nullptr, pointers.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);
  return process;
}

}  // namespace

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
    : in_(temporary(input)),
      out_(temporary()),
      err_(temporary()),
      process_(start(arguments, fileno(in_.get()), fileno(out_.get()), fileno(err_.get()))) {}

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

std::string printed_on_terminal(const std::vector<std::string>& arguments) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  EXPECT_EQ(grantpt(terminal), 0);
  EXPECT_EQ(unlockpt(terminal), 0);
  const int line = open(ptsname(terminal), O_RDWR | O_NOCTTY);
  const pid_t process = start(arguments, -1, line, -1);
  close(line);
  // The terminal is at its end when nobody has the line open any more.
  std::string printed;
  std::array<char, 4096> buffer{};
  ssize_t count = 0;
  while ((count = read(terminal, buffer.data(), buffer.size())) > 0) {
    printed.append(buffer.data(), static_cast<size_t>(count));
  }
  close(terminal);
  int status = 0;
  EXPECT_EQ(waitpid(process, &status, 0), process);
  EXPECT_EQ(status, 0);
  return printed;
}

Outcome translate(const std::string& request, const std::vector<std::string>& further_arguments) {
  std::vector<std::string> arguments = {"translate", "--to", "native", "-"};
  arguments.insert(arguments.end(), further_arguments.begin(), further_arguments.end());
  return run(arguments, request);
}

std::string example(const std::string& name) {
  return std::string(location::kExamples) + "/" + name;
}

std::vector<std::string> with_device() {
  return {"-d", example("device")};
}

std::string squeezed(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(), [](char character) { return std::isspace(character) != 0; }),
             text.end());
  return text;
}

void expect_refusal(const Outcome& run, const std::string& part, int status) {
  EXPECT_EQ(run.status, status);
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
