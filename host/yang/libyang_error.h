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

// The same as an Error. `prefix` stands in front of the sentence.
Error libyang_error(const ly_ctx* context, const std::string& subject, const std::string& prefix = "");

}  // namespace oclacp::host
