// The terminal that the standard output or the standard error may be.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>

#include "host/present/text_table.h"

namespace oclacp::cli {

// Writes lines to the standard error in which nothing acts on a terminal (host/base/printable_text.h). A line that has
// no end when this goes is written too.
class PrintableStream final : public std::ostream {
 public:
  PrintableStream() : std::ostream(nullptr) { rdbuf(&lines_); }

 private:
  class Lines final : public std::streambuf {
   public:
    Lines() = default;
    ~Lines() override;
    Lines(const Lines&) = delete;
    Lines& operator=(const Lines&) = delete;
    Lines(Lines&&) = delete;
    Lines& operator=(Lines&&) = delete;

   private:
    int_type overflow(int_type character) override;
    void end_line();

    std::string line_;
  };

  Lines lines_;
};

// Whether the standard output is a terminal.
bool is_terminal();

// How tables are printed: 80 columns wide, and in colours only on a terminal whose user has not set NO_COLOR.
host::TableLayout table_layout();

}  // namespace oclacp::cli
