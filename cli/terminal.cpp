#include "cli/terminal.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "host/base/printable_text.h"

namespace oclacp::cli {

PrintableStream::Lines::~Lines() {
  if (!line_.empty()) {
    end_line();
  }
}

PrintableStream::Lines::int_type PrintableStream::Lines::overflow(int_type character) {
  if (character == '\n') {
    end_line();
  } else if (character != traits_type::eof()) {
    line_.push_back(traits_type::to_char_type(character));
  }
  return traits_type::not_eof(character);
}

void PrintableStream::Lines::end_line() {
  std::cerr << host::printable(line_) << '\n';
  line_.clear();
}

bool is_terminal() {
  return isatty(STDOUT_FILENO) == 1;
}

host::TableLayout table_layout() {
  const char* no_colour = std::getenv("NO_COLOR");
  const bool wants_colours = no_colour == nullptr || no_colour[0] == '\0';
  return {.width = 80, .indent = 0, .has_colours = is_terminal() && wants_colours};
}

}  // namespace oclacp::cli
