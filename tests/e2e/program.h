// Running the program oclacp and looking at what it does.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/types.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace support {

// What one run gave.
struct Outcome {
  int status;  // exit status; 128 and more for a signal, as a shell shows it
  std::string out;
  std::string err;
};

// Runs the program with its arguments. `input` is its standard input.
Outcome run(const std::vector<std::string>& arguments, const std::string& input = "");

// The program, running beside the test.
class Process {
 public:
  explicit Process(const std::vector<std::string>& arguments, const std::string& input = "");
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  Process(Process&&) = delete;
  Process& operator=(Process&&) = delete;

  // Waits until it has printed a text; false when it has not within the time.
  bool has_printed(const std::string& text, std::chrono::seconds time);
  // Waits for its end.
  Outcome wait();
  // Sends it a signal and waits for its end.
  Outcome end(int signal);

 private:
  struct CloseFile {
    void operator()(FILE* file) const { static_cast<void>(std::fclose(file)); }
  };
  using File = std::unique_ptr<FILE, CloseFile>;

  static File temporary(const std::string& content = "");
  static std::string content_of(FILE* file);

  // Files instead of pipes: no output is too long, and nobody waits for the other.
  File in_;
  File out_;
  File err_;
  pid_t process_;
};

// What the program prints on a terminal.
std::string printed_on_terminal(const std::vector<std::string>& arguments);

// `oclacp translate --to native` of a request on the standard input.
Outcome translate(const std::string& request, const std::vector<std::string>& further_arguments = {});

// The shipped files.
std::string example(const std::string& name);
std::vector<std::string> with_device();

// A text without its blanks and line ends.
std::string squeezed(std::string text);

// The exit statuses of errors; host/base/error.cpp has what each stands for.
inline constexpr int kFailed = 1;
inline constexpr int kDataExists = 3;
inline constexpr int kDataMissing = 4;

// That the run was refused as it has to be: with its status, nothing on the standard output, and one sentence on the
// standard error that begins with the program's name and holds `part`.
void expect_refusal(const Outcome& run, const std::string& part, int status = kFailed);

// That the run went well and said nothing besides its result.
void expect_success(const Outcome& run);

// A request for one interface; `content` are the members of its entry in JSON.
std::string interface(const std::string& content);

}  // namespace support
