// The form of the files that the datastores keep their state in.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace oclacp::server {

// A text file that says what it is and in which version of its format, and that cannot be cut short or damaged
// unnoticed:
//
//   oclacp-journal 1           kind and version of the format
//   user: admin                fields, one a line; a backslash and a line break in a value are "\\" and "\n"
//   sections: 120 4533         how many bytes each section has
//   checksum: 8c5f...          of all other bytes (64-bit FNV-1a)
//                              an empty line, and the sections one after the other
struct KeptFile {
  std::vector<std::pair<std::string, std::string>> fields;
  std::vector<std::string> sections;

  // Throws host::Error, naming `file`, when there is no such field.
  [[nodiscard]] const std::string& field(std::string_view name, const std::string& file) const;
};

// What is written; `kind` begins with "oclacp-".
std::string print_kept_file(const KeptFile& content, std::string_view kind, unsigned format);

// What a file of this kind holds, which has at least `sections` sections. `file` is for messages. Throws host::Error
// when it is another kind of file, when its format is another one, and when it is damaged.
KeptFile parse_kept_file(std::string_view text, std::string_view kind, unsigned format, size_t sections,
                         const std::string& file);

// A text without line breaks and tabs, and back. What was escaped comes back; any other text is taken as it is.
std::string escape(std::string_view text);
std::string unescape(std::string_view text);

}  // namespace oclacp::server
