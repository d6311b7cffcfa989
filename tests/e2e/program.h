// Running the program oclacp and looking at what it does.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

// `oclacp translate --to native` of a request on the standard input.
Outcome translate(const std::string& request, const std::vector<std::string>& further_arguments = {});

// The shipped files.
std::string example(const std::string& name);
std::vector<std::string> with_device();

// A text without its blanks and line ends.
std::string squeezed(std::string text);

// That the run was refused as it has to be: status 1, nothing on the standard output, and one sentence on the standard
// error that begins with the program's name and holds `part`.
void expect_refusal(const Outcome& run, const std::string& part);

// That the run went well and said nothing besides its result.
void expect_success(const Outcome& run);

// A request for one interface; `content` are the members of its entry in JSON.
std::string interface(const std::string& content);

}  // namespace support
