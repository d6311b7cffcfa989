// Where the program's own files are.
#pragma once

#include <string>

namespace oclacp::cli {

// Both are found from where the program itself stands, in a build tree and when installed alike. The path is given even
// when nothing is there.
std::string default_module();   // the mapping module's shared library
std::string shipped_schemas();  // the folder of YANG schemas

}  // namespace oclacp::cli
