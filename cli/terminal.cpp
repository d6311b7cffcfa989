#include "cli/terminal.h"

#include <unistd.h>

#include <cstdlib>

namespace oclacp::cli {

bool is_terminal() {
  return isatty(STDOUT_FILENO) == 1;
}

host::TableLayout table_layout() {
  const char* no_colour = std::getenv("NO_COLOR");
  const bool wants_colours = no_colour == nullptr || no_colour[0] == '\0';
  return {.width = 80, .indent = 0, .has_colours = is_terminal() && wants_colours};
}

}  // namespace oclacp::cli
