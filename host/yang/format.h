// The encodings of YANG data.
#pragma once

#include <libyang/libyang.h>

namespace oclacp::host {

// JSON as in RFC 7951, XML as in RFC 7950.
enum class Format { kJson, kXml };

inline LYD_FORMAT libyang_format(Format format) {
  return format == Format::kXml ? LYD_XML : LYD_JSON;
}

inline Format format_of(LYD_FORMAT format) {
  return format == LYD_XML ? Format::kXml : Format::kJson;
}

}  // namespace oclacp::host
