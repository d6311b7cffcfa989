// An answer as a document.
#pragma once

#include <cstdio>
#include <string>

#include "host/base/export.h"
#include "host/trees/answer_data.h"
#include "host/yang/text_sink.h"

namespace oclacp::host {

// Writes an answer in JSON (RFC 7951) or XML, byte for byte as libyang writes the same tree with all its siblings.
// Throws Error when it cannot be written.
void write_answer(TextSink& sink, const AnswerData& answer, LYD_FORMAT format);
OCLACP_HOST_API void write_answer(std::FILE* file, const AnswerData& answer, LYD_FORMAT format);

// The same as a text.
OCLACP_HOST_API std::string print_answer(const AnswerData& answer, LYD_FORMAT format);

}  // namespace oclacp::host
