// What libyang reports, as the host's errors.
#pragma once

#include <libyang/libyang.h>

#include <string>

#include "host/base/error.h"

namespace oclacp::host {

// What libyang last reported.
struct LibyangError {
  ErrorKind kind;
  std::string path;    // of the node; empty when none is named
  unsigned line = 0;   // of the text that was read; 0 when none is named
  std::string reason;  // never empty

  // "/module:a/b (line 3): Invalid ...". `subject` stands in front when no node is named.
  [[nodiscard]] std::string sentence(const std::string& subject) const;
};

LibyangError last_libyang_error(const ly_ctx* context);

// The first of those that libyang has kept (LY_LOSTORE): what the others follow from.
LibyangError first_libyang_error(const ly_ctx* context);

// Why a leaf does not take a text, which libyang's message tells: without its full stop, with the names that an
// enumeration has, and with a long text cut. `leaf` is null when it is not known.
std::string value_reason(const lysc_node* leaf, std::string message);

// What libyang last reported as an Error. `prefix` stands in front of the sentence.
Error libyang_error(const ly_ctx* context, const std::string& subject, const std::string& prefix = "");

}  // namespace oclacp::host
